#include "SimFixture.h"
#include "Table.h"

namespace {

using SimApi = SimFixture;

TEST_F(SimApi, ChecksCountryThenTokenThenResource)
{
    const std::string good = m_sim.issueToken();

    httplib::Client plain("127.0.0.1", m_sim.port());

    // token: nullptr: no header
    for (const auto& [path, token, expected] : Table<const char*, const char*, const char*>{
             {"/albums/1", nullptr, "400/1002"},
             {"/albums/1?countryCode=NO", nullptr, "401/1005"},
             {"/albums/1?countryCode=NO", "foreign", "401/11002"},
             {"/albums/1?countryCode=NO", good.c_str(), "404/2001"},
             {"/sessions", nullptr, "401/1005"},
             {"/sessions", good.c_str(), "200"},
             {"/nothing?countryCode=NO", good.c_str(), "404/2001"},
             {"/moods/relax/albums?countryCode=NO", good.c_str(), "404/2001"},
             {"/tracks/1/playbackinfopostpaywall?audioquality=LOW", good.c_str(), "500/999"},
             {"/tracks/6000100/playbackinfopostpaywall?audioquality=LOUD", good.c_str(),
              "404/2001"},
             {"/tracks/6000100/playbackinfopostpaywall?audioquality=LOW&playbackmode=OFFLINE",
              good.c_str(), "401/4007"}}) {
        httplib::Headers headers;
        if (token)
            headers.emplace("Authorization", std::string("Bearer ") + token);
        EXPECT_EQ(outcome(plain.Get((std::string("/v1") + path).c_str(), headers)), expected)
            << path;
    }
    m_sim.expireTokens();
    EXPECT_EQ(outcome(get("/sessions", false)), "401/11003");
    EXPECT_EQ(m_sim.log().find(good), std::string::npos) << "the log shortens secrets";
}

TEST_F(SimApi, EveryListPagesAndKeepsItsTotal)
{
    const Json own = json("/users/770011/playlists?limit=1");
    const std::string uuid = own["items"][0]["uuid"].GetString();
    const std::string lists[] = {"/featured/new/albums",
                                 "/genres/Rock/tracks",
                                 "/moods/relax/playlists",
                                 "/artists/900110/albums?filter=COMPILATIONS",
                                 "/artists/900112/playlistscreatedby",
                                 "/search/tracks?query=%C3%98STOVER",
                                 "/playlists/" + uuid + "/tracks",
                                 "/users/770011/playlists",
                                 "/users/770011/favorites/artists"};
    for (const std::string& list : lists) {
        const std::string more = list + (list.find('?') == std::string::npos ? "?" : "&");
        const Json first = json(list);
        const int total = first["totalNumberOfItems"].GetInt();
        EXPECT_EQ(first["limit"].GetInt(), 10) << list;
        EXPECT_EQ(static_cast<int>(first["items"].Size()), std::min(10, total)) << list;
        int seen = 0;
        for (int offset = 0; offset < total; offset += 50) {
            const Json page = json(more + "limit=50&offset=" + std::to_string(offset));
            EXPECT_EQ(page["totalNumberOfItems"].GetInt(), total) << list;
            EXPECT_EQ(page["offset"].GetInt(), offset) << list;
            seen += static_cast<int>(page["items"].Size());
        }
        EXPECT_EQ(seen, total) << list;
        EXPECT_EQ(json(more + "offset=" + std::to_string(total))["items"].Size(), 0u) << list;
        EXPECT_EQ(json(more + "limit=0")["items"].Size(), 0u) << list;
        for (const char* bad : {"limit=x", "offset=-1"})
            EXPECT_EQ(outcome(get(more + bad)), "400/1002") << list << bad;
        EXPECT_EQ(outcome(get(more + "limit=20000")), "400/1001") << list;
    }
    EXPECT_GE(json("/featured/new/albums")["totalNumberOfItems"].GetInt(), 120);
    EXPECT_EQ(json("/featured/top/albums")["totalNumberOfItems"].GetInt(), 20);
    const Json album = json("/albums/500070/tracks"); // an album comes whole
    EXPECT_EQ(album["items"].Size(), album["limit"].GetUint());
}

} // namespace
