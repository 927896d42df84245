#include "CMRequest.h"

#include "CMRootPrivate.h"

namespace {
class GetDataRequestData : public CMRequestData
{
public:
    GetDataRequestData(const CMPath& path, const QStringList& roles)
        : CMRequestData(path, CMReply<QVariantList>::create()), m_roles(roles)
    {
    }
    CMRequestData* copy() const override { return new GetDataRequestData(*this); }

    const QStringList m_roles;
};

class SetDataRequestData : public CMRequestData
{
public:
    SetDataRequestData(const CMPath& path, const QString& role, const QVariant& value,
                       const CMVoidReply& reply)
        : CMRequestData(path, reply), m_role(role), m_value(value)
    {
    }
    CMRequestData* copy() const override { return new SetDataRequestData(*this); }

    const QString m_role;
    const QVariant m_value;
};

class GetRowsRequestData : public CMRequestData
{
public:
    GetRowsRequestData(const CMPath& path, int from, int to, const QStringList& roles,
                       int rowsVersion, const CMVoidReply& reply)
        : CMRequestData(path, reply), m_from(from), m_to(to), m_rowsVersion(rowsVersion),
          m_roles(roles)
    {
    }
    CMRequestData* copy() const override { return new GetRowsRequestData(*this); }

    const int m_from;
    const int m_to;
    const int m_rowsVersion;
    const QStringList m_roles;
};

/// The data as one kind; null for another kind. The accessors of that kind rely on it.
template <class Kind>
KeloShared<CMRequestData> asKind(const CMRequest& request)
{
    return dynamic_cast<Kind*>(request.data().get()) ? request.data() : KeloShared<CMRequestData>();
}

std::atomic<int> livingRequests{0};
} // namespace

CMRequestData::CMRequestData(const CMPath& path, const CMVoidReply& reply)
    : m_path(path), m_reply(reply)
{
    ++livingRequests;
}

CMRequestData::CMRequestData(const CMRequestData& other)
    : KeloSharedData(other), m_path(other.m_path), m_reply(other.m_reply),
      m_isServing(other.m_isServing)
{
    ++livingRequests;
}

int CMRequestData::living()
{
    return livingRequests;
}

CMRequestData::~CMRequestData()
{
    --livingRequests;
    if (m_isServing && !m_reply.isNull() && !m_reply.isFinished())
        keloEndUnanswered(m_path, m_reply);
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
    if (!data->m_isServing)
        return data->m_reply;
    return CMVoidReply(data->m_reply.data(), KeloShared<KeloSharedData>(m_data));
}

CMRequest CMRequest::servingSide() const
{
    CMRequestData* serving = d()->copy();
    serving->m_reply = reply();
    serving->m_isServing = true;
    return CMRequest(serving);
}

QString CMRequest::toString() const
{
    if (isNull())
        return QStringLiteral("null request");
    if (const CMGetRowsRequest rows(*this); !rows.isNull())
        return QStringLiteral("rows %1-%2 of %3")
            .arg(rows.from())
            .arg(rows.to())
            .arg(path().toEncoded());
    if (const CMSetDataRequest set(*this); !set.isNull())
        return QStringLiteral("set %1 of %2").arg(set.role(), path().toEncoded());
    return QStringLiteral("data of %1").arg(path().toEncoded());
}

CMGetDataRequest::CMGetDataRequest(const CMRequest& request)
    : CMRequest(asKind<GetDataRequestData>(request))
{
}

CMGetDataRequest::CMGetDataRequest(const CMPath& path, const QStringList& roles)
    : CMRequest(new GetDataRequestData(path, roles))
{
}

const QStringList& CMGetDataRequest::roles() const
{
    return static_cast<GetDataRequestData*>(d())->m_roles;
}

CMSetDataRequest::CMSetDataRequest(const CMRequest& request)
    : CMRequest(asKind<SetDataRequestData>(request))
{
}

CMSetDataRequest::CMSetDataRequest(const CMPath& path, const QString& role, const QVariant& value)
    : CMSetDataRequest(path, role, value, CMReply<QVariant>::create())
{
}

CMSetDataRequest::CMSetDataRequest(const CMPath& path, const QString& role, const QVariant& value,
                                   const CMVoidReply& reply)
    : CMRequest(new SetDataRequestData(path, role, value, reply))
{
}

const QString& CMSetDataRequest::role() const
{
    return static_cast<SetDataRequestData*>(d())->m_role;
}

const QVariant& CMSetDataRequest::value() const
{
    return static_cast<SetDataRequestData*>(d())->m_value;
}

CMGetRowsRequest::CMGetRowsRequest(const CMRequest& request)
    : CMRequest(asKind<GetRowsRequestData>(request))
{
}

CMGetRowsRequest::CMGetRowsRequest(const CMPath& path, int from, int to, const QStringList& roles,
                                   int rowsVersion)
    : CMGetRowsRequest(path, from, to, roles, rowsVersion, CMReply<KeloRowsRoles>::create())
{
}

CMGetRowsRequest::CMGetRowsRequest(const CMPath& path, int from, int to, const QStringList& roles,
                                   int rowsVersion, const CMVoidReply& reply)
    : CMRequest(new GetRowsRequestData(path, from, to, roles, rowsVersion, reply))
{
}

int CMGetRowsRequest::from() const
{
    return static_cast<GetRowsRequestData*>(d())->m_from;
}

int CMGetRowsRequest::to() const
{
    return static_cast<GetRowsRequestData*>(d())->m_to;
}

int CMGetRowsRequest::rowsVersion() const
{
    return static_cast<GetRowsRequestData*>(d())->m_rowsVersion;
}

const QStringList& CMGetRowsRequest::roles() const
{
    return static_cast<GetRowsRequestData*>(d())->m_roles;
}
