#include "ModuleTest.h"
#include "Table.h"
#include "TidalContextNode.h"

namespace {
const char* const albumItem =
    R"({"id":4005000000,"title":"T","allowStreaming":false,"cover":"ab-cd-ef",
        "artist":{"id":1,"name":"A"},"artists":[{"id":1,"name":"A"},{"id":2,"name":"B \u00e5"}]})";
const char* const trackItem =
    R"({"id":%,"title":"T","artist":{"id":1,"name":"A"},"artists":[{"id":1,"name":"A, x"},
        {"id":2,"name":"B"}],"album":{"title":"L","cover":"ab-cd"}})";
const QString search = "/tidal/search/choose/req/";
const QString mine = "/tidal/myMusic/req/favorites/users/";
const QString created = "/tidal/myMusic/req/created/users/playlists";

class ResponderRowsTest : public ScriptedTest
{
protected:
    using Menu = KeloTidalContextVariation;
    void SetUp() override { start(); }

    /// The context roles that the menu node itself gives for these parameters.
    QVariant menu(Menu::Enum variation, const CMPath::Params& params)
    {
        QVariant roles;
        onWorker([&](TidalHandler&) {
            TidalBaseContextNode* node = worker()->contextNode(variation);
            roles = node->getDataRoles(params).toVariant();
            EXPECT_EQ(node->getContextRoles(params), roles);
        });
        return roles;
    }
};

TEST_F(ResponderRowsTest, ShowsAnAlbum)
{
    const auto request = answered(search + "albums?query=a%26b", 5, 9, pageOf(albumItem, 6));
    const KeloRoles row = rowsOf(request).value(0);
    EXPECT_EQ(row.value(KeloRoles::Path()), search + "albums?contentId=4005000000&query=a%26b");
    EXPECT_EQ(row.title(), "T");
    EXPECT_EQ(row.id(), "4005000000");
    EXPECT_EQ(row.type(), KeloRolesType::Container());
    EXPECT_EQ(row.value(KeloRoles::Disabled()), QVariant(true));
    EXPECT_EQ(row.description(), q("A, B \u00e5"));
    EXPECT_EQ(row.icon(), "http://images/ab/cd/ef/320x320.jpg");
    EXPECT_EQ(row.value(KeloRoles::AudioType()), KeloRolesAudioType::None());
    EXPECT_EQ(row.value(KeloRoles::ContainerType()), KeloRolesContainerType::None());
    EXPECT_EQ(row.value(KeloRoles::ContainerPlayable()), QVariant(true));
    KeloMetaData metaData;
    metaData.setArtist(row.description());
    metaData.setServiceID(KeloService_Tidal_Id());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    EXPECT_EQ(row.value(KeloRoles::MediaData()), mediaData.toVariant());
    EXPECT_EQ(row.context(),
              menu(Menu::Browse, {{"id", "4005000000"}, {"type", "Albums"}, {"rowNum", "5"}}));
    EXPECT_EQ(request.reply().value().rowsCount(), 6);
    EXPECT_EQ(request.reply().value().rowsVersion(), 0);
}

TEST_F(ResponderRowsTest, ShowsATrackThatPlaysItsList)
{
    const QString list = created + "?contentId=u%201&zz=%C3%A5";
    const QList<KeloRoles> rows = rowsOf(answered(list, 10, 12, pageOf(many(trackItem, 3), 13)));
    ASSERT_EQ(rows.size(), 3);
    for (int i = 0; i < 3; ++i) {
        const KeloRoles& row = rows.at(i);
        const QString id = QString::number(i);
        CMPath path = CMPath::fromEncoded(list);
        path.addParam("trackId", id);
        EXPECT_EQ(row.value(KeloRoles::Path()), path.toEncoded());
        EXPECT_EQ(row.title(), "T - A");
        EXPECT_EQ(row.type(), KeloRolesType::Audio());
        EXPECT_EQ(row.value(KeloRoles::AudioType()), KeloRolesAudioType::MusicTrack());
        EXPECT_EQ(row.value(KeloRoles::Disabled()), QVariant(false));
        EXPECT_EQ(row.icon(), "http://images/ab/cd/320x320.jpg");
        KeloMetaData metaData;
        metaData.setAlbum("L");
        metaData.setArtist("A, x, B");
        metaData.setServiceID(KeloService_Tidal_Id());
        metaData.setPrePlayPath(CMPath("/tidal/prePlay/" + id));
        metaData.setContentPlayContextPath(CMPath::fromEncoded(list));
        KeloResource resource;
        resource.setMimeType("audio/unknown");
        KeloMediaData mediaData;
        mediaData.setMetaData(metaData);
        mediaData.setResources({resource});
        EXPECT_EQ(row.value(KeloRoles::MediaData()), mediaData.toVariant());
        EXPECT_EQ(row.context(), menu(Menu::PlaylistTracks, {{"id", id},
                                                             {"type", "Tracks"},
                                                             {"rowNum", QString::number(10 + i)},
                                                             {"artists", "A, x_1,B_2"},
                                                             {"playlistId", "u 1"}}));
    }
    const auto reordered = answered(list, 0, 0, pageOf(R"({"id":5,"title":"T","index":42})", 50));
    EXPECT_EQ(menuOf(rowsOf(reordered).value(0)).param("rowNum"), "42")
        << "an edit names the place in the playlist, whatever the order of the rows";
}

