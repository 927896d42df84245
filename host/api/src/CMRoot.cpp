#include "CMRoot.h"

#include "CMAbstractWorker.h"
#include "CMPendingReplies.h"
#include "CMSlot.h"
#include "CMWorkerRoute.h"
#include "KeloListeners.h"
#include "KeloLog.h"
#include "KeloThrown.h"

#include <atomic>
#include <map>

namespace {
/// The state behind every CMRoot. Lives to the end of the process.
struct RootState
{
    std::mutex mutex; ///< guards routes and open
    std::vector<std::shared_ptr<CMWorkerRoute>> routes;
    std::map<quint64, std::weak_ptr<CMWorkerRoute>> open; ///< by the number of the open rows
    CMDeadlines deadlines;

    CMPendingReplies pending;
    KeloListeners<CMPath, KeloValue, KeloValue> values; ///< told the path and the values
    KeloListeners<CMPath> data;
    KeloListeners<CMEdit> edits;

    /// The route with the longest prefix that the path starts with; null when there is none.
    std::shared_ptr<CMWorkerRoute> find(const CMPath& path)
    {
        std::lock_guard<std::mutex> lock(mutex);
        std::shared_ptr<CMWorkerRoute> best;
        int length = -1;
        for (const auto& route : routes) {
            const int matched = route->matchLength(path);
            if (matched > length) {
                length = matched;
                best = route;
            }
        }
        return best;
    }
};

RootState& state()
{
    static RootState* const root = [] {
        keloRegisterMetaTypes();
        return new RootState;
    }();
    // Other threads may still be inside the root, its clock must not.
    static const struct End
    {
        ~End() { root->pending.stopClock(); }
    } end;
    Q_UNUSED(end)
    return *root;
}

std::chrono::milliseconds deadlineOf(CMRequestData::Kind kind, const CMDeadlines& deadlines)
{
    switch (kind) {
    case CMRequestData::Kind::GetRows:
        return deadlines.rows;
    case CMRequestData::Kind::SetData:
        return deadlines.set;
    default:
        return deadlines.data;
    }
}

/// Whether a rows request asks for a range that ends before it begins. Negative numbers are the
/// node's to refuse, in its own words.
bool isUpsideDown(const CMRequest& request)
{
    const CMGetRowsRequest rows(request);
    return !rows.isNull() && rows.from() >= 0 && rows.to() >= 0 && rows.from() > rows.to();
}

/// Calls into a worker, mostly on a thread that is not its own: what it throws ends here. As
/// keloThrownBy().
QString visited(const CMPath& path, const std::function<void()>& call)
{
    const QString thrown = keloThrownBy(QStringLiteral("the module"), call);
    if (!thrown.isEmpty())
        KELO_LOG("Host", ERROR) << path.toEncoded() << ": " << thrown;
    return thrown;
}

/// Hands the request to the operation of its kind.
void serve(CMAbstractWorker* worker, const CMRequest& serving)
{
    switch (serving.kind()) {
    case CMRequestData::Kind::GetRows:
        return worker->getRowsRequest(CMGetRowsRequest(serving));
    case CMRequestData::Kind::SetData:
        return worker->setDataRequest(CMSetDataRequest(serving));
    case CMRequestData::Kind::GetData:
        return worker->getDataRequest(CMGetDataRequest(serving));
    }
}

/// Hands the request to the worker that it is for.
void route(const CMRequest& request, std::chrono::milliseconds deadline)
{
    RootState& root = state();
    if (isUpsideDown(request)) {
        request.reply().setError(CMError(
            CMError::BadRequestName(),
            TrString(TrCharData{"CMRoot", "The first row comes after the last one", nullptr})));
        return;
    }
    const CMWorkerRoute::Visit visit(root.find(request.path()));
    CMAbstractWorker* const worker = visit.worker();
    if (!worker) {
        request.reply().setError(CMError::nothingAt(request.path().toEncoded()));
        return;
    }
    // Without the holder, which the root is not.
    root.pending.add(CMVoidReply(request.reply().data()), worker, deadline);
    const CMRequest serving = request.servingSide();
    const QString thrown = visited(request.path(), [&] { serve(worker, serving); });
    if (!thrown.isEmpty())
        request.reply().giveUp(CMError(TrString(thrown)));
}
} // namespace

void keloEndUnanswered(const CMPath& path, const CMVoidReply& reply)
{
    state().pending.endUnanswered(path, CMVoidReply(reply.data()));
}

bool CMRoot::addWorker(CMAbstractWorker* worker) const
{
    RootState& root = state();
    const QStringList prefixes = worker->prefixes();
    std::lock_guard<std::mutex> lock(root.mutex);
    for (const auto& route : root.routes) {
        for (const QString& prefix : prefixes) {
            if (route->prefixes().contains(prefix)) {
                KELO_LOG("Host", ERROR) << "the prefix " << prefix << " is taken";
                return false;
            }
        }
    }
    root.routes.push_back(std::make_shared<CMWorkerRoute>(worker, prefixes));
    return true;
}

