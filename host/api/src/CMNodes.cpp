#include "CMNodes.h"

#include "CMNode.h"
#include "KeloLog.h"

#include <QHash>
#include <shared_mutex>
#include <vector>

class CMNodes::Private
{
public:
    CMSubscribe subscribe;
    mutable std::shared_mutex mutex; ///< guards byBase
    QHash<QString, CMNode*> byBase;
    std::vector<std::unique_ptr<QObject>> owned; ///< in the order of coming; worker's thread
};

CMNodes::CMNodes() : d(new Private) {}

CMNodes::~CMNodes()
{
    // Forms know their container, so the youngest go first.
    while (!d->owned.empty())
        d->owned.pop_back();
}

void CMNodes::add(CMNode* node)
{
    d->owned.emplace_back(node);
    std::unique_lock<std::shared_mutex> lock(d->mutex);
    CMNode*& place = d->byBase[node->path().base()];
    if (place) {
        KELO_LOG("Host", ERROR) << "there is a node at " << node->path() << " already";
        Q_ASSERT_X(false, "CMNodes::add", "two nodes at one path");
        return;
    }
    place = node;
}

void CMNodes::own(QObject* object)
{
    d->owned.emplace_back(object);
}

CMNode* CMNodes::find(const CMPath& path) const
{
    std::shared_lock<std::shared_mutex> lock(d->mutex);
    return d->byBase.value(path.base());
}

CMNode* CMNodes::findNearest(const CMPath& path) const
{
    std::shared_lock<std::shared_mutex> lock(d->mutex);
    QString base = path.base();
    for (;;) {
        if (CMNode* node = d->byBase.value(base))
            return node;
        const int slash = base.lastIndexOf(QLatin1Char('/'));
        if (slash < 0)
            return nullptr;
        base.truncate(slash);
    }
}

int CMNodes::size() const
{
    std::shared_lock<std::shared_mutex> lock(d->mutex);
    return d->byBase.size();
}

CMSubscribe* CMNodes::subscribe() const
{
    return &d->subscribe;
}
