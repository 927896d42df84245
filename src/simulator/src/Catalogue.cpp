#include "Catalogue.h"

#include "Names.h"
#include "Text.h"

#include <algorithm>

namespace kelosim {

namespace {

constexpr int artistTotal = 420; // "Various Artists" is index 0
constexpr std::int64_t day = 86400000;
constexpr std::uint8_t longestAlbum = 80;
constexpr std::int64_t newestRelease = 1767225600000; // 2026-01-01
constexpr const char* types[] = {"ALBUM", "EP", "SINGLE", "COMPILATION"};

// What a hash is drawn for, so that two questions about one item never share their answer.
enum What { WName = 1, WAlbum, WTrack, WPicture, WVariety, WDuration, WList, WCredit, WCountry };

} // namespace

Catalogue::Catalogue(std::uint64_t seed) : m_seed(seed)
{
    for (int artist = 0; artist < artistTotal; ++artist) {
        m_artistAlbums.push_back(albumCount());
        const int albums = artist == 0 ? 60 : 3 + int(of(WAlbum, artist) % 10);
        for (int i = 0; i < albums; ++i) {
            const std::uint64_t hash = of(WAlbum, artist, i + 1);
            AlbumBase base;
            base.artist = artist;
            base.firstTrack = m_trackCount;
            const int form = int(hash % 10); // 6 of 10 are full albums
            base.kind = std::uint8_t(artist == 0 ? 3 : form < 6 ? 0 : form < 8 ? 1 : 2);
            const int sizes[][2] = {{8, 9}, {4, 3}, {1, 2}, {18, 20}}; // smallest, spread
            base.tracks = std::uint8_t(sizes[base.kind][0] + hash / 16 % sizes[base.kind][1]);
            if (artist == artistTotal - 1 && i == albums - 1)
                base.tracks = longestAlbum; // one album is longer than a page
            base.released = newestRelease - std::int64_t(hash / 1024 % 15000) * day;
            m_trackCount += base.tracks;
            m_albums.push_back(base);
        }
    }
    m_artistAlbums.push_back(albumCount());
    makeRoots();
}

std::uint64_t Catalogue::of(int what, std::uint64_t number, std::uint64_t detail) const
{
    return mix(m_seed, what, number, detail);
}

Artist Catalogue::artist(int index) const
{
    Artist artist;
    artist.index = index;
    artist.id = artistId(index);
    artist.name = index == 0 ? "Various Artists" : artistName(of(WName, index));
    artist.genre = int(of(WList, index) % 18);
    artist.popularity = int(of(WVariety, index) % 100);
    if (index != 0 && of(WPicture, index) % 12 != 0)
        artist.picture = pictureId(PictureKind::Artist, index);
    return artist;
}

Album Catalogue::album(int index) const
{
    const AlbumBase& base = m_albums[index];
    const std::uint64_t variety = of(WVariety, index, 1);
    const int odd = int(variety % 100); // the album's one peculiarity
    Album album;
    album.id = albumId(index);
    album.title = odd == 1 ? longTitle(of(WName, index, 1), 500) : albumTitle(of(WName, index, 1));
    if (odd >= 2 && odd < 8)
        album.version = odd == 2 ? "" : odd == 3 ? "Deluxe Edition" : versionText(variety);
    album.type = types[base.kind];
    album.releaseMissing = odd == 8;
    if (odd != 8 && odd != 9)
        album.released = base.released;
    if (odd < 10 || odd > 13)
        album.cover = pictureId(PictureKind::Album, index);
    album.artistField = odd == 14                     ? ArtistField::Null
                        : base.kind == 3 || odd == 15 ? ArtistField::Missing
                                                      : ArtistField::Present;
    album.artists.push_back(base.artist);
    const int more = base.kind == 3 ? 0 : odd == 16 ? 11 : odd >= 20 && odd < 30 ? 1 : 0;
    for (int i = 0; i < more; ++i)
        album.artists.push_back(guest(index, i));
    album.firstTrack = base.firstTrack;
    album.trackCount = base.tracks;
    album.volumes = base.tracks > 15 ? 2 : 1;
    for (int i = 0; i < base.tracks; ++i)
        album.duration += trackDuration(base.firstTrack + i);
    album.streamable = odd != 17;
    album.popularity = album.streamable ? int(variety / 128 % 100) : 0;
    album.isExplicit = variety / 4096 % 10 == 0;
    album.hiRes = variety / 65536 % 5 == 0;
    album.extraKeys = variety / 1048576 % 20 == 0;
    return album;
}

Track Catalogue::track(int index) const
{
    const std::uint64_t variety = of(WVariety, index, 2);
    const int odd = int(variety % 1000);
    Track track;
    track.id = trackId(index);
    track.album = albumOfTrack(index);
    const AlbumBase& base = m_albums[track.album];
    const std::uint64_t name = of(WName, index, 2);
    track.title = odd < 2 ? longTitle(name, 500) : trackTitle(name);
    if (odd >= 20 && odd < 140)
        track.version = odd < 50 ? "" : versionText(name);
    const int position = index - base.firstTrack;
    const bool twoVolumes = base.tracks > 15;
    track.volume = twoVolumes && position >= base.tracks / 2 ? 2 : 1;
    track.number = position + 1 - (track.volume == 2 ? base.tracks / 2 : 0);
    track.artists.push_back(base.kind == 3 ? guest(index, 100) : base.artist);
    const int more = odd < 10 ? 11 : odd >= 200 && odd < 320 ? 1 : 0;
    for (int i = 0; i < more; ++i)
        track.artists.push_back(guest(index, i));
    track.duration = trackDuration(index);
    const bool albumWithdrawn = of(WVariety, track.album, 1) % 100 == 17;
    track.streamable = !albumWithdrawn && !(odd >= 10 && odd < 20);
    track.popularity = int(variety / 1024 % 100);
    track.isExplicit = variety / 131072 % 10 == 0;
    return track;
}

int Catalogue::guest(int number, int place) const
{
    return 1 + int(of(WCredit, number, place) % (artistTotal - 1));
}

int Catalogue::trackDuration(int track) const
{
    return 120 + int(of(WDuration, track) % 180);
}

int Catalogue::albumOfTrack(int track) const
{
    const auto next =
        std::upper_bound(m_albums.begin(), m_albums.end(), track,
                         [](int value, const AlbumBase& base) { return value < base.firstTrack; });
    return int(next - m_albums.begin()) - 1;
}

std::vector<int> Catalogue::albumsOf(int artist, const std::vector<std::string>& wanted) const
{
    std::vector<int> result;
    for (int i = m_artistAlbums[artist]; i < m_artistAlbums[artist + 1]; ++i) {
        const char* type = types[m_albums[i].kind];
        if (std::find(wanted.begin(), wanted.end(), type) != wanted.end())
            result.push_back(i);
    }
    std::sort(result.begin(), result.end(),
              [this](int a, int b) { return m_albums[a].released > m_albums[b].released; });
    return result;
}

std::vector<int> Catalogue::appearances(int artist) const
{
    std::call_once(m_appearancesMade, [this] {
        m_appearances.resize(artistCount());
        for (int album = 0; album < m_artistAlbums[1]; ++album) { // those of "Various Artists"
            const AlbumBase& base = m_albums[album];
            for (int i = base.firstTrack; i < base.firstTrack + base.tracks; ++i) {
                auto& list = m_appearances[track(i).artists.front()];
                if (list.empty() || list.back() != album)
                    list.push_back(album);
            }
        }
    });
    return m_appearances[artist];
}

std::vector<int> Catalogue::topTracks(int artist) const
{
    std::vector<std::pair<int, int>> ranked;
    for (const int index : albumsOf(artist, {"ALBUM", "EP", "SINGLE"})) {
        const AlbumBase& base = m_albums[index];
        for (int i = base.firstTrack; i < base.firstTrack + base.tracks; ++i)
            ranked.emplace_back(-track(i).popularity, i);
    }
    std::sort(ranked.begin(), ranked.end());
    std::vector<int> result;
    for (std::size_t i = 0; i < ranked.size() && i < 60; ++i)
        result.push_back(ranked[i].second);
    return result;
}

std::vector<int> Catalogue::similar(int artist) const
{
    std::vector<int> result;
    const std::uint64_t hash = of(WList, artist, 1);
    if (artist == 0 || hash % 10 == 0)
        return result;
    const int genre = this->artist(artist).genre;
    for (int other = 1; other < artistCount() && result.size() < 15; ++other) {
        if (other != artist && int(of(WList, other) % 18) == genre)
            result.push_back(other);
    }
    return result;
}

std::vector<int> Catalogue::radio(int artist) const
{
    std::vector<int> result;
    if (artist == 0)
        return result;
    std::vector<int> pool = similar(artist);
    pool.insert(pool.begin(), artist);
    std::vector<std::vector<int>> tops;
    for (const int one : pool)
        tops.push_back(topTracks(one));
    for (std::size_t round = 0; round < 60 && result.size() < 100; ++round) {
        for (const auto& top : tops) {
            if (round < top.size() && result.size() < 100)
                result.push_back(top[round]);
        }
    }
    return result;
}

bool Catalogue::hasBio(int artist) const
{
    return artist != 0 && of(WList, artist, 2) % 6 != 0;
}

std::string Catalogue::bio(int artist) const
{
    const std::uint64_t hash = of(WList, artist, 3);
    const auto link = [](const char* kind, std::int64_t id, const std::string& text) {
        return std::string("[wimpLink ") + kind + "Id=\"" + std::to_string(id) + "\"]" + text +
               "[/wimpLink]";
    };
    const Artist self = this->artist(artist);
    std::string text = link("artist", self.id, self.name) + " formed in an invented town in " +
                       std::to_string(1965 + hash % 55) + ".<br/><br/>";
    for (const int index : albumsOf(artist, {"ALBUM"})) {
        const Album one = album(index);
        text += "Their record " + link("album", one.id, one.title) + " came out on " +
                dateOnly(m_albums[index].released) + ". " + sentence(of(WName, one.firstTrack, 9)) +
                "<br/>";
    }
    for (const int other : similar(artist)) {
        const Artist friendly = this->artist(other);
        text += "They like " + link("artist", friendly.id, friendly.name) +
                " [live, in one room] & \"others\". ";
    }
    const std::size_t size = hash % 25 == 0 ? 30 * 1024 : 600;
    for (std::uint64_t i = 0; text.size() < size; ++i)
        text += sentence(mix(hash, i)) + (i % 5 == 4 ? "<br/><br/>" : " ");
    return text;
}

bool Catalogue::isAvailable(int album, const std::string& country) const
{
    if (country == homeCountry)
        return true;
    std::uint64_t number = 0;
    for (const char c : country)
        number = number * 256 + static_cast<unsigned char>(c);
    return of(WCountry, album, number) % 25 != 0;
}

std::string Catalogue::pictureId(PictureKind kind, std::uint64_t number) const
{
    const std::uint64_t hash = of(WPicture, number, int(kind) + 1);
    // Kind and number stand in the id, so that a picture is found without a table.
    return hex(hash, 8) + "-" + hex(hash >> 32, 4) + "-4" + hex(hash >> 48, 3) + "-9" +
           hex(int(kind), 1) + hex(hash >> 16, 2) + "-" + hex(number, 12);
}

} // namespace kelosim
