#include "SimFixture.h"
#include "Table.h"

#include <set>

namespace {

class SimApi : public SimFixture
{
protected:
    std::vector<std::string> titles(const std::string& path, const char* inner = nullptr)
    {
        std::vector<std::string> out;
        const Json page = json(path);
        for (const Value& item : page["items"].GetArray())
            out.push_back((inner ? item[inner] : item)["title"].GetString());
        return out;
    }
};

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
             {"/albums/x?countryCode=NO", good.c_str(), "404/2001"},
             {"/sessions", nullptr, "401/1005"},
             {"/sessions", good.c_str(), "200"},
             {"/nothing?countryCode=NO", good.c_str(), "404/2001"},
             {"/moods/relax/albums?countryCode=NO", good.c_str(), "404/2001"},
             {"/artists/1/albums?countryCode=NO", good.c_str(), "200"},
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

TEST_F(SimApi, SameSeedGivesTheSameCatalogueAndAnotherSeedAnother)
{
    const std::string path = "/v1/featured/new/albums?countryCode=NO&limit=50";
    const std::string here = m_client->Get(path.c_str())->body;
    for (const std::uint64_t seed : {1u, 2u}) {
        kelosim::SimOptions options;
        options.seed = seed;
        kelosim::SimServer other(options);
        std::string error;
        ASSERT_TRUE(other.start(&error)) << error;
        httplib::Client client("127.0.0.1", other.port());
        client.set_bearer_token_auth(other.issueToken().c_str());
        EXPECT_EQ(client.Get(path.c_str())->body == here, seed == 1);
    }
}

TEST_F(SimApi, OrderAndFilterReallyOrderAndFilter)
{
    const std::string favorites = "/users/770011/favorites/albums?limit=100&order=";
    auto up = titles(favorites + "NAME&orderDirection=ASC", "item");
    const auto down = titles(favorites + "NAME&orderDirection=DESC", "item");
    EXPECT_EQ(up.size(), 64u);
    EXPECT_NE(up, titles("/users/770011/favorites/albums?limit=100", "item"));
    EXPECT_EQ(up.front(), down.back());
    const Json all = json("/users/770011/playlists?limit=50&filter=ALL");
    const Json open = json("/users/770011/playlists?limit=50&filter=PUBLIC");
    const Json hidden = json("/users/770011/playlists?limit=50&filter=PRIVATE");
    EXPECT_GT(open["items"].Size(), 0u);
    EXPECT_EQ(all["items"].Size(), open["items"].Size() + hidden["items"].Size());
    for (const Value& playlist : open["items"].GetArray())
        EXPECT_TRUE(playlist["publicPlaylist"].GetBool());

    // The index of a playlist's entry is its place in the playlist, whatever the order.
    const std::string uuid = all["items"][0]["uuid"].GetString();
    const Json byIndex = json("/playlists/" + uuid + "/tracks?order=INDEX&orderDirection=DESC");
    EXPECT_EQ(byIndex["items"][0]["index"].GetInt(), byIndex["totalNumberOfItems"].GetInt() - 1);
}

} // namespace
