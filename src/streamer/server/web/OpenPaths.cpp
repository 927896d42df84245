#include "OpenPaths.h"

#include <kelo/CMRoot.h>

OpenPaths::Change OpenPaths::replace(const QList<CMPath>& paths,
                                     const CMSubscribe::RowsListener& listener)
{
    Change change;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_isClosed)
        return change;
    std::map<QString, quint64> wanted;
    for (const CMPath& path : paths) {
        const QString text = path.toEncoded();
        if (wanted.count(text) != 0 || change.refused.contains(text))
            continue;
        const auto known = m_open.find(text);
        const quint64 id =
            known != m_open.end() ? known->second : CMRoot().openRows(path, listener);
        if (id != 0) {
            wanted.emplace(text, id);
            change.opened.append(text);
        } else {
            change.refused.append(text);
        }
    }
    m_open.swap(wanted);
    for (const auto& [path, id] : wanted) {
        if (m_open.count(path) == 0)
            CMRoot().closeRows(id);
    }
    return change;
}

void OpenPaths::close()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isClosed = true;
    for (const auto& entry : m_open)
        CMRoot().closeRows(entry.second);
    m_open.clear();
}
