#include "PlayItem.h"
#include <kelo/CMRoot.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloTidalTypes.h>

namespace {
/// Under this name a resource may say what quality was granted.
const QString audioQualityKey = QStringLiteral("audioQuality");

QString askedQuality()
{
    const KeloValue value = CMRoot().value(KeloTidalSoundQualityPath());
    return value.isEmpty()
               ? QString()
               : KeloTidalSoundQualities::toString(value.tidalSoundQuality().soundQuality());
}

QString deliveredQuality(const KeloResource& resource)
{
    const QString said = resource.value(audioQualityKey).toString();
    if (!said.isEmpty())
        return said;
    if (resource.mimeType() == QLatin1String("audio/flac"))
        return KeloTidalSoundQualities::Lossless();
    if (resource.mimeType() == QLatin1String("audio/mp4"))
        return KeloTidalSoundQualities::High();
    return {};
}

QString firstOf(const QString& one, const QString& other)
{
    return one.isEmpty() ? other : one;
}
} // namespace

PlayItem PlayItem::ofEntry(const QueueEntry& entry)
{
    PlayItem item;
    item.entry = entry;
    item.path = entry.row.path();
    item.title = entry.row.title();
    item.icon = entry.row.icon();
    const KeloMetaData metaData = entry.row.mediaData().metaData();
    item.artist = metaData.artist();
    item.album = metaData.album();
    item.qualityAsked = askedQuality();
    return item;
}

PlayItem PlayItem::completed(const KeloRoles& roles, const QueueEntry& entry)
{
    PlayItem item = ofEntry(entry);
    const KeloMediaData mediaData = roles.mediaData();
    const KeloMetaData metaData = mediaData.metaData();
    const QList<KeloResource> resources = mediaData.resources();
    const KeloResource resource = resources.isEmpty() ? KeloResource() : resources.first();
    if (item.path.isEmpty())
        item.path = roles.path();
    item.title = firstOf(roles.title(), item.title);
    item.icon = firstOf(roles.icon(), item.icon);
    item.artist = firstOf(metaData.artist(), item.artist);
    item.album = firstOf(metaData.album(), item.album);
    item.uri = resource.uri();
    item.maxIdleMs = resource.maxIdleTime();
    item.startMs = metaData.startTime();
    item.durationMs = metaData.value(KeloMetaData::Duration()).toLongLong();
    item.qualityDelivered = deliveredQuality(resource);
    const CMPath context = metaData.contentPlayContextPath();
    if (item.entry.list.isEmpty())
        item.entry.list = context;
    return item;
}

QString PlayItem::name() const
{
    return firstOf(title, firstOf(entry.id, path.toEncoded()));
}
