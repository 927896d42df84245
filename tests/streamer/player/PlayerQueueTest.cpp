#include "PlayerQueueFixture.h"

namespace {
class PlayerQueueTest : public PlayerQueueFixture
{
};

TEST_F(PlayerQueueTest, PlaysAListFromARowBehindWhatWasPutInByHand)
{
    addTracks(numbers(130));
    const CMPath other("/fake/other");
    module->addList(other,
                    {FakeModule::track(other, "a"), FakeModule::row(KeloRolesType::Header_, "Head"),
                     FakeModule::track(other, "b")});
    ASSERT_EQ(run("play", {{"path", pathOf("99")}, {"list", list.toEncoded()}, {"index", 99}}),
              "ok");
    EXPECT_EQ(module->rowsAsked(), "50-99");
    EXPECT_EQ(rows()["rowsCount"], 30);
    EXPECT_EQ(titles(0, 1), "| 100 101 ");
    EXPECT_EQ(module->rowsAsked(), "100-149");
    ASSERT_EQ(add(pathOf("3")), "ok");
    ASSERT_EQ(add(other.toEncoded()), "ok");
    ASSERT_EQ(add("4711", "next"), "ok");
    EXPECT_EQ(titles(0, 5), "4711 3 a b | 100 101 ");
    EXPECT_EQ(titles(2, 4), "a b | 100 ");
    EXPECT_EQ(rows()["list"], list.toEncoded());
    ASSERT_EQ(run("play", {{"path", pathOf("7")}}), "ok");
    EXPECT_EQ(titles(0, 5), "4711 3 a b | 8 9 ");
    EXPECT_EQ(next(5), "4711 3 a b 8");
    EXPECT_EQ(previous(3), "b a 3");
    EXPECT_EQ(next(4), "a b 8 9");
    ASSERT_EQ(edit({{"action", "clear"}}), "ok");
    EXPECT_EQ(titles(), "");
    EXPECT_EQ(status()["state"], "playing");
}

TEST_F(PlayerQueueTest, ATrackThatStandsTwiceIsPlayedWhereTheClientSawIt)
{
    QStringList ids = numbers(3000);
    ids[2900] = "1";
    addTracks(ids);
    ASSERT_EQ(run("play", {{"path", pathOf("1")}, {"list", list.toEncoded()}, {"index", 2900}}),
              "ok");
    EXPECT_EQ(module->rowsAsked(), "2900-2949");
    EXPECT_EQ(status()["index"], 2900);
    EXPECT_EQ(next(), "2901");
    EXPECT_EQ(module->rowsAsked(), "");
}

TEST_F(PlayerQueueTest, EditsBelongToAVersion)
{
    addTracks(numbers(6));
    ASSERT_EQ(play(pathOf("0")), "ok");
    ASSERT_EQ(add(pathOf("5")), "ok");
    const QVariant version = rows()["version"];
    EXPECT_EQ(status()["queueVersion"].toVariant().toULongLong(), version.toULongLong());
    const auto move =
        begin("queue", {{"action", "move"}, {"version", version}, {"position", 4}, {"to", 1}});
    const auto late =
        begin("queue", {{"action", "move"}, {"version", version}, {"position", 4}, {"to", 0}});
    EXPECT_EQ(outcome(move), "ok");
    EXPECT_EQ(move.value().toHash()["queued"], 2);
    ASSERT_TRUE(late.waitForFinished(waitMs));
    EXPECT_EQ(late.error().name(), PlayerControl::staleName());
    EXPECT_EQ(titles(), "5 4 | 1 2 3 5 ");
    for (QByteArray wrong : {
             R"({"action":"dance"})",
             R"({"action":"add"})",
             R"({"action":"add","path":"1","at":"front"})",
             R"({"action":"add","paths":["1",2]})",
             R"({"action":"add","paths":[]})",
             R"({"action":"add","path":"1","list":"/fake/%zz","index":0})",
             R"({"action":"move","position":0,"to":1})",
             R"({"action":"move","version":NOW,"position":0})",
             R"({"action":"move","version":NOW,"position":0,"to":6})",
             R"({"action":"remove","version":NOW,"position":-1})",
             R"({"action":"remove","version":NOW,"position":6})",
             R"({"action":"remove","version":NOW,"position":5,"count":2})",
             R"({"action":"jump","version":NOW,"position":6})",
         }) {
        SCOPED_TRACE(wrong.data());
        wrong.replace("NOW", rows()["version"].toByteArray());
        const auto reply = begin("queue", QJsonDocument::fromJson(wrong).object().toVariantHash());
        ASSERT_TRUE(reply.waitForFinished(waitMs));
        EXPECT_EQ(reply.error().name(), CMError::BadRequestName());
    }
    EXPECT_EQ(edit({{"action", "add"}, {"paths", QVariantList{pathOf("1"), "/fake/nowhere"}}}),
              "no such list");
    EXPECT_EQ(titles(), "5 4 | 1 2 3 5 ");
    EXPECT_EQ(editNow("remove", 1, {{"count", 2}}), "ok");
    EXPECT_EQ(
        edit(
            {{"action", "add"}, {"paths", QVariantList{pathOf("3"), pathOf("0")}}, {"at", "next"}}),
        "ok");
    EXPECT_EQ(titles(), "3 0 5 | 2 3 5 ");
    EXPECT_EQ(editNow("jump", 4), "ok");
    EXPECT_EQ(titles(), "3 0 5 | 5 ");
    EXPECT_EQ(editNow("jump", 1), "ok");
    EXPECT_EQ(title(), "0");
    EXPECT_EQ(titles(), "5 | 5 ");
    EXPECT_EQ(previous(2), "3 0");
}

TEST_F(PlayerQueueTest, TheNextItemIsLookedForAgainWhenItIsAnother)
{
    addTracks(numbers(6));
    ASSERT_EQ(play(pathOf("0")), "ok");
    nearEnd();
    waitForOperation("next fake:1");
    ASSERT_EQ(add(pathOf("4"), "next"), "ok");
    waitForOperation("next fake:4");
    script.raise([](const auto& events) { events.itemChanged("fake:4"); });
    waitForTitle("Track 4");
    EXPECT_EQ(titles(0, 0), "| 1 ");
    nearEnd();
    waitForOperation("next fake:1");
    ASSERT_EQ(editNow("remove", 0), "ok");
    waitForOperation("next fake:2");
    // The output was quicker: what was removed does not play.
    script.raise([](const auto& events) { events.itemChanged("fake:1"); });
    waitForTitle("Track 2");
    EXPECT_EQ(opened().last(), "open fake:2 0");
    // At the end, too.
    ASSERT_EQ(play(pathOf("5")), "ok");
    nearEnd();
    waitForOperation("next ");
    ASSERT_EQ(add(pathOf("3")), "ok");
    waitForOperation("next fake:3");
}

TEST_F(PlayerQueueTest, RepeatsTheItemOrTheListAndEndsWhenNothingPlays)
{
    addTracks(numbers(2));
    ASSERT_EQ(play(pathOf("1")), "ok");
    ASSERT_EQ(run("repeat", {{"mode", "one"}}), "ok");
    nearEnd();
    waitForOperation("next fake:1");
    script.raise([](const auto& events) { events.itemChanged("fake:1"); });
    script.raise([](const auto& events) { events.finished(); });
    waitForOperation("open fake:1 0");
    EXPECT_EQ(status()["repeat"], "one");
    ASSERT_EQ(run("repeat", {{"mode", "all"}}), "ok");
    EXPECT_EQ(next(3), "0 1 0");
    ASSERT_EQ(run("next"), "ok");
    nearEnd();
    waitForOperation("next fake:0");
    EXPECT_EQ(titles(), "| 0 1 ");
    ASSERT_EQ(run("repeat", {{"mode", "off"}}), "ok");
    EXPECT_EQ(titles(), "");
    EXPECT_NE(run("repeat", {{"mode", "some"}}), "ok");
    EXPECT_NE(run("shuffle", {{"on", 1}}), "ok");

    ASSERT_EQ(play(pathOf("0")), "ok");
    ASSERT_EQ(run("repeat", {{"mode", "all"}}), "ok");
    for (int i = 0; i < 2; ++i)
        module->setAnswer(QString::number(i), {"not available"});
    EXPECT_EQ(run("next"), "ok");
    EXPECT_EQ(waitForState("stopped")["note"].toString().count("skipped"), 3);
    KeloRoles disabled = FakeModule::track(list, "9");
    disabled.setDisabled(true);
    module->addList(list, {disabled, disabled});
    notify();
    EXPECT_EQ(run("next"), "ok");
    waitForState("stopped");
}

TEST_F(PlayerQueueTest, ShuffleOfAListInPagesComesByEachTrackOnce)
{
    addTracks(numbers(120));
    ASSERT_EQ(run("shuffle", {{"on", true}}), "ok");
    ASSERT_EQ(play(list.toEncoded()), "ok");
    QStringList played{title()};
    for (int i = 1; i < 60; ++i)
        played << next();
    EXPECT_NE(played.mid(0, 4), numbers(4));
    EXPECT_EQ(previous(), played.at(58));
    EXPECT_EQ(next(), played.at(59));
    // The list loses some and gets some, and its rows are asked for when others are under way.
    QStringList ids = numbers(110);
    ids.prepend("200");
    addTracks(ids);
    module->holdRows();
    notify();
    const auto late = begin("queueRows", {{"from", 0}, {"to", 20}});
    notify();
    module->releaseRows();
    EXPECT_EQ(outcome(late), "ok");
    while (waitFor([](const auto&) { return true; })["state"] != "stopped") {
        played << next();
        ASSERT_LE(played.size(), 200);
        if (status()["state"] == "stopped")
            played.removeLast();
    }
    QStringList all = numbers(110) << "200";
    std::sort(played.begin(), played.end());
    EXPECT_EQ(std::unique(played.begin(), played.end()), played.end());
    for (const QString& id : qAsConst(all))
        EXPECT_TRUE(played.contains(id)) << id.toStdString();
}

TEST_F(PlayerQueueTest, ComesBackWholeWhenNothingElsePlays)
{
    addTracks(numbers(30));
    ASSERT_EQ(play(pathOf("0")), "ok");
    ASSERT_EQ(add(pathOf("20")), "ok");
    const QString before = titles();
    for (int i = 1; i < 30; ++i)
        module->setAnswer(QString::number(i), {"no network"});
    EXPECT_NE(run("next"), "ok");
    EXPECT_EQ(titles(), before);
    EXPECT_EQ(title(), "0");
    ASSERT_EQ(run("resume"), "ok");
    nearEnd();
    waitForOperation("next ");
    EXPECT_EQ(titles(), before);
    // A list that is gone does not keep the others from playing.
    ASSERT_EQ(run("stop"), "ok");
    const CMPath other("/fake/other");
    module->addList(other, {FakeModule::track(other, "a")});
    ASSERT_EQ(add(other.toEncoded(), "next"), "ok");
    module->removeList(other);
    player->keptRows().clear();
    module->setAnswer("20", {});
    EXPECT_EQ(next(), "20");
}

TEST_F(PlayerQueueTest, TenThousandCallsAreAnsweredAndLeaveItSmall)
{
    addTracks(numbers(50));
    ASSERT_EQ(play(pathOf("0")), "ok");
    std::vector<CMReply<QVariant>> replies;
    for (int i = 0; i < 10000; ++i) {
        replies.push_back(
            begin("queue", {{"action", i % 7 ? "add" : "clear"}, {"path", list.toEncoded()}}));
        if (i % 400 == 0)
            replies.back().waitForFinished(waitMs);
    }
    int refused = 0;
    for (const auto& reply : replies) {
        ASSERT_TRUE(reply.waitForFinished(waitMs));
        refused += reply.error().isSet() ? 1 : 0;
    }
    EXPECT_GT(refused, 0);
    EXPECT_LE(rows()["rowsCount"].toInt(), 20050);
}

TEST_F(PlayerQueueTest, AnEditOvertakesRowsThatAreAskedForAndAnEndAnswersThem)
{
    addTracks(numbers(60));
    ASSERT_EQ(play(pathOf("49")), "ok");
    module->holdRows();
    const auto next = begin("next");
    ASSERT_EQ(add("4711", "next"), "ok");
    module->releaseRows();
    EXPECT_EQ(outcome(next), "ok");
    EXPECT_EQ(title(), "4711");
    player->keptRows().clear();
    module->holdRows();
    const auto rows = begin("queueRows", {{"from", 0}, {"to", 9}});
    player->stop();
    EXPECT_TRUE(rows.isFinished());
    module->releaseRows();
}

TEST_F(PlayerQueueTest, StartsWithWhatWasPutInWhenNothingPlays)
{
    addTracks(numbers(3));
    EXPECT_NE(run("resume"), "ok");
    ASSERT_EQ(add(pathOf("2")), "ok");
    ASSERT_EQ(run("resume"), "ok");
    EXPECT_EQ(title(), "2");
    EXPECT_EQ(titles(), "");
}
} // namespace
