#include "LogSetup.h"

#include <kelo/KeloLog.h>
#include <log4cplus/consoleappender.h>
#include <log4cplus/fileappender.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <QFile>

namespace {

constexpr char logPattern[] = "%D{%Y-%m-%dT%H:%M:%S.%q} %-5p %c: %m%n";

/// Hands Qt's own messages to the log.
void onQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    switch (type) {
    case QtDebugMsg:
        KELO_LOG("Qt", DEBUG) << text;
        break;
    case QtInfoMsg:
        KELO_LOG("Qt", INFO) << text;
        break;
    case QtWarningMsg:
        KELO_LOG("Qt", WARN) << text;
        break;
    case QtCriticalMsg:
    case QtFatalMsg: // Qt ends the process after this one
        KELO_LOG("Qt", ERROR) << text;
        break;
    }
}

} // namespace

bool setUpLog(const LogSettings& settings, QString* error)
{
    log4cplus::initialize();
    log4cplus::SharedAppenderPtr appender;
    if (settings.file.isEmpty()) {
        appender = new log4cplus::ConsoleAppender(true, true);
    } else {
        QFile file(settings.file);
        if (!file.open(QIODevice::Append)) {
            *error = QStringLiteral("cannot write the log file %1: %2")
                         .arg(settings.file, file.errorString());
            return false;
        }
        file.close();
        appender = new log4cplus::FileAppender(QFile::encodeName(settings.file).toStdString(),
                                               std::ios_base::app);
    }
    appender->setLayout(std::make_unique<log4cplus::PatternLayout>(logPattern));
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    root.removeAllAppenders();
    root.addAppender(appender);
    root.setLogLevel(
        log4cplus::getLogLevelManager().fromString(settings.level.toUpper().toStdString()));
    qInstallMessageHandler(onQtMessage);
    return true;
}
