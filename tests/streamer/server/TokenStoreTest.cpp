#include "LoginWorld.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

namespace {

TokenSet someTokens()
{
    TokenSet tokens;
    tokens.access = Secret("A");
    tokens.refresh = Secret("R");
    tokens.obtainedAtMs = 1700000000000;
    tokens.lifetimeMs = 3600000;
    return tokens;
}

int modeOf(const QString& file)
{
    struct stat status = {};
    ::stat(QFile::encodeName(file).constData(), &status);
    return int(status.st_mode & 0777);
}

} // namespace

TEST(TokenStoreTest, KeepsTokensForTheOwnerAlone)
{
    QTemporaryDir folder;
    TokenStore store(folder.path() + "/deep/oauth2");
    const auto info = LoginWorld::info();
    store.save(info, someTokens());
    EXPECT_EQ(modeOf(store.fileName(info)), 0600);
    EXPECT_EQ(modeOf(QFileInfo(store.fileName(info)).path()), 0700);
    const TokenSet back = store.load(info);
    EXPECT_EQ(back.access.reveal(), "A");
    EXPECT_EQ(back.refresh.reveal(), "R");
    EXPECT_TRUE(back.isAlive(1700000000001));
    EXPECT_FALSE(back.isAlive(1699999999999)) << "a token of the future";

    // What could not be read again is not written.
    TokenSet large = someTokens();
    large.access = Secret(QString(100000, 'x'));
    store.save(info, large);
    EXPECT_EQ(store.load(info).access.reveal(), "A");

    auto otherClient = info;
    otherClient.setClientId("another");
    EXPECT_TRUE(store.load(otherClient).isEmpty());
    auto otherService = info;
    otherService.setTokenUrl("https://elsewhere.invalid/token");
    EXPECT_TRUE(store.load(otherService).isEmpty());

    // An end in the middle of saving leaves a draft; what else stands there is not ours to remove.
    const QStringList others{"tidal.json.new.new", "else.json.new", "tidal.new"};
    const QDir place(QFileInfo(store.fileName(info)).path());
    for (const QString& name : others + QStringList{"tidal.json.new"}) {
        QFile file(place.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("{\"acc") > 0);
    }
    EXPECT_EQ(store.load(info).access.reveal(), "A");
    EXPECT_FALSE(place.exists("tidal.json.new"));
    for (const QString& name : others)
        EXPECT_TRUE(place.exists(name)) << name.toStdString();

    store.remove(info);
    EXPECT_TRUE(store.load(info).isEmpty());
}

TEST(TokenStoreTest, ADamagedFileCountsAsLoggedOut)
{
    for (const QByteArray& text :
         {QByteArray(), QByteArray("{"), QByteArray("[1,2]"), QByteArray("\0\xff\xfe", 3),
          QByteArray(100000, 'x'), QByteArray(R"({"accessToken":5})"),
          QByteArray(R"({"tokenUrl":"https://auth.example.invalid/token","clientId":"client"})")}) {
        QTemporaryDir folder;
        QFile file(folder.path() + "/tidal.json");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        LoginWorld world(folder.path());
        EXPECT_EQ(world.log, (QStringList{"token ", "logged out"})) << text.toStdString();
        const bool isObject = text.startsWith("{\"");
        const QString aside = file.fileName() + ".unreadable";
        EXPECT_EQ(QFile::exists(aside), !isObject);
        EXPECT_EQ(modeOf(aside), isObject ? 0 : 0600);
        world.send("logout"); // no part of a token stays
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
    }
}

TEST(TokenStoreTest, ReadsWhatHadNoVersionAndLeavesALaterOneAlone)
{
    QByteArray text = R"({VERSION"accessToken":"A","clientId":"CLIENT","lifetimeMs":3600000,)"
                      R"("obtainedAtMs":1700000000000,"refreshToken":"R","tokenUrl":"URL"})";
    const auto info = LoginWorld::info();
    text.replace("CLIENT", info.clientId().toUtf8()).replace("URL", info.tokenUrl().toUtf8());
    for (const char* version : {"", R"("version":1,)", R"("version":2,)"}) {
        QTemporaryDir folder;
        QFile file(folder.path() + "/tidal.json");
        const QByteArray content = QByteArray(text).replace("VERSION", version);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write(content) > 0 && file.flush());
        TokenStore store(folder.path());
        const bool isLater = QByteArray(version).contains('2');
        EXPECT_EQ(store.load(info).refresh.reveal(), isLater ? "" : "R");
        store.save(info, someTokens());
        store.remove(info);
        EXPECT_EQ(file.exists(), isLater);
        file.seek(0);
        EXPECT_EQ(file.readAll(), content); // the file that was opened is never written in place
    }
}
