#pragma once
#include "CMRoot.h"

#include <map>
#include <memory>
#include <mutex>
#include <vector>

/// Who watches values and data roles in the host tree, by path. Owned by the root; any thread.
class CMWatchers
{
public:
    quint64 addValue(const CMPath& path, CMRoot::ValueListener listener);
    quint64 addData(const CMPath& path, CMRoot::DataListener listener);
    /// After the return the listener does not run any more.
    void remove(quint64 id);

    void notifyValue(const CMPath& path, const KeloValue& newValue, const KeloValue& oldValue);
    void notifyData(const CMPath& path);

private:
    struct Watch
    {
        CMPath path;
        CMRoot::ValueListener onValue;
        CMRoot::DataListener onData;
        /// Held while the listener runs, so that remove() can wait for it; recursive, so that a
        /// listener may remove itself.
        std::recursive_mutex running;
        bool isRemoved = false; ///< guarded by `running`
    };
    using WatchPtr = std::shared_ptr<Watch>;

    quint64 add(WatchPtr watch);
    std::vector<WatchPtr> at(const CMPath& path) const;

    mutable std::mutex m_mutex;
    std::map<quint64, WatchPtr> m_watches;
    quint64 m_lastId = 0;
};
