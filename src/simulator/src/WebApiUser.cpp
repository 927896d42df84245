#include "WebApi.h"

// Session, subscription, the user's playlists and favourites.
namespace kelosim {

namespace {

std::optional<FavoriteKind> favoriteKind(const std::string& name)
{
    if (name == "albums")
        return FavoriteKind::Albums;
    if (name == "artists")
        return FavoriteKind::Artists;
    if (name == "tracks")
        return FavoriteKind::Tracks;
    if (name == "playlists")
        return FavoriteKind::Playlists;
    return std::nullopt;
}

} // namespace

HttpResponse WebApi::session(const Call& call)
{
    std::string country = Catalogue::homeCountry;
    if (const auto fault = m_faults.use("session-country", call.request))
        country = textKey(*fault, "country");
    JsonWriter json;
    json.beginObject().field("sessionId", "0f1e2d3c-4b5a-4697-8877-665544332211");
    json.field("userId", Library::userId).field("countryCode", country).field("channelId", 1);
    json.field("partnerId", 1).key("client").beginObject().field("id", 880022);
    json.field("name", "Example Streamer 1").field("authorizedForOffline", false);
    json.field("authorizedForOfflineDate", nullptr).endObject().endObject();
    return HttpResponse::json(200, json.take());
}

HttpResponse WebApi::subscription(const Call& call)
{
    std::string quality = "LOSSLESS";
    if (const auto fault = m_faults.use("subscription", call.request))
        quality = textKey(*fault, "quality");
    const bool isFree = quality == "null";
    JsonWriter json;
    json.beginObject().field("startDate", "2023-01-09T10:20:30.400+0000");
    json.field("validUntil", "2031-01-09T10:20:30.400+0000").field("status", "ACTIVE");
    json.key("subscription").beginObject().field("type", isFree ? "FREE" : "HIFI");
    json.field("offlineGracePeriod", isFree ? 0 : 30).endObject();
    json.textOrNull("highestSoundQuality", isFree ? "" : quality);
    json.field("premiumAccess", !isFree).field("canGetTrial", isFree);
    json.field("paymentType", isFree ? "NONE" : "PARENT").field("paymentOverdue", false);
    return HttpResponse::json(200, json.endObject().take());
}

// The user id in the path is not compared with the token's owner, as in the service.
HttpResponse WebApi::users(const Call& call)
{
    const std::string& part = call.segment(2);
    const bool plain = call.segments.size() == 3;
    if (!toNumber(call.segment(1)))
        return notFound("User [" + call.segment(1) + "]");
    if (part == "favorites")
        return favorites(call);
    if (part == "playlists" && plain)
        return userPlaylists(call);
    if (!call.isGet())
        return methodNotAllowed();
    if (part == "subscription" && plain)
        return subscription(call);
    return notFound("Resource");
}

HttpResponse WebApi::userPlaylists(const Call& call)
{
    if (call.request.method == "POST") {
        const Pairs form = parsePairs(call.request.body);
        if (textKey(form, "title").empty())
            return apiError(400, 1002, "title parameter missing");
        const Playlist made =
            m_library.create(textKey(form, "title"), textKey(form, "description"));
        const auto fault = m_faults.use("create-status", call.request);
        JsonWriter json;
        call.items.playlist(json, made);
        HttpResponse response = HttpResponse::json(
            fault ? static_cast<int>(numberKey(*fault, "status", 201)) : 201, json.take());
        response.headers.emplace_back("ETag", made.tag());
        return response;
    }
    if (!call.isGet())
        return methodNotAllowed();
    const std::string filter = call.request.queryValue("filter");
    std::vector<Playlist> chosen;
    for (Playlist& playlist : m_library.userPlaylists()) {
        if (filter == "PUBLIC" ? playlist.isPublic : filter != "PRIVATE" || !playlist.isPublic)
            chosen.push_back(std::move(playlist));
    }
    std::vector<Playlist> sorted;
    const auto positions =
        sortedPositions(call.request, chosen.size(), [&](const std::string& order, std::size_t i) {
            const Playlist& one = chosen[i];
            return order == "NAME"   ? std::optional<SortKey>({fold(one.title), 0})
                   : order == "DATE" ? std::optional<SortKey>({"", one.updated})
                                     : std::nullopt;
        });
    for (const std::size_t position : positions)
        sorted.push_back(chosen[position]);
    return playlistList(call, {10, 9999}, sorted);
}

HttpResponse WebApi::favorites(const Call& call)
{
    const auto kind = favoriteKind(call.segment(3));
    if (!kind || call.segments.size() > 5)
        return notFound("Resource");
    if (call.segments.size() == 5) {
        if (call.request.method != "DELETE")
            return methodNotAllowed();
        m_library.removeFavorite(*kind, call.segment(4));
        return HttpResponse::empty(200);
    }
    if (call.request.method == "POST")
        return addFavorites(call, *kind);
    if (!call.isGet())
        return methodNotAllowed();
    const std::vector<Favorite> all = m_library.favorites(*kind);
    const auto nameOf = [&](int artist) { return fold(m_catalogue.artist(artist).name); };
    const auto keyOf = [&](const std::string& order, std::size_t i) -> std::optional<SortKey> {
        const Favorite& one = all[i];
        if (order == "DATE")
            return SortKey{"", one.created};
        if (*kind == FavoriteKind::Playlists)
            return order == "NAME"
                       ? std::optional<SortKey>(
                             {fold(m_library.playlist(one.id).value_or(Playlist()).title), 0})
                       : std::nullopt;
        const std::int64_t id = toNumber(one.id).value_or(0);
        if (*kind == FavoriteKind::Artists)
            return order == "NAME"
                       ? std::optional<SortKey>({nameOf(*m_catalogue.artistIndex(id)), 0})
                       : std::nullopt;
        if (*kind == FavoriteKind::Albums) {
            const Album album = m_catalogue.album(*m_catalogue.albumIndex(id));
            if (order == "NAME")
                return SortKey{fold(album.title), 0};
            if (order == "ARTIST")
                return SortKey{nameOf(album.artists.front()), 0};
            return order == "RELEASE_DATE"
                       ? std::optional<SortKey>({"", album.released.value_or(0)})
                       : std::nullopt;
        }
        const Track track = m_catalogue.track(*m_catalogue.trackIndex(id));
        if (order == "NAME")
            return SortKey{fold(track.title), 0};
        if (order == "ARTIST")
            return SortKey{nameOf(track.artists.front()), 0};
        if (order == "ALBUM")
            return SortKey{fold(m_catalogue.album(track.album).title), track.number};
        return order == "LENGTH" ? std::optional<SortKey>({"", track.duration}) : std::nullopt;
    };
    const std::vector<std::size_t> positions = sortedPositions(call.request, all.size(), keyOf);
    return list(call, {10, 10000}, positions.size(), [&](JsonWriter& json, std::size_t i) {
        return writeFavorite(call, json, *kind, all[positions[i]]);
    });
}

bool WebApi::writeFavorite(const Call& call, JsonWriter& json, FavoriteKind kind,
                           const Favorite& favorite)
{
    const std::int64_t id = toNumber(favorite.id).value_or(0);
    const auto playlist =
        kind == FavoriteKind::Playlists ? m_library.playlist(favorite.id) : std::nullopt;
    if (kind == FavoriteKind::Playlists && !playlist) // deleted since the list was read
        return false;
    json.beginObject().field("created", dateTime(favorite.created)).key("item");
    if (kind == FavoriteKind::Playlists)
        call.items.playlist(json, *playlist);
    else if (kind == FavoriteKind::Artists)
        call.items.artist(json, m_catalogue.artist(*m_catalogue.artistIndex(id)));
    else if (kind == FavoriteKind::Albums)
        call.items.album(json, m_catalogue.album(*m_catalogue.albumIndex(id)));
    else
        call.items.track(json, m_catalogue.track(*m_catalogue.trackIndex(id)));
    json.endObject();
    return true;
}

bool WebApi::favoriteExists(FavoriteKind kind, const std::string& id) const
{
    const auto number = toNumber(id);
    switch (kind) {
    case FavoriteKind::Albums:
        return number && m_catalogue.albumIndex(*number);
    case FavoriteKind::Artists:
        return number && m_catalogue.artistIndex(*number);
    case FavoriteKind::Tracks:
        return number && m_catalogue.trackIndex(*number);
    case FavoriteKind::Playlists:
        return m_library.playlist(id).has_value();
    }
    return false;
}

HttpResponse WebApi::addFavorites(const Call& call, FavoriteKind kind)
{
    static const char* const names[][2] = {{"albumId", "albumIds"},
                                           {"artistId", "artistIds"},
                                           {"trackId", "trackIds"},
                                           {"uuid", "uuids"}};
    // Misleading, but the service says "Album" whatever is missing, playlists apart.
    const char* missing = kind == FavoriteKind::Playlists ? "Playlist" : "Album";
    const Pairs form = parsePairs(call.request.body);
    std::vector<std::string> ids;
    for (const char* name : names[static_cast<int>(kind)]) {
        if (const std::string* value = findValue(form, name))
            ids = split(*value, ',');
    }
    if (ids.empty())
        return apiError(400, 1002,
                        std::string(names[static_cast<int>(kind)][0]) + " parameter missing");
    for (const std::string& id : ids) {
        if (!favoriteExists(kind, id))
            return notFound(missing);
    }
    for (const std::string& id : ids)
        m_library.addFavorite(kind, id);
    HttpResponse response = HttpResponse::empty(200);
    response.headers.emplace_back("ETag", "\"" + std::to_string(nowMs()) + "\"");
    return response;
}

} // namespace kelosim
