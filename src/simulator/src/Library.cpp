#include "Library.h"

#include "Names.h"
#include "Text.h"

#include <algorithm>
#include <set>

namespace kelosim {

namespace {

constexpr std::int64_t filledAt = 1714673469231; // dates of what was there before anybody edited
constexpr std::int64_t day = 86400000;
constexpr int editorialCount = 220;

// Quotes and weak marks of a tag do not count.
std::string bareTag(const std::string& tag)
{
    std::string out;
    for (const char c : tag) {
        if (c >= '0' && c <= '9')
            out += c;
    }
    return out;
}

} // namespace

std::string Playlist::tag() const
{
    return "\"" + std::to_string(updated) + "\"";
}

Library::Library(const Catalogue& catalogue) : m_catalogue(catalogue)
{
    fill();
}

void Library::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_playlists.clear();
    m_order.clear();
    m_favorites.clear();
    m_uuidCount = 0;
    fill();
}

std::string Library::makeUuid()
{
    const std::uint64_t high = mix(m_catalogue.seed(), 4711, ++m_uuidCount);
    const std::uint64_t low = mix(high);
    return hex(high, 8) + "-" + hex(high >> 32, 4) + "-4" + hex(high >> 48, 3) + "-8" +
           hex(low, 3) + "-" + hex(low >> 16, 12);
}

Playlist& Library::add(Playlist playlist, const std::vector<std::int64_t>& ids)
{
    playlist.uuid = makeUuid();
    playlist.number = m_uuidCount;
    for (const std::int64_t id : ids)
        playlist.items.push_back({id, playlist.updated - 1000, makeUuid()});
    m_order.push_back(playlist.uuid);
    return m_playlists.emplace(playlist.uuid, std::move(playlist)).first->second;
}

void Library::fill()
{
    const std::uint64_t seed = m_catalogue.seed();
    const auto someTracks = [&](std::uint64_t salt, std::uint64_t count) {
        std::vector<std::int64_t> ids;
        for (std::uint64_t i = 0; i < count; ++i) {
            const auto total = static_cast<std::uint64_t>(m_catalogue.trackCount());
            ids.push_back(Catalogue::trackId(static_cast<int>(mix(seed, salt, i) % total)));
        }
        return ids;
    };
    for (std::uint64_t i = 0; i < editorialCount; ++i) {
        const std::uint64_t hash = mix(seed, 501, i);
        Playlist list;
        list.title = i == 7 ? longTitle(hash, 500) : playlistTitle(hash);
        if (hash % 10 != 0)
            list.description = i == 11 ? longTitle(hash, 5000) : sentence(hash);
        list.type = i % 10 == 9 ? "ARTIST" : "EDITORIAL";
        if (list.type == "ARTIST") {
            const Artist artist = m_catalogue.artist(1 + static_cast<int>(i / 10));
            list.creator = artist.id;
            list.creatorName = artist.name;
            list.title = "Picked by " + artist.name;
        }
        list.isPublic = true;
        list.noImages = hash % 15 == 0;
        list.popularity = static_cast<int>(hash % 90);
        list.created = filledAt - static_cast<std::int64_t>(hash % 900 + 30) * day;
        list.updated = filledAt - static_cast<std::int64_t>(hash % 29) * day;
        std::vector<std::int64_t> ids = someTracks(hash, 20 + hash % 80);
        if (i % 20 == 3) // videos stand unmarked among the tracks
            ids.insert(ids.begin() + 5, Catalogue::videoId(static_cast<int>(i % 60)));
        add(std::move(list), ids);
    }
    struct Own
    {
        const char* title;
        const char* description;
        std::uint64_t tracks;
    };
    const Own own[] = {{"Morning commute", "Quiet things & \"louder\" things", 34},
                       {"Empty one", nullptr, 0},
                       {"Kjøkkenfest 🎉", "", 120},
                       {"Films only", "Nothing but videos", 0},
                       {"Sunday / slow", "", 12},
                       {"All of it", "A long one", 400},
                       {"للصباح", "", 9}};
    std::int64_t age = 0;
    for (const Own& one : own) {
        Playlist list;
        list.title = one.title;
        if (one.description)
            list.description = one.description;
        list.type = "USER";
        list.creator = userId;
        list.isPublic = age % 2 == 1;
        list.noImages = one.tracks == 0;
        list.created = filledAt - (400 + age) * day;
        list.updated = filledAt - age * day;
        std::vector<std::int64_t> ids =
            someTracks(900 + static_cast<std::uint64_t>(age), one.tracks);
        if (ids.size() > 10)
            ids[9] = ids[2]; // the same track twice
        for (int i = 0; i < 6 && list.title == "Films only"; ++i)
            ids.push_back(Catalogue::videoId(i));
        if (!ids.empty())
            list.itemAdded = list.updated;
        add(std::move(list), ids);
        ++age;
    }
    fillFavorites();
}

