#include "LateAnswer.h"

#include <kelo/CMRoot.h>
#include <kelo/HttpCallLog.h>

LateAnswer LateAnswer::now()
{
    const auto oldest = CMRoot().oldestRequest();
    if (!oldest || std::chrono::steady_clock::now() - *oldest < patience)
        return {};
    const bool isService = HttpCallLog::instance().callsUnderWay() > 0;
    return {isService ? QStringLiteral("service") : QStringLiteral("streamer"), *oldest};
}

qint64 LateAnswer::seconds() const
{
    using namespace std::chrono;
    return duration_cast<std::chrono::seconds>(steady_clock::now() - since).count();
}

TrString LateAnswer::text() const
{
    const QList<TrString> arguments{QString::number(seconds())};
    if (from == QLatin1String("service"))
        return TrString(TrCharData{"LateAnswer", "waiting for the music service, %1 s", nullptr},
                        arguments);
    return TrString(TrCharData{"LateAnswer", "waiting for the streamer, %1 s", nullptr}, arguments);
}
