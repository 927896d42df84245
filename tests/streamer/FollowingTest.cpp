#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <regex>

namespace {

using testing::HasSubstr;

const char* const events = "GET /api/v1/events";
const char* const eventsOfA = "GET /api/v1/events?path=%2Fa";
const char* const eventsOfRows = "GET /api/v1/events?path=%2Fa&logins=1";

ScriptedStreamer::Answer stream(const std::string& body)
{
    const std::string first = "event: login\ndata: {\"loggedIn\":false,\"problem\":\"old\"}\n\n";
    return {200, first + body, "text/event-stream"};
}

TEST(WatchCommand, PrintsOneLineForEachNotice)
{
    ScriptedStreamer streamer;
    streamer.answer(
        eventsOfA,
        stream("event: rows\ndata: {\"path\":\"/a?k=\\u001b\",\"change\":\"reset\",\"count\":6}\n\n"
               "event: player\ndata: {}\n\n: alive\n\n"
               "event: rows\ndata: {\"path\":\"/a\",\"change\":[\"-4\",\"7\"],\"count\":-1}\n\n"
               "event: acted\ndata: {\"path\":\"/c\",\"action\":\"add\",\"item\":\"/t\"}\n\n"
               "event: rows\ndata: \"\x1b\"\n\n"));
    const auto run = streamer.run({"watch", "/a"});
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string time = "[0-2][0-9]:[0-5][0-9]:[0-5][0-9]";
    EXPECT_TRUE(std::regex_match(run.out, std::regex(time + "  '/a\\?k=\\\\x1b'  reset  6\n" +
                                                     time + "  /a  -4,7  -1\n" + time +
                                                     "  /t  add\n" + time + ".*\n")))
        << run.out;
    const auto json = streamer.run({"watch", "/a", "--json"});
    EXPECT_THAT(json.out, HasSubstr("{\"path\":\"/a\",\"change\":[\"-4\",\"7\"],\"count\":-1}\n"
                                    "{\"path\":\"/c\",\"action\":\"add\",\"item\":\"/t\"}\n"
                                    "\"\\u001b\"\n"));
}

TEST(RowsCommand, FollowPrintsThePageAgainAfterEachChange)
{
    ScriptedStreamer streamer;
    const std::string rows = "GET /api/v1/rows?path=%2Fa&from=0&to=49";
    const std::string notice = "event: rows\ndata: {\"path\":\"/a\"}\n\n";
    streamer.answer(rows, {200, R"({"path":"/a","from":0,"rowsCount":0,"roles":{},"rows":[]})"});
    streamer.answer(eventsOfRows, stream(notice + "event: login\ndata: {}\n\n" + notice));
    const auto run = streamer.run({"rows", "/a", "--follow"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "/a  0 rows\n\n/a  0 rows\n\n/a  0 rows\n");
    EXPECT_THAT(streamer.calls(), testing::ElementsAre(eventsOfRows, rows, rows, rows));
}

TEST(RowsCommand, FollowWaitsForAStreamerThatGoesAwayAndForALogin)
{
    ScriptedStreamer streamer;
    const std::string rows = "GET /api/v1/rows?path=%2Fa&from=0&to=49";
    // Another service's login is none of this one's.
    streamer.answer(eventsOfRows,
                    stream("event: login\ndata: {\"loggedIn\":true,\"service\":\"b\"}\n\n"
                           "event: login\ndata: {\"loggedIn\":true}\n\n"
                           "event: login\ndata: {\"loggedIn\":true}\n\n"));
    std::ostringstream out;
    std::ostringstream err;
    int waits = 0;
    cli::CommandLine commandLine(
        {out, err, {}, nullptr, nullptr, [&waits] { return ++waits < 2; }});
    commandLine.run({"--server", streamer.address(), "rows", "/a", "--follow"});
    const std::string gone =
        "kelo: the streamer at " + streamer.address() + " is gone; waiting for it (Ctrl-C ends)\n";
    const std::string missing = "kelo: no such node\n";
    EXPECT_EQ(err.str(), missing + missing + gone + "kelo: the streamer is back\n" + missing +
                             missing + missing + gone);
    EXPECT_THAT(streamer.calls(),
                testing::ElementsAre(eventsOfRows, rows, rows, eventsOfRows, rows, rows, rows));
}

TEST(Terminal, DrawsOverWhatItDrewHoweverLongAndNoMoreThanFits)
{
    std::ostringstream out;
    cli::Terminal terminal(out, out, {10, true, true, 6});
    terminal.redraw(
        {QStringLiteral("\033[2m") + QString(15, 'a') + QStringLiteral("\033[0m"), "b"});
    out.str("");
    terminal.redraw({"1", "2", "3", "4", "5"}, "end");
    EXPECT_EQ(out.str(), "\033[3A\033[J1\n2\n3\n\033[2m... 2 more\033[0m\nend\n");
    terminal.keep();
    out.str("");
    terminal.redraw({"x"});
    EXPECT_EQ(out.str(), "x\n");
}

TEST(StatusCommand, FollowPrintsALineForEachChangeAndDrawsInPlaceForPeople)
{
    ScriptedStreamer streamer;
    const std::string first = R"({"state":"playing","title":"A","positionMs":1000})";
    const std::string moved = R"({"state":"playing","title":"A","positionMs":2000})";
    const std::string paused = R"({"state":"paused","title":"A","positionMs":2000})";
    streamer.answer(events,
                    stream("event: player\ndata: " + first + "\n\nevent: player\ndata: " + moved +
                           "\n\nevent: rows\ndata: {}\n\nevent: player\ndata: " + paused + "\n\n"));
    EXPECT_EQ(streamer.run({"status", "--follow"}).out, "playing  A  0:01\npaused  A  0:02\n");
    EXPECT_EQ(streamer.run({"status", "--follow"}, {80, true, false}).out,
              "playing  A\n  0:01\n\033[2A\033[Jplaying  A\n  0:02\n\033[2A\033[Jpaused  A\n"
              "  0:02\n");
    EXPECT_EQ(streamer.run({"status", "--follow", "--json"}).out,
              first + '\n' + moved + '\n' + paused + '\n');
}

TEST(LoginCommand, WaitsForTheDecision)
{
    const std::string begun =
        R"({"loggedIn":false,"pending":{"userCode":"ABCDE","verificationUri":"example.org/x",
            "verificationUriComplete":"example.org/x/ABCDE","expiresIn":300}})";
    // decided: the answer when it is asked for once more
    for (const auto& [answer, decided, status, shown, said] :
         Table<std::string, std::string, int, const char*, const char*>{
             {begun, R"({"loggedIn":true})", 0, "logged in\n", ""},
             {begun, R"({"loggedIn":false})", 1, "ABCDE", "ended elsewhere"},
             {begun, "no streamer", 1, "ABCDE", "the streamer ended"},
             {R"({"loggedIn":true})", "", 0, "logged in\n", ""},
             {R"({"loggedIn":false,"problem":"no client id"})", "", 1, "", "no client id"}}) {
        ScriptedStreamer streamer;
        streamer.answer("POST /api/v1/login", {200, answer});
        streamer.answer("GET /api/v1/login", {200, answer});
        std::ostringstream out;
        std::ostringstream err;
        const auto decide = [&streamer, next = decided] {
            streamer.answer("GET /api/v1/login", {200, next});
            return true;
        };
        cli::CommandLine commandLine({out, err, {}, nullptr, nullptr, decide});
        EXPECT_EQ(commandLine.run({"--server", streamer.address(), "login"}), status);
        EXPECT_THAT(out.str(), HasSubstr(shown));
        EXPECT_THAT(err.str(), HasSubstr(said));
    }
}

