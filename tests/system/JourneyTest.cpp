#include "ServiceTest.h"
#include "Table.h"
#include <QDeadlineTimer>
#include <QJsonArray>

namespace {

QStringList column(const QJsonObject& page, const char* role)
{
    QStringList result;
    for (const QJsonValue& row : page["rows"].toArray())
        result << row[QLatin1String(role)].toString();
    return result;
}

const QString newAlbums = QStringLiteral("/tidal/req/featured/new/albums");
const QString newTracks = QStringLiteral("/tidal/req/featured/new/tracks");

using JourneyServiceTest = ServiceTest;
} // namespace

TEST(JourneyTest, aListenerFindsAnAlbumAndPlaysItThroughToTheNextTrack)
{
    Streamer streamer;
    ASSERT_TRUE(streamer.start({}, {"--demo"})) << streamer.errors().toStdString();
    const QJsonObject top = streamer.rows("/tidal");
    EXPECT_EQ(column(top, "Title"), QStringList({"New", "TIDAL Rising", "TIDAL Discovery",
                                                 "Playlists", "Genres", "My Music"}));
    EXPECT_EQ(top["roles"]["SearchPath"].toString(), "/tidal/searchContainer");

    const QJsonObject albums = streamer.rows(newAlbums);
    EXPECT_EQ(albums["rows"].toArray().size(), 50);
    const QString word = column(albums, "Title").first().section(' ', 0, 0);
    const QByteArray found = streamer.kelo({"search", word}).out;
    for (const char* part :
         {"albums\t0\tContainer\t", "\t/tidal/search/choose/req/albums?", "\ntracks\t5\tAudio\t"})
        EXPECT_TRUE(found.contains(part)) << found.toStdString();
    EXPECT_EQ(streamer.kelo({"search", "it's &", "--json"}).json().keys(),
              QStringList({"albums", "artists", "playlists", "query", "tracks"}));
    const QJsonObject albumsAlone =
        streamer.kelo({"search", word, "--in", "albums", "--json"}).json();
    EXPECT_TRUE(albumsAlone["path"].toString().startsWith("/tidal/search/choose/req/albums?"));

    const QJsonObject tracks = streamer.rows(column(albums, "Path").first());
    ASSERT_GE(tracks["rowsCount"].toInt(), 2);
    const Outcome play = streamer.kelo({"play", column(tracks, "Path").first()});
    ASSERT_EQ(play.status, 0) << play.err.toStdString();
    EXPECT_TRUE(streamer.waitForEvent("player", [](const QJsonObject& player) {
        return player["state"].toString() == "playing" && player["positionMs"].toDouble() > 0;
    }));
    const auto status = [&] { return streamer.kelo({"status", "--json"}).json(); };
    const QString first = status()["title"].toString();
    EXPECT_FALSE(first.isEmpty());

    // To the end of the track: the next one follows by itself.
    const int duration = status()["durationMs"].toInt();
    ASSERT_GT(duration, 0);
    EXPECT_EQ(streamer.kelo({"seek", QString::number((duration - 800) / 1000)}).status, 0);
    EXPECT_TRUE(streamer.waitForEvent("player", [&](const QJsonObject& player) {
        return player["state"].toString() == "playing" && player["title"].toString() != first;
    }));
    EXPECT_EQ(streamer.kelo({"pause"}).status, 0);
    EXPECT_EQ(status()["state"].toString(), "paused");
    EXPECT_EQ(streamer.stop(), 0);
}

