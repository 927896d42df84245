#include "Conformance.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int exitFailed = 1;
constexpr int exitUsage = 2;
constexpr char childMark[] = "--report-to="; ///< the program's own first argument

Findings* childFindings = nullptr; ///< of the message handler, which gets no context

void onMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    std::cerr << text.toStdString() << std::endl;
    if (type != QtFatalMsg)
        return;
    childFindings->fault(Asker::checkName(), text);
    childFindings->end(Asker::checkName(), QString());
    _exit(exitFailed);
}

/// The checks, in a process that the module may end. Its arguments begin with the descriptor to
/// report to.
int runChecks(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const int descriptor = arguments.value(0).mid(int(std::strlen(childMark))).toInt();
    Options options;
    QString error;
    if (!options.read(arguments.mid(1), &error)) {
        std::cerr << "kelo-conformance: " << error.toStdString() << std::endl;
        return exitUsage;
    }
    if (options.isHelp) {
        std::cout << Options::help().toStdString();
        return 0;
    }
    alarm(unsigned(options.limit.count()));
    Findings findings(descriptor);
    childFindings = &findings;
    qInstallMessageHandler(onMessage);
    Conformance(options, findings).run();
    qInstallMessageHandler(nullptr);
    return 0;
}

/// What the child reported, and how it ended.
struct Report
{
    QList<Finding> findings;
    Finding begun; ///< the last check that began
    bool isEmpty = true;
    bool isComplete = false;

    void read(int descriptor)
    {
        QByteArray text;
        char piece[4096];
        for (ssize_t size = 0; (size = ::read(descriptor, piece, sizeof piece)) > 0;)
            text.append(piece, int(size));
        for (const QByteArray& line : text.split('\n'))
            take(QJsonDocument::fromJson(line).object());
    }
    void take(const QJsonObject& line)
    {
        const QString kind = line["kind"].toString();
        const Finding finding{line["check"].toString(), line["result"].toString(),
                              line["detail"].toString()};
        isEmpty = isEmpty && kind.isEmpty();
        isComplete = isComplete || kind == QLatin1String("complete");
        if (kind == QLatin1String("begin"))
            begun = finding;
        else if (kind == QLatin1String("end"))
            findings.append(finding);
    }
    void end(int status)
    {
        if (isComplete)
            return;
        const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
        const QString how = signal == SIGALRM ? QStringLiteral("it did not come to an end")
                            : signal != 0     ? QString::fromLocal8Bit(strsignal(signal))
                                              : QStringLiteral("the module ended the process");
        const QString where =
            begun.detail.isEmpty() ? QString() : QStringLiteral(" at ") + begun.detail;
        findings.append({begun.check, QStringLiteral("FAIL"), how + where});
    }
    bool isPassed() const
    {
        return std::none_of(findings.begin(), findings.end(), [](const Finding& finding) {
            return finding.result == QLatin1String("FAIL");
        });
    }
    void print(bool isJson) const
    {
        QJsonArray checks;
        for (const Finding& finding : findings) {
            checks.append(QJsonObject{
                {"check", finding.check}, {"result", finding.result}, {"detail", finding.detail}});
            if (!isJson)
                std::cout << finding.check.leftJustified(10).toStdString()
                          << finding.result.toStdString() << "  " << finding.detail.toStdString()
                          << "\n";
        }
        const QJsonObject all{{"passed", isPassed()}, {"checks", checks}};
        if (isJson)
            std::cout << QJsonDocument(all).toJson().toStdString();
    }
};

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::strncmp(argv[1], childMark, std::strlen(childMark)) == 0)
        return runChecks(argc, argv);
    int ends[2];
    if (pipe(ends) != 0)
        return exitFailed;
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        const std::string mark = childMark + std::to_string(ends[1]);
        std::vector<char*> words(argv, argv + argc + 1);
        words.insert(words.begin() + 1, const_cast<char*>(mark.c_str()));
        // Anew: threads that libraries have started are not there after a fork.
        // By its own name, which unnamed threads show.
        char* const self = realpath("/proc/self/exe", nullptr);
        execv(self ? self : "/proc/self/exe", words.data());
        _exit(exitFailed);
    }
    close(ends[1]);
    Report report;
    report.read(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (report.isEmpty && WIFEXITED(status))
        return WEXITSTATUS(status);
    report.end(status);
    report.print(std::any_of(argv, argv + argc,
                             [](const char* word) { return std::strcmp(word, "--json") == 0; }));
    return report.isPassed() ? 0 : exitFailed;
}
