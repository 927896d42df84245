#include "ServiceTest.h"

#include <gtest/gtest.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

namespace {
/// A request as the service saw it: method, path below /v1 and the query in order.
QStringList requestsOf(const kelosim::SimServer& sim, const QString& pathStart)
{
    QStringList lines;
    const QJsonArray log = QJsonDocument::fromJson(QByteArray::fromStdString(sim.log())).array();
    for (const QJsonValue& value : log) {
        const QJsonObject entry = value.toObject();
        const QString path = entry.value(QStringLiteral("path")).toString();
        if (!path.startsWith(QStringLiteral("/v1") + pathStart))
            continue;
        QStringList items;
        for (const QJsonValue& item : entry.value(QStringLiteral("query")).toArray())
            items << item.toArray().at(0).toString() + QLatin1Char('=') +
                         item.toArray().at(1).toString();
        lines << entry.value(QStringLiteral("method")).toString() + QLatin1Char(' ') + path.mid(3) +
                     (items.isEmpty() ? QString()
                                      : QLatin1Char('?') + items.join(QLatin1Char('&')));
    }
    return lines;
}

QString headerOf(const kelosim::SimServer& sim, const QString& pathStart, const QString& name)
{
    const QJsonArray log = QJsonDocument::fromJson(QByteArray::fromStdString(sim.log())).array();
    for (const QJsonValue& value : log) {
        if (!value.toObject()
                 .value(QStringLiteral("path"))
                 .toString()
                 .startsWith(QStringLiteral("/v1") + pathStart))
            continue;
        for (const QJsonValue& header :
             value.toObject().value(QStringLiteral("headers")).toArray()) {
            if (header.toArray().at(0).toString().compare(name, Qt::CaseInsensitive) == 0)
                return header.toArray().at(1).toString();
        }
    }
    return QString();
}

class WireTest : public ServiceTest
{
protected:
    Streamer::Answer rows(const QString& path, const QString& range = QString())
    {
        return streamer.get(QStringLiteral("/api/v1/rows?path=") +
                            QString::fromUtf8(QUrl::toPercentEncoding(path)) + range);
    }
};
using SetupTest = WireTest;
using FaultTest = WireTest;
} // namespace

TEST_F(WireTest, theFirstRequestSetsTheSessionUpInOrder)
{
    EXPECT_EQ(rows("/tidal").status, 200);
    QStringList all = requestsOf(*sim, "/");
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const QString& line) { return line.contains("/oauth2/"); }),
              all.end());
    ASSERT_GE(all.size(), 3);
    EXPECT_EQ(all.first(), QStringLiteral("GET /sessions"));
    EXPECT_TRUE(all.contains("GET /users/770011/subscription"));
    EXPECT_TRUE(all.contains("GET /featured?countryCode=NO"));
    EXPECT_LT(all.indexOf("GET /featured?countryCode=NO"),
              all.indexOf("GET /users/770011/subscription"));
    EXPECT_TRUE(headerOf(*sim, "/sessions", "Authorization").startsWith("Bearer "));
}

TEST_F(WireTest, everyListAsksWithItsOwnPathAndItemsInOrder)
{
    const struct
    {
        const char* path;
        const char* range;
        const char* request;
    } lists[] = {
        {"/tidal/req/featured/new/albums", "&from=0&to=49",
         "GET /featured/new/albums?countryCode=NO&offset=0&limit=50"},
        {"/tidal/req/featured/top/tracks", "&from=10&to=14",
         "GET /featured/top/tracks?countryCode=NO&offset=10&limit=5"},
        {"/tidal/req/master/recommended/playlists", "&from=0&to=9",
         "GET /master/recommended/playlists?countryCode=NO&offset=0&limit=10"},
        {"/tidal/tidalRising/req/rising/new/tracks", "&from=0&to=9",
         "GET /rising/new/tracks?countryCode=NO&offset=0&limit=10"},
        {"/tidal/tidalDiscovery/req/discovery/new/albums", "&from=0&to=9",
         "GET /discovery/new/albums?countryCode=NO&offset=0&limit=10"},
        {"/tidal/req/albums?contentId=500001", "&from=0&to=9",
         "GET /albums/500001/tracks?countryCode=NO&offset=0&limit=10"},
        {"/tidal/req/playlists?contentId=abc", "&from=0&to=9",
         "GET "
         "/playlists/abc/tracks?countryCode=NO&order=INDEX&orderDirection=ASC&offset=0&limit=10"},
        {"/tidal/search/choose/req/tracks?query=a%26b%3D%2F%C3%A5", "&from=0&to=9",
         "GET /search/tracks?query=a&b=/\u00e5&countryCode=NO&offset=0&limit=10"},
        {"/tidal/myMusic/req/favorites/users/albums", "&from=0&to=9",
         "GET /users/770011/favorites/albums?countryCode=NO&offset=0&orderDirection=ASC&limit=10"
         "&order=NAME&filter=ALL"},
        {"/tidal/myMusic/req/created/users/playlists", "&from=3&to=9",
         "GET /users/770011/playlists?countryCode=NO&offset=3&orderDirection=ASC&limit=7"
         "&order=NAME&filter=ALL"},
        {"/tidal/context/addToPlaylists/req/created/users/playlists?id=1&type=Tracks",
         "&from=2&to=51",
         "GET /users/770011/playlists?countryCode=NO&offset=0&orderDirection=ASC&limit=50"
         "&order=NAME&filter=ALL"},
    };
    rows("/tidal");
    for (const auto& list : lists) {
        sim->reset();
        rows(QString::fromUtf8(list.path), QString::fromUtf8(list.range));
        const QString wanted = QString::fromUtf8(list.request);
        const QStringList seen =
            requestsOf(*sim, wanted.section(QLatin1Char(' '), 1).section(QLatin1Char('?'), 0, 0));
        EXPECT_EQ(seen, QStringList{wanted}) << list.path;
    }
}

