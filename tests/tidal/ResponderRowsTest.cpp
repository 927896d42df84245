#include "ModuleWorld.h"
#include "TidalContextNode.h"
#include "TidalNewPlaylistForm.h"
#include <gtest/gtest.h>
#include <kelo/KeloTidalConstants.h>

namespace {
CMPath encoded(const char* text)
{
    return CMPath::fromEncoded(QLatin1String(text));
}

QByteArray page(const QByteArray& items, int total)
{
    return "{\"totalNumberOfItems\":" + QByteArray::number(total) + ",\"items\":[" + items + "]}";
}

/// `count` numbered items made from a text in which % stands for the number.
QByteArray many(const QByteArray& item, int count)
{
    QByteArray items;
    for (int i = 0; i < count; ++i)
        items += (i ? "," : "") + QByteArray(item).replace("%", QByteArray::number(i));
    return items;
}

/// A row as a map from its roles; the row must be as long as its roles.
KeloRoles rowAt(const CMGetRowsRequest& request, int index)
{
    const QVariantList row = request.reply().value().rows().toList().value(index).toList();
    EXPECT_EQ(row.size(), request.roles().size());
    KeloRoles roles;
    for (int i = 0; i < row.size(); ++i) {
        if (row.at(i).isValid())
            roles.insert(request.roles().at(i), row.at(i));
    }
    return roles;
}

int rowsIn(const CMGetRowsRequest& request)
{
    const QVariantList rows = request.reply().value().rows().toList();
    for (const QVariant& row : rows)
        EXPECT_EQ(row.toList().size(), request.roles().size());
    return rows.size();
}

QStringList titlesOf(const CMGetRowsRequest& request)
{
    QStringList titles;
    for (int i = 0; i < rowsIn(request); ++i)
        titles << rowAt(request, i).title();
    return titles;
}

const char* const albumItem =
    R"({"id":4005000000,"title":"T","allowStreaming":false,"cover":"ab-cd-ef",
        "artist":{"id":1,"name":"A"},"artists":[{"id":1,"name":"A"},{"id":2,"name":"B \u00e5"}]})";
const char* const trackItem =
    R"({"id":%,"title":"T","artist":{"id":1,"name":"A"},"artists":[{"id":1,"name":"A, x"},
        {"id":2,"name":"B"}],"album":{"title":"L","cover":"ab-cd"}})";
} // namespace

class ResponderRows : public testing::Test
{
protected:
    static void SetUpTestSuite() { world = new ModuleWorld; }
    static void TearDownTestSuite()
    {
        delete world;
        world = nullptr;
    }
    CMGetRowsRequest answered(const char* path, int from, int to, const QByteArray& body,
                              const QString& etag = QString())
    {
        return world->answered(encoded(path), from, to, ModuleWorld::allRoles(), 200, body, etag);
    }
    /// The context roles that the menu node itself gives for these parameters.
    QVariant menu(KeloTidalContextVariation::Enum variation, const QMap<QString, QString>& params)
    {
        QVariant roles;
        world->onWorker(
            [&] { roles = world->worker()->contextNode(variation)->getContextRoles(params); });
        return roles;
    }

    static ModuleWorld* world;
};
ModuleWorld* ResponderRows::world = nullptr;

TEST_F(ResponderRows, ShowsAnAlbum)
{
    const auto request =
        answered("/tidal/search/choose/req/albums?query=a%26b", 5, 9, page(albumItem, 6));
    const KeloRoles row = rowAt(request, 0);
    EXPECT_EQ(row.value(KeloRoles::Path()).toString(),
              QStringLiteral("/tidal/search/choose/req/albums?contentId=4005000000&query=a%26b"));
    EXPECT_EQ(row.title(), QStringLiteral("T"));
    EXPECT_EQ(row.id(), QStringLiteral("4005000000"));
    EXPECT_EQ(row.type(), KeloRolesType::Container());
    EXPECT_EQ(row.value(KeloRoles::Disabled()), QVariant(true));
    EXPECT_EQ(row.description(), QStringLiteral("A, B \u00e5"));
    EXPECT_EQ(row.icon(), QStringLiteral("http://images/ab/cd/ef/320x320.jpg"));
    EXPECT_EQ(row.value(KeloRoles::AudioType()), QVariant(KeloRolesAudioType::None()));
    EXPECT_EQ(row.value(KeloRoles::ContainerType()), QVariant(KeloRolesContainerType::None()));
    EXPECT_EQ(row.value(KeloRoles::ContainerPlayable()), QVariant(true));
    KeloMetaData metaData;
    metaData.setArtist(row.description());
    metaData.setServiceID(KeloService_Tidal_Id());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    EXPECT_EQ(row.value(KeloRoles::MediaData()), mediaData.toVariant());
    EXPECT_EQ(row.context(), menu(KeloTidalContextVariation::Browse,
                                  {{"id", "4005000000"}, {"type", "Albums"}, {"rowNum", "5"}}));
    EXPECT_EQ(request.reply().value().rowsCount(), 6);
    EXPECT_EQ(request.reply().value().rowsVersion(), 0);
}

