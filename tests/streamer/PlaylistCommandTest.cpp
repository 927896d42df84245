#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <sstream>

namespace {

using testing::HasSubstr;

/// A streamer with three playlists of the user's own, two of which share a title.
void addPlaylists(ScriptedStreamer& streamer)
{
    const auto rows = [&](const std::string& path, const std::string& body) {
        const std::string call = "GET /api/v1/rows?path=" + path + "&from=0&to=49";
        const ScriptedStreamer::Answer answer{200, R"({"rowsCount":3,"rows":[)" + body + "]}"};
        streamer.answer(call, answer);
        streamer.answer(call + "&roles=Type%2CPath%2CTitle%2CId%2CDescription%2CSummary%2CDuration",
                        answer);
    };
    rows("%2Ftidal", R"({"Type":"Container","Path":"/tidal/myMusic"})");
    rows("%2Ftidal%2FmyMusic", R"({"Type":"Container","Path":"/req/created"})");
    const auto playlist = [](const std::string& id, const std::string& title) {
        return R"({"Type":"Container","Id":")" + id + R"(","Title":")" + title +
               R"(","Summary":"3 tracks","Duration":65000,"Path":"/p?id=)" + id +
               R"(","Context":{"Path":"/menu"}})";
    };
    rows("%2Freq%2Fcreated", playlist("p1", "Late evening") + ',' + playlist("p2", "Sea") + ',' +
                                 playlist("p3", "Sea"));
    rows("%2Fmenu", R"({"Type":"Action","Path":"/menu/removeFromPlaylists"})");
    rows("%2Fp%3Fid%3Dp1", R"({"Title":"Row"})");
    streamer.answer("POST /api/v1/set", {200, "{}"});
}

TEST(FavoriteCommand, SaysWhatTheRowIsToBe)
{
    ScriptedStreamer streamer;
    streamer.answer("GET /api/v1/rows?path=%2Fm&from=0&to=49",
                    {200, R"({"rows":[{"Type":"Action","Path":"/m/favorites"}]})"});
    // Of many favourites it sees the first alone, so it may be wrong.
    streamer.answer("GET /api/v1/data?path=%2Fm%2Ffavorites&language=en",
                    {200, R"({"data":{"Title":"Add to favorites"}})"});
    streamer.answer("POST /api/v1/set", {200, R"({"reply":null})"});
    // An album of an artist's page has no data of its own.
    streamer.answer("GET /api/v1/row?path=%2Fa%3Fid%3D1",
                    {200, R"({"row":{"Context":{"Path":"/m"}}})"});
    for (const char* wish : {"on", "off"}) {
        EXPECT_EQ(streamer.run({"favorite", "/a?id=1", wish}).status, 0);
        const std::string value = wish == std::string("on") ? "true" : "false";
        EXPECT_THAT(streamer.calls(),
                    testing::Contains(
                        R"(POST /api/v1/set {"path":"/m/favorites","role":"Favorite","value":)" +
                        value + '}'));
    }
}

TEST(PlaylistCommand, GoesByTitleWhereThatIsTheOnlyOne)
{
    ScriptedStreamer streamer;
    addPlaylists(streamer);
    for (const char* name : {"p1", "/p?id=p1", "late EVENING", "late"})
        EXPECT_THAT(streamer.run({"playlist", "show", name}).out, HasSubstr("Row")) << name;
    for (const auto& [name, message] : Table<const char*, const char*>{
             {"Sea", "2 of your playlists may be \"Sea\""}, {"none", "has the title or id none"}}) {
        const auto run = streamer.run({"playlist", "show", name});
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.err, HasSubstr(message));
    }
    for (const auto& [line, expected] : Table<const char*, const char*>{
             {"kelo playlist show L", "titles\nLate evening\t3 tracks, 1:05\n"},
             {"kelo playlist show p", "titles\np1\tLate evening\np2\tSea\np3\tSea\n"}})
        EXPECT_EQ(streamer.run({"complete", "--line", line}).out, expected);
}

TEST(PlaylistCommand, DeletesAfterAYesWhereThereIsSomebodyToAsk)
{
    for (const auto& [hasPerson, answer, isSure, isDeleted] :
         Table<bool, bool, bool, bool>{{true, false, false, false},
                                       {true, true, false, true},
                                       {true, false, true, true},
                                       {false, false, false, true}}) {
        ScriptedStreamer streamer;
        addPlaylists(streamer);
        std::ostringstream out;
        QString asked;
        cli::CommandLine::Surroundings around{out, out, {}, nullptr};
        if (hasPerson)
            around.confirm = [&, answer = answer](const QString& question) {
                asked = question;
                return answer;
            };
        std::vector<std::string> arguments{"--server", streamer.address(), "playlist", "delete",
                                           "late"};
        if (isSure)
            arguments.push_back("--yes");
        cli::CommandLine(around).run(arguments);
        const auto calls = streamer.calls();
        const bool isSent = std::any_of(calls.begin(), calls.end(), [](const auto& call) {
            return call.substr(0, 4) == "POST";
        });
        EXPECT_EQ(isSent, isDeleted) << out.str();
        EXPECT_EQ(asked.contains("\"Late evening\""), hasPerson && !isSure);
    }
}

} // namespace
