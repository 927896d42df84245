#include "PlayerFixture.h"
#include "Table.h"
#include "ThreadedOutput.h"

namespace {
using PlayerFailureTest = PlayerFixture;

TEST_F(PlayerFailureTest, PassesOverWhatFailsInAListAndFailsARowThatWasAskedFor)
{
    addTracks({"1", "2", "3"});
    // kind: none when the module fails; isListStopped: a broken device ends everything
    for (const auto& [kind, text, isListStopped] :
         Table<std::optional<OutputError::Kind>, QString, bool>{
             {std::nullopt, "media data request failed", false},
             {OutputError::Decode, "cannot be decoded", false},
             {OutputError::NotFound, "nothing there", false},
             {OutputError::Device, "no device", true}}) {
        SCOPED_TRACE(text.toStdString());
        if (kind)
            script.refuse("fake:1", {*kind, text});
        else
            module->setAnswer("1", {text});
        EXPECT_EQ(play(pathOf("1")), text);
        EXPECT_TRUE(waitForState("stopped")["note"].toString().contains(text));
        EXPECT_EQ(play(list.toEncoded()), isListStopped ? text : "ok");
        if (!isListStopped) {
            EXPECT_EQ(waitForTitle("Track 2")["note"].toString(), "skipped: Track 1: " + text);
        }
        EXPECT_EQ(run("stop"), "ok");
        module->setAnswer("1", {});
    }
}

TEST_F(PlayerFailureTest, GivesUpAfterTenFailuresInARow)
{
    QStringList ids;
    for (int i = 1; i <= 30; ++i)
        ids << QString::number(i);
    addTracks(ids);
    for (int i = 2; i <= 30; ++i) // half by the module, half by the output
        if (i % 2)
            module->setAnswer(QString::number(i), {"not available"});
        else
            script.refuse(QString("fake:%1").arg(i), {OutputError::Decode, QString("broken")});
    ASSERT_EQ(play(pathOf("1")), "ok");
    const QString text = "stopped after 10 items in a row that cannot be played: not available";
    EXPECT_EQ(run("next"), text);
    EXPECT_EQ(waitForState("stopped")["note"], text);
    EXPECT_EQ(module->asked().size(), 11);
}

TEST_F(PlayerFailureTest, AnItemUnderAnotherPathCannotBePlayed)
{
    QStringList ids;
    for (int i = 1; i <= 30; ++i) {
        ids << QString::number(i);
        module->setAnswer(ids.last(), {"", false, 0, "", CMPath("/fake/another")});
    }
    addTracks(ids);
    const auto said = [](int id) {
        return QString("asked for the item of /fake/prePlay/%1, the module handed over one of "
                       "/fake/another")
            .arg(id);
    };
    EXPECT_EQ(play(pathOf("1")), said(1));
    EXPECT_EQ(play(list.toEncoded()),
              "stopped after 10 items in a row that cannot be played: " + said(10));
    EXPECT_EQ(module->asked().size(), 11);
    module->setAnswer("1", {});
    ASSERT_EQ(play(list.toEncoded()), "ok");
    nearEnd();
    waitFor([&](const auto& status) { return status["note"].toString().endsWith(said(11)); });
    EXPECT_EQ(module->asked().size(), 22);
}

TEST_F(PlayerFailureTest, WhatSomebodyElseAskedForMeanwhilePlaysAfterwards)
{
    addTracks({"1", "2"});
    module->setAnswer("1", {"", true});
    const auto reply = begin("play", {{"path", pathOf("1")}});
    ASSERT_TRUE(module->waitForHeld());
    player->play(FakeModule::item(FakeModule::prePlayPath("2"), "2", {}), 0);
    module->release();
    waitForTitle("Track 2");
    EXPECT_TRUE(reply.waitForFinished(20000));
}

TEST_F(PlayerFailureTest, ResolvesARefusedAddressOnceAtTheSamePosition)
{
    addTracks({"1", "2"});
    ASSERT_EQ(play(pathOf("1")), "ok");
    const OutputError refused{OutputError::Refused, QString("refused (403)"), false, 42000};
    script.fail(refused);
    waitForOperation("open fake:1 42000");
    waitForState("playing");
    script.fail(refused);
    EXPECT_EQ(waitForTitle("Track 2")["note"], "skipped: Track 1: refused (403)");
    EXPECT_EQ(module->asked(), QStringList({"1 at 0", "1 at 42000", "2 at 0"}));

    script.refuse("fake:1", refused);
    EXPECT_EQ(play(pathOf("1")), refused.text.source());
    EXPECT_EQ(module->asked().mid(3), QStringList({"1 at 0", "1 at 0"}));
}

TEST_F(PlayerFailureTest, ComesBackToWhatBrokeOffWhenNothingElsePlaysEither)
{
    QStringList ids;
    for (int i = 1; i <= 12; ++i)
        ids << QString::number(i);
    addTracks(ids);
    ASSERT_EQ(play(pathOf("1")), "ok");
    const auto lose = [this](qint64 positionMs) {
        script.fail({OutputError::Network, QString("no network"), false, positionMs});
    };
    lose(12000);
    waitForOperation("open fake:1 12000");
    waitForState("playing");
    lose(30000); // the retry went well for a while, so there is another one
    waitForOperation("open fake:1 30000");
    waitForState("playing");
    for (const QString& id : ids)
        module->setAnswer(id, {"no network"});
    lose(50000);
    const QJsonObject status = waitForState("stopped");
    EXPECT_EQ(status["title"], "Track 1");
    EXPECT_EQ(status["positionMs"], 50000);
    EXPECT_EQ(status["durationMs"], 100000);
    EXPECT_EQ(status["note"], "Track 1 broke off: no network");
    EXPECT_EQ(module->asked().size(), 3 + 10);
    module->setAnswer("1", {});
    ASSERT_EQ(run("resume"), "ok");
    EXPECT_EQ(opened().last(), "open fake:1 50000");
    module->setAnswer("1", {"no network"});
    module->removeList(list); // as when the list cannot be read either
    lose(60000);
    EXPECT_EQ(waitForState("stopped")["positionMs"], 60000);
}

TEST_F(PlayerFailureTest, ANextItemThatFailsEarlyLeavesThePresentOneAlone)
{
    addTracks({"1", "2"});
    ASSERT_EQ(play(pathOf("1")), "ok");
    nearEnd();
    waitForOperation("next fake:2");
    script.fail({OutputError::Refused, {}, true, 95500});
    waitForOperation("open fake:1 95500");
    waitForTitle("Track 1");
    script.raise([](const auto& events) { events.finished(); });
    waitForTitle("Track 2");
    EXPECT_EQ(opened().join(","), "open fake:1 0,next fake:2,open fake:1 95500,open fake:2 0");
}

TEST_F(PlayerFailureTest, ANewerPlaySupersedesOneThatIsBeingResolved)
{
    addTracks({"1", "2", "3"});
    module->setAnswer("1", {QString(), true});
    const auto first = begin("play", {{"path", pathOf("1")}});
    ASSERT_TRUE(module->waitForHeld());
    const auto second = begin("play", {{"path", pathOf("2")}});
    const auto third = begin("play", {{"path", pathOf("3")}});
    EXPECT_EQ(outcome(first), "superseded by another command");
    EXPECT_EQ(outcome(second), "superseded by another command");
    waitForTitle("Track 3", "resolving");
    module->release(); // its item comes too late, and only then the module is free
    EXPECT_EQ(outcome(third), "ok");
    EXPECT_EQ(opened().join(","), "open fake:3 0");
    EXPECT_EQ(module->asked(), QStringList({"1 at 0", "3 at 0"}));
}

TEST_F(PlayerFailureTest, AStopWhileResolvingDropsTheItem)
{
    addTracks({"1"});
    module->setAnswer("1", {QString(), true});
    const auto reply = begin("play", {{"path", pathOf("1")}});
    ASSERT_TRUE(module->waitForHeld());
    ASSERT_EQ(run("stop"), "ok");
    EXPECT_NE(outcome(reply), "ok");
    module->release();
    ASSERT_EQ(run("stop"), "ok");
    EXPECT_EQ(opened().join(","), "");
}

TEST_F(PlayerFailureTest, AnOutputThatDoesNotStartIsMadeAnewAndTheCommandAnswered)
{
    addTracks({"1", "2"});
    player.reset();
    startPlayer(
        [this](QString*) {
            return std::make_unique<ThreadedOutput>(
                [this](QString*) { return std::make_unique<FakeOutput>(script); });
        },
        time);
    const QString text = "the audio output did not start within 10 seconds and was made anew";
    for (const auto start : {OutputScript::Never, OutputScript::Hangs}) {
        SCOPED_TRACE(start);
        script.setStart(start);
        const auto reply = begin("play", {{"path", pathOf("1")}});
        waitForOperation("open fake:1 0");
        for (const char* name : {"pause", "resume"})
            EXPECT_EQ(run(name), "ok");
        time.advance(9999);
        EXPECT_EQ(run("volume", {{"percent", 30}}), "ok");
        EXPECT_FALSE(reply.isFinished());
        time.advance(1);
        EXPECT_EQ(outcome(reply), text);
        EXPECT_EQ(waitForState("stopped")["note"], text);
        script.setStart(OutputScript::AtOnce);
        EXPECT_EQ(run("resume"), "ok");
        waitForOperation("volume 30");
        EXPECT_EQ(opened().last(), "open fake:1 0");
        EXPECT_EQ(run("stop"), "ok");
        EXPECT_TRUE(script.waitFor([this] { return script.outputs == 1; })); // what hung has ended
    }
    // The items that one command tries share its limit.
    script.setStart(OutputScript::Never);
    const auto reply = begin("play", {{"path", list.toEncoded()}});
    waitForOperation("open fake:1 0");
    time.advance(6000);
    script.fail({OutputError::Decode, QString("broken")});
    waitForOperation("open fake:2 0");
    time.advance(4000);
    EXPECT_EQ(outcome(reply), text);
}

TEST_F(PlayerFailureTest, TheStartOfAnEarlierItemDoesNotAnswerANewerPlay)
{
    addTracks({"1", "2"});
    module->setAnswer("2", {"not available"});
    script.setStart(OutputScript::Never);
    const auto first = begin("play", {{"path", pathOf("1")}});
    waitForOperation("open fake:1 0");
    player->keptRows().clear();
    module->holdRows();
    const auto second = begin("play", {{"path", pathOf("2")}});
    EXPECT_EQ(outcome(first), "superseded by another command");
    script.raise([](const auto& events) { events.started(); });
    waitForState("playing");
    module->releaseRows();
    EXPECT_EQ(outcome(second), "not available");
}

TEST_F(PlayerFailureTest, AWrongPathDoesNotEndWhatPlays)
{
    addTracks({"1"});
    ASSERT_EQ(play(pathOf("1")), "ok");
    EXPECT_EQ(play("/fake/nowhere"), "no such list");
    EXPECT_EQ(waitForTitle("Track 1")["note"], "no such list");
}

TEST_F(PlayerFailureTest, AListThatCannotBeReadForAWhileKeepsTheWayBack)
{
    addTracks({"1", "2"});
    ASSERT_EQ(play(pathOf("1")), "ok");
    ASSERT_EQ(run("next"), "ok");
    module->removeList(list);
    player->keptRows().clear();
    EXPECT_EQ(run("previous"), "no such list");
    EXPECT_EQ(waitForState("playing")["title"], "Track 2");
    addTracks({"1", "2"});
    ASSERT_EQ(run("previous"), "ok");
    waitForTitle("Track 1");
}

TEST_F(PlayerFailureTest, AnswersWhatWaitsWhenThePlayerEnds)
{
    addTracks({"1"});
    module->setAnswer("1", {QString(), true});
    const auto reply = begin("play", {{"path", pathOf("1")}});
    ASSERT_TRUE(module->waitForHeld());
    player->stop();
    EXPECT_EQ(outcome(reply), "the player ends");
    EXPECT_EQ(outcome(begin("pause")), "the player is not running");
    QString error;
    player->start(&error);
    module->release();
}
} // namespace
