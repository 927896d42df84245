#include "TidalItemRows.h"

#include "TidalWorker.h"
#include <algorithm>
#include <charconv>
#include <kelo/KeloMediaData.h>
#include <kelo/KeloMimeTypes.h>
#include <kelo/KeloRoles.h>
#include <kelo/KeloTidalConstants.h>
#include <QStringBuilder>

namespace {
using Row = TidalRow;

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

/// Whether it is said that an item may not be streamed.
bool isForbidden(const KeloJson& item)
{
    return !item.value("allowStreaming").toBool(true);
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

TidalImageUrl::TidalImageUrl(const QString& base, const QString& size)
    : m_text(base.toStdString()), m_tail('/' + size.toStdString() + ".jpg")
{
    if (!base.endsWith(QLatin1Char('/')))
        m_text += '/';
    m_baseSize = m_text.size();
}

QString TidalImageUrl::text(std::string_view id)
{
    if (id.empty())
        return QString();
    m_text.resize(m_baseSize);
    m_text += id;
    std::replace(m_text.begin() + std::ptrdiff_t(m_baseSize), m_text.end(), '-', '/');
    m_text += m_tail;
    return toText(m_text);
}

TidalItemRows::TidalItemRows(const Page& page, const QStringList& pathKeys,
                             const QStringList& contextKeys, const QString& imageSize)
    : m_row(page.roles), m_path(page.itemPath, pathKeys), m_further(*page.worker, page.roles),
      m_menu(KeloRowBlock::hash(page.menu)),
      m_menuPath(CMPath::fromEncoded(page.menu.value(KeloRoles::Path()).toString()), contextKeys),
      m_imageUrl(page.settings.imageUrl(), imageSize), m_image(QVariant())
{
    if (!page.menu.isEmpty())
        m_menu.field(KeloRoles::Path()).own = 0;
    m_row.share(Row::Disabled, false);
    m_row.share(Row::AudioType, KeloRolesAudioType::None());
    m_row.share(Row::ContainerType, KeloRolesContainerType::None());
    m_row.share(Row::Type, KeloRolesType::Container());
    m_row.share(Row::ContainerPlayable, true);
}

QVariant TidalItemRows::imageUrl(const KeloJson& image)
{
    return m_image.value(image.toUtf8(), [this](std::string_view id) {
        return id.empty() ? QVariant() : m_imageUrl.text(id);
    });
}

void TidalItemRows::makeContext(std::initializer_list<std::string_view> values)
{
    if (!m_menu.hash.empty())
        m_row.makeHash(Row::Context, m_menu,
                       [&] { return std::array{QVariant(m_menuPath.text(values))}; });
}

TidalAlbumRows::TidalAlbumRows(const Page& page)
    : TidalItemRows(page, {QStringLiteral("contentId")}, contextKeys(), page.settings.imageSize())
{
    KeloRowBlock::Value metaData =
        KeloRowBlock::hash({{KeloMetaData::ServiceID(), KeloService_Tidal_Id()}});
    metaData.field(KeloMetaData::Artist()).own = 0;
    m_mediaData.field(KeloMediaData::MetaData()) = metaData;
}

void TidalAlbumRows::make(const KeloJson& album, qint64 number)
{
    static const std::string type = KeloTidalAlbums().toStdString();
    const Decimal id(album.value("id"));
    QString description;
    if (m_row.wants(Row::Description) || m_row.wants(Row::MediaData)) {
        const KeloJson artists = album.value("artists");
        if (artists.isArray() && artists.size() > 1) {
            joinNames(m_scratch, artists);
            description = toText(m_scratch);
        } else {
            description = album.value("artist").value("name").toString();
        }
    }
    m_row.make(Row::Path, [&] { return m_path.text({id.view()}); });
    m_row.make(Row::Title, [&] { return album.value("title").toString(); });
    m_row.make(Row::Id, [&] { return id.toString(); });
    m_row.make(Row::Disabled, [&] { return isForbidden(album); });
    m_row.make(Row::Description, [&] { return description; });
    m_row.make(Row::Icon, [&] { return imageUrl(album.value("cover")); });
    m_row.makeHash(Row::MediaData, m_mediaData, [&] { return std::array{QVariant(description)}; });
    makeContext({id.view(), type, Decimal(number).view()});
}

TidalArtistRows::TidalArtistRows(const Page& page)
    : TidalItemRows(page, {QStringLiteral("artistId"), QStringLiteral("artistUrl")}, contextKeys(),
                    page.settings.imageSizeArtist())
{
    m_row.share(Row::Description, QString());
    m_row.share(Row::MediaData, KeloMediaData().toVariant());
}

void TidalArtistRows::make(const KeloJson& artist, qint64 number)
{
    static const std::string type = KeloTidalArtists().toStdString();
    const Decimal id(artist.value("id"));
    m_row.make(Row::Path, [&] { return m_path.text({id.view(), artist.value("url").toUtf8()}); });
    m_row.make(Row::Title, [&] { return artist.value("name").toString(); });
    m_row.make(Row::Id, [&] { return id.toString(); });
    m_row.make(Row::Icon, [&] { return imageUrl(artist.value("picture")); });
    makeContext({id.view(), type, Decimal(number).view()});
}

TidalTrackRows::TidalTrackRows(const Page& page) : TidalTrackRows(page, playlistOf(page.path)) {}

TidalTrackRows::TidalTrackRows(const Page& page, const QString& playlist)
    : TidalItemRows(page, {QStringLiteral("trackId")}, trackContextKeys(!playlist.isEmpty()),
                    page.settings.imageSize()),
      m_playlist(playlist.toStdString()),
      m_prePlayPath(page.worker->addPrefix(KeloTidalPrePlayPath()).toEncoded() + QLatin1Char('/')),
      m_names(QString()), m_albumTitle(QString())
{
    m_row.share(Row::Type, KeloRolesType::Audio());
    m_row.share(Row::AudioType, KeloRolesAudioType::MusicTrack());
    m_row.share(Row::ContainerPlayable, false);
    KeloMetaData shared;
    shared.setServiceID(KeloService_Tidal_Id());
    shared.setContentPlayContextPath(page.path);
    KeloRowBlock::Value metaData = KeloRowBlock::hash(shared.toHash());
    metaData.field(KeloMetaData::Artist()).own = 0;
    metaData.field(KeloMetaData::Album()).own = 1;
    metaData.field(KeloMetaData::PrePlayPath()).own = 2;
    KeloResource resource;
    resource.setMimeType(MimeTypes::Audio::unknown());
    KeloMediaData mediaData;
    mediaData.setResources({resource});
    m_mediaData = KeloRowBlock::hash(mediaData.toHash());
    m_mediaData.field(KeloMediaData::MetaData()) = metaData;
}

void TidalTrackRows::make(const KeloJson& track, qint64 number)
{
    static const std::string type = KeloTidalTracks().toStdString();
    const Decimal id(track.value("id"));
    const std::string_view artist = track.value("artist").value("name").toUtf8();
    const KeloJson artists = track.value("artists");
    const KeloJson album = track.value("album");
    QVariant names;
    if (m_row.wants(Row::Description) || m_row.wants(Row::MediaData)) {
        joinNames(m_scratch, artists);
        names = m_names.value(m_scratch.empty() ? artist : m_scratch, toText);
    }
    m_row.make(Row::Path, [&] { return m_path.text({id.view()}); });
    m_row.make(Row::Title, [&] {
        m_scratch = track.value("title").toUtf8();
        m_scratch += " - ";
        m_scratch += artist;
        return toText(m_scratch);
    });
    m_row.make(Row::Id, [&] { return id.toString(); });
    m_row.make(Row::Disabled, [&] { return isForbidden(track); });
    m_row.make(Row::Description, [&] { return names; });
    m_row.make(Row::Icon, [&] { return imageUrl(album.value("cover")); });
    m_row.makeHash(Row::MediaData, m_mediaData, [&] {
        const QString path = m_prePlayPath % QLatin1String(id.view().data(), int(id.view().size()));
        return std::array<QVariant, 3>{
            names, m_albumTitle.value(album.value("title").toUtf8(), toText), path};
    });
    if (m_row.wants(Row::Context)) {
        joinPairs(m_scratch, artists);
        // Edits name an item of a playlist by its place there, which the service says beside it: in
        // another order the row is not the place.
        const KeloJson place = m_playlist.empty() ? KeloJson() : track.value("index");
        const Decimal shown(place.toInt64(number));
        // Where no playlist is listed there is no key for the last value.
        makeContext({id.view(), type, shown.view(), m_scratch, m_playlist});
    }
}

TidalPlaylistRows::TidalPlaylistRows(const Page& page, bool isChooser)
    : TidalItemRows(page,
                    isChooser
                        ? QStringList{QStringLiteral("playlistId")}
                        : QStringList{QStringLiteral("playlistId"), QStringLiteral("contentId")},
                    contextKeys(), page.settings.imageSizePlaylist())
{
    m_row.share(Row::Type, isChooser ? KeloRolesType::Action() : KeloRolesType::Container());
    m_row.share(Row::ContainerPlayable, !isChooser);
    m_row.share(Row::MediaData, KeloMediaData().toVariant());
}

void TidalPlaylistRows::make(const KeloJson& playlist, qint64 number)
{
    static const std::string type = KeloTidalPlaylists().toStdString();
    const std::string_view uuid = playlist.value("uuid").toUtf8();
    m_row.make(Row::Path, [&] { return m_path.text({uuid, uuid}); });
    m_row.make(Row::Title, [&] { return playlist.value("title").toString(); });
    m_row.make(Row::Id, [&] { return toText(uuid); });
    m_row.make(Row::Icon, [&] { return imageUrl(playlist.value("image")); });
    m_row.make(Row::Description, [&] {
        joinNames(m_scratch, playlist.value("promotedArtists"));
        return toText(m_scratch);
    });
    makeContext({uuid, type, Decimal(number).view()});
}
