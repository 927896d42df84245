#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace kelosim {

enum class PictureKind { Album, Artist, PlaylistWide, PlaylistSquare, Genre, Mood, Video };

// How an album names its main artist.
enum class ArtistField { Present, Missing, Null };

struct Artist
{
    int index = 0;
    std::int64_t id = 0;
    std::string name;
    std::string picture; // empty: null
    int genre = 0;
    int popularity = 0;
};

struct Album
{
    std::int64_t id = 0;
    std::string title;
    std::optional<std::string> version;
    std::string type;                     // ALBUM, EP, SINGLE, COMPILATION
    std::optional<std::int64_t> released; // epoch ms
    bool releaseMissing = false;          // no releaseDate key at all
    std::string cover;                    // empty: null
    ArtistField artistField = ArtistField::Present;
    std::vector<int> artists; // indexes in credit order, at least one
    int firstTrack = 0;       // index of its first track
    int trackCount = 0;
    int volumes = 1;
    int duration = 0;
    int popularity = 0;
    bool streamable = true;
    bool isExplicit = false;
    bool hiRes = false;
    bool extraKeys = false; // carries keys that no client knows
};

struct Track
{
    std::int64_t id = 0;
    std::string title;
    std::optional<std::string> version;
    int album = 0; // index
    std::vector<int> artists;
    int number = 1;
    int volume = 1;
    int duration = 0;
    int popularity = 0;
    bool streamable = true;
    bool isExplicit = false;
};

// An entry of /genres, /moods, /featured, ...
struct Root
{
    std::string name;
    std::string path;
    bool playlists = false;
    bool albums = false;
    bool tracks = false;
    std::string image = {};    // empty: null
    bool imageMissing = false; // no image key at all
};

// The music: a pure function of the seed. Only a skeleton of small numbers is kept, every item is
// made when it is asked for. Immutable after construction but for lists that are made on first use
// behind a lock; every member may be called from any thread.
class Catalogue
{
public:
    explicit Catalogue(std::uint64_t seed);

    int artistCount() const { return int(m_artistAlbums.size()) - 1; }
    int albumCount() const { return int(m_albums.size()); }
    int trackCount() const { return m_trackCount; }
    static constexpr int videoCount = 60;

    Artist artist(int index) const;
    Album album(int index) const;
    Track track(int index) const;

    std::optional<int> artistIndex(std::int64_t id) const
    {
        return indexBelow(artistCount(), id - artistId(0));
    }
    std::optional<int> albumIndex(std::int64_t id) const
    {
        return indexBelow(albumCount(), id - albumId(0));
    }
    std::optional<int> trackIndex(std::int64_t id) const
    {
        return indexBelow(m_trackCount, id - trackId(0));
    }
    static std::optional<int> videoIndex(std::int64_t id)
    {
        return indexBelow(videoCount, id - videoId(0));
    }
    static std::int64_t artistId(int index) { return 900100 + index; }
    static std::int64_t albumId(int index) { return 500000 + index; }
    static std::int64_t trackId(int index) { return 6000000 + index; }
    static std::int64_t videoId(int index) { return 70000000 + index; }
    int albumOfTrack(int track) const;

    // Album indexes of an artist's own albums of these types, newest first.
    std::vector<int> albumsOf(int artist, const std::vector<std::string>& types) const;
    // Albums of others that hold tracks of the artist.
    std::vector<int> appearances(int artist) const;
    std::vector<int> topTracks(int artist) const;
    std::vector<int> similar(int artist) const;
    std::vector<int> radio(int artist) const;
    bool hasBio(int artist) const;
    std::string bio(int artist) const;

    // The roots of "genres", "moods", "featured", "rising", "discovery", "master".
    const std::vector<Root>& roots(const std::string& group) const;
    // Items of a sub-list, as album or track indexes.
    std::vector<int> albumsIn(const std::string& group, const std::string& path) const;
    std::vector<int> tracksIn(const std::string& group, const std::string& path) const;

    // Whether the item can be had in that country; everything can in the home country.
    bool isAvailable(int album, const std::string& country) const;

    // The picture's id, and the kind and hue (0..359) of an id; nothing for an unknown id.
    std::string pictureId(PictureKind kind, std::uint64_t number) const;
    struct Picture
    {
        PictureKind kind;
        int hue;
        std::uint64_t pattern;
    };
    std::optional<Picture> picture(const std::string& id) const;

    std::uint64_t seed() const { return m_seed; }
    static constexpr const char* homeCountry = "NO";

private:
    struct AlbumBase
    {
        int artist = 0;
        int firstTrack = 0;
        std::uint8_t tracks = 0;
        std::uint8_t kind = 0; // 0 ALBUM, 1 EP, 2 SINGLE, 3 COMPILATION
        std::int64_t released = 0;
    };

    static std::optional<int> indexBelow(int count, std::int64_t index)
    {
        return index >= 0 && index < count ? std::optional<int>(int(index)) : std::nullopt;
    }
    std::uint64_t of(int what, std::uint64_t number, std::uint64_t detail = 0) const;
    int trackDuration(int track) const;
    int guest(int number, int place) const; // an artist who takes part in an album or track
    void makeRoots();
    std::vector<int> sample(int count, std::uint64_t salt, int size) const;
    std::vector<int> newestAlbums(int count) const;
    int genreOf(const std::string& path) const;

    std::uint64_t m_seed;
    std::vector<AlbumBase> m_albums;
    std::vector<int> m_artistAlbums; // first album index per artist, and the end
    int m_trackCount = 0;
    std::map<std::string, std::vector<Root>> m_roots; // by group
    mutable std::once_flag m_appearancesMade;
    mutable std::vector<std::vector<int>> m_appearances;
};

} // namespace kelosim
