#include "TidalHandler.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// The service is never asked for more items at a time.
constexpr int maxPageSize = 50;
/// Rows of the module's own that lead a list inside a context menu.
constexpr int contextLeadRows = 2;

const char* const rowsMember = "on_baseResponse_invoke";

QString limitOf(const CMGetRowsRequest& request)
{
    const qint64 count = qint64(request.to()) - request.from() + 1;
    return QString::number(qBound<qint64>(0, count, maxPageSize));
}

void addItem(TidalHandler::Query& query, const char* key, const QString& value)
{
    query.append({QLatin1String(key), value});
}

void addPaging(TidalHandler::Query& query, const CMGetRowsRequest& request)
{
    addItem(query, "offset", QString::number(request.from()));
    addItem(query, "limit", limitOf(request));
}

QString orderText(const KeloTidalBrowseSetting& setting)
{
    return KeloTidalOrder::toString(setting.order()).toUpper();
}

QString directionText(const KeloTidalBrowseSetting& setting)
{
    return KeloTidalOrderDirection::toString(setting.orderDirection()).toUpper();
}

QString filterText(const KeloTidalBrowseSetting& setting)
{
    return KeloTidalFilter::toString(setting.filter()).toUpper();
}

/// Whether the service can order a list of the user's by this.
bool isOrderOf(KeloTidalOrder::Enum order, const QString& type)
{
    switch (order) {
    case KeloTidalOrder::Album_:
    case KeloTidalOrder::Length_:
        return type == KeloTidalTracks().toLower();
    case KeloTidalOrder::ReleaseDate_:
        return type == KeloTidalAlbums().toLower();
    case KeloTidalOrder::Artist_:
        return type != KeloTidalPlaylists().toLower() && type != KeloTidalArtists().toLower();
    default:
        return true;
    }
}

/// The first item to ask for: lists inside a context menu begin with rows that the service does not
/// know.
int offsetOf(const CMGetRowsRequest& request)
{
    if (!request.path().contains(KeloTidalContextIdentifier()))
        return request.from();
    return qMax(request.from(), contextLeadRows) - contextLeadRows;
}

HttpClientPrivate userDataOf(const CMRequest& request)
{
    return HttpClientPrivate(HttpClientPrivate::Data(request));
}
} // namespace

void TidalHandler::baseRequest(CMGetRowsRequest const& request, QString const& type,
                               QString const& id, QString const& list)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    static const QStringList types = {QStringLiteral("featured"), QStringLiteral("moods"),
                                      QStringLiteral("genres"),   QStringLiteral("discovery"),
                                      QStringLiteral("rising"),   QStringLiteral("master")};
    if (!types.contains(type)) {
        KELO_LOG("Tidal", WARN) << "Invalid type" << type;
        request.reply().setValue(KeloRowsRoles());
        return;
    }
    if (m_account.countryCode().isEmpty()) {
        KELO_LOG("Tidal", WARN)
            << "TIDAL application country Code is empty. Maybe you are not logged in.";
        request.reply().setError(CMError(
            QStringLiteral("TIDAL"),
            KELO_TR("TIDAL application country Code is empty. Maybe you are not logged in.")));
        return;
    }
    Query query = countryQuery();
    addPaging(query, request);
    sendGet(pathOf(request, {type, id, list}), query, rowsMember, userDataOf(request));
}

void TidalHandler::getAlbumTracks(CMGetRowsRequest const& request, QString const& albumId)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    Query query = countryQuery();
    addPaging(query, request);
    sendGet(pathOf(request, {QStringLiteral("albums"), albumId, QStringLiteral("tracks")}), query,
            rowsMember, userDataOf(request));
}

void TidalHandler::search(CMGetRowsRequest const& request, QString const& query,
                          QString const& type)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    Query items;
    addItem(items, "query", query);
    items += countryQuery();
    addPaging(items, request);
    sendGet(pathOf(request, {QStringLiteral("search"), type}), items, rowsMember,
            userDataOf(request));
}

void TidalHandler::getArtist(CMGetRowsRequest request, QString const& artistId)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    sendGet(pathOf(request, {QStringLiteral("artists"), artistId}), countryQuery(),
            "on_artistResponse_invoke", userDataOf(request));
}

void TidalHandler::getArtistContent(CMGetRowsRequest request, QString const& artistId,
                                    QString const& content, QString const& filter)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal")
        << "artistId: " << artistId << " content: " << content << " filter: " << filter;
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    Query query = countryQuery();
    addItem(query, "offset", QString::number(request.from()));
    addItem(query, "filter", filter);
    // The radio is kept whole, so it is asked for whole.
    addItem(query, "limit",
            content == KeloTidalArtistRadio() ? QString::number(maxPageSize) : limitOf(request));
    sendGet(pathOf(request, {QStringLiteral("artists"), artistId, content}), query,
            "on_artistContentResponse_invoke", userDataOf(request));
}

void TidalHandler::getArtistBio(CMSetDataRequest request, QString const& artistId)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    sendGet(pathOf(request, {QStringLiteral("artists"), artistId, QStringLiteral("bio")}),
            countryQuery(), "on_artistBioResponse_invoke", userDataOf(request));
}

void TidalHandler::getPlaylistTracks(CMGetRowsRequest const& request, QString const& playlistId,
                                     KeloTidalBrowseSetting const& setting, QString marker)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    Query query = countryQuery();
    addItem(query, "order", orderText(setting));
    addItem(query, "orderDirection", directionText(setting));
    addPaging(query, request);
    HttpClientPrivate userData = userDataOf(request);
    if (!marker.isEmpty()) {
        const CMSetDataRequest secondary(request.path(), KeloRoles::Id(), marker, CMVoidReply());
        userData = HttpClientPrivate(HttpClientPrivate::Data(request, secondary));
    }
    sendGet(pathOf(request, {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks")}),
            query, rowsMember, userData);
}

void TidalHandler::getMyMusic(CMGetRowsRequest const& request, QString const& type,
                              QString const& group, KeloTidalBrowseSetting* setting)
{
    if (!checkAccessToken(request, KELO_TR("Access token is not set")))
        return;
    if (m_account.userId() == 0) {
        KELO_LOG("Tidal", WARN) << "Missing user Id. Cannot get favorites";
        request.reply().setError(CMError(KELO_TR("Missing user Id. Cannot get favorites")));
        return;
    }
    Query query = countryQuery();
    addItem(query, "offset", QString::number(offsetOf(request)));
    addItem(query, "orderDirection", directionText(*setting));
    addItem(query, "limit", limitOf(request));
    if (isOrderOf(setting->order(), type))
        addItem(query, "order", orderText(*setting));
    addItem(query, "filter", filterText(*setting));
    const bool isFavorites = group == QLatin1String("favorites");
    sendGet(isFavorites ? userPathOf(request, {group, type}) : userPathOf(request, {type}), query,
            rowsMember, userDataOf(request));
}

void TidalHandler::getContentRoots(QString const& type)
{
    if (!checkAccessToken(CMRequest(), TrString()))
        return;
    static const QStringList types = {QStringLiteral("featured"), QStringLiteral("moods"),
                                      QStringLiteral("genres")};
    if (!types.contains(type)) {
        // The placeholder is deliberate: readers of logs rely on it.
        KELO_LOG("Tidal", WARN) << "Invalid type %s" << type;
        return;
    }
    const QString path = QLatin1Char('/') + type;
    sendGet(path, countryQuery(), "on_response_invoke", syntheticRequest(path));
}
