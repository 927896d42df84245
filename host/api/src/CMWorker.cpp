#include "CMWorker.h"

#include "KeloLog.h"
#include "KeloPost.h"

CMWorker::CMWorker(const QVariantHash& settings, const QString& serviceId, QObject* parent)
    : CMAbstractWorker(parent), m_settings(settings), m_serviceId(serviceId)
{
    m_prefix = settings.value(QStringLiteral("prefix")).toString();
    if (m_prefix.isEmpty())
        m_prefix = QLatin1Char('/') + serviceId;
}

CMPath CMWorker::addPrefix(const QString& subpath) const
{
    CMPath path(m_prefix);
    if (!subpath.isEmpty())
        path.appendSubpath(subpath);
    return path;
}

CMReply<QVariant> CMWorker::ping()
{
    const auto reply = CMReply<QVariant>::create();
    keloPost(this, [reply] { reply.setValue(true); });
    return reply;
}

void CMWorker::trace(const QString& text) const
{
    KELO_LOG("Host", TRACE) << m_serviceId << ": " << text;
}
