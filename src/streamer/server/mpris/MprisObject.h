#pragma once
#include "MprisState.h"
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QObject>

class MprisPlayer;
class PlayerControl;

/// What stands on the session bus at /org/mpris/MediaPlayer2: the connection, the name, and the
/// notices of what changed. Owned by MprisService; lives on its thread. The interfaces are its
/// adaptors.
class MprisObject : public QObject
{
    Q_OBJECT
public:
    explicit MprisObject(PlayerControl& player);
    ~MprisObject() override;

    /// Connects, takes a name and follows the player. When that fails, nothing else happens.
    void connectTo(const QString& busAddress);

    const MprisState& state() const { return m_state; }
    qint64 positionUs() const;
    /// Runs a command of the player. Its outcome shows in the properties; a failure is logged.
    void command(const QString& name, const QVariantHash& arguments = {});
    /// Answers a call that asks for something this player does not do.
    void refuse(const QDBusMessage& call, const QString& text);

private Q_SLOTS:
    void onDisconnected();

private:
    bool takeName();
    void onStatus(const PlayerStatus& status);

    PlayerControl& m_player;
    MprisPlayer* m_adaptor; ///< child of this
    QDBusConnection m_connection;
    MprisState m_state;
    QElapsedTimer m_clock;
    quint64 m_listener = 0; ///< 0: the player is not followed
};
