#include "SimFixture.h"
#include "Table.h"

#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

class SimFault : public SimFixture
{
protected:
    // The connection is closed early or reset by some faults; each try gets a fresh one.
    httplib::Result fresh(const std::string& path)
    {
        httplib::Client client("127.0.0.1", m_sim.port());
        client.set_bearer_token_auth(m_token.c_str());
        return client.Get(("/v1" + path + withCountry(path)).c_str());
    }

    std::string m_token = m_sim.issueToken();
};

TEST_F(SimFault, BadLinesGetASentence)
{
    for (const auto& [line, problem] : Table<const char*, const char*>{
             {"nonsense", "there is no fault 'nonsense'"},
             {"status", "fault 'status' needs the key 'status'"},
             {"status=abc", "key 'status' wants a number, not 'abc'"},
             {"status=500 colour=red", "fault 'status' has no key 'colour'"},
             {"reset=late", "key 'when' is one of before|after, not 'late'"}})
        EXPECT_EQ(addFault(line), problem);
    const auto posted = m_client->Post("/sim/faults", "status=500\nnonsense\n", "text/plain");
    EXPECT_EQ(posted->status, 400);
    EXPECT_GT(json("/genres").Size(), 0u) << "none of a bad set is put in force";
}

TEST_F(SimFault, StatusStrikesWhereAndAsOftenAsTold)
{
    const std::string lines =
        "status=503 path=/albums count=2 after=1 body=html retry-after=7\n"
        "status=404 path=/genres sub=2001\nstatus=502 path=/moods body=none\n";
    ASSERT_EQ(m_client->Post("/sim/faults", lines, "text/plain")->status, 200);
    for (const char* expected : {"200", "503", "503", "200"})
        EXPECT_EQ(outcome(get("/albums/500070")), expected);
    EXPECT_EQ(outcome(get("/artists/900110")), "200");
    EXPECT_EQ(outcome(get("/genres")), "404/2001");
    const auto none = get("/moods");
    EXPECT_EQ(none->status, 502);
    EXPECT_EQ(none->body, "");
    m_client->Delete("/sim/faults");
    EXPECT_EQ(outcome(get("/genres")), "200");
}

TEST_F(SimFault, TransportFaultsBreakOneAnswerAndNotTheServer)
{
    const std::size_t whole = get("/genres")->body.size();

    // bytes: of the body, where it arrives
    for (const auto& [fault, arrives, bytes] :
         Table<const char*, bool, std::size_t>{{"reset when=before", false, 0},
                                               {"reset when=after", false, 0},
                                               {"truncate bytes=100", false, 0},
                                               {"truncate bytes=100 framing=ok", true, 100},
                                               {"size bytes=262145", true, 262145},
                                               {"drip bytes=700 ms=1", true, whole},
                                               {"empty", true, 0}}) {
        ASSERT_EQ(addFault(std::string(fault) + " path=/genres count=1"), "");
        const auto result = fresh("/genres");
        EXPECT_EQ(static_cast<bool>(result), arrives) << fault;
        if (result) {
            EXPECT_EQ(result->body.size(), bytes) << fault;
        }
        EXPECT_EQ(outcome(fresh("/genres")), "200") << "after " << fault;
    }
}

TEST_F(SimFault, SlowAnswersDoNotHoldUpOthersNorTheEnd)
{
    ASSERT_EQ(addFault("hang path=/search"), "");
    std::thread hanging([this] { fresh("/search/albums?query=x"); });
    ASSERT_TRUE(m_sim.waitForRequests("/search", 1, 10000));
    EXPECT_EQ(outcome(get("/genres")), "200");
    const auto stopping = Clock::now();
    m_sim.stop();
    hanging.join();
    EXPECT_LT(Clock::now() - stopping, std::chrono::seconds(2));
    EXPECT_FALSE(get("/genres")) << "nobody listens any more";
}

TEST_F(SimFault, ListensOnLoopbackAlone)
{
    kelosim::SimOptions options;
    for (const char* bad : {"0.0.0.0:0", "127.0.0.1", "127.0.0.1:x", "127.0.0.1:70000"}) {
        options.listen = bad;
        std::string error;
        EXPECT_FALSE(kelosim::SimServer(options).start(&error)) << bad;
        EXPECT_NE(error.find(bad), std::string::npos) << error;
    }
}

} // namespace
