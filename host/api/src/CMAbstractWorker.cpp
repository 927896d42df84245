#include "CMAbstractWorker.h"

#include "CMSlot.h"
#include "KeloPost.h"

#include <vector>

/// The subscriptions of one worker's own slots.
class CMAbstractWorker::Connections
{
public:
    enum Kind { Value, Data, Rows };

    ~Connections()
    {
        for (const Connection& connection : m_connections)
            end(connection);
    }

    void add(Kind kind, const CMPath& path, QObject* receiver, quint64 id)
    {
        remove(kind, path, receiver);
        m_connections.push_back(Connection{kind, path, receiver, id});
    }

    void remove(Kind kind, const CMPath& path, const QObject* receiver)
    {
        for (auto it = m_connections.begin(); it != m_connections.end(); ++it) {
            if (it->kind == kind && it->path == path && it->receiver == receiver) {
                end(*it);
                m_connections.erase(it);
                return;
            }
        }
    }

private:
    struct Connection
    {
        Kind kind;
        CMPath path;
        const QObject* receiver; ///< compared only
        quint64 id;
    };

    static void end(const Connection& connection)
    {
        if (connection.kind == Rows)
            CMRoot().closeRows(connection.id);
        else
            CMRoot().unwatch(connection.id);
    }

    std::vector<Connection> m_connections;
};

namespace {
/// Runs on the receiver's thread as the connection type wants.
void deliver(QObject* receiver, Qt::ConnectionType type, std::function<void()> call)
{
    if (type == Qt::DirectConnection)
        call();
    else if (type == Qt::QueuedConnection)
        keloPost(receiver, std::move(call));
    else
        keloPostOrCall(receiver, std::move(call));
}
} // namespace

CMAbstractWorker::CMAbstractWorker(QObject* parent)
    : QObject(parent), m_connections(new Connections)
{
}

CMAbstractWorker::~CMAbstractWorker() = default;

KeloValue CMAbstractWorker::nodeValue(const CMPath&) const
{
    return KeloValue();
}

KeloRoles CMAbstractWorker::dataRoles(const CMPath&) const
{
    return KeloRoles();
}

KeloRoles CMAbstractWorker::servingRoles(const CMPath&) const
{
    return KeloRoles();
}

CMSubscribe* CMAbstractWorker::subscription() const
{
    return nullptr;
}

QVariant CMAbstractWorker::getValue(const CMRoot& root, const CMPath& path)
{
    const KeloValue value = root.value(path);
    return value.isEmpty() ? QVariant() : value.toVariant();
}

void CMAbstractWorker::invoke(const CMRoot& root, const CMPath& path, const QVariant& value,
                              CMReply<QVariant>& reply)
{
    reply = root.invoke(path, value);
}

void CMAbstractWorker::request(const CMRequest& request)
{
    CMRoot().requestInternal(request);
}

void CMAbstractWorker::connectValueChange(const CMPath& path, QObject* receiver, const char* slot,
                                          Qt::ConnectionType type)
{
    const CMSlot target(receiver, slot, Qt::DirectConnection);
    const auto listener = [=](const KeloValue& newValue, const KeloValue& oldValue) {
        deliver(receiver, type,
                [=] { target.invoke(Q_ARG(KeloValue, newValue), Q_ARG(KeloValue, oldValue)); });
    };
    m_connections->add(Connections::Value, path, receiver, CMRoot().watchValue(path, listener));
}

void CMAbstractWorker::disconnectValueChange(const CMPath& path, QObject* receiver)
{
    m_connections->remove(Connections::Value, path, receiver);
}

void CMAbstractWorker::connectDataChange(const CMPath& path, QObject* receiver, const char* slot,
                                         Qt::ConnectionType type)
{
    const CMSlot target(receiver, slot, Qt::DirectConnection);
    const auto listener = [=](const CMPath& changed) {
        deliver(receiver, type, [=] { target.invoke(Q_ARG(CMPath, changed)); });
    };
    m_connections->add(Connections::Data, path, receiver, CMRoot().watchData(path, listener));
}

void CMAbstractWorker::disconnectDataChange(const CMPath& path, QObject* receiver)
{
    m_connections->remove(Connections::Data, path, receiver);
}

void CMAbstractWorker::connectRowsChange(const CMPath& path, QObject* receiver, const char* slot,
                                         Qt::ConnectionType type)
{
    const CMSlot target(receiver, slot, Qt::DirectConnection);
    const auto listener = [=](const CMRowsNotice& notice) {
        deliver(receiver, type, [=] {
            target.invoke(Q_ARG(CMPath, notice.path), Q_ARG(QVariant, notice.change),
                          Q_ARG(int, notice.count));
        });
    };
    m_connections->add(Connections::Rows, path, receiver, CMRoot().openRows(path, listener));
}

void CMAbstractWorker::disconnectRowsChange(const CMPath& path, QObject* receiver)
{
    m_connections->remove(Connections::Rows, path, receiver);
}
