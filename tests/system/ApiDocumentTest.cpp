#include "ServiceTest.h"

#include <future>
#include <httplib.h>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>
#include <set>
#include <yaml-cpp/yaml.h>

namespace {

bool isOfType(const std::string& type, const QJsonValue& value)
{
    static std::map<QJsonValue::Type, std::string> types{{QJsonValue::String, "string"},
                                                         {QJsonValue::Bool, "boolean"},
                                                         {QJsonValue::Object, "object"},
                                                         {QJsonValue::Array, "array"},
                                                         {QJsonValue::Double, "integer"}};
    return types[value.type()] == type;
}

/// The document of the HTTP API, which says what is wrong with an answer.
class ApiDocument
{
public:
    YAML::Node schemaOf(const YAML::Node& operation) const
    {
        return resolved(operation["responses"]["200"])["content"]["application/json"]["schema"];
    }
    YAML::Node schema(const std::string& name) const { return root["components"]["schemas"][name]; }

    /// Missing and unknown properties and those of a wrong type, in depth; a choice is not
    /// followed.
    std::string fault(const YAML::Node& given, const QJsonValue& value) const
    {
        const YAML::Node schema = resolved(given);
        if (schema["type"] && !isOfType(schema["type"].as<std::string>(), value))
            return "is no " + schema["type"].as<std::string>();
        std::string faults;
        for (const QJsonValue& item : value.toArray())
            faults += schema["items"] ? fault(schema["items"], item) : "";
        for (const YAML::Node& name : schema["required"])
            faults += value[name.as<std::string>().c_str()].isUndefined()
                          ? "lacks " + name.as<std::string>()
                          : "";
        const QStringList names = value.toObject().keys();
        for (const QString& name : names) {
            const YAML::Node all = schema["properties"];
            const YAML::Node known = all ? all[name.toStdString()] : all;
            if (known.IsDefined())
                faults += fault(known, value[name]);
            else if (all.IsDefined() && !schema["additionalProperties"])
                faults += " is not described";
            faults +=
                faults.empty() || faults.back() == '\n' ? "" : " in " + name.toStdString() + '\n';
        }
        return faults;
    }

    const YAML::Node root = YAML::LoadFile(KELO_OPENAPI);

private:
    YAML::Node resolved(const YAML::Node& node) const
    {
        if (!node["$ref"])
            return node;
        const QStringList way = QString::fromStdString(node["$ref"].as<std::string>()).split('/');
        return resolved(root["components"][way.at(2).toStdString()][way.at(3).toStdString()]);
    }
};

} // namespace

using ApiDocumentTest = ServiceTest;

/// Asks for what the document describes, and compares.
class Asker
{
public:
    explicit Asker(const std::string& url) : m_client(url)
    {
        m_client.set_read_timeout(60);
        for (const auto& path : document.root["paths"]) {
            for (const auto& operation : path.second) {
                const YAML::Node schema = document.schemaOf(operation.second);
                const QString method = QString::fromStdString(operation.first.as<std::string>());
                if (schema.IsDefined())
                    m_all[method.toUpper().toStdString() + ' ' + path.first.as<std::string>()] =
                        schema;
            }
        }
        left = m_all;
    }

    QJsonObject operator()(const std::string& call, const std::string& query = {},
                           const std::string& body = {})
    {
        httplib::Request request;
        request.method = call.substr(0, call.find(' '));
        request.path = call.substr(call.find(' ') + 1) + query;
        request.body = body;
        const auto answer = m_client.send(request);
        const QByteArray text = answer ? answer->body.c_str() : "";
        const auto json = QJsonDocument::fromJson(text).object();
        EXPECT_EQ(answer ? answer->status : 0, 200) << call;
        EXPECT_EQ(document.fault(m_all.at(call), json), "") << call << text.data();
        left.erase(call);
        return json;
    }

    const ApiDocument document;
    std::map<std::string, YAML::Node> left; ///< what was not asked for

private:
    httplib::Client m_client;
    std::map<std::string, YAML::Node> m_all;
};