TEST_F(ResponderRowsTest, ShowsArtistsWithTheStoredRowBehindTheLast)
{
    const char* const item = R"({"id":%,"name":"N%","url":"http://x/?a&b","picture":"p-q"})";
    const auto found = answered(search + "artists?query=q", 0, 9, pageOf(many(item, 1), 1));
    const KeloRoles row = rowsOf(found).value(0);
    EXPECT_EQ(row.value(KeloRoles::Path()),
              search + "artists?artistId=0&artistUrl=http%3A%2F%2Fx%2F%3Fa%26b&query=q");
    EXPECT_EQ(row.icon(), "http://images/p/q/160x160.jpg");
    EXPECT_EQ(row.context(), menu(Menu::Base, {{"id", "0"}, {"type", "Artists"}, {"rowNum", "0"}}));

    for (const auto& [from, to, received, total, rows, count] :
         Table<int, int, int, int, int, int>{{0, 9, 3, 3, 4, 4},
                                             {0, 2, 3, 3, 3, 4},
                                             {3, 9, 0, 3, 1, 4},
                                             {0, 9, 10, 30, 10, 30},
                                             {20, 29, 10, 30, 10, 31},
                                             {0, 9, 0, 0, 1, 1}}) {
        const QByteArray items = many(R"({"item":{"id":%,"name":"N"}})", received);
        const auto request = answered(mine + "artists", from, to, pageOf(items, total));
        const QStringList titles = column(rowsOf(request));
        EXPECT_EQ(titles.size(), rows) << from << " of " << total;
        EXPECT_EQ(titles.count("Www"), rows > received && total > 0);
        EXPECT_EQ(request.reply().value().rowsCount(), count) << from;
    }
}

TEST_F(ResponderRowsTest, ListsPlaylistsToOpen)
{
    const char* const item =
        R"({"uuid":"u%","title":"P%","image":"i-%","promotedArtists":[{"name":"A"},{"name":"B"}]})";
    const auto request = answered(created + "?ETag=old", 2, 5, pageOf(many(item, 2), 40), "\"7\"");
    EXPECT_EQ(column(rowsOf(request)), (QStringList{"P0", "P1"}));
    EXPECT_EQ(request.reply().value().rowsCount(), 40);
    const KeloRoles row = rowsOf(request).value(1);
    EXPECT_EQ(row.value(KeloRoles::Path()), created + "?ETag=%227%22&contentId=u1&playlistId=u1");
    EXPECT_EQ(row.description(), "A, B");
    EXPECT_EQ(row.icon(), "http://images/i/1/480x320.jpg");
    EXPECT_EQ(row.context(),
              menu(Menu::Playlist, {{"id", "u1"}, {"type", "Playlists"}, {"rowNum", "3"}}));
    const auto found = answered(search + "playlists?query=q", 0, 0, pageOf(many(item, 1), 1), "7");
    EXPECT_EQ(rowsOf(found).value(0).path().param("ETag"), "");
    const auto favorites = answered(mine + "playlists", 0, 0,
                                    pageOf(R"({"created":"","item":{"uuid":"w","title":"W"}})", 1));
    EXPECT_EQ(column(rowsOf(favorites)), QStringList("W"));
}

