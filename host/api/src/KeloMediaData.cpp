#include "KeloMediaData.h"

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
