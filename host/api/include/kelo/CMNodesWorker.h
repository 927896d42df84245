#pragma once
#include "CMNodes.h"
#include "CMWorker.h"

class CMNode;

/// Base of a module's worker: answers requests from a tree of nodes. The node at the exact base of
/// a request's path answers, else the nearest ancestor; what a node refuses, and a path without a
/// node, is answered with an error. The base versions of the request operations serve on the
/// caller's thread; a module overrides them to move requests to its own.
class KELO_EXPORT CMNodesWorker : public CMWorker
{
    Q_OBJECT
public:
    CMNodesWorker(const QVariantHash& settings, const QString& serviceId,
                  QObject* parent = nullptr);

    CMNodes* nodes() const { return m_nodes.get(); }

    void getDataRequest(const CMGetDataRequest& request) override;
    void setDataRequest(const CMSetDataRequest& request) override;
    void getRowsRequest(const CMGetRowsRequest& request) override;

    KeloValue nodeValue(const CMPath& path) const override;
    KeloRoles dataRoles(const CMPath& path) const override;
    KeloRoles servingRoles(const CMPath& path) const override;
    CMSubscribe* subscription() const override;

    /// The node that serves a rows request; null when none does.
    CMNode* matchRowRequest(const CMGetRowsRequest& request) const;

    /// Other names of connectRowsChange() and disconnectRowsChange(), for modules.
    static void connectChange(const CMPath& path, QObject* receiver, const char* slot)
    {
        connectRowsChange(path, receiver, slot);
    }
    static void disconnectChange(const CMPath& path, QObject* receiver)
    {
        disconnectRowsChange(path, receiver);
    }

private:
    std::unique_ptr<CMNodes> m_nodes;
};
