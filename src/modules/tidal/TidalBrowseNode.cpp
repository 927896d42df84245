#include "TidalBrowseNode.h"
#include "TidalHandler.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloTidalConstants.h>
#include <QThread>

bool TidalBrowseNode::getRowsRequest(const CMGetRowsRequest& request)
{
    if (request.from() < 0 || request.to() < 0) {
        KELO_LOG("Tidal", WARN) << "TidalBrowseNode::getRowsRequest: range: " << request.from()
                                << "-" << request.to() << ", path: \"" << request.path() << "\"";
        request.reply().setError(
            CMError(QStringLiteral("Error"), KELO_TR("Bad rows request range")));
        return true;
    }
    if (thread() == QThread::currentThread())
        on_getRowsRequest(request);
    else
        keloPost(this, [this, request] { on_getRowsRequest(request); });
    return true;
}

void TidalBrowseNode::on_getRowsRequest(const CMGetRowsRequest& request)
{
    const CMPath& path = request.path();
    QStringList segments = path.splitBase();
    const int mark = segments.lastIndexOf(QStringLiteral("req"));
    segments = segments.mid(mark + 1);

    const QString contentId = path.param(QStringLiteral("contentId"));
    const QString artistId = path.param(QStringLiteral("artistId"));
    const QString query = path.param(QStringLiteral("query"));
    if (!contentId.isEmpty())
        handleContent(request, contentId, segments);
    else if (!artistId.isEmpty())
        handleArtist(request, artistId);
    else if (!query.isEmpty() && !segments.isEmpty())
        m_worker->getHandler()->search(request, query, segments.first());
    else if (query.isEmpty() && mark >= 0 && segments.size() == 3)
        handleList(request, segments);
}

void TidalBrowseNode::handleContent(const CMGetRowsRequest& request, const QString& contentId,
                                    const QStringList& segments)
{
    const QString kind = segments.value(segments.size() - 1);
    if (kind == KeloTidalPlaylists().toLower()) {
        TidalHandler* handler = m_worker->getHandler();
        if (handler->responder()->contextType(request.path()) ==
            KeloTidalContextVariation::PlaylistTracks)
            m_worker->setPlaylistPath(request.path());
        handler->getPlaylistTracks(request, contentId, m_worker->playlistTracksSetting(),
                                   QString());
    } else if (kind == KeloTidalAlbums().toLower()) {
        m_worker->getHandler()->getAlbumTracks(request, contentId);
    }
}

void TidalBrowseNode::handleArtist(const CMGetRowsRequest& request, const QString& artistId)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << "path: " << request.path();
    TidalHandler* handler = m_worker->getHandler();
    const QString content = request.path().param(QStringLiteral("artistContent"));
    if (content.isEmpty()) {
        handler->responder()->createArtistContent(request, artistId, content);
        return;
    }
    if (content == KeloTidalArtistRadio() &&
        handler->responder()->tryResponseRadio(request, artistId))
        return;
    const QString filter = request.path().param(QStringLiteral("artistAlbumContent"));
    handler->getArtistContent(request, artistId, content, filter);
}

void TidalBrowseNode::handleList(const CMGetRowsRequest& request, const QStringList& segments)
{
    TidalHandler* handler = m_worker->getHandler();
    if (segments.at(1) == QLatin1String("users"))
        handler->getMyMusic(request, segments.at(2), segments.at(0), &m_worker->myMusicSetting());
    else
        handler->baseRequest(request, segments.at(0), segments.at(1), segments.at(2));
}
