#include "TidalHandler.h"
#include "TidalWorker.h"
#include "TreeFixture.h"
#include <kelo/CMSubscribe.h>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

const char* const session7 = R"({"sessionId":"s","countryCode":"SE","userId":7})";
const char* const session8 = R"({"sessionId":"t","countryCode":"DK","userId":8})";

/// The answers in the order in which they come.
class AnswerLog
{
public:
    void watch(const CMRequest& request, const QString& name)
    {
        const CMVoidReply reply = request.reply();
        reply.addWatcher(nullptr, [this, reply, name] {
            const QString message = reply.error().message();
            std::lock_guard<std::mutex> lock(m_mutex);
            m_entries.append(message.isEmpty() ? name : name + q(": ") + message);
            m_changed.notify_all();
        });
    }
    /// The entries once there are as many.
    QStringList waitFor(int count) const
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::seconds(20),
                           [&] { return m_entries.size() >= count; });
        return m_entries;
    }
    QStringList entries() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_entries;
    }

private:
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    QStringList m_entries;
};

class WorkerLoginTest : public TreeFixture
{
protected:
    /// One request of each kind, answered in that order.
    void askThree(AnswerLog& log)
    {
        const CMGetDataRequest data = askData(q("/tidal/new"), {KeloRoles::Title()});
        const CMSetDataRequest stored = set(q("/tidal/createPlaylist/title"), q("Mine"));
        const CMGetRowsRequest rows = askRows(q("/tidal"));
        log.watch(data, q("data"));
        log.watch(stored, q("set"));
        log.watch(rows, q("rows"));
        m_last = rows;
    }
    CMGetRowsRequest m_last;
};

TEST_F(WorkerLoginTest, LoggedOutThereAreTheLoginRowsAndTheMenusAlone)
{
    start();
    const QList<QVariantHash> rows = rowsOf(askRows(q("/tidal")));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.at(0).value(KeloRoles::Title()).toString(), q("Please login to continue"));
    EXPECT_EQ(rows.at(0).value(KeloRoles::Type()).toString(), KeloRolesType::Text());
    EXPECT_EQ(rows.at(1).value(KeloRoles::Path()).toString(), q("/oauth2/services/tidal"));
    EXPECT_EQ(errorOf(askRows(q("/tidal/new"))), q("Not logged into TIDAL!"));
    EXPECT_EQ(errorOf(askData(q("/tidal"), {KeloRoles::Title()})), q("Not logged into TIDAL!"));
    EXPECT_EQ(errorOf(set(q("/tidal/prePlay/1"), 1)), q("Not logged into TIDAL!"));
    EXPECT_EQ(m_service.requestCount("/"), 0);
}

TEST_F(WorkerLoginTest, AMenuMayBeTheFirstRequestOfAll)
{
    start();
    EXPECT_EQ(column(q("/tidal/basecontext")), QStringList{q("Favorite")});
}

TEST_F(WorkerLoginTest, RequestsWaitForTheSetUpAndAreServedInOrder)
{
    m_service.hold("/sessions");
    m_service.hold("/subscription");
    start();
    setLoggedIn(true);
    AnswerLog log;
    askThree(log);
    ASSERT_TRUE(m_service.waitForRequests("/sessions", 1));
    m_service.releaseAll("/sessions");
    ASSERT_TRUE(m_service.waitForRequests("/users/4005/subscription", 1));
    askThree(log);
    settle();
    EXPECT_EQ(log.entries(), QStringList());
    m_service.releaseAll("/subscription");
    EXPECT_EQ(log.waitFor(6),
              QStringList({q("data"), q("set"), q("rows"), q("data"), q("set"), q("rows")}));
    EXPECT_EQ(m_service.requestCount("/sessions"), 1);
    EXPECT_TRUE(worker()->isUserConfigured());
}

