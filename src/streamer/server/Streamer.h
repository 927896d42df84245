#pragma once
#include "modules/Modules.h"
#include "settings/ServeOptions.h"
#include "settings/Settings.h"
#include "Watchdog.h"

#include <kelo/CMWorkerThread.h>
#include <memory>

class Demo;
class MprisService;
class Player;
class TreeLogins;
class WebServer;

/// The assembled streamer: settings, login, player, module and web API, started in that order and
/// stopped in the opposite one. Owned by serve, used on its thread. It reads no command line.
class Streamer
{
public:
    /// `onNoneLeft` is called when the last module has failed.
    Streamer(const ServeOptions& options, const Settings& settings,
             std::function<void()> onNoneLeft);
    ~Streamer();

    /// False with a sentence in `error`; what was started stays, to be stopped.
    [[nodiscard]] bool start(QString* error);
    void stop();
    /// Whether it was started but for a module to serve.
    bool isWithoutModule() const { return m_isWithoutModule; }
    /// Whether a module's thread has not ended, so that the process has to end without it.
    bool isThreadLeftBehind() const { return m_modules.isThreadLeftBehind(); }
    /// Where clients reach it: "http://ADDR:PORT".
    QString address() const;
    /// The event loops of all threads that serve. Between start() and stop().
    std::vector<Watchdog::Loop> loops() const;

private:
    /// Runs the simulated service and points all addresses of the settings at it.
    bool startDemo(QString* error);
    void makeStateFolder() const;
    /// Tells of another streamer that has the state folder.
    void lockStateFolder();
    bool startWorkers(QString* error);
    bool startPlayer(QString* error);
    bool startModules(QString* error);
    bool startWeb(QString* error);
    void startMpris();
    void logInToDemo();

    const ServeOptions m_options;
    Settings m_settings;
    QString m_stateFolder; ///< a demo has one of its own
    int m_stateLock = -1;  ///< the folder, locked for as long as this lives
    bool m_isWithoutModule = false;
    std::unique_ptr<Demo> m_demo; ///< the simulated service; null without a demo
    CMWorkerThread m_settingsThread;
    CMWorkerThread m_oauth2Thread;
    std::unique_ptr<Player> m_player;
    std::unique_ptr<TreeLogins> m_logins;
    Modules m_modules;
    std::unique_ptr<WebServer> m_web;
    std::unique_ptr<MprisService> m_mpris; ///< null unless it is wanted
};