TEST_F(ResponderRows, ShowsATrackThatPlaysItsList)
{
    const char* const list = "/tidal/myMusic/req/created/users/playlists?contentId=u%201&zz=%C3%A5";
    const auto request = answered(list, 10, 12, page(many(trackItem, 3), 13));
    for (int i = 0; i < 3; ++i) {
        const KeloRoles row = rowAt(request, i);
        const QString id = QString::number(i);
        CMPath path = encoded(list);
        path.addParam(QStringLiteral("trackId"), id);
        EXPECT_EQ(row.value(KeloRoles::Path()).toString(), path.toEncoded());
        EXPECT_EQ(row.title(), QStringLiteral("T - A"));
        EXPECT_EQ(row.type(), KeloRolesType::Audio());
        EXPECT_EQ(row.value(KeloRoles::AudioType()), QVariant(KeloRolesAudioType::MusicTrack()));
        EXPECT_EQ(row.value(KeloRoles::Disabled()), QVariant(false));
        EXPECT_EQ(row.icon(), QStringLiteral("http://images/ab/cd/320x320.jpg"));
        KeloMetaData metaData;
        metaData.setAlbum(QStringLiteral("L"));
        metaData.setArtist(QStringLiteral("A, x, B"));
        metaData.setServiceID(KeloService_Tidal_Id());
        metaData.setPrePlayPath(
            world->worker()->addPrefix(KeloTidalPrePlayPath() + QStringLiteral("/") + id));
        metaData.setContentPlayContextPath(encoded(list));
        KeloResource resource;
        resource.setMimeType(QStringLiteral("audio/unknown"));
        KeloMediaData mediaData;
        mediaData.setMetaData(metaData);
        mediaData.setResources({resource});
        EXPECT_EQ(row.value(KeloRoles::MediaData()), mediaData.toVariant());
        EXPECT_EQ(row.context(), menu(KeloTidalContextVariation::PlaylistTracks,
                                      {{"id", id},
                                       {"type", "Tracks"},
                                       {"rowNum", QString::number(10 + i)},
                                       {"artists", "A, x_1,B_2"},
                                       {"playlistId", "u 1"}}));
    }
    const auto reordered = answered(list, 0, 0, page(R"({"id":5,"title":"T","index":42})", 50));
    const QVariant context = rowAt(reordered, 0).context().toHash().value(KeloRoles::Path());
    EXPECT_EQ(encoded(context.toString().toUtf8().constData()).param(QStringLiteral("rowNum")),
              QStringLiteral("42"))
        << "an edit names the place in the playlist, whatever the order of the rows";
}

TEST_F(ResponderRows, ShowsArtistsWithTheStoredRowBehindTheLast)
{
    const char* const item = R"({"id":%,"name":"N%","url":"http://x/?a&b","picture":"p-q"})";
    const auto search =
        answered("/tidal/search/choose/req/artists?query=q", 0, 9, page(many(item, 1), 1));
    const KeloRoles row = rowAt(search, 0);
    EXPECT_EQ(row.value(KeloRoles::Path()).toString(),
              QStringLiteral("/tidal/search/choose/req/"
                             "artists?artistId=0&artistUrl=http%3A%2F%2Fx%2F%3Fa%26b&query=q"));
    EXPECT_EQ(row.icon(), QStringLiteral("http://images/p/q/160x160.jpg"));
    EXPECT_EQ(row.context(), menu(KeloTidalContextVariation::Base,
                                  {{"id", "0"}, {"type", "Artists"}, {"rowNum", "0"}}));

    const char* const mine = "/tidal/myMusic/req/favorites/users/artists";
    const struct
    {
        int from, to, received, total, rows, count;
    } table[] = {{0, 9, 3, 3, 4, 4},     {0, 2, 3, 3, 3, 4},       {3, 9, 0, 3, 1, 4},
                 {0, 9, 10, 30, 10, 30}, {20, 29, 10, 30, 10, 31}, {0, 9, 0, 0, 1, 1}};
    for (const auto& entry : table) {
        const auto request =
            answered(mine, entry.from, entry.to,
                     page(many(R"({"item":{"id":%,"name":"N"}})", entry.received), entry.total));
        EXPECT_EQ(rowsIn(request), entry.rows) << entry.from << " of " << entry.total;
        EXPECT_EQ(request.reply().value().rowsCount(), entry.count) << entry.from;
    }
    const auto last = answered(mine, 0, 9, page(many(R"({"item":{"id":%,"name":"N"}})", 1), 1));
    EXPECT_EQ(titlesOf(last), (QStringList{QStringLiteral("N"), QStringLiteral("Www")}));
}

