#include "Clock.h"

#include <chrono>
#include <QDateTime>
#include <QTimer>

qint64 SystemClock::wallMs() const
{
    return QDateTime::currentMSecsSinceEpoch();
}

qint64 SystemClock::steadyMs() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void SystemClock::callLater(qint64 ms, QObject* receiver, std::function<void()> call)
{
    constexpr qint64 longest = 24 * 60 * 60 * 1000;
    QTimer::singleShot(int(qBound(qint64(0), ms, longest)), Qt::PreciseTimer, receiver,
                       std::move(call));
}
