#pragma once
#include "CMNodes.h"
#include "CMRequest.h"
#include "KeloValue.h"
#include <memory>
#include <mutex>
#include <QObject>

/// A place in a worker's tree that answers requests at its path. Owned by the tree from setNodes()
/// on. Made on the worker's thread; requests may reach it on any thread, so state that they read is
/// guarded by mutex(), which is never held while another node, a reply's watcher or a client is
/// called.
class KELO_EXPORT CMNode : public QObject
{
    Q_OBJECT
public:
    explicit CMNode(const CMPath& path) : m_path(path) {}

    /// Where the node stands. Does not change.
    const CMPath& path() const { return m_path; }
    /// Registers the node in a tree, which owns it from now on.
    void setNodes(CMNodes* nodes);
    CMNodes* nodes() const { return m_nodes; }
    /// The tree's subscription object; null before setNodes().
    CMSubscribe* subscribe() const { return m_nodes ? m_nodes->subscribe() : nullptr; }
    std::mutex& mutex() const { return m_mutex; }

    /// Each serves a request, now or later, and returns true, or refuses it with false and leaves
    /// the reply to the worker. The base versions refuse.
    virtual bool getDataRequest(const CMGetDataRequest& request) { return refuse(request); }
    virtual bool setDataRequest(const CMSetDataRequest& request) { return refuse(request); }
    virtual bool getRowsRequest(const CMGetRowsRequest& request) { return refuse(request); }
    /// Serves a request of any kind by the operation of its kind. For modules; the host does not
    /// call it.
    bool request(const CMRequest& request);

    /// Data roles for the path parameters; the base version has none. Any thread.
    virtual KeloRoles getDataRoles(const CMPath::Params&) const { return KeloRoles(); }
    /// The node's value; the base version has none. Any thread.
    virtual KeloValue nodeValue() const { return KeloValue(); }

    /// Bookkeeping of who has this node's rows, data or value open, for modules. Any thread.
    void rowsPathAdd(const CMPath& path) { countPath(path, 1); }
    void rowsPathRemove(const CMPath& path) { countPath(path, -1); }
    void dataPathAdd(const CMPath& path) { countPath(path, 1); }
    void dataPathRemove(const CMPath& path) { countPath(path, -1); }
    void valuePathAdd(const CMPath& path) { countPath(path, 1); }
    void valuePathRemove(const CMPath& path) { countPath(path, -1); }
    /// Number of open paths of all three kinds.
    int openPaths() const;

protected:
    /// Whether the request's path is this node's own, parameters aside.
    bool isOwnPath(const CMPath& path) const { return path.equals(m_path, CMPath::CompareBase); }
    /// Answers with the error that no node stands at the request's path; true.
    static bool replyNotFound(const CMRequest& request);

    /// A copy of what the mutex guards.
    template <class State>
    State locked(const State& state) const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return state;
    }
    /// Sets what the mutex guards, or a part of it.
    template <class State>
    void store(State& state, const State& value)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        state = value;
    }

private:
    CMPath m_path;
    CMNodes* m_nodes = nullptr;
    mutable std::mutex m_mutex;
    QHash<CMPath, int> m_openPaths;
    void countPath(const CMPath& path, int step);
    bool refuse(const CMRequest& request) const
    {
        return !isOwnPath(request.path()) && replyNotFound(request);
    }
};
