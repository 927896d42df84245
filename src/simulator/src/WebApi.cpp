#include "WebApi.h"

#include <algorithm>

namespace kelosim {

namespace {

bool isPlayback(const std::string& segment)
{
    return startsWith(segment, "playbackinfo");
}

} // namespace

HttpResponse apiError(int status, int subStatus, const std::string& message)
{
    JsonWriter json;
    json.beginObject().field("status", status);
    if (subStatus != 0)
        json.field("subStatus", subStatus);
    return HttpResponse::json(status, json.field("userMessage", message).endObject().take());
}

HttpResponse notFound(const std::string& what)
{
    return apiError(404, 2001, what + " not found");
}

HttpResponse methodNotAllowed()
{
    return apiError(405, 0, "Method not allowed");
}

WebApi::WebApi(const Catalogue& catalogue, Library& library, Faults& faults, const OAuth2& oauth2,
               const Audio& audio)
    : m_catalogue(catalogue), m_library(library), m_faults(faults), m_oauth2(oauth2),
      m_audio(audio), m_search(catalogue)
{
}

const std::string& WebApi::Call::segment(std::size_t index) const
{
    static const std::string none;
    return index < segments.size() ? segments[index] : none;
}

HttpResponse WebApi::handle(const HttpRequest& request, const std::string& baseUrl)
{
    const Call call{request,
                    {request.segments.begin() + 1, request.segments.end()},
                    baseUrl,
                    request.queryValue("countryCode"),
                    ItemJson(m_catalogue, m_audio.shortSeconds())};
    if (needsCountry(call) && call.country.empty())
        return apiError(400, 1002, "countryCode parameter missing");
    if (const auto refusal = m_oauth2.check(request))
        return apiError(401, refusal->first, refusal->second);
    return route(call);
}

bool WebApi::needsCountry(const Call& call) const
{
    const std::string& part = call.segment(2);
    if (call.segment(0) == "sessions" || part == "subscription" || isPlayback(part))
        return false;
    const bool isItemPosition = call.segments.size() == 4 && call.segment(0) == "playlists" &&
                                (part == "tracks" || part == "items");
    return call.request.isGet() || !isItemPosition;
}

HttpResponse WebApi::route(const Call& call)
{
    const std::string& first = call.segment(0);
    const bool edits = first == "users" || first == "playlists";
    if (!edits && !call.request.isGet())
        return methodNotAllowed();
    if (first == "sessions" && call.segments.size() == 1)
        return session(call);
    if (first == "users")
        return users(call);
    if (first == "playlists")
        return playlists(call);
    if (first == "albums")
        return albums(call);
    if (first == "artists")
        return artists(call);
    if (first == "tracks")
        return isPlayback(call.segment(2)) ? playbackInfo(call) : tracks(call);
    if (first == "search")
        return search(call);
    if (!m_catalogue.roots(first).empty())
        return roots(call);
    return notFound("Resource");
}

HttpResponse WebApi::list(const Call& call, PageRule rule, std::size_t total, const Emit& emit,
                          const char* source)
{
    std::size_t limit = rule.usual ? rule.usual : total;
    std::size_t offset = 0;
    for (const auto& [name, border] : {std::pair{"limit", &limit}, std::pair{"offset", &offset}}) {
        const std::string* text = findValue(call.request.query, name);
        const auto number = text ? toNumber(*text) : std::int64_t(*border);
        if (!number || *number < 0 || *number > 1000000000)
            return apiError(400, 1002, std::string(name) + " parameter is invalid");
        *border = std::size_t(*number);
    }
    const std::size_t largest = std::max(rule.largest, rule.usual ? 0 : total);
    if (limit > largest)
        return apiError(400, 1001,
                        "Too big page, max page size is [" + std::to_string(largest) + "]");
    const bool hidden = m_faults.use("hidden-items", call.request).has_value();
    JsonWriter json;
    json.beginObject().field("limit", limit).field("offset", offset);
    json.field("totalNumberOfItems", total);
    if (source)
        json.field("source", source);
    json.key("items").beginArray();
    for (std::size_t i = offset; i < std::min(total, offset + limit); ++i) {
        if (!hidden || (i % 7 != 3 && i + 1 != total))
            emit(json, i);
    }
    return HttpResponse::json(200, json.endArray().endObject().take());
}

HttpResponse
WebApi::sortedList(const Call& call, PageRule rule, std::size_t total,
                   const std::function<SortKey(const std::string&, std::size_t)>& keyOf,
                   const Emit& emit)
{
    const std::string order = call.request.queryValue("order");
    const bool descending = call.request.queryValue("orderDirection") == "DESC";
    std::vector<SortKey> keys;
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < total; ++i) {
        keys.push_back(order.empty() ? SortKey() : keyOf(order, i));
        positions.push_back(i);
    }
    std::stable_sort(positions.begin(), positions.end(), [&](std::size_t a, std::size_t b) {
        return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    });
    return list(call, rule, total,
                [&](JsonWriter& json, std::size_t i) { emit(json, positions[i]); });
}

HttpResponse WebApi::albumList(const Call& call, PageRule rule, const std::vector<int>& albums)
{
    return list(call, rule, albums.size(), [&](JsonWriter& json, std::size_t i) {
        if (m_catalogue.isAvailable(albums[i], call.country))
            call.items.album(json, m_catalogue.album(albums[i]));
    });
}

HttpResponse WebApi::trackList(const Call& call, PageRule rule, const std::vector<int>& tracks)
{
    return list(call, rule, tracks.size(), [&](JsonWriter& json, std::size_t i) {
        if (m_catalogue.isAvailable(m_catalogue.albumOfTrack(tracks[i]), call.country))
            call.items.track(json, m_catalogue.track(tracks[i]));
    });
}

HttpResponse WebApi::artistList(const Call& call, PageRule rule, const std::vector<int>& artists,
                                bool similar)
{
    const auto emit = [&](JsonWriter& json, std::size_t i) {
        call.items.artist(json, m_catalogue.artist(artists[i]), similar);
    };
    return list(call, rule, artists.size(), emit, similar ? "TIDAL" : nullptr);
}

HttpResponse WebApi::playlistList(const Call& call, PageRule rule,
                                  const std::vector<Playlist>& lists)
{
    return list(call, rule, lists.size(),
                [&](JsonWriter& json, std::size_t i) { call.items.playlist(json, lists[i]); });
}

std::string WebApi::tracksBody(int count) const
{
    const ItemJson items(m_catalogue, 0);
    JsonWriter json;
    json.beginObject().field("limit", count).field("offset", 0);
    json.field("totalNumberOfItems", count).key("items").beginArray();
    for (int i = 0; i < count; ++i) // every seventh of the catalogue, for variety
        items.track(json, m_catalogue.track((1000 + i * 7) % m_catalogue.trackCount()));
    return json.endArray().endObject().take();
}

SortKey WebApi::trackKey(const std::string& order, const Track& track) const
{
    if (order == "NAME")
        return {fold(track.title), 0};
    if (order == "ARTIST")
        return {foldedName(track.artists.front()), 0};
    if (order == "ALBUM")
        return {fold(m_catalogue.album(track.album).title), track.number};
    return {"", order == "LENGTH" ? track.duration : 0};
}

} // namespace kelosim
