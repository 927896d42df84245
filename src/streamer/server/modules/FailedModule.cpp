#include "FailedModule.h"

FailedModule::FailedModule(const ModuleChoice& choice, const QString& problem)
    : m_choice(choice), m_problem(problem)
{
}

KeloRoles FailedModule::dataRoles(const CMPath& path) const
{
    KeloRoles roles;
    if (path.base() != m_choice.prefix)
        return roles;
    roles.setPath(path);
    roles.setType(KeloRolesType::Container_);
    roles.setTitle(m_choice.name);
    roles.setDescription(m_problem);
    roles.setDisabled(true);
    return roles;
}

void FailedModule::refuse(const CMRequest& request) const
{
    request.reply().setError(CMError(QStringLiteral("Module"), TrString(m_problem)));
}
