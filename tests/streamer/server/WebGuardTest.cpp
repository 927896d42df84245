#include "WebWorld.h"

#include <gtest/gtest.h>

TEST(WebGuardTest, ForeignHostsAndOriginsAreRefused)
{
    WebWorld world;
    const std::string own = "127.0.0.1:" + std::to_string(world.server.port());
    const std::string token =
        world.get("/api/v1/session").json.value(QStringLiteral("token")).toString().toStdString();
    ASSERT_EQ(token.size(), 64u);
    struct Case
    {
        const char* name;
        httplib::Headers headers;
        int get;
        int post;
    };
    for (const Case& row :
         {Case{"a script", {}, 200, 200}, Case{"localhost", {{"Host", "localhost:8095"}}, 200, 200},
          Case{"IPv6", {{"Host", "[::1]:8095"}}, 200, 200},
          Case{"upper case and dot", {{"Host", "LOCALHOST."}}, 200, 200},
          Case{"a rebound name", {{"Host", "evil.example"}}, 403, 403},
          Case{"a name that begins well", {{"Host", "localhost.evil.example"}}, 403, 403},
          Case{"another address", {{"Host", "192.0.2.1"}}, 403, 403},
          Case{"two hosts", {{"Host", "localhost"}, {"Host", "evil.example"}}, 403, 403},
          Case{"an empty host", {{"Host", ""}}, 403, 403},
          Case{"own page", {{"Origin", "http://" + own}}, 200, 403},
          Case{"own page with token",
               {{"Origin", "http://" + own}, {"X-Kelo-Session", token}},
               200,
               200},
          Case{"own page, old token",
               {{"Origin", "http://" + own}, {"X-Kelo-Session", "old"}},
               200,
               403},
          Case{"another port's page",
               {{"Origin", "http://127.0.0.1:1"}, {"X-Kelo-Session", token}},
               403,
               403},
          Case{"a foreign page", {{"Origin", "http://evil.example"}}, 403, 403},
          Case{"a sandboxed page", {{"Origin", "null"}}, 403, 403},
          Case{"an image of a foreign page", {{"Sec-Fetch-Site", "cross-site"}}, 403, 403},
          Case{"typed by the user", {{"Sec-Fetch-Site", "none"}}, 200, 200}}) {
        EXPECT_EQ(world.get("/api/v1/login", row.headers).status, row.get) << row.name;
        EXPECT_EQ(world.post("/api/v1/login", "", row.headers).status, row.post) << row.name;
    }
    // A server bound to all addresses is reached under any of them, but not under foreign names.
    WebWorld open({QStringLiteral("0.0.0.0"), 0, {}, {QStringLiteral("music.lan")}});
    EXPECT_EQ(open.get("/healthz", {{"Host", "192.0.2.1:8095"}}).status, 200);
    EXPECT_EQ(open.get("/healthz", {{"Host", "Music.lan"}}).status, 200);
    EXPECT_EQ(open.get("/healthz", {{"Host", "evil.example"}}).status, 403);
}

TEST(WebGuardTest, EveryAnswerForbidsFramesSniffingAndSharing)
{
    WebWorld world;
    const httplib::Headers foreign{{"Host", "evil.example"}};
    struct Case
    {
        const char* target;
        httplib::Headers headers;
        const char* caching;
    };
    for (const Case& row :
         {Case{"/", {}, "no-cache"}, Case{"/nothing", {}, "no-store"},
          Case{"/api/v1/player", {}, "no-store"}, Case{"/api/v1/rows", {}, "no-store"},
          Case{"/api/v1/player", foreign, "no-store"}}) {
        const auto answer = world.get(row.target, row.headers);
        EXPECT_EQ(answer.header("X-Content-Type-Options"), "nosniff") << row.target;
        EXPECT_EQ(answer.header("X-Frame-Options"), "DENY");
        EXPECT_EQ(answer.header("Cross-Origin-Resource-Policy"), "same-origin");
        EXPECT_EQ(answer.header("Cache-Control"), row.caching) << row.target;
        EXPECT_EQ(answer.header("Content-Security-Policy"),
                  "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self'; "
                  "img-src 'self' data:; manifest-src 'self'; base-uri 'none'; "
                  "form-action 'none'; frame-ancestors 'none'");
        EXPECT_EQ(answer.header("Access-Control-Allow-Origin"), "");
    }
}

TEST(WebGuardTest, APortInUseIsASentence)
{
    WebWorld world;
    WebServer second({QStringLiteral("127.0.0.1"), world.server.port(), {}, {}}, world.player,
                     world.login);
    QString error;
    EXPECT_FALSE(second.start(&error));
    EXPECT_EQ(error, QStringLiteral("cannot listen on 127.0.0.1:%1: Address already in use")
                         .arg(world.server.port()));
}
