#include "CMRequest.h"

#include "CMPendingReplies.h"

namespace {
std::atomic<int> livingRequests{0};
} // namespace

CMRequestData::Living::Living()
{
    ++livingRequests;
}

CMRequestData::Living::~Living()
{
    --livingRequests;
}

int CMRequestData::living()
{
    return livingRequests;
}

CMRequestData::~CMRequestData()
{
    if (isServing && !reply.isNull() && !reply.isFinished())
        keloEndUnanswered(path, reply);
}

CMRequest::CMRequest(const CMRequest& request, CMRequestData::Kind kind)
{
    if (!request.isNull() && request.kind() == kind)
        m_data = request.m_data;
}

CMRequestData* CMRequest::d() const
{
    CMRequestData* data = m_data.get();
    Q_ASSERT_X(data, "CMRequest", "d()");
    return data;
}

CMVoidReply CMRequest::reply() const
{
    const CMRequestData* data = d();
    if (!data->isServing)
        return data->reply;
    return CMVoidReply(data->reply.data(), KeloShared<KeloSharedData>(m_data));
}

CMRequest CMRequest::servingSide() const
{
    auto* serving = new CMRequestData(*d());
    serving->reply = reply();
    serving->isServing = true;
    return CMRequest(serving);
}

QString CMRequest::toString() const
{
    if (isNull())
        return QStringLiteral("null request");
    const CMRequestData& data = *d();
    const QString place = QStringLiteral(" of ") + data.path.toEncoded();
    switch (data.kind) {
    case CMRequestData::Kind::GetRows:
        return QStringLiteral("rows %1-%2").arg(data.from).arg(data.to) + place;
    case CMRequestData::Kind::SetData:
        return QStringLiteral("set ") + data.role + place;
    default:
        return QStringLiteral("data") + place;
    }
}

CMGetDataRequest::CMGetDataRequest(const CMPath& path, const QStringList& roles)
    : CMRequest(
          new CMRequestData(CMRequestData::Kind::GetData, path, CMReply<QVariantList>::create()))
{
    m_data->roles = roles;
}

CMSetDataRequest::CMSetDataRequest(const CMPath& path, const QString& role, const QVariant& value,
                                   const CMVoidReply& reply)
    : CMRequest(new CMRequestData(CMRequestData::Kind::SetData, path, reply))
{
    m_data->role = role;
    m_data->value = value;
}

CMGetRowsRequest::CMGetRowsRequest(const CMPath& path, int from, int to, const QStringList& roles,
                                   int rowsVersion, const CMVoidReply& reply)
    : CMRequest(new CMRequestData(CMRequestData::Kind::GetRows, path, reply))
{
    m_data->from = from;
    m_data->to = to;
    m_data->roles = roles;
    m_data->rowsVersion = rowsVersion;
}
