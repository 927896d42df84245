#include "CMPendingReplies.h"

#include "KeloLog.h"

#include <system_error>

namespace {
CMError hostError(const QString& name, const char* text)
{
    return CMError(name, TrString(TrCharData{"CMRoot", text, nullptr}));
}

void failUnanswered(const CMPath& path, const CMVoidReply& reply)
{
    const CMError error = hostError(CMError::NoAnswerName(), "The module gave no answer");
    if (reply.giveUp(error))
        KELO_LOG("Host", WARN) << "The module gave no answer to " << path;
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
        Entry entry{reply, worker, Clock::now(), Clock::time_point::max()};
        if (deadline != noDeadline()) {
            entry.due = entry.since + deadline;
            const bool isEarliest = m_due.empty() || entry.due < m_due.begin()->first;
            m_due.emplace(entry.due, id);
            if (isEarliest)
                wakeClock();
        }
        m_entries.emplace(id, std::move(entry));
    }
    reply.addWatcher(nullptr, [this, id] { remove(id); });
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
        reply.giveUp(error);
    // One that the clock is just answering may be notifying the worker's objects.
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_clock.get_id() != std::this_thread::get_id())
        m_answered.wait(lock, [this] { return !m_isAnswering; });
}

int CMPendingReplies::size() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_entries.size());
}

std::optional<CMPendingReplies::Clock::time_point> CMPendingReplies::oldest() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& [id, entry] : m_entries) {
        if (entry.due != Clock::time_point::max())
            return entry.since;
    }
    return std::nullopt;
}

void CMPendingReplies::endUnanswered(const CMPath& path, const CMVoidReply& reply)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_unanswered.emplace_back(path, reply);
    wakeClock();
}

void CMPendingReplies::wakeClock()
{
    if (m_clock.joinable() || m_isStopping) {
        m_wake.notify_one();
        return;
    }
    try {
        m_clock = std::thread([this] { watchClock(); });
    } catch (const std::system_error& error) {
        // The next request tries again.
        KELO_LOG("Host", ERROR) << "No thread for the deadlines: " << error.what();
    }
}

void CMPendingReplies::stopClock()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
        m_wake.notify_one();
    }
    if (m_clock.joinable())
        m_clock.join();
}

void CMPendingReplies::watchClock()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto unlocked = [this, &lock](const std::function<void()>& answer) {
        m_isAnswering = true;
        lock.unlock();
        answer();
        lock.lock();
        m_isAnswering = false;
        m_answered.notify_all();
    };
    while (!m_isStopping) {
        if (!m_unanswered.empty()) {
            const auto unanswered = std::move(m_unanswered);
            m_unanswered.clear();
            unlocked([&unanswered] {
                for (const auto& [path, reply] : unanswered)
                    failUnanswered(path, reply);
            });
        } else if (m_due.empty()) {
            m_wake.wait(lock);
        } else if (const auto [due, id] = *m_due.begin(); Clock::now() < due) {
            m_wake.wait_until(lock, due);
        } else {
            m_due.erase(m_due.begin());
            unlocked([reply = m_entries.at(id).reply] {
                reply.giveUp(
                    hostError(CMError::DeadlineName(), "The service did not answer in time"));
            });
        }
    }
}
