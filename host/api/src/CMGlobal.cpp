#include "CMGlobal.h"

QVariantList CMGlobal::itemRolesToList(const KeloRoles& item, const QStringList& roles)
{
    QVariantList row;
    row.reserve(roles.size());
    for (const QString& role : roles)
        row.append(item.value(role));
    return row;
}
