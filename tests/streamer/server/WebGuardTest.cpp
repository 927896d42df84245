#include "Table.h"
#include "WebWorld.h"

#include <gtest/gtest.h>

namespace {

/// Calls with these headers that do not get the status; each as "METHOD PATH: status".
std::string otherThan(const WebWorld& world, const std::vector<std::string>& calls,
                      const httplib::Headers& headers, int status)
{
    std::string others;
    for (const std::string& call : calls) {
        const size_t blank = call.find(' ');
        httplib::Request request;
        request.method = call.substr(0, blank);
        request.path = call.substr(blank + 1);
        request.headers = headers;
        const int got = world.call(request).status;
        if (got != status)
            others += call + ": " + std::to_string(got) + "  ";
    }
    return others;
}

/// Every call of the server, those that change something alone, and the page's files.
std::vector<std::string> calls(const WebWorld& world, bool changingAlone)
{
    std::vector<std::string> all;
    for (const std::string& call : world.server.routes()) {
        if (!changingAlone || call.rfind("GET ", 0) != 0)
            all.push_back(call);
    }
    if (!changingAlone)
        all.insert(all.end(), {"GET /", "HEAD /", "GET /index.html", "GET /nothing", "OPTIONS /"});
    return all;
}

} // namespace

TEST(WebGuardTest, ForeignHostsAndOriginsAreRefusedByEveryCallOnEveryBind)
{
    for (const char* bind : {"127.0.0.1", "0.0.0.0"}) {
        WebWorld world({QString::fromLatin1(bind), 0, {}, {"Music.lan"}});
        const std::string address = "127.0.0.1:" + std::to_string(world.server.port());
        const std::string token =
            world.get("/api/v1/session").json["token"].toString().toStdString();
        ASSERT_EQ(token.size(), 64u);
        ASSERT_GT(calls(world, false).size(), 25u);
        // What calls that change nothing are answered with, then those that change something; where
        // the first is 403, every call.
        const httplib::Headers::value_type own{"Origin", "http://" + address};
        const httplib::Headers::value_type session{"X-Kelo-Session", token};
        const httplib::Headers proxied{
            {"Host", "music.lan"}, {"Origin", "https://music.lan"}, session};
        for (const auto& [get, post, name, headers] :
             Table<int, int, const char*, httplib::Headers>{
                 {200, 200, "a script", {}},
                 {200, 200, "localhost", {{"Host", "localhost:8095"}}},
                 {200, 200, "IPv6", {{"Host", "[::1]:8095"}}},
                 {200, 200, "upper case and dot", {{"Host", "LOCALHOST."}}},
                 {200, 200, "a name of the settings", {{"Host", "music.lan:8095"}}},
                 {403, 403, "a rebound name", {{"Host", "evil.example"}}},
                 {403, 403, "a name that begins well", {{"Host", "localhost.evil.example"}}},
                 {403, 403, "two hosts", {{"Host", "localhost"}, {"Host", "evil.example"}}},
                 {403, 403, "an empty host", {{"Host", ""}}},
                 {200, 403, "own page", {own}},
                 {200, 200, "own page with token", {own, session}},
                 {200, 200, "own page behind a proxy", proxied},
                 {200, 403, "own page, old token", {own, {"X-Kelo-Session", "old"}}},
                 {403, 403, "another port's page", {{"Origin", "http://127.0.0.1:1"}, session}},
                 {403, 403, "a foreign page", {{"Origin", "http://evil.example"}}},
                 {403, 403, "a sandboxed page", {{"Origin", "null"}}},
                 {403, 403, "an image of a foreign page", {{"Sec-Fetch-Site", "cross-site"}}},
                 {403, 403, "a page of a neighbour", {{"Sec-Fetch-Site", "same-site"}}},
                 {200, 200, "typed by the user", {{"Sec-Fetch-Site", "none"}}}}) {
            EXPECT_EQ(world.get("/api/v1/login", headers).status, get) << name;
            EXPECT_EQ(world.post("/api/v1/login", "", headers).status, post) << name;
            if (post == 403) {
                EXPECT_EQ(otherThan(world, calls(world, get == 200), headers, 403), "")
                    << name << " at " << bind;
            }
        }
        httplib::Headers link{{"Sec-Fetch-Site", "cross-site"}, {"Sec-Fetch-Mode", "navigate"}};
        EXPECT_EQ(world.get("/", link).status, 403) << "a frame";
        link.emplace("Sec-Fetch-Dest", "document");
        EXPECT_EQ(world.get("/", link).status, 200) << "a link that the user follows";
        EXPECT_EQ(world.get("/api/v1/login", link).status, 403);
        // An address cannot be rebound: bound to all, the server is reached under any of its own.
        const int expected = bind[0] == '0' ? 200 : 403;
        EXPECT_EQ(world.get("/healthz", {{"Host", "192.0.2.1:8095"}}).status, expected);
    }
}

TEST(WebGuardTest, EveryAnswerForbidsFramesSniffingAndSharing)
{
    WebWorld world;
    const std::string tag = world.get("/").header("ETag");
    for (const auto& [method, target, headers, status, caching] :
         Table<const char*, std::string, httplib::Headers, int, const char*>{
             {"GET", "/", {}, 200, "no-cache"},
             {"GET", "/", {{"If-None-Match", tag}}, 304, "no-cache"},
             {"HEAD", "/", {}, 200, "no-cache"},
             {"POST", "/", {}, 405, "no-store"},
             {"GET", "/nothing", {}, 404, "no-store"},
             {"OPTIONS", "/api/v1/set", {{"Origin", "http://evil.example"}}, 403, "no-store"},
             {"GET", "/api/v1/player", {}, 200, "no-store"},
             {"GET", "/api/v1/rows?path=%zz", {}, 400, "no-store"},
             {"GET", "/api/v1/image?url=http://evil.example/", {}, 403, "no-store"},
             {"GET", "/api/v1/player", {{"Host", "evil.example"}}, 403, "no-store"},
             {"GET", "/" + std::string(9000, 'a'), {}, 414, "no-store"}}) {
        httplib::Request request;
        request.method = method;
        request.path = target;
        request.headers = headers;
        const auto answer = world.call(request);
        const std::string name = method + (' ' + target.substr(0, 40));
        EXPECT_EQ(answer.status, status) << name;
        EXPECT_EQ(answer.header("X-Content-Type-Options"), "nosniff") << name;
        EXPECT_EQ(answer.header("X-Frame-Options"), "DENY") << name;
        EXPECT_EQ(answer.header("Cross-Origin-Resource-Policy"), "same-origin") << name;
        EXPECT_EQ(answer.header("Cache-Control"), caching) << name;
        EXPECT_EQ(answer.header("Content-Security-Policy"),
                  "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self'; "
                  "img-src 'self' data:; manifest-src 'self'; base-uri 'none'; "
                  "form-action 'none'; frame-ancestors 'none'")
            << name;
        for (const auto& field : answer.headers)
            EXPECT_NE(field.first.substr(0, 14), "Access-Control") << name;
        if (status >= 400) {
            EXPECT_EQ(answer.header("Content-Type"), "application/problem+json") << name;
        }
    }
}

TEST(WebGuardTest, APortInUseIsASentence)
{
    WebWorld world;
    WebServer second({"127.0.0.1", world.server.port(), {}, {}}, world.player, world.login);
    QString error;
    EXPECT_FALSE(second.start(&error));
    EXPECT_EQ(
        error,
        QString("cannot listen on 127.0.0.1:%1: Address already in use").arg(world.server.port()));
}
