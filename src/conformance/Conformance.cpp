#include "Conformance.h"

#include <dirent.h>
#include <kelo/CMWorker.h>
#include <kelo/KeloLog.h>
#include <log4cplus/appender.h>
#include <log4cplus/nullappender.h>
#include <log4cplus/spi/loggingevent.h>
#include <poll.h>
#include <QFile>
#include <thread>

namespace {

constexpr int mostThreadTries = 200; // of 10 ms

/// Notes what the host says of second answers, and of what the module throws.
class HostLog : public log4cplus::Appender
{
public:
    explicit HostLog(Findings& findings) : m_findings(findings) {}
    ~HostLog() override { destructorImpl(); }
    void close() override { closed = true; }

protected:
    void append(const log4cplus::spi::InternalLoggingEvent& event) override
    {
        const QString text = QString::fromStdString(event.getMessage());
        if (text.contains(QLatin1String("second answer")))
            m_findings.fault(Asker::checkName(), QStringLiteral("a request was answered twice"));
        else if (text.contains(QLatin1String("threw an exception")))
            m_findings.fault(Asker::checkName(), text);
    }

private:
    Findings& m_findings;
};

void listenToHost(Findings& findings)
{
    log4cplus::Logger::getRoot().addAppender(
        log4cplus::SharedAppenderPtr(new log4cplus::NullAppender));
    log4cplus::Logger host = keloLogger("Host");
    host.setAdditivity(false);
    host.setLogLevel(log4cplus::DEBUG_LOG_LEVEL);
    host.addAppender(log4cplus::SharedAppenderPtr(new HostLog(findings)));
}

/// What a thread is called. One without a name of its own has that of the thread that started it,
/// which is the program's or the module's.
QString ownName(const QString& name, const QString& module)
{
    QFile program(QStringLiteral("/proc/self/comm"));
    QStringList inherited{QString::fromUtf8(module.toUtf8().left(15))};
    if (program.open(QIODevice::ReadOnly))
        inherited.append(QString::fromUtf8(program.readAll()).trimmed());
    return inherited.contains(name) ? QStringLiteral("a thread without a name of its own") : name;
}

/// The names of the process's threads, by their numbers.
QMap<QString, QString> threads()
{
    QMap<QString, QString> threads;
    const QString folder = QStringLiteral("/proc/self/task/");
    DIR* const tasks = opendir(QFile::encodeName(folder).constData());
    while (const dirent* task = tasks ? readdir(tasks) : nullptr) {
        const QString number = QString::fromLatin1(task->d_name);
        QFile name(folder + number + QStringLiteral("/comm"));
        if (!number.startsWith(QLatin1Char('.')) && name.open(QIODevice::ReadOnly))
            threads.insert(number, QString::fromUtf8(name.readAll()).trimmed());
    }
    if (tasks)
        closedir(tasks);
    return threads;
}

/// The names of the threads that were not there before; those that are about to end get the time.
QStringList threadsSince(const QMap<QString, QString>& before, const QString& module)
{
    QStringList names;
    for (int i = 0; i < mostThreadTries; ++i) {
        names.clear();
        const QMap<QString, QString> now = threads();
        for (auto it = now.begin(); it != now.end(); ++it) {
            if (!before.contains(it.key()))
                names.append(ownName(it.value(), module));
        }
        if (names.isEmpty())
            break;
        poll(nullptr, 0, 10); // the end of another's thread is no event
    }
    return names;
}

} // namespace

Conformance::Conformance(const Options& options, Findings& findings)
    : m_options(options), m_findings(findings), m_host(options), m_asker(findings)
{
    listenToHost(findings);
}

void Conformance::run()
{
    const QMap<QString, QString> before = threads();
    if (!start())
        return m_findings.complete();
    walk();
    checkRanges();
    checkUnknown();
    checkParallel();
    checkPlay();
    checkNotices();
    checkStop();
    m_findings.begin(QStringLiteral("threads"));
    const QStringList left = threadsSince(before, m_options.name);
    if (!left.isEmpty())
        m_findings.fault(QStringLiteral("threads"),
                         QStringLiteral("left behind: ") + left.join(QStringLiteral(", ")));
    m_findings.end(QStringLiteral("threads"), QStringLiteral("none left behind"));
    m_findings.end(Asker::checkName(),
                   QStringLiteral("%1 requests, each answered once").arg(m_asker.count()));
    m_findings.complete();
}

