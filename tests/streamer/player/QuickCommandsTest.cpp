#include "PlayerFixture.h"
#include "SimStreams.h"
#include <random>

namespace {
/// Real audio through GStreamer under commands that follow each other faster than it starts.
class QuickCommandsTest : public PlayerFixture
{
protected:
    static constexpr int tracks = 8;
    static constexpr int lateTrack = 8; ///< its answer comes when the test releases it

    QuickCommandsTest()
    {
        player.reset();
        startPlayer([](QString* error) { return AudioOutput::create("null", error); }, systemClock);
        QStringList ids;
        for (int i = 1; i <= tracks; ++i) {
            ids << QString::number(i);
            module->setAnswer(ids.last(), {QString(), i == lateTrack, 0, sim.address(i)});
        }
        addTracks(ids);
    }
    int below(int end) { return int(random() % unsigned(end)); }
    CMReply<QVariant> beginAny()
    {
        static const QStringList others{"stop",   "pause",    "pause", "resume",
                                        "resume", "previous", "seek",  "seek"};
        static constexpr int positions[] = {0, 100, 1000, 1900, 2000, 100000};
        const int kind = below(100);
        if (kind < 45)
            return begin("play", {{"path", pathOf(QString::number(1 + below(tracks)))}});
        if (kind < 60)
            return begin("next");
        if (kind < 65)
            return begin("volume", {{"percent", below(101)}});
        const QString name = others.at(below(others.size()));
        return begin(name, {{"positionMs", positions[below(6)]}});
    }

    SimStreams sim;
    SystemClock systemClock;
    std::mt19937 random{1};
};

TEST_F(QuickCommandsTest, AreAllAnsweredAndThePlayerGoesOnPlaying)
{
    static constexpr int pauses[] = {0, 0, 2, 5, 10, 20, 50};
    std::vector<CMReply<QVariant>> replies;
    for (int i = 0; i < 500; ++i) {
        replies.push_back(beginAny());
        replies.back().waitForFinished(pauses[below(7)]);
        if (below(6) == 0)
            module->release();
    }
    int hung = 0;
    for (size_t i = 0; i < replies.size(); ++i) {
        module->release();
        ASSERT_TRUE(replies[i].waitForFinished(waitMs)) << "command " << i;
        hung += replies[i].error().message().contains("made anew");
    }
    EXPECT_LE(hung, 1); // GStreamer's HTTP source may, once in 90,000 commands
    module->release();
    ASSERT_EQ(play(pathOf("1")), "ok");
    waitFor([](const QJsonObject& status) {
        return status["state"] == "playing" && status["positionMs"].toInt() >= 900;
    });
    const qint64 beforeMs = systemClock.steadyMs();
    player->stop();
    EXPECT_LT(systemClock.steadyMs() - beforeMs, 2500); // no thread of the output had to be left
}
} // namespace
