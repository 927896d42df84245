#include "Library.h"

#include "Names.h"
#include "Text.h"

#include <algorithm>

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

bool areInside(const Library::Positions& positions, const std::vector<PlaylistItem>& items)
{
    return !positions.empty() && *positions.begin() >= 0 &&
           *positions.rbegin() < std::int64_t(items.size());
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

std::vector<std::int64_t> Library::someTracks(std::uint64_t salt, std::uint64_t count) const
{
    std::vector<std::int64_t> ids;
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t hash = mix(m_catalogue.seed(), salt, i);
        ids.push_back(Catalogue::trackId(int(hash % m_catalogue.trackCount())));
    }
    return ids;
}

void Library::fill()
{
    for (std::uint64_t i = 0; i < editorialCount; ++i) {
        const std::uint64_t hash = mix(m_catalogue.seed(), 501, i);
        Playlist list;
        list.title = i == 7 ? longTitle(hash, 500) : playlistTitle(hash);
        if (hash % 10 != 0)
            list.description = i == 11 ? longTitle(hash, 5000) : sentence(hash);
        list.type = i % 10 == 9 ? "ARTIST" : "EDITORIAL";
        if (list.type == "ARTIST") {
            const Artist artist = m_catalogue.artist(1 + int(i / 10));
            list.creator = artist.id;
            list.creatorName = artist.name;
            list.title = "Picked by " + artist.name;
        }
        list.isPublic = true;
        list.noImages = hash % 15 == 0;
        list.popularity = int(hash % 90);
        list.created = filledAt - std::int64_t(hash % 900 + 30) * day;
        list.updated = filledAt - std::int64_t(hash % 29) * day;
        std::vector<std::int64_t> ids = someTracks(hash, 20 + hash % 80);
        if (i % 20 == 3) // videos stand unmarked among the tracks
            ids.insert(ids.begin() + 5, Catalogue::videoId(int(i % 60)));
        add(std::move(list), ids);
    }
    fillOwn();
    fillFavorites();
}

void Library::fillOwn()
{
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
        std::vector<std::int64_t> ids = someTracks(900 + age, one.tracks);
        if (ids.size() > 10)
            ids[9] = ids[2]; // the same track twice
        for (int i = 0; i < 6 && list.title == "Films only"; ++i)
            ids.push_back(Catalogue::videoId(i));
        if (!ids.empty())
            list.itemAdded = list.updated;
        add(std::move(list), ids);
        ++age;
    }
}

void Library::fillFavorites()
{
    const auto fillKind = [&](FavoriteKind kind, int count, int total, auto idOf) {
        std::set<std::string> seen;
        auto& list = m_favorites[kind];
        for (std::uint64_t i = 0; int(list.size()) < count; ++i) {
            const std::uint64_t hash = mix(m_catalogue.seed(), 600 + int(kind), i);
            const std::string id = idOf(int(hash % total));
            const auto age = std::int64_t(hash / 4096 % 1000) * day;
            if (seen.insert(id).second)
                list.push_back({id, filledAt - age - std::int64_t(i)});
        }
    };
    fillKind(FavoriteKind::Albums, 64, m_catalogue.albumCount(),
             [&](int i) { return std::to_string(Catalogue::albumId(i)); });
    fillKind(FavoriteKind::Artists, 23, m_catalogue.artistCount() - 1,
             [&](int i) { return std::to_string(Catalogue::artistId(i + 1)); });
    fillKind(FavoriteKind::Tracks, 132, m_catalogue.trackCount(),
             [&](int i) { return std::to_string(Catalogue::trackId(i)); });
    fillKind(FavoriteKind::Playlists, 9, editorialCount, [&](int i) { return m_order[i]; });
}

std::optional<Playlist> Library::playlist(const std::string& uuid) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_playlists.find(uuid);
    return it == m_playlists.end() ? std::nullopt : std::optional<Playlist>(it->second);
}

