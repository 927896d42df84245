#pragma once
#include "KeloHash.h"
#include "KeloNames.h"
#include <QMetaType>
#include <QStringList>

/// Which context menu an item's row carries.
struct KELO_EXPORT KeloTidalContextVariation
{
    enum Enum {
        Browse = 0,         ///< "/context"
        PlaylistTracks = 1, ///< "/myPlaylistTrackscontext"
        Playlist = 2,       ///< "/playlistcontext"
        Base = 3            ///< "/basecontext"
    };
};

/// The kind of a request, as told from its path when the answer comes.
struct KELO_EXPORT KeloTidalRequestType
{
    enum Enum {
        None = 0,
        Sessions = 1,
        PrePlay = 2,
        Tracks = 3,
        Featured = 4,
        Moods = 5,
        Genres = 6,
        Subscription = 7,
        Favorites = 8,
        AddToPlaylists = 9,
        RemoveFromPlaylists = 10
    };
};

/// By what a list is ordered. The texts in upper case are the service's words.
struct KELO_EXPORT KeloTidalOrder
{
    enum Enum { Name_ = 0, Date_, Artist_, Album_, Length_, Index_, ReleaseDate_ };
    KELO_NAME(Name, "Name")
    KELO_NAME(Date, "Date")
    KELO_NAME(Artist, "Artist")
    KELO_NAME(Album, "Album")
    KELO_NAME(Length, "Length")
    KELO_NAME(Index, "Index")
    KELO_NAME(ReleaseDate, "Release_Date")
    /// The text; that of Name for a number that is none.
    static QString toString(Enum value);
    /// The value of a text; Name_ for a text that is none.
    static Enum fromString(const QString& text);
};

/// In which direction a list is ordered.
struct KELO_EXPORT KeloTidalOrderDirection
{
    enum Enum { Asc_ = 0, Desc_ };
    KELO_NAME(Asc, "Asc")
    KELO_NAME(Desc, "Desc")
    static QString toString(Enum value);
    static Enum fromString(const QString& text);
};

/// Which playlists a list shows.
struct KELO_EXPORT KeloTidalFilter
{
    enum Enum { All_ = 0, Public_, Private_ };
    KELO_NAME(All, "All")
    KELO_NAME(Public, "Public")
    KELO_NAME(Private, "Private")
    static QString toString(Enum value);
    static Enum fromString(const QString& text);
};

/// Which part of a browse setting a choice changes, and the path component of each.
struct KELO_EXPORT KeloTidalOrderingType
{
    enum Enum { Order_ = 1, OrderDirection_ = 2, Filter_ = 3 };
    KELO_NAME(Order, "order")
    KELO_NAME(OrderDirection, "orderDirection")
    KELO_NAME(Filter, "filter")
};

/// Sound qualities from lowest to highest.
struct KELO_EXPORT KeloTidalSoundQualities
{
    enum Enum { LOW_ = 0, HIGH_ = 1, LOSSLESS_ = 2, HI_RES_ = 3 };
    KELO_NAME(Low, "LOW")
    KELO_NAME(High, "HIGH")
    KELO_NAME(Lossless, "LOSSLESS")
    KELO_NAME(HiRes, "HI_RES")
    /// The service's word; that of the lowest for a number that is none.
    static QString toString(Enum value);
    /// The value of a word; the lowest for a text that is none.
    static Enum fromString(const QString& text);
    /// The words by their numbers.
    static QStringList words();
};

/// A sound quality as a record.
class KELO_EXPORT KeloTidalSoundQuality : public KeloHash
{
public:
    KELO_NAME(SoundQuality, "soundQuality")

    KeloTidalSoundQuality() = default;
    explicit KeloTidalSoundQuality(const KeloHash& hash) : KeloHash(hash) {}
    KeloTidalSoundQualities::Enum soundQuality() const;
    void setSoundQuality(KeloTidalSoundQualities::Enum quality);
};

/// How a list is ordered and filtered. A value type.
class KELO_EXPORT KeloTidalBrowseSetting
{
public:
    KeloTidalOrder::Enum order() const { return m_order; }
    void setOrder(KeloTidalOrder::Enum order) { m_order = order; }
    KeloTidalOrderDirection::Enum orderDirection() const { return m_orderDirection; }
    void setOrderDirection(KeloTidalOrderDirection::Enum direction)
    {
        m_orderDirection = direction;
    }
    KeloTidalFilter::Enum filter() const { return m_filter; }
    void setFilter(KeloTidalFilter::Enum filter) { m_filter = filter; }

private:
    KeloTidalOrder::Enum m_order = KeloTidalOrder::Name_;
    KeloTidalOrderDirection::Enum m_orderDirection = KeloTidalOrderDirection::Asc_;
    KeloTidalFilter::Enum m_filter = KeloTidalFilter::All_;
};

