#include "TidalWorker.h"
#include "TreeFixture.h"
#include <kelo/CMListRowsNode.h>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

KeloTidalApiErrorResponse failure()
{
    KeloTidalApiErrorResponse error;
    error.setUserMessage(QStringLiteral("no"));
    return error;
}

class RootsTest : public TreeFixture
{
protected:
    using Slot = void (TidalWorker::*)(KeloTidalApiContentRootsResponse, KeloTidalApiErrorResponse);

    void SetUp() override
    {
        KeloTidalSettings sizes = settings();
        sizes.setImageSizeGenre(q("160"));
        sizes.setImageSizeMood(q("342x342"));
        setSettings(sizes);
        startConfigured();
    }
    void give(Slot slot, const QByteArray& body,
              const KeloTidalApiErrorResponse& error = KeloTidalApiErrorResponse())
    {
        KeloTidalApiContentRootsResponse roots;
        roots.setRoot(KeloJson::parse(body));
        onWorker([&] { (worker()->*slot)(roots, error); });
    }
    static QVariantHash rowAt(const QString& path, int row)
    {
        return rowsOf(askRows(path, row, row, itemRoles() << KeloRoles::Icon())).value(0);
    }
    QStringList newTitles() { return column(q("/tidal/new")); }

    const Slot genres = &TidalWorker::on_tidalHandler_contentRootsGenres;
    const Slot moods = &TidalWorker::on_tidalHandler_contentRootsMoods;
    const Slot featured = &TidalWorker::on_tidalHandler_contentRootsFeatured;
};

/// Roots that are none stand among those that are.
const char* const mixed = R"([{"path":"Pop","name":"Pop & <b>Rock</b>","image":"a-b-c"}, 7, null,
    {"name":"no path"}, {"path":"","name":"empty"}, {"path":"a/b","name":"slash"},
    {"path":"a?b","name":"query"}, {"path":"Pop","name":"again"},
    {"path":"..","name":"up"}, {"path":"Hip Hop","name":"Hip Hop","image":null},
    {"path":"R#B%2F","name":"marks"}])";

TEST_F(RootsTest, GenresBecomeMenusOfThreeLists)
{
    give(genres, mixed);
    EXPECT_EQ(column(q("/tidal/genres")),
              (QStringList{q("Pop & <b>Rock</b>"), q("Hip Hop"), q("marks")}));
    EXPECT_EQ(rowAt(q("/tidal/genres"), 0).value(KeloRoles::Icon()),
              q("http://images/a/b/c/160.jpg"));
    EXPECT_FALSE(rowAt(q("/tidal/genres"), 1).value(KeloRoles::Icon()).isValid());

    const QString pop = rowAt(q("/tidal/genres"), 0).value(KeloRoles::Path()).toString();
    EXPECT_EQ(pop, q("/tidal/genres/Pop"));
    EXPECT_EQ(column(pop), (QStringList{q("Playlists"), q("Albums"), q("Tracks")}));
    EXPECT_EQ(column(pop, KeloRoles::Path()),
              (QStringList{q("/tidal/req/genres/Pop/playlists"), q("/tidal/req/genres/Pop/albums"),
                           q("/tidal/req/genres/Pop/tracks")}));
    EXPECT_EQ(
        rowAt(pop, 0).value(KeloRoles::Context()).toHash().value(KeloRoles::Path()).toString(),
        q("/tidal/trackOrderingcontext"));
    EXPECT_FALSE(rowAt(pop, 1).value(KeloRoles::Context()).isValid());

    const QStringList lists =
        column(rowAt(q("/tidal/genres"), 1).value(KeloRoles::Path()).toString(), KeloRoles::Path());
    wait(askRows(lists.value(1)).reply());
    EXPECT_EQ(m_service.requestCount("/v1/genres/Hip%20Hop/albums?"), 1);
}

