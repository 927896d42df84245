#pragma once
#include "CMRequest.h"
#include "CMRoot.h"
#include "KeloRoles.h"
#include "KeloValue.h"
#include <QObject>

/// What the root routes to: something that answers the requests below a prefix. Lives on a thread
/// of its own with an event loop. The request operations are called on any thread.
class KELO_EXPORT CMAbstractWorker : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// The paths below which this worker is asked, for example "/tidal". Does not change.
    virtual QStringList prefixes() const = 0;

    /// Any thread. Each answers the request's reply, now or later.
    virtual void getDataRequest(const CMGetDataRequest& request) = 0;
    virtual void setDataRequest(const CMSetDataRequest& request) = 0;
    virtual void getRowsRequest(const CMGetRowsRequest& request) = 0;

    /// Any thread; locked reads. See CMRoot.
    virtual KeloValue nodeValue(const CMPath&) const { return KeloValue(); }
    virtual KeloRoles dataRoles(const CMPath&) const { return KeloRoles(); }
    virtual KeloRoles servingRoles(const CMPath&) const { return KeloRoles(); }
    /// Any thread; null when the worker keeps no subscriptions.
    virtual CMSubscribe* subscription() const { return nullptr; }

    /// The value at a path anywhere in the host tree, as a hash; invalid when there is none.
    static QVariant getValue(const CMRoot& root, const CMPath& path);
    /// Sends a value to a path anywhere in the host tree and reports through the reply, which is
    /// made here.
    static void invoke(const CMRoot& root, const CMPath& path, const QVariant& value,
                       CMReply<QVariant>& reply);
    /// Forwards a request to the host tree, without a deadline.
    static void request(const CMRequest& request);

    /// Subscribes a slot, in Qt's coded form, to the value at a path: slot(KeloValue new, KeloValue
    /// old). One connection for each receiver, slot and path, until it is disconnected or the
    /// receiver dies. Call on the receiver's thread. These are for modules; the host uses none.
    static void connectValueChange(const CMPath& path, QObject* receiver, const char* slot,
                                   Qt::ConnectionType type = Qt::AutoConnection);
    /// Ends the connections of all the receiver's slots at the path.
    static void disconnectValueChange(const CMPath& path, QObject* receiver);
    /// slot(CMPath).
    static void connectDataChange(const CMPath& path, QObject* receiver, const char* slot,
                                  Qt::ConnectionType type = Qt::AutoConnection);
    static void disconnectDataChange(const CMPath& path, QObject* receiver);
    /// slot(CMPath, QVariant change, int count). The path counts as open meanwhile.
    static void connectRowsChange(const CMPath& path, QObject* receiver, const char* slot,
                                  Qt::ConnectionType type = Qt::AutoConnection);
    static void disconnectRowsChange(const CMPath& path, QObject* receiver);
};
