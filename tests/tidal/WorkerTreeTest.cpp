#include "ModuleTest.h"
#include "Table.h"

namespace {
class WorkerTreeTest : public ScriptedTest
{
};

TEST_F(WorkerTreeTest, MenusListTheirRowsInOrder)
{
    const std::pair<const char*, QStringList> menus[] = {
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
    const int nodes = worker()->nodes()->size();
    for (const auto& [path, titles] : menus)
        EXPECT_EQ(column(path), titles) << path;
    EXPECT_EQ(worker()->nodes()->size(), nodes) << "it is built once";

    EXPECT_EQ(column("/tidal/new", KeloRoles::Type()).count(KeloRolesType::Header()), 3);
    EXPECT_EQ(column("/tidal/new", KeloRoles::Path()).at(3),
              "/tidal/req/master/recommended/playlists");
    EXPECT_EQ(column("/tidal/search/choose?query=a%20b", KeloRoles::Path()).at(1),
              "/tidal/search/choose/req/tracks?query=a%20b");
}

TEST_F(WorkerTreeTest, AMenuEndsWithTheArtistsOfItsItem)
{
    // ids: empty: the row leads to no artist's menu
    for (const auto& [artists, titles, ids] :
         Table<const char*, QStringList, QStringList>{{"A_1", {"A"}, {"1"}},
                                                      {"A_1,B_2", {"A", "B"}, {"1", "2"}},
                                                      {",", {"", ""}, {"", ""}},
                                                      {"A_B_3", {"A"}, {"3"}}}) {
        CMPath path("/tidal/context");
        path.addParam("artists", artists);
        const QList<KeloRoles> rows = rowsOf(askRows(path.toEncoded())).mid(2);
        EXPECT_EQ(column(rows), QStringList("Track artists") + titles) << artists;
        for (int i = 0; i < ids.size(); ++i) {
            const QString id = ids.at(i);
            const KeloRoles row = rows.value(1 + i);
            EXPECT_EQ(row.path(), CMPath("/tidal/req/artists", {{"artistId", id}}));
            EXPECT_EQ(menuOf(row).toEncoded(),
                      id.isEmpty() ? "" : "/tidal/basecontext?id=" + id + "&type=Artists");
        }
    }
    EXPECT_EQ(column(rowsOf(askRows("/tidal/context?artists=A_1%2CB_2", 1, 3))),
              (QStringList{"Add to playlist", "Track artists", "A"}));
}
} // namespace
