#include "TidalItemRows.h"
#include <algorithm>
#include <charconv>
#include <kelo/CMWorker.h>
#include <kelo/KeloMimeTypes.h>
#include <kelo/KeloTidalConstants.h>

namespace {
using Plan = TidalRowPlan;

/// A whole number as text, without allocation; empty for a value that is none.
class Decimal
{
public:
    explicit Decimal(const KeloJson& number)
    {
        if (number.isInteger())
            write(number.toInt64());
    }
    explicit Decimal(qint64 number) { write(number); }

    std::string_view view() const { return {m_text, m_size}; }
    QString toString() const { return QString::fromLatin1(m_text, int(m_size)); }

private:
    void write(qint64 number)
    {
        m_size = std::size_t(std::to_chars(m_text, m_text + sizeof m_text, number).ptr - m_text);
    }

    char m_text[24];
    std::size_t m_size = 0;
};

QString toText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), int(utf8.size()));
}

QString withSlash(const QString& url)
{
    return url.endsWith(QLatin1Char('/')) ? url : url + QLatin1Char('/');
}

const QVariant& boolean(bool value)
{
    static const QVariant yes(true);
    static const QVariant no(false);
    return value ? yes : no;
}

/// The artists' names joined by ", "; empty ones are left out.
void joinNames(std::string& to, const KeloJson& artists)
{
    to.clear();
    artists.forEach([&](const KeloJson& artist) {
        const std::string_view name = artist.value("name").toUtf8();
        if (!to.empty() && !name.empty())
            to += ", ";
        to += name;
    });
}

/// The artists as name_id pairs joined by ",".
void joinPairs(std::string& to, const KeloJson& artists)
{
    to.clear();
    artists.forEach([&](const KeloJson& artist) {
        if (!to.empty())
            to += ',';
        to += artist.value("name").toUtf8();
        to += '_';
        to += Decimal(artist.value("id")).view();
    });
}

QVariantHash serviceMetaData(int size)
{
    static const QVariant service(KeloService_Tidal_Id());
    QVariantHash metaData;
    metaData.reserve(size);
    metaData.insert(KeloMetaData::ServiceID(), service);
    return metaData;
}

const QStringList& contextKeys()
{
    static const QStringList keys = {QStringLiteral("id"), QStringLiteral("type"),
                                     QStringLiteral("rowNum")};
    return keys;
}

/// Identifier of the playlist whose tracks the path lists; empty when it lists something else.
QString playlistOf(const CMPath& path)
{
    const QStringList segments = path.splitBase();
    const bool isPlaylists =
        !segments.isEmpty() && segments.last() == KeloTidalPlaylists().toLower();
    return isPlaylists ? path.param(QStringLiteral("contentId")) : QString();
}

QStringList trackContextKeys(bool isPlaylist)
{
    QStringList keys = contextKeys();
    keys << QStringLiteral("artists");
    if (isPlaylist)
        keys << QStringLiteral("playlistId");
    return keys;
}
} // namespace

const QString& TidalRepeatedText::text(std::string_view utf8)
{
    if (utf8 != m_utf8) {
        m_utf8 = utf8;
        m_text = toText(utf8);
    }
    return m_text;
}

TidalImageUrl::TidalImageUrl(const QString& base, const QString& size)
    : m_prefix(base.toStdString()), m_suffix('/' + size.toStdString() + ".jpg")
{
}

QString TidalImageUrl::of(std::string_view id)
{
    if (id.empty())
        return QString();
    m_url = m_prefix;
    m_url += id;
    std::replace(m_url.end() - std::ptrdiff_t(id.size()), m_url.end(), '-', '/');
    m_url += m_suffix;
    return toText(m_url);
}

TidalItemRows::TidalItemRows(const Page& page, const CMPath& itemPath, const QStringList& pathKeys,
                             const QStringList& contextKeys, const QString& imageSize)
    : m_plan(page.request.roles()), m_row(m_plan.emptyRow()), m_path(itemPath, pathKeys),
      m_context(contextKeys, page.context), m_from(page.request.from()),
      m_images(withSlash(page.settings.imageUrl()), imageSize)
{
    setShared(Plan::Title, QString());
    setShared(Plan::Id, QString());
    setShared(Plan::Disabled, boolean(false));
    setShared(Plan::Description, QString());
    setShared(Plan::MediaData, KeloMediaData().toVariant());
    setShared(Plan::AudioType, KeloRolesAudioType::None());
    setShared(Plan::ContainerType, KeloRolesContainerType::None());
    setShared(Plan::ContainerPlayable, boolean(false));
}

void TidalItemRows::setShared(TidalRowPlan::Column column, const QVariant& value)
{
    m_plan.set(m_row, column, [&] { return value; });
}

