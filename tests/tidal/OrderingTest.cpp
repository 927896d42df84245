#include "ModuleTest.h"
#include "Table.h"

namespace {
const QString myMusic = "/tidal/orderingcontext/";
const QString playlistTracks = "/tidal/trackOrderingcontext/";
const QString favorites = "/tidal/myMusic/req/favorites/users/";

class OrderingTest : public ScriptedTest
{
protected:
    void choose(const QString& node, const QString& text)
    {
        const CMSetDataRequest request = set(node, text);
        EXPECT_EQ(errorOf(request), "");
        EXPECT_FALSE(request.reply().value().isValid());
    }
    /// The query that opening a list sends.
    QString asked(const QString& list)
    {
        wait(askRows(list, 0, 9));
        const QString line = QString::fromStdString(m_service.requests("countryCode=NO&").back());
        return line.section('?', 1, 1);
    }
    static QStringList values(const char* menu)
    {
        QStringList result;
        for (const KeloRoles& row : rowsOf(askRows(menu, 0, 9, {KeloRoles::Value()})))
            result << KeloValue::fromVariant(row.value()).string_();
        return result.mid(1); // behind the heading
    }
};

TEST_F(OrderingTest, ChoicesShowInTheirMenuAlone)
{
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Name", "Asc", "All"}));
    EXPECT_EQ(values("/tidal/trackOrderingcontext"), (QStringList{"Index", "Asc"}));
    choose(playlistTracks + "orderDirection", "Desc");
    choose(playlistTracks + "order", "Length");
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Name", "Asc", "All"}));
    EXPECT_EQ(values("/tidal/trackOrderingcontext"), (QStringList{"Length", "Desc"}));
    EXPECT_EQ(asked("/tidal/req/playlists?contentId=u-1"),
              "countryCode=NO&order=LENGTH&orderDirection=DESC&offset=0&limit=10");
    EXPECT_EQ(asked(favorites + "tracks"),
              "countryCode=NO&offset=0&orderDirection=ASC&limit=10&order=NAME&filter=ALL");

    choose(myMusic + "orderDirection", "Desc");
    for (const QString& filter : {q("Public"), q("Private")}) {
        choose(myMusic + "filter", filter);
        EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Name", "Desc", filter}));
        EXPECT_EQ(asked("/tidal/myMusic/req/created/users/playlists"),
                  "countryCode=NO&offset=0&orderDirection=DESC&limit=10&order=NAME&filter=" +
                      filter.toUpper());
    }
}

TEST_F(OrderingTest, EveryOrderIsAskedForWhereTheServiceKnowsIt)
{
    // lists: that it is sent for
    for (const auto& [order, word, lists] : Table<const char*, const char*, const char*>{
             {"Name", "NAME", "playlists albums artists tracks"},
             {"Artist", "ARTIST", "albums tracks"},
             {"Album", "ALBUM", "tracks"},
             {"Length", "LENGTH", "tracks"},
             {"Release_Date", "RELEASE_DATE", "albums"},
             // What is none, as the host reads it.
             {"Sideways", "NAME", "playlists albums artists tracks"}}) {
        choose(myMusic + "order", order);
        EXPECT_EQ(values("/tidal/orderingcontext").first(), order);
        for (const char* list : {"playlists", "albums", "artists", "tracks"}) {
            const bool isSent = q(lists).split(' ').contains(list);
            EXPECT_EQ(asked(favorites + list),
                      q("countryCode=NO&offset=0&orderDirection=ASC&limit=10") +
                          (isSent ? q("&order=") + word : "") + "&filter=ALL")
                << order << " " << list;
        }
    }
}

TEST_F(OrderingTest, WhatIsNoChoiceNeverEmptiesAQuery)
{
    for (const char* setting : {"order", "orderDirection", "filter"})
        choose(myMusic + setting, "Sideways");
    EXPECT_EQ(values("/tidal/orderingcontext"), (QStringList{"Sideways", "Sideways", "Sideways"}));
    EXPECT_EQ(asked(favorites + "albums"),
              "countryCode=NO&offset=0&orderDirection=ASC&limit=10&order=NAME&filter=ALL");

    choose(myMusic + "order", "Date");
    for (const QVariant& value : {QVariant(7), QVariant(QString())})
        EXPECT_EQ(setAndWait(myMusic + "order", value).reply().error().name(),
                  CMError::BadRequestName());
    EXPECT_EQ(values("/tidal/orderingcontext").first(), "Date");
}

TEST_F(OrderingTest, AChoiceClosesTheViewsOfItsChoices)
{
    OpenRows orders("/tidal/orderingcontext/order/Enums");
    OpenRows filters("/tidal/orderingcontext/filter/Enums");
    OpenRows trackOrders("/tidal/trackOrderingcontext/order/Enums");
    choose(myMusic + "order", "Date");
    EXPECT_EQ(orders.next(), "close");
    settle();
    EXPECT_EQ(filters.pending() + trackOrders.pending(), 0);
}
} // namespace
