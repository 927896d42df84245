#include "PlayQueue.h"
#include "Table.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <QJsonArray>
#include <QJsonDocument>

namespace {
using Sight = PlayQueue::Sight;

/// A queue over a list of this test's, of which it is shown what it wants to know, as a reader
/// does.
class PlayQueueTest : public testing::Test
{
protected:
    static constexpr int pageSize = PlayQueue::pageSize;

    using Names = std::vector<std::string>;

    static quint64 keyOf(const std::string& name)
    {
        QueueEntry entry;
        entry.id = QString::fromStdString(name);
        return PlayQueue::keyOf(entry);
    }
    static PlayQueue::Item single(const QString& id)
    {
        PlayQueue::Item item;
        item.row.id = id;
        return item;
    }
    static Names numbered(int count)
    {
        Names names;
        for (int i = 0; i < count; ++i)
            names.push_back("t" + std::to_string(i));
        return names;
    }

    void begin(int index)
    {
        queue.begin({list, {}, int(names.size())}, index, keyOf(names[size_t(index)]));
    }
    void showPage(int from)
    {
        std::vector<PlayQueue::Seen> rows;
        for (int i = from; i < from + pageSize && i < int(names.size()); ++i)
            rows.push_back({keyOf(names[size_t(i)]), names[size_t(i)] != "head"});
        queue.see(list, from, rows, int(names.size()));
        ++pages;
    }
    /// Shows what the slot in front needs; false when the queue is at its end.
    bool settle()
    {
        PlayQueue::Slot seen;
        for (;;) {
            if (const auto row = queue.wanted()) {
                showPage(*row / pageSize * pageSize);
                continue;
            }
            const PlayQueue::Slot front = queue.front();
            if (front.origin < 0 || !queue.isRead(front) || front == seen)
                return front.origin >= 0;
            seen = front;
            showPage(front.index / pageSize * pageSize);
        }
    }
    std::string nameOf(PlayQueue::Slot slot) const
    {
        return queue.isRead(slot) ? names.at(size_t(slot.index))
                                  : queue.entry(slot).id.toStdString();
    }
    /// Plays what comes next; its name, "end" at the end.
    std::string next()
    {
        if (!settle())
            return "end";
        const std::string name = nameOf(queue.front());
        queue.take(0, keyOf(name));
        return name;
    }
    std::string back()
    {
        if (queue.last().origin < 0)
            return "none";
        const std::string name = nameOf(queue.last());
        queue.goBack(queue.last());
        return name;
    }
    std::string play(int count)
    {
        std::string all;
        for (int i = 0; i < count; ++i)
            all += (i ? " " : "") + next();
        return all;
    }
    Names playAll()
    {
        Names all;
        for (std::string name = next(); name != "end"; name = next())
            all.push_back(name);
        return all;
    }
    /// What stands in the queue, those put in by hand before a bar.
    std::string all() const
    {
        std::string text;
        for (int i = 0; i < queue.size(); ++i)
            text += (i == queue.queued() ? "| " : "") + nameOf(queue.at(i)) + ' ';
        return text;
    }

