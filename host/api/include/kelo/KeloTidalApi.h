#pragma once
#include "KeloHash.h"
#include "KeloJson.h"
#include "KeloNames.h"
#include <climits>
#include <vector>

// The service's answers. Each is a view of a parsed JSON object: a field is read when asked for,
// and one that is null, missing or of another type reads as its empty value. Field names are the
// service's own.

/// Base of the views.
class KELO_EXPORT KeloTidalApiObject
{
public:
    KeloTidalApiObject() = default;
    explicit KeloTidalApiObject(const KeloJson& json) : m_json(json) {}

    /// Whether there is no object, or one without fields.
    bool isEmpty() const { return !m_json.isObject() || m_json.isEmpty(); }
    /// Whether the object holds the field and the field is not null.
    bool contains(const QString& key) const;
    const KeloJson& json() const { return m_json; }
    /// The field `id` in decimal; empty where it is no whole number of 64 bits.
    QString idText() const;
    /// Views of the objects in an array; elements of another type are left out.
    template <class View>
    static std::vector<View> objects(const KeloJson& array)
    {
        std::vector<View> result;
        array.forEach([&](const KeloJson& element) {
            if (element.isObject())
                result.emplace_back(element);
        });
        return result;
    }

protected:
    QString text(std::string_view key) const { return m_json.value(key).toString(); }
    qint64 number(std::string_view key) const { return m_json.value(key).toInt64(); }

private:
    KeloJson m_json;
};

/// Why a request was refused. Unlike the others it is a hash: it can be made and changed.
class KELO_EXPORT KeloTidalApiErrorResponse : public KeloHash
{
public:
    KELO_NAME(Status, "status")
    KELO_NAME(SubStatus, "subStatus")

    KeloTidalApiErrorResponse() = default;
    /// Of a JSON object; empty for anything else.
    explicit KeloTidalApiErrorResponse(const KeloJson& json);

    int status() const { return value(Status()).toInt(); }
    int subStatus() const { return value(SubStatus()).toInt(); }
    KELO_FIELD(QString, userMessage, UserMessage)
};

/// Answer to the session request.
class KELO_EXPORT KeloTidalApiSessionsResponse : public KeloTidalApiObject
{
public:
    using KeloTidalApiObject::KeloTidalApiObject;
    QString sessionId() const { return text("sessionId"); }
    QString countryCode() const { return text("countryCode"); }
    qint64 userId() const { return number("userId"); }
};

/// Answer to the subscription request.
class KELO_EXPORT KeloTidalApiSubscriptionResponse : public KeloTidalApiObject
{
public:
    using KeloTidalApiObject::KeloTidalApiObject;
    QString highestSoundQuality() const { return text("highestSoundQuality"); }
    /// The service's word for what the user pays for, such as PREMIUM_PLUS.
    QString type() const { return json().value("subscription").value("type").toString(); }
};

/// An artist.
class KELO_EXPORT KeloTidalApiArtistResponse : public KeloTidalApiObject
{
public:
    KELO_NAME(Picture, "picture")
    using KeloTidalApiObject::KeloTidalApiObject;
    qint64 id() const { return number("id"); }
    QString name() const { return text("name"); }
    QString url() const { return text("url"); }
    QString picture() const { return text("picture"); }
};
/// As it stands inside a track or an album: without address and picture.
using KeloTidalApiArtist = KeloTidalApiArtistResponse;

/// An album.
class KELO_EXPORT KeloTidalApiAlbumResponse : public KeloTidalApiObject
{
public:
    KELO_NAME(Cover, "cover")
    using KeloTidalApiObject::KeloTidalApiObject;
    qint64 id() const { return number("id"); }
    QString title() const { return text("title"); }
    QString cover() const { return text("cover"); }
    /// Whether it is said that the album may be streamed.
    bool allowStreaming() const { return json().value("allowStreaming").toBool(); }
    KeloTidalApiArtist artist() const { return KeloTidalApiArtist(json().value("artist")); }
};
/// As it stands inside a track: title and cover.
using KeloTidalApiAlbum = KeloTidalApiAlbumResponse;

/// A track, or a video among the tracks of a playlist.
class KELO_EXPORT KeloTidalApiTrackResponse : public KeloTidalApiObject
{
public:
    KELO_NAME(Artist, "artist")
    KELO_NAME(Album, "album")
    using KeloTidalApiObject::KeloTidalApiObject;
    qint64 id() const { return number("id"); }
    QString title() const { return text("title"); }
    bool allowStreaming() const { return json().value("allowStreaming").toBool(); }
    KeloTidalApiArtist artist() const { return KeloTidalApiArtist(json().value("artist")); }
    KeloTidalApiAlbum album() const { return KeloTidalApiAlbum(json().value("album")); }
};

/// A playlist. Its identifier is `uuid`; there is no `id`.
class KELO_EXPORT KeloTidalApiPlaylistResponse : public KeloTidalApiObject
{
public:
    KELO_NAME(Image, "image")
    using KeloTidalApiObject::KeloTidalApiObject;
    QString uuid() const { return text("uuid"); }
    QString title() const { return text("title"); }
    QString image() const { return text("image"); }
};

