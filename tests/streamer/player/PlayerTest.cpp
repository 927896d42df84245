#include "ItemRoles.h"
#include "PlayerFixture.h"
#include "PlayerStore.h"
#include "Table.h"
#include <kelo/KeloTidalTypes.h>

namespace {
using PlayerTest = PlayerFixture;

TEST_F(PlayerTest, PlaysWhatAPathNames)
{
    QList<KeloRoles> rows;
    for (int i = 0; i < 50; ++i) // a page without a track
        rows << FakeModule::row(KeloRolesType::Header_, "Head");
    for (int i = 1; i <= 120; ++i)
        rows << FakeModule::track(list, QString::number(i));
    module->addList(list, rows);
    module->addList(CMPath("/fake/texts"), {FakeModule::row(KeloRolesType::Text_, "Nothing")});
    // Another service may tell its rows apart by a segment or by a parameter of its own.
    KeloRoles bySegment = FakeModule::track(list, "201");
    bySegment.setPath(CMPath("/fake/segments/one"));
    KeloRoles byParam = FakeModule::track(list, "202");
    byParam.setPath(CMPath("/fake/params", {{"song", "9"}}));
    module->addList(CMPath("/fake/segments"), {bySegment});
    module->addList(CMPath("/fake/params"), {byParam});
    KeloRoles disabled = FakeModule::track(CMPath("/fake/disabled"), "301");
    disabled.setDisabled(true);
    module->addList(CMPath("/fake/disabled"), {disabled});

    for (const auto& [path, outcome, opens] : Table<QString, QString, QString>{
             {pathOf("1"), "ok", "open fake:1 0"},
             {pathOf("117"), "ok", "open fake:117 0"},
             {list.toEncoded(), "ok", "open fake:1 0"},
             {"4711", "ok", "open fake:4711 0"},
             {"/fake/segments/one", "ok", "open fake:201 0"},
             {"/fake/params?song=9", "ok", "open fake:202 0"},
             {pathOf("999"), "no such row", ""},
             {"/fake/alone?trackId=55", "ok", "open fake:55 0"}, // a row below no list
             {"/fake/nowhere", "no such list", ""},
             {"/fake/texts", "nothing in this list can be played", ""},
             {"/fake/disabled?trackId=301", "Track 301 cannot be played", ""}}) {
        SCOPED_TRACE(path.toStdString());
        const int before = opened().size();
        EXPECT_EQ(play(path), outcome);
        EXPECT_EQ(opened().mid(before).join(","), opens);
        EXPECT_EQ(run("stop"), "ok");
    }
}

TEST_F(PlayerTest, TellsWhatPlays)
{
    addTracks({"1"});
    EXPECT_EQ(status(), idle());
    ASSERT_EQ(play(pathOf("1")), "ok");
    script.setPosition(2000);
    ASSERT_EQ(run("seek", {{"positionMs", 2000}}), "ok");
    ASSERT_EQ(run("volume", {{"percent", 30}}), "ok");
    time.advance(500);
    const QJsonObject expected{{"state", "playing"},
                               {"path", pathOf("1")},
                               {"title", "Track 1"},
                               {"artist", "Artist 1"},
                               {"album", "Album 1"},
                               {"positionMs", 2500},
                               {"durationMs", 100000},
                               {"quality", QJsonObject{{"delivered", "LOSSLESS"}}},
                               {"volume", 30},
                               {"shuffle", false},
                               {"repeat", "off"},
                               {"queueVersion", status()["queueVersion"]},
                               {"list", list.toEncoded()},
                               {"index", 0}};
    EXPECT_EQ(status(), expected);
}

TEST_F(PlayerTest, RefusesMalformedCommands)
{
    for (const auto& [name, arguments] :
         Table<const char*, QVariantHash>{{"dance", {}},
                                          {"play", {}},
                                          {"play", {{"path", ""}}},
                                          {"play", {{"path", "/fake/%zz"}}},
                                          {"seek", {{"positionMs", -1}}},
                                          {"seek", {{"positionMs", "1"}}},
                                          {"seek", {{"positionMs", 1e300}}},
                                          {"volume", {{"percent", 101}}},
                                          {"volume", {{"percent", qQNaN()}}}}) {
        SCOPED_TRACE(name);
        const auto reply = begin(name, arguments);
        ASSERT_TRUE(reply.waitForFinished(waitMs));
        EXPECT_EQ(reply.error().name(), CMError::BadRequestName());
    }
    for (const char* name : {"pause", "resume", "next", "previous"})
        EXPECT_NE(run(name), "ok") << name;
}

TEST_F(PlayerTest, NextAndPreviousWalkTheListAndSayWhatTheySkip)
{
    KeloRoles disabled = FakeModule::track(list, "2");
    disabled.setDisabled(true);
    module->addList(list, {FakeModule::track(list, "1"), disabled,
                           FakeModule::row(KeloRolesType::Container_, "Album"),
                           FakeModule::row(KeloRolesType::Header_, "Head"),
                           FakeModule::track(list, "3")});
    ASSERT_EQ(play(pathOf("1")), "ok");
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(waitForTitle("Track 3")["note"].toString(),
              "skipped: Track 2 cannot be played; skipped: Album cannot be played");
    script.setPosition(3000);
    ASSERT_EQ(run("previous"), "ok"); // from three seconds on it is the item's own beginning
    script.setPosition(2999);
    ASSERT_EQ(run("previous"), "ok");
    waitForTitle("Track 1");
    ASSERT_EQ(run("previous"), "ok"); // nothing before the first row
    waitForTitle("Track 1");
    ASSERT_EQ(run("next"), "ok");
    ASSERT_EQ(run("next"), "ok");
    waitForState("stopped");
    EXPECT_EQ(script.operations().mid(1).join(","),
              "open fake:1 0,open fake:3 0,seek 0,open fake:1 0,seek 0,open fake:3 0");
}

TEST_F(PlayerTest, StepsInTheRowsThatItHasAndAsksAnewAfterANoticeOrATime)
{
    QStringList ids;
    for (int i = 0; i < 120; ++i)
        ids << QString::number(i);
    addTracks(ids);
    ASSERT_EQ(run("play", {{"path", pathOf("70")}, {"list", list.toEncoded()}, {"index", 70}}),
              "ok");
    EXPECT_EQ(module->rowsAsked(), "50-99");
    for (const char* name : {"next", "next", "previous", "previous", "previous"})
        ASSERT_EQ(run(name), "ok");
    EXPECT_EQ(waitForTitle("Track 69")["index"], 69);
    ASSERT_EQ(play(pathOf("50")), "ok");
    EXPECT_EQ(module->rowsAsked(), "");
    ASSERT_EQ(run("previous"), "ok");
    EXPECT_EQ(module->rowsAsked(), "0-49");
    waitForTitle("Track 49");
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(module->rowsAsked(), "");
    module->subscription()->rowsChanged(list, CMSubscribe::RowsChangeReset(), 120);
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(module->rowsAsked(), "50-99");
    time.advance(300001);
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(module->rowsAsked(), "50-99");
    // A row that is not where the client saw it is looked for.
    ASSERT_EQ(run("play", {{"path", pathOf("5")}, {"list", list.toEncoded()}, {"index", 100}}),
              "ok");
    EXPECT_EQ(module->rowsAsked(), "100-149 0-49");
    for (const QVariant& index : {QVariant(), QVariant(-1), QVariant(1.5), QVariant(1e300)})
        EXPECT_NE(
            run("play", {{"path", pathOf("5")}, {"list", list.toEncoded()}, {"index", index}}),
            "ok");
}

TEST_F(PlayerTest, PlaysFromTheRowsThatAClientHasReadUnlessTheyMayBeOthers)
{
    addTracks({"1", "2", "1", "3"});
    KeptRows& kept = player->keptRows();
    const auto read = [&](const std::function<void()>& meanwhile = [] {}) {
        const auto watch = kept.begin(list);
        const CMGetRowsRequest request(list, 0, 49, itemRoles());
        CMRoot().request(request);
        meanwhile();
        kept.take(watch, 0, request.reply());
        module->rowsAsked();
    };
    const auto notify = [this] {
        module->subscription()->rowsChanged(list, CMSubscribe::RowsChangeReset(), 4);
    };
    const QVariantHash second{{"path", pathOf("1")}, {"list", list.toEncoded()}, {"index", 2}};
    read();
    ASSERT_EQ(run("play", second), "ok");
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(waitForTitle("Track 3")["index"], 3);
    ASSERT_EQ(play(list.toEncoded()), "ok");
    EXPECT_EQ(waitForTitle("Track 1")["index"], 0);
    EXPECT_EQ(module->rowsAsked(), "");
    read(notify);
    ASSERT_EQ(run("play", second), "ok");
    EXPECT_EQ(module->rowsAsked(), "0-49");
    read([&] { kept.clear(); });
    ASSERT_EQ(run("play", second), "ok");
    EXPECT_EQ(module->rowsAsked(), "0-49");
    // What cannot be read any more is gone, also for whoever asks later.
    module->removeList(list);
    read();
    EXPECT_NE(play(list.toEncoded()), "ok");
}

TEST_F(PlayerTest, GoesOnWithoutAGapAndStopsAtTheListsEnd)
{
    addTracks({"1", "2"});
    ASSERT_EQ(play(list.toEncoded()), "ok");
    time.advance(1000);
    EXPECT_EQ(module->asked(), QStringList({"1 at 0"})); // late, since addresses expire
    nearEnd();
    waitForOperation("next fake:2");
    waitForTitle("Track 1");
    script.raise([](const auto& events) { events.itemChanged("fake:2"); });
    waitForTitle("Track 2");
    script.raise([](const auto& events) { events.aboutToFinish(); });
    waitForOperation("next ");
    script.raise([](const auto& events) { events.finished(); });
    EXPECT_EQ(waitForState("stopped")["title"], "Track 2");
    EXPECT_EQ(opened().join(","), "open fake:1 0,next fake:2,next ");
}

TEST_F(PlayerTest, KeepsTheNoteOfWhatWasPassedOverUntilTheNextItemPlays)
{
    addTracks({"1", "2", "3", "4"});
    module->setAnswer("2", {"not available"});
    ASSERT_EQ(play(list.toEncoded()), "ok");
    nearEnd();
    waitForOperation("next fake:3");
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(waitForTitle("Track 3")["note"], "skipped: Track 2: not available");
    ASSERT_EQ(run("next"), "ok");
    EXPECT_EQ(waitForTitle("Track 4")["note"], QJsonValue());
}

TEST_F(PlayerTest, OpensTheNextItemLateWhenItIsResolvedAfterTheEnd)
{
    addTracks({"1", "2"});
    module->setAnswer("2", {QString(), true});
    ASSERT_EQ(play(list.toEncoded()), "ok");
    nearEnd();
    ASSERT_TRUE(module->waitForHeld());
    script.raise([](const auto& events) { events.finished(); });
    waitForState("resolving");
    module->release();
    waitForTitle("Track 2");
    EXPECT_EQ(opened().join(","), "open fake:1 0,open fake:2 0");
}

TEST_F(PlayerTest, ResolvesAgainAfterAPauseLongerThanTheAddressLives)
{
    addTracks({"1"});
    module->setAnswer("1", {QString(), false, 30000});
    ASSERT_EQ(play(pathOf("1")), "ok");
    script.setPosition(5000);
    for (const qint64 pauseMs : {30000, 30001}) {
        ASSERT_EQ(run("pause"), "ok");
        EXPECT_EQ(waitForState("paused")["positionMs"], 5000);
        time.advance(pauseMs);
        ASSERT_EQ(run("resume"), "ok");
        waitForState("playing");
    }
    EXPECT_EQ(module->asked(), QStringList({"1 at 0", "1 at 5000"}));
    EXPECT_EQ(script.operations().mid(1).join(","),
              "open fake:1 0,pause,resume,pause,open fake:1 5000");
}

TEST_F(PlayerTest, GoesOnWhereItWasAfterARestart)
{
    addTracks({"1", "2"});
    ASSERT_EQ(run("volume", {{"percent", 40}}), "ok");
    ASSERT_EQ(play(pathOf("1")), "ok");
    script.setPosition(33000);
    time.advance(5000);
    waitFor([](const QJsonObject& status) { return status["positionMs"] == 33000; });
    EXPECT_EQ(PlayerStore(stateDir.path()).load().positionMs, 33000); // a crash loses seconds
    script.setPosition(42000);
    const auto restart = [this] {
        player.reset();
        startPlayer();
        return status();
    };
    QJsonObject after = restart();
    EXPECT_EQ(after["state"], "stopped");
    EXPECT_EQ(after["title"], "Track 1");
    EXPECT_EQ(after["index"], 0);
    EXPECT_EQ(after["positionMs"], 42000);
    EXPECT_EQ(after["durationMs"], 100000);
    EXPECT_EQ(script.operations().last(), "volume 40");

    module->setAnswer("1", {"not logged in"}); // whoever comes too early loses nothing
    EXPECT_EQ(run("resume"), "not logged in");
    after = restart();
    EXPECT_EQ(after["title"], "Track 1");
    EXPECT_EQ(after["positionMs"], 42000);

    module->setAnswer("1", {});
    ASSERT_EQ(run("seek", {{"positionMs", 43000}}), "ok");
    ASSERT_EQ(run("resume"), "ok");
    EXPECT_EQ(opened().last(), "open fake:1 43000");
    restart();
    ASSERT_EQ(run("next"), "ok");
    waitForTitle("Track 2");
    ASSERT_EQ(run("stop"), "ok");
    EXPECT_EQ(restart()["positionMs"], 0); // what was stopped begins anew
    ASSERT_EQ(run("previous"), "ok");
    waitForTitle("Track 1");
}

TEST_F(PlayerTest, AFileThatIsNoneCountsAsNoQueue)
{
    const QString name = stateDir.filePath("player.json");
    for (const char* text : {"", "{", "[1]", R"({"volume":7e9,"positionMs":-1,"index":"x"})"}) {
        SCOPED_TRACE(text);
        player.reset();
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) >= 0);
        file.close();
        startPlayer();
        EXPECT_EQ(status(), idle());
    }
    ASSERT_EQ(run("volume", {{"percent", 8}}), "ok");
    QFile::remove(name); // a file that went is written anew
    ASSERT_EQ(run("volume", {{"percent", 9}}), "ok");
    EXPECT_EQ(PlayerStore(stateDir.path()).load().volume, 9);
}

TEST_F(PlayerTest, PlaysWhatAModuleHandsOverForSomebodyElseAndWalksItsList)
{
    addTracks({"1", "2"});
    KeloRoles item = FakeModule::item(FakeModule::prePlayPath("1"), "1", {});
    KeloMediaData mediaData = item.mediaData();
    mediaData.setMetaData(FakeModule::track(list, "1").mediaData().metaData());
    item.setMediaData(mediaData);
    player->play(item, 0);
    waitForTitle("Track 1");
    ASSERT_EQ(run("next"), "ok");
    waitForTitle("Track 2");
}

TEST_F(PlayerTest, ListenersMayGoFromWithinAndDoNotRunAfterwards)
{
    int calls = 0; // of the player's thread until the listener has gone
    quint64 id = 0;
    std::mutex mutex;
    {
        std::lock_guard<std::mutex> lock(mutex);
        id = player->addListener([&](const PlayerStatus&) {
            std::lock_guard<std::mutex> lock(mutex);
            ++calls;
            player->removeListener(id);
        });
    }
    ASSERT_EQ(run("stop"), "ok");
    ASSERT_EQ(run("stop"), "ok");
    player->removeListener(id);
    EXPECT_EQ(calls, 1);
}
} // namespace
