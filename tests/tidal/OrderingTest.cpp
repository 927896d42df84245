#include "TidalOrderingNode.h"
#include "TidalWorker.h"
#include "TreeFixture.h"
#include <kelo/KeloValue.h>

namespace {
QString q(const char* text)
{
    return QString::fromUtf8(text);
}

const QString myMusic = QStringLiteral("/tidal/orderingcontext/");
const QString playlistTracks = QStringLiteral("/tidal/trackOrderingcontext/");
const char* const favorites = "/tidal/myMusic/req/favorites/users/";

class OrderingTest : public TreeFixture
{
protected:
    void SetUp() override { startConfigured(); }

    void choose(const QString& node, const char* text)
    {
        const CMSetDataRequest request = set(node, q(text));
        EXPECT_EQ(errorOf(request), QString());
        EXPECT_FALSE(request.reply().value().isValid());
    }
    /// The query that opening a list sends.
    QString asked(const QString& list)
    {
        wait(askRows(list, 0, 9).reply());
        return QString::fromStdString(m_service.lastRequest("countryCode=NO&"))
            .section(QLatin1Char('?'), 1, 1);
    }
    static QStringList values(const char* menu)
    {
        QStringList result;
        for (const QVariantHash& row : rowsOf(askRows(q(menu))))
            result << KeloValue::fromVariant(row.value(KeloRoles::Value())).string_();
        return result.mid(1); // behind the heading
    }
};

TEST_F(OrderingTest, ChoicesShowInTheirMenuAlone)
{
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Name", "Asc", "All"}));
    EXPECT_EQ(values("/tidal/trackOrderingcontext"), (QStringList{"Index", "Asc"}));
    choose(playlistTracks + q("orderDirection"), "Desc");
    choose(playlistTracks + q("order"), "Length");
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Name", "Asc", "All"}));
    EXPECT_EQ(values("/tidal/trackOrderingcontext"), (QStringList{"Length", "Desc"}));
    EXPECT_EQ(asked(q("/tidal/req/playlists?contentId=u-1")),
              q("countryCode=NO&order=LENGTH&orderDirection=DESC&offset=0&limit=10"));
    EXPECT_EQ(asked(q(favorites) + q("tracks")),
              q("countryCode=NO&offset=0&orderDirection=ASC&limit=10&order=NAME&filter=ALL"));

    choose(myMusic + q("filter"), "Private");
    choose(myMusic + q("orderDirection"), "Desc");
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Name", "Desc", "Private"}));
    EXPECT_EQ(asked(q("/tidal/myMusic/req/created/users/playlists")),
              q("countryCode=NO&offset=0&orderDirection=DESC&limit=10&order=NAME&filter=PRIVATE"));
}

TEST_F(OrderingTest, EveryOrderIsAskedForWhereTheServiceKnowsIt)
{
    const struct
    {
        const char* order;
        const char* word;
        const char* lists; ///< that it is sent for
    } table[] = {
        {"Name", "NAME", "playlists albums artists tracks"},
        {"Date", "DATE", "playlists albums artists tracks"},
        {"Artist", "ARTIST", "albums tracks"},
        {"Album", "ALBUM", "tracks"},
        {"Length", "LENGTH", "tracks"},
        {"Index", "INDEX", "playlists albums artists tracks"},
        {"Release_Date", "RELEASE_DATE", "albums"},
        {"Sideways", "NAME", "playlists albums artists tracks"}, // as the host reads what is none
    };
    for (const auto& row : table) {
        choose(myMusic + q("order"), row.order);
        EXPECT_EQ(values("/tidal/orderingcontext").first(), q(row.order));
        for (const char* list : {"playlists", "albums", "artists", "tracks"}) {
            const bool isSent = q(row.lists).split(QLatin1Char(' ')).contains(q(list));
            const QString order = isSent ? q("&order=") + q(row.word) : QString();
            EXPECT_EQ(asked(q(favorites) + q(list)),
                      q("countryCode=NO&offset=0&orderDirection=ASC&limit=10") + order +
                          q("&filter=ALL"))
                << row.order << " " << list;
        }
    }
}

TEST_F(OrderingTest, WhatIsNoChoiceNeverEmptiesAQuery)
{
    for (const char* setting : {"order", "orderDirection", "filter"})
        choose(myMusic + q(setting), "Sideways");
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Sideways", "Sideways", "Sideways"}));
    EXPECT_EQ(asked(q(favorites) + q("albums")),
              q("countryCode=NO&offset=0&orderDirection=ASC&limit=10&order=NAME&filter=ALL"));

    choose(myMusic + q("order"), "Date");
    for (const QVariant& value :
         {QVariant(), QVariant(7), QVariant(QString()), QVariant(true),
          QVariant(QVariantHash{{q("type"), q("i64_")}}),
          QVariant(QVariantHash{{q("type"), q("string_")}, {q("string_"), 7}})}) {
        const CMSetDataRequest request = set(myMusic + q("order"), value);
        wait(request.reply());
        EXPECT_EQ(request.reply().error().name(), CMError::BadRequestName());
    }
    for (const char* path : {"order/filter", "order/nothing", "order/Enums"})
        EXPECT_NE(errorOf(set(myMusic + q(path), q("Date"))), QString()) << path;
    EXPECT_EQ(values("/tidal/orderingcontext").first(), q("Date"));
    const KeloValue stored = KeloValue::fromVariant(q("Name"));
    EXPECT_EQ(errorOf(set(myMusic + q("order"), stored.toVariant())), QString());
    EXPECT_EQ(values("/tidal/orderingcontext").first(), q("Name"));
}

TEST_F(OrderingTest, AChoiceClosesTheViewsOfItsChoices)
{
    QStringList told;
    CMSubscribe* subscription = worker()->nodes()->subscribe();
    const auto listen = [&](const CMRowsNotice& notice) {
        told << notice.path.base() + QLatin1Char(' ') + notice.change.toString();
    };
    QList<quint64> ids;
    for (const QString& path : {myMusic + q("order/Enums"), myMusic + q("filter/Enums"),
                                playlistTracks + q("order/Enums")})
        ids << subscription->openRows(CMPath(path), listen);
    choose(myMusic + q("order"), "Date");
    settle(); // the answer comes before the notice
    EXPECT_EQ(told, QStringList{myMusic + q("order/Enums close")});
    for (const quint64 id : ids)
        subscription->closeRows(id);
}

TEST_F(OrderingTest, TheLastComponentTellsTheSetting)
{
    const std::pair<const char*, int> table[] = {
        {"/a/order", 1}, {"/a/orderDirection", 2}, {"/filter", 3},   {"/a/Order", 0},
        {"/order/x", 0}, {"/a/filter?x=order", 3}, {"/a/orders", 0}, {"", 0}};
    for (const auto& [path, type] : table)
        EXPECT_EQ(int(TidalFilterEnumNode::getOrderingType(CMPath::fromEncoded(q(path)))), type)
            << path;
}
} // namespace
