#include "HttpCallLog.h"
#include "HttpClient.h"
#include <kelo/KeloLog.h>

namespace {
constexpr int longestAddress = 2000;
} // namespace

QString HttpCallRecord::address() const
{
    const QString shown = keloUrlForLog(m_url.toString());
    return shown.size() > longestAddress ? shown.left(longestAddress) + QStringLiteral("...")
                                         : shown;
}

QString HttpCallRecord::error() const
{
    switch (failure) {
    case HttpClient::NoFailure:
        return QString();
    case HttpClient::TimedOut:
        return QStringLiteral("timed out");
    case HttpClient::Aborted:
        return QStringLiteral("aborted");
    case HttpClient::BodyTooLarge:
        return QStringLiteral("body too large");
    case HttpClient::ConnectionFailed:
        return QStringLiteral("connection failed");
    case HttpClient::TlsFailed:
        return QStringLiteral("certificate refused");
    case HttpClient::CertificateDate:
        return QStringLiteral("certificate not valid at this time");
    case HttpClient::BadUrl:
        return QStringLiteral("bad address");
    default:
        return QStringLiteral("transfer failed");
    }
}

HttpCallLog& HttpCallLog::instance()
{
    static HttpCallLog log;
    return log;
}

QVector<HttpCallRecord> HttpCallLog::recordsAfter(quint64 number) const
{
    QVector<HttpCallRecord> records;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const HttpCallRecord& record : m_records) {
        if (record.number > number)
            records.append(record);
    }
    return records;
}

quint64 HttpCallLog::lastNumber() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_lastNumber;
}

void HttpCallLog::end(const HttpCallRecord& record)
{
    --m_underWay;
    add(record);
}

void HttpCallLog::add(HttpCallRecord record)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        record.number = ++m_lastNumber;
        m_records.push_back(record);
        if (int(m_records.size()) > mostRecords)
            m_records.pop_front();
    }
    m_observers.notify(record);
}
