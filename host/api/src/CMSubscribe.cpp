#include "CMSubscribe.h"

#include "CMRoot.h"

#include <map>
#include <vector>

class CMSubscribe::Private
{
public:
    struct OpenPath
    {
        CMPath path;
        RowsListener listener;
    };

    mutable std::mutex mutex;
    quint64 lastId = 0;
    std::map<quint64, OpenPath> open;
    QHash<CMPath, int> clients;   ///< open paths by number of clients, never zero
    QHash<QString, int> versions; ///< by base; absent: 0

    /// Counts the version at the path's base up, or sets it, and those of the touched open paths;
    /// then tells the clients, without the lock.
    template <class IsTouched>
    void tell(const CMPath& path, const QVariant& change, int count, int rowsVersion,
              IsTouched isTouched);
};

CMSubscribe::CMSubscribe(QObject* parent) : QObject(parent), d(new Private) {}

CMSubscribe::~CMSubscribe() = default;

const QString& CMSubscribe::RowsChangeClose()
{
    static const QString kind = QStringLiteral("close");
    return kind;
}

const QString& CMSubscribe::RowsChangeReset()
{
    static const QString kind = QStringLiteral("reset");
    return kind;
}

quint64 CMSubscribe::openRows(const CMPath& path, RowsListener listener)
{
    quint64 id = 0;
    bool isFirst = false;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        id = ++d->lastId;
        d->open.emplace(id, Private::OpenPath{path, std::move(listener)});
        isFirst = ++d->clients[path] == 1;
    }
    if (isFirst)
        Q_EMIT rowsPathAdded(path);
    return id;
}

void CMSubscribe::closeRows(quint64 id)
{
    CMPath path;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        const auto found = d->open.find(id);
        if (found == d->open.end())
            return;
        path = found->second.path;
        d->open.erase(found);
        const auto clients = d->clients.find(path);
        if (--clients.value() > 0)
            return;
        d->clients.erase(clients);
    }
    Q_EMIT rowsPathRemoved(path);
}

template <class IsTouched>
void CMSubscribe::Private::tell(const CMPath& path, const QVariant& change, int count,
                                int rowsVersion, IsTouched isTouched)
{
    std::vector<OpenPath> touched;
    {
        std::lock_guard<std::mutex> lock(mutex);
        int& version = versions[path.base()];
        version = rowsVersion >= 0 ? rowsVersion : version + 1;
        for (const auto& [id, one] : open) {
            if (!isTouched(one.path))
                continue;
            if (!one.path.equals(path, CMPath::CompareBase))
                ++versions[one.path.base()];
            touched.push_back(one);
        }
    }
    for (const OpenPath& one : touched)
        one.listener(CMRowsNotice{one.path, change, count});
}

void CMSubscribe::rowsChanged(const CMPath& path, const QVariant& change, int count,
                              int rowsVersion)
{
    d->tell(path, change, count, rowsVersion, [&path](const CMPath& open) {
        return open.equals(path, CMPath::CompareBase) && open.includesParams(path);
    });
}

void CMSubscribe::changedStartingWith(const CMPath& path, const QString& kind, int count,
                                      int rowsVersion)
{
    d->tell(path, kind, count, rowsVersion,
            [&path](const CMPath& open) { return open.startsWith(path); });
}

int CMSubscribe::rowsVersion(const CMPath& path) const
{
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->versions.value(path.base());
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
