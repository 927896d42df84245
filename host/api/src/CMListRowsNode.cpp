#include "CMListRowsNode.h"

CMListRowsNode* CMListRowsNode::create(CMNodes* nodes, const CMPath& path)
{
    auto* node = new CMListRowsNode(path);
    node->setNodes(nodes);
    return node;
}

void CMListRowsNode::append(const CMRow& row)
{
    std::unique_lock<std::mutex> lock(mutex());
    m_state.rows.append(row);
    const int count = m_state.rows.size();
    lock.unlock();
    notifyRowsChanged(count);
}

void CMListRowsNode::rowsClear()
{
    if (rowsSize() == 0)
        return;
    store(m_state.rows, CMRowList());
    notifyRowsChanged(0);
}

void CMListRowsNode::notifyRowsChanged(int count)
{
    if (subscribe())
        subscribe()->rowsChanged(path(), CMSubscribe::RowsChangeReset(), count);
}

bool CMListRowsNode::getRowsRequest(const CMGetRowsRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const State state = locked(m_state);
    const int version = subscribe() ? subscribe()->rowsVersion(request.path()) : 0;
    const CMDynamicContent all{state.rows.size(), [&state](int offset, int count) {
                                   return state.rows.mid(offset, count);
                               }};
    return respondGetRowsRequest(request, {all}, version, state.roles, state.isCopyingPathParams);
}