    PlayQueue queue{1};
    const CMPath list{"/list"};
    Names names = numbered(6);
    int pages = 0;
};

TEST_F(PlayQueueTest, WhatIsPutInByHandStandsInFrontOfTheListsRest)
{
    begin(3);
    EXPECT_EQ(all(), "| t4 t5 ");
    ASSERT_TRUE(queue.add({single("a"), single("b")}, false));
    ASSERT_TRUE(queue.add({single("c")}, false));
    ASSERT_TRUE(queue.add({single("d")}, true));
    EXPECT_EQ(all(), "d a b c | t4 t5 ");
    begin(1);
    EXPECT_EQ(all(), "d a b c | t2 t3 t4 t5 ");
    queue.clear();
    EXPECT_EQ(all(), "");
    EXPECT_EQ(queue.present().key, keyOf("t1"));
}

TEST_F(PlayQueueTest, EditsByPosition)
{
    for (const auto& [edit, expected] : Table<std::function<bool(PlayQueue&)>, std::string>{
             {[](PlayQueue& q) { return q.move(0, 1); }, "b a | t4 t5 "},
             {[](PlayQueue& q) { return q.move(0, 2); }, "b | t4 a t5 "},
             {[](PlayQueue& q) { return q.move(3, 0); }, "t5 a b | t4 "},
             {[](PlayQueue& q) { return q.move(3, 2); }, "a b t5 | t4 "},
             {[](PlayQueue& q) { return q.remove(1, 2); }, "a | t5 "},
             {[](PlayQueue& q) { return q.remove(0, 4); }, ""},
             {[](PlayQueue& q) { return !q.remove(3, 2); }, "a b | t4 t5 "},
             {[](PlayQueue& q) { return !q.remove(0, 0); }, "a b | t4 t5 "},
             {[](PlayQueue& q) { return !q.move(4, 0); }, "a b | t4 t5 "},
             {[](PlayQueue& q) { return !q.move(0, -1); }, "a b | t4 t5 "},
             {[](PlayQueue& q) { return q.take(1, 1), true; }, "| t4 t5 "},
             {[](PlayQueue& q) { return q.take(3, 1), true; }, "a b "}}) {
        SCOPED_TRACE(expected);
        queue = PlayQueue(1);
        begin(3);
        ASSERT_TRUE(queue.add({single("a"), single("b")}, false));
        EXPECT_TRUE(edit(queue));
        EXPECT_EQ(all(), expected);
    }
}

TEST_F(PlayQueueTest, GoesBackTheWayItCameAndForwardAgain)
{
    begin(0);
    ASSERT_TRUE(queue.add({single("a")}, true));
    EXPECT_EQ(play(2), "a t1");
    queue.setShuffled(true);
    const std::string shuffled = play(3);
    Names way;
    for (std::string name = back(); name != "none"; name = back())
        way.push_back(name);
    EXPECT_EQ(way.size(), 5u);
    EXPECT_EQ(way.at(4) + way.at(3) + way.at(2), "t0at1");
    EXPECT_EQ(play(5), "a t1 " + shuffled);
    EXPECT_EQ(play(2).substr(3), "end"); // every row played once
}

TEST_F(PlayQueueTest, ShuffleComesByEveryRowOnceAndOffGoesOnInOrder)
{
    names = numbered(3000);
    begin(20);
    queue.setShuffled(true);
    Names played = playAll();
    EXPECT_NE(played.at(0) + played.at(1), "t21t22");
    played.push_back("t20");
    std::sort(played.begin(), played.end());
    Names all = names;
    std::sort(all.begin(), all.end());
    EXPECT_EQ(played, all);
    EXPECT_TRUE(queue.beginRound());
    EXPECT_EQ(queue.size(), 3000);
    EXPECT_NE(nameOf(queue.front()), "t20");

    const int now = std::stoi(next().substr(1));
    queue.setShuffled(false);
    if (now + 1 < 3000) {
        EXPECT_EQ(next(), "t" + std::to_string(now + 1));
    }
    // What played before shuffle was on does not come again.
    begin(0);
    play(9);
    queue.setShuffled(true);
    EXPECT_EQ(queue.size(), 2990);
}

TEST_F(PlayQueueTest, AListThatChangesWhileShuffledLosesAndDoublesNothingThatIsStillInIt)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        // Some tracks stand in it more than once.
        names.clear();
        for (int i = 0; i < 130; ++i)
            names.push_back("t" + std::to_string(random() % 100));
        queue = PlayQueue(quint32(round));
        queue.setShuffled(true);
        begin(int(random() % 130));
        std::multimap<std::string, int> played{{nameOf(queue.present().slot), 0}};
        for (int change = 0; change < 3; ++change) {
            for (int i = int(random() % 40); i > 0; --i)
                played.emplace(next(), 0);
            for (int i = int(random() % 10); i > 0; --i)
                names.erase(names.begin() + long(random() % names.size()));
            for (int i = int(random() % 10); i > 0; --i)
                names.insert(names.begin() + long(random() % names.size()),
                             "new" + std::to_string(random() % 20));
            if (random() % 3 == 0)
                std::shuffle(names.begin(), names.end(), random);
            queue.listChanged();
        }
        const auto rest = playAll();
        for (const std::string& name : rest)
            played.emplace(name, 0);
        std::multimap<std::string, int> wanted;
        for (const std::string& name : names)
            wanted.emplace(name, 0);
        for (const std::string& name : names)
            ASSERT_GE(played.count(name), wanted.count(name)) << name;
        std::map<std::string, long> after;
        for (const std::string& name : rest)
            ++after[name];
        for (const auto& [name, count] : after)
            ASSERT_LE(size_t(count), wanted.count(name)) << name;
    }
}

