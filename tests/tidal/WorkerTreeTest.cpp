#include "TidalContextNode.h"
#include "TidalWorker.h"
#include "TreeFixture.h"

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

class WorkerTreeTest : public TreeFixture
{
};

TEST_F(WorkerTreeTest, MenusListTheirRowsInOrder)
{
    startConfigured();
    struct Menu
    {
        const char* path;
        QStringList titles;
    };
    const Menu menus[] = {
        {"/tidal", {"New", "TIDAL Rising", "TIDAL Discovery", "Playlists", "Genres", "My Music"}},
        {"/tidal/new",
         {"Playlists", "New", "Recommended", "Masters", "Albums", "New", "Recommended", "Top 20",
          "Masters", "Tracks", "New", "Recommended", "Top 20"}},
        {"/tidal/myMusic",
         {"Favorited playlists", "My playlists", "Artists", "Albums", "Tracks",
          "Create new playlist"}},
        {"/tidal/tidalRising", {"Tracks", "Albums"}},
        {"/tidal/searchContainer", {"Search"}},
        {"/tidal/search/choose", {"Albums", "Tracks", "Artists", "Playlists"}},
        {"/tidal/message", {"Successful"}},
        {"/tidal/createPlaylist", {"Title", "Description"}},
        {"/tidal/basecontext", {"Favorite"}},
        {"/tidal/context", {"Favorite", "Add to playlist"}},
        {"/tidal/playlistcontext", {"Favorite", "Add to playlist", "remove", "Update playlist"}},
        {"/tidal/myPlaylistTrackscontext",
         {"Favorite", "Add to playlist", "remove", "Update playlist", "Move to index"}},
        {"/tidal/myPlaylistTrackscontext/moveTrack", {"Row number", "Move to row"}},
        {"/tidal/orderingcontext", {"My Music browsing", "Order", "Order direction", "Filter"}},
        {"/tidal/trackOrderingcontext", {"Playlist tracks ordering", "Order", "Order direction"}},
        {"/tidal/trackOrderingcontext/orderDirection/Enums", {"Descending", "Ascending"}},
    };
    for (const Menu& menu : menus)
        EXPECT_EQ(column(q(menu.path)), menu.titles) << menu.path;

    const QStringList types = column(q("/tidal/new"), KeloRoles::Type());
    EXPECT_EQ(types.count(KeloRolesType::Header()), 3);
    EXPECT_EQ(column(q("/tidal/new"), KeloRoles::Path()).at(3),
              q("/tidal/req/master/recommended/playlists"));
    EXPECT_EQ(column(q("/tidal/search/choose?query=a%20b"), KeloRoles::Path()).at(1),
              q("/tidal/search/choose/req/tracks?query=a%20b"));
}

TEST_F(WorkerTreeTest, TheTreeIsBuiltOnce)
{
    startConfigured();
    const int nodes = worker()->nodes()->size();
    const CMGetRowsRequest first = askRows(q("/tidal/new"));
    const QList<QVariantHash> rows = rowsOf(first);
    EXPECT_EQ(rows.size(), 13);
    const CMGetRowsRequest second = askRows(q("/tidal/new"));
    EXPECT_EQ(rowsOf(second), rows);
    EXPECT_EQ(second.reply().value().rowsVersion(), first.reply().value().rowsVersion());
    EXPECT_EQ(worker()->nodes()->size(), nodes);
}

TEST_F(WorkerTreeTest, AMenuEndsWithTheArtistsOfItsItem)
{
    startConfigured();
    struct Case
    {
        const char* artists;
        QStringList titles;
        QStringList ids; ///< empty: the row leads to no artist's menu
    };
    const Case cases[] = {
        {"A_1", {"Track artists", "A"}, {"1"}},
        {"A_1,B_2", {"Track artists", "A", "B"}, {"1", "2"}},
        {",", {"Track artists", "", ""}, {"", ""}},
        {"X", {"Track artists", "X"}, {"X"}},
        {"A_B_3", {"Track artists", "A"}, {"3"}},
    };
    for (const Case& c : cases) {
        CMPath path(q("/tidal/context"));
        path.addParam(q("artists"), q(c.artists));
        const QList<QVariantHash> rows = rowsOf(askRows(path.toEncoded()));
        ASSERT_EQ(rows.size(), 2 + c.titles.size()) << c.artists;
        for (int i = 0; i < c.titles.size(); ++i)
            EXPECT_EQ(rows.at(2 + i).value(KeloRoles::Title()).toString(), c.titles.at(i));
        for (int i = 0; i < c.ids.size(); ++i) {
            const QVariantHash row = rows.at(3 + i);
            EXPECT_EQ(CMPath::fromEncoded(row.value(KeloRoles::Path()).toString()),
                      CMPath(q("/tidal/req/artists"), {{q("artistId"), c.ids.at(i)}}));
            const QVariantHash context = row.value(KeloRoles::Context()).toHash();
            EXPECT_EQ(context.value(KeloRoles::Path()).toString(),
                      c.ids.at(i).isEmpty()
                          ? QString()
                          : q("/tidal/basecontext?id=") + c.ids.at(i) + q("&type=Artists"));
        }
    }
    const QList<QVariantHash> slice = rowsOf(askRows(q("/tidal/context?artists=A_1%2CB_2"), 1, 3));
    ASSERT_EQ(slice.size(), 3);
    EXPECT_EQ(slice.at(2).value(KeloRoles::Title()).toString(), q("A"));
}

TEST_F(WorkerTreeTest, ContextRolesAreTheNodesRolesForTheParameters)
{
    startConfigured();
    const CMPath::Params params{{q("artists"), q("Å & B_1,C_2")}, {q("id"), q("7")}};
    for (int variation = 0; variation < 4; ++variation) {
        TidalBaseContextNode* node =
            worker()->contextNode(KeloTidalContextVariation::Enum(variation));
        ASSERT_NE(node, nullptr);
        for (const CMPath::Params& each : {params, CMPath::Params()})
            EXPECT_EQ(node->getContextRoles(each).toHash(), node->getDataRoles(each).toHash());
    }
    EXPECT_EQ(worker()->contextNode(KeloTidalContextVariation::Enum(4)), nullptr);
    EXPECT_EQ(worker()->contextNode(KeloTidalContextVariation::Enum(-1)), nullptr);
}
} // namespace