TEST_F(WorkerLoginTest, AFailedSetUpAnswersEachAndTheNextRequestStartsAgain)
{
    const ScriptedService::Answer broken[] = {{500, "{}"}, {401, "{\"status\":401}"}, {404, ""}};
    for (const char* path : {"/sessions", "/subscription"}) {
        for (const ScriptedService::Answer& answer : broken) {
            m_service.script("/sessions", {{200, session7}});
            m_service.script("/subscription", {{200, "{}"}});
            const std::string good = path == std::string("/sessions") ? session7 : "{}";
            m_service.script(path, {answer, {200, good}});
            start();
            setLoggedIn(true);
            AnswerLog log;
            m_service.hold(path);
            const int before = m_service.requestCount(path);
            askThree(log);
            ASSERT_TRUE(m_service.waitForRequests(path, before + 1));
            settle();
            m_service.releaseAll(path);
            const QString text = q(": Failed to initialize TIDAL");
            EXPECT_EQ(log.waitFor(3),
                      QStringList({q("data") + text, q("set") + text, q("rows") + text}))
                << path << answer.status;
            EXPECT_EQ(column(q("/tidal")).size(), 6);
            setLoggedIn(false);
            stop();
        }
    }
}

TEST_F(WorkerLoginTest, WithoutATokenTheSetUpFails)
{
    start();
    setLoggedIn(true, QString());
    EXPECT_EQ(errorOf(askRows(q("/tidal"))), q("Failed to initialize TIDAL"));
    setLoggedIn(true);
    EXPECT_EQ(errorOf(askRows(q("/tidal"))), QString());
}

TEST_F(WorkerLoginTest, LoggingOutClosesWhatIsOpenAndLoggingInBringsTheMenusBack)
{
    startConfigured();
    std::mutex mutex;
    QStringList notices;
    std::vector<quint64> open;
    for (const char* path : {"/tidal/new", "/tidal/myMusic?x=1"})
        open.push_back(
            CMRoot().openRows(CMPath::fromEncoded(q(path)), [&](const CMRowsNotice& notice) {
                std::lock_guard<std::mutex> lock(mutex);
                notices.append(notice.path.toEncoded() + q(" ") + notice.change.toString());
            }));
    settle();
    setLoggedIn(false);
    settle();
    {
        std::lock_guard<std::mutex> lock(mutex);
        notices.sort();
        EXPECT_EQ(notices, QStringList({q("/tidal/myMusic?x=1 close"), q("/tidal/new close")}));
    }
    EXPECT_EQ(column(q("/tidal")).size(), 2);
    EXPECT_FALSE(CMRoot().dataRoles(CMPath(q("/tidal"))).contains(KeloRoles::SearchPath()));
    setLoggedIn(true);
    settle();
    EXPECT_EQ(column(q("/tidal")).size(), 6);
    EXPECT_EQ(CMRoot().dataRoles(CMPath(q("/tidal"))).value(KeloRoles::SearchPath()).toString(),
              q("/tidal/searchContainer"));
    EXPECT_EQ(m_service.requestCount("/sessions"), 2);
    for (const quint64 id : open)
        CMRoot().closeRows(id);
}

TEST_F(WorkerLoginTest, TheNewestLoginsAnswersCountWheneverTheyCome)
{
    struct Case
    {
        const char* held;  ///< the request of the set-up that is answered out of turn
        bool isOldFirst;   ///< the earlier login's answer comes first
        bool isAskedAgain; ///< another request comes after the second login
    };
    for (const Case& c : {Case{"/sessions", true, true}, Case{"/sessions", false, true},
                          Case{"/sessions", true, false}, Case{"/sessions", false, false},
                          Case{"/users/7/subscription", false, true},
                          Case{"/users/7/subscription", false, false}}) {
        SCOPED_TRACE(std::string(c.held) + (c.isOldFirst ? " old first" : " new first") +
                     (c.isAskedAgain ? ", asked again" : ""));
        // Each login gets the answer that belongs to its token, whatever the order.
        m_service.script("/sessions", {{200, session7}, {200, session8}});
        const int before = m_service.requestCount(c.held);
        m_service.hold(c.held);
        start();
        setLoggedIn(true);
        const CMGetRowsRequest first = askRows(q("/tidal"));
        ASSERT_TRUE(m_service.waitForRequests(c.held, before + 1));
        setLoggedIn(false);
        setLoggedIn(true, q("token-2"));
        const CMGetRowsRequest second = c.isAskedAgain ? askRows(q("/tidal")) : first;
        if (c.held == std::string("/sessions")) {
            ASSERT_TRUE(m_service.waitForRequests(c.held, before + 2));
            m_service.releaseOne(c.held, c.isOldFirst ? 0 : 1);
        }
        if (!c.isOldFirst) {
            EXPECT_EQ(errorOf(second), QString()) << "without the earlier login's answer";
            EXPECT_EQ(errorOf(first), QString());
        }
        m_service.releaseAll(c.held);
        EXPECT_EQ(errorOf(first), QString());
        EXPECT_EQ(errorOf(second), QString());
        settle();
        onWorker([this] { EXPECT_EQ(worker()->getHandler()->getAccount().userId(), 8); });
        setLoggedIn(false);
        stop();
    }
}

