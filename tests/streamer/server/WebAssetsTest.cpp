#include "WebWorld.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <regex>
#include <sstream>

namespace {

void write(const QString& file, const QByteArray& content)
{
    QFile output(file);
    ASSERT_TRUE(output.open(QIODevice::WriteOnly)) << file.toStdString();
    output.write(content);
}

} // namespace

TEST(WebAssetsTest, ServesTheFilesOfAFolderAsTheyStandNow)
{
    QTemporaryDir dir;
    const QString page = dir.filePath("page");
    ASSERT_TRUE(QDir().mkpath(page + "/parts/deep"));
    write(dir.filePath("outside.js"), "secret");
    for (const char* name : {"index.html", "app.js", "parts/row-2.mjs", "parts/deep/x.js",
                             "UPPER.js", "notes.txt", "two.dots.js", ".hidden.js", "plain"})
        write(page + '/' + QString::fromLatin1(name), name);
    WebWorld world({"127.0.0.1", 0, {}, {}, page});

    const char* script = "text/javascript; charset=utf-8";
    for (const auto& [target, type] :
         {std::pair{"/", "text/html; charset=utf-8"}, std::pair{"/app.js?v=1", script},
          std::pair{"/%61pp.js", script}, std::pair{"/parts/row-2.mjs", script}}) {
        EXPECT_EQ(world.get(target).status, 200) << target;
        EXPECT_EQ(world.get(target).header("Content-Type"), type) << target;
    }
    std::istringstream others(
        "/missing.js /parts /parts/ /parts/deep/x.js //app.js /./app.js /UPPER.js "
        "/notes.txt /two.dots.js /.hidden.js /plain /../outside.js "
        "/parts/../../outside.js /%2e%2e/outside.js /..%2foutside.js "
        "/%252e%252e%252foutside.js /..%5coutside.js /..\\outside.js /app.js%00.html "
        "/%c0%ae%c0%ae/outside.js /%uff0e%uff0e/outside.js");
    for (std::string target; others >> target;) {
        EXPECT_EQ(world.get(target).status, 404) << target;
        EXPECT_EQ(world.get(target).header("Content-Type"), "application/problem+json") << target;
    }
    EXPECT_EQ(world.post("/app.js", "").status, 405);
    for (const std::string& target :
         {std::string("/app.js\0.html", 13), std::string("../outside.js"),
          std::string("http://evil.example/../outside.js")}) {
        const std::string status =
            world.statusOf("GET " + target + " HTTP/1.1\r\nHost: localhost\r\n\r\n");
        EXPECT_TRUE(status == "400" || status == "404") << target << ": " << status;
    }

    const auto first = world.get("/app.js");
    const std::string tag = first.header("ETag");
    EXPECT_EQ(first.header("Cache-Control"), "no-cache");
    for (const std::string& known : {tag, "\"a\", " + tag, tag.substr(2), std::string("*")}) {
        const auto again = world.get("/app.js", {{"If-None-Match", known}});
        EXPECT_EQ(again.status, 304) << known;
        EXPECT_EQ(again.body, "");
        EXPECT_EQ(again.header("ETag"), tag);
    }
    write(page + "/app.js", "changed");
    EXPECT_EQ(world.get("/app.js", {{"If-None-Match", tag}}).body, "changed");
}

TEST(WebAssetsTest, OfTheBuiltInPageOnlyTheStartIsAskedForAgain)
{
    WebWorld world;
    const auto start = world.get("/");
    EXPECT_EQ(start.status, 200);
    EXPECT_EQ(world.get("/", {{"If-None-Match", start.header("ETag")}}).status, 304);
    std::smatch address;
    ASSERT_TRUE(std::regex_search(start.body, address, std::regex("src=\"(\\w+/app\\.js)\"")));
    const auto script = world.get("/" + address.str(1));
    EXPECT_EQ(script.status, 200);
    EXPECT_EQ(script.header("Cache-Control"), "public, max-age=31536000, immutable");
    EXPECT_EQ(world.get("/0123456789abcdef/app.js").status, 404);
}
