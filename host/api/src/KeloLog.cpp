#include "KeloLog.h"

#include "CMRequest.h"

#include <map>
#include <mutex>
#include <string>

const log4cplus::Logger& keloLogger(const char* name)
{
    static std::mutex mutex;
    static std::map<std::string, log4cplus::Logger> loggers;
    std::lock_guard<std::mutex> lock(mutex);
    const auto found = loggers.find(name);
    if (found != loggers.end())
        return found->second;
    return loggers.emplace(name, log4cplus::Logger::getInstance(name)).first->second;
}

KeloLogLine::KeloLogLine(const char* logger, log4cplus::LogLevel level, const char* file, int line)
    : m_logger(&keloLogger(logger)), m_level(level), m_file(file), m_line(line)
{
    if (!m_logger->isEnabledFor(level))
        m_logger = nullptr;
}

KeloLogLine::KeloLogLine(KeloLogLine&& other) noexcept
    : m_logger(std::exchange(other.m_logger, nullptr)), m_level(other.m_level),
      m_file(other.m_file), m_line(other.m_line), m_text(std::move(other.m_text))
{
}

KeloLogLine::~KeloLogLine()
{
    if (m_logger)
        m_logger->forcedLog(m_level, m_text.toStdString(), m_file, m_line);
}

void KeloLogLine::append(const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() >= 0x20 && c.unicode() != 0x7f &&
            !(c.unicode() >= 0x80 && c.unicode() < 0xa0))
            m_text += c;
        else
            m_text += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
    }
}

void KeloLogLine::append(const CMRequest& request)
{
    append(request.toString());
}

KeloLogLine dbglog_scopedFunction(const char* signature, const char* logger)
{
    KeloLogLine line(logger, log4cplus::TRACE_LOG_LEVEL, nullptr, -1);
    line << "Enter " << signature << ": ";
    return line;
}

QString keloUrlForLog(const QString& url)
{
    static const QStringList harmless{QStringLiteral("countryCode"),
                                      QStringLiteral("offset"),
                                      QStringLiteral("limit"),
                                      QStringLiteral("query"),
                                      QStringLiteral("filter"),
                                      QStringLiteral("order"),
                                      QStringLiteral("orderDirection"),
                                      QStringLiteral("playbackmode"),
                                      QStringLiteral("assetpresentation"),
                                      QStringLiteral("audioquality")};
    QString shown = url;
    const int scheme = shown.indexOf(QLatin1String("://"));
    if (scheme >= 0) {
        int end = scheme + 3;
        while (end < shown.size() && !QStringLiteral("/?#").contains(shown.at(end)))
            ++end;
        const int at = shown.lastIndexOf(QLatin1Char('@'), end - 1);
        if (at >= scheme + 3)
            shown.replace(scheme + 3, at - scheme - 3, QStringLiteral("***"));
    }
    const int question = shown.indexOf(QLatin1Char('?'));
    if (question < 0)
        return shown;
    QStringList items = shown.mid(question + 1).split(QLatin1Char('&'));
    for (QString& item : items) {
        const QString name = item.section(QLatin1Char('='), 0, 0);
        if (item.contains(QLatin1Char('=')) && !harmless.contains(name))
            item = name + QStringLiteral("=***");
    }
    return shown.left(question + 1) + items.join(QLatin1Char('&'));
}
