// Requests of the host: onto the worker's thread, through the gate, to who serves them.
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

void TidalWorker::getDataRequest(const CMGetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    QMetaObject::invokeMethod(this, "on_getData_invoke", Qt::AutoConnection,
                              Q_ARG(CMGetDataRequest, request));
}

void TidalWorker::setDataRequest(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    QMetaObject::invokeMethod(this, "on_setData_invoke", Qt::QueuedConnection,
                              Q_ARG(CMSetDataRequest, request));
}

void TidalWorker::getRowsRequest(const CMGetRowsRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    if (request.path().contains(KeloTidalContextIdentifier())) {
        CMNodesWorker::getRowsRequest(request);
        return;
    }
    QMetaObject::invokeMethod(this, "on_getRows_invoke", Qt::QueuedConnection,
                              Q_ARG(CMGetRowsRequest, request));
}

void TidalWorker::on_getData_invoke(const CMGetDataRequest& request)
{
    if (configure(request))
        CMNodesWorker::getDataRequest(request);
}

void TidalWorker::on_getRows_invoke(const CMGetRowsRequest& request)
{
    if (configure(request))
        CMNodesWorker::getRowsRequest(request);
}

void TidalWorker::on_setData_invoke(const CMSetDataRequest& request)
{
    if (!configure(request))
        return;
    const CMPath path = request.path();
    if (findQueryValue(path, QStringLiteral("artistContent")) == KeloTidalArtistBio())
        m_handler->getArtistBio(request, findQueryValue(path, QStringLiteral("artistId")));
    else if (path.base().contains(KeloTidalPrePlayPath()))
        onPrePlay(request);
    else
        CMNodesWorker::setDataRequest(request);
}

void TidalWorker::postpone(const CMRequest& request)
{
    // A set-up lasts a minute at most; more requests than this are no person's.
    constexpr int maxPostponed = 4096;
    if (m_postponedRequests.size() < maxPostponed)
        m_postponedRequests.append(request);
    else
        request.reply().setError(
            CMError(QStringLiteral("TIDAL"), KELO_TR("Too many requests are waiting for TIDAL")));
}

void TidalWorker::finishPosponedRequests(const CMError& error)
{
    QList<CMRequest> requests;
    requests.swap(m_postponedRequests);
    for (const CMRequest& request : qAsConst(requests)) {
        if (error.isSet())
            request.reply().setError(error);
        else
            returnToRequest(request);
    }
}

void TidalWorker::returnToRequest(CMRequest request)
{
    // Nobody waits any more for one that the host has given up.
    if (request.reply().isFinished())
        return;
    if (const CMGetDataRequest data(request); !data.isNull())
        on_getData_invoke(data);
    else if (const CMSetDataRequest set(request); !set.isNull())
        on_setData_invoke(set);
    else if (const CMGetRowsRequest rows(request); !rows.isNull())
        on_getRows_invoke(rows);
}

QString TidalWorker::findQueryValue(const CMPath& path, const QString& name)
{
    return path.param(name);
}

void TidalWorker::changeRowsSubscribe(const CMPath& path, QStringList changes, int count)
{
    nodes()->subscribe()->rowsChanged(path, changes, count, -1);
}

bool TidalWorker::isTrackedPath(const CMPath& path)
{
    return !path.contains(KeloTidalContextIdentifier()) &&
           !path.contains(KeloTidalCreatePlaylist());
}

void TidalWorker::on_tidal_path_enter(const CMPath& path)
{
    m_enteredPaths.insert(path);
    if (isTrackedPath(path))
        m_currentPath = path;
}

void TidalWorker::on_tidal_path_leave(const CMPath& path)
{
    m_enteredPaths.remove(path);
    // The path that was left becomes current too; deliberate, nothing restores an earlier one.
    if (isTrackedPath(path))
        m_currentPath = path;
}