void CMRoot::removeWorker(CMAbstractWorker* worker) const
{
    RootState& root = state();
    std::shared_ptr<CMWorkerRoute> removed;
    {
        std::lock_guard<std::mutex> lock(root.mutex);
        for (auto it = root.routes.begin(); it != root.routes.end(); ++it) {
            if ((*it)->isFor(worker)) {
                removed = *it;
                root.routes.erase(it);
                break;
            }
        }
    }
    if (!removed)
        return;
    removed->close();
    root.pending.failAllOf(worker);
}

void CMRoot::request(const CMRequest& request) const
{
    CMDeadlines deadlines;
    {
        std::lock_guard<std::mutex> lock(state().mutex);
        deadlines = state().deadlines;
    }
    route(request, deadlineOf(request.kind(), deadlines));
}

void CMRoot::requestInternal(const CMRequest& request) const
{
    route(request, CMPendingReplies::noDeadline());
}

CMReply<QVariant> CMRoot::invoke(const CMPath& path, const QVariant& value) const
{
    const CMSetDataRequest request(path, KeloRoles::Value(), value);
    requestInternal(request);
    return request.reply();
}

void CMRoot::setDeadlines(const CMDeadlines& deadlines) const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    state().deadlines = deadlines;
}

int CMRoot::pendingRequests() const
{
    return state().pending.size();
}

std::optional<std::chrono::steady_clock::time_point> CMRoot::oldestRequest() const
{
    return state().pending.oldest();
}

KeloValue CMRoot::value(const CMPath& path) const
{
    const CMWorkerRoute::Visit visit(state().find(path));
    KeloValue value;
    if (visit.worker())
        visited(path, [&] { value = visit.worker()->nodeValue(path); });
    return value;
}

KeloRoles CMRoot::dataRoles(const CMPath& path) const
{
    const CMWorkerRoute::Visit visit(state().find(path));
    KeloRoles roles;
    if (visit.worker())
        visited(path, [&] { roles = visit.worker()->dataRoles(path); });
    return roles;
}

KeloRoles CMRoot::servingRoles(const CMPath& path) const
{
    const CMWorkerRoute::Visit visit(state().find(path));
    KeloRoles roles;
    if (visit.worker())
        visited(path, [&] { roles = visit.worker()->servingRoles(path); });
    return roles;
}

quint64 CMRoot::openRows(const CMPath& path, CMSubscribe::RowsListener listener) const
{
    RootState& root = state();
    const std::shared_ptr<CMWorkerRoute> target = root.find(path);
    const CMWorkerRoute::Visit visit(target);
    CMSubscribe* subscription = visit.worker() ? visit.worker()->subscription() : nullptr;
    if (!subscription)
        return 0;
    const quint64 id = subscription->openRows(path, std::move(listener));
    std::lock_guard<std::mutex> lock(root.mutex);
    root.open.emplace(id, target);
    return id;
}

void CMRoot::closeRows(quint64 id) const
{
    RootState& root = state();
    std::shared_ptr<CMWorkerRoute> target;
    {
        std::lock_guard<std::mutex> lock(root.mutex);
        const auto found = root.open.find(id);
        if (found == root.open.end())
            return;
        target = found->second.lock();
        root.open.erase(found);
    }
    const CMWorkerRoute::Visit visit(target);
    if (visit.worker() && visit.worker()->subscription())
        visit.worker()->subscription()->closeRows(id);
}

quint64 CMRoot::watchValue(const CMPath& path, ValueListener listener) const
{
    return state().values.add(
        [watched = path, listener = std::move(listener)](
            const CMPath& path, const KeloValue& newValue, const KeloValue& oldValue) {
            if (watched.equals(path, CMPath::CompareBase))
                listener(newValue, oldValue);
        });
}

quint64 CMRoot::watchData(const CMPath& path, DataListener listener) const
{
    return state().data.add([watched = path, listener = std::move(listener)](const CMPath& path) {
        if (watched.equals(path, CMPath::CompareBase))
            listener(path);
    });
}

quint64 CMRoot::watchEdits(EditListener listener) const
{
    return state().edits.add(std::move(listener));
}

void CMRoot::unwatch(quint64 id) const
{
    state().values.remove(id);
    state().data.remove(id);
    state().edits.remove(id);
}

void CMRoot::notifyValue(const CMPath& path, const KeloValue& newValue,
                         const KeloValue& oldValue) const
{
    state().values.notify(path, newValue, oldValue);
}

void CMRoot::notifyData(const CMPath& path) const
{
    state().data.notify(path);
}

void CMRoot::notifyEdit(const CMEdit& edit) const
{
    state().edits.notify(edit);
}

QList<CMAbstractWorker*> CMRoot::workers() const
{
    std::lock_guard<std::mutex> lock(state().mutex);
    QList<CMAbstractWorker*> workers;
    for (const auto& route : state().routes)
        workers.append(route->workerPointer());
    return workers;
}
