#include "ModuleTest.h"
#include "Table.h"
#include <QJsonDocument>

namespace {
/// A list of tracks with ids from a number on.
std::string tracks(int firstId, int count)
{
    return pageOf(many(R"({"id":%,"title":"T"})", count, firstId), count).toStdString();
}

const QString page = "/tidal/req/artists?artistId=7&artistUrl=http%3A%2F%2Fw%2F7";

class ArtistTest : public ScriptedTest
{
protected:
    static QString radio(int artist)
    {
        return q("/tidal/req/artists?artistContent=radio&artistId=%1").arg(artist);
    }
    /// The ids of the tracks that a radio's rows lead to.
    static QStringList trackIds(const CMGetRowsRequest& request)
    {
        QStringList ids;
        for (const KeloRoles& row : rowsOf(request)) {
            EXPECT_EQ(row.path().base(), "/tidal/nowPlay");
            ids << row.path().param("trackId");
        }
        return ids;
    }
};

TEST_F(ArtistTest, ThePageHasEightEntriesInOrder)
{
    const CMGetRowsRequest whole = askRows(page);
    const QList<KeloRoles> rows = rowsOf(whole);
    EXPECT_EQ(column(rows), (QStringList{"Top tracks", "Albums", "EPs and singles", "Other albums",
                                         "Created playlists", "Bio", "Similar artists", "Radio"}));
    EXPECT_EQ(whole.reply().value().rowsCount(), 8);
    for (int i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].type(), i == 5 ? KeloRolesType::Action() : KeloRolesType::Container());
        EXPECT_EQ(menuOf(rows[i]).toEncoded(), "/tidal/basecontext?id=7&type=Artists");
    }
    const QStringList paths = column(rows, KeloRoles::Path());
    EXPECT_EQ(CMPath::fromEncoded(paths.value(2)),
              CMPath::fromEncoded(page + "&artistContent=albums&artistAlbumContent=EPSANDSINGLES"));
    EXPECT_EQ(paths.filter("artistContent=albums").filter("AlbumContent=").size(), 3);
    const CMGetRowsRequest part = askRows(page, 5, 6);
    EXPECT_EQ(column(rowsOf(part)), column(rows).mid(5, 2));
    EXPECT_EQ(part.reply().value().rowsCount(), 8);
    EXPECT_EQ(rowsOf(askRows(page, 8, 20)).size(), 0);
    EXPECT_EQ(m_service.requestCount("/artists/7"), 0);
}

