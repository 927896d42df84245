#include "CMQueryNode.h"

#include "CMRoot.h"

CMQueryNode* CMQueryNode::create(CMNodes* nodes, const CMPath& path)
{
    auto* node = new CMQueryNode(path);
    node->setNodes(nodes);
    return node;
}

bool CMQueryNode::getRowsRequest(const CMGetRowsRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const State state = locked(m_state);
    CMNode* answerer = nodes()->find(state.path);
    if (!answerer || request.path().param(state.parameter).isEmpty()) {
        request.reply().setError(CMError(
            CMError::BadRequestName(),
            TrString(TrCharData{"CMQueryNode", "What to search for is missing: %1", nullptr},
                     {state.parameter})));
        return true;
    }
    CMPath target = state.path;
    target.addParams(request.path().params());
    const CMGetRowsRequest forwarded(target, request.from(), request.to(), request.roles(),
                                     request.rowsVersion(), request.reply());
    return answerer->getRowsRequest(forwarded);
}

void CMQueryNode::addDataRoles(KeloRoles& roles, const CMPath::Params&) const
{
    const State state = locked(m_state);
    roles.insert(KeloRoles::Query(), state.parameter);
    roles.insert(KeloRoles::QueryPath(), state.path.toEncoded());
}
