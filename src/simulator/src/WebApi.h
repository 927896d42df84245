#pragma once

#include "Audio.h"
#include "Catalogue.h"
#include "Faults.h"
#include "ItemJson.h"
#include "Library.h"
#include "OAuth2.h"
#include "SearchIndex.h"

#include <deque>
#include <functional>

namespace kelosim {

// Text and number that a list is ordered by.
using SortKey = std::pair<std::string, std::int64_t>;

// The web API below /v1, without OAuth2. Owned by SimServer; handle() is called from every
// connection thread at once. Checks in the service's order: country code, token, resource, tag.
// Keeps no state but the search index and the playback rate; edits live in Library.
class WebApi
{
public:
    WebApi(const Catalogue& catalogue, Library& library, Faults& faults, const OAuth2& oauth2,
           const Audio& audio);

    // `baseUrl` is where the client can fetch audio.
    HttpResponse handle(const HttpRequest& request, const std::string& baseUrl);
    // A body of an album's track list with so many different tracks.
    std::string tracksBody(int count) const;

private:
    // One request on its way through a route.
    struct Call
    {
        const HttpRequest& request;
        std::vector<std::string> segments; // below /v1
        std::string baseUrl;
        std::string country;
        ItemJson items;
        // The segment's text, "" behind the last one.
        const std::string& segment(std::size_t index) const;
        // The second segment as a number, -1 when it is none.
        std::int64_t id() const { return toNumber(segment(1)).value_or(-1); }
    };

    // Default and largest page of a list; default 0 means all items.
    struct PageRule
    {
        std::size_t usual;
        std::size_t largest;
    };
    // Writes the item at a position, or nothing for one that is left out of the page.
    using Emit = std::function<void(JsonWriter&, std::size_t)>;

    HttpResponse route(const Call& call);
    bool needsCountry(const Call& call) const;
    HttpResponse list(const Call& call, PageRule rule, std::size_t total, const Emit& emit,
                      const char* source = nullptr);
    // Sorted by what order and orderDirection of the request say. `keyOf` gives the key of the item
    // at a position for an order, the same for all of an order that the list does not know.
    HttpResponse sortedList(const Call& call, PageRule rule, std::size_t total,
                            const std::function<SortKey(const std::string&, std::size_t)>& keyOf,
                            const Emit& emit);
    HttpResponse albumList(const Call& call, PageRule rule, const std::vector<int>& albums);
    HttpResponse trackList(const Call& call, PageRule rule, const std::vector<int>& tracks);
    HttpResponse artistList(const Call& call, PageRule rule, const std::vector<int>& artists,
                            bool similar = false);
    HttpResponse playlistList(const Call& call, PageRule rule, const std::vector<Playlist>& lists);

    // By what the lists of tracks are ordered.
    SortKey trackKey(const std::string& order, const Track& track) const;
    std::string foldedName(int artist) const { return fold(m_catalogue.artist(artist).name); }

    // WebApiCatalogue.cpp
    HttpResponse roots(const Call& call);
    HttpResponse subList(const Call& call, const Root& root);
    HttpResponse albums(const Call& call);
    HttpResponse tracks(const Call& call);
    HttpResponse search(const Call& call);
    // WebApiArtists.cpp
    HttpResponse artists(const Call& call);
    HttpResponse artistAlbums(const Call& call, int artist);
    HttpResponse artistBio(const Call& call, int artist);
    // WebApiUser.cpp
    HttpResponse session(const Call& call);
    HttpResponse subscription(const Call& call);
    HttpResponse users(const Call& call);
    HttpResponse userPlaylists(const Call& call);
    HttpResponse favorites(const Call& call);
    HttpResponse addFavorites(const Call& call, FavoriteKind kind);
    bool favoriteExists(FavoriteKind kind, const std::string& id) const;
    void writeFavorite(const Call& call, JsonWriter& json, FavoriteKind kind,
                       const Favorite& favorite);
    SortKey favoriteKey(const std::string& order, FavoriteKind kind,
                        const Favorite& favorite) const;
    // WebApiPlaylists.cpp
    HttpResponse playlists(const Call& call);
    HttpResponse playlistItems(const Call& call, const Playlist& playlist);
    HttpResponse playlistEdit(const Call& call, const Playlist& playlist);
    HttpResponse addItems(const Call& call, const std::string& uuid, const std::string* tag);
    HttpResponse changeItems(const Call& call, const std::string& uuid, const std::string* tag);
    HttpResponse editAnswer(const Call& call, Library::Edit edit, const Playlist& after);
    // WebApiPlayback.cpp
    HttpResponse playbackInfo(const Call& call);
    std::optional<HttpResponse> playbackLimit(const Call& call);
    std::string manifest(const Call& call, int track, const std::string& granted, bool preview,
                         std::string* mimeType);

    const Catalogue& m_catalogue;
    Library& m_library;
    Faults& m_faults;
    const OAuth2& m_oauth2;
    const Audio& m_audio;
    SearchIndex m_search;
    std::mutex m_playbackMutex;
    std::deque<std::int64_t> m_playbackCalls; // times of the last calls, epoch ms
    std::int64_t m_playbackBlockedUntil = 0;
};

// A JSON answer of what `write` writes.
template <typename Write>
HttpResponse answer(const Write& write)
{
    JsonWriter json;
    write(json);
    return HttpResponse::json(200, json.take());
}
// {"status", "subStatus", "userMessage"}; no subStatus when it is 0.
HttpResponse apiError(int status, int subStatus, const std::string& message);
HttpResponse notFound(const std::string& what); // "Album [1]" gives 404/2001 "Album [1] not found"
HttpResponse methodNotAllowed();

} // namespace kelosim
