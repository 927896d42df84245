#pragma once
#include "Clock.h"
#include <kelo/KeloPost.h>
#include <limits>
#include <map>
#include <mutex>
#include <optional>
#include <QPointer>
#include <QThread>
#include <vector>

/// Time that passes when the test says so. What falls due runs at its time where the receiver lives
/// on the test's thread; for others it is posted when the time has passed.
class FakeClock : public Clock
{
public:
    explicit FakeClock(qint64 startMs = 1000000) : m_nowMs(startMs) {}

    qint64 wallMs() const override { return 1700000000000 + steadyMs(); }
    qint64 steadyMs() const override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_nowMs;
    }
    void callLater(qint64 ms, QObject* receiver, std::function<void()> call) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const qint64 dueMs = m_nowMs + ms;
        m_timers.emplace(dueMs, Timer{dueMs, receiver, std::move(call)});
    }

    /// Goes on to the next timer and runs it, here; false when there is none.
    bool step()
    {
        const std::optional<Timer> timer = take(std::numeric_limits<qint64>::max());
        if (!timer)
            return false;
        goOnTo(timer->dueMs);
        if (timer->receiver)
            timer->call();
        return true;
    }
    void pass(qint64 seconds) { advance(seconds * 1000); }
    void advance(qint64 ms)
    {
        const qint64 endMs = steadyMs() + ms;
        std::vector<Timer> ofOthers;
        while (const std::optional<Timer> timer = take(endMs)) {
            if (!timer->receiver)
                continue;
            if (timer->receiver->thread() != QThread::currentThread()) {
                ofOthers.push_back(*timer);
                continue;
            }
            goOnTo(timer->dueMs);
            timer->call();
        }
        goOnTo(endMs);
        for (const Timer& timer : ofOthers)
            keloPost(timer.receiver, timer.call);
    }

private:
    struct Timer
    {
        qint64 dueMs;
        QPointer<QObject> receiver; ///< on another thread: alive while the test lets time pass
        std::function<void()> call;
    };

    /// The next timer that falls due until then.
    std::optional<Timer> take(qint64 endMs)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_timers.empty() || m_timers.begin()->first > endMs)
            return std::nullopt;
        return std::move(m_timers.extract(m_timers.begin()).mapped());
    }
    void goOnTo(qint64 ms)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_nowMs = std::max(m_nowMs, ms);
    }

    mutable std::mutex m_mutex;
    qint64 m_nowMs;
    std::multimap<qint64, Timer> m_timers;
};
