#include "ModuleWorld.h"
#include <gtest/gtest.h>
#include <kelo/KeloTidalConstants.h>
#include <limits>

namespace {
CMPath encoded(const char* text)
{
    return CMPath::fromEncoded(QLatin1String(text));
}
} // namespace

/// The tests of this file share a module: none changes it.
class Responder : public testing::Test
{
protected:
    static void SetUpTestSuite() { world = new ModuleWorld; }
    static void TearDownTestSuite()
    {
        delete world;
        world = nullptr;
    }
    TidalNodeResponder* responder() { return world->worker()->getHandler()->responder(); }

    static ModuleWorld* world;
};
ModuleWorld* Responder::world = nullptr;

TEST_F(Responder, TellsHowFarAListReaches)
{
    constexpr int most = std::numeric_limits<int>::max();
    const struct
    {
        int from, to, received, total, expected;
    } table[] = {
        {0, 49, 50, 120, 120}, {100, 149, 20, 150, 120},
        {0, 49, 10, 30, 10},   {0, 49, 30, 30, 30},
        {0, 49, 48, 50, 48},   {10, 19, 10, 15, 15},
        {0, 49, 0, 120, 120},  {0, 0, 1, 1, 1},
        {most, most, 1, 5, 5}, {most - 1, most, 2, most, most},
    };
    for (const auto& row : table) {
        const CMGetRowsRequest request(CMPath(), row.from, row.to, {});
        const int requested = int(qint64(row.to) - row.from + 1);
        EXPECT_EQ(responder()->exactRows(request, requested, row.received, row.total), row.expected)
            << row.from << "-" << row.to << " received " << row.received << " of " << row.total;
    }
}

TEST_F(Responder, TypesPaths)
{
    using Type = KeloTidalRequestType;
    using Kind = TidalNodeResponder;
    using Menu = KeloTidalContextVariation;
    const struct
    {
        const char* path;
        int type;
        int kind;
        int menu;
    } table[] = {
        {"/sessions", Type::Sessions, Kind::Tracks, Menu::Browse},
        {"/sessions/1", Type::None, Kind::Tracks, Menu::Browse},
        {"/tidal/prePlay/1", Type::PrePlay, Kind::Tracks, Menu::Browse},
        {"/tracks?trackId=1", Type::Tracks, Kind::Tracks, Menu::Browse},
        {"/featured", Type::Featured, Kind::Tracks, Menu::Browse},
        {"/moods", Type::Moods, Kind::Tracks, Menu::Browse},
        {"/genres", Type::Genres, Kind::Tracks, Menu::Browse},
        {"/subscription", Type::Subscription, Kind::Tracks, Menu::Browse},
        {"/tidal/context/favorites", Type::Favorites, Kind::Tracks, Menu::Browse},
        {"/tidal/context/addToPlaylists", Type::AddToPlaylists, Kind::Tracks, Menu::Browse},
        {"/tidal/playlistcontext/removeFromPlaylists", Type::RemoveFromPlaylists, Kind::Tracks,
         Menu::Playlist},
        {"/tidal/playlistcontext/x?type=Tracks", Type::None, Kind::Tracks, Menu::PlaylistTracks},
        {"/tidal/req/featured/new/albums", Type::None, Kind::Albums, Menu::Browse},
        {"/tidal/req/albums?contentId=1", Type::None, Kind::Tracks, Menu::Browse},
        {"/albums/1/tracks", Type::Tracks, Kind::Tracks, Menu::Browse},
        {"/tidal/req/genres/Soundtracks/albums", Type::None, Kind::Albums, Menu::Browse},
        {"/tidal/req/playlists", Type::None, Kind::Playlists, Menu::Browse},
        {"/tidal/req/playlists?contentId=u", Type::None, Kind::Tracks, Menu::Browse},
        {"/tidal/search/choose/req/artists?query=albums", Type::None, Kind::Artists, Menu::Base},
        {"/tidal/req/artists?artistContent=albums", Type::None, Kind::Artists, Menu::Browse},
        {"/tidal/myMusic/req/created/users/playlists", Type::None, Kind::Playlists, Menu::Playlist},
        {"/tidal/myMusic/req/created/users/playlists?contentId=u", Type::None, Kind::Tracks,
         Menu::PlaylistTracks},
        {"/tidal/myMusic/req/favorites/users/albums", Type::Favorites, Kind::Albums, Menu::Browse},
        {"/tidal/basecontext", Type::None, Kind::Tracks, Menu::Base},
        {"/tidal/myPlaylistTrackscontext", Type::None, Kind::Tracks, Menu::Playlist},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.path);
        const CMPath path = encoded(row.path);
        EXPECT_EQ(int(responder()->getRequestType(path)), row.type);
        EXPECT_EQ(int(responder()->requestPathType(path)), row.kind);
        EXPECT_EQ(int(responder()->contextType(path)), row.menu);
    }
}