std::vector<Playlist> Library::playlists(const std::string& type, std::int64_t creator) const
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
    std::vector<Playlist> result = playlists("USER", userId);
    std::stable_sort(result.begin(), result.end(),
                     [](const Playlist& a, const Playlist& b) { return a.updated > b.updated; });
    return result;
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

Library::Edit Library::edit(const std::string& uuid, const std::string* tag, bool needsTag,
                            Playlist* after, const std::function<Edit(Playlist&)>& change)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_playlists.find(uuid);
    if (it == m_playlists.end())
        return Edit::NotFound;
    Playlist& playlist = it->second;
    if (tag ? bareTag(*tag) != std::to_string(playlist.updated) : needsTag)
        return Edit::WrongTag;
    if (playlist.creator != userId)
        return Edit::NotOwner;
    const std::int64_t before = playlist.updated;
    playlist.updated = std::max(nowMs(), before + 1); // strictly growing
    const Edit result = change(playlist);
    if (result != Edit::Done)
        playlist.updated = before;
    *after = playlist;
    return result;
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
                              const std::string* description, Playlist* after)
{
    return edit(uuid, nullptr, false, after, [&](Playlist& playlist) {
        if (title)
            playlist.title = *title;
        if (description)
            playlist.description = *description;
        return Edit::Done;
    });
}

Library::Edit Library::remove(const std::string& uuid, const std::string* tag)
{
    Playlist last;
    const Edit result = edit(uuid, tag, false, &last, [](const Playlist&) { return Edit::Done; });
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (result == Edit::Done && m_playlists.erase(uuid) != 0)
        m_order.erase(std::find(m_order.begin(), m_order.end(), uuid));
    return result;
}

Library::Edit Library::addItems(const std::string& uuid, const std::string* tag,
                                const std::vector<std::int64_t>& ids, std::int64_t at,
                                Playlist* after, std::vector<std::int64_t>* added, bool skipPresent)
{
    return edit(uuid, tag, true, after, [&](Playlist& playlist) {
        auto& items = playlist.items;
        playlist.itemAdded = playlist.updated;
        std::int64_t position = at < 0 || at > std::int64_t(items.size()) ? items.size() : at;
        for (const std::int64_t id : ids) {
            const auto present = [&](const PlaylistItem& item) { return item.id == id; };
            if (skipPresent && std::any_of(items.begin(), items.end(), present))
                continue;
            items.insert(items.begin() + position++, {id, playlist.updated, makeUuid()});
            added->push_back(id);
        }
        return Edit::Done;
    });
}

Library::Edit Library::removeItems(const std::string& uuid, const std::string* tag,
                                   const Positions& positions, Playlist* after)
{
    return edit(uuid, tag, true, after, [&](Playlist& playlist) {
        if (!areInside(positions, playlist.items))
            return Edit::BadIndex;
        for (auto it = positions.rbegin(); it != positions.rend(); ++it)
            playlist.items.erase(playlist.items.begin() + *it);
        return Edit::Done;
    });
}

Library::Edit Library::moveItems(const std::string& uuid, const std::string* tag,
                                 const Positions& positions, std::int64_t to, Playlist* after)
{
    return edit(uuid, tag, true, after, [&](Playlist& playlist) {
        if (!areInside(positions, playlist.items))
            return Edit::BadIndex;
        std::vector<PlaylistItem> taken;
        std::vector<PlaylistItem> rest;
        for (std::size_t i = 0; i < playlist.items.size(); ++i)
            (positions.count(i) ? taken : rest).push_back(playlist.items[i]);
        // The target is the position that the first moved item has afterwards.
        const std::int64_t limit = rest.size();
        rest.insert(rest.begin() + (to < 0 || to > limit ? limit : to), taken.begin(), taken.end());
        playlist.items = std::move(rest);
        return Edit::Done;
    });
}

void Library::addFavorite(FavoriteKind kind, const std::string& id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    auto& list = m_favorites[kind];
    if (std::any_of(list.begin(), list.end(), [&](const Favorite& one) { return one.id == id; }))
        return;
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
