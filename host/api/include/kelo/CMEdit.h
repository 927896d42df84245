#pragma once
#include "CMPath.h"
#include "KeloNames.h"
#include <QVariant>

/// A change of what a service keeps for its user, as a worker tells it after it has happened.
struct KELO_EXPORT CMEdit
{
    KELO_NAME(Favorite, "favorite")
    KELO_NAME(Unfavorite, "unfavorite")
    KELO_NAME(Create, "create")
    KELO_NAME(Rename, "rename")
    KELO_NAME(Delete, "delete")
    KELO_NAME(Add, "add")
    KELO_NAME(Remove, "remove")
    KELO_NAME(Move, "move")

    CMPath path;    ///< that a value was sent to
    QString action; ///< one of the words above
    CMPath item; ///< what it is about, where that can be told: an item, or the list of a playlist's
                 ///< tracks
    QVariant reply; ///< what the client was answered
};
