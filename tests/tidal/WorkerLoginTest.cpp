#include "ModuleTest.h"
#include "Table.h"

namespace {
const char* const session7 = R"({"sessionId":"s","countryCode":"SE","userId":7})";
const char* const session8 = R"({"sessionId":"t","countryCode":"DK","userId":8})";
const QString failed = "Failed to initialize TIDAL";

class WorkerLoginTest : public ScriptedTest
{
protected:
    void SetUp() override {}
    /// One request of each kind, answered in that order.
    void askThree()
    {
        for (const auto& [request, name] :
             {std::pair(CMRequest(askData("/tidal/new")), "data"),
              {CMRequest(set("/tidal/createPlaylist/title", "Mine")), "set"},
              {CMRequest(askRows("/tidal")), "rows"}}) {
            const CMVoidReply reply = request.reply();
            reply.addWatcher(nullptr, [this, reply, name = q(name)] {
                m_answers << name + reply.error().message();
            });
            m_asked.append(request);
        }
    }
    /// The answers in the order in which they came, once all have.
    QStringList answers()
    {
        for (const CMRequest& request : std::exchange(m_asked, {}))
            wait(request);
        settle(); // they come on the worker's thread
        return std::exchange(m_answers, {});
    }
    void logOutAndStop()
    {
        setLoggedIn(false);
        stop();
    }

    QList<CMRequest> m_asked;

private:
    QStringList m_answers;
};

TEST_F(WorkerLoginTest, LoggedOutThereAreTheLoginRowsAndTheMenusAlone)
{
    start();
    // A menu may be the first request of all.
    EXPECT_EQ(column("/tidal/basecontext"), QStringList("Favorite"));
    const QList<KeloRoles> rows = rowsOf(askRows("/tidal"));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].title(), "Please login to continue");
    EXPECT_EQ(rows[0].type(), KeloRolesType::Text());
    EXPECT_EQ(rows[1].path(), CMPath("/oauth2/services/tidal"));
    for (const CMRequest& request : {CMRequest(askRows("/tidal/new")), CMRequest(askData("/tidal")),
                                     CMRequest(set("/tidal/prePlay/1"))})
        EXPECT_EQ(errorOf(request), "Not logged into TIDAL!");
    EXPECT_EQ(m_service.requestCount("/"), 0);
}

TEST_F(WorkerLoginTest, RequestsWaitForTheSetUpAndAreServedInOrder)
{
    m_service.hold("/sessions");
    m_service.hold("/subscription");
    start();
    setLoggedIn(true);
    askThree();
    ASSERT_TRUE(m_service.waitForRequests("/sessions", 1));
    m_service.releaseAll("/sessions");
    ASSERT_TRUE(m_service.waitForRequests("/users/4005/subscription", 1));
    askThree();
    settle();
    for (const CMRequest& request : m_asked)
        EXPECT_FALSE(request.reply().isFinished());
    m_service.releaseAll("/subscription");
    EXPECT_EQ(answers(), QStringList({"data", "set", "rows", "data", "set", "rows"}));
    EXPECT_EQ(m_service.requestCount("/sessions"), 1);
    EXPECT_TRUE(worker()->isUserConfigured());
}

TEST_F(WorkerLoginTest, AFailedSetUpAnswersEachAndTheNextRequestStartsAgain)
{
    const ScriptedService::Answer broken[] = {{500, "{}"}, {401, "{\"status\":401}"}};
    for (const char* path : {"/sessions", "/subscription"}) {
        for (const ScriptedService::Answer& answer : broken) {
            m_service.script("/sessions", {{200, session7}});
            m_service.script("/subscription", {{200, "{}"}});
            const std::string good = path == q("/sessions") ? session7 : "{}";
            m_service.script(path, {answer, {200, good}});
            start();
            setLoggedIn(true);
            m_service.hold(path);
            const int before = m_service.requestCount(path);
            askThree();
            ASSERT_TRUE(m_service.waitForRequests(path, before + 1));
            settle();
            m_service.releaseAll(path);
            EXPECT_EQ(answers(), QStringList({"data" + failed, "set" + failed, "rows" + failed}))
                << path << answer.status;
            EXPECT_EQ(column("/tidal").size(), 6);
            logOutAndStop();
        }
    }
    start();
    setLoggedIn(true, "");
    EXPECT_EQ(errorOf(askRows("/tidal")), failed) << "without a token";
    setLoggedIn(true);
    EXPECT_EQ(errorOf(askRows("/tidal")), "");
}

