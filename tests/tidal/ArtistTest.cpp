#include "TidalHandler.h"
#include "TidalWorker.h"
#include "TreeFixture.h"
#include <kelo/KeloActionReply.h>
#include <kelo/KeloMediaData.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

QByteArray json(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// A list of tracks with ids from a number on.
std::string tracks(int firstId, int count, int total)
{
    QJsonArray items;
    for (int i = 0; i < count; ++i)
        items.append(QJsonObject{{q("id"), firstId + i}, {q("title"), q("T")}});
    return json({{q("totalNumberOfItems"), total}, {q("items"), items}}).toStdString();
}

const QString page = QStringLiteral("/tidal/req/artists?artistId=7&artistUrl=http%3A%2F%2Fw%2F7");

class ArtistTest : public TreeFixture
{
protected:
    void SetUp() override { startConfigured(); }

    static QString radio(int artist)
    {
        return q("/tidal/req/artists?artistContent=radio&artistId=%1").arg(artist);
    }
    /// The ids of the tracks that a radio's rows lead to.
    static QStringList trackIds(const CMGetRowsRequest& answered)
    {
        QStringList ids;
        for (const QVariantHash& row : rowsOf(answered)) {
            const CMPath path = CMPath::fromEncoded(row.value(KeloRoles::Path()).toString());
            EXPECT_EQ(path.base(), q("/tidal/nowPlay"));
            ids << path.param(q("trackId"));
        }
        return ids;
    }
    CMSetDataRequest bio(const std::string& body, int status = 200)
    {
        m_service.script("/bio", {{status, body}});
        return set(page + q("&artistContent=bio"), 1);
    }
};

TEST_F(ArtistTest, ThePageHasEightEntriesInOrder)
{
    const struct
    {
        const char* title;
        const char* content;
        const char* albums;
    } entries[] = {
        {"Top tracks", "toptracks", ""},
        {"Albums", "albums", "ALBUMS"},
        {"EPs and singles", "albums", "EPSANDSINGLES"},
        {"Other albums", "albums", "COMPILATIONS"},
        {"Created playlists", "playlistscreatedby", ""},
        {"Bio", "bio", ""},
        {"Similar artists", "similar", ""},
        {"Radio", "radio", ""},
    };
    const CMGetRowsRequest whole = askRows(page);
    const QList<QVariantHash> rows = rowsOf(whole);
    ASSERT_EQ(rows.size(), int(std::size(entries)));
    EXPECT_EQ(whole.reply().value().rowsCount(), 8);
    for (int i = 0; i < rows.size(); ++i) {
        const QVariantHash& row = rows.at(i);
        CMPath path = CMPath::fromEncoded(page);
        path.addParam(q("artistContent"), q(entries[i].content));
        if (*entries[i].albums)
            path.addParam(q("artistAlbumContent"), q(entries[i].albums));
        EXPECT_EQ(row.value(KeloRoles::Title()), q(entries[i].title));
        EXPECT_EQ(row.value(KeloRoles::Path()), path.toEncoded());
        EXPECT_EQ(row.value(KeloRoles::Type()),
                  i == 5 ? KeloRolesType::Action() : KeloRolesType::Container());
        EXPECT_EQ(row.value(KeloRoles::Context()).toHash().value(KeloRoles::Path()),
                  q("/tidal/basecontext?id=7&type=Artists"));
    }
    const CMGetRowsRequest part = askRows(page, 5, 6);
    EXPECT_EQ(rowsOf(part), rows.mid(5, 2));
    EXPECT_EQ(part.reply().value().rowsCount(), 8);
    EXPECT_EQ(rowsOf(askRows(page, 8, 20)).size(), 0);
    EXPECT_EQ(m_service.requestCount("/artists/7"), 0);
}

TEST_F(ArtistTest, EntriesLeadToItemsThatOpen)
{
    m_service.script("/toptracks", {{200, tracks(1, 2, 2)}});
    const std::string item =
        R"({"totalNumberOfItems":1,"items":[{"id":11,"uuid":"u-1","url":"http://w/11"}]})";
    for (const char* list : {"/artists/7/albums", "/playlistscreatedby", "/similar"})
        m_service.script(list, {{200, item}});
    const struct
    {
        const char* entry;
        const char* row;   ///< the row's path; parameters of the page stand for "&"
        const char* opens; ///< what opening the row asks the service for; empty: nothing
    } table[] = {
        {"toptracks", "/tidal/req/artists?PAGE&trackId=1", ""},
        {"albums&artistAlbumContent=EPSANDSINGLES", "/tidal/req/artists/albums?PAGE&contentId=11",
         "/albums/11/tracks?"},
        {"playlistscreatedby",
         "/tidal/req/artists/playlists?PAGE&ETag=&contentId=u-1&playlistId=u-1",
         "/playlists/u-1/tracks?"},
        {"similar", "/tidal/req/artists?artistId=11&artistUrl=http%3A%2F%2Fw%2F11", ""},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.entry);
        const QString entry = page + q("&artistContent=") + q(row.entry);
        const QStringList paths = column(entry, KeloRoles::Path());
        ASSERT_FALSE(paths.isEmpty());
        const QString wanted = q(row.row).replace(q("PAGE"), entry.section(QLatin1Char('?'), 1, 1));
        EXPECT_EQ(CMPath::fromEncoded(paths.first()), CMPath::fromEncoded(wanted));
        if (*row.opens) {
            wait(askRows(paths.first()).reply());
            EXPECT_EQ(m_service.requestCount(row.opens), 1);
        }
    }
    EXPECT_NE(m_service.lastRequest("/artists/7/albums").find("filter=EPSANDSINGLES"),
              std::string::npos);
}

