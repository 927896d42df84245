#include "CMNodes.h"

#include "CMNode.h"
#include "KeloLog.h"

CMNodes::~CMNodes()
{
    // Forms know their container, so the youngest go first.
    while (!m_owned.empty())
        m_owned.pop_back();
}

void CMNodes::add(CMNode* node)
{
    m_owned.emplace_back(node);
    std::unique_lock<std::shared_mutex> lock(m_mutex);
    CMNode*& place = m_byBase[node->path().base()];
    if (place) {
        KELO_LOG("Host", ERROR) << "there is a node at " << node->path() << " already";
        Q_ASSERT_X(false, "CMNodes::add", "two nodes at one path");
        return;
    }
    place = node;
}

CMNode* CMNodes::find(const CMPath& path) const
{
    std::shared_lock<std::shared_mutex> lock(m_mutex);
    return m_byBase.value(path.base());
}

CMNode* CMNodes::findNearest(const CMPath& path) const
{
    std::shared_lock<std::shared_mutex> lock(m_mutex);
    QString base = path.base();
    for (;;) {
        if (CMNode* node = m_byBase.value(base))
            return node;
        const int slash = base.lastIndexOf(QLatin1Char('/'));
        if (slash < 0)
            return nullptr;
        base.truncate(slash);
    }
}

int CMNodes::size() const
{
    std::shared_lock<std::shared_mutex> lock(m_mutex);
    return m_byBase.size();
}
