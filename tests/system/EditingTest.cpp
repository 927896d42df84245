#include "ServiceTest.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>
#include <thread>

namespace {
const QString created = QStringLiteral("/tidal/myMusic/req/created/users/playlists");
const QString newTracks = QStringLiteral("/tidal/req/featured/new/tracks");
const QString bigPlaylist = QStringLiteral("f2ebea3a-0590-4f3c-8ac8-c11a0a12af21"); // 400 tracks
const QString albumWithGaps = QStringLiteral("500017");
const QString longAlbum = QStringLiteral("503186"); // 80 tracks

QString text(const QJsonValue& object, const char* key)
{
    return object.toObject().value(QLatin1String(key)).toString();
}

qint64 idOf(const QJsonValue& item)
{
    return item.toObject().value(QLatin1String("id")).toVariant().toLongLong();
}

/// Another client of the service: reads its state and edits as any other would.
class OtherClient
{
public:
    explicit OtherClient(kelosim::SimServer& sim)
        : m_http(sim.baseUrl()), m_token("Bearer " + sim.issueToken())
    {
    }

    QJsonArray items(const QString& path, int limit = 9999)
    {
        const std::string target =
            "/v1" + path.toStdString() + "?countryCode=NO&offset=0&limit=" + std::to_string(limit);
        const auto result = m_http.Get(target.c_str(), {{"Authorization", m_token}});
        return result ? QJsonDocument::fromJson(QByteArray::fromStdString(result->body))
                            .object()
                            .value(QStringLiteral("items"))
                            .toArray()
                      : QJsonArray();
    }
    QList<qint64> tracks(const QString& playlist)
    {
        QList<qint64> ids;
        for (const QJsonValue& item : items("/playlists/" + playlist + "/tracks"))
            ids << idOf(item);
        return ids;
    }
    /// What adding the first 50 tracks of a list must add.
    QList<qint64> playable(const QString& path)
    {
        QList<qint64> ids;
        for (const QJsonValue& item : items(path + "/tracks", 50)) {
            if (item.toObject().value(QStringLiteral("allowStreaming")).toBool())
                ids << idOf(item);
        }
        return ids;
    }
    QJsonObject playlist(const QString& uuid)
    {
        for (const QJsonValue& item : items(user + "/playlists")) {
            if (text(item, "uuid") == uuid)
                return item.toObject();
        }
        return {};
    }
    QList<qint64> favoriteAlbums()
    {
        QList<qint64> ids;
        for (const QJsonValue& item : items(user + "/favorites/albums"))
            ids << idOf(item.toObject().value(QStringLiteral("item")));
        return ids;
    }
    void removeFavoriteAlbum(qint64 id)
    {
        const std::string path = "/v1" + user.toStdString() + "/favorites/albums/" +
                                 std::to_string(id) + "?countryCode=NO";
        m_http.Delete(path.c_str(), {{"Authorization", m_token}});
    }
    /// Adds a track at the end, with a fresh tag as often as it takes.
    void append(const QString& playlist, qint64 id)
    {
        const std::string path = "/v1/playlists/" + playlist.toStdString();
        int status = 412;
        while (status == 412) {
            const auto read =
                m_http.Get((path + "?countryCode=NO").c_str(), {{"Authorization", m_token}});
            ASSERT_TRUE(read);
            const auto edit = m_http.Post(
                (path + "/tracks?countryCode=NO").c_str(),
                {{"Authorization", m_token}, {"If-None-Match", read->get_header_value("ETag")}},
                "trackIds=" + std::to_string(id) + "&toIndex=-1",
                "application/x-www-form-urlencoded");
            ASSERT_TRUE(edit);
            status = edit->status;
        }
        EXPECT_EQ(status, 200);
    }

private:
    const QString user = QStringLiteral("/users/770011");
    httplib::Client m_http;
    const std::string m_token;
};

/// As ServiceTest, beside another client of the service.
class EditingTest : public ServiceTest
{
protected:
    void SetUp() override
    {
        ServiceTest::SetUp();
        service = std::make_unique<OtherClient>(*sim);
    }

