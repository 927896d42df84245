#include "TidalNodeResponder.h"
#include "TidalContextNode.h"
#include "TidalHandler.h"
#include "TidalRow.h"
#include "TidalWorker.h"
#include <kelo/CMSlot.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>
#include <limits>

namespace {
/// Status codes that the service's errors have a message for, in English (RFC 9110 15.5, 15.6).
QString messageOf(int status)
{
    switch (status) {
    case 400:
        return QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "Bad request"));
    case 401:
        return QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "Unauthorized"));
    case 404:
        return QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "Not found"));
    case 500:
        return QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "Unexpected error"));
    case 503:
        return QStringLiteral(
            QT_TRANSLATE_NOOP("TIDAL", "Service Unavailable: Back-end server is at capacity"));
    }
    return QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "unknown Error"));
}

/// Whether an answer says that the access token is no longer good. A 401 of 4000 to 4999 is about
/// playback, which no new token helps (the service's API).
bool isTokenRefused(int status, int subStatus)
{
    return status == 401 && (subStatus < 4000 || subStatus > 4999);
}
} // namespace

TidalNodeResponder::TidalNodeResponder(const QString&, TidalHandler* handler)
    : QObject(handler), m_handler(handler), m_worker(handler->getWorker())
{
    const QStringList roles = {
        KeloRoles::Path(),        KeloRoles::Type(),         KeloRoles::Title(),
        KeloRoles::Disabled(),    KeloRoles::MediaData(),    KeloRoles::Icon(),
        KeloRoles::Id(),          KeloRoles::AudioType(),    KeloRoles::Context(),
        KeloRoles::Description(), KeloRoles::ContainerType()};
    KELO_LOG("Tidal", DEBUG) << "Roles used in tidal: " << roles;
    connectWorker();
}

TidalNodeResponder::~TidalNodeResponder() = default;

void TidalNodeResponder::connectWorker()
{
    const struct
    {
        const char* signal;
        const char* slot;
        const char* arguments;
    } connections[] = {
        {"sessionsFinished", "on_tidalHandler_sessionsFinished",
         "KeloTidalApiSessionsResponse,KeloTidalApiErrorResponse"},
        {"subscriptionFinished", "on_tidalHandler_subscriptionFinished",
         "KeloTidalApiSubscriptionResponse,KeloTidalApiErrorResponse"},
        {"streamUrlFinished", "on_tidalHandler_streamUrl",
         "KeloTidalApiStreamUrlResponse,KeloTidalApiErrorResponse,CMSetDataRequest"},
        {"trackFinished", "on_tidalHandler_track",
         "KeloTidalApiTrackResponse,KeloTidalApiErrorResponse"},
        {"contentRootsFinishedMoods", "on_tidalHandler_contentRootsMoods",
         "KeloTidalApiContentRootsResponse,KeloTidalApiErrorResponse"},
        {"contentRootsFinishedGenres", "on_tidalHandler_contentRootsGenres",
         "KeloTidalApiContentRootsResponse,KeloTidalApiErrorResponse"},
        {"contentRootsFinishedFeatured", "on_tidalHandler_contentRootsFeatured",
         "KeloTidalApiContentRootsResponse,KeloTidalApiErrorResponse"},
        {"addRemovePlaylistFinished", "on_tidalHandler_finishedPlaylists",
         "CMSetDataRequest,KeloTidalContextVariation::Enum,KeloTidalApiErrorResponse,QVariant,"
         "QString,KeloTidalRequestType::Enum"},
        {"addRemoveFavoritesFinished", "on_tidalHandler_finishedFavorites",
         "CMSetDataRequest,KeloTidalContextVariation::Enum,KeloTidalApiErrorResponse"},
        {"newPlaylistFinished", "on_newPlaylist_invoke", "CMSetDataRequest,QString,QString"},
        {"updatePlaylistFinished", "on_updatePlaylist_invoke", "CMSetDataRequest"},
        {"movePlaylistTrackFinished", "on_movePlaylistTrack_invoke", "CMSetDataRequest"}};
    for (const auto& connection : connections) {
        const QByteArray arguments = QByteArray("(") + connection.arguments + ')';
        keloConnect(this, QByteArray("2") + connection.signal + arguments, m_worker,
                    QByteArray("1") + connection.slot + arguments, Qt::AutoConnection);
    }
}

int TidalNodeResponder::exactRows(CMGetRowsRequest const& request, int requestedCount,
                                  int receivedCount, int total)
{
    const qint64 from = request.from();
    const qint64 known = receivedCount + from;
    const int result = int(qMin<qint64>(known, std::numeric_limits<int>::max()));
    if (receivedCount < requestedCount && requestedCount + from == total) {
        KELO_LOG("Tidal", INFO) << "items missing at end" << requestedCount - receivedCount;
        return result;
    }
    if (known >= total || total >= request.to())
        return total;
    KELO_LOG("Tidal", INFO) << "items missing at end from start: " << total - receivedCount;
    return result;
}

