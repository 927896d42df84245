#include "SimFixture.h"

namespace {

const char* const client = "client_id=kelo-demo&client_secret=kelo-demo-secret";

class SimOAuth2 : public SimFixture
{
protected:
    httplib::Result post(const std::string& path, const std::string& form)
    {
        httplib::Client plain("127.0.0.1", m_sim.port());
        return plain.Post(("/v1/oauth2" + path).c_str(), form, "application/x-www-form-urlencoded");
    }

    Json deviceCode()
    {
        return parse(post("/device_authorization", "client_id=kelo-demo&scope=r_usr")->body);
    }

    httplib::Result poll(const Json& device)
    {
        return post("/token", std::string(client) +
                                  "&grant_type=urn:ietf:params:oauth:grant-type:device_code"
                                  "&device_code=" +
                                  device["deviceCode"].GetString());
    }

    httplib::Result refresh(const std::string& token)
    {
        return post("/token",
                    std::string(client) + "&grant_type=refresh_token&refresh_token=" + token);
    }

    static std::string error(const httplib::Result& result)
    {
        const Json body = parse(result->body);
        return body.HasMember("error") ? body["error"].GetString() : "";
    }

    int decide(const char* how, const Json& device)
    {
        const httplib::Params form{{"userCode", device["userCode"].GetString()}};
        return m_client->Post((std::string("/sim/login/") + how).c_str(), form)->status;
    }
};

TEST_F(SimOAuth2, DeviceFlowWaitsForThePersonAndItsTokenWorks)
{
    const Json device = deviceCode();
    EXPECT_EQ(device["userCode"].GetStringLength(), 5u);
    EXPECT_EQ(device["interval"].GetInt(), 2);
    EXPECT_EQ(error(poll(device)), "authorization_pending");
    EXPECT_EQ(error(poll(device)), "slow_down");
    EXPECT_EQ(decide("approve", device), 200);
    const auto granted = poll(device);
    ASSERT_EQ(granted->status, 200);
    const Json token = parse(granted->body);
    EXPECT_EQ(token["user_id"].GetInt(), 770011);
    m_client->set_bearer_token_auth(token["access_token"].GetString());
    EXPECT_EQ(outcome(get("/sessions", false)), "200");
    EXPECT_EQ(error(poll(device)), "expired_token") << "a code is good for one login";
}

TEST_F(SimOAuth2, RefusalsHaveTheirNames)
{
    const Json device = deviceCode();
    EXPECT_EQ(decide("deny", device), 200);
    EXPECT_EQ(error(poll(device)), "access_denied");
    EXPECT_EQ(error(post("/device_authorization", "client_id=other")), "invalid_client");
    EXPECT_EQ(error(post("/token", "client_id=kelo-demo&client_secret=x&grant_type=refresh_token")),
              "invalid_client");
    EXPECT_EQ(error(post("/token", std::string(client) + "&grant_type=password")),
              "unsupported_grant_type");
    EXPECT_EQ(error(refresh("foreign")), "invalid_grant");
    ASSERT_EQ(addFault("device-code expires=0"), "");
    EXPECT_EQ(error(poll(deviceCode())), "expired_token");
    EXPECT_EQ(m_client->Get("/link/%3Cb%3E%22")->body.find("<B>"), std::string::npos);
}

TEST_F(SimOAuth2, RefreshKeepsTheRefreshTokenUnlessItRotates)
{
    const Json device = deviceCode();
    decide("approve", device);
    const std::string first = parse(poll(device)->body)["refresh_token"].GetString();
    m_sim.expireTokens();
    const Json renewed = parse(refresh(first)->body);
    EXPECT_FALSE(renewed.HasMember("refresh_token"));
    m_client->set_bearer_token_auth(renewed["access_token"].GetString());
    EXPECT_EQ(outcome(get("/sessions", false)), "200");

    ASSERT_EQ(addFault("rotate-refresh"), "");
    ASSERT_EQ(addFault("token-lifetime seconds=0"), "");
    const Json rotated = parse(refresh(first)->body);
    EXPECT_STRNE(rotated["refresh_token"].GetString(), first.c_str());
    EXPECT_EQ(error(refresh(first)), "invalid_grant");
    m_client->set_bearer_token_auth(rotated["access_token"].GetString());
    EXPECT_EQ(outcome(get("/sessions", false)), "401/11003");
}

} // namespace
