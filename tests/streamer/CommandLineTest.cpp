#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <QJsonDocument>
#include <QTemporaryDir>

namespace {

using testing::HasSubstr;
using testing::Not;

const char* const tidalRows = "GET /api/v1/rows?path=%2Ftidal&from=0&to=49";

TEST(CommandLine, ExitStatusTellsWhatWentWrong)
{
    ScriptedStreamer streamer;
    streamer.answer("GET /api/v1/player", {200, R"({"state":"stopped"})"});
    streamer.answer("GET /api/v1/rows?path=%2Ftidal&from=0&to=0", {200, R"({"rows":[]})"});
    streamer.answer("GET /api/v1/login", {502, R"({"title":"Service","detail":"it's \u001bdown"})",
                                          "application/problem+json"});
    streamer.answer("POST /api/v1/player/stop", {500, "<html>oops</html>", "text/html"});
    streamer.answer("POST /api/v1/player/pause", {200, "hello", "text/plain"});
    for (const auto& [arguments, status, message] :
         Table<std::vector<std::string>, int, const char*>{
             {{"status"}, 0, ""},
             {{"login", "--status"}, 1, "kelo: it's \\x1bdown\n"},
             {{"rows", "/none"}, 1, "kelo: no such node\n"},
             {{"search", "x"}, 1, "kelo login"},
             {{"stop"}, 1, "status 500"},
             {{"pause"}, 1, "no JSON document"},
             {{"help", "dance"}, 2, "there is no command \"dance\" (see kelo --help)"},
             {{"dance"}, 2, "there is no command \"dance\" (see kelo --help)"},
             {{"sarch", "x"}, 2, "did you mean \"search\"?"},
             {{"rows", "--form", "3", "/x"}, 2, "no option \"--form\", did you mean \"--from\"?"},
             {{"stop", "now\033"}, 2, "\"now\\x1b\" is too much (see kelo stop --help)"},
             {{"rows"}, 2, "PATH is missing"},
             {{"rows", "/", "--from", "x"}, 2, "--from: wanted a number, got \"x\""},
             {{"search", "x", "--in", "films"}, 2, "--in: wanted one of albums,"},
             {{"rows", "/", "--from"}, 2, "--from: its value, N, is missing"},
             {{"volume", "101"},
              2,
              "PERCENT: wanted a number from 0 to 100, with + or - to change it"},
             {{"rows", "/", "--from", "1", "--from=2"}, 2, "--from: is there twice"},
             {{"config", "-oa=b"}, 2, "-o: a: no such key"},
             {{"playlist", "move", "p1", "1"}, 2, "TO is missing"},
             {{"seek", "99999999999"}, 2, "1:30"},
             {{"set", "/x", "1],[2"}, 2, "no JSON"},
             {{"status", "--server", "nonsense"}, 2, "http://HOST:PORT"},
             {{"status", "--server", "http://127.0.0.1:1"}, 3, "no streamer reachable"}}) {
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.status, status) << message;
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_EQ(run.out.empty(), status != 0);
    }
}

TEST(CommandLine, HelpShowsExamplesBeforeOptions)
{
    ScriptedStreamer streamer;
    for (const auto& [arguments, usage] : Table<std::vector<std::string>, const char*>{
             {std::vector<std::string>(), "kelo [OPTIONS] COMMAND"},
             {{"--help"}, "kelo [OPTIONS] COMMAND"},
             {{"rows", "--nonsense", "-h"}, "kelo rows [OPTIONS] PATH"},
             {{"playlist"}, "kelo playlist [OPTIONS] COMMAND"},
             {{"help", "playlist", "add"}, "kelo playlist add [OPTIONS] PLAYLIST PATH..."}}) {
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.out, HasSubstr("\n\nExamples:\n  kelo "));
        EXPECT_THAT(run.out, HasSubstr(std::string("\n\nUsage: ") + usage + '\n'));
        EXPECT_LT(run.out.find("Examples:"), run.out.find("Options:"));
    }
    EXPECT_EQ(streamer.calls().size(), 0u);
}

