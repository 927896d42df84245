#include "ServiceTest.h"

#include <QJsonArray>
#include <QUrl>

using LanguageTest = ServiceTest;

// A text whose context differs from that of its translation would stay English.
TEST_F(LanguageTest, EveryOwnTitleHasItsTranslation)
{
    const auto rows = [this](const QString& path, const char* language) {
        const auto answer = streamer.get("/api/v1/rows?path=" + QUrl::toPercentEncoding(path) +
                                         "&language=" + language);
        EXPECT_EQ(answer.status, 200) << path.toStdString();
        return answer.body["rows"].toArray();
    };
    const QString tidal = "/tidal";
    rows(tidal, "en"); // sets the session up
    const QJsonArray artists = rows(tidal + "/myMusic/req/favorites/users/artists", "en");
    const QJsonArray tracks = rows(tidal + "/myMusic/req/favorites/users/tracks", "en");
    ASSERT_FALSE(artists.isEmpty() || tracks.isEmpty());
    const QString menu = tracks[0]["Context"]["Path"].toString();
    const QString chooser = rows(menu, "en").at(1)["Path"].toString();
    const QStringList names{"TIDAL", "TIDAL Rising", "TIDAL Discovery"};
    int translated = 0;
    for (const QString& path :
         {tidal, tidal + "/new", tidal + "/myMusic", tidal + "/orderingcontext",
          tidal + "/orderingcontext/order/Enums", tidal + "/trackOrderingcontext",
          tidal + "/trackOrderingcontext/order/Enums", tidal + "/createPlaylist",
          tidal + "/search/choose?query=x", QString("/settings"), menu, chooser,
          artists[0]["Path"].toString()}) {
        const QJsonArray english = rows(path, "en");
        const QJsonArray japanese = rows(path, "ja");
        ASSERT_EQ(english.size(), japanese.size());
        for (int i = 0; i < english.size(); ++i) {
            const QString title = english[i]["Title"].toString();
            // What stands below the headings of these lists bears the service's names.
            const bool isNamed = (path == tidal + "/new" && english[i]["Type"] != "Header") ||
                                 (path == chooser && i > 1) || (path == menu && i > 2);
            if (title.isEmpty() || isNamed || names.contains(title))
                continue;
            EXPECT_NE(japanese[i]["Title"].toString(), title) << path.toStdString();
            ++translated;
        }
    }
    EXPECT_GT(translated, 50);
}
