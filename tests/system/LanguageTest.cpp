#include "ServiceTest.h"

#include <QJsonArray>
#include <QUrl>

namespace {

/// The program's own texts as its clients get them.
class LanguageTest : public ServiceTest
{
protected:
    QJsonArray rows(const QString& path, const char* language) const
    {
        const auto answer =
            streamer.get(QStringLiteral("/api/v1/rows?language=%1&path=%2")
                             .arg(QLatin1String(language), QString(QUrl::toPercentEncoding(path))));
        EXPECT_EQ(answer.status, 200) << path.toStdString();
        return answer.body["rows"].toArray();
    }

    static QString role(const QJsonValue& row, const char* name)
    {
        return row.toObject().value(QLatin1String(name)).toString();
    }
};

} // namespace

// A text whose context differs from that of its translation would stay English.
TEST_F(LanguageTest, EveryOwnTitleHasItsTranslation)
{
    const QString tidal = QStringLiteral("/tidal");
    rows(tidal, "en"); // sets the session up
    const QJsonArray artists = rows(tidal + "/myMusic/req/favorites/users/artists", "en");
    const QJsonArray tracks = rows(tidal + "/myMusic/req/favorites/users/tracks", "en");
    ASSERT_FALSE(artists.isEmpty() || tracks.isEmpty());
    const QString menu = role(tracks.at(0).toObject()["Context"], "Path");
    const QString chooser = role(rows(menu, "en").at(1), "Path");
    const QStringList names{"TIDAL", "TIDAL Rising", "TIDAL Discovery"};
    int translated = 0;
    for (const QString& path :
         {tidal, tidal + "/new", tidal + "/myMusic", tidal + "/orderingcontext",
          tidal + "/orderingcontext/order/Enums", tidal + "/trackOrderingcontext",
          tidal + "/trackOrderingcontext/order/Enums", tidal + "/createPlaylist",
          tidal + "/search/choose?query=x", QStringLiteral("/settings"), menu, chooser,
          role(artists.at(0), "Path")}) {
        const QJsonArray english = rows(path, "en");
        const QJsonArray japanese = rows(path, "ja");
        ASSERT_EQ(english.size(), japanese.size());
        for (int i = 0; i < english.size(); ++i) {
            const QString title = role(english.at(i), "Title");
            // What stands below the headings of these lists bears the service's names.
            const bool isNamed =
                (path == tidal + "/new" && role(english.at(i), "Type") != "Header") ||
                (path == chooser && i > 1) || (path == menu && i > 2);
            if (title.isEmpty() || isNamed || names.contains(title))
                continue;
            EXPECT_NE(role(japanese.at(i), "Title").toStdString(), title.toStdString())
                << path.toStdString();
            ++translated;
        }
    }
    EXPECT_GT(translated, 50);
}
