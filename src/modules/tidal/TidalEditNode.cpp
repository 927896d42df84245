#include "TidalEditNode.h"

#include "TidalActionReply.h"
#include "TidalHandler.h"
#include <kelo/CMGlobal.h>
#include <kelo/CMSubscribe.h>
#include <kelo/CMValueNode.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

TidalAddRemoveFavouritesNode::TidalAddRemoveFavouritesNode(TidalWorker* worker, const CMPath& path)
    : TidalNode(path), m_worker(worker)
{
    setInvoke(this, SLOT(on_node_invoke(CMSetDataRequest)), Qt::DirectConnection);
    setMediaData(tidalMediaData());
}

bool TidalAddRemoveFavouritesNode::getDataRequest(const CMGetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    if (!request.path().startsWith(path()))
        return CMUINode::getDataRequest(request);
    const CMPath& asked = request.path();
    const QVariantList values =
        CMGlobal::itemRolesToList(getDataRoles(asked.params()), request.roles());
    const CMSetDataRequest prepared(m_worker->addPrefix(QStringLiteral("/context/favorites")),
                                    KeloRoles::Title(), QVariant(values));
    return QMetaObject::invokeMethod(m_worker->getHandler(), "on_isFavorite_invoke",
                                     Qt::AutoConnection, Q_ARG(CMGetDataRequest, request),
                                     Q_ARG(CMSetDataRequest, prepared),
                                     Q_ARG(QString, asked.param(QStringLiteral("type"))));
}

void TidalAddRemoveFavouritesNode::on_node_invoke(const CMSetDataRequest& request)
{
    // Who says which is not at the mercy of what another client has asked about meanwhile.
    const bool isWanted =
        request.role() == KeloRoles::Favorite() ? request.value().toBool() : !m_isFavorite;
    const char* const member =
        isWanted ? "on_addToFavorites_invoke" : "on_removeFromFavorites_invoke";
    QMetaObject::invokeMethod(m_worker->getHandler(), member, Qt::QueuedConnection,
                              Q_ARG(CMSetDataRequest, request),
                              Q_ARG(QString, request.path().param(QStringLiteral("type"))),
                              Q_ARG(QString, request.path().param(QStringLiteral("id"))));
}

TidalMoveTrackNode::TidalMoveTrackNode(TidalWorker* worker, const CMPath& path)
    : TidalNode(path), m_worker(worker)
{
    m_rowNumNode = CMValueNode::create(worker->nodes(), path + QStringLiteral("/rowNum"));
    m_rowNumNode->setTitle(KELO_TR("Row number"));
    m_rowNumNode->setReadOnly(false);
    KeloValue zero;
    zero.setI64(0);
    m_rowNumNode->setValue(zero);
    rowsAppend(m_rowNumNode->path());

    CMActivateNode* move =
        CMActivateNode::create(worker->nodes(), path + QStringLiteral("/move"), worker,
                               SLOT(on_move_activation(CMSetDataRequest)), Qt::QueuedConnection);
    move->setTitle(KELO_TR("Move to row"));
    rowsAppend(move->path());
    setContainerType(KeloRolesContainerType::List_);
    // Which track of which playlist is moved stands in the parameters.
    setCopyPathParams(true);
}

QString TidalMoveTrackNode::getRowNum() const
{
    return QString::number(m_rowNumNode->value().i64_());
}

void TidalMoveTrackNode::movePlaylistTrackFinish(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request.path();
    m_worker->finishEdit(request, CMEdit::Move(),
                         TidalWorker::tracksPath(TidalWorker::playlistIdOf(request.path())),
                         tidalActionReply({m_worker->playlistPath()}));
    subscribe()->changedStartingWith(path(), CMSubscribe::RowsChangeClose(), -1);
}
