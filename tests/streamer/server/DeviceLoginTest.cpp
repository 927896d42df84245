#include "LoginWorld.h"

#include <gtest/gtest.h>

namespace {

struct Answer
{
    int status;
    QByteArray body;
};

/// A login: what the service answers, in order, and everything that is seen of it.
struct Case
{
    const char* name;
    std::vector<Answer> answers;
    QStringList log;
};

void PrintTo(const Case& row, std::ostream* out)
{
    *out << row.name;
}

const Answer code{200, deviceAnswer};
const Answer pendingAnswer{400, R"({"error":"authorization_pending"})"};
const Answer slowDown{400, R"({"error":"slow_down"})"};
const Answer tokens{200, tokenAnswer};
const QString codeShown = QStringLiteral("logged out, code QWERT at https://link.example.invalid");

class DeviceLoginTest : public testing::TestWithParam<Case>
{
};

} // namespace

TEST_P(DeviceLoginTest, AsksAtTheRightTimesAndEndsAsTheServiceSays)
{
    LoginWorld world;
    world.log.clear();
    world.send(QString());
    for (const Answer& answer : GetParam().answers) {
        while (world.endpoint.posts.empty())
            ASSERT_TRUE(world.clock.step());
        world.answer(answer.status, answer.body);
    }
    while (world.endpoint.posts.empty() && !world.state().loggedIn() && world.clock.step()) {
    }
    EXPECT_EQ(world.log.join('\n').toStdString(), GetParam().log.join('\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Flows, DeviceLoginTest,
    testing::Values(
        Case{"approved",
             {code, pendingAnswer, tokens},
             {"0 s: code", codeShown, "2 s: poll", "4 s: poll", "token A1", "logged in"}},
        Case{"standard spelling, usual interval, plain http kept",
             {{200, R"({"device_code":"D","user_code":"U","verification_uri":"http://here",)"
                    R"("expires_in":60})"},
              tokens},
             {"0 s: code", "logged out, code U at http://here", "5 s: poll", "token A1",
              "logged in"}},
        Case{"slow_down adds five seconds for good",
             {code, slowDown, pendingAnswer, slowDown, tokens},
             {"0 s: code", codeShown, "2 s: poll", "9 s: poll", "16 s: poll", "28 s: poll",
              "token A1", "logged in"}},
        Case{"no answer doubles the pause, up to 30 s",
             {code, {0, ""}, {503, "<html>"}, {0, ""}, {500, ""}, pendingAnswer, tokens},
             {"0 s: code", codeShown, "2 s: poll", "6 s: poll", "14 s: poll", "30 s: poll",
              "60 s: poll", "62 s: poll", "token A1", "logged in"}},
        Case{"expired, the service says",
             {code, {400, R"({"error":"expired_token"})"}},
             {"0 s: code", codeShown, "2 s: poll",
              "logged out: The code has expired. Start the login again."}},
        Case{"expired by the clock",
             {{200, R"({"deviceCode":"D","userCode":"U","verificationUri":"v","expiresIn":5,)"
                    R"("interval":3})"},
              pendingAnswer},
             {"0 s: code", "logged out, code U at https://v", "3 s: poll",
              "logged out: The code has expired. Start the login again."}},
        Case{"refused by the user",
             {code, {400, R"({"error":"access_denied"})"}},
             {"0 s: code", codeShown, "2 s: poll", "logged out: The login was refused."}},
        Case{"unknown client",
             {code, {401, R"({"error":"invalid_client","error_description":"who?"})"}},
             {"0 s: code", codeShown, "2 s: poll",
              "logged out: The login failed: invalid_client, who?."}},
        Case{"no code for this client",
             {{400, R"({"error":"invalid_request"})"}},
             {"0 s: code", "logged out: No login code: invalid_request."}},
        Case{"no code, service down",
             {{0, ""}},
             {"0 s: code", "logged out: No login code: the login service does not answer."}},
        Case{"no code, HTML",
             {{200, "<html>"}},
             {"0 s: code",
              "logged out: No login code: the login service's answer is not understood."}}),
    [](const auto& info) { return "Case" + std::to_string(info.index); });

TEST(DeviceLoginFormTest, SendsTheFieldsInOrderAndTheSecretWhereItBelongs)
{
    LoginWorld world;
    world.send(QString());
    const auto& first = world.endpoint.posts.front();
    EXPECT_EQ(first.url, world.info().deviceCodeUrl());
    EXPECT_EQ(first.form, (TokenEndpoint::Form{{"client_id", "client"}, {"scope", "r_usr w_usr"}}));
    world.answer(200, deviceAnswer);
    world.clock.step();
    EXPECT_EQ(world.endpoint.posts.front().form,
              (TokenEndpoint::Form{{"client_id", "client"},
                                   {"client_secret", "hidden"},
                                   {"device_code", "DEVICE"},
                                   {"grant_type", "urn:ietf:params:oauth:grant-type:device_code"},
                                   {"scope", "r_usr w_usr"}}));

    KeloOAuth2ServiceInfo basic = world.info();
    basic.setAuthMethod(KeloOAuth2AuthMethod::Basic_);
    TokenEndpoint::Form form;
    EXPECT_EQ(addClient(basic, form), "Basic Y2xpZW50OmhpZGRlbg==");
    EXPECT_EQ(form.size(), 1);
}

TEST(DeviceLoginFormTest, ASecondStartJoinsTheFirstAndLogoutDropsTheLateAnswer)
{
    LoginWorld world;
    const auto first = world.send(QString());
    const auto second = world.send(QString());
    EXPECT_EQ(world.endpoint.count, 1);
    EXPECT_FALSE(first.isFinished());
    world.answer(200, deviceAnswer);
    EXPECT_EQ(KeloOAuth2Info(first.value().toHash()).userCode(), "QWERT");
    EXPECT_EQ(first.value(), second.value());

    world.clock.step();
    world.send(QStringLiteral("logout"));
    world.log.clear();
    world.answer(200, tokenAnswer);
    EXPECT_EQ(world.log, QStringList{"2 s: poll"});
    EXPECT_FALSE(world.state().isPending());
    EXPECT_FALSE(world.clock.step());
}
