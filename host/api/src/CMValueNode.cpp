#include "CMValueNode.h"

namespace {
/// What is wrong with a value that cannot be taken for one of a type.
CMError wantedError(const QString& type, const CMPath& path)
{
    const char* sentence = QT_TRANSLATE_NOOP("CMValueNode", "What was sent to %1 is no value");
    if (type == KeloValue::I64())
        sentence = QT_TRANSLATE_NOOP("CMValueNode", "%1 wants a whole number");
    else if (type == KeloValue::String())
        sentence = QT_TRANSLATE_NOOP("CMValueNode", "%1 wants a text");
    else if (type == KeloValue::Bool())
        sentence = QT_TRANSLATE_NOOP("CMValueNode", "%1 wants true or false");
    return CMError(CMError::BadRequestName(),
                   TrString(TrCharData{"CMValueNode", sentence, nullptr}, {path.toEncoded()}));
}
} // namespace

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

    const KeloValue sent = KeloValue::fromVariant(request.value());
    const QString held = value().type();
    const KeloValue taken = sent.convertedTo(held.isEmpty() ? sent.type() : held);
    if (isReadOnly) {
        request.reply().setError(
            CMError(QStringLiteral("ReadOnly"),
                    TrString(TrCharData{"CMValueNode", "%1 cannot be changed", nullptr},
                             {request.path().toEncoded()})));
    } else if (taken.isEmpty()) {
        request.reply().setError(wantedError(held, request.path()));
    } else {
        setValue(taken);
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
