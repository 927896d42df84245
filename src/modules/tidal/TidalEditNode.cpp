#include "TidalEditNode.h"

#include "TidalNotBuilt.h"
#include "TidalWorker.h"
#include <kelo/CMValueNode.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

TidalAddRemoveFavouritesNode* TidalAddRemoveFavouritesNode::create(TidalWorker* worker,
                                                                   const CMPath& path)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    auto* node = new TidalAddRemoveFavouritesNode(path);
    node->setNodes(worker->nodes());
    return node;
}

TidalAddRemoveFavouritesNode::TidalAddRemoveFavouritesNode(const CMPath& path)
    : CMActivateNode(path)
{
    setInvoke(this, SLOT(on_node_invoke(CMSetDataRequest)), Qt::DirectConnection);
    KeloMetaData metaData;
    metaData.setServiceID(KeloService_Tidal_Id());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    setMediaData(mediaData);
}

TidalAddRemoveFavouritesNode::~TidalAddRemoveFavouritesNode() = default;

bool TidalAddRemoveFavouritesNode::getDataRequest(const CMGetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    if (!request.path().startsWith(path()))
        return CMUINode::getDataRequest(request);
    replyNotBuilt(request, KELO_TR("Looking up favorites is not built yet"));
    return true;
}

void TidalAddRemoveFavouritesNode::on_node_invoke(const CMSetDataRequest& request)
{
    replyNotBuilt(request, KELO_TR("Changing favorites is not built yet"));
}

TidalMoveTrackNode* TidalMoveTrackNode::create(TidalWorker* worker, const CMPath& path)
{
    Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
    auto* node = new TidalMoveTrackNode(worker, path);
    node->setNodes(worker->nodes());
    return node;
}

TidalMoveTrackNode::TidalMoveTrackNode(TidalWorker* worker, const CMPath& path)
    : CMListRowsNode(path)
{
    m_rowNumNode = CMValueNode::create(worker->nodes(), path + QStringLiteral("/rowNum"));
    m_rowNumNode->setTitle(KELO_TR("Row number"));
    m_rowNumNode->setReadOnly(false);
    KeloValue zero;
    zero.setI64(0);
    m_rowNumNode->setValue(zero);
    rowsAppend(m_rowNumNode->path());

    m_moveNode =
        CMActivateNode::create(worker->nodes(), path + QStringLiteral("/move"), worker,
                               SLOT(on_move_activation(CMSetDataRequest)), Qt::QueuedConnection);
    m_moveNode->setTitle(KELO_TR("Move to row"));
    rowsAppend(m_moveNode->path());
    setContainerType(KeloRolesContainerType::List_);
}

TidalMoveTrackNode::~TidalMoveTrackNode() = default;

QString TidalMoveTrackNode::getRowNum() const
{
    return QString::number(m_rowNumNode->value().i64_());
}
