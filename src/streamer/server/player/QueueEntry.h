#pragma once
#include <kelo/CMPath.h>
#include <kelo/KeloRoles.h>

/// A place in the queue: a row that can be resolved, and where it stands. A value type.
struct QueueEntry
{
    KeloRoles row;  ///< the whole row; empty when only the id is known
    QString id;     ///< a track by its id alone; empty when the row is known
    CMPath list;    ///< the list that is walked on; empty when there is none
    int index = -1; ///< number of the row in the list; negative while unknown

    bool isEmpty() const { return row.isEmpty() && id.isEmpty(); }
    CMPath prePlayPath() const { return row.mediaData().metaData().prePlayPath(); }
    /// What the module knows the item by, where its path does not say it.
    QString prePlayData() const { return row.mediaData().metaData().prePlayData(); }
    /// Whether a module can be asked for its address, again if need be.
    bool canResolve() const { return !id.isEmpty() || !prePlayPath().isEmpty(); }
    /// Whether the row says that it can be played.
    bool isPlayable() const
    {
        return row.type() == KeloRolesType::Audio() && !row.disabled() && !prePlayPath().isEmpty();
    }
};
