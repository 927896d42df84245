#include "CMValueItem.h"

#include "CMRoot.h"
#include "CMSlotDelivery.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <QPointer>

class CMValueItem::Private : public std::enable_shared_from_this<Private>
{
public:
    mutable std::mutex mutex;
    mutable std::condition_variable loadedChanged;
    KeloValue value;
    bool isLoaded = false;
    int changesUnderWay = 0;
    quint64 watch = 0;
    std::shared_ptr<CMSlotDelivery> delivery;
    QPointer<QObject> item; ///< what posted notices need to be alive

    /// Any thread. The first value that is not empty loads the item; a read that a publication has
    /// overtaken is dropped.
    void take(const KeloValue& newValue, bool isRead)
    {
        const bool isDirect = !isRead && delivery->type() == Qt::DirectConnection;
        KeloValue old;
        {
            std::lock_guard<std::mutex> lock(mutex);
            if (newValue.isEmpty() ? !isLoaded : (isRead && isLoaded))
                return;
            old = value;
            value = newValue;
            isLoaded = true;
            loadedChanged.notify_all();
            // With the lock, so that notices keep the order of the values.
            if (!isDirect) {
                changesUnderWay += old.isEmpty() ? 0 : 1;
                delivery->post(notice(newValue, old));
            }
        }
        // Without the lock, because the receiver runs here.
        if (isDirect)
            delivery->deliver(notice(newValue, old));
    }

    CMSlotDelivery::Call notice(const KeloValue& newValue, const KeloValue& old)
    {
        return [self = shared_from_this(), alive = item, newValue, old](const CMSlot& to) {
            {
                std::lock_guard<std::mutex> lock(self->mutex);
                self->changesUnderWay = qMax(0, self->changesUnderWay - (old.isEmpty() ? 0 : 1));
            }
            if (alive)
                to.invoke(Q_ARG(KeloValue, newValue), Q_ARG(KeloValue, old));
        };
    }
};

CMValueItem::CMValueItem(QObject* parent, const CMPath& path, QObject* receiver, const char* slot,
                         Qt::ConnectionType type)
    : QObject(parent), d(std::make_shared<Private>())
{
    d->delivery = CMSlotDelivery::create(receiver, slot, type);
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

bool CMValueItem::isAhead() const
{
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->changesUnderWay > 0;
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
