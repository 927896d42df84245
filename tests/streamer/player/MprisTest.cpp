#include "mpris/MprisService.h"
#include "PlayerFixture.h"
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace {
const QString name = "org.mpris.MediaPlayer2.kelo";
const QString object = "/org/mpris/MediaPlayer2";
const QString playerInterface = "org.mpris.MediaPlayer2.Player";
const QString propertiesInterface = "org.freedesktop.DBus.Properties";
} // namespace

/// The player on a bus of the test's own, and what a panel sees of it there.
class MprisTest : public QObject, public PlayerFixture
{
    Q_OBJECT
protected:
    MprisTest()
    {
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address",
                                       "--address=unix:dir=" + m_folder.path()});
        EXPECT_TRUE(m_daemon.waitForReadyRead(waitMs));
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        m_panel = QDBusConnection::connectToBus(m_address, "panel");
        EXPECT_TRUE(m_panel.isConnected());
        m_panel.connect(name, object, propertiesInterface, "PropertiesChanged", this,
                        SLOT(onChanged(QDBusMessage)));
        m_panel.connect(name, object, playerInterface, "Seeked", this,
                        SLOT(onSeeked(QDBusMessage)));
        m_panel.connect("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                        "NameOwnerChanged", this, SLOT(onNameOwner(QDBusMessage)));
        mpris.start(m_address);
        waitUntil([this] { return m_hasName; });
    }
    ~MprisTest() override
    {
        m_panel = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus("panel");
        endBus();
    }

    /// Ends the bus under everybody.
    void endBus()
    {
        m_daemon.terminate();
        m_daemon.waitForFinished(waitMs);
    }
    /// Calls a method; the error's name, "ok" without one.
    QString call(const QString& method, const QVariantList& arguments = {},
                 const QString& interface = playerInterface)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(name, object, interface, method);
        message.setArguments(arguments);
        m_answer = m_panel.call(message, QDBus::BlockWithGui, waitMs);
        return m_answer.type() == QDBusMessage::ErrorMessage ? m_answer.errorName() : "ok";
    }
    QVariant get(const QString& property, const QString& interface = playerInterface)
    {
        EXPECT_EQ(call("Get", {interface, property}, propertiesInterface), "ok");
        return m_answer.arguments().value(0).value<QDBusVariant>().variant();
    }
    QVariantMap metadata() { return qdbus_cast<QVariantMap>(get("Metadata")); }
    /// Waits until a property was said to have a value.
    void waitForProperty(const QString& property, const QVariant& value)
    {
        waitUntil([&] { return seen.value(property) == value; });
    }
    void waitUntil(const std::function<bool()>& condition)
    {
        QEventLoop loop;
        m_onEvent = [&] {
            if (condition())
                loop.quit();
        };
        QTimer::singleShot(waitMs, &loop, [&] { loop.exit(1); });
        if (!condition()) {
            EXPECT_EQ(loop.exec(), 0) << "in vain";
        }
        m_onEvent = nullptr;
    }

    MprisService mpris{*player};
    QVariantMap seen;    ///< the latest values of notices
    QStringList notices; ///< names of the properties of each notice
    qint64 seekedUs = -1;

private Q_SLOTS:
    void onChanged(const QDBusMessage& message)
    {
        const QVariantMap changed = qdbus_cast<QVariantMap>(message.arguments().at(1));
        notices << changed.keys().join(' ');
        for (auto it = changed.begin(); it != changed.end(); ++it)
            seen.insert(it.key(), it.value());
        happened();
    }
    void onSeeked(const QDBusMessage& message)
    {
        seekedUs = message.arguments().at(0).toLongLong();
        happened();
    }
    void onNameOwner(const QDBusMessage& message)
    {
        m_hasName = m_hasName || message.arguments().at(0) == name;
        happened();
    }

private:
    void happened()
    {
        if (m_onEvent)
            m_onEvent();
    }

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QDBusConnection m_panel{QString()};
    QDBusMessage m_answer;
    bool m_hasName = false;
    std::function<void()> m_onEvent;
};

