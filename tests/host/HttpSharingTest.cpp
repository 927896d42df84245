#include "HttpRig.h"
#include <condition_variable>

namespace {
/// A server that answers when it is told to, with what it was asked.
class HeldServer
{
public:
    void release()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }
    Answer answer(const std::string& request)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const std::string line = request.substr(0, request.find(" HTTP"));
        if (line.find("slow") != std::string::npos)
            m_changed.wait(lock, [this] { return m_isOpen; });
        return {ScriptedServer::whole(line)};
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
};

/// The server lets everybody go before it is taken down.
struct HeldRig : HeldServer, Rig
{
    HeldRig() : Rig([this](const std::string& request) { return answer(request); }) {}
    ~HeldRig() { release(); }

    void* getShared(const std::string& path, HttpClientOptions options = HttpClientOptions())
    {
        return get(path, options.setShared(true));
    }
    QList<QByteArray> bodies(std::size_t count)
    {
        EXPECT_TRUE(receiver.waitFor(count));
        QList<QByteArray> bodies;
        for (const auto& delivery : std::exchange(receiver.deliveries, {}))
            bodies.append(delivery.code == 0 ? delivery.body : QByteArray::number(delivery.code));
        return bodies;
    }
};
} // namespace

TEST(HttpSharingTest, equalReadsAtTheSameTimeAreOneRequestWithAnAnswerForEach)
{
    HeldRig rig;
    void* first = rig.getShared("/slow");
    for (int i = 0; i < 3; ++i)
        rig.getShared("/slow");
    EXPECT_EQ(rig.client.callsUnderWay(), 1);
    rig.client.abort(first);
    EXPECT_EQ(rig.bodies(1), QList<QByteArray>{QByteArray::number(HttpClient::Aborted)});
    rig.release();
    EXPECT_EQ(rig.bodies(3), (QList<QByteArray>{"GET /slow", "GET /slow", "GET /slow"}));
    rig.getShared("/slow");
    EXPECT_EQ(rig.bodies(1).size(), 1) << "what has ended answers nobody any more";
    EXPECT_EQ(rig.server.requests().size(), 2u);
}

TEST(HttpSharingTest, otherReadsAreRequestsOfTheirOwn)
{
    HeldRig rig;
    rig.getShared("/slow");
    rig.getShared("/slow?a=1");
    rig.getShared("/slow", headerOptions("Authorization", "another"));
    rig.get("/slow");
    rig.client.post(toUrl(rig.server.url("/edit")), "x", &rig.receiver, "onAnswer", {});
    EXPECT_EQ(rig.bodies(1), QList<QByteArray>{"POST /edit"});
    rig.getShared("/slow"); // is to see the edit
    EXPECT_EQ(rig.client.callsUnderWay(), 5);
    rig.release();
    rig.bodies(5);
    EXPECT_EQ(rig.server.requests().size(), 6u);
}

TEST(HttpSharingTest, aPartOfTheServiceThatHangsHoldsUpItselfAlone)
{
    HeldRig rig;
    std::vector<void*> calls;
    for (int i = 0; i < 8; ++i)
        calls.push_back(rig.get("/albums/" + std::to_string(i) + "/slow"));
    EXPECT_EQ(rig.client.callsUnderWay(), 6) << "of a kind at a time";
    rig.get("/artists/7/albums");
    EXPECT_EQ(rig.bodies(1), QList<QByteArray>{"GET /artists/7/albums"});
    rig.client.abort(calls[6]); // while it waits
    rig.client.abort(calls[0]);
    EXPECT_EQ(rig.bodies(2).count(QByteArray::number(HttpClient::Aborted)), 2);
    EXPECT_EQ(rig.client.callsUnderWay(), 6) << "the next one has its turn";
    for (int i = 0; i < 300; ++i)
        rig.get("/tracks/" + std::to_string(i) + "/slow");
    EXPECT_EQ(rig.bodies(44).count(QByteArray::number(HttpClient::TransferFailed)), 44)
        << "250 wait";
    rig.release();
    EXPECT_TRUE(rig.bodies(6 + 256).contains("GET /albums/7/slow"));
}
