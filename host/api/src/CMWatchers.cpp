#include "CMWatchers.h"

quint64 CMWatchers::addValue(const CMPath& path, CMRoot::ValueListener listener)
{
    auto watch = std::make_shared<Watch>();
    watch->path = path;
    watch->onValue = std::move(listener);
    return add(std::move(watch));
}

quint64 CMWatchers::addData(const CMPath& path, CMRoot::DataListener listener)
{
    auto watch = std::make_shared<Watch>();
    watch->path = path;
    watch->onData = std::move(listener);
    return add(std::move(watch));
}

quint64 CMWatchers::add(WatchPtr watch)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_watches.emplace(++m_lastId, std::move(watch));
    return m_lastId;
}

void CMWatchers::remove(quint64 id)
{
    WatchPtr watch;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_watches.find(id);
        if (found == m_watches.end())
            return;
        watch = found->second;
        m_watches.erase(found);
    }
    std::lock_guard<std::recursive_mutex> lock(watch->running);
    watch->isRemoved = true;
}

std::vector<CMWatchers::WatchPtr> CMWatchers::at(const CMPath& path) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<WatchPtr> watches;
    for (const auto& [id, watch] : m_watches) {
        if (watch->path.equals(path, CMPath::CompareBase))
            watches.push_back(watch);
    }
    return watches;
}

void CMWatchers::notifyValue(const CMPath& path, const KeloValue& newValue,
                             const KeloValue& oldValue)
{
    for (const WatchPtr& watch : at(path)) {
        std::lock_guard<std::recursive_mutex> lock(watch->running);
        if (!watch->isRemoved && watch->onValue)
            watch->onValue(newValue, oldValue);
    }
}

void CMWatchers::notifyData(const CMPath& path)
{
    for (const WatchPtr& watch : at(path)) {
        std::lock_guard<std::recursive_mutex> lock(watch->running);
        if (!watch->isRemoved && watch->onData)
            watch->onData(path);
    }
}
