// Changes of the user's library: favorites, playlists and what is in them.
#include "TidalHandler.h"
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloUrl.h>

namespace {
constexpr int editTimeoutMs = 30000;
constexpr int editReadSizeLimit = 65536;

/// The requests of an edit that may have to be sent again: the second one carries the playlist, as
/// the third segment of its path, and what the edit is about.
HttpClientPrivate::Data repeatable(const CMSetDataRequest& request, const QString& playlistId,
                                   const QVariant& argument)
{
    const CMPath path(KeloTidalRequest() + QStringLiteral("/playlists/") + playlistId);
    return {request, CMSetDataRequest(path, KeloRoles::Id(), argument, CMVoidReply())};
}

/// The requests of a change of the favorites: the second one carries whether the item becomes one.
HttpClientPrivate::Data favoring(const CMSetDataRequest& request, bool isWanted)
{
    return {request, CMSetDataRequest(CMPath(KeloTidalApiPathFavorites()), KeloRoles::Favorite(),
                                      isWanted, CMVoidReply())};
}

/// The service changes a playlist only for who knows its tag; its name for that header is used in
/// the sense of If-Match (RFC 9110 13.1.1).
HttpClientHeaders tagHeaders(QString etag)
{
    HttpClientHeaders headers;
    headers.insert(QStringLiteral("If-None-Match"), etag.remove(QLatin1Char(' ')));
    return headers;
}

/// A value of a form's body: in none of its forms does it begin another field. Commas stay, the
/// service takes them between identifiers.
QString formValue(const QString& text)
{
    return QString::fromLatin1(KeloUrl::toPercentEncoding(text).replace("%2C", ","));
}

/// Body key by which the service takes a new favorite of a kind; null for an unknown kind.
const char* favoriteKey(const QString& kind)
{
    if (kind == KeloTidalAlbums())
        return "albumId=";
    if (kind == KeloTidalArtists())
        return "artistId=";
    if (kind == KeloTidalPlaylists())
        return "uuid=";
    return kind == KeloTidalTracks() ? "trackId=" : nullptr;
}

QString playlistBody(const QString& title, const QString& description)
{
    KeloUrl items;
    items.addEncodedQueryItem("title", KeloUrl::toPercentEncoding(title));
    if (!description.isEmpty())
        items.addEncodedQueryItem("description", KeloUrl::toPercentEncoding(description));
    QString body = QString::fromLatin1(items.toEncoded());
    if (body.startsWith(QLatin1Char('?')))
        body.remove(0, 1);
    return body;
}
} // namespace

bool TidalHandler::checkUser(const CMRequest& request, const QString& domain)
{
    if (!checkAccessToken(request))
        return false;
    if (m_account.userId() != 0)
        return true;
    // The words about favorites are deliberate: all that belongs to the user is refused alike.
    request.reply().setError(CMError(domain, KELO_TR("User not logged in. Cannot get favorites")));
    return false;
}

bool TidalHandler::checkFavorite(const CMRequest& request, const QString& domain,
                                 const QString& kind)
{
    if (!checkUser(request, domain))
        return false;
    if (favoriteKey(kind))
        return true;
    request.reply().setError(CMError(domain, KELO_TR("This cannot be a favorite")));
    return false;
}

void TidalHandler::sendPost(const QString& path, Query query, QString body, const char* member,
                            const HttpClientPrivate::Data& requests,
                            const HttpClientHeaders& headers)
{
    if (!path.isEmpty())
        post(path, query, body, &m_responder, member, requests, editTimeoutMs, headers,
             editReadSizeLimit);
}

void TidalHandler::sendDelete(const QString& path, const HttpClientPrivate::Data& requests,
                              const HttpClientHeaders& headers)
{
    Query query = countryQuery();
    if (!path.isEmpty())
        deleteCall(path, query, &m_responder, answerSlot, requests, editTimeoutMs, headers,
                   editReadSizeLimit);
}

void TidalHandler::on_isFavorite_invoke(CMGetDataRequest const& request,
                                        CMSetDataRequest const& prepared, QString const& kind)
{
    if (checkFavorite(request, QStringLiteral("TIDAL"), kind))
        sendGet(userPathOf(request, {QStringLiteral("favorites"), kind.toLower()}),
                countryQuery() + Query{{QStringLiteral("limit"), QStringLiteral("50")}},
                "on_isFavoriteReponse_invoke", {request, prepared});
}