TEST_F(WorkerLoginTest, LoggingOutClosesWhatIsOpenAndLoggingInBringsTheMenusBack)
{
    startConfigured();
    const auto searchPath = [] {
        return CMRoot().dataRoles(CMPath("/tidal")).value(KeloRoles::SearchPath()).toString();
    };
    OpenRows fresh("/tidal/new");
    OpenRows mine("/tidal/myMusic?x=1");
    setLoggedIn(false);
    settle();
    EXPECT_EQ(fresh.next(), "close");
    EXPECT_EQ(mine.next(), "close");
    EXPECT_EQ(fresh.pending() + mine.pending(), 0);
    EXPECT_EQ(column("/tidal").size(), 2);
    EXPECT_EQ(searchPath(), "");
    setService(m_service.baseUrl() + "/v1/other"); // holds from the next request on
    settle();
    setLoggedIn(true);
    settle();
    EXPECT_EQ(column("/tidal").size(), 6);
    EXPECT_EQ(searchPath(), "/tidal/searchContainer");
    EXPECT_EQ(m_service.requestCount("/sessions"), 2);
    EXPECT_EQ(m_service.requestCount(" /other/v1/sessions"), 1);
}

TEST_F(WorkerLoginTest, ATokenIsReportedAsRefusedOnceWhateverCarriedIt)
{
    startConfigured();
    m_service.script("/tracks/12", {{200, R"({"id":12,"artist":{},"album":{}})"}});
    const char* const expired = R"({"status":401,"subStatus":6001})";
    const char* const unsold = R"({"status":401,"subStatus":4005})";
    int tokens = 1;
    for (const auto& [path, value, refused, body] :
         Table<const char*, QVariant, const char*, const char*>{
             {"/tidal/context/favorites?type=Albums&id=7", 1, "/favorites", expired},
             {"/tidal/req/artists?artistContent=bio&artistId=7", 1, "/bio", "<html>"},
             {"/tidal/createPlaylist/accept", 1, "/playlists", expired},
             {"/tidal/playlistcontext/removeFromPlaylists?type=Playlists&id=p", 1, "/playlists/p",
              expired},
             {"/tidal/context/addToPlaylists?type=Albums&id=7&playlistId=p", 1, "/albums/7",
              expired},
             {"/tidal/playId", QVariantHash{{"id", 12}}, "/playbackinfo", unsold}}) {
        SCOPED_TRACE(path);
        m_service.script(refused, {{401, body}});
        setAndWait(path, value);
        const QStringList token(q("token-%1").arg(tokens));
        EXPECT_EQ(takeRefusedTokens().mid(0, 1), body == unsold ? QStringList() : token);

        // The late refusal of a token that has been replaced asks for nothing.
        const int before = m_service.requestCount(refused);
        m_service.hold(refused);
        const CMSetDataRequest late = set(path, value);
        ASSERT_TRUE(m_service.waitForRequests(refused, before + 1));
        setLoggedIn(true, q("token-%1").arg(++tokens));
        wait(askRows("/tidal/req/featured/new/albums?contentId=8"));
        m_service.releaseAll(refused);
        wait(late);
        EXPECT_EQ(takeRefusedTokens(), QStringList());
        m_service.script(refused, {{200, "{}"}});
    }
}

