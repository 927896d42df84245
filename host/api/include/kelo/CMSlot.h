#pragma once
#include "KeloExport.h"
#include <QMetaMethod>
#include <QObject>
#include <QPointer>

/// A slot given by Qt's coded signature, as SLOT() makes it ("1on_play(CMSetDataRequest)"), found
/// once and invoked many times. Slots may take fewer arguments than offered.
class KELO_EXPORT CMSlot
{
public:
    CMSlot() = default;
    /// Looks the slot up; null, with an ERROR log line, when the receiver has no such slot.
    CMSlot(QObject* receiver, const char* slot, Qt::ConnectionType type = Qt::AutoConnection);

    /// Invokes it with as many of the arguments as it takes; false when the receiver is gone.
    bool invoke(QGenericArgument first = QGenericArgument(),
                QGenericArgument second = QGenericArgument(),
                QGenericArgument third = QGenericArgument()) const;

private:
    QPointer<QObject> m_receiver;
    QMetaMethod m_method;
    Qt::ConnectionType m_type = Qt::AutoConnection;
};

/// Connects a signal to a slot, both in Qt's coded form ("2changed(int)", "1on_changed(int)"; a
/// missing code digit is allowed). False, with an ERROR log line, when one of them does not exist.
KELO_EXPORT bool keloConnect(QObject* sender, const char* signal, QObject* receiver,
                             const char* slot, Qt::ConnectionType type = Qt::AutoConnection);

/// Registers every type of the host libraries that travels in queued calls, under its exact name.
/// Called by the root's first use; modules register their own types.
KELO_EXPORT void keloRegisterMetaTypes();
