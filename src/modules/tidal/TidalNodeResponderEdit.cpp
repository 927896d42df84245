// Answers to changes of the user's library: they end the request with an error, hand it to the
// worker, or send the next request of an edit.
#include "TidalActionReply.h"
#include "TidalContextNode.h"
#include "TidalHandler.h"
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
CMError noTrackError()
{
    return tidalError(TrString(TrCharData{"TIDAL", "Non existing track index", nullptr}));
}

/// Whether a page of favorites of a kind holds an item.
bool holdsItem(const KeloJson& answer, const QString& type, const QString& id)
{
    const bool isPlaylists = type == KeloTidalPlaylists();
    for (const auto& favorite : KeloTidalApiPlaylistsResponse(answer).itemsFav()) {
        const KeloTidalApiPlaylistResponse item = favorite.item();
        if (!id.isEmpty() && (isPlaylists ? item.uuid() : item.idText()) == id)
            return true;
    }
    return false;
}
} // namespace

CMError TidalNodeResponder::editRefusal(const HttpClientPrivate& priv, int status,
                                        const QByteArray& body)
{
    const KeloTidalApiErrorResponse error(KeloJson::parse(body));
    KELO_LOG("Tidal", WARN) << "The service refused a change: status: " << status
                            << " sub status: " << error.subStatus()
                            << " user message: " << error.userMessage();
    noteRefusal(priv, status, error);
    const QString message = error.userMessage();
    if (message.isEmpty())
        return tidalError(TrString(
            QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "Error, failed to parse error message"))));
    return tidalError(TrString(message));
}

void TidalNodeResponder::on_newPlaylist_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                               int status, int, QByteArray const& output,
                                               HttpClientHeaders header)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << "newPlaylist response code: " << status;
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    if (status != 201) {
        request.reply().setError(editRefusal(priv, status, output));
        return;
    }
    QString uuid;
    QString etag;
    // Without parameters there is no item to add, so nobody needs the playlist; deliberate. To the
    // playlist of an earlier login nothing is added any more.
    if (!request.path().params().isEmpty() && !m_handler->isOfEarlierLogin(priv)) {
        etag = header.value(QStringLiteral("ETag"));
        KeloError error;
        const KeloTidalApiPlaylistResponse playlist(KeloJson::parse(output, &error));
        if (error.isSet()) {
            KELO_LOG("Tidal", WARN) << "Error occured in parsing response";
            request.reply().setError(tidalError(TrString(error.message())));
            return;
        }
        uuid = playlist.uuid();
    }
    Q_EMIT newPlaylistFinished(request, uuid, etag);
}

void TidalNodeResponder::on_updatePlaylist_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                  int status, int, QByteArray const& output,
                                                  HttpClientHeaders)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << "updatePlaylist response code: " << status;
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    if (status == 200) {
        Q_EMIT updatePlaylistFinished(request);
    } else {
        request.reply().setError(editRefusal(priv, status, output));
    }
}

void TidalNodeResponder::on_movePlaylistTrack_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                     int status, int, QByteArray const& output,
                                                     HttpClientHeaders)
{
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    if (status == 200) {
        Q_EMIT movePlaylistTrackFinished(request);
        return;
    }
    editRefusal(priv, status, output);
    const KeloTidalApiErrorResponse error(KeloJson::parse(output));
    // Without a status in the body the request is left unanswered; deliberate.
    if (error.contains(KeloTidalApiErrorResponse::Status()))
        request.reply().setError(noTrackError());
}

bool TidalNodeResponder::endsWithLogin(const HttpClientPrivate& priv)
{
    if (!m_handler->isOfEarlierLogin(priv))
        return false;
    priv.getCMRequest().reply().setError(tidalError(KELO_TR("User was logged out")));
    return true;
}

