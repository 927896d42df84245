#include "TimeSource.h"
#include <chrono>
#include <QTimer>

qint64 SteadyTime::nowMs() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void SteadyTime::callAfter(qint64 delayMs, QObject* context, std::function<void()> function)
{
    QTimer::singleShot(std::chrono::milliseconds(delayMs), Qt::PreciseTimer, context,
                       std::move(function));
}
