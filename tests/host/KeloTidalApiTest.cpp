#include "Table.h"

#include <climits>
#include <gtest/gtest.h>
#include <kelo/KeloTidalApi.h>

namespace {
/// The texts that are read, in this order.
const char* const texts =
    "title cover name url picture uuid description image sessionId countryCode "
    "audioQuality manifestMimeType manifest path userMessage "
    "highestSoundQuality text mimeType";
const char* const others =
    "id userId trackId status subStatus album artist artists promotedArtists "
    "items totalNumberOfItems urls allowStreaming";

/// What the readers of the views make of an object: texts and numbers that are not empty.
QString readEverything(const KeloJson& json)
{
    const KeloTidalApiTrackResponse track(json);
    const KeloTidalApiAlbumResponse album(json);
    const KeloTidalApiArtistResponse artist(json);
    const KeloTidalApiPlaylistResponse playlist(json);
    const KeloTidalApiSessionsResponse session(json);
    const KeloTidalApiStreamUrlResponse stream(json);
    const KeloTidalApiErrorResponse error(json);
    const KeloTidalApiTracksResponse list(json);
    const KeloTidalApiManifest manifest(json);
    QStringList read;
    read << track.title() << album.cover() << artist.name() << artist.url() << artist.picture()
         << playlist.uuid() << playlist.description() << playlist.image() << session.sessionId()
         << session.countryCode() << stream.audioQuality() << stream.manifestMimeType()
         << stream.manifest() << KeloTidalApiContentRoots(json).path() << error.userMessage()
         << KeloTidalApiSubscriptionResponse(json).highestSoundQuality()
         << KeloTidalApiArtistBioResponse(json).text() << manifest.mimeType() << manifest.urls()
         << track.album().title() << track.album().cover() << track.artist().name();
    for (const qint64 number :
         {track.id(), session.userId(), stream.trackId(), qint64(error.status()),
          qint64(error.subStatus()), qint64(list.totalNumberOfItems()),
          qint64(track.artists().size()), qint64(album.artists().size()),
          qint64(playlist.promotedArtists().size()), qint64(list.items().size()),
          qint64(list.itemsFav().size())})
        read += number == 0 ? QString() : QString::number(number);
    read.removeAll(QString());
    return read.join(' ');
}
} // namespace

TEST(KeloTidalApiTest, fieldsReadByNameAndAsEmptyWhenTheyAreOfAnotherType)
{
    // value: of every field; "%" stands for its name
    for (const auto& [value, read] :
         Table<const char*, const char*>{{R"("%")", texts},
                                         {"7", "7 7 7 7 7 7 7"}, // a message of an error, too
                                         {R"({"title":"t","cover":"c","name":"n"})", "t c n"},
                                         {"[{}]", "1 1 1 1 1"},
                                         {R"(["a","b"])", "a b"},
                                         {"null", ""},
                                         {"[[]]", ""},
                                         {"[null]", ""},
                                         {R"({"":{}})", ""},
                                         {"[0.5,false]", ""}}) {
        QByteArray object;
        for (const QByteArray& field : (QByteArray(texts) + ' ' + others).split(' '))
            object += (object.isEmpty() ? "{\"" : ",\"") + field +
                      "\":" + QByteArray(value).replace('%', field);
        KeloError error;
        const KeloJson json = KeloJson::parse(object + "}", &error);
        EXPECT_FALSE(error.isSet()) << value;
        EXPECT_EQ(readEverything(json).toStdString(), read) << value;
    }
    for (const char* document : {"null", "[]", "7", "\"x\"", "[{\"items\":[1]}]"})
        EXPECT_EQ(readEverything(KeloJson::parse(document)), QString()) << document;
    EXPECT_EQ(readEverything(KeloJson()), QString());
}

TEST(KeloTidalApiTest, listsLeaveOutWhatIsNoObjectAndCountsStayInRange)
{
    const auto list = [](const char* json) {
        return KeloTidalApiTracksResponse(KeloJson::parse(json));
    };
    EXPECT_EQ(list("{\"items\":[{\"id\":1},null,7,\"x\",[],{\"id\":2}]}").items().size(), 2u);
    EXPECT_EQ(list("{\"items\":[{\"item\":{\"id\":3}}]}").itemsFav().front().item().id(), 3);
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