QString TidalNodeResponder::resolveError(KeloTidalApiErrorResponse error, int status)
{
    const QString message = messageOf(status);
    KELO_LOG("Tidal", ERROR) << "Http response error: " << message << " code: " << status
                             << " sub status: " << error.subStatus()
                             << " user message: " << error.userMessage();
    return message;
}

void TidalNodeResponder::noteRefusal(const HttpClientPrivate& priv, int status,
                                     const KeloTidalApiErrorResponse& error)
{
    if (isTokenRefused(status, error.subStatus()))
        m_handler->reportRefusedToken(priv);
}

QVariantList TidalNodeResponder::noItemsRow(const QStringList& roles)
{
    return ownRow(roles, CMPath(), KeloRolesType::Text(), KELO_TR("No items found"));
}

QVariantList TidalNodeResponder::ownRow(const QStringList& roles, const CMPath& path,
                                        const QString& type, const TrString& title,
                                        const QString& id, const QVariant& context,
                                        const QString& description)
{
    QVariantList row = getVariantRole(roles, path, QString(), id, type, false, context, description,
                                      KeloRolesAudioType::None(), KeloMediaData(), QString(),
                                      KeloRolesContainerType::None());
    for (int i = 0; i < roles.size(); ++i) {
        if (roles.at(i) == KeloRoles::Title())
            row[i] = title.toVariant();
    }
    return row;
}

void TidalNodeResponder::replyNoItems(CMGetRowsRequest const& request)
{
    KeloRowsRoles answer;
    answer.setRowsCount(1);
    answer.setRows(QVariantList{QVariant(noItemsRow(request.roles()))});
    request.reply().setValue(answer);
}

KeloTidalRequestType::Enum TidalNodeResponder::getRequestType(CMPath const& path)
{
    struct Test
    {
        KeloTidalRequestType::Enum type;
        bool isWhole; ///< the base equals the text, rather than contains it
        const QString& text;
    };
    static const Test tests[] = {
        {KeloTidalRequestType::Sessions, true, KeloTidalApiPathSessions()},
        {KeloTidalRequestType::PrePlay, false, KeloTidalPrePlayPath()},
        {KeloTidalRequestType::Tracks, false, KeloTidalApiPathTracks()},
        {KeloTidalRequestType::Featured, true, KeloTidalApiPathFeatured()},
        {KeloTidalRequestType::Moods, true, KeloTidalApiPathMoods()},
        {KeloTidalRequestType::Genres, true, KeloTidalApiPathGenres()},
        {KeloTidalRequestType::Subscription, true, KeloTidalApiPathSubscription()},
        {KeloTidalRequestType::Favorites, false, KeloTidalApiPathFavorites()},
        {KeloTidalRequestType::AddToPlaylists, false, KeloTidalAddToPlaylists()},
        {KeloTidalRequestType::RemoveFromPlaylists, false, KeloTidalRemoveFromPlaylists()}};
    const QString& base = path.base();
    for (const Test& test : tests) {
        if (test.isWhole ? base == test.text : base.contains(test.text))
            return test.type;
    }
    return KeloTidalRequestType::None;
}

TidalNodeResponder::PathItemKind TidalNodeResponder::requestPathType(CMPath const& path)
{
    const QStringList segments = path.splitBase();
    const bool isContent = !path.param(QStringLiteral("contentId")).isEmpty();
    if (segments.contains(QLatin1String("tracks")))
        return Tracks;
    if (segments.contains(QLatin1String("albums")))
        return isContent ? Tracks : Albums;
    if (segments.contains(QLatin1String("playlists")))
        return isContent ? Tracks : Playlists;
    if (segments.contains(QLatin1String("artists")))
        return Artists;
    return Tracks;
}

KeloTidalContextVariation::Enum TidalNodeResponder::contextType(CMPath const& path)
{
    if (path.contains(KeloTidalRootPathMyMusic() + QLatin1String("/req/created")) ||
        path.contains(QStringLiteral("playlistcontext")) ||
        path.contains(QStringLiteral("myPlaylistTrackscontext"))) {
        const bool isTracks = !path.param(QStringLiteral("contentId")).isEmpty() ||
                              path.param(QStringLiteral("type")) == KeloTidalTracks();
        return isTracks ? KeloTidalContextVariation::PlaylistTracks
                        : KeloTidalContextVariation::Playlist;
    }
    if (path.contains(KeloTidalArtists().toLower()) &&
        path.param(QStringLiteral("artistContent")).isEmpty())
        return KeloTidalContextVariation::Base;
    if (path.contains(KeloTidalRootPathMyMusic()))
        return KeloTidalContextVariation::Browse;
    if (path.contains(QLatin1String("base") + KeloTidalContextIdentifier()))
        return KeloTidalContextVariation::Base;
    return KeloTidalContextVariation::Browse;
}

