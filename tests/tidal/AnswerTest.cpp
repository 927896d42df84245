#include "ModuleTest.h"
#include "Table.h"
#include <limits>

namespace {
const char* const none = "(none)"; ///< left without an answer
const char* const unread = "Error, failed to parse error message";
const char* const refusal = R"({"status":400,"subStatus":1002,"userMessage":"title & more"})";

/// What becomes of the service's answers that are no success.
class AnswerTest : public ScriptedTest
{
};

TEST_F(AnswerTest, StatusAndBodySayWhatFailed)
{
    const QString list = "/tidal/req/featured/new/albums";
    const QString artist = "/tidal/req/artists?artistId=7&artistContent=";
    const QString bio = "bio", create = "create", update = "update";
    const QString move = "move", read = "read";
    const QMap<QString, QString> edits = {
        {bio, artist + "bio"},
        {create, "/tidal/createPlaylist/accept"},
        {update, "/tidal/updatePlaylists/accept?id=u"},
        {move, "/tidal/myPlaylistTrackscontext/moveTrack/move?playlistId=u&rowNum=1"},
        {read, "/tidal/playlistcontext/removeFromPlaylists?type=Playlists&id=u"}};
    // what: a list, or the name of an edit
    for (const auto& [what, asked, status, body, message] :
         Table<QString, const char*, int, const char*, const char*>{
             {list, "/featured", 400, R"({"status":400,"userMessage":"Too big page"})",
              "Bad request"},
             {list, "/featured", 401, R"({"status":401,"userMessage":null})", "Unauthorized"},
             {list, "/featured", 404, "<html>gone</html>", "Not found"},
             {list, "/featured", 500, "", "Unexpected error"},
             {list, "/featured", 503, "[]", "Service Unavailable: Back-end server is at capacity"},
             {list, "/featured", 502, "<html>", "unknown Error"},
             {artist + "toptracks", "/toptracks", 404, R"({"status":404})", "Not found"},
             {artist + "toptracks", "/toptracks", 401, "gone", none},
             {artist + "nothing", "/nothing", 200, "{}", none},
             {bio, "/bio", 404, R"({"status":404,"userMessage":"Bio of [7] not found"})",
              "Not found"},
             {bio, "/bio", 200, "", ""},
             {bio, "/bio", 500, "<html>", none},
             {create, "/users/4005/playlists", 201, "no JSON", ""},
             {create, "/users/4005/playlists", 200, R"({"uuid":"u-9"})", unread},
             {create, "/users/4005/playlists", 400, refusal, "title & more"},
             {update, "/playlists/u", 200, "", ""},
             {update, "/playlists/u", 201, "", unread},
             {update, "/playlists/u", 404, refusal, "title & more"},
             {move, "/playlists/u/tracks/1", 200, "", ""},
             {move, "/playlists/u/tracks/1", 404, refusal, "Non existing track index"},
             {move, "/playlists/u/tracks/1", 500, "", none},
             {read, "/playlists/u", 200, "<html>", none}}) {
        SCOPED_TRACE(what.toStdString() + " " + std::to_string(status) + " " + body);
        m_service.script("/playlists/u", {{200, R"({"uuid":"u"})"}});
        m_service.script(asked, {{status, body}});
        const CMRequest request =
            edits.contains(what) ? CMRequest(set(edits.value(what))) : askRows(what);
        wait(request);
        const CMError error = request.reply().error();
        EXPECT_EQ(error.name() == CMError::NoAnswerName() ? none : error.message(), message);
        EXPECT_TRUE(!error.isSet() || error.name() == "TIDAL" || message == none);
    }
    for (const std::size_t size : {262144u, 262145u}) { // a larger answer is none
        m_service.script("/featured", {{200, std::string(size, ' ')}});
        EXPECT_EQ(errorOf(askRows(list)), size > 262144 ? "unknown Error" : "");
    }
    // A playlist that something is to be put into has to be read.
    m_service.script("/users/4005/playlists", {{201, "{\"uuid\":"}});
    EXPECT_NE(errorOf(set(edits.value(create) + "?id=1&type=Tracks")), "");
}

TEST_F(AnswerTest, ACountTellsHowFarAListReaches)
{
    constexpr int most = std::numeric_limits<int>::max();
    for (const auto& [from, to, received, total, count] :
         Table<int, int, int, int, int>{{0, 49, 50, 120, 120},
                                        {100, 149, 20, 150, 120},
                                        {0, 49, 30, 30, 30},
                                        {0, 49, 48, 50, 48},
                                        {10, 19, 10, 15, 15},
                                        {0, 49, 0, 120, 120},
                                        {most, most, 1, 5, 5},
                                        {most - 1, most, 2, most, most}}) {
        const auto request = answered("/tidal/req/albums?contentId=1", from, to,
                                      pageOf(many("{}", received), total));
        EXPECT_EQ(request.reply().value().rowsCount(), count)
            << from << "-" << to << " received " << received << " of " << total;
        EXPECT_EQ(rowsOf(request).size(), received);
    }
}
} // namespace
