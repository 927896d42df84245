#include "SimFixture.h"
#include "Table.h"

namespace {

class SimEdit : public SimFixture
{
protected:
    void SetUp() override
    {
        SimFixture::SetUp();
        const auto made = postForm("/users/770011/playlists", "title=Mine&description=of+mine");
        ASSERT_EQ(made->status, 201);
        m_path = std::string("/playlists/") + parse(made->body)["uuid"].GetString();
        m_tag = made->get_header_value("ETag");
    }

    // An edit with the last tag; keeps the new one.
    std::string edit(const std::string& method, const std::string& path, const std::string& form)
    {
        const httplib::Headers headers = {{"If-None-Match", m_tag}};
        const auto result =
            method == "POST"
                ? postForm(m_path + path, form, headers)
                : m_client->Delete(("/v1" + m_path + path + "?countryCode=NO").c_str(), headers);
        if (result && !result->get_header_value("ETag").empty())
            m_tag = result->get_header_value("ETag");
        return outcome(result);
    }

    std::string order()
    {
        std::string text;
        const Json page = json(m_path + "/tracks?limit=100");
        for (const Value& item : page["items"].GetArray())
            text += std::to_string(item["id"].GetInt() - 6000000) + " ";
        return text;
    }

    std::string m_path;
    std::string m_tag;
};

TEST_F(SimEdit, PositionsFollowEveryEdit)
{
    using Text = const char*;
    for (const auto& [method, path, form, expected, after] : Table<Text, Text, Text, Text, Text>{
             {"POST", "/tracks", "trackIds=6000001,6000002,6000003&toIndex=0", "200", "1 2 3 "},
             {"POST", "/tracks", "trackIds=6000004%2C6000005&toIndex=1", "200", "1 4 5 2 3 "},
             {"POST", "/tracks", "trackIds=6000006,&toIndex=5", "200", "1 4 5 2 3 6 "},
             {"POST", "/tracks", "trackIds=6000007&toIndex=-1", "200", "1 4 5 2 3 6 7 "},
             {"POST", "/items", "trackIds=6000007&toIndex=0&onDupes=SKIP", "200", "1 4 5 2 3 6 7 "},
             {"POST", "/tracks/0", "toIndex=2", "200", "4 5 1 2 3 6 7 "},
             {"POST", "/tracks/6", "toIndex=0", "200", "7 4 5 1 2 3 6 "},
             {"POST", "/items/1,2", "toIndex=99", "200", "7 1 2 3 6 4 5 "},
             {"DELETE", "/tracks/0,2,6", "", "200", "1 3 6 4 "},
             {"DELETE", "/tracks/4", "", "404/2001", "1 3 6 4 "},
             {"DELETE", "/tracks/x", "", "400/1002", "1 3 6 4 "},
             {"POST", "/tracks/9", "toIndex=0", "404/2001", "1 3 6 4 "},
             {"POST", "/tracks/0", "", "400/1002", "1 3 6 4 "},
             {"POST", "/tracks", "trackIds=5&toIndex=0", "404/2001", "1 3 6 4 "},
             {"POST", "/tracks", "toIndex=0", "400/1002", "1 3 6 4 "},
             {"POST", "/tracks", "trackIds=6000001&toIndex=x", "400/1002", "1 3 6 4 "}}) {
        EXPECT_EQ(edit(method, path, form), expected) << path << form;
        EXPECT_EQ(order(), after) << path << form;
    }
    const Json playlist = json(m_path);
    EXPECT_EQ(playlist["numberOfTracks"].GetInt(), 4);
    EXPECT_GT(playlist["duration"].GetInt(), 4 * 60);
    EXPECT_TRUE(playlist["lastItemAddedAt"].IsString());
}

TEST_F(SimEdit, TagGuardsEditsAndChangesWithEachOfThem)
{
    const std::string first = m_tag;
    EXPECT_EQ(first.front(), '"');
    EXPECT_EQ(edit("POST", "/tracks", "trackIds=6000001&toIndex=0"), "200");
    EXPECT_NE(m_tag, first);
    for (const char* path : {"", "/tracks", "/items"})
        EXPECT_EQ(get(m_path + path)->get_header_value("ETag"), m_tag) << path;

    const std::string fresh = m_tag;
    for (const std::string& tag : {first, std::string("x"), std::string()}) {
        m_tag = tag;
        EXPECT_EQ(edit("DELETE", "/tracks/0", ""), "412/7002") << tag;
    }
    EXPECT_EQ(outcome(postForm(m_path + "/tracks", "trackIds=6000002")), "412/7002");
    EXPECT_EQ(order(), "1 ");
    m_tag = fresh.substr(1, fresh.size() - 2); // bare, without its quotes
    EXPECT_EQ(edit("DELETE", "/tracks/0", ""), "200");
    EXPECT_GT(m_tag, fresh);

    ASSERT_EQ(addFault("tag-lag=2"), "");
    for (const char* expected : {"412/7002", "412/7002", "200"})
        EXPECT_EQ(edit("POST", "/tracks", "trackIds=6000003"), expected);
}

TEST_F(SimEdit, RenameDecodesFormsAndDeleteLeavesNothing)
{
    EXPECT_EQ(edit("POST", "", "title=R%26B+%3D%20%C3%B8&description=a%2Bb"), "200");
    const Json renamed = json(m_path);
    EXPECT_STREQ(renamed["title"].GetString(), "R&B = ø");
    EXPECT_STREQ(renamed["description"].GetString(), "a+b");
    const std::string uuid = renamed["uuid"].GetString();
    EXPECT_EQ(postForm("/users/770011/favorites/playlists", "uuid=" + uuid)->status, 200);
    const int before = json("/users/770011/favorites/playlists")["totalNumberOfItems"].GetInt();

    EXPECT_EQ(edit("DELETE", "", ""), "204");
    for (const char* path : {"", "/tracks"})
        EXPECT_EQ(outcome(get(m_path + path)), "404/2001");
    EXPECT_EQ(edit("POST", "/tracks", "trackIds=6000001"), "404/2001");
    EXPECT_EQ(json("/users/770011/favorites/playlists")["totalNumberOfItems"].GetInt(), before - 1);

    m_path = std::string("/playlists/") +
             json("/featured/new/playlists?limit=1")["items"][0]["uuid"].GetString();
    m_tag = get(m_path)->get_header_value("ETag");
    EXPECT_EQ(edit("DELETE", "", ""), "403/4033") << "somebody else's playlist";
    EXPECT_EQ(outcome(postForm("/users/770011/playlists", "description=x")), "400/1002");
}

TEST_F(SimEdit, FavoritesAreAddedOnceAndRemovedQuietly)
{
    for (const auto& [kind, form, id, unknown] :
         Table<const char*, const char*, const char*, const char*>{
             {"albums", "albumId=500001", "500001", "albumId=1"},
             {"artists", "artistIds=900101", "900101", "artistId=1"},
             {"tracks", "trackId=6000001", "6000001", "trackIds=6000001,1"}}) {
        const std::string path = std::string("/users/770011/favorites/") + kind;
        const auto count = [&] { return json(path)["totalNumberOfItems"].GetInt(); };
        const std::string one = "/v1" + path + "/" + id + "?countryCode=NO";
        m_client->Delete(one.c_str());
        const int before = count();
        for (int i = 0; i < 2; ++i) {
            const auto added = postForm(path, form);
            EXPECT_EQ(added->status, 200);
            EXPECT_EQ(added->body, "");
            EXPECT_EQ(count(), before + 1) << kind;
        }
        EXPECT_EQ(outcome(postForm(path, unknown)), "404/2001") << kind;
        EXPECT_EQ(outcome(postForm(path, "foo=1")), "400/1002") << kind;
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(m_client->Delete(one.c_str())->status, 200);
            EXPECT_EQ(count(), before) << kind;
        }
    }
}

TEST_F(SimEdit, ResetBringsTheLibraryBack)
{
    const int before = json("/users/770011/playlists")["totalNumberOfItems"].GetInt();
    m_sim.reset();
    EXPECT_EQ(json("/users/770011/playlists")["totalNumberOfItems"].GetInt(), before - 1);
    EXPECT_EQ(outcome(get(m_path)), "404/2001");
}

} // namespace