TEST_F(WorkerLoginTest, ATokenIsReportedAsRefusedOnceWhateverCarriedIt)
{
    startConfigured();
    const QString playlist =
        q("/tidal/myPlaylistTrackscontext/moveTrack/move?playlistId=p&rowNum=1");
    const QString title = q("/tidal/updatePlaylists/accept?playlistId=p");
    struct Case
    {
        const char* what;
        const char* refused; ///< part of the address
        std::function<CMRequest()> ask;
        std::string body = R"({"status":401,"subStatus":6001})";
        bool isReported = true;
    };
    const Case cases[] = {
        {"a list", "/albums/7",
         [] { return askRows(q("/tidal/req/featured/new/albums?contentId=7")); }},
        {"a bio", "/bio",
         [] { return set(q("/tidal/req/artists?artistContent=bio&artistId=7"), 1); }, "<html>"},
        {"creating", "/playlists", [] { return set(q("/tidal/createPlaylist/accept"), 1); }},
        {"renaming", "/playlists/p", [&] { return set(title, 1); }},
        {"moving", "/playlists/p", [&] { return set(playlist, 1); }},
        {"adding", "/albums/7",
         [] { return set(q("/tidal/context/addToPlaylists?type=Albums&id=7&playlistId=p"), 1); }},
        {"a favourite's state", "/favorites",
         [] {
             return askData(q("/tidal/context/favorites?type=Albums&id=7"), {KeloRoles::Title()});
         }},
        {"a favourite", "/favorites",
         [] { return set(q("/tidal/context/favorites?type=Albums&id=7"), 1); }},
        {"a stream that is not sold", "/playbackinfo",
         [] {
             return set(q("/tidal/playId"), QVariantHash{{q("id"), 12}});
         },
         R"({"status":401,"subStatus":4005})", false},
    };
    int tokens = 1;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        m_service.script(c.refused, {{401, c.body}});
        CMRequest request = c.ask();
        wait(request.reply());
        const QString token = q("token-") + QString::number(tokens);
        EXPECT_EQ(takeRefusedTokens().mid(0, 1), c.isReported ? QStringList(token) : QStringList());

        // The late refusal of a token that has been replaced asks for nothing.
        const int before = m_service.requestCount(c.refused);
        m_service.hold(c.refused);
        request = c.ask();
        ASSERT_TRUE(m_service.waitForRequests(c.refused, before + 1));
        setLoggedIn(true, q("token-") + QString::number(++tokens));
        EXPECT_TRUE(wait(askRows(q("/tidal/req/featured/new/albums?contentId=8")).reply()));
        m_service.releaseAll(c.refused);
        wait(request.reply());
        EXPECT_EQ(takeRefusedTokens(), QStringList());
        m_service.script(c.refused, {{200, "{}"}});
    }
}

