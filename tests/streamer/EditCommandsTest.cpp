#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>
#include <QUrl>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string encoded(const std::string& path)
{
    return QUrl::toPercentEncoding(QString::fromStdString(path)).toStdString();
}

/// A row as JSON; \p more are further roles, with a comma in front.
std::string row(const std::string& type, const std::string& title, const std::string& path,
                const std::string& more = "")
{
    return R"({"Type":")" + type + R"(","Title":")" + title + R"(","Path":")" + path + '"' + more +
           '}';
}

std::string context(const std::string& path)
{
    return R"(,"Context":{"Path":")" + path + "\"}";
}

/// A streamer with one playlist of two tracks, its menus, chooser and forms.
class EditCommands : public testing::Test
{
protected:
    EditCommands()
    {
        const std::string menu = R"(,"ContainerType":"List")";
        addRows("/tidal", {row("Container", "Meine Musik", "/t/myMusic")});
        addRows("/t/myMusic", {row("Container", "Listen", "/t/req/created/playlists")});
        addRows(playlists, {mine});
        addRows(list, {track("1"), track("2")});
        addRows("/t/pm?id=p1", {row("Action", "weg", "/t/pm/removeFromPlaylists?id=p1")});
        addRows("/t/tm?id=2", {row("Action", "Favorit", "/t/tm/favorites?id=2"),
                               row("Container", "Dazu", "/t/tm/addToPlaylists/req/created?id=2"),
                               row("Action", "weg", "/t/pm/removeFromPlaylists?id=2&rowNum=1"),
                               row("Container", "Schieben", "/t/tm/moveTrack?id=2")});
        addRows("/t/tm/moveTrack?id=2", {row("Text", "Zeile", "/t/tm/moveTrack/rowNum?id=2"),
                                         row("Action", "Los", "/t/tm/moveTrack/move?id=2")});
        addRows("/t/tm/addToPlaylists/req/created?id=2",
                {row("Container", "Neu", "/t/createPlaylist?id=2", R"(,"Id":"1")"),
                 row("Action", "Mine", "/t/add?id=2&playlistId=p1", R"(,"Id":"p1")")});
        addData("/t/tm?id=2", R"("Type":"Container")" + menu);
        addData(second, R"("ContainerType":"None")");
        streamer.answer("GET /api/v1/row?path=" + encoded(second),
                        {200, R"({"row":)" + track("2") + '}'});
        addData("/t/tm/favorites?id=2", R"("Title":"Add to favorites")");
        addData("/t/req/created/playlists", R"("ContainerType":"None")" + context("/t/tm?id=2"));
        streamer.answer("POST /api/v1/set", {200, R"({"reply":null})"});
    }

    static std::string track(const std::string& id)
    {
        return row("Audio", "Song " + id, list + "&trackId=" + id, context("/t/tm?id=" + id));
    }

    void addRows(const std::string& path, const std::vector<std::string>& rows)
    {
        const auto answer = [&](size_t from, size_t to) {
            std::string body;
            for (size_t i = from; i <= to && i < rows.size(); ++i)
                body += (body.empty() ? "" : ",") + rows[i];
            const std::string call = "GET /api/v1/rows?path=" + encoded(path) +
                                     "&from=" + std::to_string(from) + "&to=" + std::to_string(to);
            const std::string page = R"({"path":")" + path + R"(","from":0,"rowsCount":)" +
                                     std::to_string(rows.size()) + R"(,"roles":{},"rows":[)" +
                                     body + "]}";
            streamer.answer(call, {200, page});
        };
        answer(0, 49);
        for (size_t from = 0; from <= rows.size(); ++from) {
            for (size_t to = from; to <= rows.size() + 1; ++to)
                answer(from, to);
        }
    }

    void addData(const std::string& path, const std::string& roles)
    {
        streamer.answer("GET /api/v1/data?path=" + encoded(path),
                        {200, R"({"path":"x","data":{)" + roles + "}}"});
    }

    /// What was sent to nodes since the last call.
    std::vector<std::string> sent()
    {
        std::vector<std::string> result;
        const std::string post = "POST /api/v1/set ";
        for (const std::string& call : streamer.calls()) {
            if (call.rfind(post, 0) == 0)
                result.push_back(call.substr(post.size()));
        }
        streamer.forget();
        return result;
    }

