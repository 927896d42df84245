#include "HttpCallLog.h"
#include "HttpClient.h"
#include <atomic>
#include <deque>
#include <kelo/KeloLog.h>
#include <map>
#include <mutex>
#include <vector>

namespace {
constexpr int longestAddress = 2000;
} // namespace

class HttpCallLog::Private
{
public:
    struct Entry
    {
        std::mutex mutex; ///< held while the observer runs, and taken to remove it
        Observer observer;
        bool isRemoved = false;
    };

    mutable std::mutex mutex; ///< guards all below; not held while an observer runs
    std::deque<HttpCallRecord> records;
    quint64 lastNumber = 0;
    std::map<quint64, std::shared_ptr<Entry>> observers;
    quint64 lastObserver = 0;

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
    auto entry = std::make_shared<Private::Entry>();
    entry->observer = std::move(observer);
    std::lock_guard<std::mutex> lock(d->mutex);
    d->observers.emplace(++d->lastObserver, std::move(entry));
    return d->lastObserver;
}

void HttpCallLog::removeObserver(quint64 id)
{
    std::shared_ptr<Private::Entry> entry;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        const auto found = d->observers.find(id);
        if (found == d->observers.end())
            return;
        entry = found->second;
        d->observers.erase(found);
    }
    std::lock_guard<std::mutex> lock(entry->mutex);
    entry->isRemoved = true;
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
    std::vector<std::shared_ptr<Private::Entry>> observers;
    {
        std::lock_guard<std::mutex> lock(d->mutex);
        record.number = ++d->lastNumber;
        d->records.push_back(record);
        if (int(d->records.size()) > mostRecords)
            d->records.pop_front();
        observers.reserve(d->observers.size());
        for (const auto& observer : d->observers)
            observers.push_back(observer.second);
    }
    for (const auto& entry : observers) {
        std::lock_guard<std::mutex> lock(entry->mutex);
        if (!entry->isRemoved)
            entry->observer(record);
    }
}
