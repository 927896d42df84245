#include "ServiceTest.h"

#include <gtest/gtest.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>

namespace {

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
}

QStringList column(const QJsonObject& page, const char* role)
{
    QStringList result;
    for (const QJsonValue& row : page.value(QStringLiteral("rows")).toArray())
        result << text(row.toObject(), role);
    return result;
}

int countOf(const QJsonObject& page)
{
    return page.value(QStringLiteral("rowsCount")).toInt();
}

/// As ServiceTest, with the session set up.
class CatalogueTest : public ServiceTest
{
protected:
    void SetUp() override
    {
        ServiceTest::SetUp();
        streamer.rows(QStringLiteral("/tidal")); // sets the session up
    }

    /// The queries of the requests whose path below /v1 this is.
    QStringList queries(const QString& path) const
    {
        QStringList result;
        const auto log = QJsonDocument::fromJson(QByteArray::fromStdString(sim->log())).array();
        for (const QJsonValue& entry : log) {
            if (text(entry.toObject(), "path") != QStringLiteral("/v1") + path)
                continue;
            QStringList items;
            for (const QJsonValue& item : entry.toObject().value(QStringLiteral("query")).toArray())
                items << item.toArray().at(0).toString() + QLatin1Char('=') +
                             item.toArray().at(1).toString();
            result << items.join(QLatin1Char('&'));
        }
        return result;
    }
    QJsonObject page(const QString& path, int from, int to) const
    {
        return streamer.rows(path, {"--from", QString::number(from), "--to", QString::number(to)});
    }
    /// The rows of a menu that the service's answer to the session's set-up fills.
    QStringList filled(const QString& menu, const char* role = "Title") const
    {
        QStringList rows;
        for (int i = 0; i < 500 && rows.isEmpty(); ++i)
            rows = column(streamer.rows(menu), role);
        return rows;
    }
    Outcome set(const QString& path, const QString& json) const
    {
        return streamer.kelo({QStringLiteral("set"), path, json});
    }
    /// An artist's entries by title: one that has a biography and similar artists.
    QMap<QString, QString> artistEntries() const
    {
        const QJsonObject found =
            streamer.rows(QStringLiteral("/tidal/search/choose/req/artists?query=a"));
        for (const QString& path : column(found, "Path")) {
            const QJsonObject menu = streamer.rows(path);
            QMap<QString, QString> entries;
            const QStringList paths = column(menu, "Path");
            const QStringList titles = column(menu, "Title");
            for (int i = 0; i < titles.size(); ++i)
                entries.insert(titles.at(i), paths.at(i));
            if (set(entries.value(QStringLiteral("Bio")), QStringLiteral("1")).status == 0 &&
                streamer.kelo({"rows", entries.value(QStringLiteral("Similar artists"))}).status ==
                    0)
                return entries;
        }
        return {};
    }
};

} // namespace

TEST_F(CatalogueTest, anArtistOpensIntoEightEntriesEachOfWhichPages)
{
    const QMap<QString, QString> entries = artistEntries();
    ASSERT_EQ(entries.size(), 8);
    QString artist = entries.value(QStringLiteral("Top tracks"));
    artist.remove(QStringLiteral("artistContent=toptracks&"));
    const QJsonObject menu = streamer.rows(artist);
    EXPECT_EQ(column(menu, "Title"),
              QStringList({"Top tracks", "Albums", "EPs and singles", "Other albums",
                           "Created playlists", "Bio", "Similar artists", "Radio"}));
    QStringList types = column(menu, "Type");
    EXPECT_EQ(types.takeAt(5), QStringLiteral("Action"));
    EXPECT_EQ(types.count(QStringLiteral("Container")), 7);

    int most = 0;
    for (const QString& title : column(menu, "Title")) {
        if (title == QLatin1String("Bio"))
            continue;
        SCOPED_TRACE(title.toStdString());
        const QString path = entries.value(title);
        const QJsonObject whole = page(path, 0, 199);
        const QStringList all = column(whole, "Path");
        EXPECT_EQ(all.size(), countOf(whole));
        QStringList paged;
        int count = 1;
        for (int from = 0; from < count; from += 4) {
            const QJsonObject part = page(path, from, from + 3);
            count = countOf(part);
            paged += column(part, "Path");
        }
        EXPECT_EQ(paged, all);
        EXPECT_EQ(QSet<QString>(all.begin(), all.end()).size(), all.size());
        most = qMax(most, all.size());
    }
    EXPECT_GE(most, 12) << "no list of three pages";
}

TEST_F(CatalogueTest, aRadioIsAskedForOnceAndABiographyHasNoTags)
{
    const QMap<QString, QString> entries = artistEntries();
    ASSERT_EQ(entries.size(), 8);
    sim->reset();
    const QString radio = entries.value(QStringLiteral("Radio"));
    const QString id =
        radio.section(QStringLiteral("artistId="), 1).section(QLatin1Char('&'), 0, 0);
    const QStringList first = column(page(radio, 0, 9), "Path");
    EXPECT_EQ(queries(QStringLiteral("/artists/%1/radio").arg(id)),
              QStringList{"countryCode=NO&offset=0&filter=&limit=50"});
    const QStringList next = column(page(radio, 10, 19), "Path");
    EXPECT_EQ(next.size(), 10);
    EXPECT_NE(next, first);
    EXPECT_EQ(queries(QStringLiteral("/artists/%1/radio").arg(id)).size(), 1);
    EXPECT_TRUE(next.first().startsWith(QStringLiteral("/tidal/nowPlay?trackId=")));

    const Outcome bio = set(entries.value(QStringLiteral("Bio")), QStringLiteral("1"));
    const QString said = QString::fromUtf8(bio.out);
    EXPECT_TRUE(said.startsWith(QStringLiteral("Artist bio\n"))) << bio.out.toStdString();
    EXPECT_TRUE(said.contains(QStringLiteral("formed in an invented town")));
    EXPECT_FALSE(said.contains(QRegularExpression(QStringLiteral("\\[[^]]+\\]"))));
}

