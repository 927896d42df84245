// Editing of playlists and favorites: the actions of the context menus, and their ends.
#include "TidalActionReply.h"
#include "TidalContextNode.h"
#include "TidalEditNode.h"
#include "TidalHandler.h"
#include "TidalNewPlaylistForm.h"
#include "TidalWorker.h"
#include <algorithm>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMSubscribe.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// Of a playlist that changed after its tag was read; the service has changed nothing.
constexpr int staleTagSubStatus = 7002;

bool isStaleTag(const KeloTidalApiErrorResponse& error)
{
    return error.contains(KeloTidalApiErrorResponse::Status()) &&
           error.subStatus() == staleTagSubStatus;
}

void logRefusal(const CMPath& path, const KeloTidalApiErrorResponse& error)
{
    if (!error.isEmpty())
        KELO_LOG("Tidal", WARN) << "The service refused a change: " << path
                                << " status: " << error.status()
                                << " sub status: " << error.subStatus()
                                << " user message: " << error.userMessage();
}

/// Whether a text is a position in a playlist as the service takes it.
bool isRowNumber(const QString& text)
{
    const bool isDigits = std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
    bool isInRange = false;
    text.toInt(&isInRange);
    return isDigits && isInRange;
}

/// The same of one position, or several joined by ",".
bool areRowNumbers(const QString& text)
{
    const QStringList rows = text.split(QLatin1Char(','));
    return std::all_of(rows.begin(), rows.end(), isRowNumber);
}

/// Where the tracks of one of the user's playlists are listed.
CMPath tracksPath(const QString& playlistId)
{
    CMPath path = KeloTidalMyPlaylistsPath();
    path.addParam(QStringLiteral("contentId"), playlistId);
    return path;
}

CMError noRowError()
{
    return CMError(QStringLiteral("TIDAL"), KELO_TR("Which row of the playlist is not said"));
}
} // namespace

void TidalWorker::on_addToPlaylist_invoke(const CMSetDataRequest& request)
{
    const CMPath& path = request.path();
    const QString type = findQueryValue(path, QStringLiteral("type"));
    const QString id = findQueryValue(path, QStringLiteral("id"));
    if (type == KeloTidalTracks())
        m_handler->loopPlaylistManipulation(
            request, findQueryValue(path, QStringLiteral("playlistId")), QVariant(id));
    else
        m_handler->getTracksForPlaylists(request, type, id);
}

void TidalWorker::on_removeFromPlaylist_invoke(const CMSetDataRequest& request)
{
    const CMPath& path = request.path();
    const QString row = findQueryValue(path, QStringLiteral("rowNum"));
    const QString type = findQueryValue(path, QStringLiteral("type"));
    if (type == KeloTidalTracks()) {
        // Without a row the whole playlist would go.
        if (areRowNumbers(row))
            m_handler->loopPlaylistManipulation(
                request, findQueryValue(path, QStringLiteral("playlistId")), QVariant(row));
        else
            request.reply().setError(noRowError());
    } else if (type == KeloTidalPlaylists()) {
        m_handler->loopPlaylistManipulation(request, findQueryValue(path, QStringLiteral("id")),
                                            QVariant());
    }
    // Another type is left unanswered; deliberate, there is no such menu.
}

void TidalWorker::on_move_activation(const CMSetDataRequest& request)
{
    const CMPath& path = request.path();
    if (!isRowNumber(findQueryValue(path, QStringLiteral("rowNum")))) {
        request.reply().setError(noRowError());
        return;
    }
    const QString target = m_moveTrack->getRowNum();
    // A place before the first one would be the last one to the service.
    if (!isRowNumber(target)) {
        request.reply().setError(
            CMError(QStringLiteral("TIDAL"), KELO_TR("The rows of a playlist are counted from 0")));
        return;
    }
    m_handler->loopPlaylistManipulation(request, findQueryValue(path, QStringLiteral("playlistId")),
                                        QVariant(target));
}