/// An entry of a favourites list: the item stands one level deeper.
template <class ItemResponse>
class KeloTidalApiFavorite : public KeloTidalApiObject
{
public:
    KELO_NAME(Item, "item")
    using KeloTidalApiObject::KeloTidalApiObject;
    ItemResponse item() const { return ItemResponse(json().value("item")); }
};
using KeloTidalApiFavoriteAlbumResponse = KeloTidalApiFavorite<KeloTidalApiAlbumResponse>;
using KeloTidalApiFavoriteArtistResponse = KeloTidalApiFavorite<KeloTidalApiArtistResponse>;
using KeloTidalApiFavoriteTrackResponse = KeloTidalApiFavorite<KeloTidalApiTrackResponse>;
using KeloTidalApiFavoritePlaylistResponse = KeloTidalApiFavorite<KeloTidalApiPlaylistResponse>;

/// A page of a list.
class KELO_EXPORT KeloTidalApiPage : public KeloTidalApiObject
{
public:
    using KeloTidalApiObject::KeloTidalApiObject;
    /// Never below zero.
    int totalNumberOfItems() const
    {
        return int(qBound(qint64(0), number("totalNumberOfItems"), qint64(INT_MAX)));
    }
    /// The items at their places, those of a page of favourites unwrapped: the first object tells
    /// whether it is one, by the key alone, since its item may be null.
    std::vector<KeloJson> entries() const;
};

/// The items of a page: items() and itemsFav() are two readings of the same elements, bare and
/// wrapped as favourites are. Elements that are no objects are left out of both.
template <class ItemResponse>
class KeloTidalApiList : public KeloTidalApiPage
{
public:
    using Favorite = KeloTidalApiFavorite<ItemResponse>;
    using KeloTidalApiPage::KeloTidalApiPage;
    std::vector<ItemResponse> items() const { return objects<ItemResponse>(json().value("items")); }
    std::vector<Favorite> itemsFav() const { return objects<Favorite>(json().value("items")); }
};
using KeloTidalApiAlbumsResponse = KeloTidalApiList<KeloTidalApiAlbumResponse>;
using KeloTidalApiArtistsResponse = KeloTidalApiList<KeloTidalApiArtistResponse>;
using KeloTidalApiTracksResponse = KeloTidalApiList<KeloTidalApiTrackResponse>;
using KeloTidalApiPlaylistsResponse = KeloTidalApiList<KeloTidalApiPlaylistResponse>;

/// Biography of an artist, with the service's link markup.
class KELO_EXPORT KeloTidalApiArtistBioResponse : public KeloTidalApiObject
{
public:
    using KeloTidalApiObject::KeloTidalApiObject;
    QString text() const { return KeloTidalApiObject::text("text"); }
};

/// One root of the catalogue: a genre, a mood, an editorial group.
class KELO_EXPORT KeloTidalApiContentRoots : public KeloTidalApiObject
{
public:
    KELO_NAME(Image, "image")
    using KeloTidalApiObject::KeloTidalApiObject;
    /// The service's key of the root, for the paths below it.
    QString path() const { return text("path"); }
    QString name() const { return text("name"); }
    QString image() const { return text("image"); }
};

/// The roots of one kind.
class KELO_EXPORT KeloTidalApiContentRootsResponse
{
public:
    /// Takes the array that the service answered with.
    void setRoot(const KeloJson& array) { m_root = array; }
    bool isEmpty() const { return !m_root.isArray() || m_root.isEmpty(); }
    /// The elements that are objects.
    std::vector<KeloTidalApiContentRoots> root() const
    {
        return KeloTidalApiObject::objects<KeloTidalApiContentRoots>(m_root);
    }

private:
    KeloJson m_root;
};

/// Playback information of a track.
class KELO_EXPORT KeloTidalApiStreamUrlResponse : public KeloTidalApiObject
{
public:
    KELO_NAME(TrackId, "trackId")
    using KeloTidalApiObject::KeloTidalApiObject;
    qint64 trackId() const { return number("trackId"); }
    QString audioQuality() const { return text("audioQuality"); }
    QString manifestMimeType() const { return text("manifestMimeType"); }
    /// Base64 (RFC 4648 4).
    QString manifest() const { return text("manifest"); }
};

/// A decoded stream manifest.
class KELO_EXPORT KeloTidalApiManifest : public KeloTidalApiObject
{
public:
    using KeloTidalApiObject::KeloTidalApiObject;
    QString mimeType() const { return text("mimeType"); }
    QStringList urls() const;
};

Q_DECLARE_METATYPE(KeloTidalApiErrorResponse)
Q_DECLARE_METATYPE(KeloTidalApiSessionsResponse)
Q_DECLARE_METATYPE(KeloTidalApiSubscriptionResponse)
Q_DECLARE_METATYPE(KeloTidalApiTrackResponse)
Q_DECLARE_METATYPE(KeloTidalApiContentRootsResponse)
Q_DECLARE_METATYPE(KeloTidalApiStreamUrlResponse)
