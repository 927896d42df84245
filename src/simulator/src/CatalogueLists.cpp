#include "Catalogue.h"

#include "Text.h"

#include <algorithm>
#include <numeric>

namespace kelosim {

namespace {

// Names and paths; these are case-sensitive and unrelated to the names. The last two have no music
// of their own: one is empty, one shares its path with another.
constexpr const char* genres =
    "Pop=Pop|Rock / Indie=Rock|R&B / Soul=Funk|Hip-Hop=Hip-Hop|Dance & Electronic=Electronic|"
    "Jazz=Jazz|Classical=Classical|Folk / Americana=Americana|Country=Country|Metal=Metal|"
    "Blues=Blues|Reggae / Dancehall=Reggae|Latin=Latin|Global=World|Ambient=Ambient|"
    "Soundtracks=Soundtracks|Visesang & Trad=Norsk|Gospel=Gospel|Spoken & Field=spoken_field|"
    "Indie=Rock";
constexpr int emptyGenre = 18;
constexpr const char* moods =
    "Relax=relax|Party=party|Workout=workout|Love=love|Concentration=concentrate";

int sizeOf(const std::string& group, const std::string& path)
{
    return path == "top" ? 20 : group == "featured" && path == "new" ? 124 : 60;
}

} // namespace

int Catalogue::genreOf(const std::string& path) const
{
    const std::vector<Root>& all = m_roots.at("genres");
    const auto it = std::find_if(all.begin(), all.begin() + emptyGenre,
                                 [&](const Root& root) { return root.path == path; });
    return it == all.begin() + emptyGenre ? -1 : int(it - all.begin());
}

void Catalogue::makeRoots()
{
    const auto make = [](const std::string& line, bool hasMusic) {
        const std::size_t equals = line.find('=');
        return Root{line.substr(0, equals), line.substr(equals + 1), true, hasMusic, hasMusic};
    };
    int i = 0;
    for (const std::string& line : split(genres, '|')) {
        Root root = make(line, true);
        root.imageMissing = i == 13;
        if (i != emptyGenre)
            root.image = pictureId(PictureKind::Genre, i);
        m_roots["genres"].push_back(root);
        ++i;
    }
    i = 0;
    for (const std::string& line : split(moods, '|')) {
        m_roots["moods"].push_back(make(line, false));
        m_roots["moods"].back().image = pictureId(PictureKind::Mood, i++);
    }
    m_roots["featured"] = {{"Just In", "new", true, true, true, {}, false},
                           {"Staff Picks", "recommended", true, true, true, {}, true},
                           {"Most Played", "top", true, true, true, {}, false},
                           {"Exclusive", "exclusive", true, true, true, {}, true},
                           {"Local", "local", true, true, true, {}, false}};
    m_roots["rising"] = {{"New", "new", false, true, true, {}, true}};
    m_roots["discovery"] = m_roots["rising"];
    m_roots["master"] = {{"Recommended", "recommended", true, true, false, {}, true}};
}

const std::vector<Root>& Catalogue::roots(const std::string& group) const
{
    static const std::vector<Root> none;
    const auto it = m_roots.find(group);
    return it == m_roots.end() ? none : it->second;
}

// `count` different numbers below `size`, in an order that depends on the salt.
std::vector<int> Catalogue::sample(int count, std::uint64_t salt, int size) const
{
    const std::uint64_t hash = mix(m_seed, salt, 77);
    const std::uint64_t total = size;
    std::uint64_t step = 1 + hash / total % (total - 1);
    while (std::gcd(step, total) != 1)
        ++step;
    std::vector<int> result;
    for (int i = 0; i < std::min(count, size); ++i)
        result.push_back(int((hash + i * step) % total));
    return result;
}

std::vector<int> Catalogue::newestAlbums(int count) const
{
    std::vector<int> all(m_albums.size());
    std::iota(all.begin(), all.end(), 0);
    std::partial_sort(all.begin(), all.begin() + count, all.end(), [this](int a, int b) {
        const AlbumBase& left = m_albums[a];
        const AlbumBase& right = m_albums[b];
        return left.released != right.released ? left.released > right.released : a < b;
    });
    all.resize(count);
    return all;
}

std::vector<int> Catalogue::albumsIn(const std::string& group, const std::string& path) const
{
    const int size = sizeOf(group, path);
    if (group == "featured" && path == "new")
        return newestAlbums(size);
    if (group != "genres")
        return sample(size, mixText(group + "/" + path), albumCount());
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
        return sample(sizeOf(group, path), mixText(group + "/" + path + "/tracks"), m_trackCount);
    std::vector<int> result;
    for (const int album : albumsIn(group, path)) {
        const AlbumBase& base = m_albums[album];
        for (int i = 0; i < 2 && i < base.tracks && result.size() < 100; ++i)
            result.push_back(base.firstTrack + i);
    }
    return result;
}

std::optional<Catalogue::Picture> Catalogue::picture(const std::string& id) const
{
    constexpr std::size_t idLength = 36;
    if (id.size() != idLength || id.find_first_not_of("0123456789abcdef-") != std::string::npos ||
        id.find('-', 24) != std::string::npos)
        return std::nullopt;
    const int kind = id[20] - '0';
    const std::uint64_t number = std::stoull(id.substr(24), nullptr, 16);
    if (kind < 0 || kind > int(PictureKind::Video) || pictureId(PictureKind(kind), number) != id)
        return std::nullopt;
    const std::uint64_t hash = mix(m_seed, number, kind, 99);
    return Picture{PictureKind(kind), int(hash % 360), hash / 360};
}

} // namespace kelosim
