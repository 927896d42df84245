#pragma once
#include "../FakeClock.h"
#include "FakeModule.h"
#include "FakeOutput.h"
#include "Player.h"
#include "web/PlayerApi.h"
#include <gtest/gtest.h>
#include <kelo/CMWorkerThread.h>
#include <QJsonDocument>
#include <QTemporaryDir>

/// A player on a scripted module and output, at a clock of its own. Waits are for the player's own
/// status notices.
class PlayerFixture : public testing::Test
{
protected:
    static constexpr int waitMs = 20000;

    PlayerFixture()
    {
        module =
            static_cast<FakeModule*>(moduleThread.start("fake", [] { return new FakeModule; }));
        list = CMPath("/fake/list", {{"contentId", "7"}});
        startPlayer();
    }
    ~PlayerFixture() override
    {
        player.reset();
        moduleThread.stop();
        EXPECT_EQ(CMRoot().pendingRequests(), 0);
    }

    void startPlayer()
    {
        startPlayer([this](QString*) { return std::make_unique<FakeOutput>(script); }, time);
    }
    void startPlayer(const Player::OutputFactory& makeOutput, Clock& clock)
    {
        PlayerOptions options;
        options.stateDir = stateDir.path();
        player = std::make_unique<Player>(options, makeOutput, clock);
        player->addListener([this](const PlayerStatus& status) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_last = json(status);
            m_changed.notify_all();
        });
        QString error;
        ASSERT_TRUE(player->start(&error)) << error.toStdString();
    }

    /// A status as clients get it.
    static QJsonObject json(const PlayerStatus& status)
    {
        const std::string text = PlayerApi::text(status, nullptr);
        return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    }
    QJsonObject status() const { return json(player->status()); }

    /// The status while there is nothing.
    QJsonObject idle() const
    {
        return {{"state", "stopped"},
                {"volume", 100},
                {"shuffle", false},
                {"repeat", "off"},
                {"queueVersion", status()["queueVersion"]}};
    }

    /// A list of tracks with these ids.
    void addTracks(const QStringList& ids)
    {
        QList<KeloRoles> rows;
        for (const QString& id : ids)
            rows << FakeModule::track(list, id);
        module->addList(list, rows);
    }
    QString pathOf(const QString& id) const
    {
        return FakeModule::track(list, id).path().toEncoded();
    }

    CMReply<QVariant> begin(const QString& name, const QVariantHash& arguments = {})
    {
        return player->command(name, arguments);
    }
    /// Runs a command to its end; the error's text, "ok" without one.
    QString run(const QString& name, const QVariantHash& arguments = {})
    {
        return outcome(begin(name, arguments));
    }
    QString play(const QString& path) { return run("play", {{"path", path}}); }
    static QString outcome(const CMReply<QVariant>& reply)
    {
        if (!reply.waitForFinished(waitMs))
            return "unanswered";
        return reply.error().isSet() ? reply.error().message() : QString("ok");
    }
    /// The last status notice that a condition holds for; fails the test when none comes.
    QJsonObject waitFor(const std::function<bool(const QJsonObject&)>& condition)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        EXPECT_TRUE(m_changed.wait_for(lock, std::chrono::milliseconds(waitMs),
                                       [&] { return condition(m_last); }))
            << "state " << m_last["state"].toString().toStdString() << ", title "
            << m_last["title"].toString().toStdString();
        return m_last;
    }
    QJsonObject waitForTitle(const QString& title, const QString& state = "playing")
    {
        return waitFor([&](const QJsonObject& status) {
            return status["title"] == title && status["state"] == state;
        });
    }
    QJsonObject waitForState(const QString& state)
    {
        return waitFor([&](const QJsonObject& status) { return status["state"] == state; });
    }
    /// Brings the present item close to its end and lets the player notice.
    void nearEnd()
    {
        script.setPosition(95000);
        time.advance(1000);
    }
    /// Waits for an operation of the output.
    void waitForOperation(const QString& operation)
    {
        EXPECT_TRUE(script.waitFor([&] { return script.log.contains(operation); }));
    }
    QStringList opened() { return script.operations().filter(QRegularExpression("^(open|next) ")); }

    QTemporaryDir stateDir;
    FakeClock time;
    OutputScript script;
    CMWorkerThread moduleThread;
    FakeModule* module = nullptr;
    std::unique_ptr<Player> player;
    CMPath list;

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QJsonObject m_last;
};

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << text.toStdString();
}
