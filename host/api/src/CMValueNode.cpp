#include "CMValueNode.h"

CMValueNode::CMValueNode(const CMPath& path, std::mutex* mutex)
    : CMUINode(path), m_valueMutex(mutex)
{
}

CMValueNode* CMValueNode::create(CMNodes* nodes, const CMPath& path, std::mutex* mutex)
{
    auto* node = new CMValueNode(path, mutex);
    node->setNodes(nodes);
    return node;
}

void CMValueNode::setValue(const KeloValue& value)
{
    KeloValue old;
    {
        std::lock_guard<std::mutex> lock(valueMutex());
        old = m_value;
        m_value = value;
    }
    if (CMSubscribe* subscription = subscribe())
        subscription->valueChanged(path(), value, old);
    notifyDataChanged();
}

KeloValue CMValueNode::value() const
{
    std::lock_guard<std::mutex> lock(valueMutex());
    return m_value;
}

void CMValueNode::setEdit(const KeloEdit& edit)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_edit = edit;
}

void CMValueNode::setReadOnly(bool readOnly)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_isReadOnly = readOnly;
}

void CMValueNode::setSecret(bool secret)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_isSecret = secret;
}

bool CMValueNode::setDataRequest(const CMSetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    std::unique_lock<std::mutex> lock(mutex());
    const bool isReadOnly = m_isReadOnly;
    lock.unlock();

    const KeloValue value = KeloValue::fromVariant(request.value());
    if (isReadOnly) {
        request.reply().setError(
            CMError(QStringLiteral("ReadOnly"),
                    TrString(TrCharData{"CMValueNode", "%1 cannot be changed", nullptr},
                             {request.path().toEncoded()})));
    } else if (value.isEmpty()) {
        request.reply().setError(
            CMError(CMError::BadRequestName(),
                    TrString(TrCharData{"CMValueNode", "What was sent to %1 is no value", nullptr},
                             {request.path().toEncoded()})));
    } else {
        setValue(value);
        request.reply().setValue(QVariant());
    }
    return true;
}

KeloRolesType::Enum CMValueNode::rolesType() const
{
    return KeloRolesType::Text_;
}

void CMValueNode::addDataRoles(KeloRoles& roles, const CMPath::Params&) const
{
    std::unique_lock<std::mutex> lock(mutex());
    const KeloEdit edit = m_edit;
    const bool isReadOnly = m_isReadOnly;
    const bool isSecret = m_isSecret;
    lock.unlock();

    if (!isSecret)
        roles.setValue(value().toVariant());
    roles.insert(KeloRoles::ReadOnly(), isReadOnly);
    if (!edit.isEmpty())
        roles.insert(KeloRoles::Edit(), edit.toVariant());
}
