#include "CMActivateNode.h"

CMActivateNode* CMActivateNode::create(CMNodes* nodes, const CMPath& path, QObject* receiver,
                                       const char* slot, Qt::ConnectionType type)
{
    auto* node = new CMActivateNode(path);
    node->setInvoke(receiver, slot, type);
    node->setNodes(nodes);
    return node;
}

bool CMActivateNode::setDataRequest(const CMSetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const State state = locked(m_state);
    if (!state.role.isEmpty() && request.role() != state.role)
        return false;
    if (!state.busyText.isEmpty()) {
        ++m_running;
        notifyDataChanged();
        // On the node's own thread: the node may be gone when the answer comes.
        request.reply().addWatcher(this, [this] {
            --m_running;
            notifyDataChanged();
        });
    }
    if (!state.slot.invoke(Q_ARG(CMSetDataRequest, request)))
        request.reply().setError(
            CMError(QStringLiteral("NotAvailable"),
                    TrString(TrCharData{"CMActivateNode", "%1 does nothing yet", nullptr},
                             {request.path().toEncoded()})));
    return true;
}

void CMActivateNode::addDataRoles(KeloRoles& roles, const CMPath::Params&) const
{
    if (m_running > 0)
        roles.insert(KeloRoles::BusyText(), locked(m_state.busyText).toVariant());
}
