#pragma once
#include <kelo/KeloLoopThread.h>
#include <memory>
#include <QString>

class PlayerControl;
class QObject;

/// Offers the player on the session bus in the way of MPRIS 2, for media keys and desktop panels.
/// Owned by the program, started and stopped on its thread; the work is done on a thread of its
/// own, since a bus that hangs must hold up nothing. Without a bus, or when it goes, nothing
/// happens. What speaks with the bus is loaded when there is one.
class MprisService
{
public:
    /// The player outlives the service.
    explicit MprisService(PlayerControl& player);
    ~MprisService();

    /// Goes to the bus at an address, in a while. An empty one means that there is no bus.
    void start(const QString& busAddress);
    /// May be called twice.
    void stop();

private:
    PlayerControl& m_player;
    KeloLoopThread m_thread;
    std::unique_ptr<QObject> m_object; ///< an MprisObject; of the thread
};
