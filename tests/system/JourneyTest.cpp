#include "Streamer.h"

#include <gtest/gtest.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>

namespace {
QJsonObject rowAt(const QJsonObject& page, int index)
{
    return page.value(QStringLiteral("rows")).toArray().at(index).toObject();
}

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

QStringList titles(const QJsonObject& page)
{
    QStringList result;
    for (const QJsonValue& row : page.value(QStringLiteral("rows")).toArray())
        result << text(row.toObject(), "Title");
    return result;
}

const QString newAlbums = QStringLiteral("/tidal/req/featured/new/albums");
} // namespace

TEST(JourneyTest, aListenerBrowsesToAnAlbumAndPlaysItThroughToTheNextTrack)
{
    Streamer streamer;
    ASSERT_TRUE(streamer.startDemo({QStringLiteral("--fault"), QStringLiteral("short-tracks=2")}) ||
                streamer.startDemo())
        << streamer.errors().toStdString();

    EXPECT_EQ(
        titles(streamer.rows(QStringLiteral("/tidal"))),
        QStringList({"New", "TIDAL Rising", "TIDAL Discovery", "Playlists", "Genres", "My Music"}));
    EXPECT_EQ(
        streamer.rows(QStringLiteral("/tidal/new")).value(QStringLiteral("rowsCount")).toInt(), 13);

    const QJsonObject albums = streamer.rows(newAlbums);
    EXPECT_EQ(albums.value(QStringLiteral("rows")).toArray().size(), 50);
    const int count = albums.value(QStringLiteral("rowsCount")).toInt();
    EXPECT_GE(count, 120);
    // Pages follow one another without a lost or doubled album.
    QStringList paths;
    for (int from = 0; from < count; from += 50) {
        const QJsonObject page = streamer.rows(
            newAlbums, {"--from", QString::number(from), "--to", QString::number(from + 49)});
        for (const QJsonValue& row : page.value(QStringLiteral("rows")).toArray())
            paths << text(row.toObject(), "Path");
    }
    EXPECT_EQ(paths.size(), count);
    paths.removeDuplicates();
    EXPECT_EQ(paths.size(), count);

    const QJsonObject tracks = streamer.rows(text(rowAt(albums, 0), "Path"));
    ASSERT_GE(tracks.value(QStringLiteral("rowsCount")).toInt(), 2);
    const Outcome play = streamer.kelo({QStringLiteral("play"), text(rowAt(tracks, 0), "Path")});
    ASSERT_EQ(play.status, 0) << play.err.toStdString();
    EXPECT_TRUE(streamer.waitForEvent("player", [](const QJsonObject& player) {
        return text(player, "state") == QLatin1String("playing") &&
               player.value(QStringLiteral("positionMs")).toDouble() > 0;
    }));
    const QString first = text(streamer.kelo({"status", "--json"}).json(), "title");
    EXPECT_FALSE(first.isEmpty());

    // To the end of the track: the next one follows by itself.
    const int duration =
        streamer.kelo({"status", "--json"}).json().value(QStringLiteral("durationMs")).toInt();
    ASSERT_GT(duration, 0);
    EXPECT_EQ(streamer.kelo({"seek", QString::number((duration - 800) / 1000)}).status, 0);
    EXPECT_TRUE(streamer.waitForEvent("player", [&](const QJsonObject& player) {
        return text(player, "state") == QLatin1String("playing") && text(player, "title") != first;
    }));
    EXPECT_EQ(streamer.kelo({"pause"}).status, 0);
    EXPECT_EQ(text(streamer.kelo({"status", "--json"}).json(), "state"), QStringLiteral("paused"));
    EXPECT_EQ(streamer.kelo({"previous"}).status, 0);
    EXPECT_EQ(streamer.kelo({"stop"}).status, 0);
    EXPECT_EQ(streamer.stop(), 0);
}

TEST(JourneyTest, aSearchFindsAllFourKinds)
{
    Streamer streamer;
    ASSERT_TRUE(streamer.startDemo()) << streamer.errors().toStdString();
    const QString word = titles(streamer.rows(newAlbums)).first().section(QLatin1Char(' '), 0, 0);
    const QJsonObject top = streamer.rows(QStringLiteral("/tidal"));
    EXPECT_EQ(text(top.value(QStringLiteral("roles")).toObject(), "SearchPath"),
              QStringLiteral("/tidal/searchContainer"));
    for (const char* kind : {"albums", "tracks", "artists", "playlists"}) {
        const Outcome found =
            streamer.kelo({"search", word, "--in", QLatin1String(kind), "--json"});
        EXPECT_EQ(found.status, 0) << kind << ": " << found.err.toStdString();
        EXPECT_FALSE(found.out.isEmpty()) << kind;
    }
    const Outcome all = streamer.kelo({"search", word});
    EXPECT_EQ(all.status, 0) << all.err.toStdString();
    EXPECT_TRUE(all.out.contains("albums") && all.out.contains("playlists"))
        << all.out.toStdString();
    EXPECT_EQ(titles(streamer.rows(QStringLiteral(
                  "/tidal/search/choose/req/albums?query=zzzz%20no%20such%20thing"))),
              QStringList{"No items found"});
}