TEST_F(JourneyServiceTest, aListenerMakesFillsOrdersRenamesAndDeletesAPlaylist)
{
    const auto kelo = [this](const QStringList& arguments) {
        const Outcome outcome = streamer.kelo(arguments);
        EXPECT_EQ(outcome.status, 0) << arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.err.toStdString(), "");
        return QString::fromUtf8(outcome.out).trimmed();
    };
    const QJsonObject offered = streamer.rows(newTracks);
    const QStringList paths = column(offered, "Path");
    const QStringList ids = column(offered, "Id");

    const QString id = kelo({"playlist", "create", "Mine"}).section(' ', 1);
    const auto mine = [&] {
        const QJsonObject lists = streamer.rows("/tidal/myMusic/req/created/users/playlists");
        return lists["rows"].toArray().at(column(lists, "Id").indexOf(id));
    };
    const QString list = mine()["Path"].toString();
    const auto tracks = [&] { return column(streamer.rows(list), "Id"); };
    EXPECT_EQ(kelo({"playlist", "add", id, paths[0], paths[1], paths[2]}),
              "added 3 items to \"Mine\"");
    EXPECT_EQ(tracks(), ids.mid(0, 3));
    kelo({"playlist", "move", id, "2", "0"});
    EXPECT_EQ(tracks(), QStringList({ids[2], ids[0], ids[1]}));
    ASSERT_EQ(sim->addFault("tag-lag count=1"), "");
    kelo({"playlist", "remove", id, "1"});
    EXPECT_EQ(tracks(), QStringList({ids[2], ids[1]}));
    kelo({"set", "/tidal/trackOrderingcontext/orderDirection", "\"Desc\""});
    EXPECT_EQ(tracks(), QStringList({ids[1], ids[2]}));

    const QString title = QString::fromUtf8("a&b=c%41+\"'\\ 🎵 ü;#?/");
    kelo({"playlist", "rename", id, title, "--description", "d&title=e"});
    EXPECT_EQ(mine()["Title"].toString(), title);
    EXPECT_NE(sim->log().find("description=d%26title%3De"), std::string::npos);
    EXPECT_TRUE(kelo({"playlist", "delete", id, "--dry-run"}).startsWith("kelo set '/tidal/"));
    kelo({"playlist", "delete", id});
    EXPECT_TRUE(mine().isUndefined());
}

TEST_F(JourneyServiceTest, anEditThatDoesNotHappenIsSaid)
{
    const QStringList offered = column(streamer.rows(newTracks), "Path");
    const QString id = QString::fromUtf8(streamer.kelo({"playlist", "create", "Mine"}).out)
                           .trimmed()
                           .section(' ', 1);
    ASSERT_EQ(streamer.kelo({"playlist", "add", id, offered[0], offered[1]}).status, 0);
    const auto isRefused = [this](const QStringList& arguments, const char* reason) {
        const Outcome edit = streamer.kelo(QStringList("playlist") + arguments);
        EXPECT_EQ(edit.status, 1) << reason;
        EXPECT_EQ(edit.out.toStdString(), "");
        EXPECT_TRUE(edit.err.contains(reason)) << edit.err.toStdString();
    };
    isRefused({"delete", "p2"}, "none of your playlists has the title or id p2");
    isRefused({"add", id, offered[2], "/tidal/nowhere"}, "nothing at /tidal/nowhere");
    isRefused({"remove", id, "2"}, "there is no row 2, the last one is 1"); // none was added
    for (const char* fault : {"status=200 body=none method=POST path=/playlists",
                              "status=200 body=none method=DELETE path=/playlists"})
        ASSERT_EQ(sim->addFault(fault), ""); // nothing is carried out
    isRefused({"delete", id}, "the playlist is still there");
    isRefused({"add", id, offered[2]}, "the playlist has not grown");
    isRefused({"remove", id, "1"}, "the row is still there");
}

