#include "CMSlot.h"

#include "CMRequest.h"
#include "KeloActionReply.h"
#include "KeloLog.h"
#include "KeloUrl.h"
#include "KeloValue.h"

namespace {
/// The method of a coded or bare signature; invalid when there is none.
QMetaMethod methodOf(const QMetaObject* meta, const char* signature, QMetaMethod::MethodType kind)
{
    if (*signature >= '0' && *signature <= '2')
        ++signature;
    const QByteArray normalized = QMetaObject::normalizedSignature(signature);
    const int index = kind == QMetaMethod::Signal ? meta->indexOfSignal(normalized)
                                                  : meta->indexOfMethod(normalized);
    return index < 0 ? QMetaMethod() : meta->method(index);
}
} // namespace

CMSlot::CMSlot(QObject* receiver, const char* slot, Qt::ConnectionType type) : m_type(type)
{
    if (!receiver || !slot)
        return;
    keloRegisterMetaTypes();
    m_method = methodOf(receiver->metaObject(), slot, QMetaMethod::Slot);
    if (m_method.isValid())
        m_receiver = receiver;
    else
        KELO_LOG("Host", ERROR) << receiver->metaObject()->className() << " has no slot "
                                << slot + 1;
}

bool CMSlot::invoke(QGenericArgument first, QGenericArgument second, QGenericArgument third) const
{
    QObject* receiver = m_receiver.data();
    if (!receiver)
        return false;
    const int count = m_method.parameterCount();
    return m_method.invoke(receiver, m_type, count > 0 ? first : QGenericArgument(),
                           count > 1 ? second : QGenericArgument(),
                           count > 2 ? third : QGenericArgument());
}

bool keloConnect(QObject* sender, const char* signal, QObject* receiver, const char* slot,
                 Qt::ConnectionType type)
{
    keloRegisterMetaTypes();
    const QMetaMethod from = methodOf(sender->metaObject(), signal, QMetaMethod::Signal);
    const QMetaMethod to = methodOf(receiver->metaObject(), slot, QMetaMethod::Slot);
    if (!from.isValid() || !to.isValid()) {
        KELO_LOG("Host", ERROR) << "cannot connect " << sender->metaObject()->className() << " "
                                << signal << " to " << receiver->metaObject()->className() << " "
                                << slot;
        return false;
    }
    return bool(QObject::connect(sender, from, receiver, to, type));
}

void keloRegisterMetaTypes()
{
    static const bool isDone = [] {
        qRegisterMetaType<CMPath>("CMPath");
        qRegisterMetaType<CMRequest>("CMRequest");
        qRegisterMetaType<CMGetDataRequest>("CMGetDataRequest");
        qRegisterMetaType<CMSetDataRequest>("CMSetDataRequest");
        qRegisterMetaType<CMGetRowsRequest>("CMGetRowsRequest");
        qRegisterMetaType<CMVoidReply>("CMVoidReply");
        qRegisterMetaType<CMError>("CMError");
        qRegisterMetaType<KeloHash>("KeloHash");
        qRegisterMetaType<KeloValue>("KeloValue");
        qRegisterMetaType<KeloRoles>("KeloRoles");
        qRegisterMetaType<KeloRowsRoles>("KeloRowsRoles");
        qRegisterMetaType<KeloMediaData>("KeloMediaData");
        qRegisterMetaType<KeloUrl>("KeloUrl");
        return true;
    }();
    Q_UNUSED(isDone)
}
