#include "Catalogue.h"

#include "Text.h"

#include <algorithm>
#include <numeric>

namespace kelosim {

namespace {

const std::vector<std::string> rootGroups = {"genres", "moods",     "featured",
                                             "rising", "discovery", "master"};

struct GenreRow
{
    const char* name;
    const char* path; // case-sensitive and unrelated to the name
};

// The last two have no music of their own: one is empty, one shares its path with another.
constexpr GenreRow genreRows[] = {{"Pop", "Pop"},
                                  {"Rock / Indie", "Rock"},
                                  {"R&B / Soul", "Funk"},
                                  {"Hip-Hop", "Hip-Hop"},
                                  {"Dance & Electronic", "Electronic"},
                                  {"Jazz", "Jazz"},
                                  {"Classical", "Classical"},
                                  {"Folk / Americana", "Americana"},
                                  {"Country", "Country"},
                                  {"Metal", "Metal"},
                                  {"Blues", "Blues"},
                                  {"Reggae / Dancehall", "Reggae"},
                                  {"Latin", "Latin"},
                                  {"Global", "World"},
                                  {"Ambient", "Ambient"},
                                  {"Soundtracks", "Soundtracks"},
                                  {"Visesang & Trad", "Norsk"},
                                  {"Gospel", "Gospel"},
                                  {"Spoken & Field", "spoken_field"},
                                  {"Indie", "Rock"}};
constexpr int emptyGenre = 18;

constexpr std::size_t newAlbums = 124;
constexpr std::size_t topItems = 20;
constexpr std::size_t usualItems = 60;

std::size_t sizeOf(const std::string& group, const std::string& path)
{
    if (path == "top")
        return topItems;
    return group == "featured" && path == "new" ? newAlbums : usualItems;
}

std::uint64_t saltOf(const std::string& group, const std::string& path)
{
    std::uint64_t salt = 0;
    for (const char c : group + "/" + path)
        salt = mix(salt, static_cast<unsigned char>(c));
    return salt;
}

int genreOf(const std::string& path)
{
    for (int i = 0; i < emptyGenre; ++i) {
        if (path == genreRows[i].path)
            return i;
    }
    return -1;
}

} // namespace

void Catalogue::makeRoots()
{
    m_roots.resize(rootGroups.size());
    for (int i = 0; i < static_cast<int>(std::size(genreRows)); ++i) {
        Root root{genreRows[i].name, genreRows[i].path, true, false, true, true, {}, i == 13};
        if (i != emptyGenre)
            root.image = pictureId(PictureKind::Genre, static_cast<std::uint64_t>(i));
        m_roots[0].push_back(root);
    }
    const char* moods[][2] = {{"Relax", "relax"},
                              {"Party", "party"},
                              {"Workout", "workout"},
                              {"Love", "love"},
                              {"Concentration", "concentrate"}};
    for (int i = 0; i < 5; ++i)
        m_roots[1].push_back({moods[i][0], moods[i][1], true, false, false, false,
                              pictureId(PictureKind::Mood, static_cast<std::uint64_t>(i)), false});
    m_roots[2] = {{"Just In", "new", true, false, true, true, {}, false},
                  {"Staff Picks", "recommended", true, false, true, true, {}, true},
                  {"Most Played", "top", true, false, true, true, {}, false},
                  {"Exclusive", "exclusive", true, false, true, true, {}, true},
                  {"Local", "local", true, false, true, true, {}, false}};
    m_roots[3] = {{"New", "new", false, false, true, true, {}, true}};
    m_roots[4] = {{"New", "new", false, false, true, true, {}, true}};
    m_roots[5] = {{"Recommended", "recommended", true, false, true, false, {}, true}};
}

const std::vector<Root>& Catalogue::roots(const std::string& group) const
{
    static const std::vector<Root> none;
    const auto it = std::find(rootGroups.begin(), rootGroups.end(), group);
    return it == rootGroups.end() ? none
                                  : m_roots[static_cast<std::size_t>(it - rootGroups.begin())];
}

// `count` different numbers below `size`, in an order that depends on the salt.
std::vector<int> Catalogue::sample(int count, std::uint64_t salt, int size) const
{
    const std::uint64_t hash = mix(m_seed, salt, 77);
    const auto total = static_cast<std::uint64_t>(size);
    std::uint64_t step = 1 + hash / total % (total - 1);
    while (std::gcd(step, total) != 1)
        ++step;
    std::vector<int> result;
    for (std::uint64_t i = 0; i < static_cast<std::uint64_t>(std::min(count, size)); ++i)
        result.push_back(static_cast<int>((hash + i * step) % total));
    return result;
}

std::vector<int> Catalogue::newestAlbums(int count) const
{
    std::vector<int> all(m_albums.size());
    std::iota(all.begin(), all.end(), 0);
    std::partial_sort(all.begin(), all.begin() + count, all.end(), [this](int a, int b) {
        const AlbumBase& left = m_albums[static_cast<std::size_t>(a)];
        const AlbumBase& right = m_albums[static_cast<std::size_t>(b)];
        return left.released != right.released ? left.released > right.released : a < b;
    });
    all.resize(static_cast<std::size_t>(count));
    return all;
}

std::vector<int> Catalogue::albumsIn(const std::string& group, const std::string& path) const
{
    const int size = static_cast<int>(sizeOf(group, path));
    if (group == "featured" && path == "new")
        return newestAlbums(size);
    if (group != "genres")
        return sample(size, saltOf(group, path), albumCount());
    std::vector<int> result;
    const int genre = genreOf(path);
    for (int artist = 1; genre >= 0 && artist < artistCount(); ++artist) {
        if (this->artist(artist).genre != genre)
            continue;
        for (const int album : albumsOf(artist, {"ALBUM", "EP"}))
            result.push_back(album);
    }
    return result;
}

std::vector<int> Catalogue::tracksIn(const std::string& group, const std::string& path) const
{
    if (group != "genres")
        return sample(static_cast<int>(sizeOf(group, path)), saltOf(group, path + "/tracks"),
                      m_trackCount);
    std::vector<int> result;
    for (const int album : albumsIn(group, path)) {
        const AlbumBase& base = m_albums[static_cast<std::size_t>(album)];
        for (int i = 0; i < 2 && i < base.tracks && result.size() < 100; ++i)
            result.push_back(base.firstTrack + i);
    }
    return result;
}

std::optional<Catalogue::Picture> Catalogue::picture(const std::string& id) const
{
    constexpr std::size_t idLength = 36;
    constexpr std::size_t kindAt = 20;
    if (id.size() != idLength || id.find_first_not_of("0123456789abcdef-") != std::string::npos)
        return std::nullopt;
    const int kind = id[kindAt] - '0';
    const std::string tail = id.substr(24);
    if (kind < 0 || kind > static_cast<int>(PictureKind::Video) ||
        tail.find('-') != std::string::npos)
        return std::nullopt;
    const std::uint64_t number = std::stoull(tail, nullptr, 16);
    const auto pictureKind = static_cast<PictureKind>(kind);
    if (pictureId(pictureKind, number) != id)
        return std::nullopt;
    const std::uint64_t hash = mix(m_seed, number, static_cast<std::uint64_t>(kind), 99);
    return Picture{pictureKind, static_cast<int>(hash % 360), hash / 360};
}

} // namespace kelosim
