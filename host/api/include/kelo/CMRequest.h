#pragma once
#include "CMPath.h"
#include "CMReply.h"
#include "KeloRowsRoles.h"
#include <QStringList>

/// Shared data of a request. It does not change once the request is made. Data of a serving side
/// ends the request with an error when it goes without an answer: then nobody is left who could
/// give one.
class KELO_EXPORT CMRequestData : public KeloSharedData
{
public:
    CMRequestData(const CMPath& path, const CMVoidReply& reply);
    CMRequestData(const CMRequestData& other);
    ~CMRequestData() override;

    /// How many there are in the process. Any thread.
    static int living();

    /// The same request, of the same kind.
    virtual CMRequestData* copy() const = 0;

    CMPath m_path;
    CMVoidReply m_reply;
    bool m_isServing = false;
};

/// Base of the three kinds of request to the content tree: a path and the reply that answers it.
/// Cheap to copy; copies share the reply. Every copy may be used on any thread. A default
/// constructed request is null; reading its path or reply is a programming error.
class KELO_EXPORT CMRequest
{
public:
    CMRequest() = default;

    bool isNull() const { return !m_data; }
    const CMPath& path() const { return d()->m_path; }
    CMVoidReply reply() const;
    /// What the root hands to a worker: the same request with the same reply, whose copies, and the
    /// reply handles taken from them, are the holders of the duty to answer. When the last holder
    /// goes without an answer, the root answers with an error. The requester's copies do not count.
    CMRequest servingSide() const;
    /// The request for a log: its kind, path and, by kind, range or role. Values are not printed.
    QString toString() const;

    const KeloShared<CMRequestData>& data() const { return m_data; }
    bool operator==(const CMRequest& other) const { return m_data == other.m_data; }

protected:
    explicit CMRequest(CMRequestData* data) : m_data(data) {}
    explicit CMRequest(const KeloShared<CMRequestData>& data) : m_data(data) {}
    CMRequestData* d() const;

    KeloShared<CMRequestData> m_data;
};

/// Asks for roles of the node at a path; answered with their values in the order asked for.
class KELO_EXPORT CMGetDataRequest : public CMRequest
{
public:
    CMGetDataRequest() = default;
    /// The request as this kind; null when it is of another kind.
    explicit CMGetDataRequest(const CMRequest& request);
    CMGetDataRequest(const CMPath& path, const QStringList& roles);

    const QStringList& roles() const;
    CMReply<QVariantList> reply() const { return CMReply<QVariantList>(CMRequest::reply()); }
};

/// Sends a value to the node at a path: stores, activates, submits. Answered with a variant, often
/// an invalid one, or the hash of a KeloActionReply.
class KELO_EXPORT CMSetDataRequest : public CMRequest
{
public:
    CMSetDataRequest() = default;
    explicit CMSetDataRequest(const CMRequest& request);
    /// The role is the one the value is meant for, KeloRoles::Value() where nothing else is said.
    CMSetDataRequest(const CMPath& path, const QString& role, const QVariant& value);
    CMSetDataRequest(const CMPath& path, const QString& role, const QVariant& value,
                     const CMVoidReply& reply);

    const QString& role() const;
    const QVariant& value() const;
    CMReply<QVariant> reply() const { return CMReply<QVariant>(CMRequest::reply()); }
};

/// Asks for the rows `from` to `to`, both included, of the container at a path, each as a list of
/// values in the order of the roles asked for.
class KELO_EXPORT CMGetRowsRequest : public CMRequest
{
public:
    CMGetRowsRequest() = default;
    explicit CMGetRowsRequest(const CMRequest& request);
    CMGetRowsRequest(const CMPath& path, int from, int to, const QStringList& roles,
                     int rowsVersion = -1);
    /// For requests that a module makes for itself and answers by other means.
    CMGetRowsRequest(const CMPath& path, int from, int to, const QStringList& roles,
                     int rowsVersion, const CMVoidReply& reply);

    int from() const;
    int to() const;
    /// The version that the asker knows; negative when it knows none.
    int rowsVersion() const;
    const QStringList& roles() const;
    CMReply<KeloRowsRoles> reply() const { return CMReply<KeloRowsRoles>(CMRequest::reply()); }
};

Q_DECLARE_METATYPE(CMRequest)
Q_DECLARE_METATYPE(CMGetDataRequest)
Q_DECLARE_METATYPE(CMSetDataRequest)
Q_DECLARE_METATYPE(CMGetRowsRequest)