TEST_F(ArtistTest, ARadioThatIsKeptAnswersLaterRows)
{
    m_service.script("/artists/7/radio", {{200, tracks(100, 15, 15)}});
    const QStringList roles = itemRoles() << KeloRoles::MediaData() << KeloRoles::Disabled();
    const CMGetRowsRequest first = askRows(radio(7), 0, 9, roles);
    EXPECT_EQ(trackIds(first).size(), 10);
    EXPECT_EQ(first.reply().value().rowsCount(), 15);
    const CMGetRowsRequest rest = askRows(radio(7), 10, 19, roles);
    EXPECT_EQ(trackIds(rest), (QStringList{"110", "111", "112", "113", "114"}));
    EXPECT_EQ(rest.reply().value().rowsCount(), 15);
    EXPECT_EQ(rowsOf(askRows(radio(7), 0, 9, roles)), rowsOf(first));
    EXPECT_EQ(rowsOf(askRows(radio(7), 15, 40, roles)).size(), 0);
    EXPECT_EQ(m_service.requestCount("/radio"), 1);
    const KeloMediaData media(
        KeloHash(rowsOf(rest).first().value(KeloRoles::MediaData()).toHash()));
    EXPECT_EQ(media.metaData().contentPlayContextPath(), CMPath::fromEncoded(radio(7)));
}

TEST_F(ArtistTest, ARadioNeverAnswersForAnotherArtistOrRange)
{
    m_service.script("/artists/7/radio", {{200, tracks(100, 15, 15)}});
    m_service.script("/artists/8/radio", {{200, tracks(800, 3, 3)}});
    const struct
    {
        int artist, from, to;
        const char* firstId;
        int requests; ///< that the service has seen after it
    } steps[] = {
        {7, 4, 5, "100", 1}, // the answer begins with row 4
        {7, 4, 5, "100", 2}, // and is not kept
        {7, 0, 1, "100", 3}, {7, 4, 5, "104", 3}, {8, 0, 9, "800", 4}, {8, 2, 2, "802", 4},
        {7, 0, 0, "100", 5}, {8, 1, 1, "800", 6}, {7, 0, 0, "100", 7}, // what is not kept has
                                                                       // emptied the list
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.requests);
        const CMGetRowsRequest request = askRows(radio(step.artist), step.from, step.to);
        EXPECT_EQ(trackIds(request).value(0), q(step.firstId));
        EXPECT_EQ(m_service.requestCount("/radio"), step.requests);
    }
    EXPECT_NE(m_service.lastRequest("/artists/8/radio").find("offset=1&filter=&limit=50"),
              std::string::npos);
}