TEST(JourneyTest, loggingOutClosesTheTreeAndLoggingInBringsItBack)
{
    kelosim::SimOptions options;
    options.autoApproveLogin = true;
    options.faults = {"device-code interval=1 expires=60"};
    kelosim::SimServer sim(options);
    std::string error;
    ASSERT_TRUE(sim.start(&error)) << error;
    Streamer streamer;
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(sim))) << streamer.errors().toStdString();

    const auto expectLoggedOut = [&] {
        const QJsonObject top = streamer.rows(QStringLiteral("/tidal"));
        EXPECT_EQ(titles(top).first(), QStringLiteral("Please login to continue"));
        EXPECT_EQ(text(rowAt(top, 1), "Path"), QStringLiteral("/oauth2/services/tidal"));
        EXPECT_EQ(top.value(QStringLiteral("rowsCount")).toInt(), 2);
        for (const QString& path : {newAlbums, QStringLiteral("/tidal/myMusic")})
            EXPECT_EQ(streamer.rowsError(path), QStringLiteral("Not logged into TIDAL!"));
        EXPECT_GE(streamer.rows(QStringLiteral("/tidal/context"))
                      .value(QStringLiteral("rowsCount"))
                      .toInt(),
                  2);
    };
    expectLoggedOut();
    const Outcome login = streamer.kelo({"login"});
    EXPECT_EQ(login.status, 0) << login.err.toStdString();
    EXPECT_EQ(streamer.rows(newAlbums).value(QStringLiteral("rows")).toArray().size(), 50);

    // A restart keeps the login.
    EXPECT_EQ(streamer.stop(), 0);
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(sim))) << streamer.errors().toStdString();
    EXPECT_TRUE(streamer.get(QStringLiteral("/api/v1/login"))
                    .body.value(QStringLiteral("loggedIn"))
                    .toBool());
    EXPECT_EQ(streamer.rows(newAlbums).value(QStringLiteral("rows")).toArray().size(), 50);

    EXPECT_EQ(streamer.kelo({"logout"}).status, 0);
    expectLoggedOut();
    EXPECT_EQ(streamer.kelo({"login"}).status, 0);
    EXPECT_EQ(titles(streamer.rows(QStringLiteral("/tidal"))).first(), QStringLiteral("New"));
    EXPECT_EQ(streamer.rows(newAlbums).value(QStringLiteral("rows")).toArray().size(), 50);
}

TEST(JourneyTest, wrongInputIsRefusedWithASentenceAndTheRightStatus)
{
    Streamer streamer;
    ASSERT_TRUE(streamer.startDemo()) << streamer.errors().toStdString();
    const struct
    {
        const char* path;
        int status;
    } calls[] = {
        {"/api/v1/rows", 400},
        {"/api/v1/rows?path=%2Ftidal&from=abc", 400},
        {"/api/v1/rows?path=%2Ftidal%2Freq%2Fa%252", 400},
        {"/api/v1/rows?path=%2Ftidal&from=9&to=3", 400},
        {"/api/v1/rows?path=%2Fnowhere", 404},
        {"/api/v1/rows?path=%2Ftidal%2Fnowhere", 404},
        {"/api/v1/data?path=%2Fnowhere", 404},
        {"/api/v1/rows?path=%2Ftidal%2Freq%2Ffeatured%2Fnew%2Falbums&from=-1&to=5", 502},
        {"/api/v1/nothing", 404},
    };
    for (const auto& call : calls) {
        const Streamer::Answer answer = streamer.get(QString::fromUtf8(call.path));
        EXPECT_EQ(answer.status, call.status) << call.path;
        EXPECT_FALSE(text(answer.body, "detail").isEmpty()) << call.path;
    }
    EXPECT_EQ(streamer.post("/api/v1/set", "{not json").status, 400);
    EXPECT_EQ(streamer.post("/api/v1/set", "{\"value\":1}").status, 400);
    EXPECT_EQ(streamer.post("/api/v1/player/play", "{\"path\":\"/tidal/nowhere\"}").status, 502);
    EXPECT_EQ(streamer.kelo({"rows", "/nowhere"}).status, 1);
    EXPECT_EQ(streamer.kelo({"rows"}).status, 2);
    EXPECT_EQ(Streamer::run({"--server", "http://127.0.0.1:1", "rows", "/tidal"}).status, 3);
    EXPECT_EQ(streamer.get("/healthz").status, 200);
    EXPECT_EQ(streamer.get("/readyz").status, 200);
}

TEST(JourneyTest, aServeThatCannotServeSaysWhy)
{
    const struct
    {
        const char* settings;
        QStringList arguments;
        int status;
        const char* said;
    } cases[] = {
        {"[server]\nlistn = \"x\"\n", {}, 2, "listn"},
        {"[tidal]\nmax_idle_time_ms = \"soon\"\n", {}, 2, "max_idle_time_ms"},
        {"[tidal]\napi_url = \"not an address\"\n", {}, 2, "api_url"},
        {"", {"--module", "/nowhere/libx.so"}, 1, "/nowhere/libx.so"},
        {"", {"--module", "/lib/x86_64-linux-gnu/libc.so.6"}, 1, "worker_create"},
    };
    for (const auto& item : cases) {
        QTemporaryDir dir;
        QFile file(dir.filePath("kelo.toml"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(item.settings);
        file.close();
        const Outcome outcome = Streamer::run(
            QStringList{"serve", "--config", file.fileName(), "--listen", "127.0.0.1:0",
                        "--state-dir", dir.filePath("state"), "--output", "null"} +
            item.arguments);
        EXPECT_EQ(outcome.status, item.status) << item.said << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(item.said)) << outcome.err.toStdString();
    }
}