void Library::fillFavorites()
{
    const std::uint64_t seed = m_catalogue.seed();
    const auto fillKind = [&](FavoriteKind kind, int count, int total, auto idOf) {
        std::set<std::string> seen;
        auto& list = m_favorites[kind];
        for (std::uint64_t i = 0; static_cast<int>(list.size()) < count; ++i) {
            const std::uint64_t hash = mix(seed, 600 + static_cast<std::uint64_t>(kind), i);
            const std::string id = idOf(static_cast<int>(hash % static_cast<std::uint64_t>(total)));
            const auto age = static_cast<std::int64_t>(hash / 4096 % 1000) * day;
            if (seen.insert(id).second)
                list.push_back({id, filledAt - age - static_cast<std::int64_t>(i)});
        }
    };
    fillKind(FavoriteKind::Albums, 64, m_catalogue.albumCount(),
             [&](int i) { return std::to_string(Catalogue::albumId(i)); });
    fillKind(FavoriteKind::Artists, 23, m_catalogue.artistCount() - 1,
             [&](int i) { return std::to_string(Catalogue::artistId(i + 1)); });
    fillKind(FavoriteKind::Tracks, 132, m_catalogue.trackCount(),
             [&](int i) { return std::to_string(Catalogue::trackId(i)); });
    fillKind(FavoriteKind::Playlists, 9, editorialCount,
             [&](int i) { return m_order[static_cast<std::size_t>(i)]; });
}

std::optional<Playlist> Library::playlist(const std::string& uuid) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_playlists.find(uuid);
    return it == m_playlists.end() ? std::nullopt : std::optional<Playlist>(it->second);
}

std::vector<Playlist> Library::select(const std::string& type, std::int64_t creator) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Playlist> result;
    for (const std::string& uuid : m_order) {
        const Playlist& one = m_playlists.at(uuid);
        if ((type.empty() || one.type == type) && (creator == 0 || one.creator == creator))
            result.push_back(one);
    }
    return result;
}

std::vector<Playlist> Library::userPlaylists() const
{
    std::vector<Playlist> result = select("USER", userId);
    std::stable_sort(result.begin(), result.end(),
                     [](const Playlist& a, const Playlist& b) { return a.updated > b.updated; });
    return result;
}

std::vector<Playlist> Library::editorialPlaylists() const
{
    return select("EDITORIAL", 0);
}

std::vector<Playlist> Library::artistPlaylists(std::int64_t artistId) const
{
    return select("ARTIST", artistId);
}

std::vector<Playlist> Library::allPlaylists() const
{
    return select({}, 0);
}

std::vector<Favorite> Library::favorites(FavoriteKind kind) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_favorites.find(kind);
    std::vector<Favorite> result = it == m_favorites.end() ? std::vector<Favorite>() : it->second;
    // A playlist that was deleted is simply gone from the favourites.
    result.erase(std::remove_if(result.begin(), result.end(),
                                [&](const Favorite& one) {
                                    return kind == FavoriteKind::Playlists &&
                                           m_playlists.count(one.id) == 0;
                                }),
                 result.end());
    return result;
}

void Library::touch(Playlist& playlist, bool itemAdded)
{
    playlist.updated = std::max(nowMs(), playlist.updated + 1); // strictly growing
    if (itemAdded)
        playlist.itemAdded = playlist.updated;
}

Library::Edit Library::checkEdit(const std::string& uuid, const std::string* tag,
                                 Playlist** playlist)
{
    const auto it = m_playlists.find(uuid);
    if (it == m_playlists.end())
        return Edit::NotFound;
    *playlist = &it->second;
    if (!tag || bareTag(*tag) != std::to_string(it->second.updated))
        return Edit::WrongTag;
    return it->second.creator == userId ? Edit::Done : Edit::NotOwner;
}

Playlist Library::create(const std::string& title, const std::string& description)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Playlist list;
    list.title = title;
    list.description = description;
    list.type = "USER";
    list.creator = userId;
    list.noImages = true;
    list.created = list.updated = nowMs();
    return add(std::move(list), {});
}

