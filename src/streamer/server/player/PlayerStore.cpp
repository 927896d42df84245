#include "PlayerStore.h"
#include "KeptFile.h"
#include <algorithm>
#include <kelo/KeloLog.h>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
constexpr qint64 maxFileSize = 65536;
constexpr qint64 largestPosition = 9'999'999'999'999;
const QString volumeKey = QStringLiteral("volume");
const QString positionKey = QStringLiteral("positionMs");
const QString durationKey = QStringLiteral("durationMs");
const QString versionKey = QStringLiteral("version");
const QString pathKey = QStringLiteral("path");
const QString idKey = QStringLiteral("id");
const QString listKey = QStringLiteral("list");
const QString indexKey = QStringLiteral("index");
const QString titleKey = QStringLiteral("title");
const QString artistKey = QStringLiteral("artist");
const QString albumKey = QStringLiteral("album");
const QString iconKey = QStringLiteral("icon");
const QString prePlayKey = QStringLiteral("prePlayPath");

/// What of a row suffices to be sent to its pre-play path again.
KeloRoles rowOf(const QJsonObject& json)
{
    const QString prePlayPath = json.value(prePlayKey).toString();
    if (prePlayPath.isEmpty())
        return {};
    KeloMetaData metaData;
    metaData.setArtist(json.value(artistKey).toString());
    metaData.setAlbum(json.value(albumKey).toString());
    metaData.setPrePlayPath(CMPath::fromEncoded(prePlayPath));
    metaData.setContentPlayContextPath(CMPath::fromEncoded(json.value(listKey).toString()));
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    KeloRoles row;
    row.setPath(CMPath::fromEncoded(json.value(pathKey).toString()));
    row.setType(KeloRolesType::Audio_);
    row.setTitle(json.value(titleKey).toString());
    row.setIcon(json.value(iconKey).toString());
    row.setMediaData(mediaData);
    return row;
}
/// The beginning of the file, of the same length whatever it says.
QByteArray headOf(const PlayerStore::Kept& kept)
{
    return QStringLiteral("{\n    \"%1\": %2,\n    \"%3\": %4,\n")
        .arg(positionKey)
        .arg(qBound<qint64>(0, kept.positionMs, largestPosition), 13)
        .arg(volumeKey)
        .arg(kept.volume, 3)
        .toUtf8();
}

/// What follows the head: all that stays as it is while an item plays.
QByteArray restOf(const PlayItem& item)
{
    QJsonObject json{{versionKey, 1}};
    if (item.entry.canResolve()) {
        json.insert(pathKey, item.path.toEncoded());
        json.insert(titleKey, item.title);
        json.insert(artistKey, item.artist);
        json.insert(albumKey, item.album);
        json.insert(iconKey, item.icon);
        json.insert(durationKey, item.durationMs);
        json.insert(idKey, item.entry.id);
        json.insert(prePlayKey, item.entry.prePlayPath().toEncoded());
        json.insert(listKey, item.entry.list.toEncoded());
        json.insert(indexKey, item.entry.index);
    }
    return QJsonDocument(json).toJson(QJsonDocument::Indented).mid(2);
}
} // namespace

PlayerStore::PlayerStore(const QString& stateDir)
    : m_file(stateDir.isEmpty() ? QString() : stateDir + QStringLiteral("/player.json"))
{
}

PlayerStore::Kept PlayerStore::load() const
{
    Kept kept;
    if (m_file.isEmpty())
        return kept;
    KeptFile(m_file).removeDraft();
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return kept;
    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(file.read(maxFileSize), &error).object();
    if (error.error != QJsonParseError::NoError)
        KELO_LOG("player", WARN) << m_file << " is not readable: " << error.errorString();
    const int volume = json.value(volumeKey).toInt(kept.volume);
    if (volume >= 0 && volume <= 100)
        kept.volume = volume;
    QueueEntry entry;
    entry.row = rowOf(json);
    entry.id = json.value(idKey).toString();
    entry.list = CMPath::fromEncoded(json.value(listKey).toString());
    entry.index = json.value(indexKey).toInt(-1);
    if (!entry.canResolve())
        return kept;
    kept.item = PlayItem::ofEntry(entry);
    kept.item.path = CMPath::fromEncoded(json.value(pathKey).toString());
    kept.item.title = json.value(titleKey).toString();
    kept.item.artist = json.value(artistKey).toString();
    kept.item.album = json.value(albumKey).toString();
    kept.item.icon = json.value(iconKey).toString();
    kept.item.durationMs = std::max<qint64>(0, json.value(durationKey).toVariant().toLongLong());
    kept.positionMs =
        qBound<qint64>(0, json.value(positionKey).toVariant().toLongLong(), largestPosition);
    return kept;
}

void PlayerStore::save(const Kept& kept)
{
    if (m_file.isEmpty())
        return;
    const QByteArray head = headOf(kept);
    const QByteArray rest = restOf(kept.item);
    if (head == m_head && rest == m_rest)
        return;
    if ((rest == m_rest && writeHead(head)) || writeAll(head, rest)) {
        m_head = head;
        m_rest = rest;
    }
}

bool PlayerStore::writeAll(const QByteArray& head, const QByteArray& rest) const
{
    QString error;
    if (KeptFile(m_file).write(head + rest, &error))
        return true;
    KELO_LOG("player", ERROR) << "cannot write " << m_file << ": " << error;
    return false;
}

bool PlayerStore::writeHead(const QByteArray& head) const
{
    QFile file(m_file);
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
           file.write(head) == head.size();
}