TEST_F(JourneyServiceTest, aMenuIsShownAndFavoritesChangeWhenTheyHaveTo)
{
    const QJsonObject row = streamer.rows(newTracks)["rows"].toArray().at(0).toObject();
    const QString track = row["Path"].toString();
    for (const QString& path : {track, row["Context"]["Path"].toString()}) {
        const QByteArray menu = streamer.kelo({"menu", path}).out;
        EXPECT_TRUE(menu.startsWith("0\tAction\tAdd to favorites\t")) << menu.toStdString();
        EXPECT_TRUE(menu.contains("1\tContainer\tAdd to playlist\t")) << menu.toStdString();
    }
    for (const auto& [wish, said] :
         Table<QString, const char*>{{"", "favorite on\n"},
                                     {"on", "favorite on (it was already)\n"},
                                     {"off", "favorite off\n"},
                                     {"off", "favorite off (it was already)\n"}}) {
        QStringList arguments{"favorite", track};
        if (!wish.isEmpty())
            arguments << wish;
        const Outcome favorite = streamer.kelo(arguments);
        EXPECT_EQ(favorite.out.toStdString(), said);
        EXPECT_EQ(favorite.err.toStdString(), "");
    }
}

TEST_F(JourneyServiceTest, aRestartKeepsTheLoginAndALogoutClosesTheTree)
{
    const auto albums = [&] { return streamer.rows(newAlbums)["rows"].toArray().size(); };
    EXPECT_EQ(streamer.stop(), 0);
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(*sim))) << streamer.errors().toStdString();
    EXPECT_TRUE(streamer.get("/api/v1/login").body["loggedIn"].toBool());
    EXPECT_EQ(albums(), 50);

    const QByteArray warning = "another streamer has the state folder";
    EXPECT_FALSE(streamer.errors().contains(warning));
    Streamer second;
    ASSERT_TRUE(QFile::link(streamer.stateFolder(), second.stateFolder()));
    EXPECT_TRUE(second.start(Streamer::settingsFor(*sim)));
    EXPECT_TRUE(second.errors().contains(warning));
    EXPECT_EQ(second.stop(), 0);

    EXPECT_EQ(streamer.kelo({"logout"}).status, 0);
    const QJsonObject top = streamer.rows("/tidal");
    EXPECT_EQ(column(top, "Title").first(), "Please login to continue");
    EXPECT_EQ(column(top, "Path").mid(1), QStringList("/oauth2/services/tidal"));
    EXPECT_EQ(streamer.rowsError(newAlbums), "Not logged into TIDAL!");
    EXPECT_EQ(streamer.kelo({"login"}).status, 0);
    EXPECT_EQ(albums(), 50);
}

TEST_F(JourneyServiceTest, noSecretIsInTheLog)
{
    streamer.stop();
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(*sim), {"--log-level", "trace"}));
    streamer.rows(newAlbums);
    EXPECT_EQ(streamer.kelo({"play", "6000002"}).status, 0);
    sim->expireTokens();
    streamer.rowsError(newAlbums);
    ASSERT_TRUE(sim->waitForRequests("/oauth2/token", 1, 20000));
    streamer.stop();
    const QByteArray log = streamer.errors();
    for (const char* shown : {"Url get request: ", "Enter virtual void TidalWorker::getRowsReq"})
        EXPECT_TRUE(log.contains(shown)) << log.left(2000).toStdString();
    EXPECT_FALSE(log.contains("Bearer ") || log.contains("kelo-demo-secret"));
    const int token = log.indexOf("token=");
    EXPECT_TRUE(token < 0 || log.mid(token + 6, 3) == "***") << log.mid(token, 60).toStdString();
}

