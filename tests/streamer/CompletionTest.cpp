#include "streamer/ScriptedStreamer.h"
#include "Table.h"

#include <gmock/gmock.h>

namespace {

/// A tree whose rows' paths do not begin with their parents'.
void addTree(ScriptedStreamer& streamer)
{
    const auto rows = [&](const std::string& path, const std::string& body) {
        streamer.answer("GET /api/v1/rows?path=" + path + "&from=0&to=49&roles=Title%2CPath",
                        {200, "{\"rows\":[" + body + "]}"});
    };
    rows("%2Ftidal", R"({"Title":"New\t!","Path":"/tidal/new"},{"Path":"/tidal/genres"})");
    rows("%2Ftidal%2Fnew", R"({"Title":"Head"},{"Title":"In","Path":"/tidal/req/new/albums"})");
    rows(
        "%2Ftidal%2Freq%2Fnew%2Falbums",
        R"({"Path":"/tidal/req/new/albums?id=51&x=a%20b"},{"Path":"/tidal/req/new/albums?id=52"})");
}

TEST(Completion, FollowsTheCommandStructureAndTheTree)
{
    ScriptedStreamer streamer;
    addTree(streamer);
    const std::string albums = "/tidal/req/new/albums";
    for (const auto& [line, expected] : Table<std::string, std::string>{
             {"kelo pl", "words|playlist\tShow, make and change playlists.|play\tPlay a row, a "
                         "list or a track."},
             {"kelo --json playlist ren", "words|rename\tGive a playlist another title; without a "
                                          "description it keeps its own."},
             {"kelo rows --from 3 --f", "words|--follow\tShow them again whenever they change"},
             {"kelo search x --in a", "words|albums\t|artists\t"},
             {"kelo serve -o tidal.use", "parts|tidal.use_post_paywall=\ttrue or false"},
             {"kelo serve -o tidal.use_post_paywall=t", "words|true\t"},
             {"kelo doctor --state-dir k", "folders"},
             {"kelo rows -- --f", "parts"},
             {"kelo rows /t", "parts|/tidal\tthe service"},
             {"kelo rows /tidal/n", "parts|/tidal/new\tNew\\t!"},
             {"kelo rows /tidal/req/n", "parts|" + albums + "\tIn"},
             {"kelo rows " + albums + "\\?id\\=51", "parts|" + albums + "?id=51&x=a%20b\t"},
             {"kelo rows " + albums + "?id=5", "parts|51&x=a%20b\t|52\t"},
             {"kelo watch /a /tidal/g", "parts|/tidal/genres\t"},
             {"kelo rows /a /b", "words"},
             {"kelo rows --server http://127.0.0.1:1 /tidal/n", "parts"},
             {"kelo rows --server nonsense /tidal/n", "words"},
             {"kelo nonsense ", "words"}}) {
        const auto run = streamer.run({"complete", "--line", line, "--breaks", " \t\n\"'=&:"});
        std::string out = run.out.substr(0, run.out.find_last_not_of('\n') + 1);
        std::replace(out.begin(), out.end(), '\n', '|');
        EXPECT_EQ(out, expected) << line;
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "") << line;
    }
    EXPECT_EQ(streamer.run({"complete", "--", "kelo", "rows", "/tidal/g"}).out,
              "parts\n/tidal/genres\t\n");
}

} // namespace