TEST_F(WorkerLoginTest, AnEditThatOutlivesItsLoginIsNotGoneOnWithInTheNext)
{
    const std::string playlist = R"({"uuid":"p"})";
    const std::string stale = R"({"status":412,"subStatus":7002})";
    struct Case
    {
        const char* held;
        ScriptedService::Answer answer;
        QString path;
        const char* next; ///< what would be sent next
        const char* error;
    };
    const QString track = q("?type=Tracks&id=7&playlistId=p&rowNum=1");
    const QString album = q("?type=Albums&id=7&playlistId=p");
    const char* const ended = "User was logged out";
    for (const Case& c : {Case{"/playlists/p",
                               {200, playlist},
                               q("/tidal/context/addToPlaylists") + track,
                               "/playlists/p/tracks",
                               ended},
                          Case{"/playlists/p",
                               {200, playlist},
                               q("/tidal/playlistcontext/removeFromPlaylists") + track,
                               "/playlists/p/tracks",
                               ended},
                          Case{"/playlists/p",
                               {200, playlist},
                               q("/tidal/myPlaylistTrackscontext/moveTrack/move") + track,
                               "/playlists/p/tracks",
                               ended},
                          Case{"/albums/7",
                               {200, R"({"totalNumberOfItems":0,"items":[]})"},
                               q("/tidal/context/addToPlaylists") + album,
                               "/playlists/p",
                               ended},
                          Case{"/playlists/p/tracks",
                               {412, stale},
                               q("/tidal/context/addToPlaylists") + track,
                               "/playlists/p",
                               ""},
                          Case{"/users/7/playlists",
                               {201, playlist},
                               q("/tidal/createPlaylist/accept") + album,
                               "/playlists/p",
                               ""}}) {
        SCOPED_TRACE(c.path.toStdString() + " " + c.held);
        m_service.script("/playlists/p", {{200, playlist}});
        m_service.script("/sessions", {{200, session7}, {200, session8}});
        m_service.script(c.held, {c.answer});
        startConfigured();
        const int before = m_service.requestCount(c.held);
        m_service.hold(c.held);
        const CMSetDataRequest request = set(c.path, 1);
        ASSERT_TRUE(m_service.waitForRequests(c.held, before + 1));
        setLoggedIn(false);
        setLoggedIn(true, q("token-2"));
        EXPECT_EQ(errorOf(askRows(q("/tidal"))), QString());
        const int sent = m_service.requestCount(c.next);
        m_service.releaseAll(c.held);
        EXPECT_EQ(errorOf(request), q(c.error));
        settle();
        EXPECT_EQ(errorOf(askRows(q("/tidal"))), QString());
        EXPECT_EQ(m_service.requestCount(c.next), sent);
        setLoggedIn(false);
        stop();
    }
}

TEST_F(WorkerLoginTest, AnAnswerAfterTheLogoutAnswersWhatWaited)
{
    m_service.hold("/sessions");
    start();
    setLoggedIn(true);
    const CMGetRowsRequest request = askRows(q("/tidal/new"));
    ASSERT_TRUE(m_service.waitForRequests("/sessions", 1));
    setLoggedIn(false);
    settle();
    EXPECT_FALSE(request.reply().isFinished());
    m_service.releaseAll("/sessions");
    EXPECT_EQ(errorOf(request), q("User was logged out"));
}

TEST_F(WorkerLoginTest, NewSettingsHoldFromTheNextRequestOn)
{
    startConfigured();
    setLoggedIn(false);
    KeloTidalSettings changed = settings();
    changed.setApiUrl(changed.apiUrl() + q("/other"));
    setSettings(changed);
    settle();
    setLoggedIn(true);
    settle();
    EXPECT_EQ(errorOf(askRows(q("/tidal"))), QString());
    EXPECT_EQ(m_service.requestCount("/v1/other/sessions"), 1);
}

TEST_F(WorkerLoginTest, TheCurrentPathIsTheLastOneOpenedOrLeft)
{
    startConfigured();
    const auto current = [this] {
        QString text;
        onWorker([&] { text = worker()->currentPath().toEncoded(); });
        return text;
    };
    const auto listener = [](const CMRowsNotice&) {};
    const quint64 first = CMRoot().openRows(CMPath(q("/tidal/new")), listener);
    const quint64 second = CMRoot().openRows(CMPath(q("/tidal/genres")), listener);
    const quint64 form = CMRoot().openRows(CMPath(q("/tidal/createPlaylist")), listener);
    const quint64 menu = CMRoot().openRows(CMPath(q("/tidal/context")), listener);
    EXPECT_EQ(current(), q("/tidal/genres"));
    CMRoot().closeRows(first);
    EXPECT_EQ(current(), q("/tidal/new"));
    for (const quint64 id : {second, form, menu})
        CMRoot().closeRows(id);
    EXPECT_EQ(current(), q("/tidal/genres"));
}

TEST_F(WorkerLoginTest, StoppingAnswersWhatIsUnderWay)
{
    m_service.hold("/sessions");
    start();
    setLoggedIn(true);
    AnswerLog log;
    askThree(log);
    ASSERT_TRUE(m_service.waitForRequests("/sessions", 1));
    stop();
    EXPECT_EQ(log.waitFor(3).size(), 3);
    EXPECT_TRUE(m_last.reply().error().isSet());
    m_service.releaseAll("/sessions");
}
} // namespace
