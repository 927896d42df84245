#include "ApiDocument.h"
#include "ServiceTest.h"

#include <httplib.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>
#include <set>

using ApiDocumentTest = ServiceTest;

TEST_F(ApiDocumentTest, AnswersAreAsTheDocumentSays)
{
    const ApiDocument document(KELO_OPENAPI);
    httplib::Client client(streamer.url().toStdString());
    client.set_read_timeout(60);
    std::set<std::string> left;
    for (const std::string& call : document.jsonCalls())
        left.insert(call);
    const auto ask = [&](const std::string& call, const std::string& query = {},
                         const std::string& body = {}) {
        httplib::Request request;
        request.method = call.substr(0, call.find(' '));
        request.path = call.substr(call.find(' ') + 1) + query;
        request.body = body;
        const auto answer = client.send(request);
        if (!answer)
            return QJsonObject();
        const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(answer->body)).object();
        EXPECT_EQ(answer->status, 200) << call << answer->body;
        EXPECT_EQ(document.faultOf(call, json), "") << answer->body;
        left.erase(call);
        return json;
    };

    const std::string albums = "/tidal/req/featured/new/albums";
    const auto album = ask("GET /api/v1/rows", "?path=" + albums)["rows"].toArray().first();
    const std::string tracks = QUrl::toPercentEncoding(album.toObject()["Path"].toString()).data();
    const auto rows = ask("GET /api/v1/rows", "?path=" + tracks)["rows"].toArray();
    const std::string track = rows.last().toObject()["Path"].toString().toStdString();
    ask("GET /api/v1/data", "?path=/tidal");
    ask("POST /api/v1/set", "", R"({"path":"/settings/tidal/soundQuality","value":"LOW"})");
    ask("POST /api/v1/player/play", "", R"({"path":")" + track + R"("})");
    for (const char* call :
         {"GET /api/v1/player", "POST /api/v1/player/pause", "POST /api/v1/player/resume",
          "POST /api/v1/player/next", "POST /api/v1/player/previous"})
        ask(call);
    ask("POST /api/v1/player/seek", "", R"({"positionMs":0})");
    ask("POST /api/v1/player/volume", "", R"({"percent":50})");
    ask("POST /api/v1/player/stop");
    ask("GET /api/v1/texts", "?language=de");
    EXPECT_FALSE(ask("GET /api/v1/requests")["requests"].toArray().isEmpty());
    for (const char* call : {"GET /api/v1/session", "GET /healthz", "GET /readyz"})
        ask(call);

    EXPECT_TRUE(streamer.waitForEvent("stream", [&](const QJsonObject& stream) {
        const std::string body = R"(","paths":["/tidal","/nobody"]})";
        ask("POST /api/v1/events/paths", "",
            R"({"stream":")" + stream["id"].toString().toStdString() + body);
        return true;
    }));
    for (const auto& [event, schema] :
         {std::pair{"player", "Player"}, std::pair{"login", "Login"}}) {
        EXPECT_TRUE(streamer.waitForEvent(event, [&, schema = schema](const QJsonObject& data) {
            EXPECT_EQ(document.faultOfSchema(schema, data), "");
            return true;
        }));
    }
    for (const char* call :
         {"GET /api/v1/login", "DELETE /api/v1/login", "POST /api/v1/login", "GET /api/v1/login"})
        ask(call);
    const auto problem = streamer.get(QStringLiteral("/api/v1/rows?path=/nobody"));
    EXPECT_EQ(document.faultOfSchema("Problem", problem.body), "");
    EXPECT_EQ(left, std::set<std::string>()) << "described and not asked for here";
}