TEST(CommandLine, SendsWhatTheApiWants)
{
    ScriptedStreamer streamer;
    streamer.answer("GET /api/v1/player", {200, R"({"state":"playing","positionMs":20000})"});
    for (const auto& [arguments, expected] : Table<std::vector<std::string>, const char*>{
             {{"rows", "/a?q=%20", "--from", "-1", "--to", "120", "--roles", "Title,Path"},
              "GET /api/v1/rows?path=%2Fa%3Fq%3D%2520&from=-1&to=120&roles=Title%2CPath"},
             {{"set", "/a\"b"}, R"(POST /api/v1/set {"path":"/a\"b","value":1})"},
             {{"set", "/a", "9007199254740993"},
              R"(POST /api/v1/set {"path":"/a","value":9007199254740993})"},
             {{"watch"}, "GET /api/v1/events?path=%2Ftidal"},
             {{"watch", "/a", "/b"}, "GET /api/v1/events?path=%2Fa&path=%2Fb"},
             {{"set", "/a", "-5"}, R"(POST /api/v1/set {"path":"/a","value":-5})"},
             {{"seek", "1:02:03.5"}, R"(POST /api/v1/player/seek {"positionMs":3723500})"},
             {{"seek", "+1"}, R"(POST /api/v1/player/seek {"positionMs":21000})"},
             {{"seek", "-0:05"}, R"(POST /api/v1/player/seek {"positionMs":15000})"},
             {{"seek", "--", "-30"}, R"(POST /api/v1/player/seek {"positionMs":0})"},
             {{"logout"}, "DELETE /api/v1/login"}}) {
        EXPECT_EQ(streamer.run(arguments).status, 1);
        EXPECT_EQ(streamer.calls().back(), expected);
    }
}

const char* const page = R"({"path":"/tidal","from":9,"rowsCount":99,"rowsVersion":1,
"roles":{"Title":"Top"},"rows":[
{"Title":"Group","Type":"Header"},
{"Title":"Album","Description":"漢字","Type":"Container","Path":"/a?id='1"},
{"Title":"Song \u001b[31m","Type":"Audio","Path":"/s","Disabled":true}]})";

TEST(RowsCommand, PrintsAnAlignedTableWithPathsToPaste)
{
    ScriptedStreamer streamer;
    streamer.answer(tidalRows, {200, page});
    const auto run = streamer.run({"rows", "/tidal"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "Top  99 rows, here 9 to 11\n"
                       " 9    Group\n"
                       "10  ▸ Album                     漢字  '/a?id='\\''1'\n"
                       "11  ♪ Song \\x1b[31m (disabled)        /s\n");
}

TEST(RowsCommand, ShowsTheValuesOfSettingsAndChoices)
{
    const char* const menu = R"({"path":"/m","from":0,"rowsCount":4,"rowsVersion":3,"roles":{},
"rows":[{"Title":"Group","Type":"Header"},{"Title":"Order","Type":"Text","Path":"/m/order"},
{"Title":"Yes","Type":"Choice"},{"Title":"Odd","Type":"Choice"}]})";
    const char* const values = R"({"rowsVersion":VERSION,"rows":[{},
{"Value":{"type":"string_","string_":"De\u001bsc"}},{"Value":{"type":"bool_","bool_":true}},
{"Value":{"type":"string_","string_":[1]}}]})";
    const auto shownWith = [&](const char* version) {
        ScriptedStreamer streamer;
        streamer.answer("GET /api/v1/rows?path=%2Fm&from=0&to=49", {200, menu});
        const QString answer = QString::fromUtf8(values).replace("VERSION", version);
        streamer.answer("GET /api/v1/rows?path=%2Fm&from=0&to=49&roles=Value",
                        {200, answer.toStdString()});
        return streamer.run({"rows", "/m"}).out;
    };
    EXPECT_EQ(shownWith("3"), "/m  4 rows\n"
                              "0    Group\n"
                              "1    Order  De\\x1bsc  /m/order\n"
                              "2    Yes    true\n"
                              "3    Odd\n");
    EXPECT_THAT(shownWith("4"), Not(HasSubstr("true"))) << "the rows may be others by then";
}

