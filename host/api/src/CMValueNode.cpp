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

bool CMValueNode::setDataRequest(const CMSetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const KeloValue sent = KeloValue::fromVariant(request.value());
    const QString held = value().type();
    const KeloValue taken = sent.convertedTo(held.isEmpty() ? sent.type() : held);
    if (locked(m_state.isReadOnly)) {
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

void CMValueNode::addDataRoles(KeloRoles& roles, const CMPath::Params&) const
{
    const State state = locked(m_state);
    if (!state.isSecret)
        roles.setValue(value().toVariant());
    roles.insert(KeloRoles::ReadOnly(), state.isReadOnly);
    if (!state.edit.isEmpty())
        roles.insert(KeloRoles::Edit(), state.edit.toVariant());
}
