#include "ServiceTest.h"

using LoginTest = ServiceTest;

TEST_F(LoginTest, everyFailureHasItsReasonAndTheCommandLineSaysWhatToDo)
{
    const struct
    {
        std::vector<const char*> faults;
        const char* reason;
        const char* advice;
    } rows[] = {
        {{"oauth error=invalid_grant"}, "ended", "Run kelo login to log in again."},
        {{"oauth-code error=invalid_client"}, "client", "Check client_id and client_secret"},
        {{"status=503 path=/oauth2"}, "service", "Try again in a few minutes."},
        {{"status=503 path=/oauth2", "date ahead=3600"}, "clock", "(timedatectl)"},
        {{"reset path=/oauth2"}, "network", "Check the network"},
        {{"oauth error=access_denied"}, "denied", "Run kelo login again"},
        {{"device-code interval=1 expires=1"}, "expired", "Run kelo login again"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.faults.front());
        sim->clearFaults();
        for (const char* fault : row.faults)
            ASSERT_EQ(sim->addFault(fault), "");
        if (row.reason == std::string("ended")) {
            sim->expireTokens();
            streamer.rowsError("/tidal/req/featured/new/albums");
        } else {
            sim->addFault("device-code interval=1 expires=60"); // the older of two strikes
            const Outcome login = streamer.kelo({"login"});
            EXPECT_EQ(login.status, 1);
            EXPECT_TRUE(login.err.contains(row.advice)) << login.err.toStdString();
        }
        EXPECT_TRUE(streamer.waitForEvent(
            "login", [&](const QJsonObject& login) { return login["reason"] == row.reason; }));
        const Outcome status = streamer.kelo({"login", "--status"});
        EXPECT_EQ(status.status, 1);
        EXPECT_TRUE(status.out.contains(row.advice)) << status.out.toStdString();
    }
}
