#include "ModuleWorld.h"
#include <gtest/gtest.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>

namespace {
CMGetRowsRequest rowsRequest(const char* path, int from, int to)
{
    return CMGetRowsRequest(CMPath(QLatin1String(path)), from, to, {KeloRoles::Title()});
}

KeloTidalBrowseSetting setting(int order, int direction, int filter)
{
    KeloTidalBrowseSetting result;
    result.setOrder(KeloTidalOrder::Enum(order));
    result.setOrderDirection(KeloTidalOrderDirection::Enum(direction));
    result.setFilter(KeloTidalFilter::Enum(filter));
    return result;
}

struct Wire
{
    const char* name;
    const char* path; ///< below the API's base; "USER" stands for the user's id
    const char* query;
    std::function<void(TidalHandler&)> send;
};

void listOf(TidalHandler& handler, const char* type, int order, int filter = 0)
{
    KeloTidalBrowseSetting chosen = setting(order, 1, filter);
    handler.getMyMusic(rowsRequest("/tidal/x", 0, 9), QLatin1String(type),
                       QStringLiteral("favorites"), &chosen);
}

const QString id = QStringLiteral("123");
using Qualities = KeloTidalSoundQualities;
} // namespace

TEST(Handler, SendsPathsAndQueryItemsInOrder)
{
    ModuleWorld world;
    const QString user = QString::number(world.worker()->getHandler()->getAccount().userId());
    const Wire wires[] = {
        {"base", "/featured/new/albums", "countryCode=NO&offset=0&limit=50",
         [](TidalHandler& h) {
             h.baseRequest(rowsRequest("/x", 0, 99), QStringLiteral("featured"),
                           QStringLiteral("new"), QStringLiteral("albums"));
         }},
        {"album", "/albums/123/tracks", "countryCode=NO&offset=10&limit=5",
         [](TidalHandler& h) { h.getAlbumTracks(rowsRequest("/x", 10, 14), id); }},
        {"search", "/search/tracks", "query=AC/DC & \u00e5&countryCode=NO&offset=0&limit=1",
         [](TidalHandler& h) {
             h.search(rowsRequest("/x", 0, 0), QStringLiteral("AC/DC & \u00e5"),
                      QStringLiteral("tracks"));
         }},
        {"artist", "/artists/123", "countryCode=NO",
         [](TidalHandler& h) { h.getArtist(rowsRequest("/x", 0, 9), id); }},
        {"artist albums", "/artists/123/albums", "countryCode=NO&offset=0&filter=ALBUMS&limit=10",
         [](TidalHandler& h) {
             h.getArtistContent(rowsRequest("/x", 0, 9), id, KeloTidalArtistAlbums(),
                                QStringLiteral("ALBUMS"));
         }},
        {"radio", "/artists/123/radio", "countryCode=NO&offset=0&filter=&limit=50",
         [](TidalHandler& h) {
             h.getArtistContent(rowsRequest("/x", 0, 9), id, KeloTidalArtistRadio(), QString());
         }},
        {"bio", "/artists/123/bio", "countryCode=NO",
         [](TidalHandler& h) {
             h.getArtistBio(CMSetDataRequest(CMPath(QStringLiteral("/x")), QString(), 1), id);
         }},
        {"playlist", "/playlists/u-1/tracks",
         "countryCode=NO&order=INDEX&orderDirection=DESC&offset=50&limit=50",
         [](TidalHandler& h) {
             h.getPlaylistTracks(rowsRequest("/x", 50, 99), QStringLiteral("u-1"), setting(5, 1, 0),
                                 QString());
         }},
        {"created", "/users/USER/playlists",
         "countryCode=NO&offset=0&orderDirection=ASC&limit=50&order=NAME&filter=PRIVATE",
         [](TidalHandler& h) {
             KeloTidalBrowseSetting chosen = setting(0, 0, 2);
             h.getMyMusic(rowsRequest("/tidal/context/req", 2, 51), QStringLiteral("playlists"),
                          QStringLiteral("created"), &chosen);
         }},
        {"shifted only in menus", "/users/USER/favorites/tracks",
         "countryCode=NO&offset=2&orderDirection=ASC&limit=50&order=LENGTH&filter=PUBLIC",
         [](TidalHandler& h) {
             KeloTidalBrowseSetting chosen = setting(4, 0, 1);
             h.getMyMusic(rowsRequest("/tidal/myMusic", 2, 51), QStringLiteral("tracks"),
                          QStringLiteral("favorites"), &chosen);
         }},
        {"track", "/tracks/123", "countryCode=NO",
         [](TidalHandler& h) {
             EXPECT_TRUE(h.track(CMSetDataRequest(CMPath(QStringLiteral("/tracks")), {}, 1), id));
         }},
        {"stream", "/tracks/123/playbackinfopostpaywall",
         "countryCode=NO&playbackmode=STREAM&assetpresentation=FULL&audioquality=LOSSLESS",
         [](TidalHandler& h) {
             h.setAccountSoundQuality(Qualities::LOSSLESS_);
             h.streamUrl(id, CMSetDataRequest(CMPath(QStringLiteral("/prePlay/123")), {}, 1),
                         Qualities::HI_RES_, false);
         }},
        {"lower quality stays", "/tracks/124/playbackinfopostpaywall",
         "countryCode=NO&playbackmode=OFFLINE&assetpresentation=FULL&audioquality=HIGH",
         [](TidalHandler& h) {
             h.streamUrl(QStringLiteral("124"),
                         CMSetDataRequest(CMPath(QStringLiteral("/prePlay/124")), {}, 1),
                         Qualities::HIGH_, true);
         }},
        {"session", "/sessions", "", [](TidalHandler& h) { EXPECT_TRUE(h.retrieveSession()); }},
        {"subscription", "/users/USER/subscription", "",
         [](TidalHandler& h) { EXPECT_TRUE(h.subscribe()); }},
        {"roots", "/moods", "countryCode=NO",
         [](TidalHandler& h) { h.getContentRoots(QStringLiteral("moods")); }},
    };
    for (const Wire& wire : wires) {
        SCOPED_TRACE(wire.name);
        const QString path = QString::fromUtf8(wire.path).replace(QLatin1String("USER"), user);
        const QJsonObject arrived = world.sent(path, wire.send);
        EXPECT_EQ(arrived.value(QLatin1String("method")).toString(), QStringLiteral("GET"));
        EXPECT_EQ(queryText(arrived), QString::fromUtf8(wire.query));
        bool hasToken = false;
        for (const QJsonValue& header : arrived.value(QLatin1String("headers")).toArray()) {
            const QString name = header.toArray().at(0).toString();
            hasToken |= name.compare(QLatin1String("Authorization"), Qt::CaseInsensitive) == 0 &&
                        header.toArray().at(1).toString().startsWith(QLatin1String("Bearer "));
        }
        EXPECT_TRUE(hasToken);
    }
}