TEST_F(CatalogueTest, menusFillOnceAndTheNewListsCarryTheServicesNames)
{
    const QStringList genres = filled(QStringLiteral("/tidal/genres"));
    EXPECT_EQ(genres.size(), 19) << "two of the service's genres share a path";
    EXPECT_EQ(genres.value(2), QStringLiteral("R&B / Soul"));
    const QStringList moods = filled(QStringLiteral("/tidal/playlists"));
    EXPECT_EQ(moods.size(), 5);
    const QString pop = filled(QStringLiteral("/tidal/genres"), "Path").first();
    const QJsonObject lists = streamer.rows(pop);
    EXPECT_EQ(column(lists, "Title"), QStringList({"Playlists", "Albums", "Tracks"}));
    for (const QString& list : column(lists, "Path"))
        EXPECT_GT(countOf(streamer.rows(list)), 1) << list.toStdString();
    const QString mood = filled(QStringLiteral("/tidal/playlists"), "Path").first();
    EXPECT_GT(countOf(streamer.rows(mood)), 1);
    const QStringList names{"Playlists", "Just In",     "Staff Picks", "Masters", "Albums",
                            "Just In",   "Staff Picks", "Most Played", "Masters", "Tracks",
                            "Just In",   "Staff Picks", "Most Played"};
    EXPECT_EQ(column(streamer.rows(QStringLiteral("/tidal/new")), "Title"), names);

    EXPECT_EQ(streamer.kelo({"logout"}).status, 0);
    ASSERT_TRUE(streamer.login());
    streamer.rows(QStringLiteral("/tidal"));
    ASSERT_TRUE(sim->waitForRequests("/featured", 2, 20000));
    EXPECT_EQ(queries(QStringLiteral("/genres")).size(), 1);
    EXPECT_EQ(queries(QStringLiteral("/moods")).size(), 1);
    EXPECT_EQ(column(streamer.rows(QStringLiteral("/tidal/genres")), "Title"), genres);
    EXPECT_EQ(column(streamer.rows(QStringLiteral("/tidal/playlists")), "Title"), moods);
    EXPECT_EQ(column(streamer.rows(QStringLiteral("/tidal/new")), "Title"), names);
}

TEST_F(CatalogueTest, aChoiceChangesTheListsOfItsMenuAlone)
{
    const QString menu = QStringLiteral("/tidal/trackOrderingcontext");
    const Outcome before = streamer.kelo({"rows", menu});
    EXPECT_TRUE(before.out.contains("Index")) << before.out.toStdString();
    EXPECT_FALSE(before.out.contains("Desc")) << before.out.toStdString();
    const Outcome choices = streamer.kelo({"rows", menu + "/orderDirection/Enums"});
    EXPECT_TRUE(choices.out.contains("Descending  Desc\n")) << choices.out.toStdString();

    const QString playlist =
        column(streamer.rows(QStringLiteral("/tidal/req/featured/new/playlists")), "Path").first();
    const QStringList tracks = column(streamer.rows(playlist), "Id");
    const Outcome chosen = set(menu + "/orderDirection", QStringLiteral("\"Desc\""));
    EXPECT_EQ(chosen.status, 0) << chosen.err.toStdString();
    EXPECT_EQ(chosen.out, "done\n");
    const Outcome after = streamer.kelo({"rows", menu});
    EXPECT_TRUE(after.out.contains("Desc")) << after.out.toStdString();

    sim->reset();
    const QJsonObject reversed = streamer.rows(playlist);
    const QString uuid =
        playlist.section(QStringLiteral("contentId="), 1).section(QLatin1Char('&'), 0, 0);
    EXPECT_EQ(queries(QStringLiteral("/playlists/%1/tracks").arg(uuid)),
              QStringList{"countryCode=NO&order=INDEX&orderDirection=DESC&offset=0&limit=50"});
    if (countOf(reversed) <= 50) {
        EXPECT_EQ(column(reversed, "Id").first(), tracks.last());
    }
    const QString albums = QStringLiteral("/tidal/myMusic/req/favorites/users/albums");
    const QStringList ascending = column(streamer.rows(albums), "Title");
    EXPECT_EQ(queries(QStringLiteral("/users/770011/favorites/albums")),
              QStringList{"countryCode=NO&offset=0&orderDirection=ASC&limit=50&order=NAME"
                          "&filter=ALL"});

    EXPECT_EQ(set(QStringLiteral("/tidal/orderingcontext/order"), "\"Sideways\"").status, 0);
    EXPECT_EQ(set(QStringLiteral("/tidal/orderingcontext/orderDirection"), "\"Desc\"").status, 0);
    EXPECT_EQ(set(QStringLiteral("/tidal/orderingcontext/order"), "[1]").status, 1);
    EXPECT_NE(column(streamer.rows(albums), "Title").first(), ascending.first());
    EXPECT_EQ(queries(QStringLiteral("/users/770011/favorites/albums")).last(),
              QStringLiteral("countryCode=NO&offset=0&orderDirection=DESC&limit=50&order=NAME"
                             "&filter=ALL"));
}
