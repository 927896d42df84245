#include <climits>
#include <gtest/gtest.h>
#include <kelo/KeloTidalApi.h>
#include <QFile>

namespace {
KeloJson sample(const char* name)
{
    QFile file(QStringLiteral(KELO_TEST_DATA "/service/%1.json").arg(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    KeloError error;
    const KeloJson json = KeloJson::parse(file.readAll(), &error);
    EXPECT_FALSE(error.isSet()) << name << ": " << error.message().toStdString();
    return json;
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Every reader of every view, so that a hostile object meets them all.
QStringList readEverything(const KeloJson& json)
{
    const KeloTidalApiTrackResponse track(json);
    const KeloTidalApiAlbumResponse album(json);
    const KeloTidalApiArtistResponse artist(json);
    const KeloTidalApiPlaylistResponse playlist(json);
    const KeloTidalApiSessionsResponse session(json);
    const KeloTidalApiStreamUrlResponse stream(json);
    const KeloTidalApiErrorResponse error(json);
    const KeloTidalApiContentRoots root(json);
    QStringList read{track.title(),
                     album.cover(),
                     artist.name(),
                     artist.url(),
                     artist.picture(),
                     playlist.uuid(),
                     playlist.description(),
                     playlist.image(),
                     session.sessionId(),
                     session.countryCode(),
                     stream.audioQuality(),
                     stream.manifestMimeType(),
                     stream.manifest(),
                     root.path(),
                     track.album().title(),
                     track.album().cover(),
                     track.artist().name(),
                     error.userMessage(),
                     KeloTidalApiSubscriptionResponse(json).highestSoundQuality(),
                     KeloTidalApiArtistBioResponse(json).text(),
                     KeloTidalApiManifest(json).mimeType()};
    read += KeloTidalApiManifest(json).urls();
    for (const qint64 number :
         {track.id(), session.userId(), stream.trackId(), qint64(error.status()),
          qint64(error.subStatus()), qint64(track.artists().size()), qint64(album.artists().size()),
          qint64(playlist.promotedArtists().size())})
        read += number == 0 ? QString() : QString::number(number);
    const KeloTidalApiTracksResponse list(json);
    for (const qint64 number : {qint64(list.totalNumberOfItems()), qint64(list.items().size()),
                                qint64(list.itemsFav().size())})
        read += number == 0 ? QString() : QString::number(number);
    read.removeAll(QString());
    return read;
}
} // namespace

TEST(KeloTidalApiTest, listsReadBareAndAsFavorites)
{
    const KeloTidalApiTracksResponse tracks(sample("tracks-list"));
    ASSERT_EQ(tracks.totalNumberOfItems(), 4);
    const KeloTidalApiTrackResponse track = tracks.items().front();
    EXPECT_EQ(track.id(), 600001);
    EXPECT_EQ(track.title(), text("Low Tide"));
    EXPECT_TRUE(track.allowStreaming());
    EXPECT_EQ(track.artist().name(), text("Velvet Harbour"));
    EXPECT_EQ(track.album().cover(), text("22b3c4d5-0002-4e6f-9a71-8293ab1c2d3e"));

    const KeloTidalApiAlbumsResponse favorites(sample("favorites-albums"));
    ASSERT_EQ(favorites.itemsFav().size(), 3u);
    const KeloTidalApiAlbumResponse album = favorites.itemsFav().front().item();
    EXPECT_EQ(album.title(), text("Paper Weather"));
    EXPECT_EQ(album.artists().at(1).name(), text("\u00c5nna Kvist & the Lanterns"));
    EXPECT_EQ(favorites.items().front().title(), QString()) << "the item stands one level deeper";

    const KeloTidalApiPlaylistsResponse playlists(sample("playlists-list"));
    const auto items = playlists.items();
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].uuid(), text("a1b2c3d4-1001-4aaa-8bbb-0123456789ab"));
    EXPECT_TRUE(items[0].contains(KeloTidalApiPlaylistResponse::Image()));
    EXPECT_FALSE(items[1].contains(KeloTidalApiPlaylistResponse::Image())) << "null";
    EXPECT_EQ(items[1].description(), QString());
    EXPECT_EQ(items[2].promotedArtists().size(), 1u);
}

TEST(KeloTidalApiTest, singleAnswersReadTheirFields)
{
    EXPECT_EQ(KeloTidalApiTrackResponse(sample("track")).artists().size(), 2u);
    EXPECT_EQ(KeloTidalApiArtistResponse(sample("artist")).url(),
              text("http://www.tidal.com/artist/900101"));
    const KeloTidalApiSessionsResponse session(sample("sessions"));
    EXPECT_EQ(session.userId(), 770011);
    EXPECT_EQ(session.countryCode(), text("NO"));
    EXPECT_EQ(KeloTidalApiSubscriptionResponse(sample("subscription")).highestSoundQuality(),
              text("LOSSLESS"));
    EXPECT_TRUE(
        KeloTidalApiArtistBioResponse(sample("artist-bio")).text().startsWith(text("[wimp")));

    KeloTidalApiContentRootsResponse genres;
    genres.setRoot(sample("content-roots-genres"));
    ASSERT_EQ(genres.root().size(), 4u);
    EXPECT_EQ(genres.root()[1].name(), text("Soul / Lantern"));
    EXPECT_EQ(genres.root()[2].path(), text("spoken_field"));

    const KeloTidalApiStreamUrlResponse stream(sample("playbackinfo"));
    EXPECT_EQ(stream.trackId(), 600001);
    const KeloTidalApiManifest manifest(
        KeloJson::parse(QByteArray::fromBase64(stream.manifest().toLatin1())));
    EXPECT_EQ(manifest.mimeType(), text("audio/flac"));
    ASSERT_EQ(manifest.urls().size(), 1);
    EXPECT_EQ(stream.toHash().value(text("bitDepth")), QVariant(16));

    const KeloTidalApiErrorResponse error(sample("error"));
    EXPECT_EQ(error.status(), 412);
    EXPECT_EQ(error.subStatus(), 7002);
}

TEST(KeloTidalApiTest, aHostileAnswerReadsAsEmpty)
{
    const char* fields[] = {"id",
                            "title",
                            "cover",
                            "name",
                            "url",
                            "picture",
                            "uuid",
                            "description",
                            "image",
                            "sessionId",
                            "countryCode",
                            "userId",
                            "trackId",
                            "audioQuality",
                            "manifestMimeType",
                            "manifest",
                            "path",
                            "album",
                            "artist",
                            "artists",
                            "promotedArtists",
                            "items",
                            "totalNumberOfItems",
                            "highestSoundQuality",
                            "text",
                            "mimeType",
                            "urls",
                            "allowStreaming",
                            "status",
                            "subStatus",
                            "userMessage"};
    for (const char* value : {"null", "{}", "[]", "[[]]", "[null]", "{\"\":{}}", "[0.5,false]"}) {
        QByteArray object;
        for (const char* field : fields)
            object += (object.isEmpty() ? "{\"" : ",\"") + QByteArray(field) + "\":" + value;
        KeloError error;
        const KeloJson json = KeloJson::parse(object + "}", &error);
        EXPECT_FALSE(error.isSet()) << value;
        EXPECT_EQ(readEverything(json), QStringList()) << value;
    }
    for (const char* document : {"null", "[]", "7", "\"x\"", "[{\"items\":[1]}]"})
        EXPECT_EQ(readEverything(KeloJson::parse(document)), QStringList()) << document;
    EXPECT_EQ(readEverything(KeloJson()), QStringList());
}

TEST(KeloTidalApiTest, listsLeaveOutWhatIsNoObjectAndCountsStayInRange)
{
    const auto list = [](const char* json) {
        return KeloTidalApiTracksResponse(KeloJson::parse(json));
    };
    EXPECT_EQ(list("{\"items\":[{\"id\":1},null,7,\"x\",[],{\"id\":2}]}").items().size(), 2u);
    EXPECT_EQ(list("{\"totalNumberOfItems\":4294967297}").totalNumberOfItems(), INT_MAX);
    EXPECT_EQ(list("{\"totalNumberOfItems\":-3}").totalNumberOfItems(), 0);
    EXPECT_EQ(list("{\"totalNumberOfItems\":12.0}").totalNumberOfItems(), 12);
}

TEST(KeloTidalApiTest, anErrorsStatusMayBeATextOrMissing)
{
    const auto error = [](const char* json) {
        return KeloTidalApiErrorResponse(KeloJson::parse(json));
    };
    EXPECT_EQ(error("{\"status\":\"401\"}").status(), 401);
    EXPECT_EQ(error("{\"userMessage\":\"no\"}").status(), 0);
    EXPECT_EQ(error("{\"status\":{},\"subStatus\":[]}").subStatus(), 0);
    EXPECT_TRUE(error("<html>").isEmpty());
    EXPECT_TRUE(error("[]").isEmpty());
}
