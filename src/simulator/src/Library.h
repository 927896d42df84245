#pragma once

#include "Catalogue.h"

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kelosim {

struct PlaylistItem
{
    std::int64_t id = 0; // a track's or a video's
    std::int64_t added = 0;
    std::string uuid;
};

struct Playlist
{
    std::string uuid;
    std::string title;
    std::optional<std::string> description;
    std::string type;         // USER, EDITORIAL, ARTIST
    std::int64_t creator = 0; // user or artist id, 0 for editorial ones
    std::string creatorName;  // artists only
    bool isPublic = false;
    bool noImages = false;
    std::uint64_t number = 0; // of its pictures
    std::int64_t created = 0;
    std::int64_t updated = 0; // also the tag
    std::optional<std::int64_t> itemAdded;
    int popularity = 0;
    std::vector<PlaylistItem> items;

    std::string tag() const; // with its quotes
};

// A favourite: the id as text (a number or a playlist's uuid) and when it was added.
struct Favorite
{
    std::string id;
    std::int64_t created = 0;
};

enum class FavoriteKind { Albums, Artists, Tracks, Playlists };

// Everything that edits change: playlists and the one user's favourites. Owned by SimServer; every
// member locks for itself and hands out copies, so that connection threads never share an item.
class Library
{
public:
    static constexpr std::int64_t userId = 770011;

    explicit Library(const Catalogue& catalogue);
    void reset();

    std::optional<Playlist> playlist(const std::string& uuid) const;
    // In the order they were made; "" and 0 stand for every type and creator.
    std::vector<Playlist> playlists(const std::string& type = {}, std::int64_t creator = 0) const;
    std::vector<Playlist> userPlaylists() const; // newest first
    std::vector<Favorite> favorites(FavoriteKind kind) const;

    // Edits. A tag that differs, missing playlists and foreign ones are told apart by the result.
    // `after` is the playlist as the edit left it.
    enum class Edit { Done, NotFound, WrongTag, NotOwner, BadIndex };
    using Positions = std::set<std::int64_t>;

    Playlist create(const std::string& title, const std::string& description);
    Edit rename(const std::string& uuid, const std::string* title, const std::string* description,
                Playlist* after);
    Edit remove(const std::string& uuid, const std::string* tag);
    // Puts the ids in front of position `at`; a negative or too large one appends.
    Edit addItems(const std::string& uuid, const std::string* tag,
                  const std::vector<std::int64_t>& ids, std::int64_t at, Playlist* after,
                  std::vector<std::int64_t>* added, bool skipPresent);
    Edit removeItems(const std::string& uuid, const std::string* tag, const Positions& positions,
                     Playlist* after);
    // Moves the items, in their order in the list, so that the first one ends at position `to`.
    Edit moveItems(const std::string& uuid, const std::string* tag, const Positions& positions,
                   std::int64_t to, Playlist* after);
    void addFavorite(FavoriteKind kind, const std::string& id);
    void removeFavorite(FavoriteKind kind, const std::string& id);

private:
    void fill(); // m_mutex is held, or nobody else knows this object yet
    void fillOwn();
    void fillFavorites();
    std::vector<std::int64_t> someTracks(std::uint64_t salt, std::uint64_t count) const;
    Playlist& add(Playlist playlist, const std::vector<std::int64_t>& ids);
    // Finds and checks the playlist, whose tag must be given where `needsTag` says so, runs
    // `change` on it, and stamps and copies it when that is done.
    Edit edit(const std::string& uuid, const std::string* tag, bool needsTag, Playlist* after,
              const std::function<Edit(Playlist&)>& change);
    std::string makeUuid();

    const Catalogue& m_catalogue;
    mutable std::mutex m_mutex;
    std::map<std::string, Playlist> m_playlists;
    std::vector<std::string> m_order; // uuids in the order of making
    std::map<FavoriteKind, std::vector<Favorite>> m_favorites;
    std::uint64_t m_uuidCount = 0;
};

} // namespace kelosim
