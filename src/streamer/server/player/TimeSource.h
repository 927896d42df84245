#pragma once
#include <functional>
#include <QtGlobal>

class QObject;

/// The player's clock. The program uses SteadyTime; tests advance time by hand. Outlives whoever
/// uses it.
class TimeSource
{
public:
    virtual ~TimeSource() = default;
    /// Milliseconds since some fixed moment, never going back. Any thread.
    virtual qint64 nowMs() const = 0;
    /// Runs a function once after a delay, on the context's thread, where this is called; not when
    /// the context is gone by then.
    virtual void callAfter(qint64 delayMs, QObject* context, std::function<void()> function) = 0;
};

/// Real time.
class SteadyTime : public TimeSource
{
public:
    qint64 nowMs() const override;
    void callAfter(qint64 delayMs, QObject* context, std::function<void()> function) override;
};
