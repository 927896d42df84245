#include "CMSubscribe.h"

#include "CMRoot.h"

#include <algorithm>

quint64 CMSubscribe::openRows(const CMPath& path, RowsListener listener)
{
    const quint64 id =
        m_listeners.add([path, listener = std::move(listener)](const QVariant& change, int count) {
            listener(CMRowsNotice{path, change, count});
        });
    std::lock_guard<std::recursive_mutex> order(m_orderMutex);
    bool isFirst = false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_open[path.base()].emplace(id, path);
        m_openBases.insert(path.base());
        m_bases.emplace(id, path.base());
        isFirst = ++m_clients[path] == 1;
    }
    if (isFirst)
        Q_EMIT rowsPathAdded(path);
    return id;
}

void CMSubscribe::closeRows(quint64 id)
{
    m_listeners.remove(id);
    std::lock_guard<std::recursive_mutex> order(m_orderMutex);
    CMPath path;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto base = m_bases.find(id);
        if (base == m_bases.end())
            return;
        const auto open = m_open.find(base->second);
        const auto closed = open->find(id);
        path = closed->second;
        open->erase(closed);
        if (open->empty()) {
            m_open.erase(open);
            m_openBases.erase(base->second);
        }
        m_bases.erase(base);
        const auto clients = m_clients.find(path);
        if (--clients.value() > 0)
            return;
        m_clients.erase(clients);
    }
    Q_EMIT rowsPathRemoved(path);
}

void CMSubscribe::addTouched(std::vector<quint64>& ids, const QString& base, const CMPath& path)
{
    const auto paths = m_open.constFind(base);
    if (paths == m_open.constEnd())
        return;
    const std::size_t before = ids.size();
    for (const auto& [id, open] : *paths) {
        if (open.includesParams(path))
            ids.push_back(id);
    }
    if (base != path.base())
        m_versions[base] += int(ids.size() - before);
}

void CMSubscribe::tell(const CMPath& path, const QVariant& change, int count, int rowsVersion,
                       bool isForAllBelow)
{
    std::vector<quint64> ids;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        int& version = m_versions[path.base()];
        version = rowsVersion >= 0 ? rowsVersion : version + 1;
        QString base = path.base();
        while (isForAllBelow && base.endsWith(QLatin1Char('/')))
            base.chop(1);
        addTouched(ids, base, path);
        if (isForAllBelow) {
            base += QLatin1Char('/');
            for (auto below = m_openBases.lower_bound(base);
                 below != m_openBases.end() && below->startsWith(base); ++below)
                addTouched(ids, *below, path);
            std::sort(ids.begin(), ids.end());
        }
    }
    m_listeners.notifyOnly(ids, change, count);
}

void CMSubscribe::rowsChanged(const CMPath& path, const QVariant& change, int count,
                              int rowsVersion)
{
    tell(path, change, count, rowsVersion, false);
}

void CMSubscribe::changedStartingWith(const CMPath& path, const QString& kind, int count,
                                      int rowsVersion)
{
    tell(path, kind, count, rowsVersion, true);
}

int CMSubscribe::rowsVersion(const CMPath& path) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_versions.value(path.base());
}

void CMSubscribe::valueChanged(const CMPath& path, const KeloValue& newValue,
                               const KeloValue& oldValue)
{
    CMRoot().notifyValue(path, newValue, oldValue);
}

void CMSubscribe::dataChanged(const CMPath& path)
{
    CMRoot().notifyData(path);
}
