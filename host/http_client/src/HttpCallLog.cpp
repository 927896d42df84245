#include "HttpCallLog.h"
#include "HttpClient.h"
#include <atomic>
#include <deque>
#include <kelo/KeloListeners.h>
#include <kelo/KeloLog.h>
#include <mutex>

namespace {
constexpr int longestAddress = 2000;
} // namespace

class HttpCallLog::Private
{
public:
    mutable std::mutex mutex; ///< guards the records
    std::deque<HttpCallRecord> records;
    quint64 lastNumber = 0;
    KeloListeners<HttpCallRecord> observers;
    std::atomic<int> underWay{0};
};

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

HttpCallLog::HttpCallLog() : d(std::make_unique<Private>()) {}

HttpCallLog::~HttpCallLog() = default;

HttpCallLog& HttpCallLog::instance()
{
    static HttpCallLog log;
    return log;
}

QVector<HttpCallRecord> HttpCallLog::recordsAfter(quint64 number) const
{
    QVector<HttpCallRecord> records;
    std::lock_guard<std::mutex> lock(d->mutex);
    for (const HttpCallRecord& record : d->records) {
        if (record.number > number)
            records.append(record);
    }
    return records;
}

quint64 HttpCallLog::lastNumber() const
{
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->lastNumber;
}

quint64 HttpCallLog::addObserver(Observer observer)
{
    return d->observers.add(std::move(observer));
}

void HttpCallLog::removeObserver(quint64 id)
{
    d->observers.remove(id);
}

int HttpCallLog::callsUnderWay() const
{
    return d->underWay;
}

void HttpCallLog::begin()
{
    ++d->underWay;
}

void HttpCallLog::end(const HttpCallRecord& record)
{
    --d->underWay;
    add(record);
}

void HttpCallLog::add(HttpCallRecord record)
{
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        record.number = ++d->lastNumber;
        d->records.push_back(record);
        if (int(d->records.size()) > mostRecords)
            d->records.pop_front();
    }
    d->observers.notify(record);
}
