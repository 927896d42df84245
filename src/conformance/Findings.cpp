#include "Findings.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <unistd.h>

namespace {
constexpr int mostText = 500;
} // namespace

void Findings::write(const char* kind, const Finding& finding)
{
    const QJsonObject object{{"kind", QLatin1String(kind)},
                             {"check", finding.check},
                             {"result", finding.result},
                             {"detail", finding.detail.left(mostText)}};
    const QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    // One write, shorter than what a pipe takes in one piece: lines do not mix.
    if (::write(m_descriptor, line.constData(), size_t(line.size())) < 0)
        _exit(EXIT_FAILURE); // nobody reads any more
}

void Findings::begin(const QString& check, const QString& detail)
{
    write("begin", {check, QString(), detail});
}

void Findings::fault(const QString& check, const QString& what)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QStringList& faults = m_faults[check];
    if (faults.isEmpty())
        write("fault", {check, QStringLiteral("FAIL"), what}); // the end may not come
    faults.append(what);
}

void Findings::end(const QString& check, const QString& summary)
{
    QStringList faults;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        faults = m_faults[check];
    }
    if (faults.isEmpty())
        return write("end", {check, QStringLiteral("pass"), summary});
    QString detail = faults.first();
    if (faults.size() > 1)
        detail += QStringLiteral(" (and %1 more)").arg(faults.size() - 1);
    write("end", {check, QStringLiteral("FAIL"), detail});
}

void Findings::skip(const QString& check, const QString& why)
{
    write("end", {check, QStringLiteral("skip"), why});
}

void Findings::complete()
{
    write("complete", {});
}