QVariant TidalItemRows::imageUrl(const KeloJson& image)
{
    const std::string_view id = image.toUtf8();
    if (id == m_imageId)
        return m_imageUrl;
    m_imageId = id;
    m_imageUrl = id.empty() ? QVariant() : QVariant(m_images.of(id));
    return m_imageUrl;
}

TidalAlbumRows::TidalAlbumRows(const Page& page)
    : TidalItemRows(page, page.path, {QStringLiteral("contentId")}, contextKeys(),
                    page.settings.imageSize())
{
    setShared(Plan::Type, KeloRolesType::Container());
    setShared(Plan::ContainerPlayable, boolean(true));
}

QVariantList TidalAlbumRows::row(const KeloTidalApiAlbumResponse& album, int position)
{
    static const std::string type = KeloTidalAlbums().toStdString();
    const KeloJson& json = album.json();
    const Decimal id(json.value("id"));
    QString description;
    if (m_plan.wants(Plan::Description) || m_plan.wants(Plan::MediaData)) {
        const KeloJson artists = json.value("artists");
        if (artists.isArray() && artists.size() > 1) {
            joinNames(m_scratch, artists);
            description = toText(m_scratch);
        } else {
            description = album.artist().name();
        }
    }

    QVariantList row = m_row;
    m_plan.set(row, Plan::Path, [&] { return m_path.text({id.view()}); });
    m_plan.set(row, Plan::Title, [&] { return album.title(); });
    m_plan.set(row, Plan::Id, [&] { return id.toString(); });
    m_plan.set(row, Plan::Disabled, [&] { return boolean(album.forbidsStreaming()); });
    m_plan.set(row, Plan::Description, [&] { return description; });
    m_plan.set(row, Plan::Icon, [&] { return imageUrl(json.value("cover")); });
    m_plan.set(row, Plan::MediaData, [&] {
        QVariantHash metaData = serviceMetaData(2);
        metaData.insert(KeloMetaData::Artist(), description);
        return QVariantHash{{KeloMediaData::MetaData(), metaData}};
    });
    m_plan.set(row, Plan::Context, [&] {
        return m_context.roles({id.view(), type, Decimal(qint64(m_from) + position).view()});
    });
    m_plan.finish(row);
    return row;
}

TidalArtistRows::TidalArtistRows(const Page& page)
    : TidalItemRows(page, page.path, {QStringLiteral("artistId"), QStringLiteral("artistUrl")},
                    contextKeys(), page.settings.imageSizeArtist())
{
    setShared(Plan::Type, KeloRolesType::Container());
    setShared(Plan::ContainerPlayable, boolean(true));
}

QVariantList TidalArtistRows::row(const KeloTidalApiArtistResponse& artist, int position)
{
    static const std::string type = KeloTidalArtists().toStdString();
    const KeloJson& json = artist.json();
    const Decimal id(json.value("id"));

    QVariantList row = m_row;
    m_plan.set(row, Plan::Path, [&] {
        return m_path.text({id.view(), json.value("url").toUtf8()});
    });
    m_plan.set(row, Plan::Title, [&] { return artist.name(); });
    m_plan.set(row, Plan::Id, [&] { return id.toString(); });
    m_plan.set(row, Plan::Icon, [&] { return imageUrl(json.value("picture")); });
    m_plan.set(row, Plan::Context, [&] {
        return m_context.roles({id.view(), type, Decimal(qint64(m_from) + position).view()});
    });
    m_plan.finish(row);
    return row;
}

TidalTrackRows::TidalTrackRows(const Page& page) : TidalTrackRows(page, page.path) {}

TidalTrackRows::TidalTrackRows(const Page& page, const CMPath& itemPath)
    : TidalItemRows(page, itemPath, {QStringLiteral("trackId")},
                    trackContextKeys(!playlistOf(page.path).isEmpty()), page.settings.imageSize()),
      m_playlist(playlistOf(page.path).toStdString())
{
    setShared(Plan::Type, KeloRolesType::Audio());
    setShared(Plan::AudioType, KeloRolesAudioType::MusicTrack());
    const QString anyId = QStringLiteral("0");
    KeloMetaData metaData;
    metaData.setServiceID(KeloService_Tidal_Id());
    metaData.setAlbum(QString());
    metaData.setArtist(QString());
    metaData.setContentPlayContextPath(page.path);
    metaData.setPrePlayPath(
        page.worker->addPrefix(KeloTidalPrePlayPath() + QLatin1Char('/') + anyId));
    m_metaData = metaData.toHash();
    m_prePlayPath = m_metaData.value(KeloMetaData::PrePlayPath()).toString();
    m_prePlayPath.chop(anyId.size());
    KeloResource resource;
    resource.setMimeType(MimeTypes::Audio::unknown());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({resource});
    m_mediaData = mediaData.toHash();
}

