#include "CMSlotDelivery.h"

#include "KeloPost.h"

#include <QThread>

std::shared_ptr<CMSlotDelivery> CMSlotDelivery::create(QObject* receiver, const char* slot,
                                                       Qt::ConnectionType type)
{
    const std::shared_ptr<CMSlotDelivery> made(new CMSlotDelivery(receiver, slot, type));
    if (made->m_receiver) {
        const std::weak_ptr<CMSlotDelivery> weak = made;
        made->m_gone = QObject::connect(receiver, &QObject::destroyed, [weak] {
            if (const auto self = weak.lock()) {
                std::lock_guard<std::mutex> lock(self->m_mutex);
                self->m_receiver = nullptr;
            }
        });
    }
    return made;
}

CMSlotDelivery::~CMSlotDelivery()
{
    QObject::disconnect(m_gone);
}

void CMSlotDelivery::deliver(const Call& call) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_receiver)
        return;
    const bool isHere =
        m_type == Qt::DirectConnection ||
        (m_type != Qt::QueuedConnection && m_receiver->thread() == QThread::currentThread());
    lock.unlock();
    if (isHere)
        call(m_slot);
    else
        post(call);
}

void CMSlotDelivery::post(const Call& call) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_receiver)
        keloPost(m_receiver, [slot = m_slot, call] { call(slot); });
}
