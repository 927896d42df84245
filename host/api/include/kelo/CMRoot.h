#pragma once
#include "CMEdit.h"
#include "CMRequest.h"
#include "CMSubscribe.h"
#include "KeloRoles.h"
#include "KeloValue.h"
#include <chrono>
#include <functional>
#include <optional>
#include <QList>

class CMAbstractWorker;

/// Longest time that a request from outside may stay unanswered, by kind.
struct KELO_EXPORT CMDeadlines
{
    std::chrono::milliseconds rows{120000};
    std::chrono::milliseconds data{120000};
    std::chrono::milliseconds set{180000};
};

/// The host tree's root: a handle to the one tree of the process, in which each worker serves the
/// paths under its prefix. Every operation may be called from any thread. Workers are added and
/// removed by the program, and nothing is routed to a worker before it is added.
class KELO_EXPORT CMRoot
{
public:
    /// Adds a worker, not owned, for the paths below its prefixes. False, with an ERROR log line,
    /// when a prefix is taken.
    bool addWorker(CMAbstractWorker* worker) const;
    /// Stops routing to a worker, waits for calls that are inside it, and answers everything still
    /// routed to it with an error. Not from one of the worker's own calls. Then it may be deleted.
    void removeWorker(CMAbstractWorker* worker) const;

    /// Routes a request from outside. It is answered within its deadline, with an error if need be;
    /// a path that nobody serves is answered at once.
    void request(const CMRequest& request) const;
    /// Routes a request that a worker makes for itself: as request(), without a deadline.
    void requestInternal(const CMRequest& request) const;
    /// Sends a value to a path with the role KeloRoles::Value(); answered in the returned reply.
    CMReply<QVariant> invoke(const CMPath& path, const QVariant& value) const;
    void setDeadlines(const CMDeadlines& deadlines) const;
    /// Requests from outside that are still unanswered.
    int pendingRequests() const;
    /// When the oldest request from outside came that is still unanswered; nothing when there is
    /// none.
    std::optional<std::chrono::steady_clock::time_point> oldestRequest() const;

    /// The value at a path, empty when there is none: a locked read that never waits for a worker.
    KeloValue value(const CMPath& path) const;
    /// Data roles of the node that stands at the path's base, with the path's parameters; empty
    /// when there is none. A locked read.
    KeloRoles dataRoles(const CMPath& path) const;
    /// As dataRoles(), of the node that serves the path, which may be an ancestor's.
    KeloRoles servingRoles(const CMPath& path) const;

    /// Opens a rows path for a client; see CMSubscribe::openRows(). Zero when nobody serves it.
    quint64 openRows(const CMPath& path, CMSubscribe::RowsListener listener) const;
    void closeRows(quint64 id) const;

    using ValueListener = std::function<void(const KeloValue& newValue, const KeloValue& oldValue)>;
    /// Watches the value at a path, also before anybody publishes it. The listener is called on the
    /// publishing thread, without locks held. Returns a number for unwatch().
    quint64 watchValue(const CMPath& path, ValueListener listener) const;
    using DataListener = std::function<void(const CMPath& path)>;
    quint64 watchData(const CMPath& path, DataListener listener) const;
    using EditListener = std::function<void(const CMEdit& edit)>;
    /// Watches the edits of all workers, whoever made them. The listener is called on the worker's
    /// thread, without locks held.
    quint64 watchEdits(EditListener listener) const;
    /// Ends a watch; after the return the listener does not run any more, unless this is called
    /// from within it.
    void unwatch(quint64 id) const;

    /// For CMSubscribe alone: hands a change to the watchers.
    void notifyValue(const CMPath& path, const KeloValue& newValue,
                     const KeloValue& oldValue) const;
    void notifyData(const CMPath& path) const;

    /// For workers: tells of an edit that has happened. One that failed is not told of.
    void notifyEdit(const CMEdit& edit) const;

    /// The workers that are there now; for health checks.
    QList<CMAbstractWorker*> workers() const;
};