TEST_F(ArtistTest, AnEmptyRadioIsNotKept)
{
    m_service.script("/radio", {{200, R"({"totalNumberOfItems":0,"items":[]})"},
                                {404, R"({"status":404,"subStatus":2001})"},
                                {200, tracks(5, 2, 2)}});
    EXPECT_EQ(column(radio(7)), QStringList{q("No items found")});
    EXPECT_EQ(errorOf(askRows(radio(7))), q("Not found"));
    EXPECT_EQ(trackIds(askRows(radio(7))), (QStringList{"5", "6"}));
}

TEST_F(ArtistTest, ABiographyLosesItsLinks)
{
    const QString many(200 * 1024, QLatin1Char('a'));
    const QString open(200 * 1024, QLatin1Char('['));
    const std::pair<QString, QString> texts[] = {
        {q("A [wimpLink artistId=\"1\"]Name[/wimpLink] B"), q("A Name B")},
        {q("[a][b]"), QString()},
        {q("[] x [y"), q("[] x [y")},
        {q("[[a]]"), q("]")},
        {q("a] [b\nc] d"), q("a]  d")},
        {q("<b>Å</b>\u0007 [x]%1"), q("<b>Å</b>\u0007 %1")},
        {QString(), QString()},
        {many, many},
        {open, open},
        {open + q("]"), QString()},
    };
    for (const auto& [text, shown] : texts) {
        const CMSetDataRequest request = bio(json({{q("text"), text}}).toStdString());
        EXPECT_EQ(errorOf(request), QString());
        const KeloActionReply reply(KeloHash(request.reply().value().toHash()));
        EXPECT_EQ(reply.xclass(), q("KeloActionReply"));
        EXPECT_EQ(reply.result().title(), q("Artist bio"));
        EXPECT_EQ(reply.result().path(), KeloTidalMessagePath());
        EXPECT_TRUE(reply.result().description() == shown) << text.left(40).toStdString();
    }
}

TEST_F(ArtistTest, FailuresSayWhyOrThatThereIsNoAnswer)
{
    const std::string gone = R"({"status":404,"userMessage":"Bio of artist [7] not found"})";
    EXPECT_EQ(errorOf(bio(gone, 404)), q("Not found"));
    EXPECT_EQ(errorOf(bio("", 200)), QString());
    for (const char* body : {"", "<html>", "{}", "[]"}) {
        const CMSetDataRequest request = bio(body, 500);
        wait(request.reply());
        EXPECT_EQ(request.reply().error().name(), CMError::NoAnswerName()) << body;
    }
    m_service.script("/artists/7/", {{200, tracks(1, 1, 1)}});
    for (const char* content : {"bio", "nothing", "TOPTRACKS"}) {
        const CMGetRowsRequest request = askRows(page + q("&artistContent=") + q(content));
        wait(request.reply());
        EXPECT_EQ(request.reply().error().name(), CMError::NoAnswerName()) << content;
    }
}

TEST_F(ArtistTest, TheAnswerAboutAnArtistBecomesThePage)
{
    const auto answered = [this](int status, const QByteArray& body) {
        const CMGetRowsRequest request(CMPath::fromEncoded(page), 0, 49,
                                       {KeloRoles::Description()});
        onWorker([&] {
            worker()->getHandler()->responder()->on_artistResponse_invoke(
                KeloUrl(), HttpClientPrivate(HttpClientPrivate::Data(request)), status, 0, body,
                HttpClientHeaders());
        });
        return request;
    };
    EXPECT_EQ(rowsOf(answered(200, R"({"id":7,"url":"http://other/7"})"))
                  .at(5)
                  .value(KeloRoles::Description()),
              q("http://other/7"));
    EXPECT_EQ(rowsOf(answered(200, R"({"id":7})")).at(5).value(KeloRoles::Description()),
              q("http://w/7"));
    EXPECT_EQ(errorOf(answered(401, R"({"status":401})")), q("Unauthorized"));
    EXPECT_FALSE(answered(401, "gone").reply().isFinished());
}
} // namespace
