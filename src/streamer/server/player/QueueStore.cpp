#include "QueueStore.h"

#include <QCryptographicHash>
#include <QJsonDocument>

namespace {
constexpr int version = 1;
constexpr qint64 maxFileSize = 64 * 1024 * 1024;
/// More changes than were made since the file was written, when the program ended badly.
constexpr quint64 unwritten = 100000;
} // namespace

QueueStore::QueueStore(const QString& stateDir)
    : m_file(stateDir.isEmpty() ? QString() : stateDir + QStringLiteral("/queue.json"),
             QStringLiteral("the queue does not outlast a restart"), version, maxFileSize)
{
}

QueueStore::Kept QueueStore::load(qint64 nowMs)
{
    Kept kept;
    QJsonObject json;
    const StateFile::Found found = m_file.read(&json);
    if (found == StateFile::Found::Nothing)
        return kept;
    if (found == StateFile::Found::Content) {
        kept.queue = PlayQueue::fromJson(json);
        if (kept.queue) {
            kept.queue->setVersion(kept.queue->version() + unwritten);
            return kept;
        }
        m_file.putAside(QStringLiteral("is no queue"));
    }
    if (found == StateFile::Found::Later)
        kept.note = TrString::in(
            "Player", "the queue is not kept: %1 was written by a later version", {m_file.name()});
    else if (found == StateFile::Found::Closed)
        kept.note = notKept();
    else
        kept.note = TrString::in("Player", "the kept queue cannot be read; it was put aside as %1",
                                 {m_file.asideName()});
    kept.queue.emplace();
    kept.queue->setVersion(quint64(std::max<qint64>(1, nowMs)) * 1000);
    return kept;
}

TrString QueueStore::save(const PlayQueue& queue)
{
    if (!m_file.isOurs())
        return TrString();
    QJsonObject json = queue.toJson();
    json.insert(StateFile::versionKey(), version);
    const QByteArray content = QJsonDocument(json).toJson(QJsonDocument::Compact);
    const QByteArray digest = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    if (digest == m_digest)
        return TrString();
    const bool wasKept = m_file.problem().isEmpty();
    if (m_file.write(content))
        m_digest = digest;
    if (!wasKept || m_file.problem().isEmpty())
        return TrString();
    return notKept();
}

TrString QueueStore::notKept() const
{
    return TrString::in("Player", "the queue is not kept: %1: %2",
                        {m_file.name(), m_file.problem()});
}