TEST_F(ResponderRows, ListsPlaylistsToOpen)
{
    const char* const item =
        R"({"uuid":"u%","title":"P%","image":"i-%","promotedArtists":[{"name":"A"},{"name":"B"}]})";
    const auto request = answered("/tidal/myMusic/req/created/users/playlists?ETag=old", 2, 5,
                                  page(many(item, 2), 40), QStringLiteral("\"7\""));
    EXPECT_EQ(titlesOf(request), (QStringList{QStringLiteral("P0"), QStringLiteral("P1")}));
    EXPECT_EQ(request.reply().value().rowsCount(), 40);
    const KeloRoles row = rowAt(request, 1);
    EXPECT_EQ(row.value(KeloRoles::Path()).toString(),
              QStringLiteral("/tidal/myMusic/req/created/users/"
                             "playlists?ETag=%227%22&contentId=u1&playlistId=u1"));
    EXPECT_EQ(row.description(), QStringLiteral("A, B"));
    EXPECT_EQ(row.icon(), QStringLiteral("http://images/i/1/480x320.jpg"));
    EXPECT_EQ(row.context(), menu(KeloTidalContextVariation::Playlist,
                                  {{"id", "u1"}, {"type", "Playlists"}, {"rowNum", "3"}}));
    const auto search = answered("/tidal/search/choose/req/playlists?query=q", 0, 0,
                                 page(many(item, 1), 1), QStringLiteral("7"));
    EXPECT_EQ(rowAt(search, 0).path().param(QStringLiteral("ETag")), QString());
    const auto favorites = answered("/tidal/myMusic/req/favorites/users/playlists", 0, 0,
                                    page(R"({"created":"","item":{"uuid":"w","title":"W"}})", 1));
    EXPECT_EQ(titlesOf(favorites), QStringList{QStringLiteral("W")});
}

TEST_F(ResponderRows, LetsAPlaylistBeChosen)
{
    const char* const item = R"({"uuid":"u%","title":"P%"})";
    const char* const chooser =
        "/tidal/context/addToPlaylists/req/created/users/playlists?id=5&type=Tracks";
    const QString create = QStringLiteral("Create playlist");
    const QString header = QStringLiteral("My playlists");
    const struct
    {
        int from, to, received, total;
        QStringList titles;
        int count;
    } table[] = {
        {0, 3, 4, 9, {create, header, "P0", "P1"}, 11},
        {1, 2, 2, 9, {header, "P0"}, 11},
        {2, 3, 2, 9, {"P0", "P1"}, 11}, // the service was asked from its first playlist on
        {4, 9, 2, 4, {"P0", "P1"}, 6},
        {0, 9, 0, 0, {create, header, "No items found"}, 3},
        {2, 9, 0, 0, {"No items found"}, 3},
    };
    for (const auto& row : table) {
        const auto request =
            answered(chooser, row.from, row.to, page(many(item, row.received), row.total));
        EXPECT_EQ(titlesOf(request), row.titles) << row.from << "-" << row.to;
        EXPECT_EQ(request.reply().value().rowsCount(), row.count);
    }
    const auto request = answered(chooser, 0, 2, page(many(item, 1), 1), QStringLiteral("7"));
    EXPECT_EQ(rowAt(request, 0).path(), encoded("/tidal/createPlaylist?id=5&type=Tracks"));
    EXPECT_EQ(rowAt(request, 1).type(), KeloRolesType::Header());
    EXPECT_EQ(rowAt(request, 2).type(), KeloRolesType::Action());
    EXPECT_EQ(rowAt(request, 2).path(),
              encoded("/tidal/context/addToPlaylists?ETag=7&id=5&playlistId=u0&type=Tracks"));
    const auto mine = answered("/tidal/myPlaylistTrackscontext/addToPlaylists/req/created/users/"
                               "playlists?id=5",
                               2, 2, page(many(item, 1), 1));
    EXPECT_EQ(rowAt(mine, 0).path(),
              encoded("/tidal/playlistcontext/addToPlaylists?ETag=&id=5&playlistId=u0"));
}

