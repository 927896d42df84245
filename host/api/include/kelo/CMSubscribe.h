#pragma once
#include "CMPath.h"
#include "KeloListeners.h"
#include "KeloNames.h"
#include "KeloValue.h"
#include <functional>
#include <map>
#include <mutex>
#include <QObject>
#include <QVariant>
#include <set>

/// What a client is told about an open rows path.
struct KELO_EXPORT CMRowsNotice
{
    CMPath path;     ///< the path as the client opened it
    QVariant change; ///< "close", "reset", or a list of texts such as "-4", "+3"
    int count = -1;  ///< the new number of rows; negative when not said
};

/// Subscription object of one node tree: knows which rows paths clients have open, and carries
/// change notices to them. Owned by its CMNodes. Every operation may be called from any thread; the
/// signals are emitted on the caller's thread, so queued connections carry them to the worker.
class KELO_EXPORT CMSubscribe : public QObject
{
    Q_OBJECT
public:
    using RowsListener = std::function<void(const CMRowsNotice&)>;

    /// Kind of change: what stood under the path is gone.
    KELO_NAME(RowsChangeClose, "close")
    /// Kind of change: everything under the path is to be asked for again.
    KELO_NAME(RowsChangeReset, "reset")

    /// Opens a rows path for a client; the listener is called on the notifying thread, without
    /// locks held. Returns a number for closeRows().
    quint64 openRows(const CMPath& path, RowsListener listener);
    /// Ends it, as KeloListeners::remove() does.
    void closeRows(quint64 id);

    /// Tells the clients that rows changed. The notice reaches every open path with the same base
    /// whose parameters include the notice's. `change` is a kind or a list of row changes.
    void rowsChanged(const CMPath& path, const QVariant& change, int count, int rowsVersion = -1);
    /// Tells the clients that everything under the path changed; the notice reaches every open path
    /// that starts with it.
    void changedStartingWith(const CMPath& path, const QString& kind, int count = -1,
                             int rowsVersion = -1);
    /// Version of the rows at a path's base: grows with every notice that touches it.
    int rowsVersion(const CMPath& path) const;

    /// Tells the watchers of the path's value; the values are handed on as they are.
    void valueChanged(const CMPath& path, const KeloValue& newValue, const KeloValue& oldValue);
    /// Tells the watchers that the data roles at a path changed.
    void dataChanged(const CMPath& path);

Q_SIGNALS:
    /// A client opened a rows path that nobody had open.
    void rowsPathAdded(CMPath const& path);
    /// The last client of a rows path closed it.
    void rowsPathRemoved(CMPath const& path);

private:
    /// The open paths at one base, by the number of their listener.
    using OpenPaths = std::map<quint64, CMPath>;

    /// Counts the version at the path's base up, or sets it, and those of the touched open paths;
    /// then tells the clients, without the lock. Touched are the open paths at its base, or at each
    /// base below it, too, that include its parameters.
    void tell(const CMPath& path, const QVariant& change, int count, int rowsVersion,
              bool isForAllBelow);
    /// The numbers of the touched paths at one base, added to the others; with the lock held.
    void addTouched(std::vector<quint64>& ids, const QString& base, const CMPath& path);

    /// Held while a path opens or closes and its signal is emitted, so that the signals of a path
    /// come in the order of what they tell; before the other one.
    std::recursive_mutex m_orderMutex;
    mutable std::mutex m_mutex; ///< guards all but the listeners
    /// By base, so that a notice looks at no others.
    QHash<QString, OpenPaths> m_open;
    std::set<QString> m_openBases;      ///< the same in order, for notices to all below a base
    std::map<quint64, QString> m_bases; ///< of the open paths, by the number of the listener
    QHash<CMPath, int> m_clients;       ///< open paths by number of clients, never zero
    QHash<QString, int> m_versions;     ///< by base; absent: 0
    KeloListeners<QVariant, int> m_listeners;
};
