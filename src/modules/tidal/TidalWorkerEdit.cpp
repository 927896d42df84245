// Editing of playlists and favorites: the actions of the context menus, and their ends.
#include "TidalActionReply.h"
#include "TidalContextNode.h"
#include "TidalEditNode.h"
#include "TidalHandler.h"
#include "TidalNewPlaylistForm.h"
#include <algorithm>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMRoot.h>
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

/// The menu of a playlist's tracks counts as the menu of playlists; deliberate.
bool isPlaylistMenu(KeloTidalContextVariation::Enum variation)
{
    return variation == KeloTidalContextVariation::PlaylistTracks ||
           variation == KeloTidalContextVariation::Playlist;
}

CMError noRowError()
{
    return tidalError(KELO_TR("Which row of the playlist is not said"));
}
} // namespace

CMPath TidalWorker::tracksPath(const QString& playlistId)
{
    CMPath path = KeloTidalMyPlaylistsPath();
    path.addParam(QStringLiteral("contentId"), playlistId);
    return path;
}

QString TidalWorker::playlistIdOf(const CMPath& path)
{
    const QString id = path.param(QStringLiteral("playlistId"));
    return id.isEmpty() ? path.param(QStringLiteral("id")) : id;
}

void TidalWorker::on_addToPlaylist_invoke(const CMSetDataRequest& request)
{
    const CMPath& path = request.path();
    const QString type = path.param(QStringLiteral("type"));
    const QString id = path.param(QStringLiteral("id"));
    if (type == KeloTidalTracks())
        m_handler->loopPlaylistManipulation(request, path.param(QStringLiteral("playlistId")), id);
    else
        m_handler->getTracksForPlaylists(request, type, id);
}

void TidalWorker::on_removeFromPlaylist_invoke(const CMSetDataRequest& request)
{
    const CMPath& path = request.path();
    const QString row = path.param(QStringLiteral("rowNum"));
    const QString type = path.param(QStringLiteral("type"));
    if (type == KeloTidalTracks()) {
        // Without a row the whole playlist would go.
        if (areRowNumbers(row))
            m_handler->loopPlaylistManipulation(request, path.param(QStringLiteral("playlistId")),
                                                row);
        else
            request.reply().setError(noRowError());
    } else if (type == KeloTidalPlaylists()) {
        m_handler->loopPlaylistManipulation(request, path.param(QStringLiteral("id")), QVariant());
    }
    // Another type is left unanswered; deliberate, there is no such menu.
}

void TidalWorker::on_move_activation(const CMSetDataRequest& request)
{
    const CMPath& path = request.path();
    const QString target = m_tree->moveTrack->getRowNum();
    if (!isRowNumber(path.param(QStringLiteral("rowNum"))))
        request.reply().setError(noRowError());
    // A place before the first one would be the last one to the service.
    else if (!isRowNumber(target))
        request.reply().setError(tidalError(KELO_TR("The rows of a playlist are counted from 0")));
    else
        m_handler->loopPlaylistManipulation(request, path.param(QStringLiteral("playlistId")),
                                            target);
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
        if (!request.reply().isFinished())
            m_handler->loopPlaylistManipulation(request, playlistIdOf(request.path()), value);
        return;
    }
    // Any other refusal ends like a success: clients reload what may have changed; deliberate.
    logRefusal(request.path(), error);
    const TidalBrowserContextNode* menu =
        isPlaylistMenu(variation) ? m_tree->playlistContext : m_tree->browserContext;
    const CMPath listPath = menu->getPlaylistPath();
    nodes()->subscribe()->changedStartingWith(listPath, CMSubscribe::RowsChangeClose(), -1);
    if (!isOfThisLogin)
        KELO_LOG("Tidal", DEBUG) << "Change of an earlier login: " << request.path();
    else if (requestType == KeloTidalRequestType::AddToPlaylists)
        notifyAdded(playlistId, value.toString());
    else if (!value.toString().isEmpty())
        notifyRemoved(playlistId, value.toString());
    else
        notifyDeleted(playlistId.isEmpty() ? request.path().param(QStringLiteral("id"))
                                           : playlistId,
                      error.isEmpty());

    QList<CMPath> reloads = {listPath, menu->path()};
    if (variation == KeloTidalContextVariation::Playlist)
        reloads.append(m_playlistPath);
    const bool isAdded = requestType == KeloTidalRequestType::AddToPlaylists;
    const bool isRemoved = !isAdded && !value.toString().isEmpty();
    const QString id = playlistId.isEmpty() ? playlistIdOf(request.path()) : playlistId;
    finishEdit(request,
               !error.isEmpty() ? QString()
               : isAdded        ? CMEdit::Add()
               : isRemoved      ? CMEdit::Remove()
                                : CMEdit::Delete(),
               tracksPath(id), tidalActionReply(reloads));
}

