#include "ItemJson.h"

#include "Names.h"
#include "Text.h"

namespace kelosim {

namespace {

constexpr const char* siteUrl = "http://www.tidal.com/";
constexpr int videoSeconds = 255;

std::string copyrightOf(std::int64_t released)
{
    return "(P) " + dateOnly(released).substr(0, 4) + " Invented Recordings";
}

std::string url(const char* kind, const std::string& id)
{
    return siteUrl + (kind + ("/" + id));
}

} // namespace

int ItemJson::trackSeconds(const Track& track) const
{
    return m_trackSeconds > 0 ? m_trackSeconds : track.duration;
}

int ItemJson::itemSeconds(std::int64_t id) const
{
    const auto index = m_catalogue.trackIndex(id);
    return index ? trackSeconds(m_catalogue.track(*index)) : videoSeconds;
}

void ItemJson::miniArtist(JsonWriter& json, int index, const char* type) const
{
    const Artist artist = m_catalogue.artist(index);
    json.beginObject().field("id", artist.id).field("name", artist.name).field("handle", nullptr);
    json.field("type", type).textOrNull("picture", artist.picture).endObject();
}

void ItemJson::miniArtists(JsonWriter& json, const std::vector<int>& indexes, bool featured) const
{
    json.key("artists").beginArray();
    for (std::size_t i = 0; i < indexes.size(); ++i)
        miniArtist(json, indexes[i], featured && i > 0 ? "FEATURED" : "MAIN");
    json.endArray();
}

JsonWriter& ItemJson::cover(JsonWriter& json, const Album& album) const
{
    json.textOrNull("cover", album.cover);
    json.textOrNull("vibrantColor", album.cover.empty() ? "" : "#" + album.cover.substr(0, 6));
    return json.field("videoCover", nullptr);
}

void ItemJson::flags(JsonWriter& json, bool streamable) const
{
    json.field("streamReady", streamable).field("payToStream", false);
    json.field("adSupportedStreamReady", true).field("djReady", true).field("stemReady", false);
}

void ItemJson::quality(JsonWriter& json, bool streamable, bool hiRes) const
{
    json.field("audioQuality", streamable ? "LOSSLESS" : "LOW").key("audioModes").beginArray();
    if (streamable)
        json.value("STEREO");
    json.endArray().key("mediaMetadata").beginObject().key("tags").beginArray();
    if (streamable)
        json.value("LOSSLESS");
    if (streamable && hiRes)
        json.value("HIRES_LOSSLESS");
    json.endArray().endObject();
}

void ItemJson::album(JsonWriter& json, const Album& album) const
{
    const std::string id = std::to_string(album.id);
    const std::int64_t released = album.released.value_or(0);
    const bool dated = album.streamable && album.released;
    json.beginObject().field("id", album.id).field("title", album.title);
    json.field("duration", m_trackSeconds > 0 ? m_trackSeconds * album.trackCount : album.duration);
    flags(json, album.streamable);
    json.key("streamStartDate");
    dated ? json.value(dateTime(released)) : json.value(nullptr);
    json.field("allowStreaming", album.streamable).field("premiumStreamingOnly", false);
    json.field("numberOfTracks", album.trackCount).field("numberOfVideos", 0);
    json.field("numberOfVolumes", album.volumes);
    if (!album.releaseMissing)
        json.textOrNull("releaseDate", album.released ? dateOnly(released) : std::string());
    json.textOrNull("copyright", dated ? copyrightOf(released) : std::string());
    json.field("type", album.type).field("version", album.version).field("url", url("album", id));
    cover(json, album).field("explicit", album.isExplicit);
    json.textOrNull("upc", album.cover.empty() ? "" : "000000" + id);
    json.field("popularity", album.popularity);
    quality(json, album.streamable, album.hiRes);
    json.field("upload", false);
    if (album.extraKeys) {
        json.key("usageRules").beginObject().key("offline").beginObject();
        json.field("allowed", true).field("regions", nullptr).endObject().endObject();
    }
    if (album.artistField == ArtistField::Null)
        json.field("artist", nullptr);
    if (album.artistField == ArtistField::Present)
        miniArtist(json.key("artist"), album.artists.front(), "MAIN");
    miniArtists(json, album.artists, false);
    json.endObject();
}

void ItemJson::track(JsonWriter& json, const Track& track, const PlaylistItem* inPlaylist,
                     std::size_t position) const
{
    const Album album = m_catalogue.album(track.album);
    const std::string id = std::to_string(track.id);
    const std::int64_t released = album.released.value_or(0);
    const std::uint64_t hash = mix(m_catalogue.seed(), track.id);
    const bool ok = track.streamable; // what was withdrawn has thinned fields
    json.beginObject().field("id", track.id).field("title", track.title);
    json.field("duration", trackSeconds(track));
    json.field("replayGain", ok ? -double(hash % 1200) / 100.0 : 0.0);
    if (ok)
        json.field("peak", 0.9 + double(hash / 4096 % 99999) / 1000000.0);
    json.field("allowStreaming", ok);
    flags(json, ok);
    json.textOrNull("streamStartDate", ok ? dateTime(released) : "");
    json.field("premiumStreamingOnly", false).field("trackNumber", track.number);
    json.field("volumeNumber", track.volume).field("version", track.version);
    json.field("popularity", track.popularity);
    json.textOrNull("copyright", ok ? copyrightOf(released) : "");
    const bool measured = hash / 65536 % 8 != 0;
    static const char* const keys[] = {"A", "C", "D", "E", "FSharp", "G"};
    json.key("bpm");
    measured ? json.value(70 + hash / 1048576 % 90) : json.value(nullptr);
    json.textOrNull("key", measured ? keys[hash / 16777216 % 6] : "");
    json.textOrNull("keyScale", measured ? (hash % 2 ? "MAJOR" : "MINOR") : "");
    json.textOrNull("url", ok ? url("track", id) : "");
    json.textOrNull("isrc", hash % 9 == 0 ? "" : "ZZINV" + id);
    json.field("editable", false).field("explicit", track.isExplicit);
    quality(json, ok, album.hiRes);
    json.field("upload", false).field("accessType", "PUBLIC").field("spotlighted", false);
    miniArtist(json.key("artist"), track.artists.front(), "MAIN");
    miniArtists(json, track.artists, true);
    json.key("album").beginObject().field("id", album.id).field("title", album.title);
    cover(json, album).endObject();
    json.key("mixes");
    ok ? json.beginObject().field("TRACK_MIX", "001" + hex(hash, 13) + hex(~hash, 14)).endObject()
       : json.value(nullptr);
    if (inPlaylist)
        playlistKeys(json.field("description", nullptr), *inPlaylist, position);
    json.endObject();
}

void ItemJson::playlistKeys(JsonWriter& json, const PlaylistItem& item, std::size_t position) const
{
    json.field("dateAdded", dateTime(item.added)).field("index", position);
    json.field("itemUuid", item.uuid);
}

void ItemJson::video(JsonWriter& json, int index, const PlaylistItem* inPlaylist,
                     std::size_t position) const
{
    const std::uint64_t hash = mix(m_catalogue.seed(), 71, index);
    const int artist = 1 + int(hash % 100);
    const std::string date = dateTime(1554076800000 + std::int64_t(index) * 86400000);
    json.beginObject().field("id", Catalogue::videoId(index));
    json.field("title", trackTitle(hash) + " (Official Film)");
    json.field("volumeNumber", 0).field("trackNumber", 0).field("releaseDate", date);
    json.field("imagePath", nullptr);
    json.field("imageId", m_catalogue.pictureId(PictureKind::Video, index));
    json.field("duration", videoSeconds).field("quality", "MP4_1080P").field("streamReady", true);
    json.field("streamStartDate", date).field("allowStreaming", true).field("explicit", false);
    json.field("popularity", 9).field("type", "Music Video").field("adsUrl", nullptr);
    json.field("adsPrePaywallOnly", true);
    miniArtist(json.key("artist"), artist, "MAIN");
    miniArtists(json, {artist}, false);
    json.field("album", nullptr);
    if (inPlaylist)
        playlistKeys(json, *inPlaylist, position);
    json.endObject();
}

void ItemJson::artist(JsonWriter& json, const Artist& artist, bool similar) const
{
    json.beginObject().field("id", artist.id).field("name", artist.name);
    if (similar)
        json.field("type", nullptr).field("relationType", "SIMILAR_ARTIST");
    json.key("artistTypes").beginArray().value("ARTIST").value("CONTRIBUTOR").endArray();
    json.field("url", url("artist", std::to_string(artist.id)));
    json.textOrNull("picture", artist.picture).field("selectedAlbumCoverFallback", nullptr);
    if (artist.index % 11 != 5)
        json.field("popularity", artist.popularity);
    json.key("artistRoles").beginArray().beginObject();
    json.field("categoryId", -1).field("category", "Artist").endObject().endArray();
    json.key("mixes");
    if (artist.index % 9 == 0)
        json.value(nullptr);
    else if (artist.index % 9 == 1)
        json.beginObject().endObject();
    else
        json.beginObject().field("ARTIST_MIX", "000" + hex(mix(artist.id), 13)).endObject();
    json.field("handle", nullptr).field("userId", nullptr).field("spotlighted", false).endObject();
}

void ItemJson::playlist(JsonWriter& json, const Playlist& playlist) const
{
    int videos = 0;
    int seconds = 0;
    for (const PlaylistItem& item : playlist.items) {
        videos += m_catalogue.videoIndex(item.id) ? 1 : 0;
        seconds += itemSeconds(item.id);
    }
    const auto picture = [&](PictureKind kind) {
        return playlist.noImages ? "" : m_catalogue.pictureId(kind, playlist.number);
    };
    json.beginObject().field("uuid", playlist.uuid).field("title", playlist.title);
    json.field("numberOfTracks", int(playlist.items.size()) - videos);
    json.field("numberOfVideos", videos).key("creator").beginObject();
    json.field("id", playlist.creator);
    if (!playlist.creatorName.empty())
        json.field("name", playlist.creatorName).field("type", nullptr);
    json.endObject().field("description", playlist.description).field("duration", seconds);
    json.field("lastUpdated", dateTime(playlist.updated));
    json.field("created", dateTime(playlist.created)).field("type", playlist.type);
    json.field("publicPlaylist", playlist.isPublic).field("url", url("playlist", playlist.uuid));
    json.textOrNull("image", picture(PictureKind::PlaylistWide));
    json.field("popularity", playlist.popularity);
    json.textOrNull("squareImage", picture(PictureKind::PlaylistSquare));
    json.field("customImageUrl", nullptr).key("promotedArtists").beginArray();
    if (playlist.type == "EDITORIAL" && !playlist.items.empty()) {
        if (const auto index = m_catalogue.trackIndex(playlist.items.front().id))
            miniArtist(json, m_catalogue.track(*index).artists.front(), "MAIN");
    }
    json.endArray().key("lastItemAddedAt");
    playlist.itemAdded ? json.value(dateTime(*playlist.itemAdded)) : json.value(nullptr);
    json.endObject();
}

void ItemJson::root(JsonWriter& json, const Root& root) const
{
    json.beginObject().field("name", root.name).field("path", root.path);
    json.field("hasPlaylists", root.playlists).field("hasArtists", false);
    json.field("hasAlbums", root.albums).field("hasTracks", root.tracks);
    json.field("hasVideos", false);
    if (!root.imageMissing)
        json.textOrNull("image", root.image);
    json.endObject();
}

} // namespace kelosim
