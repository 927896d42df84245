#include "WebWorld.h"

#include "web/EventClient.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/HttpCallLog.h>
#include <QJsonArray>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

/// A client that follows a stream on a thread of its own.
class Follower
{
public:
    Follower(int port, const std::string& query)
        : m_client("127.0.0.1", port), m_thread([this, query] { run(query); })
    {
    }
    ~Follower()
    {
        m_client.stop();
        m_thread.join();
    }

    /// Waits until the text holds the part; the text from then.
    std::string waitFor(const std::string& part)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [&] { return m_isOver || m_text.find(part) != std::string::npos; });
        return m_text;
    }
    /// The name of the stream, once it has begun and the states have come.
    std::string waitForId()
    {
        const std::string text = waitFor("event: login");
        const size_t at = text.find("{\"id\":\"");
        return at == std::string::npos ? std::string() : text.substr(at + 7, 64);
    }
    int waitForEnd()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [&] { return m_isOver; });
        return m_status;
    }

private:
    void run(const std::string& query)
    {
        m_client.set_read_timeout(60);
        const auto result = m_client.Get(
            "/api/v1/events" + query,
            [this](const httplib::Response& response) {
                m_status = response.status;
                return true;
            },
            [this](const char* bytes, size_t size) {
                std::lock_guard<std::mutex> lock(m_mutex);
                m_text.append(bytes, size);
                m_changed.notify_all();
                return true;
            });
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isOver = true;
        m_changed.notify_all();
    }

    httplib::Client m_client;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_text;
    bool m_isOver = false;
    std::atomic<int> m_status{0};
    std::thread m_thread;
};

PlayerStatus playing()
{
    PlayerStatus status;
    status.state = PlayerStatus::State::Playing;
    return status;
}

} // namespace

TEST(WebEventsTest, CarriesRowNoticesOfTheNamedPathsAndTheStates)
{
    WebWorld world;
    Follower follower(world.server.port(), "?path=/web/list%3Fa%3D1&path=/web/small");
    const std::string id = follower.waitForId();
    CMSubscribe* subscribe = world.worker->subscription();
    subscribe->rowsChanged(CMPath("/web/other"), CMSubscribe::RowsChangeReset(), 1);
    subscribe->rowsChanged(CMPath("/web/list"), QStringList{"-4"}, 119);
    world.player.notify(playing());
    world.login.start("tidal");
    subscribe->changedStartingWith(CMPath("/web"), CMSubscribe::RowsChangeClose());
    const std::string text =
        follower.waitFor(R"(data: {"path":"/web/small","change":"close","count":-1})");
    const std::string expected = "retry: 3000\n\nevent: stream\ndata: {\"id\":\"" + id + R"("}

event: player
data: {"queueVersion":0,"repeat":"off","shuffle":false,"state":"stopped","volume":100}

event: login
data: {"displayName":"tidal","loggedIn":false,"service":"tidal"}

event: rows
data: {"path":"/web/list?a=1","change":["-4"],"count":119}

event: player
data: {"positionMs":0,"queueVersion":0,"repeat":"off","shuffle":false,"state":"playing","volume":100}

event: login
data: {"displayName":"tidal","loggedIn":true,"service":"tidal"}

)";
    EXPECT_EQ(text.substr(0, expected.size()), expected);
    EXPECT_NE(text.find(R"({"path":"/web/list?a=1","change":"close","count":-1})"),
              std::string::npos);
}

TEST(WebEventsTest, WhoKnowsOneLoginHearsOfNoOtherServices)
{
    WebWorld world;
    world.login.names = QStringList{"radio"};
    Follower old(world.server.port(), "");
    Follower every(world.server.port(), "?logins=1");
    old.waitForId();
    every.waitForId();
    world.login.names = QStringList{"radio", "tidal"}; // is the usual one from now on
    world.login.start("radio");
    world.login.start("tidal");
    const auto event = [](const char* name, const char* loggedIn) {
        return std::string("event: login\ndata: {\"displayName\":\"") + name +
               "\",\"loggedIn\":" + loggedIn + ",\"service\":\"" + name + "\"}\n\n";
    };
    const std::string end = event("tidal", "true");
    const auto logins = [&](Follower& follower) {
        const std::string text = follower.waitFor(end);
        return text.substr(text.find("event: login"));
    };
    EXPECT_EQ(logins(old), event("radio", "false") + end);
    EXPECT_EQ(logins(every), event("radio", "false") + event("radio", "true") + end);
}

