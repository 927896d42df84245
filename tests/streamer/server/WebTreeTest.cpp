#include "Table.h"
#include "web/JsonRows.h"
#include "WebWorld.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QJsonArray>
#include <sys/socket.h>
#include <unistd.h>

namespace {

QJsonArray rowsOf(const WebWorld::Answer& answer)
{
    return answer.json["rows"].toArray();
}

} // namespace

TEST(WebTreeTest, AWideRangeIsFetchedInPagesAndJoined)
{
    WebWorld world;
    for (const auto& [query, first, size] :
         Table<const char*, int, int>{{"", 0, 50},
                                      {"&from=0&to=99", 0, 100},
                                      {"&from=0&to=5000", 0, 120},
                                      {"&from=100&to=2147483647", 100, 20},
                                      {"&from=2147483647", 0, 0},
                                      {"&from=119&to=119", 119, 1}}) {
        const auto answer = world.get(std::string("/api/v1/rows?path=/web/list") + query);
        ASSERT_EQ(answer.status, 200) << query;
        ASSERT_EQ(rowsOf(answer).size(), size) << query;
        EXPECT_EQ(answer.json["rowsCount"].toInt(), 120);
        for (int i = 0; i < size; ++i)
            EXPECT_EQ(rowsOf(answer).at(i).toObject().value("Title").toString(),
                      QString::number(first + i));
        EXPECT_EQ(answer.json["roles"].toObject().value("Title").toString(), "Long list");
    }
}

TEST(WebTreeTest, ARowCarriesItsRolesInTheirJsonShapes)
{
    WebWorld world;
    const auto answer = world.get("/api/v1/rows?path=/web/small");
    EXPECT_EQ(rowsOf(answer).at(0).toObject(),
              (QJsonObject{{"Path", "/web/a%20b?q=x%26y%3Dz"},
                           {"Type", "Audio"},
                           {"Title", QString::fromUtf8("Line\nbreak \u2028 \U0001F3B5")},
                           {"Context", QJsonObject{{"Path", "/web/small?id=1"}}}}));
    const auto few = world.get("/api/v1/rows?path=/web/small&roles=Title,NoSuchRole");
    EXPECT_EQ(rowsOf(few).at(0).toObject().keys(), QStringList{"Title"});
}

TEST(WebTreeTest, WhatWasReadIsKeptForThePlayerUntilSomethingIsSet)
{
    WebWorld world;
    const auto isKept = [&] {
        const CMPath track = CMPath::fromEncoded("/web/a%20b?q=x%26y%3Dz");
        return !world.player.kept.find(track, CMPath("/web/small"), 0).row.isEmpty();
    };
    world.get("/api/v1/rows?path=/web/small&roles=Path,Type");
    EXPECT_FALSE(isKept());
    for (const char* path : {"/web/echo", "/web/fail"}) {
        world.get("/api/v1/rows?path=/web/small");
        EXPECT_TRUE(isKept());
        world.set(QByteArray("{\"path\":\"") + path + "\"}");
        EXPECT_FALSE(isKept()) << path;
    }
}

TEST(WebTreeTest, ABlockOfRowsReadsLikeTheListOfItsRows)
{
    // Shared and own fields at each place of a hash, an own value that one row lacks, a column
    // without a value, one more than there are roles.
    KeloRowBlock block(5);
    block.column(0).own = 0;
    KeloRowBlock::Value inner = KeloRowBlock::hash({{"a", "x\"y"}, {"z", QVariant()}});
    inner.field("m").own = 1;
    KeloRowBlock::Value& outer = block.column(1) = KeloRowBlock::hash({{"b", 1}, {"c", 2}});
    outer.field("a").own = 2;
    outer.field("d") = inner;
    block.column(2).shared = QVariantHash{{"k", true}};
    block.column(4).shared = "hidden";
    for (const QVariantList& own :
         {QVariantList{"one", "p", 3}, QVariantList{QVariant(), "q", 4}}) {
        for (const QVariant& value : own)
            block.add(value);
        block.endRow();
    }
    const QStringList roles{"Title", "MediaData", "Value", "Icon"};
    JsonText compact;
    compact.beginArray();
    JsonRows(block, roles, nullptr).write(compact);
    compact.endArray();
    EXPECT_EQ(
        compact.text(),
        R"([{"Title":"one","MediaData":{"a":3,"b":1,"c":2,"d":{"a":"x\"y","m":"p","z":null}},)"
        R"("Value":{"k":true}},{"MediaData":{"a":4,"b":1,"c":2,"d":{"a":"x\"y","m":"q",)"
        R"("z":null}},"Value":{"k":true}}])");
    JsonText list;
    list.role(QString(), block.toList().at(0).toList().at(1));
    EXPECT_NE(compact.text().find(list.text()), std::string::npos) << list.text();
}