QVariant TidalNodeResponder::getContextRoles(QMap<QString, QString> const& params,
                                             KeloTidalContextVariation::Enum variation)
{
    if (variation < KeloTidalContextVariation::Browse ||
        variation > KeloTidalContextVariation::Base)
        return QVariant();
    TidalBaseContextNode* node = m_worker->contextNode(variation);
    return node ? node->getContextRoles(params) : QVariant();
}

QVariantList TidalNodeResponder::getVariantRole(QStringList const& roles, CMPath const& path,
                                                QString const& title, QString const& id,
                                                QString const& type, bool disabled,
                                                QVariant const& context, QString const& description,
                                                QString const& audioType,
                                                KeloMediaData const& mediaData, QString const& icon,
                                                QString containerType)
{
    using Row = TidalRow;
    Row row(roles);
    row.share(Row::Path, path.toEncoded());
    row.share(Row::Type, type);
    row.share(Row::Title, title);
    row.share(Row::Disabled, disabled);
    row.share(Row::MediaData, mediaData.toVariant());
    row.share(Row::Icon, icon.isEmpty() ? QVariant() : QVariant(icon));
    row.share(Row::Id, id);
    row.share(Row::AudioType, audioType);
    row.share(Row::Context, context);
    row.share(Row::Description, description);
    row.share(Row::ContainerType, containerType);
    row.share(Row::ContainerPlayable, type == KeloRolesType::Container());
    row.end();
    return row.take()->toList().constFirst().toList();
}

void TidalNodeResponder::on_response_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                            int status, int, QByteArray const& output,
                                            HttpClientHeaders)
{
    CMRequest request = priv.getCMGetRowsRequest();
    if (request.isNull())
        request = priv.getCMSetDataRequest();
    const CMPath path = request.isNull() ? CMPath() : request.path();

    KeloTidalApiErrorResponse error;
    if (status != 200 && status != 204) {
        error = KeloTidalApiErrorResponse(KeloJson::parse(output));
        resolveError(error, status);
        noteRefusal(priv, status, error);
        if (error.isEmpty())
            error.setUserMessage(
                QStringLiteral(QT_TRANSLATE_NOOP("TIDAL", "Error, failed to parse error message")));
    }
    const KeloJson answer = status == 200 ? KeloJson::parse(output) : KeloJson();
    m_answered = priv;
    emitFinished(getRequestType(path), path, priv, answer, error);
    m_answered = HttpClientPrivate();
}

bool TidalNodeResponder::isOfEarlierLogin() const
{
    return m_handler->isOfEarlierLogin(m_answered);
}

void TidalNodeResponder::emitFinished(KeloTidalRequestType::Enum type, const CMPath& path,
                                      const HttpClientPrivate& priv, const KeloJson& answer,
                                      const KeloTidalApiErrorResponse& error)
{
    KeloTidalApiContentRootsResponse roots;
    roots.setRoot(answer);
    switch (type) {
    case KeloTidalRequestType::Sessions:
        Q_EMIT sessionsFinished(KeloTidalApiSessionsResponse(answer), error);
        break;
    case KeloTidalRequestType::PrePlay:
        Q_EMIT streamUrlFinished(KeloTidalApiStreamUrlResponse(answer), error,
                                 priv.getCMSetDataRequest());
        break;
    case KeloTidalRequestType::Tracks:
        Q_EMIT trackFinished(KeloTidalApiTrackResponse(answer), error);
        break;
    case KeloTidalRequestType::Featured:
        Q_EMIT contentRootsFinishedFeatured(roots, error);
        break;
    case KeloTidalRequestType::Moods:
        Q_EMIT contentRootsFinishedMoods(roots, error);
        break;
    case KeloTidalRequestType::Genres:
        Q_EMIT contentRootsFinishedGenres(roots, error);
        break;
    case KeloTidalRequestType::Subscription:
        Q_EMIT subscriptionFinished(KeloTidalApiSubscriptionResponse(answer), error);
        break;
    case KeloTidalRequestType::Favorites:
        Q_EMIT addRemoveFavoritesFinished(priv.getCMSetDataRequest(), contextType(path), error);
        break;
    case KeloTidalRequestType::AddToPlaylists:
    case KeloTidalRequestType::RemoveFromPlaylists:
        emitPlaylistFinished(type, path, priv, error);
        break;
    case KeloTidalRequestType::None:
        KELO_LOG("Tidal", WARN) << "Answer to a request of no known kind: " << path;
        break;
    }
}

void TidalNodeResponder::emitPlaylistFinished(KeloTidalRequestType::Enum type, const CMPath& path,
                                              const HttpClientPrivate& priv,
                                              const KeloTidalApiErrorResponse& error)
{
    QVariant value;
    QString segment;
    const CMSetDataRequest secondary(priv.getCMRequestSec());
    if (!secondary.isNull()) {
        value = secondary.value();
        segment = secondary.path().splitBase().value(2);
    }
    Q_EMIT addRemovePlaylistFinished(priv.getCMSetDataRequest(), contextType(path), error, value,
                                     segment, type);
}