QVariant TidalTrackRows::mediaData(const KeloJson& album, const QString& artist,
                                   std::string_view id)
{
    QString prePlayPath;
    prePlayPath.reserve(m_prePlayPath.size() + int(id.size()));
    prePlayPath += m_prePlayPath;
    prePlayPath += QLatin1String(id.data(), int(id.size()));
    m_metaData[KeloMetaData::PrePlayPath()] = prePlayPath;
    m_metaData[KeloMetaData::Album()] = m_albumTitle.text(album.value("title").toUtf8());
    m_metaData[KeloMetaData::Artist()] = artist;
    QVariantHash mediaData = m_mediaData;
    mediaData[KeloMediaData::MetaData()] = m_metaData;
    return mediaData;
}

QVariantList TidalTrackRows::row(const KeloTidalApiTrackResponse& track, int position)
{
    static const std::string type = KeloTidalTracks().toStdString();
    const KeloJson& json = track.json();
    const Decimal id(json.value("id"));
    const std::string_view artist = json.value("artist").value("name").toUtf8();
    const KeloJson artists = json.value("artists");
    const KeloJson album = json.value("album");
    QString names;
    if (m_plan.wants(Plan::Description) || m_plan.wants(Plan::MediaData)) {
        joinNames(m_scratch, artists);
        names = m_names.text(m_scratch.empty() ? artist : m_scratch);
    }

    QVariantList row = m_row;
    m_plan.set(row, Plan::Path, [&] { return m_path.text({id.view()}); });
    m_plan.set(row, Plan::Title, [&] {
        m_scratch = json.value("title").toUtf8();
        m_scratch += " - ";
        m_scratch += artist;
        return toText(m_scratch);
    });
    m_plan.set(row, Plan::Id, [&] { return id.toString(); });
    m_plan.set(row, Plan::Disabled, [&] { return boolean(track.forbidsStreaming()); });
    m_plan.set(row, Plan::Description, [&] { return names; });
    m_plan.set(row, Plan::Icon, [&] { return imageUrl(album.value("cover")); });
    m_plan.set(row, Plan::MediaData, [&] { return mediaData(album, names, id.view()); });
    m_plan.set(row, Plan::Context, [&] {
        joinPairs(m_artists, artists);
        // Edits name an item of a playlist by its place there, which the service says beside it: in
        // another order the row is not the place.
        const KeloJson place = m_playlist.empty() ? KeloJson() : json.value("index");
        const Decimal number(place.toInt64(qint64(m_from) + position));
        return m_playlist.empty()
                   ? m_context.roles({id.view(), type, number.view(), m_artists})
                   : m_context.roles({id.view(), type, number.view(), m_artists, m_playlist});
    });
    m_plan.finish(row);
    return row;
}

TidalPlaylistRows::TidalPlaylistRows(const Page& page, const QString& etag)
    : TidalPlaylistRows(page, etag, page.path,
                        {QStringLiteral("playlistId"), QStringLiteral("contentId")},
                        KeloRolesType::Container())
{
}

TidalPlaylistRows::TidalPlaylistRows(const Page& page, const QString& etag,
                                     const CMPath& actionPath)
    : TidalPlaylistRows(page, etag, actionPath, {QStringLiteral("playlistId")},
                        KeloRolesType::Action())
{
}

TidalPlaylistRows::TidalPlaylistRows(const Page& page, const QString& etag, const CMPath& itemPath,
                                     const QStringList& pathKeys, const QString& type)
    : TidalItemRows(
          page,
          [&] {
              CMPath path = itemPath;
              path.addParam(QStringLiteral("ETag"), etag);
              return path;
          }(),
          pathKeys, contextKeys(), page.settings.imageSizePlaylist())
{
    setShared(Plan::Type, type);
    setShared(Plan::ContainerPlayable, boolean(type == KeloRolesType::Container()));
}

QVariantList TidalPlaylistRows::row(const KeloTidalApiPlaylistResponse& playlist, int rowNumber)
{
    static const std::string type = KeloTidalPlaylists().toStdString();
    const KeloJson& json = playlist.json();
    const std::string_view uuid = json.value("uuid").toUtf8();

    QVariantList row = m_row;
    m_plan.set(row, Plan::Path, [&] { return m_path.text({uuid, uuid}); });
    m_plan.set(row, Plan::Title, [&] { return playlist.title(); });
    m_plan.set(row, Plan::Id, [&] { return playlist.uuid(); });
    m_plan.set(row, Plan::Icon, [&] { return imageUrl(json.value("image")); });
    m_plan.set(row, Plan::Description, [&] {
        joinNames(m_scratch, json.value("promotedArtists"));
        return toText(m_scratch);
    });
    m_plan.set(row, Plan::Context, [&] {
        return m_context.roles({uuid, type, Decimal(qint64(rowNumber)).view()});
    });
    m_plan.finish(row);
    return row;
}
