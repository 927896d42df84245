#include "Streamer.h"

#include "Demo.h"
#include "EndSignals.h"
#include "KeptFile.h"
#include "mpris/MprisService.h"
#include "mpris/SessionBus.h"
#include "oauth2/OAuth2Worker.h"
#include "oauth2/TreeLogins.h"
#include "player/Player.h"
#include "SettingsWorker.h"
#include "web/WebServer.h"

#include <cerrno>
#include <cmath>
#include <fcntl.h>
#include <future>
#include <kelo/CMAbstractWorker.h>
#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloTidalConstants.h>
#include <mutex>
#include <QFileInfo>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds demoLoginLimit{10};

std::chrono::milliseconds fromSeconds(double seconds)
{
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

} // namespace

Streamer::Streamer(const ServeOptions& options, const Settings& settings,
                   std::function<void()> onNoneLeft)
    : m_options(options), m_settings(settings),
      m_stateFolder(options.isDemo ? options.stateDirectory + QStringLiteral("/demo")
                                   : options.stateDirectory),
      m_modules(std::move(onNoneLeft))
{
}

Streamer::~Streamer()
{
    stop();
    ::close(m_stateLock);
}

bool Streamer::start(QString* error)
{
    makeStateFolder();
    lockStateFolder();
    if (!startDemo(error) || !startWorkers(error) || !startPlayer(error) || !startModules(error) ||
        !startWeb(error))
        return false;
    startMpris();
    if (m_options.isDemo && m_modules.isServing('/' + KeloService_Tidal_Id()))
        logInToDemo();
    return true;
}

/// So that whoever reads the address finds the tree open. A login that does not come to an end in
/// time goes on by itself.
void Streamer::logInToDemo()
{
    std::promise<void> promise;
    std::once_flag done;
    const auto tell = [&](const LoginState& login) {
        if (login.service == KeloTidalName() && login.info.loggedIn())
            std::call_once(done, [&] { promise.set_value(); });
    };
    const quint64 listener = m_logins->addListener(tell);
    m_logins->start(KeloTidalName());
    tell({KeloTidalName(), m_logins->status(KeloTidalName())});
    promise.get_future().wait_for(demoLoginLimit);
    m_logins->removeListener(listener);
}

void Streamer::stop()
{
    m_mpris.reset();
    if (m_web)
        m_web->stop();
    m_web.reset();
    m_modules.stop();
    m_logins.reset();
    m_player.reset();
    m_oauth2Thread.stop();
    m_settingsThread.stop();
    m_demo.reset();
}

QString Streamer::address() const
{
    const QString host = m_settings.server.listen.host;
    const bool isV6 = host.contains(':');
    return QStringLiteral("http://%1:%2")
        .arg(isV6 ? '[' + host + ']' : host)
        .arg(m_web ? m_web->port() : 0);
}

std::vector<Watchdog::Loop> Streamer::loops() const
{
    std::vector<Watchdog::Loop> loops{m_web->runner(), [this](std::function<void()> function) {
                                          m_player->callLater(std::move(function));
                                      }};
    for (CMAbstractWorker* worker : CMRoot().workers())
        loops.push_back(
            [worker](std::function<void()> function) { keloPost(worker, std::move(function)); });
    return loops;
}

/// Without one it serves all the same: each file that cannot be written is told of.
void Streamer::makeStateFolder() const
{
    QString reason;
    if (!KeptFile::makeFolder(m_stateFolder, &reason))
        KELO_LOG("Serve", ERROR) << "cannot make the state folder " << m_stateFolder << ": "
                                 << reason << "; nothing outlasts a restart";
}

