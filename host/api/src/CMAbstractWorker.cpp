#include "CMAbstractWorker.h"

#include "CMSlotDelivery.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <vector>

/// The subscriptions of slots that were made through one worker. A receiver that dies is forgotten.
class CMAbstractWorker::Connections : public std::enable_shared_from_this<Connections>
{
public:
    enum Kind { Value, Data, Rows };

    ~Connections()
    {
        for (const Connection& connection : m_connections)
            end(connection);
    }

    /// Takes the place of a connection of the same slot.
    void add(Kind kind, const CMPath& path, QObject* receiver, const QByteArray& slot, quint64 id)
    {
        remove([&](const Connection& one) {
            return one.isOf(kind, path, receiver) && one.slot == slot;
        });
        const std::weak_ptr<Connections> weak = shared_from_this();
        const auto gone = QObject::connect(receiver, &QObject::destroyed, [weak, receiver] {
            if (const auto self = weak.lock())
                self->remove([&](const Connection& one) { return one.receiver == receiver; });
        });
        std::lock_guard<std::mutex> lock(m_mutex);
        m_connections.push_back(Connection{kind, path, receiver, slot, id, gone});
    }

    void remove(Kind kind, const CMPath& path, const QObject* receiver)
    {
        remove([&](const Connection& one) { return one.isOf(kind, path, receiver); });
    }

private:
    struct Connection
    {
        bool isOf(Kind aKind, const CMPath& aPath, const QObject* aReceiver) const
        {
            return kind == aKind && path == aPath && receiver == aReceiver;
        }

        Kind kind;
        CMPath path;
        const QObject* receiver; ///< compared only; removed when it dies
        QByteArray slot;
        quint64 id;
        QMetaObject::Connection gone;
    };

    template <class IsMeant>
    void remove(IsMeant isMeant)
    {
        std::vector<Connection> removed;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            const auto first = std::stable_partition(
                m_connections.begin(), m_connections.end(),
                [&](const Connection& connection) { return !isMeant(connection); });
            std::move(first, m_connections.end(), std::back_inserter(removed));
            m_connections.erase(first, m_connections.end());
        }
        for (const Connection& connection : removed)
            end(connection);
    }

    static void end(const Connection& connection)
    {
        QObject::disconnect(connection.gone);
        if (connection.kind == Rows)
            CMRoot().closeRows(connection.id);
        else
            CMRoot().unwatch(connection.id);
    }

    std::mutex m_mutex; ///< a receiver may die on another thread than the worker's
    std::vector<Connection> m_connections;
};

CMAbstractWorker::CMAbstractWorker(QObject* parent)
    : QObject(parent), m_connections(std::make_shared<Connections>())
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
    const auto target = CMSlotDelivery::create(receiver, slot, type);
    const auto listener = [target](const KeloValue& newValue, const KeloValue& oldValue) {
        target->deliver([=](const CMSlot& to) {
            to.invoke(Q_ARG(KeloValue, newValue), Q_ARG(KeloValue, oldValue));
        });
    };
    m_connections->add(Connections::Value, path, receiver, slot,
                       CMRoot().watchValue(path, listener));
}

void CMAbstractWorker::disconnectValueChange(const CMPath& path, QObject* receiver)
{
    m_connections->remove(Connections::Value, path, receiver);
}

void CMAbstractWorker::connectDataChange(const CMPath& path, QObject* receiver, const char* slot,
                                         Qt::ConnectionType type)
{
    const auto target = CMSlotDelivery::create(receiver, slot, type);
    const auto listener = [target](const CMPath& changed) {
        target->deliver([=](const CMSlot& to) { to.invoke(Q_ARG(CMPath, changed)); });
    };
    m_connections->add(Connections::Data, path, receiver, slot, CMRoot().watchData(path, listener));
}

void CMAbstractWorker::disconnectDataChange(const CMPath& path, QObject* receiver)
{
    m_connections->remove(Connections::Data, path, receiver);
}

void CMAbstractWorker::connectRowsChange(const CMPath& path, QObject* receiver, const char* slot,
                                         Qt::ConnectionType type)
{
    const auto target = CMSlotDelivery::create(receiver, slot, type);
    const auto listener = [target](const CMRowsNotice& notice) {
        target->deliver([=](const CMSlot& to) {
            to.invoke(Q_ARG(CMPath, notice.path), Q_ARG(QVariant, notice.change),
                      Q_ARG(int, notice.count));
        });
    };
    m_connections->add(Connections::Rows, path, receiver, slot, CMRoot().openRows(path, listener));
}

void CMAbstractWorker::disconnectRowsChange(const CMPath& path, QObject* receiver)
{
    m_connections->remove(Connections::Rows, path, receiver);
}
