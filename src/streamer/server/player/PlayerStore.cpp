#include "PlayerStore.h"
#include <algorithm>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
constexpr int version = 1;
constexpr qint64 maxFileSize = 1024 * 1024; // pictures may be in their addresses
constexpr qint64 largestPosition = 9'999'999'999'999;
const QString volumeKey = QStringLiteral("volume");
const QString positionKey = QStringLiteral("positionMs");
const QString durationKey = QStringLiteral("durationMs");
const QString pathKey = QStringLiteral("path");
const QString idKey = QStringLiteral("id");
const QString listKey = QStringLiteral("list");
const QString indexKey = QStringLiteral("index");
const QString prePlayKey = QStringLiteral("prePlayPath");
const QString prePlayDataKey = QStringLiteral("prePlayData");

constexpr struct
{
    const char* key;
    QString ShownItem::*text;
} texts[] = {{"title", &ShownItem::title},
             {"artist", &ShownItem::artist},
             {"album", &ShownItem::album},
             {"icon", &ShownItem::icon}};

/// What of a row suffices to be sent to its pre-play path again.
KeloRoles rowOf(const PlayItem& item, const CMPath& prePlayPath, const QString& prePlayData)
{
    if (prePlayPath.isEmpty())
        return {};
    KeloMetaData metaData;
    metaData.setArtist(item.artist);
    metaData.setAlbum(item.album);
    metaData.setPrePlayPath(prePlayPath);
    metaData.setPrePlayData(prePlayData);
    metaData.setContentPlayContextPath(item.entry.list);
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    KeloRoles row;
    row.setPath(item.path);
    row.setType(KeloRolesType::Audio_);
    row.setTitle(item.title);
    row.setIcon(item.icon);
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
    QJsonObject json{{StateFile::versionKey(), version}};
    if (item.entry.canResolve()) {
        json.insert(pathKey, item.path.toEncoded());
        for (const auto& one : texts)
            json.insert(QLatin1String(one.key), item.*one.text);
        json.insert(durationKey, item.durationMs);
        json.insert(idKey, item.entry.id);
        json.insert(prePlayKey, item.entry.prePlayPath().toEncoded());
        json.insert(prePlayDataKey, item.entry.prePlayData());
        json.insert(listKey, item.entry.list.toEncoded());
        json.insert(indexKey, item.entry.index);
    }
    return QJsonDocument(json).toJson(QJsonDocument::Indented).mid(2);
}
} // namespace

PlayerStore::PlayerStore(const QString& stateDir)
    : m_file(stateDir.isEmpty() ? QString() : stateDir + QStringLiteral("/player.json"),
             QStringLiteral("volume and position do not outlast a restart"), version, maxFileSize)
{
}

PlayerStore::Kept PlayerStore::load()
{
    Kept kept;
    QJsonObject json;
    const StateFile::Found found = m_file.read(&json);
    const int volume = json.value(volumeKey).toInt(kept.volume);
    if (volume >= 0 && volume <= 100)
        kept.volume = volume;
    if (found != StateFile::Found::Content)
        return kept;
    const auto path = [&json](const QString& key) {
        return CMPath::fromEncoded(json.value(key).toString());
    };
    PlayItem item = PlayItem::ofEntry(
        {{}, json.value(idKey).toString(), path(listKey), json.value(indexKey).toInt(-1)});
    item.path = path(pathKey);
    for (const auto& one : texts)
        item.*one.text = json.value(QLatin1String(one.key)).toString();
    item.entry.row = rowOf(item, path(prePlayKey), json.value(prePlayDataKey).toString());
    if (!item.entry.canResolve())
        return kept;
    kept.item = item;
    kept.item.durationMs = std::max<qint64>(0, json.value(durationKey).toVariant().toLongLong());
    kept.positionMs =
        qBound<qint64>(0, json.value(positionKey).toVariant().toLongLong(), largestPosition);
    return kept;
}

void PlayerStore::save(const Kept& kept)
{
    if (!m_file.isOurs())
        return;
    const QByteArray head = headOf(kept);
    const QByteArray rest = restOf(kept.item);
    if (head == m_head && rest == m_rest)
        return;
    if ((rest == m_rest && writeHead(head)) || m_file.write(head + rest)) {
        m_head = head;
        m_rest = rest;
    }
}

bool PlayerStore::writeHead(const QByteArray& head) const
{
    QFile file(m_file.name());
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
           file.write(head) == head.size();
}