TEST(Handler, OrdersListsOnlyByWhatTheServiceCanOrderThemBy)
{
    ModuleWorld world;
    const QString user = QString::number(world.worker()->getHandler()->getAccount().userId());
    const struct
    {
        int order;
        const char* lists; ///< the initials of those that are ordered
    } table[] = {{0, "palt"}, {1, "palt"}, {2, "lt"}, {3, "t"}, {4, "t"}, {5, "palt"}, {6, "l"}};
    const struct
    {
        char initial;
        const char* type;
    } types[] = {{'p', "playlists"}, {'a', "artists"}, {'l', "albums"}, {'t', "tracks"}};
    for (const auto& row : table) {
        for (const auto& type : types) {
            const QString path = QStringLiteral("/users/%1/favorites/%2").arg(user, type.type);
            const QString query = queryText(
                world.sent(path, [&](TidalHandler& h) { listOf(h, type.type, row.order); }));
            const bool isOrdered = QByteArray(row.lists).contains(type.initial);
            EXPECT_EQ(query.contains(QLatin1String("&order=")), isOrdered)
                << row.order << " " << type.type;
            EXPECT_TRUE(query.endsWith(QLatin1String("&filter=ALL"))) << query.toStdString();
        }
    }
}

TEST(Handler, AnswersWhatItCannotSend)
{
    ModuleWorld world;
    TidalHandler* handler = world.worker()->getHandler();
    CMGetRowsRequest unknown = rowsRequest("/x", 0, 9);
    CMGetRowsRequest noUser = rowsRequest("/x", 0, 9);
    CMGetRowsRequest noCountry = rowsRequest("/x", 0, 9);
    CMSetDataRequest noTrack(CMPath(QStringLiteral("/x")), QString(), 1);
    world.onWorker([&] {
        handler->baseRequest(unknown, QStringLiteral("Featured"), QString(), QString());
        EXPECT_FALSE(handler->track(noTrack, QString()));
        handler->resetAccount();
        KeloTidalBrowseSetting chosen;
        handler->getMyMusic(noUser, QStringLiteral("albums"), QStringLiteral("favorites"), &chosen);
        handler->baseRequest(noCountry, QStringLiteral("featured"), QString(), QString());
    });
    EXPECT_TRUE(unknown.reply().isFinished());
    EXPECT_FALSE(unknown.reply().error().isSet());
    EXPECT_TRUE(unknown.reply().value().isEmpty());
    EXPECT_EQ(noTrack.reply().error().message(), QStringLiteral("Missing track ID"));
    EXPECT_EQ(noUser.reply().error().message(),
              QStringLiteral("Missing user Id. Cannot get favorites"));
    EXPECT_EQ(noCountry.reply().error().name(), QStringLiteral("TIDAL"));
    EXPECT_EQ(
        noCountry.reply().error().message(),
        QStringLiteral("TIDAL application country Code is empty. Maybe you are not logged in."));
}

TEST(Handler, SendsNothingWithoutAToken)
{
    ModuleWorld world;
    CMPath tokenPath = KeloOAuth2ServicePath();
    tokenPath.appendSubpath(KeloTidalName());
    tokenPath.appendSubpath(KeloOAuth2AccessTokenSubPath());
    KeloValue none;
    none.setString(QString());
    world.host()->setValue(tokenPath, none);
    TidalHandler* handler = world.worker()->getHandler();
    CMGetRowsRequest request = rowsRequest("/x", 0, 9);
    CMSetDataRequest stream(CMPath(QStringLiteral("/x")), QString(), 1);
    world.onWorker([&] {
        handler->getAlbumTracks(request, id);
        EXPECT_FALSE(handler->streamUrl(id, stream, Qualities::LOW_, false));
        EXPECT_FALSE(handler->retrieveSession());
        EXPECT_FALSE(handler->subscribe());
    });
    EXPECT_EQ(request.reply().error().message(), QStringLiteral("Access token is not set"));
    EXPECT_EQ(stream.reply().error().message(), QStringLiteral("Access token is not set"));
}
