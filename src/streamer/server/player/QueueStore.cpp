#include "QueueStore.h"

#include "KeptFile.h"

#include <kelo/KeloLog.h>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>

namespace {
constexpr qint64 maxFileSize = 64 * 1024 * 1024;
/// More changes than were made since the file was written, when the program ended badly.
constexpr quint64 unwritten = 100000;
const QString formatKey = QStringLiteral("version");
} // namespace

QueueStore::QueueStore(const QString& stateDir)
    : m_file(stateDir.isEmpty() ? QString() : stateDir + QStringLiteral("/queue.json"))
{
}

QueueStore::Kept QueueStore::load(qint64 nowMs) const
{
    Kept kept;
    if (m_file.isEmpty())
        return kept;
    KeptFile(m_file).removeDraft();
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return kept;
    const QJsonObject json = QJsonDocument::fromJson(file.read(maxFileSize)).object();
    if (json.value(formatKey) == 1)
        kept.queue = PlayQueue::fromJson(json);
    if (kept.queue) {
        kept.queue->setVersion(kept.queue->version() + unwritten);
        return kept;
    }
    kept.putAside = m_file + QStringLiteral(".unreadable");
    QFile::remove(kept.putAside);
    const bool isAside = file.rename(kept.putAside);
    KELO_LOG("player", WARN) << m_file << " is no queue, "
                             << (isAside ? "put aside as " + kept.putAside
                                         : "and cannot be put aside: " + file.errorString());
    kept.queue.emplace();
    kept.queue->setVersion(quint64(std::max<qint64>(1, nowMs)) * 1000);
    return kept;
}

void QueueStore::save(const PlayQueue& queue)
{
    if (m_file.isEmpty())
        return;
    QJsonObject json = queue.toJson();
    json.insert(formatKey, 1);
    const QByteArray content = QJsonDocument(json).toJson(QJsonDocument::Compact);
    const QByteArray digest = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    if (digest == m_digest)
        return;
    QString error;
    if (KeptFile(m_file).write(content, &error))
        m_digest = digest;
    else
        KELO_LOG("player", ERROR) << "cannot write " << m_file << ": " << error;
}
