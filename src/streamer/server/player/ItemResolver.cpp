#include "ItemResolver.h"
#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
constexpr int maxAbandoned = 16;

QVariant rowWithOffset(KeloRoles row, qint64 offsetMs)
{
    KeloMediaData mediaData = row.mediaData();
    KeloMetaData metaData = mediaData.metaData();
    metaData.setPrePlayTimeOffset(offsetMs);
    mediaData.setMetaData(metaData);
    row.setMediaData(mediaData);
    return row.toVariant();
}
} // namespace

void ItemResolver::resolve(const QueueEntry& entry, qint64 offsetMs, Done done)
{
    cancel();
    Attempt attempt;
    if (entry.id.isEmpty()) {
        attempt.path = entry.prePlayPath();
        attempt.role = KeloRoles::PrePlay();
        attempt.value = rowWithOffset(entry.row, offsetMs);
    } else {
        attempt.path = KeloTidalPlayIdPath();
        attempt.role = KeloRoles::Value();
        attempt.value = QVariantHash{{KeloTidalPlayItem::Id(), entry.id}};
    }
    attempt.done = std::move(done);
    m_waiting = std::move(attempt);
    if (!m_sent)
        send();
}

void ItemResolver::cancel()
{
    m_waiting.reset();
    if (m_sent)
        m_sent->isSuperseded = true;
}

bool ItemResolver::take(const KeloRoles& item)
{
    const CMPath path = item.path();
    if (m_sent && m_sent->path == path && !m_sent->item) {
        m_sent->item = item;
        return true;
    }
    return m_abandoned.removeOne(path);
}

void ItemResolver::send()
{
    m_sent = std::move(m_waiting);
    m_waiting.reset();
    KELO_LOG("player", DEBUG) << "asking for " << m_sent->path;
    const CMSetDataRequest request(m_sent->path, m_sent->role, m_sent->value);
    CMRoot().request(request);
    const CMReply<QVariant> reply = request.reply();
    // Queued behind the item, which the module hands over before it answers.
    reply.addWatcher(
        this, [this, reply] { onAnswered(reply.error()); }, Qt::QueuedConnection);
}

void ItemResolver::onAnswered(const CMError& error)
{
    const Attempt attempt = std::move(*m_sent);
    m_sent.reset();
    if (error.name() == CMError::DeadlineName() && m_abandoned.size() < maxAbandoned)
        m_abandoned.append(attempt.path);
    if (m_waiting)
        send();
    if (attempt.isSuperseded)
        return;
    if (error.isSet() || attempt.item)
        attempt.done(error, attempt.item.value_or(KeloRoles()));
    else
        attempt.done(CMError(KELO_TR("the service handed no item over")), KeloRoles());
}
