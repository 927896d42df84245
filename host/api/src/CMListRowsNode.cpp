#include "CMListRowsNode.h"

CMListRowsNode::CMListRowsNode(const CMPath& path) : CMContainerNode(path) {}

CMListRowsNode* CMListRowsNode::create(CMNodes* nodes, const CMPath& path)
{
    auto* node = new CMListRowsNode(path);
    node->setNodes(nodes);
    return node;
}

void CMListRowsNode::rowsAppend(const CMPath& nodePath)
{
    append(CMRow(nodePath));
}

void CMListRowsNode::rowsAppend(const KeloRoles& row)
{
    append(CMRow(row));
}

void CMListRowsNode::append(const CMRow& row)
{
    int count = 0;
    {
        std::lock_guard<std::mutex> lock(mutex());
        m_rows.append(row);
        count = m_rows.size();
    }
    if (CMSubscribe* subscription = subscribe())
        subscription->rowsChanged(path(), CMSubscribe::RowsChangeReset(), count);
}

void CMListRowsNode::rowsClear()
{
    {
        std::lock_guard<std::mutex> lock(mutex());
        if (m_rows.isEmpty())
            return;
        m_rows.clear();
    }
    if (CMSubscribe* subscription = subscribe())
        subscription->rowsChanged(path(), CMSubscribe::RowsChangeReset(), 0);
}

CMRowList CMListRowsNode::rows() const
{
    std::lock_guard<std::mutex> lock(mutex());
    return m_rows;
}

int CMListRowsNode::rowsSize() const
{
    std::lock_guard<std::mutex> lock(mutex());
    return m_rows.size();
}

void CMListRowsNode::setRowsRoles(const KeloRowsRoles& rowsRoles)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_rowsRoles = rowsRoles;
}

KeloRowsRoles CMListRowsNode::rowsRoles() const
{
    std::lock_guard<std::mutex> lock(mutex());
    return m_rowsRoles;
}

void CMListRowsNode::setCopyPathParams(bool copy)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_isCopyingPathParams = copy;
}

bool CMListRowsNode::getRowsRequest(const CMGetRowsRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    std::unique_lock<std::mutex> lock(mutex());
    const CMRowList stored = m_rows;
    const KeloRowsRoles rowsRoles = m_rowsRoles;
    const bool copyPathParams = m_isCopyingPathParams;
    lock.unlock();

    const int version = subscribe() ? subscribe()->rowsVersion(request.path()) : 0;
    const CMDynamicContent all{
        stored.size(), [stored](int offset, int count) { return stored.mid(offset, count); }};
    return respondGetRowsRequest(request, {all}, version, rowsRoles, copyPathParams);
}
