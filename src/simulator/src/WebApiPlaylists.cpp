#include "WebApi.h"

#include <set>

// Playlists: reading, and the edits that a tag guards.
namespace kelosim {

namespace {

HttpResponse tagError()
{
    return apiError(412, 7002,
                    "You must send the correct Etag value in the If-None-Match header to modify a "
                    "playlist");
}

} // namespace

HttpResponse WebApi::playlists(const Call& call)
{
    const auto playlist = m_library.playlist(call.segment(1));
    const std::string& part = call.segment(2);
    const bool items = part == "tracks" || part == "items";
    if (!playlist || call.segments.size() > 4 || (!part.empty() && !items))
        return notFound(part.empty() || items ? "Playlist" : "Resource");
    if (!call.request.isGet())
        return playlistEdit(call, *playlist);
    if (call.segments.size() == 4)
        return methodNotAllowed();
    HttpResponse response =
        items ? playlistItems(call, *playlist)
              : answer([&](JsonWriter& json) { call.items.playlist(json, *playlist); });
    if (response.status == 200)
        response.headers.emplace_back("ETag", playlist->tag());
    return response;
}

HttpResponse WebApi::playlistItems(const Call& call, const Playlist& playlist)
{
    const bool wrapped = call.segment(2) == "items";
    const auto keyOf = [&](const std::string& order, std::size_t i) -> SortKey {
        const PlaylistItem& item = playlist.items[i];
        if (order == "INDEX")
            return {"", i};
        if (order == "DATE")
            return {"", item.added};
        const auto index = m_catalogue.trackIndex(item.id);
        return index ? trackKey(order, m_catalogue.track(*index)) : SortKey(); // videos first
    };
    const PageRule rule = wrapped ? PageRule{10, 100} : PageRule{10, 9999};
    const auto emit = [&](JsonWriter& json, std::size_t position) {
        const PlaylistItem& item = playlist.items[position];
        const auto video = m_catalogue.videoIndex(item.id);
        if (wrapped)
            json.beginObject().key("item");
        if (video)
            call.items.video(json, *video, &item, position);
        else
            call.items.track(json, m_catalogue.track(*m_catalogue.trackIndex(item.id)), &item,
                             position);
        if (wrapped)
            json.field("type", video ? "video" : "track").field("cut", nullptr).endObject();
    };
    return sortedList(call, rule, playlist.items.size(), keyOf, emit);
}

HttpResponse WebApi::playlistEdit(const Call& call, const Playlist& playlist)
{
    const HttpRequest& request = call.request;
    const bool post = request.method == "POST";
    const bool remove = request.method == "DELETE";
    const std::string* tag = request.header("If-None-Match");
    if (!post && !remove)
        return methodNotAllowed();
    const bool rename = post && call.segments.size() == 2;
    // A replica that lags refuses even the tag it has just handed out.
    if (!rename && tag && m_faults.use("tag-lag", request))
        return tagError();
    if (call.segments.size() == 4)
        return changeItems(call, playlist.uuid, tag);
    if (call.segments.size() == 3)
        return post ? addItems(call, playlist.uuid, tag) : methodNotAllowed();
    if (remove) {
        const Library::Edit result = m_library.remove(playlist.uuid, tag);
        return result == Library::Edit::Done ? HttpResponse{204}
                                             : editAnswer(call, result, playlist);
    }
    const Pairs form = parsePairs(request.body);
    const std::string* title = findValue(form, "title");
    if (title && title->empty())
        return apiError(400, 1002, "title parameter is invalid");
    Playlist after;
    const Library::Edit result =
        m_library.rename(playlist.uuid, title, findValue(form, "description"), &after);
    HttpResponse response = editAnswer(call, result, after);
    if (result == Library::Edit::Done)
        response.body = response.contentType = "";
    return response;
}

HttpResponse WebApi::addItems(const Call& call, const std::string& uuid, const std::string* tag)
{
    const Pairs form = parsePairs(call.request.body);
    const bool strict = m_faults.use("strict-ids", call.request).has_value();
    const auto toIndex = toNumber(textKey(form, "toIndex", "-1"));
    std::vector<std::int64_t> ids;
    std::set<std::string> seen;
    for (const std::string& text : split(textKey(form, "trackIds"), ',')) {
        if (strict && (text.empty() || !seen.insert(text).second))
            return apiError(400, 1002, "trackIds parameter is invalid");
        if (text.empty())
            continue;
        const auto id = toNumber(text);
        if (!id || (!m_catalogue.trackIndex(*id) && !m_catalogue.videoIndex(*id)))
            return notFound("Track [" + text + "]");
        ids.push_back(*id);
    }
    if (ids.empty() || !toIndex)
        return apiError(
            400, 1002, ids.empty() ? "trackIds parameter missing" : "toIndex parameter is invalid");
    const bool skip = call.segment(2) == "items" && textKey(form, "onDupes") == "SKIP";
    Playlist after;
    std::vector<std::int64_t> added;
    const Library::Edit result = m_library.addItems(uuid, tag, ids, *toIndex, &after, &added, skip);
    if (result != Library::Edit::Done)
        return editAnswer(call, result, after);
    HttpResponse response = answer([&](JsonWriter& json) {
        json.beginObject().field("lastUpdated", after.updated).key("addedItemIds").beginArray();
        for (const std::int64_t id : added)
            json.value(id);
        json.endArray().endObject();
    });
    response.headers.emplace_back("ETag", after.tag());
    return response;
}

HttpResponse WebApi::changeItems(const Call& call, const std::string& uuid, const std::string* tag)
{
    Library::Positions positions;
    for (const std::string& text : split(call.segment(3), ',')) {
        if (const auto position = toNumber(text))
            positions.insert(*position);
        else if (!text.empty())
            return apiError(400, 1002, "index parameter is invalid");
    }
    Playlist after;
    if (call.request.method == "DELETE")
        return editAnswer(call, m_library.removeItems(uuid, tag, positions, &after), after);
    std::string target = textKey(parsePairs(call.request.body), "toIndex");
    if (target.empty())
        target = call.request.queryValue("toIndex");
    const auto toIndex = toNumber(target);
    if (!toIndex)
        return apiError(400, 1002, "toIndex parameter missing");
    return editAnswer(call, m_library.moveItems(uuid, tag, positions, *toIndex, &after), after);
}

HttpResponse WebApi::editAnswer(const Call& call, Library::Edit edit, const Playlist& after)
{
    HttpResponse response;
    switch (edit) {
    case Library::Edit::Done:
        response =
            HttpResponse::json(200, "{\"lastUpdated\":" + std::to_string(after.updated) + "}");
        response.headers.emplace_back("ETag", after.tag());
        return response;
    case Library::Edit::NotFound:
        response = notFound("Playlist");
        break;
    case Library::Edit::WrongTag:
        response = tagError();
        break;
    case Library::Edit::NotOwner:
        response = apiError(403, 4033, "User is not the owner of the playlist");
        break;
    case Library::Edit::BadIndex:
        response = notFound("Playlist item");
        break;
    }
    return m_faults.use("refuse-no-body", call.request) ? HttpResponse{response.status} : response;
}

} // namespace kelosim
