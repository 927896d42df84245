// Requests of the host: onto the worker's thread, through the gate, to who serves them.
#include "TidalActionReply.h"
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloTidalConstants.h>
#include <QThread>

void TidalWorker::getDataRequest(const CMGetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    if (thread() == QThread::currentThread())
        on_getData_invoke(request);
    else
        keloPost(this, [this, request] { on_getData_invoke(request); });
}

void TidalWorker::setDataRequest(const CMSetDataRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    keloPost(this, [this, request] { on_setData_invoke(request); });
}

void TidalWorker::getRowsRequest(const CMGetRowsRequest& request)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << request;
    if (request.path().contains(KeloTidalContextIdentifier())) {
        CMNodesWorker::getRowsRequest(request);
        return;
    }
    keloPost(this, [this, request] { on_getRows_invoke(request); });
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
    if (path.param(QStringLiteral("artistContent")) == KeloTidalArtistBio())
        m_handler->getArtistBio(request, path.param(QStringLiteral("artistId")));
    else if (path.base().contains(KeloTidalPrePlayPath()))
        onPrePlay(request);
    else
        CMNodesWorker::setDataRequest(request);
}

void TidalWorker::postpone(const CMRequest& request)
{
    // A set-up lasts a minute at most; more requests than this are no person's.
    constexpr int maxPostponed = 4096;
    if (m_session.postponed.size() < maxPostponed)
        m_session.postponed.append(request);
    else
        request.reply().setError(tidalError(KELO_TR("Too many requests are waiting for TIDAL")));
}

void TidalWorker::finishPosponedRequests(const CMError& error)
{
    const QList<CMRequest> requests = std::exchange(m_session.postponed, {});
    for (const CMRequest& request : requests) {
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

void TidalWorker::OpenPaths::note(const CMPath& path)
{
    if (!path.contains(KeloTidalContextIdentifier()) && !path.contains(KeloTidalCreatePlaylist()))
        current = path;
}

void TidalWorker::on_tidal_path_enter(const CMPath& path)
{
    m_open.entered.insert(path);
    m_open.note(path);
}

void TidalWorker::on_tidal_path_leave(const CMPath& path)
{
    m_open.entered.remove(path);
    // The path that was left becomes current too; deliberate, nothing restores an earlier one.
    m_open.note(path);
}