/// Account of the logged-in user at the service.
class KELO_EXPORT KeloTidalAccount : public KeloHash
{
public:
    KELO_NAME(SessionId, "sessionId")
    KELO_NAME(CountryCode, "countryCode")
    KELO_NAME(UserId, "userId")
    KELO_NAME(HighestSoundQuality, "highestSoundQuality")

    KeloTidalAccount() = default;
    explicit KeloTidalAccount(const KeloHash& hash) : KeloHash(hash) {}

    QString sessionId() const { return value(SessionId()).toString(); }
    void setSessionId(const QString& id) { insert(SessionId(), id); }
    /// ISO 3166-1 alpha-2, upper case.
    QString countryCode() const { return value(CountryCode()).toString(); }
    void setCountryCode(const QString& code) { insert(CountryCode(), code); }
    /// Zero when nobody is logged in.
    qint64 userId() const { return value(UserId()).toLongLong(); }
    void setUserId(qint64 id) { insert(UserId(), id); }
    KeloTidalSoundQuality highestSoundQuality() const;
    void setHighestSoundQuality(const KeloTidalSoundQuality& quality);
};

/// The TIDAL settings of the device.
class KELO_EXPORT KeloTidalSettings : public KeloHash
{
public:
    KELO_NAME(ApiUrl, "apiUrl")
    KELO_NAME(CountryCode, "countryCode")
    KELO_NAME(ImageUrl, "imageUrl")
    KELO_NAME(ImageSize, "imageSize")
    KELO_NAME(ImageSizeArtist, "imageSizeArtist")
    KELO_NAME(ImageSizePlaylist, "imageSizePlaylist")
    KELO_NAME(ImageSizeGenre, "imageSizeGenre")
    KELO_NAME(ImageSizeMood, "imageSizeMood")
    KELO_NAME(MaxIdleTimeMs, "maxIdleTimeMs")

    KeloTidalSettings() = default;
    explicit KeloTidalSettings(const KeloHash& hash) : KeloHash(hash) {}

    /// Base URL of the web API, without a closing slash.
    QString apiUrl() const { return value(ApiUrl()).toString(); }
    void setApiUrl(const QString& url) { insert(ApiUrl(), url); }
    QString countryCode() const { return value(CountryCode()).toString(); }
    void setCountryCode(const QString& code) { insert(CountryCode(), code); }
    /// Base URL of the image server, with the closing slash.
    QString imageUrl() const { return value(ImageUrl()).toString(); }
    void setImageUrl(const QString& url) { insert(ImageUrl(), url); }
    /// Sizes are "WIDTHxHEIGHT", of those that the image server knows.
    QString imageSize() const { return value(ImageSize()).toString(); }
    void setImageSize(const QString& size) { insert(ImageSize(), size); }
    QString imageSizeArtist() const { return value(ImageSizeArtist()).toString(); }
    void setImageSizeArtist(const QString& size) { insert(ImageSizeArtist(), size); }
    QString imageSizePlaylist() const { return value(ImageSizePlaylist()).toString(); }
    void setImageSizePlaylist(const QString& size) { insert(ImageSizePlaylist(), size); }
    QString imageSizeGenre() const { return value(ImageSizeGenre()).toString(); }
    void setImageSizeGenre(const QString& size) { insert(ImageSizeGenre(), size); }
    QString imageSizeMood() const { return value(ImageSizeMood()).toString(); }
    void setImageSizeMood(const QString& size) { insert(ImageSizeMood(), size); }
    /// Longest pause after which a stream's address is still good, in milliseconds.
    qint64 maxIdleTimeMs() const { return value(MaxIdleTimeMs()).toLongLong(); }
    void setMaxIdleTimeMs(qint64 ms) { insert(MaxIdleTimeMs(), ms); }
};

Q_DECLARE_METATYPE(KeloTidalContextVariation::Enum)
Q_DECLARE_METATYPE(KeloTidalRequestType::Enum)
Q_DECLARE_METATYPE(KeloTidalOrderingType::Enum)
Q_DECLARE_METATYPE(KeloTidalSoundQualities::Enum)
Q_DECLARE_METATYPE(KeloTidalBrowseSetting)
