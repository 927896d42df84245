#include "oauth2/OAuth2Worker.h"
#include "LoginWorld.h"
#include "oauth2/TreeLogin.h"

#include "web/LoginApi.h"
#include <gtest/gtest.h>
#include <kelo/CMRoot.h>
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
    TreeLogin login("tidal");
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