/// Each would overwrite what the other one keeps, and use up the tokens of its login. It serves all
/// the same: the lock of a process that hangs must not keep its successor from it.
void Streamer::lockStateFolder()
{
    m_stateLock =
        ::open(QFile::encodeName(m_stateFolder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_stateLock >= 0 && ::flock(m_stateLock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        KELO_LOG("Serve", ERROR) << "another streamer has the state folder " << m_stateFolder
                                 << "; login and queue of one of them will be lost";
}

bool Streamer::startDemo(QString* error)
{
    if (!m_options.isDemo)
        return true;
    m_demo = std::make_unique<Demo>();
    const QString base = m_demo->start(error);
    if (base.isEmpty())
        return false;
    TidalSettings& settings = m_settings.tidal;
    settings.apiUrl = base + QStringLiteral("/v1");
    settings.imageUrl = base + QStringLiteral("/images/");
    settings.oauth2.deviceCodeUrl = base + QStringLiteral("/v1/oauth2/device_authorization");
    settings.oauth2.authorizationUrl = base + QStringLiteral("/v1/oauth2/authorize");
    settings.oauth2.tokenUrl = base + QStringLiteral("/v1/oauth2/token");
    settings.oauth2.clientId = QStringLiteral("kelo-demo");
    settings.oauth2.clientSecret = Secret(QStringLiteral("kelo-demo-secret"));
    settings.oauth2.clientSecretFile.clear();
    return true;
}

bool Streamer::startWorkers(QString* error)
{
    CMDeadlines deadlines;
    deadlines.rows = fromSeconds(m_settings.deadlines.rowsSeconds);
    deadlines.data = fromSeconds(m_settings.deadlines.dataSeconds);
    deadlines.set = fromSeconds(m_settings.deadlines.setSeconds);
    CMRoot().setDeadlines(deadlines);

    if (!m_settingsThread.start("settings", [this] { return new SettingsWorker(m_settings); })) {
        *error = QStringLiteral("cannot publish the settings");
        return false;
    }
    const QString tokens = m_stateFolder + QStringLiteral("/oauth2");
    if (!m_oauth2Thread.start("oauth2", [&tokens] { return new OAuth2Worker(tokens); })) {
        *error = QStringLiteral("cannot start the login service");
        return false;
    }
    return true;
}

bool Streamer::startPlayer(QString* error)
{
    m_player = std::make_unique<Player>(PlayerOptions{m_settings.player.output, m_stateFolder});
    return m_player->start(error);
}

bool Streamer::startModules(QString* error)
{
    QStringList files = m_options.moduleFiles;
    if (files.isEmpty())
        files = m_settings.modules.files;
    if (files.isEmpty())
        files = ModuleChoice::installedFiles();
    std::vector<ModuleChoice> choices;
    for (const QString& file : qAsConst(files))
        choices.push_back(ModuleChoice::ofFile(file, m_settings.modules));
    const QStringList warnings = ModuleChoice::strayingSections(choices, m_settings.modules);
    for (const QString& warning : warnings)
        KELO_LOG("Modules", WARN) << warning;
    const auto limit = fromSeconds(m_settings.deadlines.moduleSeconds);
    const auto isWanted = [] { return !EndSignals::isPending(); };
    m_isWithoutModule = !m_modules.start(choices, limit, isWanted, error);
    if (m_isWithoutModule)
        return false;
    m_logins = std::make_unique<TreeLogins>();
    return true;
}

bool Streamer::startWeb(QString* error)
{
    WebServerOptions options;
    options.address = m_settings.server.listen.host;
    options.port = m_settings.server.listen.port;
    options.modules = [this] { return m_modules.states(); };
    options.hostNames = m_settings.server.hostNames;
    options.imageUrl = m_settings.tidal.imageUrl;
    options.imageUrls = [this] { return m_modules.imageUrls(); };
    options.webDirectory = m_settings.server.webDirectory;
    if (!options.webDirectory.isEmpty() && !QFileInfo(options.webDirectory).isDir()) {
        *error = QStringLiteral("server.web_dir: %1 is no folder").arg(options.webDirectory);
        return false;
    }
    m_web = std::make_unique<WebServer>(options, *m_player, *m_logins);
    return m_web->start(error);
}

void Streamer::startMpris()
{
    if (!m_settings.player.mpris)
        return;
    m_mpris = std::make_unique<MprisService>(*m_player);
    m_mpris->start(sessionBusAddress());
}
