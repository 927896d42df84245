#pragma once
#include "KeloRoles.h"

/// Helpers that belong to no class.
class KELO_EXPORT CMGlobal
{
public:
    /// A row for a role list: the item's value of each role in order, an invalid variant where the
    /// item has none.
    static QVariantList itemRolesToList(const KeloRoles& item, const QStringList& roles);
};
