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
    KELO_NAME(Duration, "duration")

    KeloMetaData() = default;
    explicit KeloMetaData(const KeloHash& hash) : KeloHash(hash) {}

    KELO_FIELD(QString, artist, Artist)
    KELO_FIELD(QString, album, Album)
    /// Identifier of the service that the media comes from.
    KELO_FIELD(QString, serviceID, ServiceID)
    /// Position to start at, in milliseconds.
    KELO_FIELD(qint64, startTime, StartTime)
    KELO_FIELD(bool, allowSeekTime, AllowSeekTime)
    /// The list that goes on when this item ends.
    KELO_FIELD(CMPath, contentPlayContextPath, ContentPlayContextPath)
    /// Where the whole row is sent, with the role KeloRoles::PrePlay(), to be completed and played.
    KELO_FIELD(CMPath, prePlayPath, PrePlayPath)
    /// What the module needs to know the item again.
    KELO_FIELD(QString, prePlayData, PrePlayData)
    /// Position that the player wants to start at, in milliseconds.
    KELO_FIELD(qint64, prePlayTimeOffset, PrePlayTimeOffset)
};

/// One address under which a piece of media is found.
class KELO_EXPORT KeloResource : public KeloHash
{
public:
    KeloResource() = default;
    explicit KeloResource(const KeloHash& hash) : KeloHash(hash) {}

    KELO_FIELD(QString, uri, Uri)
    KELO_FIELD(QString, mimeType, MimeType)
    /// Longest pause after which the address is still good, in milliseconds; 0 when not said.
    KELO_FIELD(qint64, maxIdleTime, MaxIdleTime)
};

/// A piece of media: what is known of it and its addresses, best first.
class KELO_EXPORT KeloMediaData : public KeloHash
{
public:
    KeloMediaData() = default;
    explicit KeloMediaData(const KeloHash& hash) : KeloHash(hash) {}

    bool hasMetaData() const { return contains(MetaData()); }
    KELO_FIELD(KeloMetaData, metaData, MetaData)
    KELO_FIELD(QList<KeloResource>, resources, Resources)
};

Q_DECLARE_METATYPE(KeloMetaData)
Q_DECLARE_METATYPE(KeloResource)
Q_DECLARE_METATYPE(KeloMediaData)
