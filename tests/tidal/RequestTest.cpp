#include "ModuleTest.h"
#include "Table.h"

namespace {
const QString add = "/tidal/context/addToPlaylists?playlistId=";
const QString removal = "/tidal/playlistcontext/removeFromPlaylists?";
const QString move = "/tidal/myPlaylistTrackscontext/moveTrack/move?playlistId=";
/// The edits that begin with reading the playlist.
const QStringList playlistEdits = {add + "u-1&type=Tracks&id=1", removal + "type=Playlists&id=u-1",
                                   removal + "type=Tracks&playlistId=u-1&rowNum=4",
                                   move + "u-1&rowNum=3"};

/// What the module sends to the service.
class RequestTest : public ScriptedTest
{
protected:
    void SetUp() override
    {
        m_service.script("/playlists/u", {{200, R"({"uuid":"u-9"})", "\"17 2\""}});
        m_service.script("/favorites/", {{200, R"({"items":[{"item":null},{"item":{"id":"12"}},
                                                           {"item":{"id":1.5}},{"item":{"id":7}}]})"}});
        m_service.script("/users/4005/playlists", {{201, R"({"uuid":"u-9"})", "\"17 2\""}});
        // The second and the last: they may be played, and it is said which ones they are.
        m_service.script("/albums/77/tracks",
                         {{200, R"({"items":[{"id":1},{"id":2,"allowStreaming":true},
                           {"id":3,"allowStreaming":null},{"id":4,"allowStreaming":"true"},
                           {"id":5,"allowStreaming":1},{"title":"T","allowStreaming":true},
                           {"id":1.5,"allowStreaming":true},{"id":6,"allowStreaming":true}]})"}});
        startConfigured();
        m_setUp = sent(5);
    }
    /// What was sent since the last call, once it is as much as expected.
    QStringList sent(int count)
    {
        EXPECT_TRUE(m_service.waitForRequests("", m_before + count));
        QStringList lines;
        for (const std::string& line : m_service.requests())
            lines << QString::fromStdString(line);
        lines = lines.mid(m_before);
        m_before += lines.size();
        return lines;
    }
    /// Shows, by a request behind it, that nothing was sent.
    void expectNothingSent()
    {
        errorOf(askRows("/tidal/req/albums?contentId=last"));
        EXPECT_EQ(sent(1).value(0).section('?', 0, 0), "GET /albums/last/tracks");
    }

