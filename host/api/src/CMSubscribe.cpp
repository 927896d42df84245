#include "CMSubscribe.h"

#include "CMRoot.h"

quint64 CMSubscribe::openRows(const CMPath& path, RowsListener listener)
{
    const quint64 id =
        m_listeners.add([path, listener = std::move(listener)](const IsTouched& isTouched,
                                                               const QVariant& change, int count) {
            if (isTouched(path))
                listener(CMRowsNotice{path, change, count});
        });
    bool isFirst = false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_open.emplace(id, path);
        isFirst = ++m_clients[path] == 1;
    }
    if (isFirst)
        Q_EMIT rowsPathAdded(path);
    return id;
}

void CMSubscribe::closeRows(quint64 id)
{
    m_listeners.remove(id);
    CMPath path;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_open.find(id);
        if (found == m_open.end())
            return;
        path = found->second;
        m_open.erase(found);
        const auto clients = m_clients.find(path);
        if (--clients.value() > 0)
            return;
        m_clients.erase(clients);
    }
    Q_EMIT rowsPathRemoved(path);
}

void CMSubscribe::tell(const CMPath& path, const QVariant& change, int count, int rowsVersion,
                       const IsTouched& isTouched)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        int& version = m_versions[path.base()];
        version = rowsVersion >= 0 ? rowsVersion : version + 1;
        for (const auto& [id, open] : m_open) {
            if (isTouched(open) && !open.equals(path, CMPath::CompareBase))
                ++m_versions[open.base()];
        }
    }
    m_listeners.notify(isTouched, change, count);
}

void CMSubscribe::rowsChanged(const CMPath& path, const QVariant& change, int count,
                              int rowsVersion)
{
    tell(path, change, count, rowsVersion, [&path](const CMPath& open) {
        return open.equals(path, CMPath::CompareBase) && open.includesParams(path);
    });
}

void CMSubscribe::changedStartingWith(const CMPath& path, const QString& kind, int count,
                                      int rowsVersion)
{
    tell(path, kind, count, rowsVersion,
         [&path](const CMPath& open) { return open.startsWith(path); });
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