TEST_F(RootsTest, MoodsBecomeListsOfPlaylists)
{
    give(moods, mixed);
    EXPECT_EQ(column(q("/tidal/playlists"), KeloRoles::Title()),
              (QStringList{q("Pop & <b>Rock</b>"), q("Hip Hop"), q("marks")}));
    const QVariantHash row = rowAt(q("/tidal/playlists"), 0);
    EXPECT_EQ(row.value(KeloRoles::Path()), q("/tidal/playlists/req/moods/Pop/playlists"));
    EXPECT_EQ(row.value(KeloRoles::Icon()), q("http://images/a/b/c/342x342.jpg"));
    EXPECT_EQ(row.value(KeloRoles::Context()).toHash().value(KeloRoles::Path()),
              q("/tidal/trackOrderingcontext"));
    wait(askRows(row.value(KeloRoles::Path()).toString()).reply());
    EXPECT_EQ(m_service.requestCount("/v1/moods/Pop/playlists?"), 1);
    const QString marks = rowAt(q("/tidal/playlists"), 2).value(KeloRoles::Path()).toString();
    wait(askRows(marks).reply());
    EXPECT_EQ(m_service.requestCount("/v1/moods/R%23B%252F/playlists?"), 1);
}

TEST_F(RootsTest, MenusAreFilledOnce)
{
    const struct
    {
        Slot slot;
        const char* menu;
    } menus[] = {{genres, "/tidal/genres"}, {moods, "/tidal/playlists"}};
    for (const auto& menu : menus) {
        const QString path = q(menu.menu);
        give(menu.slot, R"([{"path":"a","name":"A"}])", failure());
        for (const char* body : {"[]", "{}", "", R"([{"name":"A"}])"})
            give(menu.slot, body);
        EXPECT_EQ(column(path), QStringList());

        QStringList told;
        CMSubscribe* subscription = worker()->nodes()->subscribe();
        const auto listen = [&](const CMRowsNotice& notice) { told << notice.path.base(); };
        const quint64 ids[] = {subscription->openRows(CMPath(path), listen),
                               subscription->openRows(CMPath(q("/tidal")), listen)};
        const int version = askRows(path).reply().value().rowsVersion();
        give(menu.slot, R"([{"path":"a","name":"A"}])");
        EXPECT_EQ(told, (QStringList{path, q("/tidal")}));
        const CMGetRowsRequest filled = askRows(path);
        EXPECT_EQ(rowsOf(filled).size(), 1);
        EXPECT_NE(filled.reply().value().rowsVersion(), version);
        const int nodes = worker()->nodes()->size();
        give(menu.slot, R"([{"path":"a","name":"A"},{"path":"b","name":"B"}])");
        EXPECT_EQ(column(path), QStringList{q("A")});
        EXPECT_EQ(worker()->nodes()->size(), nodes);
        for (const quint64 id : ids)
            subscription->closeRows(id);
    }
}

TEST_F(RootsTest, NewListsCarryTheServicesNames)
{
    const QStringList built = newTitles();
    give(featured, R"([{"path":"new","name":"Fresh"}])", failure());
    for (const char* body : {"[]", R"([{"path":"masters","name":"M"},{"path":"New","name":"N"},
                                       {"path":"new","name":""},{"name":"x"}])"})
        give(featured, body);
    EXPECT_EQ(newTitles(), built);

    int notices = 0;
    CMSubscribe* subscription = worker()->nodes()->subscribe();
    const quint64 id =
        subscription->openRows(CMPath(q("/tidal/new")), [&](const CMRowsNotice&) { ++notices; });
    const char* const names = R"([{"path":"new","name":"Fresh"},{"path":"top","name":"Charts"},
                                  {"path":"recommended","name":"For <you>"}])";
    give(featured, names);
    EXPECT_EQ(newTitles(), (QStringList{"Playlists", "Fresh", "For <you>", "Masters", "Albums",
                                        "Fresh", "For <you>", "Charts", "Masters", "Tracks",
                                        "Fresh", "For <you>", "Charts"}));
    EXPECT_EQ(notices, 1);
    give(featured, names);
    EXPECT_EQ(notices, 1) << "nothing changed";
    subscription->closeRows(id);
}
} // namespace
