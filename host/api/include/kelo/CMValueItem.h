#pragma once
#include "CMPath.h"
#include "KeloExport.h"
#include "KeloValue.h"
#include <memory>
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
    bool isLoaded() const;
    /// Whether value() is ahead of the slot: a change, the first value aside, is on its way to it.
    bool isAhead() const;
    /// Blocks until the first value is there, without an event loop; negative: no limit. False on
    /// time-out.
    bool waitForLoaded(int timeoutMs) const;

private:
    class Private;
    std::shared_ptr<Private> d; ///< outlives the item while a notice is on its way
};
