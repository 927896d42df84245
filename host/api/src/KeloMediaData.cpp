#include "KeloMediaData.h"

QString KeloMetaData::artist() const
{
    return value(Artist()).toString();
}

void KeloMetaData::setArtist(const QString& artist)
{
    insert(Artist(), artist);
}

QString KeloMetaData::album() const
{
    return value(Album()).toString();
}

void KeloMetaData::setAlbum(const QString& album)
{
    insert(Album(), album);
}

QString KeloMetaData::serviceID() const
{
    return value(ServiceID()).toString();
}

void KeloMetaData::setServiceID(const QString& id)
{
    insert(ServiceID(), id);
}

qint64 KeloMetaData::startTime() const
{
    return value(StartTime()).toLongLong();
}

void KeloMetaData::setStartTime(qint64 ms)
{
    insert(StartTime(), ms);
}

bool KeloMetaData::allowSeekTime() const
{
    return value(AllowSeekTime()).toBool();
}

void KeloMetaData::setAllowSeekTime(bool allow)
{
    insert(AllowSeekTime(), allow);
}

CMPath KeloMetaData::contentPlayContextPath() const
{
    return CMPath::fromEncoded(value(ContentPlayContextPath()).toString());
}

void KeloMetaData::setContentPlayContextPath(const CMPath& path)
{
    insert(ContentPlayContextPath(), path.toEncoded());
}

CMPath KeloMetaData::prePlayPath() const
{
    return CMPath::fromEncoded(value(PrePlayPath()).toString());
}

void KeloMetaData::setPrePlayPath(const CMPath& path)
{
    insert(PrePlayPath(), path.toEncoded());
}

QString KeloMetaData::prePlayData() const
{
    return value(PrePlayData()).toString();
}

void KeloMetaData::setPrePlayData(const QString& data)
{
    insert(PrePlayData(), data);
}

qint64 KeloMetaData::prePlayTimeOffset() const
{
    return value(PrePlayTimeOffset()).toLongLong();
}

void KeloMetaData::setPrePlayTimeOffset(qint64 ms)
{
    insert(PrePlayTimeOffset(), ms);
}

QString KeloResource::uri() const
{
    return value(Uri()).toString();
}

void KeloResource::setUri(const QString& uri)
{
    insert(Uri(), uri);
}

QString KeloResource::mimeType() const
{
    return value(MimeType()).toString();
}

void KeloResource::setMimeType(const QString& type)
{
    insert(MimeType(), type);
}

qint64 KeloResource::maxIdleTime() const
{
    return value(MaxIdleTime()).toLongLong();
}

void KeloResource::setMaxIdleTime(qint64 ms)
{
    insert(MaxIdleTime(), ms);
}

KeloMetaData KeloMediaData::metaData() const
{
    return KeloMetaData(value(MetaData()).toHash());
}

void KeloMediaData::setMetaData(const KeloMetaData& metaData)
{
    insert(MetaData(), metaData.toVariant());
}

QList<KeloResource> KeloMediaData::resources() const
{
    const QVariantList list = value(Resources()).toList();
    QList<KeloResource> result;
    result.reserve(list.size());
    for (const QVariant& entry : list)
        result.append(KeloResource(entry.toHash()));
    return result;
}

void KeloMediaData::setResources(const QList<KeloResource>& resources)
{
    QVariantList list;
    list.reserve(resources.size());
    for (const KeloResource& resource : resources)
        list.append(resource.toVariant());
    insert(Resources(), list);
}