TEST_F(WorkerLoginTest, AnEditThatOutlivesItsLoginIsNotGoneOnWithInTheNext)
{
    const ScriptedService::Answer playlist = {200, R"({"uuid":"p"})"};
    const ScriptedService::Answer made = {201, playlist.body, "1"};
    const ScriptedService::Answer noTracks = {200, R"({"totalNumberOfItems":0,"items":[]})"};
    const ScriptedService::Answer stale = {412, R"({"status":412,"subStatus":7002})"};
    const char* const tracks = "/playlists/p/tracks";
    const char* const ended = "User was logged out";
    const QString track = "?type=Tracks&id=7&playlistId=p&rowNum=1";
    const QString album = "?type=Albums&id=7&playlistId=p";
    const QString add = "/tidal/context/addToPlaylists";
    // next: what would be sent next
    for (const auto& [held, answer, path, next, error] :
         Table<const char*, ScriptedService::Answer, QString, const char*, const char*>{
             {"/playlists/p", playlist, add + track, tracks, ended},
             {"/playlists/p", playlist, "/tidal/playlistcontext/removeFromPlaylists" + track,
              tracks, ended},
             {"/playlists/p", playlist, "/tidal/myPlaylistTrackscontext/moveTrack/move" + track,
              tracks, ended},
             {"/albums/7", noTracks, add + album, "/playlists/p", ended},
             {tracks, stale, add + track, "/playlists/p", ""},
             {"/users/7/playlists", made, "/tidal/createPlaylist/accept" + album, "/albums/7",
              ""}}) {
        SCOPED_TRACE(path.toStdString() + " " + held);
        m_service.script("/playlists/p", {playlist});
        m_service.script("/sessions", {{200, session7}, {200, session8}});
        m_service.script(held, {answer});
        startConfigured();
        const int before = m_service.requestCount(held);
        m_service.hold(held);
        const CMSetDataRequest request = set(path);
        ASSERT_TRUE(m_service.waitForRequests(held, before + 1));
        setLoggedIn(false);
        setLoggedIn(true, "token-2");
        EXPECT_EQ(errorOf(askRows("/tidal")), "");
        const int sent = m_service.requestCount(next);
        m_service.releaseAll(held);
        EXPECT_EQ(errorOf(request), error);
        settle();
        // A list behind it shows that nothing was sent.
        wait(askRows("/tidal/req/albums?contentId=8"));
        EXPECT_EQ(m_service.requestCount(next), sent);
        logOutAndStop();
    }
}

TEST_F(WorkerLoginTest, AnAnswerAfterTheLogoutAnswersWhatWaited)
{
    m_service.hold("/sessions");
    start();
    setLoggedIn(true);
    const CMGetRowsRequest request = askRows("/tidal/new");
    ASSERT_TRUE(m_service.waitForRequests("/sessions", 1));
    setLoggedIn(false);
    settle();
    EXPECT_FALSE(request.reply().isFinished());
    m_service.releaseAll("/sessions");
    EXPECT_EQ(errorOf(request), "User was logged out");
}

TEST_F(WorkerLoginTest, TheSubscriptionIsToldWithTheLoginThatItWasAskedForAlone)
{
    QStringList told;
    const quint64 watch = CMRoot().watchValue(
        KeloTidalSubscriptionPath(), [&told](const KeloValue& value, const KeloValue&) {
            const KeloOAuth2Info login = value.oauth2Info();
            told << QString::number(login.loginNumber()) + ' ' + login.subscription();
        });
    m_service.script("/subscription", {{200, R"({"subscription":{"type":"FREE"}})"},
                                       {200, R"({"subscription":{"type":"PREMIUM_PLUS"}})"},
                                       {200, R"({"subscription":null})"}});
    m_service.hold("/subscription");
    start();
    setLoggedIn(true);
    const CMGetRowsRequest request = askRows("/tidal/new");
    ASSERT_TRUE(m_service.waitForRequests("/subscription", 1));
    setLoggedIn(false);
    setLoggedIn(true);
    m_service.releaseAll("/subscription");
    EXPECT_EQ(errorOf(request), "");
    EXPECT_EQ(told, QStringList({"0 ", "2 Premium Plus"})) << "the answer for the first came late";
    setLoggedIn(false);
    EXPECT_EQ(errorOf(askData(KeloTidalSubscriptionPath().toEncoded())), "Not logged into TIDAL!");
    setLoggedIn(true);
    EXPECT_EQ(errorOf(askRows("/tidal/new")), "");
    EXPECT_EQ(told.mid(2), QStringList({"0 ", "3 "})) << "the service does not say";
    CMRoot().unwatch(watch);
}

} // namespace