void TidalWorker::finishEdit(const CMSetDataRequest& request, const QString& action,
                             const CMPath& item, const KeloActionReply& reply)
{
    request.reply().setValue(reply.toVariant());
    if (!action.isEmpty() && !m_handler->responder()->isOfEarlierLogin())
        CMRoot().notifyEdit({request.path(), action, item, reply.toVariant()});
}

CMPath TidalWorker::itemPath(const QString& kind, const QString& id) const
{
    CMPath path = kind == KeloTidalArtists() ? artistsPath() : albumsPath();
    if (kind == KeloTidalPlaylists()) {
        path = addPrefix(KeloTidalRequest()) + QStringLiteral("/") + kind.toLower();
        path.addParam(QStringLiteral("playlistId"), id);
    } else if (kind == KeloTidalTracks()) {
        return CMPath();
    }
    path.addParam(
        kind == KeloTidalArtists() ? QStringLiteral("artistId") : QStringLiteral("contentId"), id);
    return path;
}

void TidalWorker::notifyRemoved(const QString& playlistId, const QString& places)
{
    const CMPath tracks = tracksPath(playlistId);
    const bool isPlaylistOrder =
        m_playlistTracksSetting.order() == KeloTidalOrder::Index_ &&
        m_playlistTracksSetting.orderDirection() == KeloTidalOrderDirection::Asc_;
    if (isPlaylistOrder)
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
    if (isPlaylistMenu(variation))
        menu = m_tree->playlistContext;
    else if (variation == KeloTidalContextVariation::Browse)
        menu = m_tree->browserContext;
    const CMSetDataRequest wish(m_handler->responder()->answeredSecondary());
    const QString action =
        !wish.isNull() && wish.value().toBool() ? CMEdit::Favorite() : CMEdit::Unfavorite();
    finishEdit(request, error.isEmpty() ? action : QString(),
               itemPath(request.path().param(QStringLiteral("type")),
                        request.path().param(QStringLiteral("id"))),
               tidalActionReply({menu->path()}));

    // The variation names the list, whatever the item is; deliberate.
    if (variation > KeloTidalContextVariation::Playlist)
        return;
    const QString& kind =
        variation == KeloTidalContextVariation::Playlist ? KeloTidalPlaylists() : KeloTidalTracks();
    const CMPath list = m_tree->myMusic->path() + KeloTidalRequest() + KeloTidalApiPathFavorites() +
                        KeloTidalApiPathUsers() + QStringLiteral("/") + kind.toLower();
    nodes()->subscribe()->rowsChanged(list, CMSubscribe::RowsChangeReset(), -1);
}

void TidalWorker::on_newPlaylist_invoke(const CMSetDataRequest& request, const QString& playlistId,
                                        const QString& etag)
{
    m_tree->newPlaylistForm->addPlaylistFinish(request, playlistId, etag);
}

void TidalWorker::on_updatePlaylist_invoke(const CMSetDataRequest& request)
{
    m_tree->updatePlaylistForm->updatePlaylistFinish(request);
}

void TidalWorker::on_movePlaylistTrack_invoke(const CMSetDataRequest& request)
{
    m_tree->moveTrack->movePlaylistTrackFinish(request);
}
