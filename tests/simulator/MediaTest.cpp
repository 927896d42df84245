#include "SimFixture.h"
#include "Table.h"

#include <QByteArray>

namespace {

class SimMedia : public SimFixture
{
protected:
    static std::string decode64(const char* text)
    {
        return (*QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors))
            .toStdString();
    }
    Json info(const std::string& id, const std::string& quality = "LOSSLESS")
    {
        return json("/tracks/" + id + "/playbackinfopostpaywall?audioquality=" + quality);
    }

    // Path and query of the stream.
    std::string address(const std::string& id)
    {
        const Json manifest = parse(decode64(info(id)["manifest"].GetString()));
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
             {"bytes=0-0", 206, whole.substr(0, 1)},
             {"bytes=70000-270000", 206, whole.substr(70000, 200001)},
             {"bytes=1000-", 206, whole.substr(1000)},
             {"bytes=-100", 206, whole.substr(whole.size() - 100)},
             {"bytes=" + size + "-", 416, ""},
             {"bytes=5-2", 200, whole},
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

TEST_F(SimMedia, GrantsAndManifestsFollowTheirSwitches)
{
    EXPECT_STREQ(info("6000100", "HI_RES")["audioQuality"].GetString(), "LOSSLESS");
    ASSERT_EQ(addFault("quality=HIGH count=1"), "");
    EXPECT_STREQ(info("6000100")["audioQuality"].GetString(), "HIGH");

    const auto manifest = [&](const char* kind) {
        EXPECT_EQ(addFault(std::string("manifest count=1 kind=") + kind), "");
        const Json answer = info("6000100");
        return std::string(answer["manifestMimeType"].GetString()) + " " +
               decode64(answer["manifest"].GetString());
    };
    EXPECT_EQ(manifest("dash").rfind("application/dash+xml <?xml", 0), 0u);
    EXPECT_EQ(manifest("badbase64"), "application/vnd.tidal.bts ");
    EXPECT_NE(manifest("nourls").find("\"urls\":[]"), std::string::npos);

    ASSERT_EQ(addFault("playback-limit calls=2"), "");
    const std::string path = "/tracks/6000100/playbackinfoprepaywall?audioquality=LOW";
    for (const char* expected : {"200", "200", "401/4006", "401/4006"})
        EXPECT_EQ(outcome(get(path)), expected);
    EXPECT_EQ(outcome(get("/genres")), "200");
}

TEST_F(SimMedia, PicturesExistInTheirSizesOnly)
{
    const auto path = [](std::string id) {
        for (char& c : id)
            c = c == '-' ? '/' : c;
        return "/images/" + id;
    };
    const Json album = json("/albums/500070");
    const std::string cover = path(album["cover"].GetString());
    const std::string genre = path(json("/genres")[0]["image"].GetString());
    const std::string mood = path(json("/moods")[0]["image"].GetString());
    const std::string artist = path(json("/artists/900110")["picture"].GetString());
    const Json list = json("/users/770011/playlists?limit=1");
    const std::string wide = path(list["items"][0]["image"].GetString());
    const std::string square = path(list["items"][0]["squareImage"].GetString());
    const std::pair<std::string, int> rows[] = {
        {cover + "/320x320.jpg", 200},
        {"/images/" + cover.substr(7) + "/80x80.jpg", 200}, // a doubled slash
        {cover + "/321x321.jpg", 403},
        {cover + "/320x320.png", 403},
        {genre + "/460x306.jpg", 200},
        {mood + "/342x342.jpg", 200},
        {artist + "/640x640.jpg", 403},
        {wide + "/320x320.jpg", 403},
        {square + "/320x320.jpg", 200},
        {"/images/a/b/c/d/e/320x320.jpg", 403}};
    for (const auto& row : rows) {
        const auto result = m_client->Get(row.first.c_str());
        ASSERT_TRUE(result) << row.first;
        EXPECT_EQ(result->status, row.second) << row.first;
        EXPECT_EQ(result->body.rfind("\xff\xd8\xff", 0) == 0, row.second == 200) << row.first;
    }
}

} // namespace
