#pragma once
#include <functional>
#include <QObject>

/// The time as login and player see it, so that tests can make it pass. Outlives whoever uses it;
/// used from any thread.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Milliseconds since 1970; jumps when the clock is set.
    virtual qint64 wallMs() const = 0;
    /// Milliseconds since some moment; never jumps.
    virtual qint64 steadyMs() const = 0;
    /// Calls once when that time has passed, on the receiver's thread, where this is called, unless
    /// the receiver is gone.
    virtual void callLater(qint64 ms, QObject* receiver, std::function<void()> call) = 0;
};

/// The real time.
class SystemClock : public Clock
{
public:
    qint64 wallMs() const override;
    qint64 steadyMs() const override;
    /// Waits of more than a day end after a day: callers look at the time again.
    void callLater(qint64 ms, QObject* receiver, std::function<void()> call) override;
};
