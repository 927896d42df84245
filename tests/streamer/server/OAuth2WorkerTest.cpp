#include "oauth2/OAuth2Worker.h"
#include "LoginWorld.h"
#include "oauth2/TreeLogin.h"

#include "web/LoginApi.h"
#include <gtest/gtest.h>
#include <kelo/CMRoot.h>
#include <kelo/CMWorkerThread.h>

namespace {

/// Answers each post at once with the next of the answers, from a later turn.
class QueuedEndpoint : public TokenEndpoint, public QObject
{
public:
    explicit QueuedEndpoint(std::deque<QByteArray> answers) : m_answers(std::move(answers)) {}
    void post(const QString&, const Form&, const QString&, Done done) override
    {
        const QByteArray answer = m_answers.empty() ? QByteArray() : m_answers.front();
        if (!m_answers.empty())
            m_answers.pop_front();
        QMetaObject::invokeMethod(
            this,
            [done, answer] {
                done({answer.isEmpty() ? 0 : 200, answer});
            },
            Qt::QueuedConnection);
    }

private:
    std::deque<QByteArray> m_answers;
};

class OAuth2WorkerTest : public testing::Test
{
protected:
    void startWorker(std::deque<QByteArray> answers = {})
    {
        ASSERT_TRUE(m_thread.start("oauth2", [&] {
            return new OAuth2Worker(m_folder.path(), std::make_unique<QueuedEndpoint>(answers));
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
    startWorker();
    EXPECT_FALSE(add(LoginWorld::info()).error().isSet());
    const CMPath path("/oauth2/services/tidal");
    const KeloValue value = CMRoot().value(path);
    EXPECT_FALSE(value.isEmpty());
    EXPECT_FALSE(value.oauth2Info().loggedIn());
    EXPECT_EQ(CMRoot().dataRoles(path).title(), "Log in to Tidal");
    EXPECT_EQ(CMRoot().dataRoles(path).type(), KeloRolesType::Action());
    const CMPath token = path + "/accessToken";
    EXPECT_FALSE(CMRoot().value(token).isEmpty()) << "read inside the process";
    EXPECT_FALSE(CMRoot().dataRoles(token).contains(KeloRoles::Value())) << "and not shown";
    EXPECT_FALSE(add(LoginWorld::info()).error().isSet()) << "a second time";
}

TEST_F(OAuth2WorkerTest, ADescriptionThatCannotWorkIsRefusedWithTheKeyThatIsWrong)
{
    startWorker();
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

TEST_F(OAuth2WorkerTest, TheWebApisLoginStartsShowsTheCodeAndLogsOut)
{
    startWorker({deviceAnswer});
    TreeLogin login("tidal");
    CMReply<QVariant> early = login.start();
    early.waitForFinished(-1);
    EXPECT_EQ(early.error().name(), CMError::NotFoundName());

    add(LoginWorld::info());
    std::vector<KeloOAuth2Info> seen;
    std::mutex mutex;
    const quint64 listener = login.addListener([&](const KeloOAuth2Info& status) {
        std::lock_guard<std::mutex> lock(mutex);
        seen.push_back(status);
    });
    CMReply<QVariant> start = login.start();
    start.waitForFinished(-1);
    const KeloOAuth2Info pending = login.status();
    EXPECT_EQ(pending.userCode(), "QWERT");
    EXPECT_EQ(pending.verificationUriComplete(), "https://link.example.invalid/QWERT");
    EXPECT_NEAR(pending.expiresIn(), 300, 5);

    CMReply<QVariant> logout = login.logout();
    logout.waitForFinished(-1);
    EXPECT_EQ(LoginApi::text(login.status(), nullptr), R"({"loggedIn":false})");
    login.removeListener(listener);
    std::lock_guard<std::mutex> lock(mutex);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_TRUE(seen[0].isPending());

    auto nameless = LoginWorld::info();
    nameless.setClientId(QString());
    add(nameless);
    CMReply<QVariant> refused = login.start();
    refused.waitForFinished(-1);
    EXPECT_EQ(refused.error().message(), "No client id is set for Tidal; see the settings.");
    EXPECT_EQ(LoginApi::text(login.status(), nullptr),
              R"({"loggedIn":false,"problem":"No client id is set for Tidal; see the settings.",)"
              R"("reason":"client"})");
}
