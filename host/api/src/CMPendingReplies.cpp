#include "CMPendingReplies.h"

#include <vector>

namespace {
CMError hostError(const QString& name, const char* text)
{
    return CMError(name, TrString(TrCharData{"CMRoot", text, nullptr}));
}
} // namespace

void CMPendingReplies::add(const CMVoidReply& reply, CMAbstractWorker* worker,
                           std::chrono::milliseconds deadline)
{
    if (reply.isNull() || reply.isFinished())
        return;
    quint64 id = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        id = ++m_lastId;
        Entry entry{reply, worker, Clock::time_point::max()};
        if (deadline != noDeadline()) {
            entry.due = Clock::now() + deadline;
            const bool isEarliest = m_due.empty() || entry.due < m_due.begin()->first;
            m_due.emplace(entry.due, id);
            if (!m_hasThread)
                startThread();
            else if (isEarliest)
                m_earlier.notify_one();
        }
        m_entries.emplace(id, std::move(entry));
    }
    reply.data()->addHook([this, id] { remove(id); });
}

void CMPendingReplies::remove(quint64 id)
{
    CMVoidReply keep; // released after the lock
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_entries.find(id);
    if (found == m_entries.end())
        return;
    m_due.erase({found->second.due, id});
    keep = found->second.reply;
    m_entries.erase(found);
}

void CMPendingReplies::failAllOf(CMAbstractWorker* worker)
{
    std::vector<CMVoidReply> owed;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (const auto& [id, entry] : m_entries) {
            if (entry.worker == worker)
                owed.push_back(entry.reply);
        }
    }
    const CMError error = hostError(QStringLiteral("Stopped"), "The service has stopped");
    for (const CMVoidReply& reply : owed)
        reply.data()->finishWithError(error, CMVoidReplyData::Origin::Host);
}

int CMPendingReplies::size() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_entries.size());
}

void CMPendingReplies::startThread()
{
    m_hasThread = true;
    // Detached: the root lives to the end of the process, and so does its clock.
    std::thread([this] { watchClock(); }).detach();
}

void CMPendingReplies::watchClock()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        if (m_due.empty()) {
            m_earlier.wait(lock, [this] { return !m_due.empty(); });
            continue;
        }
        const auto [due, id] = *m_due.begin();
        if (Clock::now() < due) {
            m_earlier.wait_until(lock, due);
            continue;
        }
        m_due.erase(m_due.begin());
        const CMVoidReply reply = m_entries.at(id).reply;
        lock.unlock();
        reply.data()->finishWithError(
            hostError(CMError::DeadlineName(), "The service did not answer in time"),
            CMVoidReplyData::Origin::Host);
        lock.lock();
    }
}