TEST(LoginCommand, MeansTheServiceThatIsNamedAndShowsAll)
{
    const std::string tidal =
        R"({"displayName":"Tidal","loggedIn":true,"service":"tidal","user":"Kari"})";
    const std::string radio = R"({"displayName":"Radio","loggedIn":false,"problem":"too late",)"
                              R"("reason":"expired","service":"radio"})";
    ScriptedStreamer streamer;
    const auto answer = [&streamer](const std::string& call, const std::string& body) {
        streamer.answer(call, {200, body});
    };
    for (const char* method : {"GET", "POST", "DELETE"})
        answer(std::string(method) + " /api/v1/login?service=radio", radio);
    answer("GET /api/v1/login", tidal);
    EXPECT_EQ(streamer.run({"login", "--status"}).out, "logged in: Kari\n") << "an older streamer";
    answer("GET /api/v1/logins", "{\"logins\":[" + tidal + "]}");
    EXPECT_EQ(streamer.run({"login", "--status"}).out, "logged in: Kari\n");
    answer("GET /api/v1/logins", "{\"logins\":[" + radio + "," + tidal + "]}");
    for (const auto& [arguments, terminal, status, text] :
         Table<std::vector<std::string>, cli::Terminal::Properties, int, std::string>{
             {{"login", "--status"},
              {80, true, false},
              0,
              "radio  not logged in\n       problem: too late\n       Run kelo login radio again "
              "and confirm the code before it ends.\ntidal  logged in: Kari\n"},
             {{"login", "--status", "radio"},
              {80, true, false},
              1,
              "not logged in\nproblem: too late\nRun kelo login radio again and confirm the code "
              "before it ends.\n"},
             {{"login", "--status", "--json", "service,logins"},
              {},
              0,
              "{\"logins\":[" + radio + "," + tidal + "],\"service\":\"tidal\"}\n"},
             {{"login", "radio"}, {}, 1, ""},
             {{"logout", "radio"}, {}, 0, "logged out\n"},
             {{"complete", "--", "kelo", "logout", "r"}, {}, 0, "words\nradio\tRadio\n"}}) {
        const auto run = streamer.run(arguments, terminal);
        EXPECT_EQ(run.status, status) << run.err;
        EXPECT_EQ(run.out, text);
    }
    EXPECT_THAT(streamer.run({"login", "--status"}, {cli::Terminal::unlimited}).out,
                HasSubstr("radio\tproblem: too late\n"));
}

TEST(LoginCommand, ShowsAddressCodeAndQrCodeAndSaysWhenItExpires)
{
    ScriptedStreamer streamer;
    for (const char* call : {"POST /api/v1/login", "GET /api/v1/login"})
        streamer.answer(call, {200, R"({"loggedIn":false,"pending":{"userCode":"AB\u001bC",
                        "verificationUri":"example.org/x","expiresIn":0}})"});
    const auto run = streamer.run({"login"}, {80, true, false});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("the code has expired"));
    EXPECT_THAT(run.out, HasSubstr("Open     example.org/x\nCode     AB\\x1bC\n"));
    EXPECT_THAT(run.out, HasSubstr("█ ▄▄▄▄▄ █"));
    EXPECT_THAT(run.out, HasSubstr("waiting, 0:00 left"));
}

} // namespace
