#include "CMActivateNode.h"

CMActivateNode::CMActivateNode(const CMPath& path) : CMUINode(path) {}

CMActivateNode* CMActivateNode::create(CMNodes* nodes, const CMPath& path, QObject* receiver,
                                       const char* slot, Qt::ConnectionType type)
{
    auto* node = new CMActivateNode(path);
    node->setInvoke(receiver, slot, type);
    node->setNodes(nodes);
    return node;
}

void CMActivateNode::setInvoke(QObject* receiver, const char* slot, Qt::ConnectionType type)
{
    const CMSlot found(receiver, slot, type);
    std::lock_guard<std::mutex> lock(mutex());
    m_slot = found;
}

void CMActivateNode::setActivateRole(const QString& role)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_activateRole = role;
}

void CMActivateNode::setBusyText(const TrString& text)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_busyText = text;
}

bool CMActivateNode::setDataRequest(const CMSetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    std::unique_lock<std::mutex> lock(mutex());
    const CMSlot slot = m_slot;
    const QString role = m_activateRole;
    const bool hasBusyText = !m_busyText.isEmpty();
    lock.unlock();

    if (!role.isEmpty() && request.role() != role)
        return false;
    if (hasBusyText) {
        ++m_running;
        notifyDataChanged();
        // On the node's own thread: the node may be gone when the answer comes.
        request.reply().addWatcher(this, [this] {
            --m_running;
            notifyDataChanged();
        });
    }
    if (!slot.invoke(Q_ARG(CMSetDataRequest, request)))
        request.reply().setError(
            CMError(QStringLiteral("NotAvailable"),
                    TrString(TrCharData{"CMActivateNode", "%1 does nothing yet", nullptr},
                             {request.path().toEncoded()})));
    return true;
}

KeloRolesType::Enum CMActivateNode::rolesType() const
{
    return KeloRolesType::Action_;
}

void CMActivateNode::addDataRoles(KeloRoles& roles, const CMPath::Params&) const
{
    if (m_running.load() <= 0)
        return;
    std::unique_lock<std::mutex> lock(mutex());
    const TrString busyText = m_busyText;
    lock.unlock();
    roles.insert(KeloRoles::BusyText(), busyText.toVariant());
}