TEST_F(ResponderRows, NamesItemsByWholeNumbersAlone)
{
    const struct
    {
        const char* id;
        const char* text;
    } table[] = {{"7", "7"},
                 {"7.0", "7"},
                 {"-0.0", "0"},
                 {"9223372036854775807", "9223372036854775807"},
                 {"1.5", ""},
                 {"1e30", ""},
                 {"\"12\"", ""},
                 {"true", ""},
                 {"null", ""},
                 {"[7]", ""},
                 {"9223372036854775808", ""}};
    const std::pair<const char*, const char*> lists[] = {
        {"albums", "contentId"}, {"artists", "artistId"}, {"tracks", "trackId"}};
    for (const auto& [list, key] : lists) {
        const QByteArray path = QByteArray("/tidal/search/choose/req/") + list + "?query=q";
        for (const auto& entry : table) {
            SCOPED_TRACE(std::string(list) + " " + entry.id);
            // The first entry of a page of favourites may hold nothing.
            const auto request =
                answered(path, 0, 9,
                         page(QByteArray(R"({"item":null},{"item":{"id":%,"title":"T","name":"T",
                                            "artists":[{"id":%,"name":"A"}]}})")
                                  .replace("%", entry.id),
                              2));
            ASSERT_EQ(rowsIn(request), 1);
            const KeloRoles row = rowAt(request, 0);
            EXPECT_TRUE(row.title().startsWith(QLatin1Char('T')));
            EXPECT_EQ(row.id(), QLatin1String(entry.text));
            EXPECT_EQ(row.path().param(QLatin1String(key)), QLatin1String(entry.text));
            const CMPath menu =
                CMPath::fromEncoded(row.context().toHash().value(KeloRoles::Path()).toString());
            EXPECT_EQ(menu.param(QStringLiteral("id")), QLatin1String(entry.text));
            if (menu.hasParam(QStringLiteral("artists"))) {
                EXPECT_EQ(menu.param(QStringLiteral("artists")),
                          QStringLiteral("A_") + QLatin1String(entry.text));
            }
        }
    }
}

TEST_F(ResponderRows, CutsWhatWasNotAskedFor)
{
    const auto request =
        answered("/tidal/req/albums?contentId=1", 0, 1, page(many(trackItem, 5), 5));
    EXPECT_EQ(rowsIn(request), 2);
    EXPECT_EQ(request.reply().value().rowsCount(), 5);
}

TEST_F(ResponderRows, TakesWhateverTheServiceSends)
{
    const struct
    {
        const char* name;
        QByteArray body;
        int rows; ///< 1 and a count of 1 for "No items found"
        int count;
    } table[] = {
        {"empty", "", 1, 1},
        {"truncated", "{\"totalNumberOfItems\":5,\"items\":[{\"id\":1,", 1, 1},
        {"HTML", "<html><body>503</body></html>", 1, 1},
        {"an array", "[1,2,3]", 1, 1},
        {"null", "null", 1, 1},
        {"a total of another type", R"({"totalNumberOfItems":"5","items":[{}]})", 1, 1},
        {"a total below zero", R"({"totalNumberOfItems":-5,"items":[{}]})", 1, 1},
        {"a total above all", R"({"totalNumberOfItems":999999999999,"items":[{}]})", 1, 2147483647},
        {"items missing", R"({"totalNumberOfItems":5})", 0, 0},
        {"items of another type", R"({"totalNumberOfItems":5,"items":{"a":1}})", 0, 0},
        {"items that are no objects", page("null,7,\"x\",[],{\"title\":\"T\"}", 5), 1, 1},
        {"empty favourites", page("{\"item\":{}},{\"item\":null},{\"item\":3}", 3), 1, 1},
        {"null fields",
         page(R"({"id":null,"uuid":null,"title":null,"name":null,"artist":null,"artists":null,
                  "album":null,"cover":null,"image":null,"picture":null,"url":null})",
              1),
         1, 1},
        {"wrong fields",
         page(R"({"id":"x","uuid":5,"title":{},"name":[],"artist":"x","artists":[null,5,{}],
                  "album":7,"cover":9,"image":{},"picture":true,"allowStreaming":"no","url":1})",
              1),
         1, 1},
    };
    const char* const lists[] = {"/tidal/req/featured/new/albums", "/tidal/req/x/y/tracks",
                                 "/tidal/search/choose/req/artists?query=q",
                                 "/tidal/req/featured/new/playlists"};
    for (const char* list : lists) {
        for (const auto& entry : table) {
            SCOPED_TRACE(std::string(list) + ": " + entry.name);
            const auto request = answered(list, 0, 9, entry.body);
            ASSERT_TRUE(request.reply().isFinished());
            EXPECT_FALSE(request.reply().error().isSet());
            EXPECT_EQ(rowsIn(request), entry.rows);
            const bool isPlaylists = QByteArray(list).contains("playlists");
            if (!isPlaylists) {
                EXPECT_EQ(request.reply().value().rowsCount(), entry.count);
            }
            if (entry.rows == 1 && QByteArray(entry.name).contains("fields")) {
                EXPECT_FALSE(rowAt(request, 0).contains(KeloRoles::Icon()));
                EXPECT_EQ(rowAt(request, 0).id(), QString());
                EXPECT_EQ(rowAt(request, 0).value(KeloRoles::Disabled()), QVariant(false));
            }
        }
    }
}