void TidalWorker::on_tidalHandler_finishedPlaylists(CMSetDataRequest request,
                                                    KeloTidalContextVariation::Enum variation,
                                                    KeloTidalApiErrorResponse error, QVariant value,
                                                    QString playlistId,
                                                    KeloTidalRequestType::Enum requestType)
{
    const bool isOfThisLogin = !m_handler->responder()->isOfEarlierLogin();
    if (isStaleTag(error) && isOfThisLogin) {
        // As often as it takes, until the host has given the request up.
        if (request.reply().isFinished())
            return;
        QString id = findQueryValue(request.path(), QStringLiteral("playlistId"));
        if (id.isEmpty())
            id = findQueryValue(request.path(), QStringLiteral("id"));
        m_handler->loopPlaylistManipulation(request, id, value);
        return;
    }
    // Any other refusal ends like a success: clients reload what may have changed; deliberate.
    logRefusal(request.path(), error);
    // The menu of a playlist's tracks counts as the menu of playlists; deliberate.
    const bool isPlaylistMenu = variation == KeloTidalContextVariation::PlaylistTracks ||
                                variation == KeloTidalContextVariation::Playlist;
    const TidalBrowserContextNode* menu = isPlaylistMenu ? m_playlistContext : m_browserContext;
    const CMPath listPath = menu->getPlaylistPath();
    nodes()->subscribe()->changedStartingWith(listPath, CMSubscribe::RowsChangeClose(), -1);
    if (!isOfThisLogin)
        KELO_LOG("Tidal", DEBUG) << "Change of an earlier login: " << request.path();
    else if (requestType == KeloTidalRequestType::AddToPlaylists)
        notifyAdded(playlistId, value.toString());
    else if (!value.toString().isEmpty())
        notifyRemoved(playlistId, value.toString());
    else
        notifyDeleted(playlistId.isEmpty() ? findQueryValue(request.path(), QStringLiteral("id"))
                                           : playlistId,
                      error.isEmpty());

    QList<CMPath> reloads = {listPath, menu->path()};
    if (variation == KeloTidalContextVariation::Playlist)
        reloads.append(m_playlistPath);
    request.reply().setValue(tidalActionReply(reloads).toVariant());
}

bool TidalWorker::isPlaylistOrder() const
{
    return m_playlistTracksSetting.order() == KeloTidalOrder::Index_ &&
           m_playlistTracksSetting.orderDirection() == KeloTidalOrderDirection::Asc_;
}

void TidalWorker::notifyRemoved(const QString& playlistId, const QString& places)
{
    const CMPath tracks = tracksPath(playlistId);
    if (isPlaylistOrder())
        changeRowsSubscribe(tracks, {QLatin1Char('-') + places}, 0);
    else // in which row a place is shown is not known
        nodes()->subscribe()->rowsChanged(tracks, CMSubscribe::RowsChangeReset(), -1);
}

void TidalWorker::notifyDeleted(const QString& playlistId, bool isGone)
{
    if (playlistId.isEmpty())
        return;
    // "close" and no "-": there is no list any more that a row was taken out of.
    if (isGone)
        nodes()->subscribe()->rowsChanged(tracksPath(playlistId), CMSubscribe::RowsChangeClose(),
                                          -1);
    // Nobody is to be sent to its tracks any more.
    if (m_playlistPath.param(QStringLiteral("contentId")) == playlistId)
        m_playlistPath = KeloTidalMyPlaylistsPath();
}

void TidalWorker::notifyAdded(const QString& playlistId, const QString& trackIds)
{
    // Empty parts count too, so a list that ends in a comma counts one more; deliberate, the
    // clients take the number of rows from the same notice.
    const int count = trackIds.split(QLatin1Char(',')).size();
    const CMGetRowsRequest request(tracksPath(playlistId), 0, 49, QStringList());
    m_handler->getPlaylistTracks(request, playlistId, m_playlistTracksSetting,
                                 KeloTidalAddToPlaylists() + QLatin1Char('=') +
                                     QString::number(count));
}

void TidalWorker::on_tidalHandler_finishedFavorites(CMSetDataRequest request,
                                                    KeloTidalContextVariation::Enum variation,
                                                    KeloTidalApiErrorResponse error)
{
    // A refusal ends like a success; deliberate.
    logRefusal(request.path(), error);
    const TidalBaseContextNode* menu = contextNode(KeloTidalContextVariation::Base);
    if (variation == KeloTidalContextVariation::Browse)
        menu = m_browserContext;
    else if (variation == KeloTidalContextVariation::PlaylistTracks ||
             variation == KeloTidalContextVariation::Playlist)
        menu = m_playlistContext;
    request.reply().setValue(tidalActionReply({menu->path()}).toVariant());

    // The variation names the list, whatever the item is; deliberate.
    QString kind;
    if (variation < KeloTidalContextVariation::Playlist)
        kind = KeloTidalTracks();
    else if (variation == KeloTidalContextVariation::Playlist)
        kind = KeloTidalPlaylists();
    else
        return;
    const CMPath list = m_myMusic->path() + KeloTidalRequest() + KeloTidalApiPathFavorites() +
                        KeloTidalApiPathUsers() + QStringLiteral("/") + kind.toLower();
    nodes()->subscribe()->rowsChanged(list, CMSubscribe::RowsChangeReset(), -1);
}

void TidalWorker::on_newPlaylist_invoke(const CMSetDataRequest& request, const QString& playlistId,
                                        const QString& etag)
{
    m_newPlaylistForm->addPlaylistFinish(request, playlistId, etag);
}

void TidalWorker::on_updatePlaylist_invoke(const CMSetDataRequest& request)
{
    m_updatePlaylistForm->updatePlaylistFinish(request);
}

void TidalWorker::on_movePlaylistTrack_invoke(const CMSetDataRequest& request)
{
    m_moveTrack->movePlaylistTrackFinish(request);
}