TEST_F(ApiDocumentTest, AnswersAreAsTheDocumentSays)
{
    Asker ask(streamer.url().toStdString());
    const ApiDocument& document = ask.document;

    const QJsonValue album =
        ask("GET /api/v1/rows", "?path=/tidal/req/featured/new/albums")["rows"].toArray().first();
    const std::string tracks = QUrl::toPercentEncoding(album["Path"].toString()).data();
    const QJsonValue track = ask("GET /api/v1/rows", "?path=" + tracks)["rows"].toArray().last();
    EXPECT_EQ(ask("GET /api/v1/row", "?path=" + tracks)["list"].toString(),
              "/tidal/req/featured/new/albums");
    const QJsonValue further =
        ask("GET /api/v1/rows", "?path=/tidal/req/featured/new/tracks&to=0&roles=TrackNumber,"
                                "Duration,ReleaseYear,AlbumPath,ArtistPaths")["rows"]
            .toArray()
            .first();
    EXPECT_GT(further["Duration"].toInt(), 0);
    for (const QJsonValue& path : {further["AlbumPath"], further["ArtistPaths"][0]["Path"]}) {
        const std::string leads = QUrl::toPercentEncoding(path.toString()).data();
        EXPECT_FALSE(ask("GET /api/v1/rows", "?path=" + leads)["rows"].toArray().isEmpty());
    }
    ask("GET /api/v1/data", "?path=/tidal");
    ask("POST /api/v1/set", "", R"({"path":"/settings/tidal/soundQuality","value":"LOW"})");
    ask("POST /api/v1/player/play", "",
        R"({"path":")" + track["Path"].toString().toStdString() + R"("})");
    ask("POST /api/v1/player/seek", "", R"({"positionMs":0})");
    ask("POST /api/v1/player/volume", "", R"({"percent":50})");
    ask("POST /api/v1/player/shuffle", "", R"({"on":true})");
    ask("POST /api/v1/player/repeat", "", R"({"mode":"all"})");
    const std::string albumPath = album["Path"].toString().toStdString();
    ask("POST /api/v1/player/queue", "", R"({"action":"add","path":")" + albumPath + R"("})");
    const QJsonObject queue = ask("GET /api/v1/player/queue", "?from=1&to=3");
    EXPECT_EQ(queue["rows"].toArray().size(), 3);
    EXPECT_EQ(queue["rows"][0]["List"], album["Path"]);
    const QByteArray stale = QByteArray::number(queue["version"].toInt() - 1);
    EXPECT_EQ(streamer
                  .post("/api/v1/player/queue",
                        "{\"action\":\"jump\",\"position\":0,\"version\":" + stale + "}")
                  .status,
              409);
    for (const char* name : {"pause", "resume", "next", "previous", "stop"})
        ask(std::string("POST /api/v1/player/") + name);
    EXPECT_FALSE(ask("GET /api/v1/requests")["requests"].toArray().isEmpty());
    EXPECT_TRUE(streamer.waitForEvent("stream", [&](const QJsonObject& stream) {
        const std::string id = stream["id"].toString().toStdString();
        ask("POST /api/v1/events/paths", "", R"({"stream":")" + id + R"(","paths":["/tidal"]})");
        return true;
    }));
    for (const auto& [event, name] : {std::pair{"player", "Player"}, std::pair{"login", "Login"}}) {
        const YAML::Node schema = document.schema(name);
        EXPECT_TRUE(streamer.waitForEvent(event, [&](const QJsonObject& data) {
            EXPECT_EQ(document.fault(schema, data), "");
            return true;
        }));
    }
    auto acted = std::async(std::launch::async, [&] {
        return streamer.waitForEvent("acted", [&](const QJsonObject& edit) {
            EXPECT_EQ(document.fault(document.schema("Edit"), edit), "");
            return edit["action"] == "favorite";
        });
    });
    const QString menu = track["Context"]["Path"].toString().replace("?", "/favorites?");
    do
        ask("POST /api/v1/set", "",
            R"({"path":")" + menu.toStdString() + R"(","role":"Favorite","value":true})");
    while (acted.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready);
    EXPECT_TRUE(acted.get());
    for (const char* call : {"GET /api/v1/player", "GET /api/v1/texts", "GET /api/v1/session",
                             "GET /healthz", "GET /readyz", "DELETE /api/v1/login",
                             "POST /api/v1/login", "GET /api/v1/login", "GET /api/v1/logins"})
        ask(call);

    // A late answer is told of.
    ASSERT_TRUE(streamer.login());
    ASSERT_EQ(sim->addFault("hang path=/featured/new count=1"), "");
    auto late = std::async(std::launch::async, [this] {
        return streamer.get("/api/v1/rows?path=/tidal/req/featured/new/albums");
    });
    EXPECT_TRUE(streamer.waitForEvent("waiting", [&](const QJsonObject& waiting) {
        EXPECT_EQ(document.fault(document.schema("Waiting"), waiting), "");
        return waiting["for"] == "service";
    }));
    const QJsonObject ready = ask("GET /readyz", "?language=de");
    EXPECT_TRUE(ready["waiting"].toObject()["text"].toString().startsWith("wartet auf"));
    EXPECT_EQ(late.get().status, 504);
    const auto problem = streamer.get("/api/v1/rows?path=/nobody");
    EXPECT_EQ(document.fault(document.schema("Problem"), problem.body), "");
    for (const auto& call : ask.left)
        ADD_FAILURE() << call.first << " is described and not asked for here";
}
