#pragma once
#include "TimeSource.h"
#include <algorithm>
#include <kelo/KeloPost.h>
#include <mutex>
#include <QObject>
#include <vector>

/// A clock that a test advances by hand. What falls due is posted to its context.
class ManualTime : public TimeSource
{
public:
    qint64 nowMs() const override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_now;
    }
    void callAfter(qint64 delayMs, QObject* context, std::function<void()> function) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_timers.push_back({m_now + delayMs, context, std::move(function)});
    }
    void advance(qint64 ms)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_now += ms;
        std::vector<Timer> later;
        for (Timer& timer : m_timers) {
            if (timer.dueMs <= m_now)
                keloPost(timer.context, std::move(timer.function));
            else
                later.push_back(std::move(timer));
        }
        m_timers = std::move(later);
    }

private:
    struct Timer
    {
        qint64 dueMs;
        QObject* context; ///< alive as long as the test advances time
        std::function<void()> function;
    };
    mutable std::mutex m_mutex;
    qint64 m_now = 1000000;
    std::vector<Timer> m_timers;
};