void TidalHandler::on_addToFavorites_invoke(CMSetDataRequest const& request, QString const& kind,
                                            QString const& id)
{
    // What no address could take away again is not put there either.
    if (checkFavorite(request, KeloService_Tidal_Id(), kind) && !pathOf(request, {id}).isEmpty())
        sendPost(userPathOf(request, {QStringLiteral("favorites"), kind.toLower()}), countryQuery(),
                 QLatin1String(favoriteKey(kind)) + formValue(id), answerSlot,
                 favoring(request, true));
}

void TidalHandler::on_removeFromFavorites_invoke(CMSetDataRequest const& request,
                                                 QString const& kind, QString const& id)
{
    if (checkFavorite(request, KeloService_Tidal_Id(), kind))
        sendDelete(userPathOf(request, {QStringLiteral("favorites"), kind.toLower(), id}),
                   favoring(request, false));
}

void TidalHandler::createNewPlaylist(CMSetDataRequest const& request, QString const& title,
                                     QString const& description)
{
    if (checkUser(request, KeloService_Tidal_Id()))
        sendPost(userPath(QStringLiteral("/playlists")), countryQuery(),
                 playlistBody(title, description), "on_newPlaylist_invoke", request);
}

void TidalHandler::updatePlaylist(CMSetDataRequest const& request, QString const& title,
                                  QString const& description, QString const& playlistId)
{
    if (!checkSession(request))
        return;
    // A form that was opened for no playlist is the service's to refuse; deliberate.
    const QString path = playlistId.isEmpty()
                             ? QStringLiteral("/playlists/")
                             : pathOf(request, {QStringLiteral("playlists"), playlistId});
    sendPost(path, countryQuery(), playlistBody(title, description), "on_updatePlaylist_invoke",
             request);
}

void TidalHandler::removePlaylist(CMSetDataRequest const& request, QString const& playlistId,
                                  QString const& etag)
{
    if (checkSession(request))
        sendDelete(pathOf(request, {QStringLiteral("playlists"), playlistId}), request,
                   tagHeaders(etag));
}

void TidalHandler::addToPlaylist(CMSetDataRequest const& request, QString const& playlistId,
                                 QString const& trackIds, QString const& etag, int toIndex)
{
    if (checkSession(request))
        sendPost(
            pathOf(request, {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks")}),
            countryQuery(),
            QStringLiteral("trackIds=") + formValue(trackIds) + QStringLiteral("&toIndex=") +
                QString::number(toIndex),
            answerSlot, repeatable(request, playlistId, trackIds), tagHeaders(etag));
}

void TidalHandler::removeFromPlaylist(CMSetDataRequest const& request, QString const& playlistId,
                                      QString const& indices, QString const& etag)
{
    if (checkSession(request))
        sendDelete(pathOf(request, {QStringLiteral("playlists"), playlistId,
                                    QStringLiteral("tracks"), indices}),
                   repeatable(request, playlistId, indices), tagHeaders(etag));
}

void TidalHandler::moveTrack(CMSetDataRequest const& request, QString const& index,
                             QString const& toIndex, QString const& playlistId, QString const& etag)
{
    // Without a country, alone among the requests; deliberate, the service asks for none here.
    if (checkSession(request))
        sendPost(pathOf(request,
                        {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks"), index}),
                 Query(), QStringLiteral("toIndex=") + formValue(toIndex),
                 "on_movePlaylistTrack_invoke", request, tagHeaders(etag));
}

void TidalHandler::loopPlaylistManipulation(CMSetDataRequest const& request,
                                            QString const& playlistId, QVariant const& argument)
{
    if (checkSession(request))
        sendGet(pathOf(request, {QStringLiteral("playlists"), playlistId}), countryQuery(),
                "on_playlistRepeatReponse_invoke", repeatable(request, playlistId, argument));
}

void TidalHandler::getTracksForPlaylists(CMSetDataRequest const& request, QString const& kind,
                                         QString const& id)
{
    if (checkSession(request))
        sendGet(pathOf(request, {kind.toLower(), id, QStringLiteral("tracks")}),
                countryQuery() + Query{{QStringLiteral("offset"), QStringLiteral("0")},
                                       {QStringLiteral("limit"), QStringLiteral("50")}},
                "on_addToPlaylistResponse_invoke", request);
}
