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

/// Base of the enumerations that count from zero and whose values have texts: words() of `Derived`
/// has these in the order of the values.
template <class Derived>
struct KeloTidalWords
{
    /// The text; the first one for a number that is none of the values.
    static QString toString(int value)
    {
        return Derived::words().value(value, Derived::words().first());
    }
    /// The value of a text; the first one for a text that is none of the words.
    static auto fromString(const QString& text)
    {
        return typename Derived::Enum(qMax(0, Derived::words().indexOf(text)));
    }
};

/// By what a list is ordered. The texts in upper case are the service's words.
struct KELO_EXPORT KeloTidalOrder : KeloTidalWords<KeloTidalOrder>
{
    enum Enum { Name_ = 0, Date_, Artist_, Album_, Length_, Index_, ReleaseDate_ };
    KELO_NAME(Name, "Name")
    KELO_NAME(Date, "Date")
    KELO_NAME(Artist, "Artist")
    KELO_NAME(Album, "Album")
    KELO_NAME(Length, "Length")
    KELO_NAME(Index, "Index")
    KELO_NAME(ReleaseDate, "Release_Date")
    static QStringList words()
    {
        return {Name(), Date(), Artist(), Album(), Length(), Index(), ReleaseDate()};
    }
};

/// In which direction a list is ordered.
struct KELO_EXPORT KeloTidalOrderDirection : KeloTidalWords<KeloTidalOrderDirection>
{
    enum Enum { Asc_ = 0, Desc_ };
    KELO_NAME(Asc, "Asc")
    KELO_NAME(Desc, "Desc")
    static QStringList words() { return {Asc(), Desc()}; }
};

/// Which playlists a list shows.
struct KELO_EXPORT KeloTidalFilter : KeloTidalWords<KeloTidalFilter>
{
    enum Enum { All_ = 0, Public_, Private_ };
    KELO_NAME(All, "All")
    KELO_NAME(Public, "Public")
    KELO_NAME(Private, "Private")
    static QStringList words() { return {All(), Public(), Private()}; }
};

/// Which part of a browse setting a choice changes, and the path component of each.
struct KELO_EXPORT KeloTidalOrderingType
{
    enum Enum { Order_ = 1, OrderDirection_ = 2, Filter_ = 3 };
    KELO_NAME(Order, "order")
    KELO_NAME(OrderDirection, "orderDirection")
    KELO_NAME(Filter, "filter")
};

/// Sound qualities from lowest to highest, and the service's words for them.
struct KELO_EXPORT KeloTidalSoundQualities : KeloTidalWords<KeloTidalSoundQualities>
{
    enum Enum { LOW_ = 0, HIGH_ = 1, LOSSLESS_ = 2, HI_RES_ = 3 };
    KELO_NAME(Low, "LOW")
    KELO_NAME(High, "HIGH")
    KELO_NAME(Lossless, "LOSSLESS")
    KELO_NAME(HiRes, "HI_RES")
    static QStringList words() { return {Low(), High(), Lossless(), HiRes()}; }
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
    KELO_NAME(HighestSoundQuality, "highestSoundQuality")

    KeloTidalAccount() = default;
    explicit KeloTidalAccount(const KeloHash& hash) : KeloHash(hash) {}

    KELO_FIELD(QString, sessionId, SessionId)
    /// ISO 3166-1 alpha-2, upper case.
    KELO_FIELD(QString, countryCode, CountryCode)
    /// Zero when nobody is logged in.
    KELO_FIELD(qint64, userId, UserId)
    KeloTidalSoundQuality highestSoundQuality() const;
    void setHighestSoundQuality(const KeloTidalSoundQuality& quality);
};

/// The TIDAL settings of the device.
class KELO_EXPORT KeloTidalSettings : public KeloHash
{
public:
    KeloTidalSettings() = default;
    explicit KeloTidalSettings(const KeloHash& hash) : KeloHash(hash) {}

    /// Base URL of the web API, without a closing slash.
    KELO_FIELD(QString, apiUrl, ApiUrl)
    KELO_FIELD(QString, countryCode, CountryCode)
    /// Base URL of the image server, with the closing slash.
    KELO_FIELD(QString, imageUrl, ImageUrl)
    /// Sizes are "WIDTHxHEIGHT", of those that the image server knows.
    KELO_FIELD(QString, imageSize, ImageSize)
    KELO_FIELD(QString, imageSizeArtist, ImageSizeArtist)
    KELO_FIELD(QString, imageSizePlaylist, ImageSizePlaylist)
    KELO_FIELD(QString, imageSizeGenre, ImageSizeGenre)
    KELO_FIELD(QString, imageSizeMood, ImageSizeMood)
    /// Longest pause after which a stream's address is still good, in milliseconds.
    KELO_FIELD(qint64, maxIdleTimeMs, MaxIdleTimeMs)
};

Q_DECLARE_METATYPE(KeloTidalContextVariation::Enum)
Q_DECLARE_METATYPE(KeloTidalRequestType::Enum)
Q_DECLARE_METATYPE(KeloTidalOrderingType::Enum)
Q_DECLARE_METATYPE(KeloTidalSoundQualities::Enum)
Q_DECLARE_METATYPE(KeloTidalBrowseSetting)
