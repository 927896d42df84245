#include "oauth2/OAuth2Worker.h"
#include "LoginWorld.h"
#include "oauth2/TreeLogin.h"

#include "web/LoginApi.h"
#include <gtest/gtest.h>
#include <kelo/CMRoot.h>
#include <kelo/CMValueNode.h>
#include <kelo/CMWorkerThread.h>

namespace {

class OAuth2WorkerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_thread.start("oauth2", [this] {
            return new OAuth2Worker(m_folder.path(), std::make_unique<FakeEndpoint>());
        }));
    }
    static CMReply<QVariant> add(const KeloOAuth2ServiceInfo& info)
    {
        CMReply<QVariant> reply = CMRoot().invoke(KeloOAuth2AddServicePath(), info.toVariant());
        reply.waitForFinished(-1);
        return reply;
    }

    QTemporaryDir m_folder;
    CMWorkerThread m_thread;
};

} // namespace

TEST_F(OAuth2WorkerTest, AServiceIsPublishedLoggedOutBeforeItsRegistrationIsAnswered)
{
    EXPECT_FALSE(add(LoginWorld::info()).error().isSet());
    const CMPath path("/oauth2/services/tidal");
    const KeloValue value = CMRoot().value(path);
    EXPECT_FALSE(value.isEmpty());
    EXPECT_FALSE(value.oauth2Info().loggedIn());
    const CMPath token = path + "/accessToken";
    EXPECT_FALSE(CMRoot().value(token).isEmpty()) << "read inside the process";
    EXPECT_FALSE(CMRoot().dataRoles(token).contains(KeloRoles::Value())) << "and not shown";
    EXPECT_FALSE(add(LoginWorld::info()).error().isSet()) << "a second time";
}

TEST_F(OAuth2WorkerTest, ADescriptionThatCannotWorkIsRefusedWithTheKeyThatIsWrong)
{
    using Info = KeloOAuth2ServiceInfo;
    const std::vector<std::pair<QString, QString>> wrong{
        {Info::ServiceName(), ""},    {Info::ServiceName(), "../../etc"},
        {Info::ServiceName(), "a/b"}, {Info::TokenUrl(), "ftp://x"},
        {Info::TokenUrl(), ""},       {Info::DeviceCodeUrl(), "not an address"}};
    for (const auto& [key, value] : wrong) {
        KeloOAuth2ServiceInfo info = LoginWorld::info();
        info.insert(key, value);
        const CMError error = add(info).error();
        EXPECT_EQ(error.name(), CMError::BadRequestName()) << value.toStdString();
        EXPECT_TRUE(error.message().startsWith(key)) << error.message().toStdString();
    }
}

TEST_F(OAuth2WorkerTest, ALoginThatCannotBeginSaysWhy)
{
    TreeLogin login("tidal", CMPath("/some/subscription"));
    const auto problem = [&login] {
        CMReply<QVariant> reply = login.start();
        reply.waitForFinished(-1);
        return reply.error();
    };
    EXPECT_EQ(problem().name(), CMError::NotFoundName()) << "no module is there yet";
    auto nameless = LoginWorld::info();
    nameless.setClientId(QString());
    add(nameless);
    EXPECT_EQ(problem().message(), "No client id is set for Tidal; see the settings.");
    EXPECT_EQ(LoginApi::text(login.status(), nullptr),
              R"({"loggedIn":false,"problem":"No client id is set for Tidal; see the settings.",)"
              R"("reason":"client"})");
}

TEST(TreeLoginTest, TellsWhoIsLoggedInAndNeverWithTheSubscriptionOfAnother)
{
    CMNodes nodes;
    CMValueNode* state = CMValueNode::create(&nodes, CMPath("/oauth2/services/tidal"));
    CMValueNode* subscription = CMValueNode::create(&nodes, CMPath("/tidal/subscription"));
    TreeLogin login("tidal", subscription->path());
    std::vector<std::string> told;
    login.addListener(
        [&told](const KeloOAuth2Info& info) { told.push_back(LoginApi::text(info, nullptr)); });
    const auto publish = [](CMValueNode* node, int number, const char* user, const char* name) {
        KeloOAuth2Info info;
        info.setLoggedIn(number > 0);
        info.setLoginNumber(number);
        info.setUser(user);
        info.setSubscription(name);
        KeloValue value;
        value.setOauth2Info(info);
        node->setValue(value);
    };
    publish(state, 1, "Kari", "");
    publish(subscription, 1, "Kari", "HiFi");
    publish(state, 0, "", "");
    publish(state, 2, "Ola", "");
    publish(subscription, 1, "Kari", "HiFi"); // told late
    subscription->setValue(KeloValue());
    publish(subscription, 2, "Ola", "Free");
    EXPECT_EQ(told, (std::vector<std::string>{
                        R"({"loggedIn":true,"user":"Kari"})",
                        R"({"loggedIn":true,"subscription":"HiFi","user":"Kari"})",
                        R"({"loggedIn":false})", R"({"loggedIn":true,"user":"Ola"})",
                        R"({"loggedIn":true,"subscription":"Free","user":"Ola"})"}));
    EXPECT_EQ(LoginApi::text(login.status(), nullptr), told.back());
}
