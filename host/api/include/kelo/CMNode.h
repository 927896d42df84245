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
    explicit CMNode(const CMPath& path);
    ~CMNode() override;

    /// Where the node stands. Does not change.
    const CMPath& path() const { return m_path; }
    /// Registers the node in a tree, which owns it from now on.
    void setNodes(CMNodes* nodes);
    CMNodes* nodes() const { return m_nodes; }
    /// The tree's subscription object; null before setNodes().
    CMSubscribe* subscribe() const;
    std::mutex& mutex() const { return m_mutex; }

    /// Each serves a request, now or later, and returns true, or refuses it with false and leaves
    /// the reply to the worker. The base versions refuse.
    virtual bool getDataRequest(const CMGetDataRequest& request);
    virtual bool setDataRequest(const CMSetDataRequest& request);
    virtual bool getRowsRequest(const CMGetRowsRequest& request);
    /// Serves a request of any kind by the operation of its kind.
    bool request(const CMRequest& request);

    /// Data roles for the path parameters; the base version has none. Any thread.
    virtual KeloRoles getDataRoles(const CMPath::Params& params) const;
    /// The node's value; the base version has none. Any thread.
    virtual KeloValue nodeValue() const;

    /// Bookkeeping of who has this node's rows, data or value open. Any thread.
    void rowsPathAdd(const CMPath& path);
    void rowsPathRemove(const CMPath& path);
    void dataPathAdd(const CMPath& path);
    void dataPathRemove(const CMPath& path);
    void valuePathAdd(const CMPath& path);
    void valuePathRemove(const CMPath& path);
    /// Number of open paths of all three kinds.
    int openPaths() const;

protected:
    /// Whether the request's path is this node's own, parameters aside.
    bool isOwnPath(const CMPath& path) const { return path.equals(m_path, CMPath::CompareBase); }
    /// Answers with the error that no node stands at the request's path; true.
    static bool replyNotFound(const CMRequest& request);

private:
    CMPath m_path;
    CMNodes* m_nodes = nullptr;
    mutable std::mutex m_mutex;
    QHash<CMPath, int> m_openPaths;
    void countPath(const CMPath& path, int step);
};