TEST(JourneyTest, withoutAStateFolderItServesAndSaysOnceWhatIsNotKept)
{
    Streamer streamer;
    QFile inTheWay(streamer.stateFolder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    ASSERT_TRUE(streamer.start({}, {"--demo"})) << streamer.errors().toStdString();
    const QString track = column(streamer.rows(newTracks), "Path").first();
    EXPECT_EQ(streamer.kelo({"play", track}).status, 0);
    for (const char* percent : {"50", "60", "70"})
        EXPECT_EQ(streamer.kelo({"volume", percent}).status, 0);
    EXPECT_EQ(streamer.stop(), 0);
    const QByteArray log = streamer.errors();
    for (const char* file : {"state/demo: ", "tidal.json: ", "player.json: ", "queue.json: "})
        EXPECT_TRUE(log.contains(file)) << file << log.toStdString();
    EXPECT_EQ(log.count(" a restart\n"), 4) << log.toStdString();
}

TEST_F(JourneyServiceTest, aSecondModuleStandsBesideTheFirstAndMayEnd)
{
    streamer.stop();
    const QStringList both{"--module", KELO_MODULE, "--module", KELO_SHELF};
    const QByteArray settings = Streamer::settingsFor(*sim) + "[module.shelf]\ntitle = \"Books\"\n";
    ASSERT_TRUE(streamer.start(settings, both)) << streamer.errors().toStdString();
    EXPECT_EQ(column(streamer.rows("/"), "Title"), (QStringList{"TIDAL", "Books"}));
    EXPECT_EQ(streamer.rows("/shelf/tones")["rows"].toArray().size(), 50);
    const QByteArray found = streamer.kelo({"search", "silver"}).out;
    EXPECT_TRUE(found.startsWith("albums\t0\t") && found.contains("\nBooks\t18\tAudio\tTone 1\t"))
        << found.toStdString();
    EXPECT_TRUE(streamer.kelo({"tree"}).out.contains("\n1\tContainer\tBooks\t/shelf\n"));

    EXPECT_EQ(streamer.kelo({"set", "/shelf/crash", "1"}).status, 1);
    // The call that breaks it is answered before its place is another's.
    const QString reason = "threw an exception: the shelf broke";
    const auto refusal = [&] {
        return streamer.get("/api/v1/rows?path=%2Fshelf").body["detail"].toString();
    };
    const QDeadlineTimer end(10000);
    while (!refusal().contains(reason))
        ASSERT_FALSE(end.hasExpired()) << refusal().toStdString();
    EXPECT_EQ(streamer.rows(newAlbums)["rows"].toArray().size(), 50);
    EXPECT_EQ(streamer.get("/readyz").body["problems"].toArray().size(), 1);
    EXPECT_EQ(streamer.stop(), 0);
}

TEST(JourneyTest, aServeThatCannotServeSaysWhy)
{
    const QString noModule = QString(KELO_MODULE).replace("cb_tidal", "api_play");
    for (const auto& [settings, arguments, status, said] :
         Table<const char*, QStringList, int, const char*>{
             {"[server]\nlistn = \"x\"\n", {}, 2, "listn"},
             {"", {"--module", "/nowhere/libx.so"}, 2, "there is no such file"},
             {"", {"--module", KELO_OPENAPI}, 2, "it is no shared library"},
             {"[deadlines]\nmodule_s = 0.1\n[module.shelf]\nhow = \"hangs\"\n",
              {"--module", KELO_SHELF},
              2,
              "has not returned within 0.1 s"},
             {"[module.shelf]\nhow = \"exits\"\n",
              {"--module", KELO_SHELF},
              2,
              "a module has called exit()"},
             {"[server]\nweb_dir = \"/nowhere\"\n[module.shelf]\nhow = \"stays\"\n",
              {"--module", KELO_SHELF},
              1,
              "server.web_dir: /nowhere is no folder"},
             {"", {"--module", noModule}, 2, "it has no symbol \"kelo_module_interface\""}}) {
        Streamer streamer;
        EXPECT_FALSE(streamer.start(settings, arguments)) << said;
        EXPECT_EQ(streamer.stop(), status) << said;
        const QByteArray errors = streamer.errors();
        const QByteArray file = arguments.mid(1).join(' ').toUtf8();
        EXPECT_TRUE(errors.contains(said) && errors.contains(file)) << errors.toStdString();
    }
    EXPECT_EQ(Streamer::run({"--server", "http://127.0.0.1:1", "rows", "/tidal"}).status, 3);
}