TEST(RowsCommand, FitsTheWidthAndNeverCutsPaths)
{
    ScriptedStreamer streamer;
    const std::string longText(70, 'x');
    const std::string path = "/" + std::string(60, 'p');
    streamer.answer(
        tidalRows,
        {200, R"({"path":"/tidal","from":0,"rowsCount":1,"roles":{},"rows":[{"Title":")" +
                  longText + R"(","Description":")" + longText + R"(","Path":")" + path +
                  R"("}]})"});
    EXPECT_EQ(streamer.run({"rows", "/tidal"}, {cli::Terminal::unlimited, false, false}).out,
              "0\t\t" + longText + '\t' + longText + '\t' + path + '\n');
    for (const int width : {40, 80, 120, 240}) {
        const auto run = streamer.run({"rows", "/tidal"}, {width, false, false});
        EXPECT_THAT(run.out, HasSubstr(path));
        for (const QString& line : QString::fromStdString(run.out).split('\n')) {
            const bool mayBeLonger = width < 80 && line.contains(QString::fromStdString(path));
            EXPECT_TRUE(mayBeLonger || line.size() <= width) << line.toStdString();
        }
        EXPECT_EQ(run.out.find('\033'), std::string::npos);
    }
    EXPECT_THAT(streamer.run({"rows", "/tidal"}, {80, true, true}).out, HasSubstr("\033[2m"));
}

TEST(RowsCommand, AtATerminalPathsGiveWayAndFewLongTitlesAreCut)
{
    ScriptedStreamer streamer;
    const auto answer = [&](const char* more, const std::string& body) {
        streamer.answer(std::string("GET /api/v1/rows?path=%2Fa%3Fid%3D1&from=0&to=49") + more,
                        {200, R"({"roles":{"Title":"Albums"},"rowsCount":11,"rows":[)" + body});
    };
    std::string rows;
    std::string lengths;
    for (int i = 0; i < 10; ++i) {
        rows += R"({"Title":"Song","Description":"Somebody","Type":"Audio","Path":"/s"},)";
        lengths += R"({"Duration":65000},)";
    }
    answer("", rows + R"({"Title":")" + std::string(90, 'x') + R"(","Type":"Container"}]})");
    answer("&roles=Duration%2CSummary", lengths + "{}]}");
    streamer.answer("GET /api/v1/row?path=%2Fa%3Fid%3D1", {200, R"({"row":{"Title":"Blue"}})"});
    const auto lines = [&](int width) {
        const auto run = streamer.run({"rows", "/a?id=1"}, {width, true, false});
        return QString::fromStdString(run.out).split('\n');
    };
    const QString gaps(29, ' ');
    EXPECT_EQ(lines(80).value(0), "Blue  11 rows");
    EXPECT_EQ(lines(80).value(1), " 0  ♪ Song" + gaps + "  Somebody  1:05");
    EXPECT_EQ(lines(80).value(11), "10  ▸ " + QString(32, 'x') + "…");
    EXPECT_TRUE(lines(140).value(1).endsWith("1:05  /s"));
}

TEST(CommandLine, JsonIsTheDocumentAsItCame)
{
    ScriptedStreamer streamer;
    const std::string body = "{\"z\": 9007199254740993,\n \"a\": [1.0, \"\xc2\x9b\\\"\x7f\"]}";
    const std::string printed =
        "{\"z\": 9007199254740993,\n \"a\": [1.0, \"\\u009b\\\"\\u007f\"]}\n";
    streamer.answer(tidalRows, {200, body});
    streamer.answer("GET /api/v1/data?path=%2Fx", {200, body});
    streamer.answer("POST /api/v1/set", {200, body});
    streamer.answer("GET /api/v1/player", {200, body});
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--json", "rows", "/tidal"},
          {"data", "/x", "--json"},
          {"set", "/x", "--json"},
          {"status", "--json"}})
        EXPECT_EQ(streamer.run(arguments).out, printed);
}

