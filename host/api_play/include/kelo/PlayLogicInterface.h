#pragma once
#include <kelo/CMPath.h>
#include <kelo/KeloRoles.h>

/// What a module hands a finished item to. The program's player implements it, registers itself
/// before modules are loaded, and outlives them.
class KELO_EXPORT PlayLogicInterface
{
public:
    virtual ~PlayLogicInterface();

    /// Plays an item now: its roles with complete media data, and the path of the play request that
    /// it answers. `options` is 0. May be called on any thread and does not wait for the sound.
    /// Returns what the play request is answered with. The item is to be handed over before the
    /// request is answered, and under its very path, parameters and all: by that alone the player
    /// knows what it asked for. Under another path it counts as an item that cannot be played.
    virtual QVariant play(const KeloRoles& item, int options) = 0;

    /// The player at a path of the host tree; null when there is none. Any thread.
    static PlayLogicInterface* instance(const CMPath& path);
    /// Sets, or with null removes, the player at a path.
    static void setInstance(const CMPath& path, PlayLogicInterface* player);
};