    /// Runs a command that must end well; what it printed.
    QString kelo(const QStringList& arguments)
    {
        const Outcome outcome = streamer.kelo(arguments);
        EXPECT_EQ(outcome.status, 0)
            << arguments.join(' ').toStdString() << ": " << outcome.err.toStdString();
        EXPECT_EQ(outcome.err, "") << arguments.join(' ').toStdString();
        return QString::fromUtf8(outcome.out).trimmed();
    }
    QJsonArray menu(const QString& path)
    {
        return streamer.kelo({"menu", path, "--json"}).json().value("rows").toArray();
    }
    QString pathOf(const QString& list, int row)
    {
        return text(streamer.rows(list).value("rows").toArray().at(row), "Path");
    }
    QString make(const QString& title)
    {
        const QString id = kelo({"playlist", "create", title}).section(' ', 1);
        EXPECT_EQ(text(service->playlist(id), "title"), title);
        return id;
    }
    /// The path under which the playlist's tracks are seen.
    QString rowOf(const QString& id)
    {
        for (const QJsonValue& row : streamer.rows(created).value("rows").toArray()) {
            if (text(row, "Id") == id)
                return text(row, "Path");
        }
        return {};
    }
    /// Whether the rows at a path are told to have changed so after `command` has run.
    bool seesChange(const QString& path, const QString& change, const QStringList& command)
    {
        httplib::Client client(streamer.url().toStdString());
        client.set_read_timeout(20, 0);
        std::thread editing;
        QByteArray seen;
        const QByteArray wanted = "\"change\":[\"" + change.toUtf8() + "\"]";
        const std::string target =
            "/api/v1/events?path=" + QUrl::toPercentEncoding(path).toStdString();
        client.Get(
            target.c_str(), {},
            [&](const httplib::Response& response) {
                editing = std::thread([&] { kelo(command); });
                return response.status == 200;
            },
            [&](const char* data, std::size_t size) {
                seen.append(data, int(size));
                return !seen.contains(wanted);
            });
        if (editing.joinable())
            editing.join();
        return seen.contains(wanted);
    }

    std::unique_ptr<OtherClient> service;
};
} // namespace

TEST_F(EditingTest, aFavoriteIsMadeSeenAndTakenBack)
{
    // The menu looks at the first 50 favorites alone.
    const QList<qint64> before = service->favoriteAlbums();
    for (int i = 30; i < before.size(); ++i)
        service->removeFavoriteAlbum(before.at(i));
    const QString album = pathOf("/tidal/req/featured/new/albums", 4);
    const qint64 id = QUrl(album).query().section('=', 1).toLongLong();
    const auto title = [&] { return text(menu(album).at(0), "Title"); };

    EXPECT_EQ(title(), "Add to favorites");
    EXPECT_EQ(kelo({"favorite", album}), "favorite on");
    EXPECT_EQ(service->favoriteAlbums().count(id), 1);
    EXPECT_EQ(title(), "Remove from favorites");
    EXPECT_EQ(kelo({"favorite", album, "on"}), "favorite on (it was already)");
    EXPECT_EQ(kelo({"favorite", album, "off"}), "favorite off");
    EXPECT_EQ(service->favoriteAlbums(), before.mid(0, 30));
    EXPECT_EQ(title(), "Add to favorites");
}

TEST_F(EditingTest, aPlaylistMadeFromATracksMenuHoldsTheTrack)
{
    const QJsonObject track = streamer.rows(newTracks).value("rows").toArray().at(3).toObject();
    QString chooser;
    for (const QJsonValue& row : menu(text(track, "Path"))) {
        if (text(row, "Title") == QLatin1String("Add to playlist"))
            chooser = text(row, "Path");
    }
    const QJsonObject form = streamer.rows(pathOf(chooser, 0));
    const QJsonArray fields = form.value("rows").toArray();
    ASSERT_EQ(fields.size(), 2);
    kelo({"set", text(fields.at(0), "Path"), "\"From a track\""});
    kelo({"set", text(form.value("roles"), "AcceptPath")});

    QString made;
    for (const QJsonValue& row : streamer.rows(created).value("rows").toArray()) {
        if (text(row, "Title") == QLatin1String("From a track"))
            made = text(row, "Id");
    }
    // The track follows after the answer; each look asks the service.
    QList<qint64> tracks;
    for (int looks = 0; looks < 500 && tracks.isEmpty(); ++looks)
        tracks = service->tracks(made);
    EXPECT_EQ(tracks, QList<qint64>{text(track, "Id").toLongLong()});
}

