#pragma once
#include "CMPath.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <QStringList>

class CMAbstractWorker;

/// How the root reaches one worker: its prefixes, and a count of the calls that are inside it, so
/// that it can be closed before the worker is deleted. Owned by the root and by visits; any thread.
class CMWorkerRoute
{
public:
    CMWorkerRoute(CMAbstractWorker* worker, const QStringList& prefixes)
        : m_worker(worker), m_prefixes(prefixes)
    {
    }

    const QStringList& prefixes() const { return m_prefixes; }
    bool isFor(const CMAbstractWorker* worker) const { return m_worker == worker; }
    CMAbstractWorker* workerPointer() const { return m_worker; }

    /// Length of the longest prefix that the path starts with, by whole segments; -1 for none.
    int matchLength(const CMPath& path) const
    {
        int length = -1;
        for (const QString& prefix : m_prefixes) {
            if (prefix.size() > length && path.base().startsWith(prefix) &&
                (path.base().size() == prefix.size() ||
                 path.base().at(prefix.size()) == QLatin1Char('/')))
                length = prefix.size();
        }
        return length;
    }

    /// A call that is inside the worker. The worker is there as long as the visit is.
    class Visit
    {
    public:
        explicit Visit(std::shared_ptr<CMWorkerRoute> route) : m_route(std::move(route))
        {
            if (m_route && !m_route->enter())
                m_route.reset();
        }
        ~Visit()
        {
            if (m_route)
                m_route->leave();
        }
        Visit(const Visit&) = delete;
        Visit& operator=(const Visit&) = delete;
        /// Null when there is no such worker, or it is closed.
        CMAbstractWorker* worker() const { return m_route ? m_route->m_worker : nullptr; }

    private:
        std::shared_ptr<CMWorkerRoute> m_route;
    };

    /// Lets nobody in any more and waits until everybody has left.
    void close()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_isClosed = true;
        m_left.wait(lock, [this] { return m_visits == 0; });
    }

private:
    bool enter()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_isClosed)
            return false;
        ++m_visits;
        return true;
    }
    void leave()
    {
        // Notified under the lock: the route may be gone right after the last visitor has left.
        std::lock_guard<std::mutex> lock(m_mutex);
        if (--m_visits == 0)
            m_left.notify_all();
    }

    CMAbstractWorker* const m_worker;
    const QStringList m_prefixes;
    std::mutex m_mutex;
    std::condition_variable m_left;
    int m_visits = 0;
    bool m_isClosed = false;
};
