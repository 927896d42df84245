#include "LoginWorld.h"

#include <gtest/gtest.h>
#include <kelo/CMRoot.h>
#include <QFile>

namespace {

constexpr char rotated[] = R"({"access_token":"A2","refresh_token":"R2","expires_in":3600})";
constexpr char kept[] = R"({"access_token":"A2","expires_in":3600})";
const QByteArray invalidGrant = R"({"error":"invalid_grant","sub_status":11101})";

QByteArray storedFile(const LoginWorld& world)
{
    QFile file(world.store.fileName(world.info()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(TokenRefreshTest, RefreshesAheadOfExpiryAndKeepsOrRotatesTheRefreshToken)
{
    LoginWorld world;
    world.logIn(tokenAnswer);
    world.clock.pass(3239);
    EXPECT_EQ(world.endpoint.count, 2);
    world.clock.pass(1);
    world.answer(200, kept);
    world.clock.pass(3240);
    world.answer(200, rotated);
    world.clock.pass(3240);
    world.answer(200, rotated);
    EXPECT_EQ(world.log, (QStringList{"3242 s: refresh R1", "token A2", "6482 s: refresh R1",
                                      "token A2", "9722 s: refresh R2", "token A2"}));
}

TEST(TokenRefreshTest, HasTheRotatedTokenOnDiskBeforeTheNewAccessTokenIsSeen)
{
    LoginWorld world;
    world.logIn(tokenAnswer);
    QByteArray seen;
    const quint64 watch =
        CMRoot().watchValue(CMPath("/oauth2/services/tidal/accessToken"),
                            [&](const KeloValue&, const KeloValue&) { seen = storedFile(world); });
    world.clock.pass(3240);
    world.answer(200, rotated);
    CMRoot().unwatch(watch);
    EXPECT_TRUE(seen.contains("\"R2\"")) << seen.toStdString();
}

TEST(TokenRefreshTest, ManyRefusalsOfOneTokenMakeOneRefreshAndAnOldTokenMakesNone)
{
    LoginWorld world;
    world.logIn(tokenAnswer);
    world.service->tokenRefused("A0");
    for (int i = 0; i < 3; ++i)
        world.service->tokenRefused("A1");
    world.clock.pass(0);
    world.service->tokenRefused("A1");
    world.clock.pass(0);
    ASSERT_EQ(world.endpoint.count, 3);
    world.answer(200, rotated);
    world.service->tokenRefused("A1");
    world.clock.pass(60);
    EXPECT_EQ(world.endpoint.count, 3);

    // A refusal right after a refresh waits, so that refusing every token makes no loop.
    world.send("refresh", "A2");
    world.clock.pass(0);
    world.answer(200, R"({"access_token":"A3","expires_in":3600})");
    world.send("refresh");
    world.clock.pass(4);
    EXPECT_EQ(world.endpoint.count, 4);
    world.clock.pass(1);
    EXPECT_EQ(world.endpoint.count, 5);
}

TEST(TokenRefreshTest, FailuresAreTriedAgainWithGrowingPausesAndKeepTheLogin)
{
    LoginWorld world;
    world.logIn(tokenAnswer);
    world.clock.pass(3240);
    for (const auto& [status, body] :
         {std::pair<int, QByteArray>{0, ""}, {500, "{}"}, {400, R"({"error":"invalid_client"})"}}) {
        world.answer(status, body);
        ASSERT_TRUE(world.clock.step());
    }
    world.answer(200, rotated);
    EXPECT_EQ(world.log, (QStringList{"3242 s: refresh R1", "3244 s: refresh R1",
                                      "3248 s: refresh R1", "3256 s: refresh R1", "token A2"}));
    EXPECT_TRUE(world.state().loggedIn());
}

TEST(TokenRefreshTest, OnlyARefusedRefreshTokenEndsTheLogin)
{
    LoginWorld world;
    world.logIn(tokenAnswer);
    world.clock.pass(3240);
    world.answer(400, invalidGrant);
    EXPECT_EQ(world.log,
              (QStringList{"3242 s: refresh R1",
                           "logged out: The login has ended: the service does not accept it any "
                           "more. Log in again. [ended]",
                           "token "}));
    EXPECT_TRUE(storedFile(world).isEmpty());
    EXPECT_FALSE(world.clock.step());
}

TEST(TokenRefreshTest, AnAnswerForALoginThatIsOverChangesNothing)
{
    LoginWorld world;
    world.logIn(tokenAnswer);
    world.clock.pass(3240);
    world.send("logout");
    world.send(QString());
    world.log.clear();
    world.answer(200, rotated);
    EXPECT_EQ(world.log, QStringList{"3242 s: refresh R1"});
    EXPECT_TRUE(storedFile(world).isEmpty());
}

TEST(TokenRefreshTest, AStoredLoginComesBackAndAnExpiredOneIsRefreshedFirst)
{
    QTemporaryDir folder;
    {
        LoginWorld world(folder.path());
        world.logIn(tokenAnswer);
        EXPECT_EQ(world.state().user(), "x@example.invalid");
    }
    EXPECT_EQ(LoginWorld(folder.path(), 100).log,
              (QStringList{"token ", "logged out", "token A1", "logged in"}));
    LoginWorld late(folder.path(), 4000);
    EXPECT_EQ(late.log, (QStringList{"token ", "logged out"}));
    late.clock.pass(0);
    late.answer(503, "");
    EXPECT_EQ(late.log.last(),
              "logged out: The login is not renewed yet: the login service answered with status "
              "503. [service]");
    late.clock.step();
    late.answer(200, rotated);
    EXPECT_EQ(late.log.mid(late.log.size() - 2), (QStringList{"token A2", "logged in"}));
    EXPECT_EQ(late.state().user(), "x@example.invalid") << "kept, and not said again";
}
