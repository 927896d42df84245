#include "ModuleTest.h"

namespace {
class RootsTest : public ScriptedTest
{
protected:
    void SetUp() override
    {
        startConfigured();
        ASSERT_TRUE(m_service.waitForRequests("", 5));
    }
    /// Answers the module's question for the roots of a kind.
    void give(const QString& kind, const QByteArray& body, int status = 200)
    {
        const CMGetRowsRequest request(CMPath("/" + kind), 0, 0, {}, -1, CMVoidReply());
        onWorker([&](TidalHandler& handler) {
            const HttpClientPrivate userData{HttpClientPrivate::Data(request)};
            handler.responder()->on_response_invoke(KeloUrl(), userData, status, 0, body,
                                                    HttpClientHeaders());
        });
    }
    int requestsOfOpening(const QString& path, const char* line)
    {
        wait(askRows(path));
        return m_service.requestCount(line);
    }
};

/// Roots that are none stand among those that are.
const char* const mixed = R"([{"path":"Pop","name":"Pop & <b>Rock</b>","image":"a-b-c"}, 7, null,
    {"name":"no path"}, {"path":"","name":"empty"}, {"path":"a/b","name":"slash"},
    {"path":"a?b","name":"query"}, {"path":"Pop","name":"again"},
    {"path":"..","name":"up"}, {"path":"Hip Hop","name":"Hip Hop","image":null},
    {"path":"R#B%2F","name":"marks"}])";
const QStringList usable = {"Pop & <b>Rock</b>", "Hip Hop", "marks"};

TEST_F(RootsTest, GenresBecomeMenusOfThreeLists)
{
    give("genres", mixed);
    const QList<KeloRoles> rows = rowsOf(askRows("/tidal/genres"));
    EXPECT_EQ(column(rows), usable);
    EXPECT_EQ(rows[0].icon(), "http://images/a/b/c/160.jpg");
    EXPECT_FALSE(rows[1].contains(KeloRoles::Icon()));

    EXPECT_EQ(rows[0].value(KeloRoles::Path()), "/tidal/genres/Pop");
    const QList<KeloRoles> lists = rowsOf(askRows("/tidal/genres/Pop"));
    EXPECT_EQ(column(lists), (QStringList{"Playlists", "Albums", "Tracks"}));
    EXPECT_EQ(lists[0].value(KeloRoles::Path()), "/tidal/req/genres/Pop/playlists");
    EXPECT_EQ(menuOf(lists[0]).toEncoded(), "/tidal/trackOrderingcontext");
    EXPECT_FALSE(lists[1].context().isValid());
    const QStringList others = column(rows[1].path().toEncoded(), KeloRoles::Path());
    EXPECT_EQ(requestsOfOpening(others.value(1), " /genres/Hip%20Hop/albums?"), 1);
}

TEST_F(RootsTest, MoodsBecomeListsOfPlaylists)
{
    give("moods", mixed);
    const QList<KeloRoles> rows = rowsOf(askRows("/tidal/playlists"));
    EXPECT_EQ(column(rows), usable);
    EXPECT_EQ(rows[0].value(KeloRoles::Path()), "/tidal/playlists/req/moods/Pop/playlists");
    EXPECT_EQ(rows[0].icon(), "http://images/a/b/c/342x342.jpg");
    EXPECT_EQ(menuOf(rows[0]).toEncoded(), "/tidal/trackOrderingcontext");
    const QStringList paths = column(rows, KeloRoles::Path());
    EXPECT_EQ(requestsOfOpening(paths[0], " /moods/Pop/playlists?"), 1);
    EXPECT_EQ(requestsOfOpening(paths[2], " /moods/R%23B%252F/playlists?"), 1);
}

TEST_F(RootsTest, MenusAreFilledOnce)
{
    for (const auto& [kind, path] :
         {std::pair("genres", "/tidal/genres"), {"moods", "/tidal/playlists"}}) {
        give(kind, R"([{"path":"a","name":"A"}])", 502);
        for (const char* body : {"[]", R"({"path":"a","name":"A"})", "<html>"})
            give(kind, body);
        EXPECT_EQ(column(path), QStringList());

        OpenRows menu(path);
        OpenRows top("/tidal");
        const CMGetRowsRequest empty = askRows(path);
        EXPECT_EQ(rowsOf(empty).size(), 0);
        give(kind, R"([{"path":"a","name":"A"}])");
        EXPECT_NE(menu.next(), "");
        EXPECT_NE(top.next(), "");
        const CMGetRowsRequest filled = askRows(path);
        EXPECT_EQ(rowsOf(filled).size(), 1);
        EXPECT_NE(filled.reply().value().rowsVersion(), empty.reply().value().rowsVersion());
        const int nodes = worker()->nodes()->size();
        give(kind, R"([{"path":"a","name":"A"},{"path":"b","name":"B"}])");
        EXPECT_EQ(column(path), QStringList("A"));
        EXPECT_EQ(worker()->nodes()->size(), nodes);
        EXPECT_EQ(menu.pending() + top.pending(), 0);
    }
}

TEST_F(RootsTest, NewListsCarryTheServicesNames)
{
    const QStringList built = column("/tidal/new");
    give("featured", R"([{"path":"new","name":"Fresh"}])", 502);
    give("featured", R"([{"path":"masters","name":"M"},{"path":"New","name":"N"},
                         {"path":"new","name":""},{"name":"x"}])");
    EXPECT_EQ(column("/tidal/new"), built);

    OpenRows open("/tidal/new");
    for (int round = 0; round < 2; ++round) { // the second changes nothing
        give("featured", R"([{"path":"new","name":"Fresh"},{"path":"top","name":"Charts"},
                             {"path":"recommended","name":"For <you>"}])");
        EXPECT_EQ(column("/tidal/new"),
                  (QStringList{"Playlists", "Fresh", "For <you>", "Masters", "Albums", "Fresh",
                               "For <you>", "Charts", "Masters", "Tracks", "Fresh", "For <you>",
                               "Charts"}));
    }
    EXPECT_EQ(open.next(), "reset of 13");
    EXPECT_EQ(open.pending(), 0);
}
} // namespace
