#include "host/ScriptedServer.h"
#include "qr/QrMatrix.h"
#include "WebWorld.h"

#include <gtest/gtest.h>
#include <QUrl>
#include <regex>
#include <set>

namespace {

const std::string picture = "\x89PNG and so on";

/// The picture's file name says what the server does.
ScriptedServer::Answer answer(const std::string& request)
{
    const auto has = [&request](const char* name) {
        return request.find(name) != std::string::npos;
    };
    if (has("hang"))
        return {"", ScriptedServer::Then::Hang};
    if (has("broken"))
        return {"HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\nx", ScriptedServer::Then::Close};
    if (has("missing"))
        return {ScriptedServer::whole("no", {}, "403 Forbidden")};
    if (has("ill"))
        return {ScriptedServer::whole("no", {}, "500 Oh")};
    if (has("moved"))
        return {ScriptedServer::whole("", "Location: /images/a.png\r\n", "302 Found")};
    if (has("drawing"))
        return {ScriptedServer::whole("<svg/>", "Content-Type: image/svg+xml\r\n")};
    if (has("page"))
        return {ScriptedServer::whole("<p>", "Content-Type: text/html\r\n")};
    const std::string type = "Content-Type: Image/PNG; a=b\r\n";
    if (has("large"))
        return {ScriptedServer::whole(std::string(4 * 1024 * 1024 + 1, 'x'), type)};
    return {ScriptedServer::whole(picture, type)};
}

/// A web server whose pictures come from a scripted one.
struct ImageWorld
{
    std::string call(const std::string& url) const
    {
        return "/api/v1/image?url=" +
               QUrl::toPercentEncoding(QString::fromStdString(url)).toStdString();
    }
    WebWorld::Answer get(const std::string& url) const { return world.get(call(url)); }

    ScriptedServer server{answer};
    WebWorld world{
        {"127.0.0.1", 0, {}, {}, {}, QString::fromStdString(server.url("/images/")), [this] {
             return QStringList{"",
                                "http://",
                                "http:///",
                                "file:///etc/",
                                QString::fromStdString(server.url("/covers")),
                                QString::fromStdString(server.url("/shelf/"))};
         }}};
};

} // namespace

TEST(WebImageTest, FetchesPicturesOfTheServiceAndNothingElse)
{
    ImageWorld world;
    const std::string base = world.server.url("/images/");
    const std::string port = std::to_string(world.server.port());
    const auto check = [&](const std::string& url, int status, bool isFetched) {
        const size_t before = world.server.requests().size();
        const auto got = world.get(url);
        EXPECT_EQ(got.status, status) << url;
        EXPECT_EQ(world.server.requests().size() - before, isFetched ? 1u : 0u) << url;
        EXPECT_EQ(got.header("Content-Type"),
                  status == 200 ? "image/png" : "application/problem+json");
        EXPECT_EQ(got.header("Cache-Control"),
                  status == 200 ? "private, max-age=86400" : "no-store");
    };
    check("", 400, false);
    check(base + "a/b-c/320x320.jpg?v=1", 200, true);
    check("http://127.0.0.1:1/images/kept-from-an-earlier-demo.png", 200, true);
    check(world.server.url("/shelf/a.png"), 200, true); // another module's
    check(world.server.url("/shelf/../a.png"), 403, false);
    check(world.server.url("/coversecret.png"), 403, false);
    check(base + "missing.png", 404, true);
    for (const char* name : {"ill", "broken", "moved", "drawing", "page", "large"})
        check(base + name + ".png", 502, true);
    for (const char* name : {"", "../secret.png", "a/../../secret.png", "./a.png", "..", "..?a.png",
                             "%2e%2e/secret.png", "..%2fsecret.png", "..\\secret.png", "/a.png",
                             "a.png#b", "a.png\r\nX: y"})
        check(base + name, 403, false);
    check(base + std::string("a\0.png", 6), 403, false);
    check(base + std::string(2048, 'a'), 403, false);
    for (const std::string& url :
         {world.server.url("/other/a.png"), std::string("http://evil.example/images/a.png"),
          "http://127.0.0.1:" + port + "@evil.example/images/",
          "https://127.0.0.1:" + port + "/images/a.png",
          "HTTP://127.0.0.1:" + port + "/images/a.png", std::string("file:///etc/passwd")})
        check(url, 403, false);
    EXPECT_EQ(world.get(base + "a.png").body, picture);
    EXPECT_EQ(
        world.world.get(world.call(base + "a.png"), {{"Sec-Fetch-Site", "cross-site"}}).status,
        403);
}

TEST(WebImageTest, EqualAddressesAreFetchedOnceAndTooManyAreRefused)
{
    ImageWorld world;
    const std::string base = world.server.url("/images/");
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<int> statuses;
    std::vector<std::future<void>> calls;
    for (int i = 0; i < 65; ++i) {
        calls.push_back(std::async(std::launch::async, [&, i] {
            const int status =
                world.get(base + "hang" + std::to_string(i < 10 ? i : 0) + ".png").status;
            std::lock_guard<std::mutex> lock(mutex);
            statuses.push_back(status);
            changed.notify_all();
        }));
    }
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [&] { return !statuses.empty(); });
        EXPECT_EQ(statuses, std::vector<int>{503}) << "one more than may wait";
    }
    world.world.server.stop();
    for (auto& call : calls)
        call.get();
    EXPECT_EQ(statuses, std::vector<int>(65, 503));
    const auto asked = world.server.requests();
    EXPECT_LE(asked.size(), 6u) << "at once";
    EXPECT_EQ(std::set<std::string>(asked.begin(), asked.end()).size(), asked.size());
}

TEST(WebImageTest, TheCodeOfAPendingLoginIsAPicture)
{
    WebWorld world;
    EXPECT_EQ(world.get("/api/v1/login/qr").status, 404);
    const QString address = "link.example/ABCDE";
    KeloOAuth2Info pending;
    pending.setVerificationUri("https://other");
    pending.setVerificationUriComplete(address);
    world.login.tell("tidal", pending);
    const auto answer = world.get("/api/v1/login/qr");
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.header("Content-Type"), "image/svg+xml");
    EXPECT_EQ(answer.header("Cache-Control"), "no-store");

    const QrMatrix code = QrMatrix::encode("https://" + address);
    std::vector<std::string> drawn(size_t(code.size()), std::string(size_t(code.size()), ' '));
    const std::regex run("M(\\d+) (\\d+)h(\\d+)v1");
    for (std::sregex_iterator it(answer.body.begin(), answer.body.end(), run), end; it != end; ++it)
        drawn.at(std::stoul((*it)[2]) - 4)
            .replace(std::stoul((*it)[1]) - 4, std::stoul((*it)[3]), std::stoul((*it)[3]), '#');
    for (int y = 0; y < code.size(); ++y) {
        for (int x = 0; x < code.size(); ++x)
            ASSERT_EQ(drawn[size_t(y)][size_t(x)] == '#', code.isDark(x, y)) << x << ' ' << y;
    }
    EXPECT_NE(answer.body.find("viewBox=\"0 0 " + std::to_string(code.size() + 8)),
              std::string::npos);
}
