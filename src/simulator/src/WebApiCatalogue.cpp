#include "WebApi.h"

// Content roots with their lists, albums, single tracks, search.
namespace kelosim {

HttpResponse WebApi::roots(const Call& call)
{
    const std::string& group = call.segment(0);
    const std::vector<Root>& all = m_catalogue.roots(group);
    if (call.segments.size() == 1)
        return answer([&](JsonWriter& json) {
            json.beginArray();
            for (const Root& root : all)
                call.items.root(json, root);
            json.endArray();
        });
    for (const Root& root : all) {
        if (root.path != call.segment(1))
            continue;
        if (call.segments.size() > 2)
            return subList(call, root);
        return answer([&](JsonWriter& json) { call.items.root(json, root); });
    }
    return notFound(upperAscii(group) + " [" + call.segment(1) + "]");
}

HttpResponse WebApi::subList(const Call& call, const Root& root)
{
    constexpr PageRule rule{10, 100};
    const std::string& group = call.segment(0);
    const std::string& kind = call.segment(2);
    if (call.segments.size() > 3)
        return notFound("Resource");
    if (kind == "albums" && root.albums)
        return albumList(call, rule, m_catalogue.albumsIn(group, root.path));
    if (kind == "tracks" && root.tracks)
        return trackList(call, rule, m_catalogue.tracksIn(group, root.path));
    if (kind != "playlists" || !root.playlists)
        return notFound("Resource");
    const std::vector<Playlist> all = m_library.playlists("EDITORIAL");
    std::vector<Playlist> chosen;
    const std::uint64_t salt = mixText(group + root.path);
    const std::size_t count = root.path == "top" ? 20 : root.path == "spoken_field" ? 0 : 60;
    for (std::size_t i = 0; i < count; ++i) // 7 is no divisor of the number of playlists
        chosen.push_back(all[(salt + i * 7) % all.size()]);
    return playlistList(call, rule, chosen);
}

HttpResponse WebApi::albums(const Call& call)
{
    const auto index = m_catalogue.albumIndex(call.id());
    if (!index || !m_catalogue.isAvailable(*index, call.country))
        return notFound("Album [" + call.segment(1) + "]");
    const Album album = m_catalogue.album(*index);
    if (call.segments.size() == 2)
        return answer([&](JsonWriter& json) { call.items.album(json, album); });
    const bool wrapped = call.segment(2) == "items";
    if (call.segments.size() != 3 || (!wrapped && call.segment(2) != "tracks"))
        return notFound("Resource");
    const PageRule rule = wrapped ? PageRule{10, 100} : PageRule{0, 1000};
    return list(call, rule, album.trackCount, [&](JsonWriter& json, std::size_t i) {
        if (wrapped)
            json.beginObject().key("item");
        call.items.track(json, m_catalogue.track(album.firstTrack + int(i)));
        if (wrapped)
            json.field("type", "track").field("cut", nullptr).endObject();
    });
}

HttpResponse WebApi::tracks(const Call& call)
{
    const auto index = m_catalogue.trackIndex(call.id());
    if (!index)
        return notFound("Track [" + call.segment(1) + "]");
    const Track track = m_catalogue.track(*index);
    if (call.segments.size() == 2)
        return answer([&](JsonWriter& json) { call.items.track(json, track); });
    if (call.segments.size() == 3 && call.segment(2) == "radio")
        return trackList(call, {10, 100}, m_catalogue.radio(track.artists.front()));
    return notFound("Resource");
}

HttpResponse WebApi::search(const Call& call)
{
    constexpr PageRule rule{10, 1000};
    const std::string text = call.request.queryValue("query");
    const std::string& kind = call.segment(1);
    if (call.segments.size() != 2)
        return notFound("Resource");
    if (kind == "artists")
        return artistList(call, rule, m_search.find(SearchIndex::Artists, text));
    if (kind == "albums")
        return albumList(call, rule, m_search.find(SearchIndex::Albums, text));
    if (kind == "tracks")
        return trackList(call, rule, m_search.find(SearchIndex::Tracks, text));
    if (kind != "playlists")
        return notFound("Resource");
    std::vector<Playlist> found;
    for (Playlist& playlist : m_library.playlists()) {
        const std::string all = fold(playlist.title + "\n" + playlist.description.value_or(""));
        if ((playlist.isPublic || playlist.creator == Library::userId) &&
            SearchIndex::holds(all, text))
            found.push_back(std::move(playlist));
    }
    return playlistList(call, rule, found);
}

} // namespace kelosim
