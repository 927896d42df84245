#pragma once
#include "ModuleChoice.h"

#include <kelo/CMAbstractWorker.h>

/// Stands in the tree for a module that does not serve: requests below its prefix are answered with
/// the reason. Owned by Modules, lives on its thread, answers on any.
class FailedModule : public CMAbstractWorker
{
    Q_OBJECT
public:
    FailedModule(const ModuleChoice& choice, const QString& problem);

    QStringList prefixes() const override { return {m_choice.prefix}; }
    void getDataRequest(const CMGetDataRequest& request) override { refuse(request); }
    void setDataRequest(const CMSetDataRequest& request) override { refuse(request); }
    void getRowsRequest(const CMGetRowsRequest& request) override { refuse(request); }
    /// Of its top node alone: a row that says what is wrong.
    KeloRoles dataRoles(const CMPath& path) const override;

private:
    void refuse(const CMRequest& request) const;

    const ModuleChoice m_choice;
    const QString m_problem;
};
