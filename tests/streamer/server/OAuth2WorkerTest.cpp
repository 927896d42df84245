#include "oauth2/OAuth2Worker.h"
#include "LoginWorld.h"
#include "oauth2/TreeLogins.h"

#include "web/LoginApi.h"
#include <future>
#include <gtest/gtest.h>
#include <kelo/CMRoot.h>
#include <kelo/CMValueNode.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloPost.h>
#include <QDir>

namespace {

class OAuth2WorkerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_worker = m_thread.start("oauth2", [this] {
            auto endpoint = std::make_unique<FakeEndpoint>();
            auto clock = std::make_unique<FakeClock>();
            m_endpoint = endpoint.get();
            m_clock = clock.get();
            return new OAuth2Worker(m_folder.path(), std::move(endpoint), std::move(clock));
        });
        ASSERT_TRUE(m_worker);
    }
    /// Runs it on the worker's thread, behind what is queued there.
    void there(const std::function<void()>& function)
    {
        std::promise<void> done;
        keloPost(m_worker, [&] {
            function();
            done.set_value();
        });
        done.get_future().wait();
    }
    /// Answers what is asked for the service first.
    void answer(const QString& service, const QByteArray& body)
    {
        there([&] {
            auto& posts = m_endpoint->posts;
            while (!posts.empty() && posts.front().field("client_id") != service)
                std::rotate(posts.begin(), posts.begin() + 1, posts.end());
            m_endpoint->answer(TokenReply{200, body});
        });
    }
    static KeloOAuth2ServiceInfo infoOf(const QString& service)
    {
        KeloOAuth2ServiceInfo info = LoginWorld::info();
        info.setServiceName(service);
        info.setDisplayName(service.toUpper());
        info.setClientId(service);
        return info;
    }
    static CMReply<QVariant> add(const KeloOAuth2ServiceInfo& info)
    {
        CMReply<QVariant> reply = CMRoot().invoke(KeloOAuth2AddServicePath(), info.toVariant());
        reply.waitForFinished(-1);
        return reply;
    }

    QTemporaryDir m_folder;
    CMWorkerThread m_thread;
    CMAbstractWorker* m_worker = nullptr;
    FakeEndpoint* m_endpoint = nullptr; ///< the worker's, as the next
    FakeClock* m_clock = nullptr;
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
    TreeLogins login;
    const auto problem = [&login] {
        CMReply<QVariant> reply = login.start("tidal");
        reply.waitForFinished(-1);
        return reply.error();
    };
    EXPECT_EQ(problem().name(), CMError::NotFoundName()) << "no module is there yet";
    auto nameless = LoginWorld::info();
    nameless.setClientId(QString());
    add(nameless);
    EXPECT_EQ(problem().message(), "No client id is set for Tidal; see the settings.");
    EXPECT_EQ(LoginApi::text({"tidal", login.status("tidal")}, nullptr),
              R"({"displayName":"Tidal","loggedIn":false,)"
              R"("problem":"No client id is set for Tidal; see the settings.",)"
              R"("reason":"client","service":"tidal"})");
}

TEST_F(OAuth2WorkerTest, ServicesAreLoggedInAndOutApart)
{
    add(infoOf("radio"));
    TreeLogins logins;
    QStringList told;
    logins.addListener([&told](const LoginState& state) {
        const KeloOAuth2Info& info = state.info;
        told << state.service + (info.loggedIn() ? " in" : info.isPending() ? " code" : " out");
    });
    EXPECT_EQ(logins.usual(), "radio");
    add(infoOf("tidal"));
    add(infoOf("tidal"));
    EXPECT_EQ(logins.services(), (QStringList{"radio", "tidal"}));
    EXPECT_EQ(logins.usual(), "tidal");

    for (const char* service : {"tidal", "radio"})
        logins.start(service);
    for (const char* body : {deviceAnswer, tokenAnswer}) {
        for (const char* service : {"radio", "tidal"}) {
            answer(service, body);
            there([this] { m_clock->pass(2); });
        }
    }
    const QDir files(m_folder.path());
    EXPECT_EQ(files.entryList(QDir::Files), (QStringList{"radio.json", "tidal.json"}));
    logins.logout("radio").waitForFinished(-1);
    EXPECT_EQ(files.entryList(QDir::Files), QStringList{"tidal.json"});
    EXPECT_TRUE(logins.status("tidal").loggedIn());
    EXPECT_EQ(told.join(", "), "tidal out, radio code, tidal code, radio in, tidal in, radio out");
}

TEST(TreeLoginTest, TellsWhoIsLoggedInAndNeverWithTheSubscriptionOfAnother)
{
    CMNodes nodes;
    CMValueNode* state = CMValueNode::create(&nodes, CMPath("/oauth2/services/tidal"));
    CMValueNode* subscription = CMValueNode::create(&nodes, CMPath("/tidal/subscription"));
    std::vector<std::string> told;
    TreeLogin login("tidal", [&told](const KeloOAuth2Info& info) {
        told.push_back((info.user() + ' ' + info.subscription()).toStdString());
    });
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
    EXPECT_EQ(told, (std::vector<std::string>{"Kari ", "Kari HiFi", " ", "Ola ", "Ola Free"}));
    EXPECT_EQ(login.status().subscription(), "Free");
}
