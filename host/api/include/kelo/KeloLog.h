#pragma once
#include "CMPath.h"
#include <log4cplus/logger.h>
#include <log4cplus/loggingmacros.h>
#include <QString>
#include <QStringList>
#include <QTextStream>

class CMRequest;

/// The named logger; made on first use. Loggers are log4cplus ones, configured by the program.
KELO_EXPORT const log4cplus::Logger& keloLogger(const char* name);

/// One line of a log, built with << and written when it goes out of scope. Texts from outside have
/// their control characters escaped, so that a line stays one line. When the level is off, nothing
/// is formatted, and a function that makes a text is not called.
class KELO_EXPORT KeloLogLine
{
public:
    KeloLogLine(const char* logger, log4cplus::LogLevel level, const char* file, int line);
    KeloLogLine(KeloLogLine&& other) noexcept;
    KeloLogLine(const KeloLogLine&) = delete;
    KeloLogLine& operator=(const KeloLogLine&) = delete;
    ~KeloLogLine();

    template <class Value>
    KeloLogLine& operator<<(const Value& value)
    {
        if (m_logger)
            append(value);
        return *this;
    }

private:
    void append(const QString& text);
    void append(const char* text) { append(QString::fromUtf8(text)); }
    void append(const QByteArray& text) { append(QString::fromUtf8(text)); }
    void append(const QStringList& texts) { append(texts.join(QStringLiteral(", "))); }
    void append(const CMPath& path) { append(path.toEncoded()); }
    void append(const CMRequest& request);
    template <class Make>
    auto append(const Make& make) -> decltype(void(make()))
    {
        append(make());
    }
    void append(bool flag) { append(flag ? "true" : "false"); }
    void append(int number) { append(QString::number(number)); }
    void append(qint64 number) { append(QString::number(number)); }

    const log4cplus::Logger* m_logger; ///< null when the level is off
    log4cplus::LogLevel m_level;
    const char* m_file;
    int m_line;
    QString m_text;
};

/// The entry trace of a function: a TRACE line "Enter ", the signature, ": " and what the caller
/// adds with <<. Give Q_FUNC_INFO as signature.
KELO_EXPORT KeloLogLine dbglog_scopedFunction(const char* signature, const char* logger);

#define KELO_LOG(logger, level)                                                                    \
    KeloLogLine(logger, log4cplus::level##_LOG_LEVEL, __FILE__, __LINE__)

/// A URL for a log: user info and the values of query items that carry secrets (token, signature,
/// code, key, ...) are replaced by "***".
KELO_EXPORT QString keloUrlForLog(const QString& url);
