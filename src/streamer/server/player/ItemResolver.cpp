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

/// The first segment of a path is its module's.
bool isOfSameModule(const CMPath& one, const CMPath& other)
{
    return one.splitBase().value(0) == other.splitBase().value(0);
}

TrString misdirected(const CMPath& asked, const CMPath& got)
{
    return TrString::in("Player", "asked for the item of %1, the module handed over one of %2",
                        {asked.toEncoded(), got.toEncoded()});
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

void ItemResolver::take(const KeloRoles& item)
{
    const CMPath path = item.path();
    if (m_sent && m_sent->path == path) {
        if (!m_sent->item)
            m_sent->item = item;
        m_abandoned.removeAll(path);
        return;
    }
    if (m_abandoned.removeOne(path))
        return;
    if (m_sent && isOfSameModule(m_sent->path, path))
        m_sent->other = item;
    else
        m_handOver(item);
}

void ItemResolver::abandon(const CMPath& path)
{
    m_abandoned.append(path);
    if (m_abandoned.size() > maxAbandoned)
        m_abandoned.removeFirst();
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
    const bool isMisdirected = attempt.other && !attempt.item && !error.isSet();
    if (error.name() == CMError::DeadlineName() || (!error.isSet() && !attempt.item))
        abandon(attempt.path);
    if (m_waiting)
        send();
    if (!attempt.isSuperseded) {
        const CMError outcome = error.isSet() || attempt.item ? error
                                : isMisdirected
                                    ? CMError(misdirected(attempt.path, attempt.other->path()))
                                    : CMError(KELO_TR("the service handed no item over"));
        attempt.done(outcome, attempt.item.value_or(KeloRoles()));
    }
    if (attempt.other && !isMisdirected)
        m_handOver(*attempt.other);
}
