#pragma once
#include "CMSlot.h"

#include <functional>
#include <memory>
#include <mutex>

/// Brings notices to a receiver's slot, from any thread and until the receiver dies. Shared by who
/// connected the slot and by the listener that it serves. It does not know what it is told about.
class CMSlotDelivery
{
public:
    using Call = std::function<void(const CMSlot& slot)>;

    /// Call on the receiver's thread; without a receiver or a slot nothing is ever delivered.
    static std::shared_ptr<CMSlotDelivery> create(QObject* receiver, const char* slot,
                                                  Qt::ConnectionType type);
    ~CMSlotDelivery();
    CMSlotDelivery(const CMSlotDelivery&) = delete;
    CMSlotDelivery& operator=(const CMSlotDelivery&) = delete;

    Qt::ConnectionType type() const { return m_type; }
    /// Calls as the connection type says: here, or on the receiver's thread. No lock is held.
    void deliver(const Call& call) const;
    /// Calls in a later turn of the receiver's event loop. Calls nobody now, so that the caller may
    /// hold a lock.
    void post(const Call& call) const;

private:
    CMSlotDelivery(QObject* receiver, const char* slot, Qt::ConnectionType type)
        : m_slot(receiver, slot, Qt::DirectConnection), m_type(type), m_receiver(m_slot.receiver())
    {
    }

    const CMSlot m_slot;
    const Qt::ConnectionType m_type;
    mutable std::mutex m_mutex;
    QObject* m_receiver; ///< null when it is gone; posted to under the lock, so that it is there
    QMetaObject::Connection m_gone;
};
