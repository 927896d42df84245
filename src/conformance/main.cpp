#include "Child.h"
#include "Conformance.h"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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

/// The checks, in a process that the module may end.
int runChecks(const Options& options, int descriptor)
{
    Findings findings(descriptor);
    childFindings = &findings;
    qInstallMessageHandler(onMessage);
    Conformance(options, findings).run();
    qInstallMessageHandler(nullptr);
    return 0;
}

/// A module's text as one line that does nothing to a terminal.
std::string shown(QString text)
{
    for (QChar& letter : text) {
        if (letter.category() == QChar::Other_Control || letter.category() == QChar::Other_Format)
            letter = QLatin1Char('?');
    }
    return text.toStdString();
}

/// What the child reported, and how it ended.
struct Report
{
    QList<Finding> findings;
    QList<Finding> faults; ///< of checks that have not ended
    Finding begun;         ///< the last check that began
    bool isComplete = false;

    void take(const QJsonObject& line)
    {
        const QString kind = line["kind"].toString();
        const Finding finding{line["check"].toString(), line["result"].toString(),
                              line["detail"].toString()};
        isComplete = isComplete || kind == QLatin1String("complete");
        if (kind == QLatin1String("begin"))
            begun = finding;
        else if (kind == QLatin1String("fault"))
            faults.append(finding);
        if (kind != QLatin1String("end"))
            return;
        findings.append(finding);
        const auto ofIt = [&](const Finding& fault) { return fault.check == finding.check; };
        faults.erase(std::remove_if(faults.begin(), faults.end(), ofIt), faults.end());
    }
    void end(QString how)
    {
        findings += faults;
        if (how.isEmpty() && !isComplete)
            how = QStringLiteral("the module ended the process");
        if (how.isEmpty())
            return;
        const QString where = isComplete               ? QStringLiteral(" after main()")
                              : begun.detail.isEmpty() ? QString()
                                                       : QStringLiteral(" at ") + begun.detail;
        findings.append({isComplete ? QStringLiteral("exit") : begun.check, QStringLiteral("FAIL"),
                         how + where});
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
                          << finding.result.toStdString() << "  " << shown(finding.detail) << "\n";
        }
        const QJsonObject all{{"passed", isPassed()}, {"checks", checks}};
        if (isJson)
            std::cout << QJsonDocument(all).toJson().toStdString();
    }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString first = arguments.value(0);
    const bool isChild = first.startsWith(QLatin1String(childMark));
    if (isChild)
        arguments.removeFirst();
    Options options;
    QString error;
    if (!options.read(arguments, &error)) {
        std::cerr << "kelo-conformance: " << error.toStdString() << std::endl;
        return exitUsage;
    }
    if (options.isHelp) {
        std::cout << Options::help().toStdString();
        return 0;
    }
    if (isChild)
        return runChecks(options, first.mid(int(std::strlen(childMark))).toInt());
    Child child(childMark, {argv, argv + argc});
    Report report;
    for (const QByteArray& line : child.follow(options.limit).split('\n'))
        report.take(QJsonDocument::fromJson(line).object());
    report.end(child.fault());
    report.print(options.isJson);
    return report.isPassed() ? 0 : exitFailed;
}
