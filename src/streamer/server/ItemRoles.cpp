#include "ItemRoles.h"

#include <kelo/KeloRoles.h>

const QStringList& itemRoles()
{
    static const QStringList roles{
        KeloRoles::Path(),        KeloRoles::Type(),          KeloRoles::Title(),
        KeloRoles::Disabled(),    KeloRoles::MediaData(),     KeloRoles::Icon(),
        KeloRoles::Id(),          KeloRoles::AudioType(),     KeloRoles::Context(),
        KeloRoles::Description(), KeloRoles::ContainerType(), KeloRoles::ContainerPlayable()};
    return roles;
}
