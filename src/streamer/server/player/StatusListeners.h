#pragma once
#include "PlayerControl.h"
#include <map>
#include <memory>
#include <mutex>

/// The listeners of the player's status. Every operation may be called from any thread.
class StatusListeners
{
public:
    quint64 add(PlayerControl::Listener listener);
    /// After the return the listener does not run any more; from within the listener itself it
    /// returns at once. The caller holds no lock that the listener takes.
    void remove(quint64 id);
    /// Calls every listener, without a lock that adding or removing another one needs.
    void notify(const QJsonObject& status) const;

private:
    struct Entry
    {
        std::recursive_mutex mutex; ///< held while the listener runs
        PlayerControl::Listener listener;
        bool isRemoved = false;
    };

    mutable std::mutex m_mutex;
    std::map<quint64, std::shared_ptr<Entry>> m_entries;
    quint64 m_lastId = 0;
};
