#include "ServiceTest.h"

#include <httplib.h>
#include <QUrl>

namespace {

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

bool waitForReason(const Streamer& streamer, const char* reason)
{
    return streamer.waitForEvent(
        "login", [reason](const QJsonObject& login) { return text(login, "reason") == reason; });
}

class LoginServiceTest : public ServiceTest
{
};

} // namespace

TEST(LoginTest, everyFailureHasItsReasonAndTheCommandLineSaysWhatToDo)
{
    kelosim::SimServer sim{kelosim::SimOptions()};
    std::string error;
    ASSERT_TRUE(sim.start(&error)) << error;
    Streamer streamer;
    ASSERT_TRUE(streamer.start(Streamer::settingsFor(sim))) << streamer.errors().toStdString();
    const struct
    {
        std::vector<const char*> faults;
        const char* reason;
        const char* advice;
    } rows[] = {
        {{"oauth-code error=invalid_client"}, "client", "Check client_id and client_secret"},
        {{"status=503 path=/oauth2"}, "service", "Try again in a few minutes."},
        {{"status=503 path=/oauth2", "date ahead=3600"}, "clock", "(timedatectl)"},
        {{"status=503 path=/oauth2", "date behind=3600"}, "clock", "(timedatectl)"},
        {{"reset path=/oauth2"}, "network", "Check the network"},
        {{"oauth error=access_denied"}, "denied", "Run kelo login again"},
        {{"device-code interval=1 expires=1"}, "expired", "Run kelo login again"},
    };
    for (const auto& row : rows) {
        sim.clearFaults();
        for (const char* fault : row.faults)
            ASSERT_EQ(sim.addFault(fault), "");
        sim.addFault("device-code interval=1 expires=60"); // the older of two strikes
        const Outcome login = streamer.kelo({"login"});
        EXPECT_EQ(login.status, 1) << row.faults.front();
        EXPECT_TRUE(login.err.contains(row.advice)) << login.err.toStdString();
        EXPECT_TRUE(waitForReason(streamer, row.reason)) << row.faults.front();
        const Outcome status = streamer.kelo({"login", "--status"});
        EXPECT_EQ(status.status, 1);
        EXPECT_TRUE(status.out.contains(row.advice)) << status.out.toStdString();
    }
}

TEST(LoginTest, whoLogsOutOfTheDemoConfirmsTheNextLoginInTheBrowser)
{
    Streamer streamer;
    ASSERT_TRUE(streamer.startDemo()) << streamer.errors().toStdString();
    EXPECT_EQ(streamer.kelo({"logout"}).status, 0);
    for (const char* answer : {"refuse", "confirm"}) {
        const QJsonObject pending = streamer.post("/api/v1/login", "{}").body["pending"].toObject();
        const QUrl page(text(pending, "verificationUriComplete"));
        httplib::Client browser(page.host().toStdString(), page.port());
        const auto shown = browser.Get(page.path().toStdString().c_str());
        ASSERT_TRUE(shown) << page.toString().toStdString();
        EXPECT_NE(shown->body.find(text(pending, "userCode").toStdString()), std::string::npos);
        const httplib::Params form{{"userCode", text(pending, "userCode").toStdString()},
                                   {"answer", answer}};
        EXPECT_EQ(browser.Post("/link", form)->status, 200);
        if (answer == std::string("refuse")) {
            EXPECT_TRUE(waitForReason(streamer, "denied"));
        }
    }
    EXPECT_TRUE(streamer.waitForEvent(
        "login", [](const QJsonObject& login) { return login["loggedIn"].toBool(); }));
}

TEST_F(LoginServiceTest, aLoginThatTheServiceEndsSaysSo)
{
    ASSERT_EQ(sim->addFault("oauth error=invalid_grant"), "");
    sim->expireTokens();
    streamer.rowsError("/tidal/req/featured/new/albums");
    EXPECT_TRUE(waitForReason(streamer, "ended"));
    const Outcome status = streamer.kelo({"login", "--status"});
    EXPECT_EQ(status.status, 1);
    EXPECT_TRUE(status.out.contains("Run kelo login to log in again.")) << status.out.toStdString();
}
