#include "StatusListeners.h"
#include <vector>

quint64 StatusListeners::add(PlayerControl::Listener listener)
{
    auto entry = std::make_shared<Entry>();
    entry->listener = std::move(listener);
    std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.emplace(++m_lastId, std::move(entry));
    return m_lastId;
}

void StatusListeners::remove(quint64 id)
{
    std::shared_ptr<Entry> entry;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_entries.find(id);
        if (found == m_entries.end())
            return;
        entry = found->second;
        m_entries.erase(found);
    }
    std::lock_guard<std::recursive_mutex> lock(entry->mutex);
    entry->isRemoved = true;
}

void StatusListeners::notify(const QJsonObject& status) const
{
    std::vector<std::shared_ptr<Entry>> entries;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        entries.reserve(m_entries.size());
        for (const auto& entry : m_entries)
            entries.push_back(entry.second);
    }
    for (const auto& entry : entries) {
        std::lock_guard<std::recursive_mutex> lock(entry->mutex);
        if (!entry->isRemoved)
            entry->listener(status);
    }
}