    QStringList m_setUp;

private:
    int m_before = 0;
};

TEST_F(RequestTest, TheSetUpAsksForTheUserAndTheRoots)
{
    m_setUp.sort();
    EXPECT_EQ(m_setUp, (QStringList{"GET /featured?countryCode=NO", "GET /genres?countryCode=NO",
                                    "GET /moods?countryCode=NO", "GET /sessions",
                                    "GET /users/4005/subscription"}));
}

TEST_F(RequestTest, ListsAskForWhatPathAndParametersSay)
{
    for (const auto& [path, from, to, lines] : Table<const char*, int, int, const char*>{
             {"/tidal/req/featured/new/albums", 0, 99,
              "/featured/new/albums?countryCode=NO&offset=0&limit=50"},
             {"/tidal/req/featured/new/albums?contentId=77&query=x&artistId=5", 10, 14,
              "/albums/77/tracks?countryCode=NO&offset=10&limit=5"},
             {"/tidal/req/albums?contentId=a%3Fb%23c%252Fd%26e%3D", 0, 0,
              "/albums/a%3Fb%23c%252Fd&e=/tracks?countryCode=NO&offset=0&limit=1"},
             {"/tidal/search/choose/req/tracks?query=AC%2FDC%20%26%20%C3%A5", 0, 0,
              "/search/tracks?query=AC%2FDC%20%26%20%C3%A5&countryCode=NO&offset=0&limit=1"},
             // The first two rows of a chooser are the module's own.
             {"/tidal/context/addToPlaylists/req/created/users/playlists", 2, 51,
              "/users/4005/playlists?countryCode=NO&offset=0&orderDirection=ASC&limit=50"
              "&order=NAME&filter=ALL"},
             {"/tidal/req/artists?artistId=9&artistContent=radio", 3, 9,
              "/artists/9/radio?countryCode=NO&offset=3&filter=&limit=50"}}) {
        errorOf(askRows(path, from, to));
        EXPECT_EQ(sent(1), QStringList(q("GET ") + lines)) << path;
    }
}

TEST_F(RequestTest, EditsAreSentStepByStep)
{
    const QString title = "a&b=c%d+e \"\n\u00e5";
    const QString read = "GET /playlists/u-1?countryCode=NO";
    const QString reread = "GET /playlists/u-9/tracks?countryCode=NO&order=INDEX"
                           "&orderDirection=ASC&offset=0&limit=50";
    setAndWait("/tidal/createPlaylist/title", title);
    setAndWait("/tidal/createPlaylist/description", "x y");
    setAndWait("/tidal/updatePlaylists/title", "t");

    for (const auto& [path, lines] : Table<QString, QStringList>{
             {"/tidal/context/favorites?type=Albums&id=7",
              {"POST /users/4005/favorites/albums?countryCode=NO albumId=7"}},
             {"/tidal/context/favorites?type=Artists&id=7",
              {"POST /users/4005/favorites/artists?countryCode=NO artistId=7"}},
             {"/tidal/context/favorites?type=Playlists&id=u-7",
              {"POST /users/4005/favorites/playlists?countryCode=NO uuid=u-7"}},
             {"/tidal/context/favorites?type=Tracks&id=1%26x%3D2%25",
              {"POST /users/4005/favorites/tracks?countryCode=NO trackId=1%26x%3D2%25"}},
             {"/tidal/createPlaylist/accept?type=Tracks&id=7",
              {"POST /users/4005/playlists?countryCode=NO "
               "title=a%26b%3Dc%25d%2Be%20%22%0A%C3%A5&description=x%20y",
               "GET /playlists/u-9?countryCode=NO",
               "POST /playlists/u-9/tracks?countryCode=NO [\"172\"] trackIds=7&toIndex=-1",
               reread}},
             {"/tidal/updatePlaylists/accept?id=u-1",
              {"POST /playlists/u-1?countryCode=NO title=t"}},
             // A form that was opened for no playlist.
             {"/tidal/updatePlaylists/accept", {"POST /playlists/?countryCode=NO title="}},
             {removal + "type=Playlists&id=u-1",
              {read, "DELETE /playlists/u-9?countryCode=NO [\"172\"]"}},
             {removal + "type=Tracks&playlistId=u-1&rowNum=4",
              {read, "DELETE /playlists/u-9/tracks/4?countryCode=NO [\"172\"]"}},
             {move + "u-1&rowNum=3", {read, "POST /playlists/u-9/tracks/3 [\"172\"] toIndex=0"}},
             {add + "u-1&type=Tracks&id=2%26x%3D3",
              {read,
               "POST /playlists/u-9/tracks?countryCode=NO [\"172\"] trackIds=2%26x%3D3&toIndex=-1",
               reread}},
             {add + "u-1&type=Albums&id=77",
              {"GET /albums/77/tracks?countryCode=NO&offset=0&limit=50", read,
               "POST /playlists/u-9/tracks?countryCode=NO [\"172\"] trackIds=2,6,&toIndex=-1",
               reread}}}) {
        setAndWait(path);
        EXPECT_EQ(sent(lines.size()), lines) << path.toStdString();
    }
}

TEST_F(RequestTest, AFavoriteIsRemovedOnceTheServiceSaysByANumberThatItIsOne)
{
    const QString favorite = "/tidal/context/favorites?type=%1&id=%2";
    for (const auto& [type, id] : {std::pair("Tracks", ""),
                                   {"Tracks", "0"},
                                   {"Tracks", "12"},
                                   {"Artists", "7"},
                                   {"Tracks", "7"}}) {
        const CMGetDataRequest request = askData(favorite.arg(type, id));
        EXPECT_EQ(errorOf(request), "");
        EXPECT_EQ(request.reply().value().value(0).toString(),
                  id == q("7") ? "Remove from favorites" : "Add to favorites");
        EXPECT_EQ(sent(1), QStringList("GET /users/4005/favorites/" + q(type).toLower() +
                                       "?countryCode=NO&limit=50"));
    }
    setAndWait("/tidal/context/favorites?type=Tracks&id=a%3Fb%23c%252Fd%26e%3D");
    EXPECT_EQ(sent(1), QStringList("DELETE /users/4005/favorites/tracks/a%3Fb%23c%252Fd&e="
                                   "?countryCode=NO"));
}

TEST_F(RequestTest, NothingIsSentToAnAddressThatANameWouldChange)
{
    const QStringList lists = {"albums?contentId=", "artists?artistId=7&artistContent="};
    const QStringList edits = {add + "u-1&type=Albums&id=",
                               add,
                               removal + "type=Tracks&rowNum=1&playlistId=",
                               move,
                               "/tidal/context/favorites?type=Tracks&id=",
                               "/tidal/req/artists?artistContent=bio&artistId=",
                               "/tidal/updatePlaylists/accept?id="};
    const auto isRefused = [](const CMRequest& request) {
        wait(request);
        return request.reply().error().name() == "TIDAL";
    };
    for (const char* name : {".", "..", "u-1%2Ftracks%2F0", "%2F"}) {
        for (const QString& list : lists)
            EXPECT_TRUE(isRefused(askRows("/tidal/req/" + list + name)))
                << (list + name).toStdString();
        for (const QString& edit : edits) {
            const QString rest = edit == add ? "&type=Tracks&id=1" : "&rowNum=1";
            EXPECT_TRUE(isRefused(set(edit + name + rest))) << (edit + name).toStdString();
        }
    }
    expectNothingSent();

    // The service's own name for a playlist is none to trust either.
    m_service.script("/playlists/u", {{200, R"({"uuid":"../users"})", "1"}});
    for (const QString& edit : playlistEdits) {
        EXPECT_TRUE(isRefused(set(edit))) << edit.toStdString();
        EXPECT_EQ(sent(1), QStringList("GET /playlists/u-1?countryCode=NO"));
    }
}

TEST_F(RequestTest, AnEditIsNotGoneOnWithOnceTheHostHasGivenItUp)
{
    for (const QString& edit : playlistEdits) {
        const CMSetDataRequest request(CMPath::fromEncoded(edit), KeloRoles::Value(), 1);
        request.reply().setError(CMError("Deadline", QString("given up")));
        const CMSetDataRequest argument(CMPath("/req/playlists/u-1"), KeloRoles::Id(), "4");
        onWorker([&](TidalHandler& handler) {
            handler.responder()->on_playlistRepeatReponse_invoke(
                KeloUrl(), HttpClientPrivate(HttpClientPrivate::Data(request, argument)), 200, 0,
                R"({"uuid":"u-9"})", HttpClientHeaders());
        });
        expectNothingSent();
    }
}

TEST_F(RequestTest, WithoutATokenEachIsRefused)
{
    const QString text = "Access token is not set";
    setLoggedIn(true, "");
    EXPECT_EQ(errorOf(askRows("/tidal/req/featured/new/albums")), text);
    EXPECT_EQ(errorOf(askData("/tidal/context/favorites?type=Tracks&id=1")), text);
    for (const QString& path : {add + "u-1&type=Tracks&id=1", q("/tidal/createPlaylist/accept"),
                                q("/tidal/req/artists?artistContent=bio&artistId=1")})
        EXPECT_EQ(errorOf(set(path)), text) << path.toStdString();
    EXPECT_EQ(errorOf(set("/tidal/playId", QVariantHash{{"id", 12}})), "media data request failed");
    onWorker([](TidalHandler& handler) {
        EXPECT_FALSE(handler.retrieveSession());
        EXPECT_FALSE(handler.subscribe());
    });
    setLoggedIn(true);
    expectNothingSent();
}

TEST_F(RequestTest, WithoutAUserEachOfTheUsersIsRefused)
{
    onWorker([](TidalHandler& handler) { handler.resetAccount(); });
    EXPECT_EQ(errorOf(askRows("/tidal/myMusic/req/favorites/users/tracks")),
              "Missing user Id. Cannot get favorites");
    EXPECT_EQ(errorOf(askRows("/tidal/req/featured/new/albums")),
              "TIDAL application country Code is empty. Maybe you are not logged in.");
    const QString favorite = "/tidal/context/favorites?id=1&type=Tracks";
    for (const CMRequest& request : {CMRequest(askData(favorite)), CMRequest(set(favorite)),
                                     CMRequest(set("/tidal/createPlaylist/accept"))})
        EXPECT_EQ(errorOf(request), "User not logged in. Cannot get favorites");
    expectNothingSent();
}

TEST_F(RequestTest, WhatIsNoRequestIsNotSent)
{
    for (const char* type : {"&type=tracks", "&type=x", ""}) {
        const QString favorite = q("/tidal/context/favorites?id=1") + type;
        EXPECT_EQ(errorOf(set(favorite)), "This cannot be a favorite");
        EXPECT_EQ(errorOf(askData(favorite)), "This cannot be a favorite");
    }
    for (const auto& range : {std::pair<int, int>(-1, 5), {0, -1}, {-9, -5}})
        EXPECT_EQ(errorOf(askRows("/tidal/req/featured/top/albums", range.first, range.second)),
                  "Bad rows request range");
    for (const char* path : {"/tidal/req/artists", "/tidal/req/albums",
                             "/tidal/req/featured/new/tracks?contentId=7"}) {
        const CMGetRowsRequest request = askRows(path);
        wait(request);
        EXPECT_EQ(request.reply().error().name(), CMError::NoAnswerName()) << path;
    }
    EXPECT_EQ(rowsOf(askRows("/tidal/req/playlists/new/albums")).size(), 0);
    const CMSetDataRequest noTrack(CMPath("/x"), QString(), 1);
    onWorker([&](TidalHandler& handler) { EXPECT_FALSE(handler.track(noTrack, QString())); });
    EXPECT_EQ(errorOf(noTrack), "Missing track ID");
    expectNothingSent();
}
} // namespace
