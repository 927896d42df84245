#include "CMValueItem.h"

#include "CMRoot.h"
#include "KeloPost.h"

#include <chrono>

CMValueItem::CMValueItem(QObject* parent, const CMPath& path, QObject* receiver, const char* slot,
                         Qt::ConnectionType type)
    : QObject(parent),
      m_slot(receiver, slot, type == Qt::DirectConnection ? type : Qt::AutoConnection),
      m_isDirect(type == Qt::DirectConnection)
{
    m_watch = CMRoot().watchValue(
        path, [this](const KeloValue& newValue, const KeloValue&) { take(newValue, false); });
    take(CMRoot().value(path), true);
}

CMValueItem::~CMValueItem()
{
    CMRoot().unwatch(m_watch);
}

void CMValueItem::take(const KeloValue& newValue, bool isRead)
{
    const bool isDirect = m_isDirect && !isRead;
    KeloValue old;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (newValue.isEmpty() ? !m_isLoaded : (isRead && m_isLoaded))
            return;
        old = m_value;
        m_value = newValue;
        m_isLoaded = true;
        m_loadedChanged.notify_all();
        // With the lock, so that notices keep the order of the values.
        if (!isDirect) {
            m_changesUnderWay += old.isEmpty() ? 0 : 1;
            keloPost(this, [this, newValue, old] { deliver(newValue, old); });
        }
    }
    // Without the lock, because the receiver runs here.
    if (isDirect)
        m_slot.invoke(Q_ARG(KeloValue, newValue), Q_ARG(KeloValue, old));
}

void CMValueItem::deliver(const KeloValue& newValue, const KeloValue& old)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_changesUnderWay -= old.isEmpty() ? 0 : 1;
    }
    m_slot.invoke(Q_ARG(KeloValue, newValue), Q_ARG(KeloValue, old));
}

KeloValue CMValueItem::value() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_value;
}

bool CMValueItem::isAhead() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_changesUnderWay > 0;
}

bool CMValueItem::waitForLoaded(int timeoutMs) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto isDone = [this] { return m_isLoaded; };
    if (timeoutMs < 0) {
        m_loadedChanged.wait(lock, isDone);
        return true;
    }
    return m_loadedChanged.wait_for(lock, std::chrono::milliseconds(timeoutMs), isDone);
}
