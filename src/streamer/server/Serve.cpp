#include "server/Serve.h"

#include "EndSignals.h"
#include "FreeMemory.h"
#include "LogSetup.h"
#include "modules/ModuleApplication.h"
#include "ServiceManager.h"
#include "Streamer.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <kelo/KeloLog.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int exitDone = 0;
constexpr int exitFailed = 1;
constexpr int exitUsage = 2; ///< starting it again does not help

int failed(const QString& error, int status = exitFailed)
{
    const QStringList lines = error.split(QLatin1Char('\n'));
    for (const QString& line : lines)
        std::cerr << (isErrorTheJournal() ? "<3>kelo: " : "kelo: ") << line.toStdString()
                  << std::endl;
    return status;
}

/// Of a start that failed; being told to end meanwhile is none.
int exitStatus(const Streamer& streamer)
{
    if (EndSignals::isPending())
        return exitDone;
    return streamer.isWithoutModule() ? exitUsage : exitFailed;
}

/// Guards against exit() of a module, or of a library that it uses: the program would seem to have
/// ended in order. Lives as long as serve.
class OwnEnd
{
public:
    OwnEnd()
    {
        std::atexit([] {
            if (foreignStatus == exitDone)
                return;
            std::fputs("kelo: a module has called exit()\n", stderr);
            ::_exit(foreignStatus);
        });
    }
    ~OwnEnd() { foreignStatus = exitDone; }
    OwnEnd(const OwnEnd&) = delete;
    OwnEnd& operator=(const OwnEnd&) = delete;
    /// From now on another start may help.
    static void hasStarted() { foreignStatus = exitFailed; }

private:
    inline static std::atomic<int> foreignStatus{exitUsage}; ///< what such an end is given
};

/// A thread that is left behind must not meet the end of what it uses.
int ended(const Streamer& streamer, int status)
{
    if (streamer.isThreadLeftBehind()) {
        std::cout.flush();
        std::_Exit(status);
    }
    return status;
}

} // namespace

int keloServe(const ServeOptions& options, const Settings& settings)
{
    static char name[] = "kelo";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    QString error;
    const OwnEnd ownEnd;
    ModuleApplication application(count, arguments);
    const FreeMemory freeMemory;
    EndSignals endSignals([] { QCoreApplication::quit(); });
    if (!setUpLog(settings.log, &error))
        return failed(error);

    Streamer streamer(options, settings, [] { QCoreApplication::exit(exitUsage); });
    bool isStarted = false;
    try {
        isStarted = streamer.start(&error);
    } catch (const std::system_error& fault) {
        error = QStringLiteral("cannot start a thread: ") + QString::fromLocal8Bit(fault.what());
    }
    if (!isStarted) {
        const int status = failed(error, exitStatus(streamer));
        EndSignals::limitStopTime(status);
        streamer.stop();
        return ended(streamer, status);
    }
    std::cout << "listening on " << streamer.address().toStdString() << std::endl;
    KELO_LOG("Serve", INFO) << "Listening on " << streamer.address();
    tellServiceManager("READY=1");
    OwnEnd::hasStarted();
    Watchdog watchdog([&streamer] { return streamer.loops(); });
    watchdog.start();

    const int status = QCoreApplication::exec();
    KELO_LOG("Serve", INFO) << "Stopping";
    tellServiceManager("STOPPING=1");
    EndSignals::limitStopTime(exitFailed);
    streamer.stop();
    return ended(streamer, status);
}
