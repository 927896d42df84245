#pragma once
#include "CMReply.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <thread>

class CMAbstractWorker;

/// The replies that are still owed, with their deadlines. Answers those that are overdue, and those
/// of a worker that stops. Owned by the root; any thread; has a thread of its own for the clock.
class CMPendingReplies
{
public:
    CMPendingReplies() = default;
    CMPendingReplies(const CMPendingReplies&) = delete;
    CMPendingReplies& operator=(const CMPendingReplies&) = delete;

    /// Means that a reply may take as long as it takes.
    static std::chrono::milliseconds noDeadline() { return std::chrono::milliseconds::max(); }

    /// Keeps a reply until it is finished. An empty handle is not kept.
    void add(const CMVoidReply& reply, CMAbstractWorker* worker,
             std::chrono::milliseconds deadline);
    /// Answers every reply of a worker with the error that the worker has stopped.
    void failAllOf(CMAbstractWorker* worker);
    int size() const;

private:
    using Clock = std::chrono::steady_clock;
    struct Entry
    {
        CMVoidReply reply;
        CMAbstractWorker* worker;
        Clock::time_point due; ///< max: no deadline
    };

    void remove(quint64 id);
    void watchClock();
    void startThread();

    mutable std::mutex m_mutex;
    std::condition_variable m_earlier; ///< the earliest deadline moved forward
    std::map<quint64, Entry> m_entries;
    std::set<std::pair<Clock::time_point, quint64>> m_due; ///< entries with a deadline
    quint64 m_lastId = 0;
    bool m_hasThread = false;
};