TEST(WebTreeTest, ARowIsFoundInTheListThatItStandsIn)
{
    WebWorld world;
    for (const auto& [query, list] : {std::pair{"?id=2", "/web/list"},
                                      {"?id=118", "/web/list"},
                                      {"?id=119%26trackId=7", "/web/list?id=119"}}) {
        const QJsonObject found = world.get(std::string("/api/v1/row?path=/web/list") + query).json;
        EXPECT_EQ(found["list"].toString(), QString(list));
        EXPECT_EQ(found["row"].toObject()["Title"].toString(),
                  QString::number(found["index"].toInt(-1)));
        EXPECT_TRUE(QString(query).startsWith(QString("?id=%1").arg(found["index"].toInt())));
    }
}

TEST(WebTreeTest, MalformedCallsGetASentenceAndTheTreesErrorsTheirStatus)
{
    WebWorld world;
    const std::string longPath = "rows?path=/" + std::string(5000, 'a');

    // detail: a part of it
    for (const auto& [target, status, detail] : Table<const char*, int, const char*>{
             {"rows", 400, "path: is missing"},
             {"rows?path=", 400, "path: is missing"},
             {"rows?path=/web/list?a=%25zz", 400, "path: is malformed"},
             {"rows?path=/web/%zz", 400, "malformed escape"},
             {longPath.c_str(), 400, "path: is longer than 4096"},
             {"rows?path=/web/list&from=one", 400, "from: wanted a whole number"},
             {"rows?path=/web/list&to=99999999999", 400, "to: wanted a whole number"},
             {"rows?path=/web/list&roles=", 400, "roles: wanted role names"},
             {"rows?path=/web/list&roles=A%20B", 400, "roles: wanted role names"},
             {"rows?path=/web/list&from=-1", 400, ""},
             {"rows?path=/web/list&from=5&to=4", 400, ""},
             {"rows?path=/nobody", 404, ""},
             {"data?path=/web/nothing", 404, ""},
             {"row?path=/web/list?id=120", 404, "no list has a row with the path /web/list?id=120"},
             {"nothing", 404, "there is no such address"},
             {"set", 405, "does not take GET"},
             {"events?path=/nobody", 404, "/nobody"},
             {"events?path=%25", 400, "path: is malformed"}}) {
        const auto answer = world.get(std::string("/api/v1/") + target);
        EXPECT_EQ(answer.status, status) << target;
        EXPECT_TRUE(answer.detail().contains(QLatin1String(detail)))
            << target << ": " << answer.detail().toStdString();
        EXPECT_EQ(answer.json["status"].toInt(), status);
        const auto type = answer.headers.find("Content-Type");
        ASSERT_NE(type, answer.headers.end());
        EXPECT_EQ(type->second, "application/problem+json");
    }
    EXPECT_EQ(world.get("/api/v1/data?path=/web/value&roles=Title").status, 200);
    EXPECT_EQ(world.get("/api/v1/rows?path=/web/list?a=1?2").json.value("path"),
              QJsonValue("/web/list?a=1%3F2"));
}

