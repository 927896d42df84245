#pragma once
#include <atomic>
#include <deque>
#include <kelo/KeloExport.h>
#include <kelo/KeloListeners.h>
#include <kelo/KeloUrl.h>
#include <QVector>

/// A HTTP call that has ended, as it may be shown to anybody: neither headers nor bodies, and an
/// address without secrets. A value type.
class KELO_EXPORT HttpCallRecord
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
class KELO_EXPORT HttpCallLog
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
    quint64 addObserver(Observer observer) { return m_observers.add(std::move(observer)); }
    /// See KeloListeners::remove().
    void removeObserver(quint64 id) { m_observers.remove(id); }

    /// Recorded calls that have begun and not ended yet. Takes no lock.
    int callsUnderWay() const { return m_underWay; }

    /// For the clients: a call begins that will be ended with end().
    void begin() { ++m_underWay; }
    /// For the clients: a call ends; see add().
    void end(const HttpCallRecord& record);
    /// Numbers the record, keeps it and tells the observers.
    void add(HttpCallRecord record);

private:
    HttpCallLog() = default;

    mutable std::mutex m_mutex; ///< guards the records
    std::deque<HttpCallRecord> m_records;
    quint64 m_lastNumber = 0;
    KeloListeners<HttpCallRecord> m_observers;
    std::atomic<int> m_underWay{0};
};
