#include "WebApi.h"

// Session, subscription, the user's playlists and favourites.
namespace kelosim {

namespace {

// In the order of FavoriteKind: the last segment of the list, and what ids are called in a form.
constexpr struct
{
    const char* name;
    const char* id;
    const char* ids;
} favoriteKinds[] = {{"albums", "albumId", "albumIds"},
                     {"artists", "artistId", "artistIds"},
                     {"tracks", "trackId", "trackIds"},
                     {"playlists", "uuid", "uuids"}};

std::optional<FavoriteKind> favoriteKind(const std::string& name)
{
    for (int i = 0; i < 4; ++i) {
        if (name == favoriteKinds[i].name)
            return FavoriteKind(i);
    }
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
    if (!call.request.isGet())
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
        HttpResponse response = answer([&](JsonWriter& json) { call.items.playlist(json, made); });
        response.status = int(numberKey(fault.value_or(Pairs()), "status", 201));
        response.headers.emplace_back("ETag", made.tag());
        return response;
    }
    if (!call.request.isGet())
        return methodNotAllowed();
    const std::string filter = call.request.queryValue("filter");
    std::vector<Playlist> chosen;
    for (Playlist& playlist : m_library.userPlaylists()) {
        if (filter == "PUBLIC" ? playlist.isPublic : filter != "PRIVATE" || !playlist.isPublic)
            chosen.push_back(std::move(playlist));
    }
    const auto keyOf = [&](const std::string& order, std::size_t i) {
        return order == "NAME" ? SortKey(fold(chosen[i].title), 0)
                               : SortKey("", order == "DATE" ? chosen[i].updated : 0);
    };
    return sortedList(call, {10, 9999}, chosen.size(), keyOf, [&](JsonWriter& json, std::size_t i) {
        call.items.playlist(json, chosen[i]);
    });
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
        return {};
    }
    if (call.request.method == "POST")
        return addFavorites(call, *kind);
    if (!call.request.isGet())
        return methodNotAllowed();
    const std::vector<Favorite> all = m_library.favorites(*kind);
    const auto keyOf = [&](const std::string& order, std::size_t i) {
        return favoriteKey(order, *kind, all[i]);
    };
    return sortedList(call, {10, 10000}, all.size(), keyOf, [&](JsonWriter& json, std::size_t i) {
        writeFavorite(call, json, *kind, all[i]);
    });
}

SortKey WebApi::favoriteKey(const std::string& order, FavoriteKind kind,
                            const Favorite& favorite) const
{
    if (order == "DATE")
        return {"", favorite.created};
    const std::int64_t id = toNumber(favorite.id).value_or(0);
    if (kind == FavoriteKind::Tracks)
        return trackKey(order, m_catalogue.track(*m_catalogue.trackIndex(id)));
    if (kind == FavoriteKind::Albums) {
        const Album album = m_catalogue.album(*m_catalogue.albumIndex(id));
        if (order == "NAME")
            return {fold(album.title), 0};
        if (order == "ARTIST")
            return {foldedName(album.artists.front()), 0};
        return {"", order == "RELEASE_DATE" ? album.released.value_or(0) : 0};
    }
    if (order != "NAME")
        return {};
    if (kind == FavoriteKind::Artists)
        return {foldedName(*m_catalogue.artistIndex(id)), 0};
    return {fold(m_library.playlist(favorite.id).value_or(Playlist()).title), 0};
}

void WebApi::writeFavorite(const Call& call, JsonWriter& json, FavoriteKind kind,
                           const Favorite& favorite)
{
    const std::int64_t id = toNumber(favorite.id).value_or(0);
    const auto playlist =
        kind == FavoriteKind::Playlists ? m_library.playlist(favorite.id) : std::nullopt;
    if (kind == FavoriteKind::Playlists && !playlist) // deleted since the list was read
        return;
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
    const auto& names = favoriteKinds[int(kind)];
    const Pairs form = parsePairs(call.request.body);
    const std::string* value = findValue(form, names.ids);
    if (!value)
        value = findValue(form, names.id);
    if (!value)
        return apiError(400, 1002, std::string(names.id) + " parameter missing");
    const std::vector<std::string> ids = split(*value, ',');
    for (const std::string& id : ids) {
        if (!favoriteExists(kind, id))
            // Misleading, but the service says "Album" whatever is missing, playlists apart.
            return notFound(kind == FavoriteKind::Playlists ? "Playlist" : "Album");
    }
    for (const std::string& id : ids)
        m_library.addFavorite(kind, id);
    HttpResponse response;
    response.headers.emplace_back("ETag", "\"" + std::to_string(nowMs()) + "\"");
    return response;
}

} // namespace kelosim
