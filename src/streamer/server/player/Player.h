#pragma once
#include "AudioOutput.h"
#include "Clock.h"
#include "KeptRows.h"
#include "PlayerControl.h"
#include <kelo/KeloListeners.h>
#include <kelo/KeloLoopThread.h>
#include <kelo/PlayLogicInterface.h>

class PlayerEngine;

/// How a player is set up.
struct PlayerOptions
{
    QString output = QStringLiteral("auto"); ///< auto, null, or the description of a GStreamer sink
    QString stateDir;                        ///< keeps volume and queue; empty: nothing is kept
};

/// The streamer's player: the face that the web API and the modules see. Owned by the program, made
/// before modules are loaded and ended after they are gone. Every operation but start() and stop()
/// may be called from any thread; the work is done by an engine on a thread of the player's own.
class Player : public PlayerControl, public PlayLogicInterface
{
public:
    using OutputFactory = std::function<std::unique_ptr<AudioOutput>(QString* error)>;

    explicit Player(const PlayerOptions& options);
    /// For tests: with an output and a clock, which outlives the player, of their own. The factory
    /// runs on the player's thread.
    Player(const PlayerOptions& options, OutputFactory makeOutput, Clock& clock);
    ~Player() override;

    /// Starts the player and registers it at KeloPlayerPath(). False, with a sentence in `error`,
    /// when the output cannot be made. Not on several threads at once.
    bool start(QString* error);
    /// Ends the sound and the thread; commands that wait are answered with an error. May be called
    /// twice.
    void stop();

    /// Runs a function on the player's thread, in a later turn; not when the player is stopped.
    void callLater(std::function<void()> function);

    PlayerStatus status() const override;
    CMReply<QVariant> command(const QString& name, const QVariantHash& arguments) override;
    quint64 addListener(Listener listener) override;
    void removeListener(quint64 id) override;
    KeptRows& keptRows() override { return m_keptRows; }

    QVariant play(const KeloRoles& item, int options) override;

private:
    void publish(const PlayerStatus& status);
    bool post(std::function<void(PlayerEngine&)> function);

    PlayerOptions m_options;
    SystemClock m_systemClock;
    Clock& m_clock;
    KeptRows m_keptRows{m_clock};
    OutputFactory m_makeOutput;
    KeloListeners<PlayerStatus> m_listeners;
    mutable std::mutex m_statusMutex;
    PlayerStatus m_status;    ///< guarded by the mutex, as the next
    qint64 m_measuredMs = 0;  ///< when its position was so
    std::mutex m_threadMutex; ///< guards posting against the thread's end
    bool m_isRunning = false;
    KeloLoopThread m_thread;
    std::unique_ptr<PlayerEngine> m_engine; ///< of the player's thread
};
