#include "server/Serve.h"

#include "EndSignals.h"
#include "FreeMemory.h"
#include "LogSetup.h"
#include "ServiceManager.h"
#include "Streamer.h"

#include <iostream>
#include <kelo/KeloLog.h>
#include <QCoreApplication>
#include <system_error>

namespace {

constexpr int exitDone = 0;
constexpr int exitFailed = 1;

int failed(const QString& error)
{
    std::cerr << (isErrorTheJournal() ? "<3>kelo: " : "kelo: ") << error.toStdString() << std::endl;
    return exitFailed;
}

} // namespace

int keloServe(const ServeOptions& options, const Settings& settings)
{
    static char name[] = "kelo";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    QString error;
    QCoreApplication application(count, arguments);
    const FreeMemory freeMemory;
    EndSignals endSignals([] { QCoreApplication::quit(); });
    if (!setUpLog(settings.log, &error))
        return failed(error);

    Streamer streamer(options, settings);
    try {
        if (!streamer.start(&error))
            return failed(error);
    } catch (const std::system_error& fault) {
        return failed(QStringLiteral("cannot start a thread: ") +
                      QString::fromLocal8Bit(fault.what()));
    }
    std::cout << "listening on " << streamer.address().toStdString() << std::endl;
    KELO_LOG("Serve", INFO) << "Listening on " << streamer.address();
    tellServiceManager("READY=1");
    Watchdog watchdog([&streamer] { return streamer.loops(); });
    watchdog.start();

    QCoreApplication::exec();
    KELO_LOG("Serve", INFO) << "Stopping";
    tellServiceManager("STOPPING=1");
    EndSignals::limitStopTime();
    streamer.stop();
    return exitDone;
}
