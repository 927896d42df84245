#include "AudioOutput.h"
#include "SimStreams.h"
#include "Table.h"
#include <condition_variable>
#include <future>
#include <gtest/gtest.h>
#include <kelo/KeloLoopThread.h>
#include <QStringList>
#include <QUrl>

namespace {
/// An output on a thread of its own, and the log of its events.
class OutputTest : public testing::Test
{
protected:
    void make(const QString& description)
    {
        ASSERT_TRUE(sim.isStarted());
        thread.start([this, description] {
            output = AudioOutput::create(description, &problem);
            if (!output)
                return;
            AudioOutput::Events events;
            events.started = [this] { add("started"); };
            events.aboutToFinish = [this] {
                add("aboutToFinish");
                if (isNextNamed)
                    return;
                if (other.uri.isEmpty() || !next.uri.isEmpty())
                    output->setNext(std::exchange(next, OutputItem()));
                if (!other.uri.isEmpty())
                    output->setNext(other);
            };
            events.itemChanged = [this](const QString& uri) {
                add(uri == other.uri ? "itemChanged to another" : "itemChanged");
                other = OutputItem();
                isNextNamed = false;
            };
            events.finished = [this] { add("finished"); };
            events.error = [this](const OutputError& error) {
                add(QString("error %1%2").arg(error.kind).arg(error.isOfNext ? " of next" : ""));
            };
            output->setEvents(events);
        });
    }
    ~OutputTest() override
    {
        if (thread.isRunning())
            thread.stop([this] { output.reset(); });
    }
    /// Runs a function on the output's thread and waits for it.
    void on(const std::function<void()>& function)
    {
        std::promise<void> done;
        thread.post([&] {
            function();
            done.set_value();
        });
        done.get_future().wait();
    }
    void open(const QString& uri, qint64 startMs = 0)
    {
        on([&] { output->open({uri, startMs, 0}); });
    }
    static std::string path(const QString& uri) { return QUrl(uri).path().toStdString(); }
    /// Waits until the log holds an event; the whole log.
    QString waitFor(const QString& event)
    {
        std::unique_lock<std::mutex> lock(mutex);
        EXPECT_TRUE(changed.wait_for(lock, std::chrono::seconds(15), [&] {
            return log.contains(event);
        })) << log.join(",").toStdString();
        return log.join(",");
    }
    void add(const QString& event)
    {
        std::lock_guard<std::mutex> lock(mutex);
        log << event;
        changed.notify_all();
    }

    SimStreams sim;
    OutputItem next;          ///< handed over when the output asks for it; of the output's thread
    OutputItem other;         ///< named instead, once the output has taken the next
    bool isNextNamed = false; ///< before the output asks for it; of the output's thread
    QString problem;
    KeloLoopThread thread;
    std::unique_ptr<AudioOutput> output;
    std::mutex mutex;
    std::condition_variable changed;
    QStringList log;
};

TEST_F(OutputTest, TellsARefusedAddressFromOneThatIsNotThere)
{
    const QString good = sim.address(0);
    const QString refused = good.left(good.indexOf('?')) + "?token=1~2~3";
    const QString empty = sim.address(1);
    EXPECT_EQ(sim.server().addFault("reset when=after after=1 path=" + path(good)), "");
    EXPECT_EQ(sim.server().addFault("empty path=" + path(empty)), "");
    for (const auto& [uri, kind] :
         Table<QString, OutputError::Kind>{{refused, OutputError::Refused},
                                           {sim.baseUrl() + "/nothing", OutputError::NotFound},
                                           {"http://127.0.0.1:1/", OutputError::Network},
                                           {sim.baseUrl() + "/sim/log", OutputError::Decode},
                                           {good, OutputError::Network},
                                           {empty, OutputError::Network}}) {
        SCOPED_TRACE(uri.toStdString());
        make("fakesink sync=false");
        open(uri);
        const QString events = waitFor(QString("error %1").arg(kind));
        EXPECT_EQ(events.count("error"), 1) << events.toStdString();
        EXPECT_FALSE(events.contains("started"));
        thread.stop([this] { output.reset(); });
        log.clear();
    }
}

TEST_F(OutputTest, PlaysTwoItemsWithoutAGap)
{
    make("fakesink sync=false");
    next.uri = sim.address(1);
    open(sim.address(0));
    EXPECT_EQ(waitFor("finished").split(',').filter(QRegularExpression("start|Changed|fini")),
              QStringList({"started", "itemChanged", "finished"}));
}

TEST_F(OutputTest, PlaysAnotherNextItemThanTheOneItHasTakenAlready)
{
    make("null");
    next.uri = sim.address(1);
    other.uri = sim.address(2);
    open(sim.address(0));
    EXPECT_EQ(waitFor("finished").split(',').filter(QRegularExpression("Changed|fini")),
              QStringList({"itemChanged to another", "finished"}));
}

TEST_F(OutputTest, StartsWhereTheItemIsDecodedToItsEndBeforeItSounds)
{
    for (int startMs = 1500; startMs < 2000; startMs += 50) {
        SCOPED_TRACE(startMs);
        make("fakesink sync=false");
        const QString item = sim.address(0);
        const QString following = sim.address(1);
        ASSERT_FALSE(item.isEmpty() || following.isEmpty());
        on([&] {
            isNextNamed = true;
            output->open({item, startMs, 0});
            output->setNext({following, 0, 0});
        });
        EXPECT_EQ(waitFor("finished").split(',').filter(QRegularExpression("error|Changed")),
                  QStringList("itemChanged"));
        thread.stop([this] { output.reset(); });
        log.clear();
    }
}

TEST_F(OutputTest, StartsAtAPositionPausesAndSeeks)
{
    make("null");
    open(sim.address(0), 1500);
    waitFor("started");
    on([this] {
        EXPECT_GE(output->positionMs(), 1500);
        EXPECT_NEAR(output->durationMs(), 2000, 100);
        output->pause();
        output->seek(100);
        output->setVolume(50);
        output->resume();
    });
    waitFor("finished");
}

TEST_F(OutputTest, ASinkThatIsNoneIsRefusedWithASentence)
{
    QString error;
    EXPECT_EQ(AudioOutput::create("nosuchsink", &error), nullptr);
    EXPECT_TRUE(error.contains("nosuchsink"));
}

} // namespace