TEST_F(ResponderRowsTest, LetsAPlaylistBeChosen)
{
    const char* const item = R"({"uuid":"u%","title":"P%"})";
    const QString list = "/addToPlaylists/req/created/users/playlists?id=5&type=Tracks";
    const QString create = "Create playlist";
    const QString header = "My playlists";
    for (const auto& [from, to, received, total, titles, count] :
         Table<int, int, int, int, QStringList, int>{
             {0, 3, 4, 9, {create, header, "P0", "P1"}, 11},
             {2, 3, 2, 9, {"P0", "P1"}, 11}, // the service was asked from its first playlist on
             {4, 9, 2, 4, {"P0", "P1"}, 6},
             {0, 9, 0, 0, {create, header, "No items found"}, 3},
             {2, 9, 0, 0, {"No items found"}, 3}}) {
        const auto request =
            answered("/tidal/context" + list, from, to, pageOf(many(item, received), total));
        EXPECT_EQ(column(rowsOf(request)), titles) << from << "-" << to;
        EXPECT_EQ(request.reply().value().rowsCount(), count);
    }
    const auto rows =
        rowsOf(answered("/tidal/context" + list, 0, 2, pageOf(many(item, 1), 1), "7"));
    EXPECT_EQ(column(rows, KeloRoles::Path()),
              (QStringList{"/tidal/createPlaylist?id=5&type=Tracks", "/tidal/header",
                           "/tidal/context/addToPlaylists?ETag=7&id=5&playlistId=u0&type=Tracks"}));
    EXPECT_EQ(column(rows, KeloRoles::Type()),
              (QStringList{KeloRolesType::Container(), KeloRolesType::Header(),
                           KeloRolesType::Action()}));
    const auto other =
        rowsOf(answered("/tidal/myPlaylistTrackscontext" + list, 2, 2, pageOf(many(item, 1), 1)));
    EXPECT_EQ(column(other, KeloRoles::Path()),
              QStringList("/tidal/playlistcontext/addToPlaylists"
                          "?ETag=&id=5&playlistId=u0&type=Tracks"));
}

TEST_F(ResponderRowsTest, SegmentsAndParametersTellItemsAndTheirMenu)
{
    const QString album = "contentId", track = "trackId", artist = "artistId";
    const QString playlist = "playlistId";
    // key: that the rows' paths name the item by
    for (const auto& [path, key, menu] : Table<const char*, QString, const char*>{
             {"/tidal/req/featured/new/albums", album, "context"},
             {"/tidal/req/albums?contentId=1", track, "context"},
             {"/tidal/req/genres/Soundtracks/albums", album, "context"},
             {"/tidal/req/playlists", playlist, "context"},
             {"/tidal/search/choose/req/artists?query=albums", artist, "basecontext"},
             {"/tidal/req/artists?artistContent=albums", artist, "context"},
             {"/tidal/myMusic/req/created/users/playlists", playlist, "playlistcontext"},
             {"/tidal/myMusic/req/created/users/playlists?contentId=u", track,
              "myPlaylistTrackscontext"},
             {"/tidal/myMusic/req/favorites/users/albums", album, "context"}}) {
        const auto rows = rowsOf(answered(path, 0, 9, pageOf(R"({"id":7,"uuid":"7"})", 2)));
        ASSERT_FALSE(rows.isEmpty());
        EXPECT_EQ(rows.first().path().param(key), "7") << path;
        EXPECT_EQ(menuOf(rows.first()).base(), q("/tidal/") + menu) << path;
    }
}

TEST_F(ResponderRowsTest, ARowHasARoleWhereverItIsAskedFor)
{
    const QStringList roles = {KeloRoles::ContainerPlayable(), "Unknown", KeloRoles::Title(),
                               KeloRoles::Icon(), KeloRoles::Title()};
    for (const auto& [list, title] :
         {std::pair("/tidal/context/addToPlaylists/req/created/users/playlists", "Create playlist"),
          {"/tidal/req/featured/new/albums", "T"}}) {
        const auto request = answered(list, 0, 0, pageOf(R"({"title":"T"})", 1), "", roles);
        QStringList texts;
        for (const QVariant& value : request.reply().value().rows().toList().value(0).toList())
            texts << value.toString();
        EXPECT_EQ(texts, (QStringList{"true", "", title, "", title}));
    }
}