Library::Edit Library::rename(const std::string& uuid, const std::string* title,
                              const std::string* description)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_playlists.find(uuid);
    if (it == m_playlists.end())
        return Edit::NotFound;
    if (it->second.creator != userId)
        return Edit::NotOwner;
    if (title)
        it->second.title = *title;
    if (description)
        it->second.description = *description;
    touch(it->second, false);
    return Edit::Done;
}

Library::Edit Library::remove(const std::string& uuid, const std::string* tag)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Playlist* playlist = nullptr;
    const auto it = m_playlists.find(uuid);
    const std::string current = it == m_playlists.end() ? "" : it->second.tag();
    // A delete without a tag is accepted, one with a stale tag is not.
    const Edit result = checkEdit(uuid, tag ? tag : &current, &playlist);
    if (result != Edit::Done)
        return result;
    m_playlists.erase(uuid);
    m_order.erase(std::find(m_order.begin(), m_order.end(), uuid));
    return Edit::Done;
}

Library::Edit Library::addItems(const std::string& uuid, const std::string* tag,
                                const std::vector<std::int64_t>& ids, std::int64_t at,
                                Playlist* after, std::vector<std::int64_t>* added, bool skipPresent)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Playlist* playlist = nullptr;
    const Edit result = checkEdit(uuid, tag, &playlist);
    if (result != Edit::Done)
        return result;
    auto& items = playlist->items;
    touch(*playlist, true);
    auto position = at < 0 || at > static_cast<std::int64_t>(items.size())
                        ? items.size()
                        : static_cast<std::size_t>(at);
    for (const std::int64_t id : ids) {
        const auto present = [&](const PlaylistItem& item) { return item.id == id; };
        if (skipPresent && std::any_of(items.begin(), items.end(), present))
            continue;
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(position++),
                     {id, playlist->updated, makeUuid()});
        added->push_back(id);
    }
    *after = *playlist;
    return Edit::Done;
}

Library::Edit Library::removeItems(const std::string& uuid, const std::string* tag,
                                   const std::vector<std::int64_t>& positions, Playlist* after)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Playlist* playlist = nullptr;
    const Edit result = checkEdit(uuid, tag, &playlist);
    if (result != Edit::Done)
        return result;
    auto& items = playlist->items;
    const std::set<std::int64_t> gone(positions.begin(), positions.end());
    if (gone.empty() || *gone.begin() < 0 ||
        *gone.rbegin() >= static_cast<std::int64_t>(items.size()))
        return Edit::BadIndex;
    for (auto it = gone.rbegin(); it != gone.rend(); ++it)
        items.erase(items.begin() + *it);
    touch(*playlist, false);
    *after = *playlist;
    return Edit::Done;
}

Library::Edit Library::moveItems(const std::string& uuid, const std::string* tag,
                                 const std::vector<std::int64_t>& positions, std::int64_t to,
                                 Playlist* after)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Playlist* playlist = nullptr;
    const Edit result = checkEdit(uuid, tag, &playlist);
    if (result != Edit::Done)
        return result;
    auto& items = playlist->items;
    const auto size = static_cast<std::int64_t>(items.size());
    const std::set<std::int64_t> moved(positions.begin(), positions.end());
    if (moved.empty() || *moved.begin() < 0 || *moved.rbegin() >= size)
        return Edit::BadIndex;
    std::vector<PlaylistItem> taken;
    std::vector<PlaylistItem> rest;
    for (std::int64_t i = 0; i < size; ++i)
        (moved.count(i) ? taken : rest).push_back(items[static_cast<std::size_t>(i)]);
    // The target is the position that the first moved item has afterwards.
    const auto limit = static_cast<std::int64_t>(rest.size());
    const std::int64_t position = to < 0 || to > limit ? limit : to;
    rest.insert(rest.begin() + position, taken.begin(), taken.end());
    items = std::move(rest);
    touch(*playlist, false);
    *after = *playlist;
    return Edit::Done;
}

void Library::addFavorite(FavoriteKind kind, const std::string& id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    auto& list = m_favorites[kind];
    for (const Favorite& one : list) {
        if (one.id == id)
            return;
    }
    // Ahead of the others: the unordered list is in no order of time, but a new entry is on its
    // first page, where clients look for it.
    list.insert(list.begin(), {id, nowMs()});
}

void Library::removeFavorite(FavoriteKind kind, const std::string& id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    auto& list = m_favorites[kind];
    list.erase(
        std::remove_if(list.begin(), list.end(), [&](const Favorite& one) { return one.id == id; }),
        list.end());
}

} // namespace kelosim
