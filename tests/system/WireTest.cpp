#include "ServiceTest.h"

#include <kelosim/SimServer.h>
#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

namespace {

const QString newAlbums = QStringLiteral("/tidal/req/featured/new/albums");

class WireTest : public ServiceTest
{
protected:
    Streamer::Answer rows(const QString& path) const
    {
        return streamer.get("/api/v1/rows?path=" + QUrl::toPercentEncoding(path));
    }
    Streamer::Answer play(const QByteArray& id) const
    {
        return streamer.post("/api/v1/player/play", R"({"path":")" + id + R"("})");
    }
    /// The requests as the service saw them: method and path below /v1.
    QStringList requests(const QString& pathStart = "/") const
    {
        QStringList lines;
        const auto log = QJsonDocument::fromJson(QByteArray::fromStdString(sim->log())).array();
        for (const QJsonValue& entry : log) {
            const QString path = entry["path"].toString().mid(3);
            if (path.startsWith(pathStart))
                lines << entry["method"].toString() + ' ' + path;
        }
        return lines;
    }
};

} // namespace

TEST_F(WireTest, theSetUpBeginsWithTheSessionAndAsksForTheMenusOnce)
{
    const std::pair<QString, int> menus[] = {{"/tidal/genres", 19}, {"/tidal/playlists", 5}};
    for (int login = 1; login <= 2; ++login) {
        EXPECT_EQ(rows("/tidal").status, 200);
        ASSERT_TRUE(sim->waitForRequests("/featured", login, 20000));
        for (const auto& [menu, count] : menus) {
            int shown = 0; // the answer fills the menu behind the set-up
            for (QDeadlineTimer end(20000); shown == 0 && !end.hasExpired();)
                shown = rows(menu).body["rowsCount"].toInt();
            EXPECT_EQ(shown, count) << menu.toStdString();
        }
        EXPECT_EQ(streamer.kelo({"logout"}).status, 0);
        ASSERT_TRUE(streamer.login());
    }
    const QStringList all = requests();
    for (const char* next : {"GET /featured", "GET /users/770011/subscription"})
        EXPECT_LT(all.indexOf("GET /sessions"), all.indexOf(next)) << next;
    EXPECT_EQ(all.count("GET /genres"), 1);
    EXPECT_EQ(all.count("GET /moods"), 1);
}

TEST_F(WireTest, noSecretIsInTheLog)
{
    streamer.stop();
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(*sim), {"--log-level", "trace"}));
    EXPECT_EQ(rows(newAlbums).status, 200);
    EXPECT_EQ(play("6000002").status, 200);
    sim->expireTokens();
    rows(newAlbums);
    ASSERT_TRUE(sim->waitForRequests("/oauth2/token", 1, 20000));
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
    ASSERT_EQ(rows(newAlbums).status, 200);
    sim->reset();
    sim->expireTokens();
    EXPECT_EQ(rows(newAlbums).body["detail"].toString(), "Unauthorized");
    ASSERT_TRUE(sim->waitForRequests("/oauth2/token", 1, 20000));
    Streamer::Answer answer;
    for (QDeadlineTimer end(20000); answer.status != 200 && !end.hasExpired();)
        answer = rows(newAlbums);
    EXPECT_EQ(answer.status, 200) << answer.body["detail"].toString().toStdString();
    EXPECT_EQ(requests("/oauth2/token").size(), 1) << "one refusal or many, one refresh";

    // What is refused for playback is no matter of the token.
    sim->addFault("status path=/tracks/6000001 status=401 sub=4005 message=Not%20ready");
    EXPECT_EQ(play("6000001").status, 502);
    EXPECT_EQ(requests("/oauth2/token").size(), 1);
}

TEST_F(WireTest, whatGoesWrongOnTheWayIsOneAnswerAndNotTheEnd)
{
    ASSERT_EQ(rows("/tidal").status, 200);
    const char* const unknown = "unknown Error";
    const struct
    {
        const char* fault;
        int status;
        const char* said; ///< the problem, or the title of the only row
    } faults[] = {
        {"status status=503", 502, "Service Unavailable: Back-end server is at capacity"},
        {"status status=502 body=html", 502, unknown},
        {"reset when=before", 502, unknown},
        {"reset when=after", 502, unknown},
        {"truncate bytes=100", 502, unknown},
        {"truncate bytes=100 framing=ok", 200, "No items found"},
        {"empty", 200, "No items found"},
        {"size bytes=262145", 502, unknown},
        {"size bytes=262144", 200, nullptr},
        {"hang", 504, nullptr},
        {nullptr, 200, nullptr},
    };
    for (const auto& row : faults) {
        sim->clearFaults();
        if (row.fault) {
            ASSERT_EQ(sim->addFault(row.fault), "");
        }
        const Streamer::Answer answer = rows(newAlbums);
        const char* const name = row.fault ? row.fault : "none";
        EXPECT_EQ(answer.status, row.status) << name;
        if (row.said && row.status == 200) {
            EXPECT_EQ(answer.body["rowsCount"].toInt(), 1) << name;
            EXPECT_EQ(answer.body["rows"].toArray().at(0)["Title"].toString(), row.said) << name;
        } else if (row.said) {
            EXPECT_EQ(answer.body["detail"].toString(), row.said) << name;
        }
    }
}