TEST_F(Responder, SaysWhatFailedInFixedWords)
{
    const struct
    {
        int status;
        const char* message;
        const char* body;
    } table[] = {
        {400, "Bad request", R"({"status":400,"subStatus":1001,"userMessage":"Too big page"})"},
        {401, "Unauthorized", R"({"status":401,"userMessage":null})"},
        {404, "Not found", "<html>gone</html>"},
        {500, "Unexpected error", ""},
        {503, "Service Unavailable: Back-end server is at capacity", "[]"},
        {502, "unknown Error", "<html>"},
        {204, "unknown Error", ""},
        {0, "unknown Error", ""},
    };
    for (const auto& row : table) {
        const auto request = world->answered(encoded("/tidal/req/featured/new/albums"), 0, 9,
                                             {KeloRoles::Title()}, row.status, row.body);
        EXPECT_EQ(request.reply().error().message(), QLatin1String(row.message)) << row.status;
        EXPECT_EQ(request.reply().error().name(), QStringLiteral("TIDAL"));
    }
}

TEST_F(Responder, FillsARowAsLongAsItsRoles)
{
    const QStringList roles = {KeloRoles::ContainerPlayable(), QStringLiteral("Unknown"),
                               KeloRoles::Title(), KeloRoles::Icon(), KeloRoles::Title()};
    const QVariantList row = responder()->getVariantRole(
        roles, CMPath(), QStringLiteral("a"), QString(), KeloRolesType::Container(), false,
        QVariant(), QString(), QString(), KeloMediaData(), QString(), QString());
    EXPECT_EQ(row, (QVariantList{true, QVariant(), QStringLiteral("a"), QVariant(),
                                 QStringLiteral("a")}));
    EXPECT_FALSE(responder()->getContextRoles({}, KeloTidalContextVariation::Enum(4)).isValid());
}

TEST_F(Responder, HandsAnswersToTheWorker)
{
    QStringList log;
    QObject receiver;
    TidalNodeResponder* sender = responder();
    bool isAsked = false; // answers to what the worker asks by itself do not count
    const auto answer = [&](const char* path, int status, const QByteArray& body) {
        world->onWorker([&] {
            const CMGetRowsRequest request(encoded(path), 0, 0, {}, -1, CMVoidReply());
            isAsked = true;
            sender->on_response_invoke(KeloUrl(), HttpClientPrivate::Data(request), status, 0, body,
                                       HttpClientHeaders());
            isAsked = false;
        });
    };
    QObject::connect(
        sender, &TidalNodeResponder::contentRootsFinishedMoods, &receiver,
        [&](const KeloTidalApiContentRootsResponse& roots, const KeloTidalApiErrorResponse& error) {
            if (isAsked)
                log << QStringLiteral("moods %1 %2").arg(roots.root().size()).arg(error.userMessage());
        },
        Qt::DirectConnection);
    QObject::connect(
        sender, &TidalNodeResponder::trackFinished, &receiver,
        [&](const KeloTidalApiTrackResponse& track, const KeloTidalApiErrorResponse& error) {
            if (isAsked)
                log << QStringLiteral("track %1 %2").arg(track.id()).arg(error.userMessage());
        },
        Qt::DirectConnection);
    answer("/moods", 200, R"([{"path":"a"},7,{"path":"b"}])");
    answer("/moods", 204, R"([{"path":"a"}])");
    answer("/moods", 200, R"({"path":"a"})");
    answer("/moods", 502, "<html>");
    answer("/tracks", 200, R"({"id":6000000000000000001})");
    answer("/tracks", 404, R"({"status":404,"userMessage":"Track [1] not found"})");
    answer("/tracks", 200, "{\"id\":1");
    answer("/unknown", 200, "{}");
    EXPECT_EQ(log, (QStringList{QStringLiteral("moods 2 "), QStringLiteral("moods 0 "),
                                QStringLiteral("moods 0 "),
                                QStringLiteral("moods 0 Error, failed to parse error message"),
                                QStringLiteral("track 6000000000000000001 "),
                                QStringLiteral("track 0 Track [1] not found"),
                                QStringLiteral("track 0 ")}));
}
