#pragma once

#include "Catalogue.h"
#include "Json.h"
#include "Library.h"

namespace kelosim {

// Writes items in the shapes of the service. A value made per request; knows the catalogue and how
// long tracks last in this answer, nothing of requests.
class ItemJson
{
public:
    // `trackSeconds` 0: the lengths of the catalogue.
    ItemJson(const Catalogue& catalogue, int trackSeconds)
        : m_catalogue(catalogue), m_trackSeconds(trackSeconds)
    {
    }

    void album(JsonWriter& json, const Album& album) const;
    // `inPlaylist` adds the keys that only a playlist's entries have.
    void track(JsonWriter& json, const Track& track, const PlaylistItem* inPlaylist = nullptr,
               std::size_t position = 0) const;
    void video(JsonWriter& json, int index, const PlaylistItem* inPlaylist = nullptr,
               std::size_t position = 0) const;
    void artist(JsonWriter& json, const Artist& artist, bool similar = false) const;
    void playlist(JsonWriter& json, const Playlist& playlist) const;
    void root(JsonWriter& json, const Root& root) const;

    int trackSeconds(const Track& track) const;

private:
    JsonWriter& cover(JsonWriter& json, const Album& album) const;
    void flags(JsonWriter& json, bool streamable) const;
    void quality(JsonWriter& json, bool streamable, bool hiRes) const;
    void miniArtist(JsonWriter& json, int index, const char* type) const;
    void miniArtists(JsonWriter& json, const std::vector<int>& indexes, bool featured) const;
    void playlistKeys(JsonWriter& json, const PlaylistItem& item, std::size_t position) const;
    int itemSeconds(std::int64_t id) const;

    const Catalogue& m_catalogue;
    int m_trackSeconds;
};

} // namespace kelosim
