#include <gtest/gtest.h>
#include <kelo/CMReply.h>
#include <QEventLoop>
#include <thread>

TEST(ReplyTest, aSecondAnswerOfTheServiceIsAFault)
{
    const auto reply = CMReply<QVariant>::create();
    reply.setValue(1);
#ifdef KELO_TEST_BUILD
    EXPECT_DEATH(reply.setValue(2), "answered twice");
#endif
    EXPECT_EQ(reply.value(), QVariant(1));
}

TEST(ReplyTest, watchersRunOnTheirReceiversThreadAndNotForADeadOne)
{
    const auto reply = CMReply<QVariant>::create();
    QEventLoop loop;
    QObject receiver;
    bool deadWasCalled = false;
    {
        QObject dead;
        reply.addWatcher(&dead, [&] { deadWasCalled = true; });
    }
    std::thread::id ranOn;
    reply.addWatcher(&receiver, [&] {
        ranOn = std::this_thread::get_id();
        loop.quit();
    });
    std::thread([&] { reply.setValue(7); }).join();
    EXPECT_EQ(ranOn, std::thread::id());
    loop.exec();
    EXPECT_EQ(ranOn, std::this_thread::get_id());
    EXPECT_FALSE(deadWasCalled);

    bool ranAtOnce = false;
    reply.addWatcher(&receiver, [&] { ranAtOnce = true; });
    EXPECT_TRUE(ranAtOnce);
}
