#include "LogSetup.h"

#include <kelo/KeloLog.h>
#include <log4cplus/consoleappender.h>
#include <log4cplus/fileappender.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <log4cplus/spi/loggingevent.h>
#include <QFile>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char logPattern[] = "%D{%Y-%m-%dT%H:%M:%S.%q} %-5p %c: %m%n";

/// For the journal, which has time and process of its own: a number that it reads as the priority
/// (sd-daemon(3)) takes the place of time stamp and level.
class JournalLayout : public log4cplus::PatternLayout
{
public:
    JournalLayout() : PatternLayout("%c: %m%n") {}

    void formatAndAppend(log4cplus::tostream& out,
                         const log4cplus::spi::InternalLoggingEvent& event) override
    {
        const log4cplus::LogLevel level = event.getLogLevel();
        out << (level >= log4cplus::ERROR_LOG_LEVEL  ? "<3>"
                : level >= log4cplus::WARN_LOG_LEVEL ? "<4>"
                : level >= log4cplus::INFO_LOG_LEVEL ? "<6>"
                                                     : "<7>");
        PatternLayout::formatAndAppend(out, event);
    }
};

std::unique_ptr<log4cplus::Layout> layout(bool isJournal)
{
    if (isJournal)
        return std::make_unique<JournalLayout>();
    return std::make_unique<log4cplus::PatternLayout>(logPattern);
}

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

bool isErrorTheJournal()
{
    struct stat status = {};
    const QByteArray journal = qgetenv("JOURNAL_STREAM"); // systemd.exec(5)
    return ::fstat(STDERR_FILENO, &status) == 0 &&
           journal == QByteArray::number(quint64(status.st_dev)) + ':' +
                          QByteArray::number(quint64(status.st_ino));
}

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
    appender->setLayout(layout(settings.file.isEmpty() && isErrorTheJournal()));
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    root.removeAllAppenders();
    root.addAppender(appender);
    root.setLogLevel(
        log4cplus::getLogLevelManager().fromString(settings.level.toUpper().toStdString()));
    qInstallMessageHandler(onQtMessage);
    return true;
}