TEST_F(ArtistTest, EntriesLeadToItemsThatOpen)
{
    m_service.script("/toptracks", {{200, tracks(1, 2)}});
    for (const char* list : {"/artists/7/albums", "/playlistscreatedby", "/similar"})
        m_service.script(
            list,
            {{200,
              R"({"totalNumberOfItems":1,"items":[{"id":11,"uuid":"u-1","url":"http://w/11"}]})"}});
    // row: its path, with "PAGE" for the parameters of the page
    // opens: what opening the row asks the service for; empty: nothing
    for (const auto& [content, row, opens] : Table<const char*, QString, const char*>{
             {"toptracks", "/tidal/req/artists?PAGE&trackId=1", ""},
             {"albums&artistAlbumContent=EPSANDSINGLES",
              "/tidal/req/artists/albums?PAGE&contentId=11", "/albums/11/tracks?"},
             {"playlistscreatedby",
              "/tidal/req/artists/playlists?PAGE&ETag=&contentId=u-1&playlistId=u-1",
              "/playlists/u-1/tracks?"},
             {"similar", "/tidal/req/artists?artistId=11&artistUrl=http%3A%2F%2Fw%2F11", ""}}) {
        const QString entry = page + "&artistContent=" + content;
        const QString path = column(entry, KeloRoles::Path()).value(0);
        EXPECT_EQ(CMPath::fromEncoded(path),
                  CMPath::fromEncoded(QString(row).replace("PAGE", entry.section('?', 1, 1))));
        if (*opens) {
            wait(askRows(path));
            EXPECT_EQ(m_service.requestCount(opens), 1);
        }
    }
    EXPECT_EQ(m_service.requestCount("filter=EPSANDSINGLES"), 1);
}

TEST_F(ArtistTest, ARadioThatIsKeptAnswersLaterRowsAndNeverForAnotherArtist)
{
    m_service.script("/artists/7/radio", {{200, tracks(100, 15)}});
    m_service.script("/artists/8/radio", {{200, tracks(800, 3)}});
    // How many requests the service has seen after each; what is not kept empties the list.
    for (const auto& [artist, from, to, firstId, requests] :
         Table<int, int, int, const char*, int>{{7, 4, 5, "100", 1}, // the answer begins with row 4
                                                {7, 4, 5, "100", 2}, // and is not kept
                                                {7, 0, 1, "100", 3},
                                                {7, 4, 5, "104", 3},
                                                {7, 10, 19, "110", 3},
                                                {7, 15, 40, "", 3},
                                                {8, 1, 1, "800", 4},
                                                {7, 0, 0, "100", 5}}) {
        SCOPED_TRACE(requests);
        const CMGetRowsRequest request = askRows(radio(artist), from, to);
        EXPECT_EQ(trackIds(request).value(0), firstId);
        EXPECT_EQ(request.reply().value().rowsCount(), artist == 7 ? 15 : 3);
        EXPECT_EQ(m_service.requestCount("/radio"), requests);
    }
}

TEST_F(ArtistTest, AnEmptyRadioIsNotKept)
{
    m_service.script(
        "/radio",
        {{200, tracks(0, 0)}, {404, R"({"status":404,"subStatus":2001})"}, {200, tracks(5, 2)}});
    EXPECT_EQ(column(radio(7)), QStringList("No items found"));
    EXPECT_EQ(errorOf(askRows(radio(7))), "Not found");
    EXPECT_EQ(trackIds(askRows(radio(7))), (QStringList{"5", "6"}));
}

TEST_F(ArtistTest, ARadioIsForgottenWithItsLogin)
{
    const auto changeLogin = [this](const QString& token) {
        setLoggedIn(false);
        setLoggedIn(true, token);
        EXPECT_EQ(errorOf(askRows("/tidal")), "");
    };
    m_service.script("/radio", {{200, tracks(5, 2)}});
    m_service.hold("/radio");
    const CMGetRowsRequest late = askRows(radio(7));
    ASSERT_TRUE(m_service.waitForRequests("/radio", 1));
    changeLogin("token-2");
    m_service.releaseAll("/radio");
    wait(late);
    EXPECT_EQ(trackIds(askRows(radio(7))).size(), 2);
    EXPECT_EQ(m_service.requestCount("/radio"), 2);
    changeLogin("token-3");
    EXPECT_EQ(trackIds(askRows(radio(7))).size(), 2);
    EXPECT_EQ(m_service.requestCount("/radio"), 3);
}

TEST_F(ArtistTest, ABiographyLosesItsLinks)
{
    const QString open(200 * 1024, QLatin1Char('['));
    const std::pair<QString, QString> texts[] = {
        {"A [wimpLink artistId=\"1\"]Name[/wimpLink] B", "A Name B"},
        {"[] x [y", "[] x [y"},
        {"[[a]]", "]"},
        {"<b>Å</b>\u0007 [x]%1", "<b>Å</b>\u0007 %1"},
        {open, open},
        {open + "]", ""},
    };
    for (const auto& [text, shown] : texts) {
        const QJsonDocument bio(QJsonObject{{"text", text}});
        m_service.script("/bio", {{200, bio.toJson().toStdString()}});
        const KeloRoles result = actionOf(set(page + "&artistContent=bio")).result();
        EXPECT_EQ(result.title(), "Artist bio");
        EXPECT_EQ(result.path(), KeloTidalMessagePath());
        EXPECT_TRUE(result.description() == shown) << text.left(40).toStdString();
    }
}

} // namespace
