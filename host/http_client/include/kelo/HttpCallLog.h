#pragma once
#include "HttpClientExport.h"
#include <functional>
#include <kelo/KeloUrl.h>
#include <memory>
#include <QVector>

/// A HTTP call that has ended, as it may be shown to anybody: neither headers nor bodies, and an
/// address without secrets. A value type.
class KELO_HTTP_EXPORT HttpCallRecord
{
public:
    quint64 number = 0;   ///< counts the recorded calls of the process, from 1
    qint64 startedMs = 0; ///< since the epoch, by the wall clock
    qint64 durationMs = 0;
    const char* method = "GET";
    int status = 0;   ///< 0 when the answer did not arrive whole
    int failure = 0;  ///< a HttpClient::Failure
    qint64 bytes = 0; ///< of the body, as far as it was received, decoded

    /// See keloUrlForLog(); clipped when it is very long.
    QString address() const;
    void setUrl(const KeloUrl& url) { m_url = url; }
    /// Why the answer did not arrive whole, for people; empty when it did.
    QString error() const;

private:
    KeloUrl m_url;
};

/// The last calls of all clients of the process that are recorded (HttpClient::setRecorded()), and
/// how many are under way. One per process; every operation may be called from any thread.
class KELO_HTTP_EXPORT HttpCallLog
{
public:
    using Observer = std::function<void(const HttpCallRecord& record)>;
    static constexpr int mostRecords = 200;

    static HttpCallLog& instance();

    /// The records that are left of those behind this number, oldest first.
    QVector<HttpCallRecord> recordsAfter(quint64 number) const;
    /// The number of the latest record; 0 before the first.
    quint64 lastNumber() const;

    /// The observer runs for each record, on the thread of the client that made the call, so it
    /// must be quick. Returns a number for removeObserver().
    quint64 addObserver(Observer observer);
    /// After the return the observer does not run any more. The caller holds no lock that the
    /// observer takes, and is not an observer.
    void removeObserver(quint64 id);

    /// Recorded calls that have begun and not ended yet. Takes no lock.
    int callsUnderWay() const;

    /// For the clients: a call begins that will be ended with end().
    void begin();
    /// For the clients: a call ends; see add().
    void end(const HttpCallRecord& record);
    /// Numbers the record, keeps it and tells the observers.
    void add(HttpCallRecord record);

private:
    HttpCallLog();
    ~HttpCallLog();

    class Private;
    std::unique_ptr<Private> d;
};
