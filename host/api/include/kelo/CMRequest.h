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
    enum class Kind { GetData, SetData, GetRows };

    CMRequestData(Kind aKind, const CMPath& aPath, const CMVoidReply& aReply)
        : kind(aKind), path(aPath), reply(aReply)
    {
    }
    CMRequestData(const CMRequestData& other) = default;
    ~CMRequestData() override;

    /// How many there are in the process. Any thread.
    static int living();

    const Kind kind;
    const CMPath path;
    CMVoidReply reply;
    bool isServing = false;

    QStringList roles; ///< asked for: of data and rows
    QString role;      ///< of set, as the value is
    QVariant value;
    int from = 0; ///< of rows, as the others are
    int to = 0;
    int rowsVersion = -1;

private:
    /// Counts the living.
    struct KELO_EXPORT Living
    {
        Living();
        Living(const Living&) : Living() {}
        ~Living();
    } m_living;
};

/// Base of the three kinds of request to the content tree: a path and the reply that answers it.
/// Cheap to copy; copies share the reply. Every copy may be used on any thread. A default
/// constructed request is null; reading its path or reply is a programming error.
class KELO_EXPORT CMRequest
{
public:
    CMRequest() = default;

    bool isNull() const { return !m_data; }
    CMRequestData::Kind kind() const { return d()->kind; }
    const CMPath& path() const { return d()->path; }
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
    /// The request, where it is of the kind; else null.
    CMRequest(const CMRequest& request, CMRequestData::Kind kind);
    CMRequestData* d() const;

    KeloShared<CMRequestData> m_data;
};

/// Asks for roles of the node at a path; answered with their values in the order asked for.
class KELO_EXPORT CMGetDataRequest : public CMRequest
{
public:
    CMGetDataRequest() = default;
    /// The request as this kind; null when it is of another kind.
    explicit CMGetDataRequest(const CMRequest& request)
        : CMRequest(request, CMRequestData::Kind::GetData)
    {
    }
    CMGetDataRequest(const CMPath& path, const QStringList& roles);

    const QStringList& roles() const { return d()->roles; }
    CMReply<QVariantList> reply() const { return CMReply<QVariantList>(CMRequest::reply()); }
};

/// Sends a value to the node at a path: stores, activates, submits. Answered with a variant, often
/// an invalid one, or the hash of a KeloActionReply.
class KELO_EXPORT CMSetDataRequest : public CMRequest
{
public:
    CMSetDataRequest() = default;
    explicit CMSetDataRequest(const CMRequest& request)
        : CMRequest(request, CMRequestData::Kind::SetData)
    {
    }
    /// The role is the one the value is meant for, KeloRoles::Value() where nothing else is said.
    CMSetDataRequest(const CMPath& path, const QString& role, const QVariant& value,
                     const CMVoidReply& reply = CMReply<QVariant>::create());

    const QString& role() const { return d()->role; }
    const QVariant& value() const { return d()->value; }
    CMReply<QVariant> reply() const { return CMReply<QVariant>(CMRequest::reply()); }
};

/// Asks for the rows `from` to `to`, both included, of the container at a path, each as a list of
/// values in the order of the roles asked for.
class KELO_EXPORT CMGetRowsRequest : public CMRequest
{
public:
    CMGetRowsRequest() = default;
    explicit CMGetRowsRequest(const CMRequest& request)
        : CMRequest(request, CMRequestData::Kind::GetRows)
    {
    }
    /// An empty reply is for requests that a module makes for itself and answers by other means.
    CMGetRowsRequest(const CMPath& path, int from, int to, const QStringList& roles,
                     int rowsVersion = -1,
                     const CMVoidReply& reply = CMReply<KeloRowsRoles>::create());

    int from() const { return d()->from; }
    int to() const { return d()->to; }
    /// The version that the asker knows; negative when it knows none.
    int rowsVersion() const { return d()->rowsVersion; }
    const QStringList& roles() const { return d()->roles; }
    CMReply<KeloRowsRoles> reply() const { return CMReply<KeloRowsRoles>(CMRequest::reply()); }
};

Q_DECLARE_METATYPE(CMRequest)
Q_DECLARE_METATYPE(CMGetDataRequest)
Q_DECLARE_METATYPE(CMSetDataRequest)
Q_DECLARE_METATYPE(CMGetRowsRequest)
