#pragma once
#include "TidalNode.h"
#include <kelo/CMListRowsNode.h>

/// A list whose rows come from the service: works out from path and parameters which request
/// answers it; the answer reaches the waiting request later. Rows stored in it follow the
/// service's. Owned by the worker's tree; rows requests come on any thread and are dispatched on
/// the worker's.
class TidalBrowseNode : public TidalNode<TidalBrowseNode, CMListRowsNode>
{
    Q_OBJECT
public:
    TidalBrowseNode(TidalWorker* worker, const CMPath& path) : TidalNode(path), m_worker(worker) {}

    bool getRowsRequest(const CMGetRowsRequest& request) override;

public Q_SLOTS:
    /// Sends the service request that answers this; a path that none answers is left to the
    /// host.
    void on_getRowsRequest(const CMGetRowsRequest& request);

private:
    void handleContent(const CMGetRowsRequest& request, const QString& contentId,
                       const QStringList& segments);
    void handleArtist(const CMGetRowsRequest& request, const QString& artistId);
    void handleList(const CMGetRowsRequest& request, const QStringList& segments);

    TidalWorker* m_worker;
};
