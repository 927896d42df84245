#include "MprisObject.h"
#include "MprisPlayer.h"
#include "MprisRoot.h"
#include "PlayerControl.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>
#include <QCoreApplication>
#include <QDBusMessage>

namespace {
const QString connectionName = QStringLiteral("kelo-mpris");
const QString objectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString busName = QStringLiteral("org.mpris.MediaPlayer2.kelo");
} // namespace

/// The entry of the library that MprisService loads.
extern "C" Q_DECL_EXPORT QObject* kelo_mpris_object(PlayerControl& player,
                                                    const QString& busAddress)
{
    auto* object = new MprisObject(player);
    object->connectTo(busAddress);
    return object;
}

MprisObject::MprisObject(PlayerControl& player)
    : m_player(player), m_adaptor(new MprisPlayer(*this)), m_connection(QString())
{
    new MprisRoot(*this);
    m_clock.start();
}

MprisObject::~MprisObject()
{
    if (m_listener)
        m_player.removeListener(m_listener);
    m_connection = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(connectionName);
}

void MprisObject::connectTo(const QString& busAddress)
{
    m_connection = QDBusConnection::connectToBus(busAddress, connectionName);
    if (!m_connection.isConnected()) {
        KELO_LOG("mpris", DEBUG) << "no session bus: " << m_connection.lastError().message();
        return;
    }
    // The library itself tells in this way that the connection is gone.
    m_connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"),
                         QStringLiteral("Disconnected"), this, SLOT(onDisconnected()));
    m_listener = m_player.addListener([this](const PlayerStatus& status) {
        keloPost(this, [this, status] { onStatus(status); });
    });
    m_state.update(m_player.status(), m_clock.elapsed());
    if (!m_connection.registerObject(objectPath, this) || !takeName())
        KELO_LOG("mpris", DEBUG) << "no name on the bus: " << m_connection.lastError().message();
}

/// A second streamer of the same session gets a name of its own.
bool MprisObject::takeName()
{
    return m_connection.registerService(busName) ||
           m_connection.registerService(
               busName + QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid()));
}

void MprisObject::onDisconnected()
{
    KELO_LOG("mpris", DEBUG) << "the session bus is gone";
    if (m_listener)
        m_player.removeListener(std::exchange(m_listener, 0));
}

void MprisObject::onStatus(const PlayerStatus& status)
{
    const MprisState::Change change = m_state.update(status, m_clock.elapsed());
    if (!change.properties.isEmpty()) {
        QDBusMessage notice = QDBusMessage::createSignal(
            objectPath, QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("PropertiesChanged"));
        notice << QStringLiteral("org.mpris.MediaPlayer2.Player") << change.properties
               << QStringList();
        m_connection.send(notice);
    }
    if (change.jumpUs)
        Q_EMIT m_adaptor->Seeked(*change.jumpUs);
}

qint64 MprisObject::positionUs() const
{
    return m_player.status().positionMs * 1000;
}

void MprisObject::command(const QString& name, const QVariantHash& arguments)
{
    const CMReply<QVariant> reply = m_player.command(name, arguments);
    reply.addWatcher(
        this,
        [reply, name] {
            if (reply.error().isSet())
                KELO_LOG("mpris", INFO) << name << ": " << reply.error().message();
        },
        Qt::QueuedConnection);
}

void MprisObject::refuse(const QDBusMessage& call, const QString& text)
{
    call.setDelayedReply(true);
    m_connection.send(call.createErrorReply(QDBusError::NotSupported, text));
}
