#include "ServiceTest.h"
#include "Table.h"

#include <QDir>

using LoginTest = ServiceTest;

TEST_F(LoginTest, everyFailureHasItsReasonAndTheCommandLineSaysWhatToDo)
{
    for (const auto& [faults, reason, advice] :
         Table<std::vector<const char*>, const char*, const char*>{
             {{"oauth error=invalid_grant"}, "ended", "Run kelo login to log in again."},
             {{"oauth-code error=invalid_client"}, "client", "Check client_id and client_secret"},
             {{"status=503 path=/oauth2"}, "service", "Try again in a few minutes."},
             {{"status=503 path=/oauth2", "date ahead=3600"}, "clock", "(timedatectl)"},
             {{"reset path=/oauth2"}, "network", "Check the network"},
             {{"oauth error=access_denied"}, "denied", "Run kelo login again"},
             {{"device-code interval=1 expires=1"}, "expired", "Run kelo login again"}}) {
        SCOPED_TRACE(faults.front());
        sim->clearFaults();
        for (const char* fault : faults)
            ASSERT_EQ(sim->addFault(fault), "");
        if (reason == std::string("ended")) {
            sim->expireTokens();
            streamer.rowsError("/tidal/req/featured/new/albums");
        } else {
            sim->addFault("device-code interval=1 expires=60"); // the older of two strikes
            const Outcome login = streamer.kelo({"login"});
            EXPECT_EQ(login.status, 1);
            EXPECT_TRUE(login.err.contains(advice)) << login.err.toStdString();
        }
        EXPECT_TRUE(streamer.waitForEvent("login", [expected = reason](const QJsonObject& login) {
            return login["reason"] == expected;
        }));
        const Outcome status = streamer.kelo({"login", "--status"});
        EXPECT_EQ(status.status, 1);
        EXPECT_TRUE(status.out.contains(advice)) << status.out.toStdString();
    }
}

TEST_F(LoginTest, aModuleThatRegistersLaterIsLoggedInAndOutBesideTheFirst)
{
    streamer.stop();
    const QStringList both{"--module", KELO_SHELF, "--module", KELO_MODULE};
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(*sim), both));
    const Outcome before = streamer.kelo({"login", "--status", "--json"});
    EXPECT_EQ(before.json().keys(), (QStringList{"displayName", "loggedIn", "service", "user"}));
    EXPECT_EQ(streamer.kelo({"login", "shelf"}).err,
              "kelo: there is no login service \"shelf\", only: tidal\n");
    EXPECT_EQ(streamer.kelo({"set", "/shelf/register"}).status, 0);
    EXPECT_EQ(streamer.rowsError("/shelf/tones"), "The shelf is locked");
    EXPECT_EQ(streamer.kelo({"login", "shelf"}).status, 0) << streamer.errors().toStdString();
    EXPECT_EQ(streamer.rows("/shelf/tones")["rowsCount"].toInt(), 60);

    EXPECT_EQ(streamer.kelo({"logout"}).status, 0);
    EXPECT_EQ(streamer.kelo({"login", "--status"}).out,
              "tidal\tnot logged in\nshelf\tlogged in: x@example.invalid\n");
    const QDir tokens(streamer.stateFolder() + "/oauth2");
    EXPECT_EQ(tokens.entryList(QDir::Files), QStringList{"shelf.json"});
    EXPECT_EQ(streamer.get("/api/v1/login").body["service"], "tidal");
    EXPECT_EQ(streamer.kelo({"rows", "/shelf/tones"}).status, 0);
    EXPECT_EQ(streamer.kelo({"logout", "shelf"}).status, 0);
    EXPECT_EQ(streamer.rowsError("/shelf/tones"), "The shelf is locked");
}