TEST_F(EditingTest, aPlaylistIsFilledReorderedRenamedAndDeleted)
{
    const QString id = make("Long story");
    ASSERT_EQ(sim->addFault("tag-lag count=2"), "");
    kelo({"playlist", "add", id, "/tidal/context?id=" + albumWithGaps + "&rowNum=0&type=Albums"});
    QList<qint64> expected = service->playable("/albums/" + albumWithGaps);
    EXPECT_LT(expected.size(), service->items("/albums/" + albumWithGaps + "/tracks", 50).size());
    // Refused twice, done, and read again for those who watch.
    EXPECT_TRUE(sim->waitForRequests("/playlists/" + id.toStdString() + "/tracks", 4, 10000));
    EXPECT_EQ(service->tracks(id), expected);
    kelo({"playlist", "add", id, "/tidal/context?id=" + longAlbum + "&rowNum=0&type=Albums"});
    EXPECT_EQ(service->items("/albums/" + longAlbum + "/tracks", 100).size(), 80);
    expected += service->playable("/albums/" + longAlbum);
    EXPECT_EQ(service->tracks(id), expected) << "the first 50 arrive";

    kelo({"playlist", "add", id, rowOf(bigPlaylist), pathOf(newTracks, 0)});
    expected += service->playable("/playlists/" + bigPlaylist);
    expected << text(streamer.rows(newTracks).value("rows").toArray().at(0), "Id").toLongLong();
    EXPECT_EQ(service->tracks(id), expected);

    kelo({"playlist", "move", id, "3", "0"});
    expected.move(3, 0);
    EXPECT_EQ(service->tracks(id), expected);

    ASSERT_EQ(sim->addFault("tag-lag count=1"), "");
    EXPECT_TRUE(seesChange(rowOf(id), "-4", {"playlist", "remove", id, "4"}));
    expected.removeAt(4);
    EXPECT_EQ(service->tracks(id), expected);
    EXPECT_TRUE(seesChange(rowOf(id), "+1", {"playlist", "add", id, pathOf(newTracks, 1)}));
    EXPECT_EQ(service->tracks(id).size(), expected.size() + 1);

    const QString title = QString::fromUtf8("a&b=c%41+\"'\\\n\t🎵 ü;#?/") + QString(400, 'x');
    kelo({"playlist", "rename", id, title, "--description", "d&title=e"});
    EXPECT_EQ(text(service->playlist(id), "title"), title);
    EXPECT_EQ(text(service->playlist(id), "description"), "d&title=e");
    kelo({"playlist", "rename", id, "short"});
    EXPECT_EQ(text(service->playlist(id), "description"), "d&title=e");
    const Outcome empty = streamer.kelo({"playlist", "create", ""});
    EXPECT_EQ(empty.status, 1);
    EXPECT_NE(empty.err, "");

    const int count = service->items("/users/770011/playlists").size();
    ASSERT_EQ(sim->addFault("tag-lag count=1"), "");
    kelo({"playlist", "delete", id});
    EXPECT_EQ(service->items("/users/770011/playlists").size(), count - 1);
    EXPECT_TRUE(service->playlist(id).isEmpty());
    EXPECT_EQ(streamer.kelo({"playlist", "delete", id}).status, 1);
}

TEST_F(EditingTest, whatAnotherClientDoesMeanwhileIsNeitherLostNorDoubled)
{
    const QString id = make("Shared");
    const QString album = "/tidal/context?id=" + albumWithGaps + "&rowNum=0&type=Albums";
    const QList<qint64> tracks = service->playable("/albums/" + albumWithGaps);
    kelo({"playlist", "add", id, album});
    constexpr qint64 foreign = 6000001;
    constexpr int foreignCount = 30;
    ASSERT_EQ(tracks.count(foreign), 0);
    ASSERT_EQ(sim->addFault("tag-lag after=7 count=3"), "");
    std::thread other([&] {
        OtherClient client(*sim);
        for (int i = 0; i < foreignCount; ++i)
            client.append(id, foreign);
    });
    kelo({"playlist", "add", id, album});
    kelo({"playlist", "remove", id, "2"});
    kelo({"playlist", "add", id, album});
    other.join();

    QList<qint64> left = service->tracks(id);
    EXPECT_EQ(left.count(foreign), foreignCount);
    left.removeAll(foreign);
    QList<qint64> expected = tracks + tracks + tracks;
    expected.removeAt(2);
    EXPECT_EQ(left, expected);
}

TEST_F(EditingTest, aRefusedEditIsToldAndChangesNothing)
{
    const QString id = make("Kept");
    kelo({"playlist", "add", id, pathOf(newTracks, 0), pathOf(newTracks, 1)});
    const QList<qint64> before = service->tracks(id);
    ASSERT_EQ(before.size(), 2);
    const struct
    {
        const char* fault;
        QStringList command;
    } refusals[] = {
        {"status method=POST status=403 body=none", {"add", id, pathOf(newTracks, 2)}},
        {"status method=DELETE status=404", {"remove", id, "0"}},
        {"status method=DELETE status=500 body=html", {"delete", id}},
        {"status method=POST status=404", {"move", id, "1", "0"}},
        {"hang method=POST", {"rename", id, "Another"}},
    };
    for (const auto& refusal : refusals) {
        ASSERT_EQ(sim->addFault(refusal.fault + (" path=/playlists/" + id.toStdString())), "");
        const Outcome outcome = streamer.kelo(QStringList{"playlist"} + refusal.command);
        sim->clearFaults();
        EXPECT_EQ(outcome.status, 1) << refusal.fault;
        EXPECT_NE(outcome.err, "") << refusal.fault;
        EXPECT_EQ(outcome.out, "") << refusal.fault;
        EXPECT_EQ(service->tracks(id), before) << refusal.fault;
        EXPECT_EQ(text(service->playlist(id), "title"), "Kept") << refusal.fault;
    }
    kelo({"playlist", "remove", id, "0"});
    EXPECT_EQ(service->tracks(id), before.mid(1));
}