bool Conformance::start()
{
    const QString load = QStringLiteral("load");
    m_findings.begin(load);
    QString fault = m_host.load();
    if (fault.isEmpty()) {
        m_findings.begin(load, QStringLiteral("worker_create"));
        fault = m_host.start();
    }
    if (!fault.isEmpty())
        m_findings.fault(load, fault);
    m_findings.end(load, QStringLiteral("stands at %1").arg(m_options.prefix));
    return m_host.worker();
}

void Conformance::checkUnknown()
{
    const QString check = QStringLiteral("unknown");
    CMPath path(m_options.prefix);
    path.appendSubpath(QStringLiteral("no-such-place"));
    m_findings.begin(check, path.toEncoded());
    if (m_asker.rows(path, 0, 9).isAnswered())
        m_findings.fault(check, path.toEncoded() + QStringLiteral(" has rows"));
    if (!m_asker.data(path).isSet())
        m_findings.fault(check, path.toEncoded() + QStringLiteral(" has data"));
    if (!m_asker.set(path, KeloRoles::Value(), QVariant()).isSet())
        m_findings.fault(check, path.toEncoded() + QStringLiteral(" takes a value"));
    m_findings.end(check, QStringLiteral("a path without a node is an error"));
}

void Conformance::checkParallel()
{
    const QString check = QStringLiteral("parallel");
    constexpr int threadCount = 4;
    constexpr size_t mostLists = 20;
    m_findings.begin(check);
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (size_t at = 0; at < std::min(m_lists.size(), mostLists); ++at) {
                List list = m_lists[at];
                judge(list, [&](const List& seen) -> Faults {
                    const Page page = m_asker.rows(seen.path, 0, 19);
                    if (page.paths() == seen.first.paths())
                        return {};
                    return {{check,
                             seen.path.toEncoded() + QStringLiteral(": other rows than before")}};
                });
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    m_findings.end(check, QStringLiteral("%1 threads ask at once").arg(threadCount));
}

void Conformance::checkPlay()
{
    const QString check = QStringLiteral("play");
    KeloRoles row;
    for (const List& list : m_lists) {
        for (const KeloRoles& item : list.first.rows) {
            if (row.isEmpty() && !item.mediaData().metaData().prePlayPath().isEmpty())
                row = item;
        }
    }
    if (row.isEmpty())
        return m_findings.skip(check, QStringLiteral("no row says where it is played"));
    const CMPath path = row.mediaData().metaData().prePlayPath();
    m_findings.begin(check, path.toEncoded());
    const CMError error = m_asker.set(path, KeloRoles::PrePlay(), row.toVariant());
    const QList<KeloRoles> played = m_host.takePlayed();
    const KeloRoles item = played.value(0);
    if (error.isSet())
        m_findings.fault(check, path.toEncoded() + QStringLiteral(": ") + error.message());
    else if (played.size() != 1)
        m_findings.fault(
            check,
            QStringLiteral("%1 items were handed over before the answer").arg(played.size()));
    else if (item.path() != path)
        m_findings.fault(check, QStringLiteral("asked at %1, the item came under %2")
                                    .arg(path.toEncoded(), item.path().toEncoded()));
    else if (item.mediaData().resources().value(0).uri().isEmpty())
        m_findings.fault(check, QStringLiteral("the item has no address"));
    m_findings.end(
        check, QStringLiteral("%1 is handed over under the path it was asked at").arg(row.title()));
}

/// Deletes the worker while it owes answers.
void Conformance::checkStop()
{
    const QString check = QStringLiteral("stop");
    constexpr size_t mostOwed = 60;
    m_findings.begin(check);
    std::vector<CMGetRowsRequest> owed;
    for (int from = 0; from < 90 && owed.size() < mostOwed; from += 30) {
        for (const List& list : m_lists)
            owed.emplace_back(list.path, from, from + 29, Asker::roles());
    }
    for (const CMGetRowsRequest& request : owed)
        CMRoot().request(request);
    m_host.stop();
    for (const CMGetRowsRequest& request : owed) {
        if (!request.reply().isFinished())
            m_findings.fault(check, request.toString() + QStringLiteral(": no answer"));
    }
    m_findings.end(check, QStringLiteral("with %1 requests under way").arg(owed.size()));
}

/// Returns when what is queued for the module has run.
void Conformance::settle()
{
    if (auto* worker = qobject_cast<CMWorker*>(m_host.worker()))
        worker->ping().waitForFinished(int(std::chrono::milliseconds(m_options.deadline).count()));
}