TEST(WebTreeTest, SetWrapsPlainValuesAndPassesObjectsAndErrorsOn)
{
    WebWorld world;
    // reply: the whole answer, or the problem's detail
    for (const auto& [body, status, reply] : Table<const char*, int, const char*>{
             {R"({"path":"/web/echo","value":"a"})", 200,
              R"({"reply":{"string_":"a","type":"string_"}})"},
             {R"({"path":"/web/echo","value":9007199254740993})", 200,
              R"({"reply":{"i64_":9007199254740992,"type":"i64_"}})"},
             {R"({"path":"/web/echo"})", 200, R"({"reply":{"i64_":1,"type":"i64_"}})"},
             {R"({"path":"/web/echo","value":["a","b"]})", 200,
              R"({"reply":{"stringList_":["a","b"],"type":"stringList_"}})"},
             {R"({"path":"/web/echo","value":{"a":{"b":[1,null]}}})", 200,
              R"({"reply":{"a":{"b":[1,null]}}})"},
             {R"({"path":"/web/echo","role":"PrePlay","value":"a"})", 200, R"({"reply":"a"})"},
             {R"({"path":"/web/fail"})", 502, "It failed"},
             {R"({"path":"/no"})", 404, nullptr},
             {R"({"path":5})", 400, "path: wanted a text"},
             {R"({"path":"/web/echo","role":7})", 400, "role: wanted a role name"},
             {"[]", 400, "the body is no JSON object"},
             {"{", 400, nullptr},
             {"\xff\xfe", 400, nullptr},
             {R"({"path":"/oauth2/add","value":{}})", 403,
              "login services are added by modules alone"}}) {
        const auto answer = world.set(body);
        EXPECT_EQ(answer.status, status) << body;
        const QString text =
            status == 200
                ? QString::fromUtf8(QJsonDocument(answer.json).toJson(QJsonDocument::Compact))
                : answer.detail();
        if (reply) {
            EXPECT_EQ(text.toStdString(), reply) << body;
        }
    }
    const auto failed = world.set(R"({"path":"/web/fail"})");
    EXPECT_EQ(failed.json["name"].toString(), "TIDAL");
    EXPECT_EQ(failed.json["title"].toString(), "Oh");
    EXPECT_EQ(world.post("/api/v1/set", std::string(1100000, ' ')).status, 413);
    EXPECT_EQ(world.set(QByteArray(500, '[')).status, 400);
}

TEST(WebLoginTest, ACallMeansTheServiceItNamesElseTheUsualOne)
{
    const std::string radio = R"({"displayName":"radio","loggedIn":true,"service":"radio"})";
    const std::string tidal = R"({"displayName":"tidal","loggedIn":false,"service":"tidal"})";
    for (const auto& [names, target, status, body] :
         Table<QStringList, std::string, int, std::string>{
             {{"radio", "tidal"}, "login", 200, tidal},
             {{"radio", "tidal"}, "login?service=radio", 200, radio},
             {{"radio", "tidal"}, "login/qr?service=radio", 404, "no login waits"},
             {{"radio", "tidal"}, "logins", 200, "{\"logins\":[" + radio + "," + tidal + "]}"},
             {{"radio", "tidal"}, "login?service=TIDAL", 404, "\"TIDAL\", only: radio, tidal"},
             {{"radio"}, "login", 200, radio},
             {{}, "login", 404, "there is no login service"},
             {{}, "login/qr?service=radio", 404, "there is no login service"},
             {{}, "logins", 200, R"({"logins":[]})"}}) {
        WebWorld world;
        world.login.names = names;
        httplib::Request request;
        request.path = "/api/v1/" + target;
        for (const char* method : {"POST", "DELETE"}) {
            request.method = method;
            const int expected =
                target == "logins" || target.find("qr") != target.npos ? 405 : status;
            EXPECT_EQ(world.call(request).status, expected) << method << target;
        }
        world.login.start("radio");
        const auto answer = world.get(request.path);
        EXPECT_EQ(answer.status, status) << target;
        if (status == 200)
            EXPECT_EQ(answer.body, body) << target;
        else
            EXPECT_TRUE(answer.detail().contains(body.c_str())) << answer.body;
    }
}

TEST(WebTreeTest, BodiesOfEveryFramingAreReadOrRefused)
{
    WebWorld world;
    const std::string head = "POST /api/v1/set HTTP/1.1\r\nHost: localhost\r\n";
    const std::string body = R"({"path":"/web/echo"})";
    const std::string size = std::to_string(body.size());
    for (const auto& [request, status] : Table<std::string, const char*>{
             {head + "\r\n", "400"}, // no body at all, and no waiting for one
             {head + "Content-Length: " + size + "\r\n\r\n" + body, "200"},
             {head + "Transfer-Encoding: chunked\r\n\r\n14\r\n" + body + "\r\n0\r\n\r\n", "200"},
             {head + "Content-Type: application/x-www-form-urlencoded\r\nContent-Length: " + size +
                  "\r\n\r\n" + body,
              "200"},
             {head + "Content-Type: multipart/form-data; boundary=b\r\nContent-Length: 7\r\n\r\n"
                     "--b--\r\n",
              "415"},
             {head + "Transfer-Encoding: identity\r\n\r\n" + body, "400"},
             {head + "Transfer-Encoding: chunked\r\n\r\n1;" + std::string(200000, 'a'), "400"}}) {
        EXPECT_EQ(world.statusOf(request), status) << request;
    }
}

