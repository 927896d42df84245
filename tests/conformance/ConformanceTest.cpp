#include "Table.h"
#include <gtest/gtest.h>
#include <kelosim/SimServer.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryFile>

namespace {

/// What the program found: its exit status, and of each check the result and the detail.
struct Found
{
    int status = -1;
    QMap<QString, QString> results;
    QMap<QString, QString> details;

    std::string text() const
    {
        QString all;
        for (auto it = results.begin(); it != results.end(); ++it)
            all += it.key() + ": " + it.value() + " " + details.value(it.key()) + "\n";
        return all.toStdString();
    }
    QStringList failed() const { return results.keys("FAIL"); }
};

Found check(const char* module, const QJsonObject& settings, QStringList arguments = {})
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    file.write(QJsonDocument(settings).toJson());
    file.close();
    QProcess program;
    program.start(KELO_CONFORMANCE,
                  QStringList{module, "--json", "--settings", file.fileName()} + arguments);
    EXPECT_TRUE(program.waitForFinished(100000));
    Found found;
    found.status = program.exitCode();
    const QJsonDocument document = QJsonDocument::fromJson(program.readAllStandardOutput());
    for (const QJsonValue one : document.object()["checks"].toArray()) {
        found.results[one["check"].toString()] = one["result"].toString();
        found.details[one["check"].toString()] = one["detail"].toString();
    }
    return found;
}

const int checkCount = 12;

} // namespace

TEST(ConformanceTest, theModuleKeepsWhatHostsRelyOn)
{
    kelosim::SimServer service({});
    std::string error;
    ASSERT_TRUE(service.start(&error)) << error;
    const QJsonObject tidal{{"apiUrl", QString::fromStdString(service.baseUrl() + "/v1")},
                            {"countryCode", "NO"}};
    const QJsonObject values{
        {"/settings/tidal", QJsonObject{{"type", "tidalSettings"}, {"tidalSettings", tidal}}},
        {"/oauth2/services/tidal",
         QJsonObject{{"type", "oauth2Info"}, {"oauth2Info", QJsonObject{{"loggedIn", true}}}}},
        {"/oauth2/services/tidal/accessToken", QString::fromStdString(service.issueToken())}};
    const Found found = check(KELO_MODULE, {{"values", values}},
                              {"--act", "/tidal/context/favorites?id=6020014&type=Tracks"});
    EXPECT_EQ(found.status, 0) << found.text();
    EXPECT_EQ(found.results.keys("pass").size(), checkCount) << found.text();
    EXPECT_GT(found.details.value("rows").section(' ', 0, 0).toInt(), 1000) << found.text();
}

TEST(ConformanceTest, theExampleDoesToo)
{
    const Found found = check(RADIO_MODULE, {}, {"--act", "/radio/scan"});
    EXPECT_EQ(found.status, 0) << found.text();
    EXPECT_EQ(found.results.keys("pass").size(), checkCount) << found.text();
}

TEST(ConformanceTest, settingsThatItDoesNotReadAreRefused)
{
    for (const char* settings :
         {R"({"values": 3})", R"({"values": {"radio": "x"}})", R"({"values": {"/radio": 0.5}})",
          R"({"values": {"/radio": {"type": "string_"}}})", R"({"settings": []})",
          R"({"vales": {}})"})
        EXPECT_EQ(check(RADIO_MODULE, QJsonDocument::fromJson(settings).object()).status, 2)
            << settings;
}

TEST(ConformanceTest, eachFaultFailsItsCheck)
{
    for (const auto& [fault, failed, said] : Table<const char*, const char*, const char*>{
             {"", "", ""},
             {"fills itself", "", ""},
             {"throws", "load", "no antenna"},
             {"gives no worker", "load", "gave no worker"},
             {"stands elsewhere", "load", "stands at /elsewhere"},
             {"hangs at once", "load", "did not come to an end at worker_create"},
             {"never answers", "answers", "no answer in time"},
             {"forgets", "answers", "forgotten"},
             {"answers twice", "answers", "answered twice"},
             {"throws later", "answers", "exception: no rows"},
             {"crashes", "paths", " at /faulty/list"},
             {"crashes at last", "exit", " after main()"},
             {"leaves a value out", "rows", "a row of 4 values for 5 roles"},
             {"has a strange type", "rows", "type Sound"},
             {"has a number for a path", "rows", "Path is no text"},
             {"has a broken path", "paths", "%zz"},
             {"has a row to nowhere", "paths", "/faulty/nowhere"},
             {"gives other rows", "paths", "asked twice, other rows"},
             {"counts wrongly", "counts", "says 15 rows, and gives 20"},
             {"counts its end wrongly", "counts", "says 67 rows, and gives 13 from row 47 on"},
             {"has one path", "paths", "rows \"0\" and \"1\" have one path, /faulty/list/0"},
             {"has one row only", "paths", "20 rows have but one path"},
             {"gives all rows", "ranges", "other rows than in the whole page"},
             {"takes bad ranges", "ranges", "no error"},
             {"answers everything", "unknown", "no-such-place has rows"},
             {"plays elsewhere", "play",
              "asked at /faulty/play, the item came under /faulty/list/0"},
             {"plays nothing", "play", "0 items"},
             {"tells nobody", "notices", "nobody was told"},
             {"tells twice", "notices", "told twice"},
             {"never ends", "stop", "did not come to an end"},
             {"blocks every signal", "load", "did not come to an end"},
             {"leaves a process", "", ""},
             {"leaves a thread", "threads", "left behind: a thread without a name of its own"}}) {
        const bool isEndless = QString(said).contains("come to an end");
        const char* const limit = !isEndless ? "60" : QString(failed) == "load" ? "2" : "4";
        const Found found = check(FAULTY_MODULE, {{"settings", QJsonObject{{"fault", fault}}}},
                                  {"--act", "/faulty/add", "--deadline", "1", "--limit", limit});
        EXPECT_EQ(found.status, *failed ? 1 : 0) << fault << "\n" << found.text();
        EXPECT_TRUE(!*failed || found.failed().contains(failed)) << fault << "\n" << found.text();
        EXPECT_TRUE(found.details.value(failed).contains(said)) << fault << "\n" << found.text();
    }
}