    static inline const std::string list = "/t/req/created/playlists?contentId=p1&playlistId=p1";
    const std::string second = list + "&trackId=2";
    const std::string playlists = "/t/req/created/playlists";
    const std::string mine =
        row("Container", "Mine", list, R"(,"Id":"p1")" + context("/t/pm?id=p1"));
    ScriptedStreamer streamer;
};

TEST_F(EditCommands, refuseBeforeAnythingIsSent)
{
    streamer.answer("GET /api/v1/data?path=%2Fbusy",
                    {502, R"({"detail":"Not logged in"})", "application/problem+json"});
    addData("/t/none?a=1", R"("ContainerType":"None")");
    for (const auto& [arguments, status, message] :
         Table<std::vector<std::string>, int, const char*>{
             {{"playlist", "delete", "p2"}, 1, "none of your playlists has the id p2"},
             {{"playlist", "add", "p2", second}, 1, "none of your playlists has the id p2"},
             {{"playlist", "add", "p1", second, "/busy"}, 1, "Not logged in"},
             {{"playlist", "add", "p1", "/t/none?a=1"}, 1, "no such node"},
             {{"playlist", "remove", "p1", "2"}, 1, "there is no row 2, the last one is 1"},
             {{"menu", second, "--server", "http://127.0.0.1:1"}, 3, "no streamer reachable"}}) {
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.status, status) << message;
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_EQ(run.out, "");
    }
    EXPECT_THAT(sent(), ElementsAre());
    streamer.answer("POST /api/v1/set", {502, R"({"detail":"Non existing track index"})"});
    const auto refused = streamer.run({"playlist", "move", "p1", "1", "9"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "kelo: Non existing track index\n");
    EXPECT_EQ(sent().size(), 1u) << "after a refusal nothing more is sent";
}

TEST_F(EditCommands, tellWhenTheServiceTookNothing)
{
    for (const auto& [arguments, message] : Table<std::vector<std::string>, const char*>{
             {{"playlist", "delete", "p1"}, "the playlist is still there"},
             {{"playlist", "add", "p1", second}, "the playlist has not grown"},
             {{"playlist", "remove", "p1", "1"}, "the row is still there"}}) {
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.err, HasSubstr(message));
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(sent().size(), 1u);
    }
}

TEST_F(EditCommands, menuShowsWhatActionsSayOfThemselves)
{
    const char* const expected = "0  • Add to favorites                  '/t/tm/favorites?id=2'\n";
    for (const std::string& path :
         {second, std::string("/t/tm?id=2"), std::string("/t/req/created/playlists")}) {
        const auto run = streamer.run({"menu", path}, {200, false, false});
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_THAT(run.out, StartsWith(expected)) << path;
        EXPECT_THAT(run.out, HasSubstr("2  • weg               (no such node)"));
    }
    const auto json = streamer.run({"menu", second, "--json"});
    EXPECT_THAT(json.out, HasSubstr(R"("Title":"Add to favorites")"));
    EXPECT_THAT(json.out, HasSubstr(R"("problem":"no such node")"));
}

TEST_F(EditCommands, favoriteSendsOnlyWhatChangesSomething)
{
    const std::string action = R"({"path":"/t/tm/favorites?id=2","value":1})";
    const std::string state =
        "GET /api/v1/data?path=" + encoded("/t/tm/favorites?id=2") + "&language=en";
    for (const auto& [title, wish, out, isSent] :
         Table<const char*, const char*, const char*, bool>{
             {"Add to favorites", "", "favorite on\n", true},
             {"Add to favorites", "on", "favorite on\n", true},
             {"Add to favorites", "off", "favorite off (it was already)\n", false},
             {"Remove from favorites", "", "favorite off\n", true},
             {"Favorite", "on", "", false}}) {
        streamer.answer(state, {200, std::string(R"({"data":{"Title":")") + title + "\"}}"});
        std::vector<std::string> arguments{"favorite", second};
        if (*wish)
            arguments.push_back(wish);
        const auto run = streamer.run(arguments);
        EXPECT_EQ(run.status, *out ? 0 : 1);
        EXPECT_EQ(run.out, out);
        // The script's menu never changes, which is said.
        EXPECT_EQ(run.err.find("does not show the change") != std::string::npos, isSent);
        EXPECT_EQ(sent(), isSent ? std::vector<std::string>{action} : std::vector<std::string>{});
    }
}

} // namespace
