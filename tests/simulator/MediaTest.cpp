#include "SimFixture.h"
#include "Table.h"

#include <QByteArray>

namespace {

class SimMedia : public SimFixture
{
protected:
    // Path and query of the stream.
    std::string address(const std::string& id)
    {
        const Json info = json("/tracks/" + id + "/playbackinfopostpaywall?audioquality=LOSSLESS");
        const QByteArray manifest64 = info["manifest"].GetString();
        const Json manifest = parse(QByteArray::fromBase64(manifest64).toStdString());
        const std::string url = manifest["urls"][0].GetString();
        EXPECT_EQ(url.rfind(m_sim.baseUrl(), 0), 0u) << url;
        return url.substr(m_sim.baseUrl().size());
    }
};

TEST_F(SimMedia, RangesAndTokensAreChecked)
{
    ASSERT_EQ(addFault("short-tracks=9"), "");
    const std::string path = address("6000102");
    const std::string whole = m_client->Get(path.c_str())->body;
    const std::string size = std::to_string(whole.size());
    for (const auto& [range, status, body] : Table<std::string, int, std::string>{
             {"bytes=70000-270000", 206, whole.substr(70000, 200001)},
             {"bytes=1000-", 206, whole.substr(1000)},
             {"bytes=-100", 206, whole.substr(whole.size() - 100)},
             {"bytes=" + size + "-", 416, ""},
             {"bytes=x-", 200, whole}}) {
        const auto part = m_client->Get(path.c_str(), {{"Range", range}});
        ASSERT_TRUE(part) << range;
        EXPECT_EQ(part->status, status) << range;
        EXPECT_TRUE(part->body == body) << range;
    }
    for (const std::string& bad : {path.substr(0, path.find('?')), path + "0",
                                   "/audio/6000103" + path.substr(path.find("/0.flac")),
                                   std::string("/audio/6000102/0.flac?token=1~1~0")})
        EXPECT_EQ(m_client->Get(bad.c_str())->status, 403) << bad;
    EXPECT_NE(address("6000102"), path) << "an address is handed out once";
}

} // namespace
