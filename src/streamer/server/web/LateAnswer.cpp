#include "LateAnswer.h"

#include <kelo/CMRoot.h>
#include <kelo/HttpCallLog.h>

LateAnswer LateAnswer::now()
{
    LateAnswer late;
    const auto oldest = CMRoot().oldestRequest();
    if (!oldest || std::chrono::steady_clock::now() - *oldest < patience)
        return late;
    late.m_since = *oldest;
    late.m_from = HttpCallLog::instance().callsUnderWay() > 0 ? From::Service : From::Streamer;
    return late;
}

QString LateAnswer::from() const
{
    return m_from == From::Service ? QStringLiteral("service") : QStringLiteral("streamer");
}

qint64 LateAnswer::seconds() const
{
    using namespace std::chrono;
    return duration_cast<std::chrono::seconds>(steady_clock::now() - m_since).count();
}

TrString LateAnswer::text() const
{
    const QStringList arguments{QString::number(seconds())};
    if (m_from == From::Service)
        return TrString(TrCharData{"LateAnswer", "waiting for the music service, %1 s", nullptr},
                        arguments);
    return TrString(TrCharData{"LateAnswer", "waiting for the streamer, %1 s", nullptr}, arguments);
}
