#include "CMValueItem.h"

#include "CMRoot.h"
#include "CMSlot.h"
#include "KeloPost.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

class CMValueItem::Private
{
public:
    mutable std::mutex mutex;
    mutable std::condition_variable loadedChanged;
    KeloValue value;
    bool isLoaded = false;
    quint64 watch = 0;
    CMSlot slot;            ///< direct: deliver() sees to the thread
    QPointer<QObject> item; ///< what posted notices need to be alive

    /// Any thread. The first value that is not empty loads the item; a read that a publication has
    /// overtaken is dropped.
    void take(const KeloValue& newValue, bool isRead)
    {
        KeloValue old;
        {
            std::lock_guard<std::mutex> lock(mutex);
            if (newValue.isEmpty() ? !isLoaded : (isRead && isLoaded))
                return;
            old = value;
            value = newValue;
            isLoaded = true;
            loadedChanged.notify_all();
            deliver(newValue, old);
        }
    }

    /// With the mutex held, so that notices keep the order of the values; posting calls nobody.
    void deliver(const KeloValue& newValue, const KeloValue& old)
    {
        QObject* receiver = slot.receiver();
        if (!receiver)
            return;
        keloPost(receiver, [target = slot, alive = item, newValue, old] {
            if (alive)
                target.invoke(Q_ARG(KeloValue, newValue), Q_ARG(KeloValue, old));
        });
    }
};

CMValueItem::CMValueItem(QObject* parent, const CMPath& path, QObject* receiver, const char* slot,
                         Qt::ConnectionType)
    : QObject(parent), d(std::make_shared<Private>())
{
    if (receiver && slot)
        d->slot = CMSlot(receiver, slot, Qt::DirectConnection);
    d->item = this;
    const std::weak_ptr<Private> weak = d;
    const auto listener = [weak](const KeloValue& newValue, const KeloValue&) {
        if (const auto self = weak.lock())
            self->take(newValue, false);
    };
    d->watch = CMRoot().watchValue(path, listener);
    d->take(CMRoot().value(path), true);
}

CMValueItem::~CMValueItem()
{
    CMRoot().unwatch(d->watch);
}

KeloValue CMValueItem::value() const
{
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->value;
}

bool CMValueItem::isLoaded() const
{
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->isLoaded;
}

bool CMValueItem::waitForLoaded(int timeoutMs) const
{
    std::unique_lock<std::mutex> lock(d->mutex);
    const auto isDone = [this] { return d->isLoaded; };
    if (timeoutMs < 0) {
        d->loadedChanged.wait(lock, isDone);
        return true;
    }
    return d->loadedChanged.wait_for(lock, std::chrono::milliseconds(timeoutMs), isDone);
}