TEST(CommandLine, JsonFieldsPickFromRowsOrFromTheDocument)
{
    ScriptedStreamer streamer;
    const std::string body = R"({"path":"/tidal","rows":[{"A":1,"B":{"c":2}},{"A":"x","D":0}]})";
    streamer.answer(tidalRows + std::string("&roles=A%2CB"), {200, body});
    streamer.answer("GET /api/v1/player", {200, R"({"state":"stopped","volume":9})"});
    for (const auto& [arguments, expected] : Table<std::vector<std::string>, const char*>{
             {{"rows", "/tidal", "--json", "A,B"}, R"([{"A":1,"B":{"c":2}},{"A":"x","B":null}])"},
             {{"rows", "--json=A,B", "/tidal"}, R"([{"A":1,"B":{"c":2}},{"A":"x","B":null}])"},
             {{"status", "--json", "volume"}, R"({"volume":9})"}})
        EXPECT_EQ(streamer.run(arguments).out, expected + std::string("\n"));
}

TEST(CommandLine, WithJsonErrorsAreJsonToo)
{
    ScriptedStreamer streamer;
    for (
        const auto& [arguments, expected] : Table<std::vector<std::string>, const char*>{
            {{"rows", "/x", "--json"},
             R"({"error":"no such node","problem":{"detail":"no such node","title":"Not found"}})"},
            {{"--json", "rows"}, "{\"error\":\"PATH is missing (see kelo rows --help)\"}"},
            {{"rows", "/x", "--json=A,"},
             "{\"error\":\"--json: wanted names with commas between, got \\\"A,\\\" (see kelo "
             "rows --help)\"}"},
            {{"config", "--json", "--x"},
             "{\"error\":\"there is no option \\\"--x\\\" (see kelo config --help)\"}"}}) {
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.err, expected + std::string("\n"));
        EXPECT_EQ(run.out, "");
    }
}

TEST(NodeCommands, PrintDataAndRepliesForPeople)
{
    ScriptedStreamer streamer;
    streamer.answer("GET /api/v1/data?path=%2Fx",
                    {200, R"({"data":{"Title":"A\nB","Value":{"k":[true,null,5]},"N":7}})"});
    EXPECT_EQ(streamer.run({"data", "/x"}).out,
              "N      7\nTitle  A\\nB\nValue  {\"k\":[true,null,5]}\n");
    for (const auto& [reply, expected] : Table<const char*, const char*>{
             {R"("\u0000\u007f\u009b\u202e\r")", "\\x00\\x7f\\x9b\\u202e\\r\n"},
             {R"({"a":1})", "a  1\n"},
             {R"({"class":"KeloActionReply"})", "done\n"},
             {R"({"class":"KeloActionReply","result":{"Title":"Bio","Description":"a\nb"}})",
              "Bio\na\\nb\n"}}) {
        streamer.answer("POST /api/v1/set", {200, R"({"reply":)" + std::string(reply) + "}"});
        EXPECT_EQ(streamer.run({"set", "/x"}).out, expected);
    }
}

