#include "PlayerQueueFixture.h"

#include <sys/stat.h>

namespace {
class KeptQueueTest : public PlayerQueueFixture
{
};

TEST_F(KeptQueueTest, IsKeptOverRestarts)
{
    addTracks(numbers(130));
    ASSERT_EQ(run("shuffle", {{"on", true}}), "ok");
    ASSERT_EQ(run("repeat", {{"mode", "all"}}), "ok");
    ASSERT_EQ(play(pathOf("5")), "ok");
    const QString second = next();
    ASSERT_EQ(add(pathOf("3")), "ok");
    ASSERT_EQ(add("4711"), "ok");
    const QString before = titles();
    const quint64 version = rows()["version"].toULongLong();
    restart();
    EXPECT_EQ(titles(), before);
    EXPECT_GT(rows()["version"].toULongLong(), version);
    EXPECT_EQ(status()["shuffle"], true);
    EXPECT_EQ(status()["repeat"], "all");
    EXPECT_EQ(previous(), "5");
    EXPECT_EQ(next(2), second + " 3");

    // It is not written at each change, and a crash loses little.
    const auto written = [this] { return QFileInfo(queueFile()).lastModified(); };
    QFile::remove(queueFile());
    next();
    time.advance(1999);
    ASSERT_EQ(run("volume", {{"percent", 50}}), "ok");
    EXPECT_FALSE(QFile::exists(queueFile()));
    time.advance(1);
    ASSERT_EQ(run("volume", {{"percent", 51}}), "ok");
    ASSERT_TRUE(QFile::exists(queueFile()));
    const QDateTime once = written();
    time.advance(10000);
    ASSERT_EQ(run("volume", {{"percent", 52}}), "ok");
    EXPECT_EQ(written(), once);
}

TEST_F(KeptQueueTest, AFileThatIsNoQueueIsPutAside)
{
    addTracks(numbers(3));
    for (const char* text :
         {"", "{", "[1]", "{}", R"({"version":0})", R"({"version":1,"origins":7})"}) {
        SCOPED_TRACE(text);
        ASSERT_EQ(play(pathOf("0")), "ok");
        ASSERT_EQ(add(pathOf("2")), "ok");
        const quint64 version = rows()["version"].toULongLong();
        time.advance(1000);
        player.reset();
        QFile file(queueFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) >= 0);
        file.close();
        startPlayer();
        EXPECT_TRUE(status()["note"].toString().contains(queueFile() + ".unreadable"));
        QFile aside(queueFile() + ".unreadable");
        ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
        EXPECT_EQ(aside.readAll(), text);
        EXPECT_EQ(titles(), "| 1 2 "); // what follows the item that is kept elsewhere
        EXPECT_GT(rows()["version"].toULongLong(), version);
        restart();
        EXPECT_EQ(status()["note"], QJsonValue());
    }
}

TEST_F(KeptQueueTest, AFileThatCannotBeReadOrIsOfALaterVersionIsLeftAlone)
{
    addTracks(numbers(3));
    const QByteArray later = R"({"version":2,"volume":7,"entries":"of another form"})";
    const QString playerFile = stateDir.filePath("player.json");
    for (const QString kind : {"later", "folder", "pipe"}) {
        const bool isLater = kind == "later";
        player.reset();
        for (const QString& name : {queueFile(), playerFile}) {
            QFile::remove(name);
            QDir().rmdir(name);
            QFile file(name);
            // Nobody, root neither, can read a folder as a file, and a pipe would be waited for.
            ASSERT_TRUE(isLater ? file.open(QIODevice::WriteOnly) && file.write(later) > 0
                        : kind == "folder"
                            ? QDir().mkdir(name)
                            : ::mkfifo(QFile::encodeName(name).constData(), 0600) == 0);
        }
        startPlayer();
        EXPECT_TRUE(status()["note"].toString().contains("the queue is not kept: " + queueFile()));
        EXPECT_EQ(status()["volume"], isLater ? 7 : 100);
        ASSERT_EQ(play(pathOf("0")), "ok");
        ASSERT_EQ(add(pathOf("2")), "ok");
        time.advance(10000);
        ASSERT_EQ(run("volume", {{"percent", 50}}), "ok");
        player.reset();
        for (const QString& name : {queueFile(), playerFile}) {
            QFile file(name);
            EXPECT_EQ(QFileInfo(name).isFile(), isLater);
            EXPECT_TRUE(!isLater || (file.open(QIODevice::ReadOnly) && file.readAll() == later));
            EXPECT_FALSE(QFile::exists(name + ".unreadable"));
        }
    }
    startPlayer();
}

TEST_F(KeptQueueTest, AFolderThatCannotBeWrittenIsToldOfOnce)
{
    addTracks(numbers(3));
    player.reset();
    const QString folder = stateDir.path();
    ASSERT_TRUE(QDir(folder).removeRecursively());
    QFile file(folder);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    startPlayer();
    time.advance(2000);
    waitFor([](const QJsonObject& status) {
        return status["note"].toString().contains("/queue.json: File exists");
    });
    ASSERT_EQ(play(pathOf("0")), "ok");
    ASSERT_EQ(add(pathOf("2")), "ok");
    time.advance(10000);
    ASSERT_EQ(run("volume", {{"percent", 50}}), "ok");
    EXPECT_EQ(status()["note"], QJsonValue());

    ASSERT_TRUE(file.remove() && QDir().mkpath(folder)); // from here on it is kept again
    ASSERT_EQ(add(pathOf("1")), "ok");
    const QString before = titles();
    restart();
    EXPECT_EQ(titles(), before);
}
} // namespace
