#include <gtest/gtest.h>
#include <kelo/CMAbstractWorker.h>
#include <QEventLoop>
#include <stdexcept>
#include <thread>

namespace {
/// Throws at whatever it is asked.
class ThrowingWorker : public CMAbstractWorker
{
public:
    QStringList prefixes() const override { return {QStringLiteral("/throwing")}; }
    void getDataRequest(const CMGetDataRequest&) override { throw std::runtime_error("no data"); }
    void setDataRequest(const CMSetDataRequest&) override { throw std::runtime_error("torn"); }
    void getRowsRequest(const CMGetRowsRequest&) override { throw 42; }
    KeloRoles dataRoles(const CMPath&) const override { throw std::runtime_error("no roles"); }
    KeloValue nodeValue(const CMPath&) const override { throw std::runtime_error("no value"); }
};
} // namespace

TEST(ReplyTest, whatAWorkerThrowsIsItsAnswer)
{
    ThrowingWorker worker;
    ASSERT_TRUE(CMRoot().addWorker(&worker));
    const CMPath path(QStringLiteral("/throwing"));
    const CMGetDataRequest data(path, {});
    const CMSetDataRequest set(path, QStringLiteral("Value"), 1);
    const CMGetRowsRequest rows(path, 0, 9, {});
    const auto message = [](const CMRequest& request) {
        CMRoot().request(request);
        return request.reply().error().message().toStdString();
    };
    EXPECT_EQ(message(data), "the module threw an exception: no data");
    EXPECT_EQ(message(set), "the module threw an exception: torn");
    EXPECT_EQ(message(rows), "the module threw an exception of an unknown type");
    EXPECT_TRUE(CMRoot().dataRoles(path).isEmpty());
    EXPECT_TRUE(CMRoot().value(path).isEmpty());
    EXPECT_EQ(CMRoot().pendingRequests(), 0);
    CMRoot().removeWorker(&worker);
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