TEST_F(ResponderRowsTest, FurtherRolesAreForThoseWhoNameThem)
{
    const QStringList further = {KeloRoles::TrackNumber(), KeloRoles::Duration(),
                                 KeloRoles::ReleaseYear(), KeloRoles::AlbumPath(),
                                 KeloRoles::ArtistPaths(), KeloRoles::Summary()};
    const auto artist = [](const char* name, const char* id) {
        return QVariantHash{{KeloRoles::Title(), q(name)},
                            {KeloRoles::Path(), q("/tidal/req/artists?artistId=") + id}};
    };
    const QVariantList one = {artist("A", "1")};
    const QVariantList two = {artist("A", "1"), artist("B", "2")};
    const QVariant none;
    const QVariant album = "/tidal/req/albums?contentId=4005000000";
    const auto number = [](qint64 value) { return QVariant(value); };
    for (const auto& [item, values] : Table<const char*, QVariantList>{
             {R"({"id":7,"trackNumber":3,"duration":201,"artist":{"id":1,"name":"A"},
                  "artists":[{"id":1,"name":"A"},{"id":2,"name":"B"}],
                  "album":{"id":4005000000,"title":"L","releaseDate":"2019-03-15"},
                  "description":"Slow"})",
              {number(3), number(201000), number(2019), album, QVariant(two), "Slow"}},
             {R"({"id":7,"releaseDate":"1999","duration":4000000000,"artist":{"id":1,"name":"A"}})",
              {none, number(1000000000000), number(1999), none, QVariant(one), none}},
             {R"({"id":7,"trackNumber":0,"duration":null,"releaseDate":null,"album":null,
                  "artists":[{"id":"x","name":"A"},{"id":2},null],"artist":{"name":"A"},"description":""})",
              {none, none, none, none, none, none}},
             {R"({"id":7,"trackNumber":"3","duration":-1,"releaseDate":"20190315","artists":{},
                  "album":{"title":"L","releaseDate":"soon"}})",
              {none, none, none, none, none, none}}}) {
        for (const char* list : {"/tidal/req/x/y/tracks", "/tidal/req/featured/new/albums",
                                 "/tidal/search/choose/req/tracks?query=q"}) {
            const QStringList roles = further + QStringList{KeloRoles::Id(), further.first()};
            const auto request = answered(list, 0, 0, pageOf(item, 1), "", roles);
            EXPECT_EQ(request.reply().value().rows().toList().value(0).toList(),
                      values + QVariantList({"7", values.first()}))
                << list << item;
        }
    }
}

TEST_F(ResponderRowsTest, TakesWhateverTheServiceSends)
{
    // rows, count: 1 and 1 for "No items found"
    const Table<QByteArray, int, int> table = {
        {"{\"totalNumberOfItems\":5,\"items\":[{\"id\":1,", 1, 1},
        {R"({"totalNumberOfItems":"5","items":[{}]})", 1, 1},
        {R"({"totalNumberOfItems":999999999999,"items":[{}]})", 1, 2147483647},
        {R"({"totalNumberOfItems":5,"items":{"a":1}})", 0, 0},
        {pageOf("null,7,\"x\",[],{\"title\":\"T\"}", 5), 1, 1},
        {pageOf("{\"item\":{}},{\"item\":null},{\"item\":3}", 3), 1, 1},
        {pageOf(many("{}", 12), 12), 10, 12},
        {pageOf(R"({"id":"x","uuid":5,"title":{},"name":[],"artist":"x","artists":[null,5,{}],
                  "album":7,"cover":9,"image":{},"picture":true,"allowStreaming":"no","url":1})",
                1),
         1, 1}};
    for (const char* list :
         {"/tidal/req/featured/new/albums", "/tidal/req/x/y/tracks",
          "/tidal/search/choose/req/artists?query=q", "/tidal/req/featured/new/playlists"}) {
        for (const auto& [body, size, count] : table) {
            SCOPED_TRACE(list + (": " + body.toStdString()));
            const auto request = answered(list, 0, 9, body);
            const QList<KeloRoles> rows = rowsOf(request);
            ASSERT_EQ(rows.size(), size);
            const bool isPlaylists = q(list).contains("playlists");
            EXPECT_TRUE(request.reply().value().rowsCount() == count || isPlaylists);
            for (const KeloRoles& row : rows) {
                EXPECT_FALSE(row.contains(KeloRoles::Icon()));
                EXPECT_EQ(row.id(), "");
                EXPECT_EQ(row.value(KeloRoles::Disabled()), QVariant(false));
            }
        }
    }
}
} // namespace
