#pragma once
#include "CMPath.h"
#include "KeloHash.h"
#include "KeloNames.h"
#include <QList>

/// What is known about a piece of media, and how its play request finds its way back to the module
/// that offered it.
class KELO_EXPORT KeloMetaData : public KeloHash
{
public:
    KELO_NAME(Artist, "artist")
    KELO_NAME(Album, "album")
    KELO_NAME(ServiceID, "serviceID")
    KELO_NAME(StartTime, "startTime")
    KELO_NAME(AllowSeekTime, "allowSeekTime")
    KELO_NAME(ContentPlayContextPath, "contentPlayContextPath")
    KELO_NAME(PrePlayPath, "prePlayPath")
    KELO_NAME(PrePlayData, "prePlayData")
    KELO_NAME(PrePlayTimeOffset, "prePlayTimeOffset")
    KELO_NAME(Duration, "duration")

    KeloMetaData() = default;
    explicit KeloMetaData(const KeloHash& hash) : KeloHash(hash) {}

    QString artist() const;
    void setArtist(const QString& artist);
    QString album() const;
    void setAlbum(const QString& album);
    /// Identifier of the service that the media comes from.
    QString serviceID() const;
    void setServiceID(const QString& id);
    /// Position to start at, in milliseconds.
    qint64 startTime() const;
    void setStartTime(qint64 ms);
    bool allowSeekTime() const;
    void setAllowSeekTime(bool allow);
    /// The list that goes on when this item ends.
    CMPath contentPlayContextPath() const;
    void setContentPlayContextPath(const CMPath& path);
    /// Where the whole row is sent, with the role KeloRoles::PrePlay(), to be completed and played.
    CMPath prePlayPath() const;
    void setPrePlayPath(const CMPath& path);
    /// What the module needs to know the item again.
    QString prePlayData() const;
    void setPrePlayData(const QString& data);
    /// Position that the player wants to start at, in milliseconds.
    qint64 prePlayTimeOffset() const;
    void setPrePlayTimeOffset(qint64 ms);
};

/// One address under which a piece of media is found.
class KELO_EXPORT KeloResource : public KeloHash
{
public:
    KELO_NAME(Uri, "uri")
    KELO_NAME(MimeType, "mimeType")
    KELO_NAME(MaxIdleTime, "maxIdleTime")

    KeloResource() = default;
    explicit KeloResource(const KeloHash& hash) : KeloHash(hash) {}

    QString uri() const;
    void setUri(const QString& uri);
    QString mimeType() const;
    void setMimeType(const QString& type);
    /// Longest pause after which the address is still good, in milliseconds; 0 when not said.
    qint64 maxIdleTime() const;
    void setMaxIdleTime(qint64 ms);
};

/// A piece of media: what is known of it and its addresses, best first.
class KELO_EXPORT KeloMediaData : public KeloHash
{
public:
    KELO_NAME(MetaData, "metaData")
    KELO_NAME(Resources, "resources")

    KeloMediaData() = default;
    explicit KeloMediaData(const KeloHash& hash) : KeloHash(hash) {}

    bool hasMetaData() const { return contains(MetaData()); }
    KeloMetaData metaData() const;
    void setMetaData(const KeloMetaData& metaData);
    QList<KeloResource> resources() const;
    void setResources(const QList<KeloResource>& resources);
};

Q_DECLARE_METATYPE(KeloMetaData)
Q_DECLARE_METATYPE(KeloResource)
Q_DECLARE_METATYPE(KeloMediaData)
