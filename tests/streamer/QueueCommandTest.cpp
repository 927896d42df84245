#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <QTemporaryDir>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

const char* const queue = R"({"version":17,"list":"/l","listTitle":"Just In","queued":1,
"rowsCount":130,"from":0,"rows":[
{"Queued":true,"Title":"By hand","Description":"Ann","Type":"Audio","Path":"/h","List":"/o",
"Index":7},
{"Title":"Of the list","Description":"Bob","Type":"Audio","Path":"/b","List":"/l","Index":4}]})";
const char* const getQueue = "GET /api/v1/player/queue?from=0&to=49";
const std::string post = "POST /api/v1/player/queue";

TEST(QueueCommand, ShowsWhatComesAndWhereItComesFrom)
{
    ScriptedStreamer streamer;
    streamer.answer(getQueue, {200, queue});
    EXPECT_EQ(streamer.run({"queue"}).out,
              "Playing from Just In  130 to come, 1 queued, here 0 to 1\n"
              "0  + By hand      Ann\n1  ♪ Of the list  Bob\n");
    EXPECT_EQ(streamer.run({"queue"}, {cli::Terminal::unlimited, false, false}).out,
              "0\tQueued\tBy hand\tAnn\t/h\n1\tAudio\tOf the list\tBob\t/b\n");
    EXPECT_EQ(streamer.run({"queue", "--json", "Title"}).out,
              "[{\"Title\":\"By hand\"},{\"Title\":\"Of the list\"}]\n");
}

// What a person types are positions of the queue that was on the screen: it may be another by now.
TEST(QueueCommand, EditsTheVersionThatTheTerminalSawLast)
{
    QTemporaryDir folder;
    ScriptedStreamer streamer;
    streamer.answer(post, {200, R"({"version":18,"queued":2,"rowsCount":131})"});
    streamer.answer("GET /api/v1/player/queue?from=0&to=0", {200, R"({"version":3,"rows":[]})"});
    streamer.answer(getQueue, {200, queue});
    streamer.answer("GET /api/v1/player/queue?from=0&to=9", {200, queue});
    streamer.answer("GET /api/v1/player", {200, R"({"state":"playing","title":"T"})"});
    const auto sent = [&](std::vector<std::string> arguments) {
        const size_t before = streamer.calls().size();
        EXPECT_EQ(streamer.run(std::move(arguments)).status, 0);
        const auto calls = streamer.calls();
        for (size_t i = before; i < calls.size(); ++i) {
            if (calls[i].substr(0, post.size()) == post)
                return calls[i].substr(post.size() + 1);
        }
        return std::string();
    };
    EXPECT_EQ(sent({"queue", "move", "5", "0"}),
              R"({"action":"move","position":5,"to":0,"version":3})");
    streamer.state = {folder.path(), "1"};
    streamer.run({"queue"});
    for (const auto& [arguments, body] : Table<std::vector<std::string>, const char*>{
             {{"queue", "remove", "0", "2"},
              R"({"action":"remove","count":2,"position":0,"version":17})"},
             {{"play", "1"}, R"({"action":"jump","position":1,"version":17})"},
             {{"queue", "add", "1"},
              R"({"action":"add","at":"end","index":4,"list":"/l","path":"/b"})"},
             {{"queue", "add", "/x", "0", "--next"},
              R"({"action":"add","at":"next","paths":["/x","/h"]})"},
             {{"queue", "clear"}, R"({"action":"clear"})"}})
        EXPECT_EQ(sent(arguments), body);
    streamer.answer(post, {409, R"({"detail":"the queue has changed"})"});
    const auto late = streamer.run({"queue", "remove", "0"});
    EXPECT_EQ(late.status, 1);
    EXPECT_EQ(late.err, "kelo: the queue has changed\n");
}

TEST(ModeCommands, ShowAndSetShuffleRepeatVolumeAndMute)
{
    QTemporaryDir folder;
    ScriptedStreamer streamer;
    streamer.state = {folder.path(), {}};
    const auto playerIs = [&](const std::string& body) {
        for (const char* call : {"GET /api/v1/player", "POST /api/v1/player/shuffle",
                                 "POST /api/v1/player/repeat", "POST /api/v1/player/volume",
                                 "POST /api/v1/player/pause", "POST /api/v1/player/resume"})
            streamer.answer(call, {200, body});
    };
    const auto check = [&](const std::vector<std::string>& arguments, const std::string& out,
                           const std::string& last) {
        EXPECT_THAT(streamer.run(arguments).out, StartsWith(out)) << last;
        EXPECT_EQ(streamer.calls().back(), last);
    };
    playerIs(R"({"state":"playing","shuffle":true,"repeat":"one","volume":98})");
    const std::string player = "/api/v1/player";
    check({"shuffle"}, "shuffle  on\n", "GET " + player);
    check({"shuffle", "off"}, "shuffle  on\n", "POST " + player + R"(/shuffle {"on":false})");
    check({"repeat", "all"}, "repeat  one\n", "POST " + player + R"(/repeat {"mode":"all"})");
    check({"volume"}, "volume  98 %\n", "GET " + player);
    check({"volume", "+5"}, "volume", "POST " + player + R"(/volume {"percent":100})");
    check({"volume", "-5"}, "volume", "POST " + player + R"(/volume {"percent":93})");
    check({"toggle"}, "playing", "POST " + player + "/pause {}");
    check({"mute"}, "volume", "POST " + player + R"(/volume {"percent":0})");
    playerIs(R"({"state":"paused","volume":0})");
    check({"volume"}, "volume  0 % (muted, was 98 %)\n", "GET " + player);
    check({"toggle"}, "paused", "POST " + player + "/resume {}");
    check({"mute"}, "volume", "POST " + player + R"(/volume {"percent":98})");
    EXPECT_THAT(streamer.run({"mute"}).err, HasSubstr("not known here"));
}

} // namespace