TEST_F(WireTest, playingAsksForTheTrackAndItsStreamNoBetterThanTheSubscription)
{
    sim->addFault("subscription quality=HIGH");
    rows("/tidal");
    EXPECT_EQ(streamer.post("/api/v1/player/play", "{\"path\":\"6000001\"}").status, 200);
    // The two look-ups run at the same time.
    QStringList requests = requestsOf(*sim, "/tracks/6000001");
    requests.sort();
    EXPECT_EQ(requests,
              QStringList({"GET /tracks/6000001/playbackinfopostpaywall?countryCode=NO"
                           "&playbackmode=STREAM&assetpresentation=FULL&audioquality=HIGH",
                           "GET /tracks/6000001?countryCode=NO"}));
}

TEST_F(WireTest, noSecretIsInTheLog)
{
    rows("/tidal/req/featured/new/albums");
    EXPECT_EQ(streamer.post("/api/v1/player/play", "{\"path\":\"6000001\"}").status, 200);
    streamer.stop();
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(*sim), {"--log-level", "trace"}));
    rows("/tidal/req/featured/new/albums");
    EXPECT_EQ(streamer.post("/api/v1/player/play", "{\"path\":\"6000002\"}").status, 200);
    streamer.stop();
    const QByteArray log = streamer.errors();
    EXPECT_TRUE(log.contains("Url get request: ")) << log.left(2000).toStdString();
    EXPECT_TRUE(
        log.contains("Enter virtual void TidalWorker::getRowsRequest(const CMGetRowsRequest&): "));
    EXPECT_FALSE(log.contains("Bearer "));
    EXPECT_FALSE(log.contains("kelo-demo-secret"));
    const int token = log.indexOf("token=");
    EXPECT_TRUE(token < 0 || log.mid(token + 6, 3) == "***") << log.mid(token, 60).toStdString();
}

TEST_F(WireTest, aTokenThatTheServiceRefusesIsReplaced)
{
    const QString list = QStringLiteral("/tidal/req/featured/new/albums");
    ASSERT_EQ(rows(list).status, 200);
    sim->reset();
    sim->expireTokens();
    EXPECT_EQ(rows(list).body.value("detail").toString().toStdString(), "Unauthorized");
    ASSERT_TRUE(sim->waitForRequests("/oauth2/token", 1, 20000));
    int status = 0;
    for (int i = 0; i < 500 && status != 200; ++i)
        status = rows(list).status;
    EXPECT_EQ(status, 200);
    EXPECT_EQ(requestsOf(*sim, "/oauth2/token").size(), 1) << "one refusal or many, one refresh";

    // What is refused for playback is no matter of the token.
    sim->addFault("status path=/tracks/6000001 status=401 sub=4005 message=Not%20ready");
    EXPECT_EQ(streamer.post("/api/v1/player/play", "{\"path\":\"6000001\"}").status, 502);
    EXPECT_EQ(requestsOf(*sim, "/oauth2/token").size(), 1);
}

TEST_F(SetupTest, requestsThatComeDuringTheSetUpAreServedInOrderOrAllFail)
{
    sim->addFault("status path=/sessions status=500 count=1");
    sim->addFault("delay path=/sessions ms=500");
    const auto ask = [this](const QString& path) {
        auto process = std::make_unique<QProcess>();
        process->start(QStringLiteral(KELO_PROGRAM),
                       {"--server", streamer.url(), "rows", path, "--to", "4"});
        return process;
    };
    const QStringList paths{"/tidal", "/tidal/req/featured/new/albums", "/tidal/myMusic"};
    for (const bool isFailing : {true, false}) {
        std::vector<std::unique_ptr<QProcess>> asking;
        asking.push_back(ask(paths.at(0)));
        EXPECT_TRUE(sim->waitForRequests("/sessions", isFailing ? 1 : 2, 20000));
        asking.push_back(ask(paths.at(1)));
        asking.push_back(ask(paths.at(2)));
        for (const auto& process : asking) {
            ASSERT_TRUE(process->waitForFinished(30000));
            EXPECT_EQ(process->exitCode(), isFailing ? 1 : 0)
                << process->readAllStandardError().toStdString();
            if (isFailing) {
                EXPECT_TRUE(process->readAllStandardError().contains("Failed to initialize TIDAL"));
            }
        }
    }
    EXPECT_EQ(requestsOf(*sim, "/sessions").size(), 2);
}

