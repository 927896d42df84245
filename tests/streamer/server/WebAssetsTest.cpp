#include "WebWorld.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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
    const QString page = dir.filePath(QStringLiteral("page"));
    ASSERT_TRUE(QDir().mkpath(page + QStringLiteral("/parts/deep")));
    write(dir.filePath(QStringLiteral("outside.js")), "secret");
    for (const char* name : {"index.html", "app.js", "parts/row-2.mjs", "parts/deep/x.js",
                             "UPPER.js", "notes.txt", "two.dots.js", ".hidden.js", "plain"})
        write(page + '/' + QString::fromLatin1(name), name);
    WebWorld world({QStringLiteral("127.0.0.1"), 0, {}, {}, page});

    struct Case
    {
        const char* target;
        int status;
        const char* type;
    };
    const std::string problem = "application/problem+json";
    for (const Case& row : {Case{"/", 200, "text/html; charset=utf-8"},
                            Case{"/app.js?v=1", 200, "text/javascript; charset=utf-8"},
                            Case{"/%61pp.js", 200, "text/javascript; charset=utf-8"},
                            Case{"/parts/row-2.mjs", 200, "text/javascript; charset=utf-8"},
                            Case{"/missing.js", 404, ""},
                            Case{"/parts", 404, ""},
                            Case{"/parts/", 404, ""},
                            Case{"/parts/deep/x.js", 404, ""},
                            Case{"//app.js", 404, ""},
                            Case{"/./app.js", 404, ""},
                            Case{"/UPPER.js", 404, ""},
                            Case{"/notes.txt", 404, ""},
                            Case{"/two.dots.js", 404, ""},
                            Case{"/.hidden.js", 404, ""},
                            Case{"/plain", 404, ""},
                            Case{"/../outside.js", 404, ""},
                            Case{"/parts/../../outside.js", 404, ""},
                            Case{"/%2e%2e/outside.js", 404, ""},
                            Case{"/..%2foutside.js", 404, ""},
                            Case{"/%252e%252e%252foutside.js", 404, ""},
                            Case{"/..%5coutside.js", 404, ""},
                            Case{"/..\\outside.js", 404, ""},
                            Case{"/app.js%00.html", 404, ""},
                            Case{"/%c0%ae%c0%ae/outside.js", 404, ""},
                            Case{"/%uff0e%uff0e/outside.js", 404, ""}}) {
        const auto answer = world.get(row.target);
        EXPECT_EQ(answer.status, row.status) << row.target;
        EXPECT_EQ(answer.header("Content-Type"), row.status == 200 ? row.type : problem);
        EXPECT_EQ(answer.body.find("secret"), std::string::npos) << row.target;
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
    write(page + QStringLiteral("/app.js"), "changed");
    EXPECT_EQ(world.get("/app.js", {{"If-None-Match", tag}}).body, "changed");
}

TEST(WebAssetsTest, TheStartPageIsBuiltIn)
{
    WebWorld world;
    const auto start = world.get("/");
    EXPECT_EQ(start.status, 200);
    EXPECT_NE(start.body.find("<title>"), std::string::npos);
    EXPECT_EQ(world.get("/", {{"If-None-Match", start.header("ETag")}}).status, 304);
}
