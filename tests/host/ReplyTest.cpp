#include <atomic>
#include <gtest/gtest.h>
#include <kelo/CMReply.h>
#include <kelo/CMRequest.h>
#include <kelo/KeloPost.h>
#include <QEventLoop>
#include <thread>
#include <vector>

TEST(ReplyTest, theFirstAnswerWinsOverAManyThreadedRushAndEveryWaiterWakes)
{
    const auto reply = CMReply<QVariant>::create();
    std::atomic<int> won{0};
    std::atomic<int> notified{0};
    reply.addWatcher(nullptr, [&] { ++notified; });
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] { won += reply.giveUp(CMError(TrString("late"))); });
        threads.emplace_back([&] { EXPECT_TRUE(reply.waitForFinished(-1)); });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(won, 1);
    EXPECT_EQ(notified, 1);
    EXPECT_TRUE(reply.error().isSet());
}

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

TEST(ReplyTest, anEmptyHandleTakesAnyAnswer)
{
    const CMGetRowsRequest synthetic(CMPath("/sessions"), 0, 0, {}, -1, CMVoidReply());
    EXPECT_TRUE(synthetic.reply().isNull());
    synthetic.reply().setValue(KeloRowsRoles());
    synthetic.reply().setError(CMError(TrString("x")));
    EXPECT_FALSE(synthetic.reply().isFinished());
}
