#pragma once
#include "CMPath.h"
#include "CMReply.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <vector>

class CMAbstractWorker;

/// The replies that are still owed, with their deadlines. Answers those that are overdue, those
/// that nobody can answer any more, and those of a worker that stops. Owned by the root; any
/// thread; has a thread of its own for the clock.
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
    /// Answers every reply of a worker with the error that the worker has stopped. After the return
    /// the clock does not reach for the worker's objects any more.
    void failAllOf(CMAbstractWorker* worker);
    /// Answers with an error, soon and on the clock's thread, because nobody holds the request.
    void endUnanswered(const CMPath& path, const CMVoidReply& reply);
    int size() const;
    using Clock = std::chrono::steady_clock;
    /// Since when the oldest of those with a deadline is owed; nothing when there is none.
    std::optional<Clock::time_point> oldest() const;
    /// Ends the clock for good: it answers nothing any more. Before the process ends, so that the
    /// clock does not meet what is gone already.
    void stopClock();

private:
    struct Entry
    {
        CMVoidReply reply;
        CMAbstractWorker* worker;
        Clock::time_point since;
        Clock::time_point due; ///< max: no deadline
    };

    void remove(quint64 id);
    void watchClock();
    /// With the lock held; started by the first who needs it.
    void wakeClock();

    mutable std::mutex m_mutex;
    std::condition_variable m_wake;     ///< the clock has something to do earlier
    std::map<quint64, Entry> m_entries; ///< oldest first
    std::set<std::pair<Clock::time_point, quint64>> m_due;    ///< entries with a deadline
    std::vector<std::pair<CMPath, CMVoidReply>> m_unanswered; ///< for the clock's thread
    quint64 m_lastId = 0;
    bool m_isAnswering = false; ///< the clock is giving answers, without the lock
    std::condition_variable m_answered;
    bool m_isStopping = false;
    std::thread m_clock;
};

/// Has the root answer a request that nobody holds any more. Any thread, also with locks held: the
/// answer is given on the root's own thread.
void keloEndUnanswered(const CMPath& path, const CMVoidReply& reply);
