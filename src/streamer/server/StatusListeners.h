#pragma once
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <QJsonObject>
#include <thread>
#include <vector>

/// The listeners of a status: the player's, the login's. Owned by what has the status; every
/// operation may be called from any thread. No lock is held while a listener runs.
class StatusListeners
{
public:
    using Listener = std::function<void(const QJsonObject& status)>;

    quint64 add(Listener listener);
    /// After the return the listener does not run any more; from within the listener itself it
    /// returns at once. The caller holds no lock that the listener takes.
    void remove(quint64 id);
    /// Calls every listener. One that is added meanwhile is not told, one that is removed no more.
    void notify(const QJsonObject& status);

private:
    struct Entry
    {
        Listener listener;
        std::vector<std::thread::id> running; ///< threads that are inside the listener
        bool isRemoved = false;
    };

    std::mutex m_mutex;             ///< guards all below, and the entries but for their listeners
    std::condition_variable m_left; ///< a thread has come out of a listener
    std::map<quint64, std::shared_ptr<Entry>> m_entries;
    quint64 m_lastId = 0;
};