TEST(WebTreeTest, StoppingAnswersWaitingCallsAndEndsIdleConnectionsAtOnce)
{
    WebWorld world;
    httplib::Client idle("127.0.0.1", world.server.port());
    idle.set_keep_alive(true);
    ASSERT_TRUE(idle.Get("/healthz"));
    auto waiting = std::async(std::launch::async, [&] {
        return world.post("/api/v1/player/play", R"({"path":"wait"})").status;
    });
    world.player.waiting.get_future().wait();
    QElapsedTimer timer;
    timer.start();
    world.server.stop();
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_EQ(waiting.get(), 503);
}

TEST(WebTreeTest, CallsThatWaitAndIdleConnectionsKeepNobodyFromTheServer)
{
    WebWorld world;
    const std::string head = "POST /api/v1/set HTTP/1.1\r\nHost: localhost\r\n";
    std::vector<int> sockets;
    for (int i = 0; i < 200; ++i) {
        sockets.push_back(
            world.connectTo(head + "Content-Length: 20\r\n\r\n{\"path\":\"/web/hold\"}"));
        sockets.push_back(world.connectTo(""));
        sockets.push_back(world.connectTo(head + "Content-Length: 20\r\n\r\n{\"path"));
    }
    EXPECT_EQ(world.get("/api/v1/rows?path=/web/list").status, 200);
    world.server.stop();
    std::string end(13, 0);
    EXPECT_EQ(::recv(sockets.front(), &end[0], 12, MSG_WAITALL), 12);
    EXPECT_EQ(end.substr(9, 3), "503");
    for (const int socket : sockets)
        ::close(socket);
}

TEST(WebTreeTest, AClientMaySendWithoutWaitingForAnswers)
{
    WebWorld world;
    const std::string get = " /healthz HTTP/1.1\r\nHost: localhost\r\n";
    const std::string end = get + "Connection: close\r\n\r\n";
    for (const auto& [sent, answers] : std::vector<std::pair<std::string, int>>{
             {"GET" + get + "\r\nGET" + get + "\r\nGET" + end, 3},
             {"HEAD" + get + "\r\nHEAD" + end, 2},
             {"HEAD /api/v1/events HTTP/1.1\r\nHost: localhost\r\n\r\nGET" + end, 2},
             {"GET" + get + "Content-Length: 2\r\n\r\n{}GET" + end, 2},
             {"GET" + get + "Transfer-Encoding: chunked\r\n\r\n2\r\n{}\r\n0\r\n\r\nGET" + end, 2},
             {"GET" + get + "Content-Length: 2\r\nTransfer-Encoding: chunked\r\n\r\n{}GET" + end,
              1},
             {"GET" + get + "Content-Length: x\r\n\r\nGET" + end, 1}}) {
        const int socket = world.connectTo(sent);
        std::string text;
        char part[4096];
        for (ssize_t size = 0; (size = ::recv(socket, part, sizeof part, 0)) > 0;)
            text.append(part, size_t(size));
        ::close(socket);
        int found = 0;
        for (size_t at = 0; (at = text.find("HTTP/1.1 ", at)) != std::string::npos; ++at)
            ++found;
        EXPECT_EQ(found, answers) << sent << text;
    }
}

TEST(WebTreeTest, MetricsCountCallsByTheirOutcome)
{
    WebWorld world;
    EXPECT_EQ(world.get("/readyz").detail(), "no module is loaded");
    world.get("/api/v1/rows?path=/nobody");
    const std::string metrics = world.get("/metrics").body;
    const char* const line = "kelo_http_requests_total{route=\"/api/v1/rows\",status=\"404\"} 1\n";
    EXPECT_NE(metrics.find(line), std::string::npos) << metrics;
}
