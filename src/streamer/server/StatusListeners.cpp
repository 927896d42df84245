#include "StatusListeners.h"

#include <algorithm>

quint64 StatusListeners::add(Listener listener)
{
    auto entry = std::make_shared<Entry>();
    entry->listener = std::move(listener);
    std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.emplace(++m_lastId, std::move(entry));
    return m_lastId;
}

void StatusListeners::remove(quint64 id)
{
    std::shared_ptr<Entry> entry; // released after the lock
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto found = m_entries.find(id);
    if (found == m_entries.end())
        return;
    entry = found->second;
    entry->isRemoved = true;
    m_entries.erase(found);
    const auto isOwn = [own = std::this_thread::get_id()](std::thread::id id) { return id == own; };
    m_left.wait(lock,
                [&] { return std::all_of(entry->running.begin(), entry->running.end(), isOwn); });
}

void StatusListeners::notify(const QJsonObject& status)
{
    std::vector<std::shared_ptr<Entry>> entries; // released after the lock
    std::unique_lock<std::mutex> lock(m_mutex);
    entries.reserve(m_entries.size());
    for (const auto& entry : m_entries)
        entries.push_back(entry.second);
    for (const auto& entry : entries) {
        if (entry->isRemoved)
            continue;
        entry->running.push_back(std::this_thread::get_id());
        lock.unlock();
        entry->listener(status);
        lock.lock();
        auto& running = entry->running;
        running.erase(std::find(running.begin(), running.end(), std::this_thread::get_id()));
        m_left.notify_all();
    }
}