void TidalNodeResponder::on_playlistRepeatReponse_invoke(KeloUrl const& url,
                                                         HttpClientPrivate const& priv, int status,
                                                         int code, QByteArray const& output,
                                                         HttpClientHeaders header)
{
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    // An edit that the host has given up must not be carried out behind its back.
    if (request.reply().isFinished()) {
        noteRefusal(priv, status, KeloTidalApiErrorResponse(KeloJson::parse(output)));
        return;
    }
    if (endsWithLogin(priv))
        return;
    // The status is not looked at, and a text that is no JSON leaves the request unanswered;
    // both deliberate: the edit itself is what the service refuses.
    const QString etag = header.value(QStringLiteral("ETag"));
    KeloError error;
    const KeloTidalApiPlaylistResponse playlist(KeloJson::parse(output, &error));
    if (error.isSet()) {
        KELO_LOG("Tidal", WARN) << "Error occured in parsing response";
        noteRefusal(priv, status, KeloTidalApiErrorResponse());
        return;
    }
    if (playlist.uuid().isEmpty()) {
        // An answer without a playlist leaves nothing to edit, so it ends as a refused edit does.
        on_response_invoke(url, priv, status, code, output, header);
        if (request.path().contains(KeloTidalMoveTrack()))
            request.reply().setError(noTrackError());
        return;
    }
    const CMSetDataRequest secondary(priv.getCMRequestSec());
    const QString argument = secondary.isNull() ? QString() : secondary.value().toString();
    const CMPath& path = request.path();
    if (!secondary.isNull() && path.contains(KeloTidalRemoveFromPlaylists())) {
        if (argument.isEmpty())
            m_handler->removePlaylist(request, playlist.uuid(), etag);
        else
            m_handler->removeFromPlaylist(request, playlist.uuid(), argument, etag);
    } else if (path.contains(KeloTidalMoveTrack())) {
        const QString row = TidalWorker::findQueryValue(path, QStringLiteral("rowNum"));
        m_handler->moveTrack(request, row, argument, playlist.uuid(), etag);
    } else {
        constexpr int append = -1;
        m_handler->addToPlaylist(request, playlist.uuid(), argument, etag, append);
    }
}

void TidalNodeResponder::on_addToPlaylistResponse_invoke(KeloUrl const&,
                                                         HttpClientPrivate const& priv, int status,
                                                         int, QByteArray const& output,
                                                         HttpClientHeaders)
{
    if (endsWithLogin(priv))
        return;
    const CMSetDataRequest request = priv.getCMSetDataRequest();
    const KeloJson answer = KeloJson::parse(output);
    noteRefusal(priv, status, KeloTidalApiErrorResponse(answer));
    // The status decides nothing: an answer without tracks adds nothing; deliberate.
    QString ids;
    for (const auto& track : KeloTidalApiTracksResponse(answer).items()) {
        const QString id = track.idText();
        if (track.allowStreaming() && !id.isEmpty())
            ids += id + QLatin1Char(',');
    }
    // The comma behind the last one stays; deliberate, the service takes it.
    const QString playlistId =
        TidalWorker::findQueryValue(request.path(), QStringLiteral("playlistId"));
    m_handler->loopPlaylistManipulation(request, playlistId, QVariant(ids));
}

void TidalNodeResponder::on_isFavoriteReponse_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                     int status, int, QByteArray const& output,
                                                     HttpClientHeaders)
{
    const CMGetDataRequest request = priv.getCMGetDataRequest();
    if (status != 200) {
        request.reply().setError(editRefusal(priv, status, output));
        return;
    }
    const QString type = request.path().param(QStringLiteral("type"));
    const QString id = request.path().param(QStringLiteral("id"));
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal") << "type: " << type << " id: " << id;
    const bool isFavorite = holdsItem(KeloJson::parse(output), type, id);
    const TrString title =
        isFavorite ? KELO_TR("Remove from favorites") : KELO_TR("Add to favorites");

    const CMSetDataRequest prepared(priv.getCMRequestSec());
    QVariantList values = prepared.isNull() ? QVariantList() : prepared.value().toList();
    const QStringList& roles = request.roles();
    for (int i = 0; i < roles.size() && i < values.size(); ++i) {
        if (roles.at(i) == KeloRoles::Title())
            values[i] = title.toVariant();
    }
    if (TidalBaseContextNode* menu = m_worker->contextNode(contextType(request.path())))
        menu->setFavorite(isFavorite);
    request.reply().setValue(values);
}