TEST_F(FaultTest, eachFailureOfTheServiceIsOneAnswerWithItsText)
{
    ASSERT_EQ(rows("/tidal").status, 200);
    const QStringList lists{
        "/tidal/req/featured/new/albums",           "/tidal/req/albums?contentId=500001",
        "/tidal/search/choose/req/artists?query=a", "/tidal/myMusic/req/favorites/users/tracks",
        "/tidal/req/featured/new/playlists",        "/tidal/myMusic/req/created/users/playlists"};
    const struct
    {
        const char* fault;
        const char* text; ///< empty: the rows say "No items found"
    } faults[] = {
        {"status status=500", "Unexpected error"},
        {"status status=404 body=json", "Not found"},
        {"status status=404 body=none", "Not found"},
        {"status status=404 body=html", "Not found"},
        {"status status=401 sub=11003", "Unauthorized"},
        {"status status=400", "Bad request"},
        {"status status=503", "Service Unavailable: Back-end server is at capacity"},
        {"status status=502 body=html", "unknown Error"},
        {"no-content", "unknown Error"},
        {"reset when=before", "unknown Error"},
        {"truncate bytes=100", "unknown Error"},
        {"truncate bytes=100 framing=ok", ""},
        {"size bytes=262145", "unknown Error"},
        {"empty", ""},
    };
    for (const auto& fault : faults) {
        for (const QString& list : lists) {
            sim->clearFaults();
            ASSERT_EQ(sim->addFault(std::string(fault.fault)), "");
            const Streamer::Answer answer = rows(list, "&from=0&to=9");
            const std::string where = std::string(fault.fault) + " " + list.toStdString();
            if (*fault.text) {
                EXPECT_EQ(answer.status, 502) << where;
                EXPECT_EQ(answer.body.value("detail").toString().toStdString(), fault.text)
                    << where;
            } else {
                EXPECT_EQ(answer.status, 200) << where;
                EXPECT_EQ(answer.body.value("rowsCount").toInt(), 1) << where;
                EXPECT_EQ(answer.body.value("rows").toArray().at(0).toObject().value("Title"),
                          "No items found")
                    << where;
            }
        }
    }
    sim->clearFaults();
    ASSERT_EQ(sim->addFault("size path=/featured bytes=262144"), "");
    EXPECT_EQ(rows(lists.first()).status, 200) << "a body of exactly the limit is read";
    sim->clearFaults();
    ASSERT_EQ(sim->addFault("hang path=/featured"), "");
    EXPECT_EQ(rows(lists.first()).status, 504);
    sim->clearFaults();
    EXPECT_EQ(rows(lists.first()).status, 200);
    EXPECT_TRUE(streamer.isRunning());
}

TEST_F(FaultTest, aSetUpThatFailsIsToldToEachRequestAndTriedAgainByTheNext)
{
    for (const char* path : {"/sessions", "/users/770011/subscription"}) {
        for (const char* fault :
             {"status status=500", "status status=404 body=json", "status status=404 body=none",
              "status status=401 sub=4006", "status status=503 body=html", "reset when=after",
              "truncate bytes=20", "size bytes=262145"}) {
            sim->clearFaults();
            const std::string line = std::string(fault) + " path=" + path;
            ASSERT_EQ(sim->addFault(line), "");
            const Streamer::Answer answer = rows("/tidal/myMusic");
            EXPECT_EQ(answer.status, 502) << line;
            EXPECT_EQ(answer.body.value("detail").toString().toStdString(),
                      "Failed to initialize TIDAL")
                << line;
        }
    }
    sim->clearFaults();
    EXPECT_EQ(rows("/tidal/myMusic").status, 200);
}

TEST_F(FaultTest, aTrackThatCannotBePlayedSaysWhy)
{
    ASSERT_EQ(rows("/tidal").status, 200);
    const struct
    {
        const char* fault;
        const char* text;
    } faults[] = {
        {"status path=/tracks/6000001 status=404 message=Gone count=1", "Gone"},
        {"status path=/tracks/6000001 status=500 body=html",
         "Error, failed to parse error message"},
        {"manifest kind=dash", "unsupported manifest type"},
        {"manifest kind=unknown", "unsupported manifest type"},
        {"manifest kind=nonjson", "invalid manifest"},
        {"manifest kind=badbase64", "invalid manifest"},
        {"manifest kind=nourls", "invalid manifest"},
        {"empty path=/tracks/6000001", "media data resolution incomplete"},
    };
    for (const auto& fault : faults) {
        sim->clearFaults();
        ASSERT_EQ(sim->addFault(fault.fault), "");
        const Streamer::Answer answer =
            streamer.post("/api/v1/player/play", "{\"path\":\"6000001\"}");
        EXPECT_EQ(answer.status, 502) << fault.fault;
        EXPECT_EQ(answer.body.value("detail").toString().toStdString(), fault.text) << fault.fault;
    }
    sim->clearFaults();
    EXPECT_EQ(streamer.post("/api/v1/player/play", "{\"path\":\"6000001\"}").status, 200);
}
