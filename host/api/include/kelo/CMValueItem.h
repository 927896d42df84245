#pragma once
#include "CMPath.h"
#include "CMSlot.h"
#include "KeloValue.h"
#include <condition_variable>
#include <mutex>
#include <QObject>

/// Watches the value at a path of the host tree, also before anybody publishes it. The slot, in
/// Qt's coded form, is called with the new and the old value, or the new one alone, for the first
/// value (old one empty) and for every change, never from the constructor: in a turn of the
/// receiver's event loop, or, with a direct connection, where a change is published. value() is
/// always the latest, so it may be ahead of the slot.
class KELO_EXPORT CMValueItem : public QObject
{
    Q_OBJECT
public:
    CMValueItem(QObject* parent, const CMPath& path, QObject* receiver = nullptr,
                const char* slot = nullptr, Qt::ConnectionType type = Qt::AutoConnection);
    ~CMValueItem() override;

    /// Any thread.
    KeloValue value() const;
    bool isLoaded() const { return waitForLoaded(0); }
    /// Whether value() is ahead of the slot: a change, the first value aside, is on its way to it.
    bool isAhead() const;
    /// Blocks until the first value is there, without an event loop; negative: no limit. False on
    /// time-out.
    bool waitForLoaded(int timeoutMs) const;

private:
    /// Any thread. The first value that is not empty loads the item; a read that a publication has
    /// overtaken is dropped.
    void take(const KeloValue& newValue, bool isRead);
    /// Brings a change to the slot, on the item's thread.
    void deliver(const KeloValue& newValue, const KeloValue& old);

    const CMSlot m_slot;
    const bool m_isDirect;
    quint64 m_watch = 0;
    mutable std::mutex m_mutex; ///< guards what follows
    mutable std::condition_variable m_loadedChanged;
    KeloValue m_value;
    bool m_isLoaded = false;
    int m_changesUnderWay = 0;
};