TEST_F(PlayQueueTest, AChangeThatNobodyTellsShowsInTheNextPage)
{
    names = numbered(120);
    queue.setShuffled(true);
    begin(0);
    for (int i = 0; i < 60; ++i)
        next();
    std::reverse(names.begin(), names.end()); // as many as before
    Names rest = playAll();
    std::sort(rest.begin(), rest.end());
    EXPECT_EQ(std::unique(rest.begin(), rest.end()), rest.end());
    EXPECT_GE(rest.size(), 59u);
}

TEST_F(PlayQueueTest, InOrderItGoesOnBehindThePresentRowsNewPlace)
{
    for (const auto& [change, expected] : Table<std::function<void(Names&)>, std::string>{
             {[](Names& names) { names.insert(names.begin(), "new"); }, "t71"},
             {[](Names& names) { names.erase(names.begin() + 10); }, "t71"},
             {[](Names& names) { names.erase(names.begin() + 70); }, "t71"},
             {[](Names& names) { std::reverse(names.begin(), names.end()); }, "t69"},
             {[](Names& names) { names.resize(3); }, "end"},
             {[](Names& names) { names.clear(); }, "end"}}) {
        SCOPED_TRACE(expected);
        names = numbered(200);
        queue = PlayQueue(1);
        begin(69);
        ASSERT_EQ(next(), "t70");
        change(names);
        queue.listChanged();
        EXPECT_EQ(next(), expected);
    }
    // A key alone is looked for.
    names = numbered(200);
    queue.begin({list, {}, -1}, -1, keyOf("t130"));
    EXPECT_EQ(next(), "t131");
    queue.begin({list, {}, -1}, -1, keyOf("nowhere"));
    EXPECT_EQ(next(), "end");
}

TEST_F(PlayQueueTest, RowsThatAreNoItemsGoWhenTheirPageIsShown)
{
    names = {"t0", "head", "t1", "head"};
    begin(0);
    ASSERT_TRUE(queue.add({{{}, {list, {}, 4}}}, true));
    EXPECT_EQ(queue.queued(), 4);
    EXPECT_EQ(play(4), "t0 t1 t1 end");
}

TEST_F(PlayQueueTest, TenThousandCallsLeaveItSmall)
{
    begin(0);
    int refused = 0;
    for (int i = 0; i < PlayQueue::mostKept + 2000; ++i) {
        refused += queue.add({single(QString::number(i))}, i % 2) ? 0 : 1;
        if (i % 10 == 0)
            queue.remove(i % queue.size(), 1);
        queue.move(0, queue.size() - 1);
    }
    EXPECT_GT(refused, 0);
    EXPECT_LE(queue.size(), PlayQueue::mostQueued + 6);
    EXPECT_FALSE(queue.add({{{}, {list, {}, INT_MAX}}}, false));
    const qint64 before = QJsonDocument(queue.toJson()).toJson().size();
    queue.clear();
    for (int i = 0; i < 10000; ++i) {
        ASSERT_TRUE(queue.add({single(QString::number(i))}, true));
        queue.take(0, 1);
    }
    EXPECT_LT(QJsonDocument(queue.toJson()).toJson().size(), before);
}

TEST_F(PlayQueueTest, IsTheSameAfterARestartAndNothingElseIsOne)
{
    names = numbered(300);
    begin(4);
    queue.setShuffled(true);
    queue.setRepeat(PlayQueue::Repeat::All);
    ASSERT_TRUE(queue.add({single("a"), {{}, {CMPath("/other"), QString("Other"), 2}}}, false));
    play(30);
    const QJsonObject kept = queue.toJson();
    const auto again = PlayQueue::fromJson(kept);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->toJson(), kept);
    const std::string rest = all();
    queue = *again;
    EXPECT_EQ(all(), rest);
    EXPECT_EQ(playAll().size(), 300u - 1 - 27);

    for (const char* key : {"origins", "upcoming", "history", "played", "present", "anchor",
                            "source", "queued", "repeat", "queueVersion"}) {
        for (const QJsonValue& wrong :
             {QJsonValue(), QJsonValue(-7), QJsonValue(1e300), QJsonValue(QJsonArray{1}),
              QJsonValue(QJsonArray{QJsonArray{99, 99, 99}})}) {
            QJsonObject json = kept;
            json.insert(key, wrong);
            const bool mayBe = key == QString("queueVersion") || key == QString("anchor");
            EXPECT_TRUE(!PlayQueue::fromJson(json) || mayBe || wrong.isArray()) << key;
        }
    }
}
} // namespace