TEST(TreeCommand, DescendsToTheDepthAndStopsAtCycles)
{
    ScriptedStreamer streamer;
    const auto rowsOf = [](const char* path) {
        return std::string("GET /api/v1/rows?path=%2F") + path + "&from=0&to=49";
    };
    streamer.answer(rowsOf(""), {200, R"({"path":"/","rowsCount":60,"roles":{},"rows":[
        {"Title":"A","Type":"Container","Path":"/a"},{"Title":"Play","Type":"Action","Path":"/x"},
        {"Title":"Gone","Type":"Container","Path":"/gone"},{"Title":"H","Type":"Header"}]})"});
    streamer.answer(rowsOf("a"), {200, R"({"path":"/a","rowsCount":2,"roles":{},"rows":[
        {"Title":"Up","Type":"Container","Path":"/"},
        {"Title":"B","Type":"Container","Path":"/b"}]})"});
    EXPECT_EQ(streamer.run({"tree", "/"}).out,
              "/\n  ▸ A  /a\n    ▸ Up  /\n    ▸ B  /b\n  • Play  /x\n"
              "  ▸ Gone  /gone\n    (no such node)\n    H\n"
              "  ... 56 more\n");
    EXPECT_EQ(streamer.calls().size(), 3u);
    EXPECT_THAT(streamer.run({"tree", "/", "--depth", "3"}).out,
                HasSubstr("    ▸ Up  /\n      (shown above)\n"));
    const auto json = streamer.run({"tree", "/", "--json"});
    const QJsonObject tree = QJsonDocument::fromJson(QByteArray::fromStdString(json.out)).object();
    EXPECT_EQ(tree["rows"][0]["rows"][1]["Title"].toString(), QStringLiteral("B"));
    EXPECT_EQ(streamer.run({"tree", "/none"}).status, 1);
}

TEST(StatusCommand, ShowsWhatPlays)
{
    ScriptedStreamer streamer;
    streamer.answer("GET /api/v1/player", {200, R"({"state":"playing","path":"/t?id=1",
        "title":"So \u001bWhat","artist":"Miles","album":"Blue","positionMs":65000,
        "durationMs":130000,"quality":{"asked":"HI_RES","delivered":"HIGH"},"note":"skipped 1",
        "volume":40})"});
    EXPECT_EQ(streamer.run({"status"}, {31, false, false}).out,
              "playing  So \\x1bWhat\n  Miles · Blue\n  ━━━━━━━━────────  1:05 / 2:10\n"
              "  quality  HI_RES asked, HIGH …\n  volume   40 %\n  note     skipped 1\n  path     "
              "'/t?id=1'\n");
}

TEST(ServeCommand, HandsOptionsAndSettingsOver)
{
    QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    std::ostringstream out;
    std::ostringstream err;
    QStringList served;
    const auto run = [&](std::vector<std::string> arguments) {
        err.str({});
        cli::CommandLine commandLine({out,
                                      err,
                                      {},
                                      [&](const ServeOptions& options, const Settings& settings) {
                                          served = QStringList{options.stateDirectory,
                                                               options.moduleFiles.join(' '),
                                                               settings.server.listen.toString(),
                                                               settings.player.output,
                                                               settings.log.level,
                                                               options.isDemo ? "demo" : ""};
                                          return 7;
                                      },
                                      nullptr});
        return commandLine.run(std::move(arguments));
    };
    EXPECT_EQ(run({"serve", "--demo", "--listen", "127.0.0.1:0", "--output", "null", "--log-level",
                   "warn", "--module", "/m.so", "--module", "n.so", "--state-dir", "/s", "-o",
                   "log.level=debug"}),
              7);
    EXPECT_EQ(served, (QStringList{"/s", "/m.so n.so", "127.0.0.1:0", "null", "warn", "demo"}));
    EXPECT_EQ(run({"serve", "--listen", "here"}), 2);
    EXPECT_THAT(err.str(), HasSubstr("--listen: server.listen: wanted ADDR:PORT"));
}

TEST(ConfigCommand, ShowsOriginsAndMasksSecrets)
{
    QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    ScriptedStreamer streamer;
    std::vector<std::string> arguments{"config", "-o", "tidal.oauth2.client_secret=hush", "-o",
                                       "log.level=debug"};
    for (int i = 0; i < 2; ++i) {
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_THAT(run.out, testing::AllOf(HasSubstr("\"***\""), HasSubstr("\"debug\""),
                                            HasSubstr("-o"), Not(HasSubstr("hush"))));
        arguments.push_back("--json");
    }
}

} // namespace
