#include "WebApi.h"

#include <algorithm>
#include <numeric>

namespace kelosim {

namespace {

bool isItemPosition(const std::vector<std::string>& segments)
{
    return segments.size() == 4 && segments[0] == "playlists" &&
           (segments[2] == "tracks" || segments[2] == "items");
}

bool isPlayback(const std::string& segment)
{
    return startsWith(segment, "playbackinfo");
}

// A page's borders out of the query, or the error answer.
struct Page
{
    std::size_t offset = 0;
    std::size_t limit = 0;
};

std::optional<HttpResponse> readPage(const HttpRequest& request, std::size_t usual,
                                     std::size_t largest, Page* page)
{
    page->limit = usual;
    for (const char* name : {"limit", "offset"}) {
        const std::string* text = findValue(request.query, name);
        if (!text)
            continue;
        const auto number = toNumber(*text);
        if (!number || *number < 0 || *number > 1000000000)
            return apiError(400, 1002, std::string(name) + " parameter is invalid");
        (*name == 'l' ? page->limit : page->offset) = static_cast<std::size_t>(*number);
    }
    if (page->limit > largest)
        return apiError(400, 1001,
                        "Too big page, max page size is [" + std::to_string(largest) + "]");
    return std::nullopt;
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
    std::vector<std::string> segments = request.segments();
    segments.erase(segments.begin()); // "v1"
    Call call{request, std::move(segments), baseUrl, request.queryValue("countryCode"),
              ItemJson(m_catalogue, m_audio.shortSeconds())};
    if (auto refusal = checkAccess(call))
        return std::move(*refusal);
    return route(call);
}

bool WebApi::needsCountry(const Call& call) const
{
    if (call.segment(0) == "sessions" || call.segment(2) == "subscription")
        return false;
    return !isPlayback(call.segment(2)) && (call.isGet() || !isItemPosition(call.segments));
}

std::optional<HttpResponse> WebApi::checkAccess(const Call& call) const
{
    if (needsCountry(call) && call.country.empty())
        return apiError(400, 1002, "countryCode parameter missing");
    switch (m_oauth2.check(call.request)) {
    case OAuth2::Check::Missing:
        return apiError(401, 1005, "Missing auth parameter");
    case OAuth2::Check::Garbage:
        return apiError(401, 11002, "Token has invalid payload");
    case OAuth2::Check::Expired:
        return apiError(401, 11003, "The token has expired. (Expired on time)");
    case OAuth2::Check::Valid:
        break;
    }
    return std::nullopt;
}

HttpResponse WebApi::route(Call& call)
{
    const std::string& first = call.segment(0);
    const bool edits = first == "users" || first == "playlists";
    if (!edits && !call.isGet())
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
    Page page;
    if (auto refusal = readPage(call.request, rule.usual ? rule.usual : total,
                                std::max(rule.largest, rule.usual ? 0 : total), &page))
        return std::move(*refusal);
    const bool hidden = m_faults.use("hidden-items", call.request).has_value();
    JsonWriter json;
    json.beginObject().field("limit", page.limit).field("offset", page.offset);
    json.field("totalNumberOfItems", total);
    if (source)
        json.field("source", source);
    json.key("items").beginArray();
    const std::size_t end = page.offset < total ? std::min(total, page.offset + page.limit) : 0;
    for (std::size_t i = page.offset; i < end; ++i) {
        if (!hidden || (i % 7 != 3 && i + 1 != total))
            emit(json, i);
    }
    return HttpResponse::json(200, json.endArray().endObject().take());
}

HttpResponse WebApi::albumList(const Call& call, PageRule rule, const std::vector<int>& albums)
{
    return list(call, rule, albums.size(), [&](JsonWriter& json, std::size_t i) {
        if (!m_catalogue.isAvailable(albums[i], call.country))
            return false;
        call.items.album(json, m_catalogue.album(albums[i]));
        return true;
    });
}

HttpResponse WebApi::trackList(const Call& call, PageRule rule, const std::vector<int>& tracks)
{
    return list(call, rule, tracks.size(), [&](JsonWriter& json, std::size_t i) {
        if (!m_catalogue.isAvailable(m_catalogue.albumOfTrack(tracks[i]), call.country))
            return false;
        call.items.track(json, m_catalogue.track(tracks[i]));
        return true;
    });
}

HttpResponse WebApi::artistList(const Call& call, PageRule rule, const std::vector<int>& artists,
                                bool similar)
{
    const auto emit = [&](JsonWriter& json, std::size_t i) {
        call.items.artist(json, m_catalogue.artist(artists[i]), similar);
        return true;
    };
    return list(call, rule, artists.size(), emit, similar ? "TIDAL" : nullptr);
}

HttpResponse WebApi::playlistList(const Call& call, PageRule rule,
                                  const std::vector<Playlist>& lists)
{
    return list(call, rule, lists.size(), [&](JsonWriter& json, std::size_t i) {
        call.items.playlist(json, lists[i]);
        return true;
    });
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

std::vector<std::size_t> sortedPositions(const HttpRequest& request, std::size_t count,
                                         const SortKeyOf& keyOf)
{
    std::vector<std::size_t> positions(count);
    std::iota(positions.begin(), positions.end(), std::size_t(0));
    const std::string order = request.queryValue("order");
    const bool descending = request.queryValue("orderDirection") == "DESC";
    if (order.empty() || count == 0 || !keyOf(order, 0))
        return positions;
    std::vector<SortKey> keys;
    for (std::size_t i = 0; i < count; ++i)
        keys.push_back(*keyOf(order, i));
    std::stable_sort(positions.begin(), positions.end(), [&](std::size_t a, std::size_t b) {
        const SortKey& left = keys[descending ? b : a];
        const SortKey& right = keys[descending ? a : b];
        return left.text != right.text ? left.text < right.text : left.number < right.number;
    });
    return positions;
}

} // namespace kelosim