TEST_F(MprisTest, APanelSeesAndDrivesThePlayer)
{
    EXPECT_EQ(get("PlaybackStatus"), "Stopped");
    EXPECT_EQ(get("CanPlay"), false);
    EXPECT_EQ(call("Play"), "ok"); // without effect
    addTracks({"1", "2"});
    ASSERT_EQ(play(list.toEncoded()), "ok");
    waitForProperty("CanSeek", true);
    EXPECT_EQ(get("PlaybackStatus"), "Playing");
    QVariantMap data = metadata();
    const auto track = data.take("mpris:trackid").value<QDBusObjectPath>();
    EXPECT_EQ(data, (QVariantMap{{"xesam:title", "Track 1"},
                                 {"xesam:album", "Album 1"},
                                 {"xesam:artist", QStringList{"Artist 1"}},
                                 {"mpris:length", qlonglong(100000000)}}));
    notices.clear();
    EXPECT_EQ(call("PlayPause"), "ok");
    waitForProperty("PlaybackStatus", "Paused");
    EXPECT_EQ(call("PlayPause"), "ok");
    waitForProperty("PlaybackStatus", "Playing");
    EXPECT_EQ(call("Set", {playerInterface, "Volume", QVariant::fromValue(QDBusVariant(0.25))},
                   propertiesInterface),
              "ok");
    waitForProperty("Volume", 0.25);
    EXPECT_EQ(notices, QStringList({"PlaybackStatus", "PlaybackStatus", "Volume"}));
    const auto set = [this](const QString& property, const QVariant& value) {
        return call("Set", {playerInterface, property, QVariant::fromValue(QDBusVariant(value))},
                    propertiesInterface);
    };
    EXPECT_EQ(get("LoopStatus"), "None");
    EXPECT_EQ(set("Shuffle", true), "ok");
    waitForProperty("Shuffle", true);
    EXPECT_EQ(set("LoopStatus", "Sometimes"), "ok"); // without effect
    EXPECT_EQ(set("LoopStatus", "Playlist"), "ok");
    waitForProperty("LoopStatus", "Playlist");
    EXPECT_EQ(set("LoopStatus", "Track"), "ok");
    waitForProperty("LoopStatus", "Track");
    EXPECT_EQ(status()["repeat"], "one");
    EXPECT_EQ(set("Shuffle", false), "ok");
    waitForProperty("Shuffle", false);

    script.setPosition(40000);
    EXPECT_EQ(call("SetPosition", {QVariant::fromValue(QDBusObjectPath("/other")), 1LL}), "ok");
    EXPECT_EQ(call("SetPosition", {QVariant::fromValue(track), 100000001LL}), "ok");
    EXPECT_EQ(call("SetPosition", {QVariant::fromValue(track), 40000000LL}), "ok");
    waitUntil([this] { return seekedUs == 40000000; });
    EXPECT_EQ(get("Position"), 40000000LL);
    EXPECT_EQ(call("Seek", {qlonglong(INT64_MIN)}), "ok");
    EXPECT_EQ(call("Seek", {5000000LL}), "ok");
    waitForOperation("seek 45000");
    EXPECT_EQ(script.operations().filter("seek").join(","), "seek 40000,seek 0,seek 45000");

    EXPECT_EQ(call("Seek", {qlonglong(INT64_MAX)}), "ok"); // beyond the end is the next item
    waitForTitle("Track 2");
    waitUntil([this] { return metadata()["xesam:title"] == "Track 2"; });
    EXPECT_NE(metadata()["mpris:trackid"].value<QDBusObjectPath>().path(), track.path());
    EXPECT_EQ(call("Previous"), "ok");
    waitForTitle("Track 1");
    EXPECT_EQ(call("Stop"), "ok");
    waitForProperty("PlaybackStatus", "Stopped");

    for (const char* method : {"Raise", "Quit"})
        EXPECT_EQ(call(method, {}, "org.mpris.MediaPlayer2"),
                  "org.freedesktop.DBus.Error.NotSupported");
    EXPECT_EQ(call("OpenUri", {"file:///x"}), "org.freedesktop.DBus.Error.NotSupported");
    EXPECT_EQ(get("CanQuit", "org.mpris.MediaPlayer2"), false);
}

TEST_F(MprisTest, NeitherTheBusNorItsEndConcernsThePlayer)
{
    MprisService without(*player);
    without.start(QString());
    MprisService nowhere(*player);
    nowhere.start("unix:path=/nowhere/bus");
    endBus();
    addTracks({"1"});
    EXPECT_EQ(play(pathOf("1")), "ok");
    mpris.stop();
    EXPECT_EQ(run("stop"), "ok");
}

#include "MprisTest.moc"
