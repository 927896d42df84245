#include "WebApi.h"

namespace kelosim {

HttpResponse WebApi::artists(const Call& call)
{
    constexpr PageRule rule{10, 1000};
    const std::string& idText = call.segment(1);
    const std::string& part = call.segment(2);
    const auto index = m_catalogue.artistIndex(call.id());
    if (call.segments.size() > 3)
        return notFound("Resource");
    // Odd but true of the service: the albums of an unknown artist are an empty list.
    if (!index)
        return part == "albums" && call.id() >= 0 ? albumList(call, rule, {})
                                                  : notFound("Artist [" + idText + "]");
    if (part.empty())
        return answer(
            [&](JsonWriter& json) { call.items.artist(json, m_catalogue.artist(*index)); });
    if (part == "toptracks")
        return trackList(call, rule, m_catalogue.topTracks(*index));
    if (part == "albums")
        return artistAlbums(call, *index);
    if (part == "bio")
        return artistBio(call, *index);
    if (part == "playlistscreatedby")
        return playlistList(call, rule, m_library.playlists("ARTIST", call.id()));
    if (part == "similar") {
        const std::vector<int> similar = m_catalogue.similar(*index);
        return similar.empty() ? notFound("Similar artists for artist [" + idText + "]")
                               : artistList(call, {10, 100}, similar, true);
    }
    if (part == "radio") {
        const std::vector<int> radio = m_catalogue.radio(*index);
        return radio.empty()
                   ? apiError(404, 2001,
                              "Artist radio cannot be generated for artist [" + idText + "]")
                   : trackList(call, {10, 100}, radio);
    }
    return notFound("Resource");
}

HttpResponse WebApi::artistAlbums(const Call& call, int artist)
{
    const std::string filter = call.request.queryValue("filter");
    std::vector<std::string> types = {"ALBUM"};
    if (filter == "EPSANDSINGLES")
        types = {"EP", "SINGLE"};
    if (filter == "ALL")
        types = {"ALBUM", "EP", "SINGLE", "COMPILATION"};
    return albumList(call, {10, 1000},
                     filter == "COMPILATIONS" ? m_catalogue.appearances(artist)
                                              : m_catalogue.albumsOf(artist, types));
}

HttpResponse WebApi::artistBio(const Call& call, int artist)
{
    if (!m_catalogue.hasBio(artist))
        return notFound("Bio of artist [" + call.segment(1) + "]");
    JsonWriter json;
    json.beginObject().field("source", "ExampleBios");
    json.field("lastUpdated", "2021-11-08T19:46:34.127+0000");
    json.field("text", m_catalogue.bio(artist)).field("summary", "").endObject();
    return HttpResponse::json(200, json.take());
}

} // namespace kelosim
