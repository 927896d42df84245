#include "CMAbstractWorker.h"

#include "CMSlot.h"
#include "KeloPost.h"

#include <QThread>

namespace {
/// Tells a slot what happens at a path. A child of the slot's receiver, with which it ends, on the
/// same thread.
class Watch : public QObject
{
public:
    enum Kind { Value, Data, Rows };

    Watch(Kind kind, const CMPath& path, QObject* receiver, const char* slot,
          Qt::ConnectionType type)
        : m_kind(kind), m_path(path), m_code(slot), m_type(type),
          m_slot(receiver, slot, Qt::DirectConnection)
    {
        end(kind, path, receiver, slot);
        if (kind == Value)
            m_id = CMRoot().watchValue(path, [this](const KeloValue& to, const KeloValue& from) {
                tell([=] { m_slot.invoke(Q_ARG(KeloValue, to), Q_ARG(KeloValue, from)); });
            });
        else if (kind == Data)
            m_id = CMRoot().watchData(path, [this](const CMPath& changed) {
                tell([=] { m_slot.invoke(Q_ARG(CMPath, changed)); });
            });
        else
            m_id = CMRoot().openRows(path, [this](const CMRowsNotice& notice) {
                tell([=] {
                    m_slot.invoke(Q_ARG(CMPath, notice.path), Q_ARG(QVariant, notice.change),
                                  Q_ARG(int, notice.count));
                });
            });
        setParent(receiver);
    }
    ~Watch() override
    {
        if (m_kind == Rows)
            CMRoot().closeRows(m_id);
        else
            CMRoot().unwatch(m_id);
    }

    /// Ends those of one slot, or of each slot, of a receiver.
    static void end(Kind kind, const CMPath& path, QObject* receiver,
                    const QByteArray& slot = QByteArray())
    {
        const QObjectList children = receiver->children();
        for (QObject* child : children) {
            const auto* watch = dynamic_cast<Watch*>(child);
            if (watch && watch->m_kind == kind && watch->m_path == path &&
                (slot.isNull() || watch->m_code == slot))
                delete child;
        }
    }

private:
    /// Any thread; calls as the connection type says.
    void tell(const std::function<void()>& call)
    {
        const bool isHere = thread() == QThread::currentThread();
        if (m_type == Qt::DirectConnection || (m_type != Qt::QueuedConnection && isHere))
            call();
        else
            keloPost(this, call);
    }

    const Kind m_kind;
    const CMPath m_path;
    const QByteArray m_code;
    const Qt::ConnectionType m_type;
    const CMSlot m_slot;
    quint64 m_id = 0;
};
} // namespace

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
    new Watch(Watch::Value, path, receiver, slot, type);
}

void CMAbstractWorker::disconnectValueChange(const CMPath& path, QObject* receiver)
{
    Watch::end(Watch::Value, path, receiver);
}

void CMAbstractWorker::connectDataChange(const CMPath& path, QObject* receiver, const char* slot,
                                         Qt::ConnectionType type)
{
    new Watch(Watch::Data, path, receiver, slot, type);
}

void CMAbstractWorker::disconnectDataChange(const CMPath& path, QObject* receiver)
{
    Watch::end(Watch::Data, path, receiver);
}

void CMAbstractWorker::connectRowsChange(const CMPath& path, QObject* receiver, const char* slot,
                                         Qt::ConnectionType type)
{
    new Watch(Watch::Rows, path, receiver, slot, type);
}

void CMAbstractWorker::disconnectRowsChange(const CMPath& path, QObject* receiver)
{
    Watch::end(Watch::Rows, path, receiver);
}
