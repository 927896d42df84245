#pragma once
#include "Clock.h"

/// A call that comes when a time has passed, unless it is cancelled or another takes its place.
/// Owned by its receiver and of its thread.
class LaterCall
{
public:
    LaterCall(Clock& clock, QObject* receiver) : m_clock(clock), m_receiver(receiver) {}

    void start(qint64 ms, std::function<void()> call)
    {
        m_clock.callLater(ms, m_receiver, [this, call = std::move(call), number = ++m_number] {
            if (number == m_number)
                call();
        });
    }
    void cancel() { ++m_number; }

private:
    Clock& m_clock;
    QObject* m_receiver;
    quint64 m_number = 0; ///< of the latest call; earlier ones do nothing
};
