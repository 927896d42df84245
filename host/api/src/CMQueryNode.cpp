#include "CMQueryNode.h"

#include "CMRoot.h"

CMQueryNode::CMQueryNode(const CMPath& path) : CMUINode(path) {}

CMQueryNode* CMQueryNode::create(CMNodes* nodes, const CMPath& path)
{
    auto* node = new CMQueryNode(path);
    node->setNodes(nodes);
    return node;
}

void CMQueryNode::setQuery(const QString& parameter)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_query = parameter;
}

void CMQueryNode::setQueryPath(const CMPath& path)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_queryPath = path;
}

bool CMQueryNode::getRowsRequest(const CMGetRowsRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    std::unique_lock<std::mutex> lock(mutex());
    const QString query = m_query;
    CMPath target = m_queryPath;
    lock.unlock();

    CMNode* answerer = nodes()->find(target);
    if (!answerer || request.path().param(query).isEmpty()) {
        request.reply().setError(CMError(
            CMError::BadRequestName(),
            TrString(TrCharData{"CMQueryNode", "What to search for is missing: %1", nullptr},
                     {query})));
        return true;
    }
    target.addParams(request.path().params());
    const CMGetRowsRequest forwarded(target, request.from(), request.to(), request.roles(),
                                     request.rowsVersion(), request.reply());
    return answerer->getRowsRequest(forwarded);
}

KeloRolesType::Enum CMQueryNode::rolesType() const
{
    return KeloRolesType::Container_;
}

void CMQueryNode::addDataRoles(KeloRoles& roles, const CMPath::Params&) const
{
    std::unique_lock<std::mutex> lock(mutex());
    const QString query = m_query;
    const CMPath queryPath = m_queryPath;
    lock.unlock();
    roles.insert(KeloRoles::Query(), query);
    roles.insert(KeloRoles::QueryPath(), queryPath.toEncoded());
}
