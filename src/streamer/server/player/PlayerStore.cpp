#include "PlayerStore.h"
#include <kelo/KeloLog.h>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace {
constexpr qint64 maxFileSize = 65536;
const QString volumeKey = QStringLiteral("volume");
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
} // namespace

PlayerStore::PlayerStore(const QString& stateDir)
    : m_file(stateDir.isEmpty() ? QString() : stateDir + QStringLiteral("/player.json"))
{
}

PlayerStore::Kept PlayerStore::load() const
{
    Kept kept;
    QFile file(m_file);
    if (m_file.isEmpty() || !file.open(QIODevice::ReadOnly))
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
    return kept;
}

void PlayerStore::save(const Kept& kept)
{
    if (m_file.isEmpty())
        return;
    QJsonObject json{{volumeKey, kept.volume}};
    const PlayItem& item = kept.item;
    if (item.entry.canResolve()) {
        json.insert(pathKey, item.path.toEncoded());
        json.insert(titleKey, item.title);
        json.insert(artistKey, item.artist);
        json.insert(albumKey, item.album);
        json.insert(iconKey, item.icon);
        json.insert(idKey, item.entry.id);
        json.insert(prePlayKey, item.entry.prePlayPath().toEncoded());
        json.insert(listKey, item.entry.list.toEncoded());
        json.insert(indexKey, item.entry.index);
    }
    const QByteArray text = QJsonDocument(json).toJson(QJsonDocument::Indented);
    if (text == m_written)
        return;
    QSaveFile file(m_file);
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                           file.write(text) == text.size() && file.commit();
    if (isWritten)
        m_written = text;
    else
        KELO_LOG("player", ERROR) << "cannot write " << m_file << ": " << file.errorString();
}
