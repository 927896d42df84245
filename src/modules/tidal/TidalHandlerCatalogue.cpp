#include "TidalHandler.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// The service is never asked for more items at a time.
constexpr int maxPageSize = 50;
/// Rows of the module's own that lead a list inside a context menu.
constexpr int contextLeadRows = 2;

const char* const rowsSlot = "on_baseResponse_invoke";

QString limitOf(const CMGetRowsRequest& request)
{
    const qint64 count = qint64(request.to()) - request.from() + 1;
    return QString::number(qBound<qint64>(0, count, maxPageSize));
}

TidalHandler::Query item(const char* key, const QString& value)
{
    return {{QLatin1String(key), value}};
}

TidalHandler::Query paging(const CMGetRowsRequest& request)
{
    return item("offset", QString::number(request.from())) + item("limit", limitOf(request));
}

TidalHandler::Query order(const KeloTidalBrowseSetting& setting)
{
    return item("order", KeloTidalOrder::toString(setting.order()).toUpper());
}

TidalHandler::Query orderDirection(const KeloTidalBrowseSetting& setting)
{
    return item("orderDirection",
                KeloTidalOrderDirection::toString(setting.orderDirection()).toUpper());
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
} // namespace

void TidalHandler::baseRequest(CMGetRowsRequest const& request, QString const& type,
                               QString const& id, QString const& list)
{
    if (!checkAccessToken(request))
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
    sendGet(pathOf(request, {type, id, list}), countryQuery() + paging(request), rowsSlot, request);
}

void TidalHandler::getAlbumTracks(CMGetRowsRequest const& request, QString const& albumId)
{
    if (checkAccessToken(request))
        sendGet(pathOf(request, {QStringLiteral("albums"), albumId, QStringLiteral("tracks")}),
                countryQuery() + paging(request), rowsSlot, request);
}

void TidalHandler::search(CMGetRowsRequest const& request, QString const& query,
                          QString const& type)
{
    if (checkAccessToken(request))
        sendGet(pathOf(request, {QStringLiteral("search"), type}),
                item("query", query) + countryQuery() + paging(request), rowsSlot, request);
}

void TidalHandler::getArtist(CMGetRowsRequest request, QString const& artistId)
{
    if (checkAccessToken(request))
        sendGet(pathOf(request, {QStringLiteral("artists"), artistId}), countryQuery(),
                "on_artistResponse_invoke", request);
}

void TidalHandler::getArtistContent(CMGetRowsRequest request, QString const& artistId,
                                    QString const& content, QString const& filter)
{
    dbglog_scopedFunction(Q_FUNC_INFO, "Tidal")
        << "artistId: " << artistId << " content: " << content << " filter: " << filter;
    if (!checkAccessToken(request))
        return;
    // The radio is kept whole, so it is asked for whole.
    const bool isRadio = content == KeloTidalArtistRadio();
    sendGet(pathOf(request, {QStringLiteral("artists"), artistId, content}),
            countryQuery() + item("offset", QString::number(request.from())) +
                item("filter", filter) +
                item("limit", isRadio ? QString::number(maxPageSize) : limitOf(request)),
            "on_artistContentResponse_invoke", request);
}

void TidalHandler::getArtistBio(CMSetDataRequest request, QString const& artistId)
{
    if (checkAccessToken(request))
        sendGet(pathOf(request, {QStringLiteral("artists"), artistId, QStringLiteral("bio")}),
                countryQuery(), "on_artistBioResponse_invoke", request);
}

void TidalHandler::getPlaylistTracks(CMGetRowsRequest const& request, QString const& playlistId,
                                     KeloTidalBrowseSetting const& setting, QString marker)
{
    if (!checkAccessToken(request))
        return;
    CMSetDataRequest secondary;
    if (!marker.isEmpty())
        secondary = CMSetDataRequest(request.path(), KeloRoles::Id(), marker, CMVoidReply());
    sendGet(pathOf(request, {QStringLiteral("playlists"), playlistId, QStringLiteral("tracks")}),
            countryQuery() + order(setting) + orderDirection(setting) + paging(request), rowsSlot,
            {request, secondary});
}

void TidalHandler::getMyMusic(CMGetRowsRequest const& request, QString const& type,
                              QString const& group, KeloTidalBrowseSetting* setting)
{
    if (!checkAccessToken(request))
        return;
    if (m_account.userId() == 0) {
        KELO_LOG("Tidal", WARN) << "Missing user Id. Cannot get favorites";
        request.reply().setError(CMError(KELO_TR("Missing user Id. Cannot get favorites")));
        return;
    }
    Query query = countryQuery() + item("offset", QString::number(offsetOf(request))) +
                  orderDirection(*setting) + item("limit", limitOf(request));
    if (isOrderOf(setting->order(), type))
        query += order(*setting);
    query += item("filter", KeloTidalFilter::toString(setting->filter()).toUpper());
    const bool isFavorites = group == QLatin1String("favorites");
    sendGet(isFavorites ? userPathOf(request, {group, type}) : userPathOf(request, {type}), query,
            rowsSlot, request);
}

void TidalHandler::getContentRoots(QString const& type)
{
    if (!checkAccessToken())
        return;
    static const QStringList types = {QStringLiteral("featured"), QStringLiteral("moods"),
                                      QStringLiteral("genres")};
    if (!types.contains(type)) {
        // The placeholder is deliberate: readers of logs rely on it.
        KELO_LOG("Tidal", WARN) << "Invalid type %s" << type;
        return;
    }
    const QString path = QLatin1Char('/') + type;
    sendGet(path, countryQuery(), answerSlot, syntheticRequest(path));
}