TEST(WebEventsTest, EveryStreamTellsOfEditsInTheirOrderAndLanguage)
{
    WebWorld world;
    Follower follower(world.server.port(), "?path=/web/list");
    Follower german(world.server.port(), "?language=de");
    follower.waitForId();
    german.waitForId();
    const QVariantHash reply = {
        {"title", QVariant::fromValue(TrString(TrCharData{"TIDAL", "Unexpected error", nullptr}))}};
    CMRoot().notifyEdit({CMPath("/web/add", {{"id", "1"}}), CMEdit::Add(), CMPath(), true});
    CMRoot().notifyEdit({CMPath("/web/go"), CMEdit::Delete(), CMPath("/web/list"), reply});
    const std::string added =
        "event: acted\ndata: {\"path\":\"/web/add?id=1\",\"action\":\"add\",\"reply\":true}\n\n";
    const std::string deleted = R"(event: acted
data: {"path":"/web/go","action":"delete","item":"/web/list","reply":{"title":)";
    EXPECT_NE(follower.waitFor("delete").find(added + deleted + R"("Unexpected error"}})"),
              std::string::npos);
    EXPECT_NE(german.waitFor("delete").find(added + deleted + R"("Unerwarteter Fehler"}})"),
              std::string::npos);
}

TEST(WebEventsTest, ALateAnswerThatNoServiceOwesIsTheStreamersOwn)
{
    WebWorld world;
    Follower follower(world.server.port(), "");
    auto held =
        std::async(std::launch::async, [&] { return world.set(R"({"path":"/web/hold"})").status; });
    const std::string expected = "event: waiting\ndata: {\"for\":\"streamer\",\"seconds\":";
    EXPECT_NE(follower.waitFor(expected).find(expected), std::string::npos);
    world.server.stop();
    EXPECT_EQ(held.get(), 503);
}

TEST(WebEventsTest, PathsAreOpenWhileTheStreamLivesAndAreReplacedWithoutAGap)
{
    WebWorld world;
    std::mutex mutex;
    std::condition_variable changed;
    QStringList log;
    const auto note = [&](const char* sign) {
        return [&, sign](const CMPath& path) {
            std::lock_guard<std::mutex> lock(mutex);
            log.append(QString::fromLatin1(sign) + path.toEncoded());
            changed.notify_all();
        };
    };
    CMSubscribe* subscribe = world.worker->subscription();
    QObject::connect(subscribe, &CMSubscribe::rowsPathAdded, world.worker, note("+"),
                     Qt::DirectConnection);
    QObject::connect(subscribe, &CMSubscribe::rowsPathRemoved, world.worker, note("-"),
                     Qt::DirectConnection);
    std::string id;
    const auto replace = [&](const std::string& paths) {
        return world.post("/api/v1/events/paths",
                          R"({"stream":")" + id + R"(","paths":)" + paths + "}");
    };
    {
        Follower follower(world.server.port(), "?path=/web/list");
        id = follower.waitForId();
        const auto answer = replace(R"(["/web/small","/nobody","/web/list","/web/small"])");
        EXPECT_EQ(answer.status, 200);
        EXPECT_EQ(answer.body, R"({"paths":["/web/small","/web/list"],"refused":["/nobody"]})");
        EXPECT_EQ(replace(R"(["/web/small"])").status, 200);
        subscribe->rowsChanged(CMPath("/web/list"), CMSubscribe::RowsChangeReset(), 1);
        subscribe->rowsChanged(CMPath("/web/small"), CMSubscribe::RowsChangeReset(), 2);
        const std::string text = follower.waitFor(R"("count":2)");
        EXPECT_EQ(text.find(R"("count":1)"), std::string::npos) << "the path was closed";
        std::string many = R"(["/web/list")";
        for (int i = 0; i < 256; ++i)
            many += R"(,"/web/small")";
        for (const std::string& bad : {many + "]", std::string("1"), std::string("[1]"),
                                       std::string(R"(["/web/list","%zz"])"), std::string("{}")})
            EXPECT_EQ(replace(bad).status, 400) << bad;
        EXPECT_EQ(world.post("/api/v1/events/paths", R"({"paths":[]})").status, 400);
    }
    std::unique_lock<std::mutex> lock(mutex);
    const QStringList expected{"+/web/list", "+/web/small", "-/web/list", "-/web/small"};
    changed.wait(lock, [&] { return log.size() >= expected.size(); });
    EXPECT_EQ(log, expected) << log.join(' ').toStdString();
    lock.unlock();
    EXPECT_EQ(replace("[]").status, 404) << "the stream is over";
}

TEST(WebEventsTest, TheModulesRequestsAreListedAndTold)
{
    WebWorld world;
    HttpCallRecord record;
    record.status = 200;
    record.bytes = 7;
    record.setUrl(KeloUrl("http://service.example/v1/a?token=secret"));
    HttpCallLog& log = HttpCallLog::instance();
    log.add(record);
    const std::string last = std::to_string(log.lastNumber());
    const std::string next = std::to_string(log.lastNumber() + 1);
    Follower follower(world.server.port(), "?requests=1");
    Follower other(world.server.port(), "");
    follower.waitForId();
    other.waitForId();
    log.add(record);
    world.player.notify(playing());
    const std::string expected =
        R"({"id":)" + next +
        R"(,"time":"1970-01-01T00:00:00.000Z","method":"GET",)"
        R"("address":"http://service.example/v1/a?token=***","status":200,"error":"",)"
        R"("durationMs":0,"bytes":7})";
    EXPECT_NE(follower.waitFor("playing").find("event: request\ndata: " + expected + "\n\n"),
              std::string::npos);
    EXPECT_EQ(other.waitFor("playing").find("request"), std::string::npos) << "not asked for";
    EXPECT_EQ(world.get("/api/v1/requests?after=" + last).body,
              R"({"last":)" + next + R"(,"requests":[)" + expected + "]}");
    EXPECT_EQ(world.get("/api/v1/requests?after=" + next).body,
              R"({"last":)" + next + R"(,"requests":[]})");
    EXPECT_EQ(world.get("/api/v1/requests?after=99999").body, world.get("/api/v1/requests").body)
        << "a number from before a restart";
    for (const char* bad :
         {"/api/v1/requests?after=x", "/api/v1/events?requests=2", "/api/v1/events?logins="})
        EXPECT_EQ(world.get(bad).status, 400) << bad;
}

TEST(WebEventsTest, TooManyClientsAreRefusedAndStoppingEndsAll)
{
    WebWorld world;
    std::vector<std::unique_ptr<Follower>> followers;
    for (int i = 0; i < 256; ++i) {
        followers.push_back(std::make_unique<Follower>(world.server.port(), ""));
        followers.back()->waitFor("retry:");
    }
    const auto refused = world.get("/api/v1/events");
    EXPECT_EQ(refused.status, 503);
    EXPECT_EQ(refused.detail(), "There are 256 event streams already.");
    EXPECT_EQ(world.get("/api/v1/player").status, 200) << "others are still served";
    world.server.stop();
    for (const auto& follower : followers)
        EXPECT_EQ(follower->waitForEnd(), 200);
}

TEST(WebEventsTest, AClientThatReadsNothingIsDroppedAndOthersGoOn)
{
    WebWorld world;
    std::promise<void> closed;
    CMSubscribe* subscribe = world.worker->subscription();
    QObject::connect(
        subscribe, &CMSubscribe::rowsPathRemoved, world.worker, [&] { closed.set_value(); },
        Qt::DirectConnection);
    Follower other(world.server.port(), "");
    other.waitForId();
    const std::string path = "/web/list%3Fa%3D" + std::string(4000, 'x');
    const int socket =
        world.connectTo("GET /api/v1/events?path=" + path + " HTTP/1.1\r\nHost: localhost\r\n\r\n");
    char first = 0;
    ASSERT_EQ(::recv(socket, &first, 1, 0), 1);
    for (int i = 0; i < 5000; ++i)
        subscribe->rowsChanged(CMPath("/web/list"), CMSubscribe::RowsChangeReset(), i);
    world.player.notify(playing());
    other.waitFor("playing");
    closed.get_future().wait();
    ::close(socket);
    EXPECT_NE(world.get("/metrics").body.find("kelo_event_clients_dropped_total 1\n"),
              std::string::npos);
}

TEST(WebEventsTest, OfAStateOnlyTheLatestWaits)
{
    int wakes = 0;
    EventClient client("id");
    client.setWake([&] { ++wakes; });
    client.push("player", "1", "player");
    client.pushFirst("player", "old", "player");
    client.push("player", "2", "player");
    client.push("login", "a's", "login a");
    client.push("login", "b's", "login b");
    client.push("rows", "a");
    client.push("rows", "b");
    EXPECT_EQ(wakes, 1) << "the others come with the first";
    EXPECT_EQ(client.take(), "event: player\ndata: 2\n\nevent: login\ndata: a's\n\n"
                             "event: login\ndata: b's\n\nevent: rows\ndata: a\n\n"
                             "event: rows\ndata: b\n\n");
    EXPECT_EQ(client.take(), "");
    for (int i = 0; i < 256; ++i)
        client.push("rows", "x");
    EXPECT_FALSE(client.isDropped());
    client.push("rows", "one too many");
    EXPECT_TRUE(client.isDropped());
    EXPECT_TRUE(client.isClosed());
    EXPECT_EQ(wakes, 3);
}
