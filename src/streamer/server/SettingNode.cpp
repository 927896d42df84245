#include "SettingNode.h"

SettingNode::SettingNode(const CMPath& path, Reader reader, const QString& wanted)
    : CMValueNode(path), m_reader(std::move(reader)), m_wanted(wanted)
{
}

bool SettingNode::setDataRequest(const CMSetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const KeloValue value = m_reader(KeloValue::fromVariant(request.value()));
    if (value.isEmpty()) {
        request.reply().setError(
            CMError(CMError::BadRequestName(), QStringLiteral("wanted %1").arg(m_wanted)));
        return true;
    }
    setValue(value);
    request.reply().setValue(QVariant());
    return true;
}
