// Changes of the user's library: favorites, playlists and what is in them.
#include "TidalHandler.h"
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloUrl.h>

namespace {
constexpr int editTimeoutMs = 30000;
constexpr int editReadSizeLimit = 65536;

const char* const answerMember = "on_response_invoke";

HttpClientPrivate userDataOf(const CMRequest& request)
{
    return HttpClientPrivate(HttpClientPrivate::Data(request));
}

/// User data of an edit that may have to be sent again: the second request carries the playlist, as
/// the third segment of its path, and what the edit is about.
HttpClientPrivate userDataOf(const CMSetDataRequest& request, const QString& playlistId,
                             const QVariant& argument)
{
    const CMPath path(KeloTidalRequest() + QStringLiteral("/playlists/") + playlistId);
    const CMSetDataRequest secondary(path, KeloRoles::Id(), argument, CMVoidReply());
    return HttpClientPrivate(HttpClientPrivate::Data(request, secondary));
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

bool TidalHandler::checkUser(const CMRequest& request, const QString& domain,
                             const TrString& errorText) const
{
    if (m_account.userId() != 0)
        return true;
    request.reply().setError(CMError(domain, errorText));
    return false;
}

void TidalHandler::sendPost(const QString& path, Query query, QString body, const char* member,
                            const HttpClientPrivate& userData, const HttpClientHeaders& headers)
{
    if (path.isEmpty())
        return;
    post(path, query, body, &m_responder, member, userData, editTimeoutMs, headers,
         editReadSizeLimit);
}

void TidalHandler::sendDelete(const QString& path, Query query, const HttpClientPrivate& userData,
                              const HttpClientHeaders& headers)
{
    if (path.isEmpty())
        return;
    deleteCall(path, query, &m_responder, answerMember, userData, editTimeoutMs, headers,
               editReadSizeLimit);
}

void TidalHandler::on_isFavorite_invoke(CMGetDataRequest const& request,
                                        CMSetDataRequest const& prepared, QString const& kind)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")) ||
        !checkUser(request, QStringLiteral("TIDAL"),
                   KELO_TR("User not logged in. Cannot get favorites")))
        return;
    if (!favoriteKey(kind)) {
        request.reply().setError(
            CMError(QStringLiteral("TIDAL"), KELO_TR("This cannot be a favorite")));
        return;
    }
    Query query = countryQuery();
    query.append({QStringLiteral("limit"), QStringLiteral("50")});
    sendGet(userPathOf(request, {QStringLiteral("favorites"), kind.toLower()}), query,
            "on_isFavoriteReponse_invoke",
            HttpClientPrivate(HttpClientPrivate::Data(request, prepared)));
}

void TidalHandler::on_addToFavorites_invoke(CMSetDataRequest const& request, QString const& kind,
                                            QString const& id)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")) ||
        !checkUser(request, KeloService_Tidal_Id(),
                   KELO_TR("User not logged in. Cannot get favorites")))
        return;
    const char* const key = favoriteKey(kind);
    if (!key) {
        request.reply().setError(
            CMError(KeloService_Tidal_Id(), KELO_TR("This cannot be a favorite")));
        return;
    }
    // What no address could take away again is not put there either.
    if (pathOf(request, {id}).isEmpty())
        return;
    sendPost(userPathOf(request, {QStringLiteral("favorites"), kind.toLower()}), countryQuery(),
             QLatin1String(key) + formValue(id), answerMember, userDataOf(request),
             HttpClientHeaders());
}

void TidalHandler::on_removeFromFavorites_invoke(CMSetDataRequest const& request,
                                                 QString const& kind, QString const& id)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")) ||
        !checkUser(request, KeloService_Tidal_Id(),
                   KELO_TR("User not logged in. Cannot get favorites")))
        return;
    if (!favoriteKey(kind)) {
        request.reply().setError(
            CMError(KeloService_Tidal_Id(), KELO_TR("This cannot be a favorite")));
        return;
    }
    sendDelete(userPathOf(request, {QStringLiteral("favorites"), kind.toLower(), id}),
               countryQuery(), userDataOf(request), HttpClientHeaders());
}

void TidalHandler::createNewPlaylist(CMSetDataRequest const& request, QString const& title,
                                     QString const& description)
{
    // The words about favorites are deliberate: all that belongs to the user is refused alike.
    if (!checkAccessToken(request, KELO_TR("Access token is not set")) ||
        !checkUser(request, KeloService_Tidal_Id(),
                   KELO_TR("User not logged in. Cannot get favorites")))
        return;
    sendPost(userPath(QStringLiteral("/playlists")), countryQuery(),
             playlistBody(title, description), "on_newPlaylist_invoke", userDataOf(request),
             HttpClientHeaders());
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
             userDataOf(request), HttpClientHeaders());
}

void TidalHandler::removePlaylist(CMSetDataRequest const& request, QString const& playlistId,
                                  QString const& etag)
{
    if (!checkSession(request))
        return;
    sendDelete(pathOf(request, {QStringLiteral("playlists"), playlistId}), countryQuery(),
               userDataOf(request), tagHeaders(etag));
}

void TidalHandler::addToPlaylist(CMSetDataRequest const& request, QString const& playlistId,
                                 QString const& trackIds, QString const& etag, int toIndex)
{
    if (!checkSession(request))
        return;
    const QString body = QStringLiteral("trackIds=") + formValue(trackIds) +
                         QStringLiteral("&toIndex=") + QString::number(toIndex);
    sendPost(pathOf(request, {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks")}),
             countryQuery(), body, answerMember, userDataOf(request, playlistId, trackIds),
             tagHeaders(etag));
}

void TidalHandler::removeFromPlaylist(CMSetDataRequest const& request, QString const& playlistId,
                                      QString const& indices, QString const& etag)
{
    if (!checkSession(request))
        return;
    sendDelete(pathOf(request,
                      {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks"), indices}),
               countryQuery(), userDataOf(request, playlistId, indices), tagHeaders(etag));
}

void TidalHandler::moveTrack(CMSetDataRequest const& request, QString const& index,
                             QString const& toIndex, QString const& playlistId, QString const& etag)
{
    if (!checkSession(request))
        return;
    // Without a country, alone among the requests; deliberate, the service asks for none here.
    sendPost(
        pathOf(request, {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks"), index}),
        Query(), QStringLiteral("toIndex=") + formValue(toIndex), "on_movePlaylistTrack_invoke",
        userDataOf(request), tagHeaders(etag));
}

void TidalHandler::loopPlaylistManipulation(CMSetDataRequest const& request,
                                            QString const& playlistId, QVariant const& argument)
{
    if (!checkSession(request))
        return;
    sendGet(pathOf(request, {QStringLiteral("playlists"), playlistId}), countryQuery(),
            "on_playlistRepeatReponse_invoke", userDataOf(request, playlistId, argument));
}

void TidalHandler::getTracksForPlaylists(CMSetDataRequest const& request, QString const& kind,
                                         QString const& id)
{
    if (!checkSession(request))
        return;
    Query query = countryQuery();
    query.append({QStringLiteral("offset"), QStringLiteral("0")});
    query.append({QStringLiteral("limit"), QStringLiteral("50")});
    sendGet(pathOf(request, {kind.toLower(), id, QStringLiteral("tracks")}), query,
            "on_addToPlaylistResponse_invoke", userDataOf(request));
}
