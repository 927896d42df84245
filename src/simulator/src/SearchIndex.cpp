#include "SearchIndex.h"

#include "Text.h"

#include <algorithm>

namespace kelosim {

namespace {

constexpr std::size_t maxResults = 300;

std::vector<std::string> wordsOf(const std::string& text)
{
    std::vector<std::string> words;
    for (const std::string& word : split(fold(text), ' ')) {
        if (!word.empty())
            words.push_back(word);
    }
    return words;
}

bool holdsAll(const std::string& folded, const std::vector<std::string>& words)
{
    return std::all_of(words.begin(), words.end(), [&](const std::string& word) {
        return folded.find(word) != std::string::npos;
    });
}

} // namespace

bool SearchIndex::holds(const std::string& folded, const std::string& text)
{
    const std::vector<std::string> words = wordsOf(text);
    return !words.empty() && holdsAll(folded, words);
}

void SearchIndex::make()
{
    for (int i = 0; i < m_catalogue.artistCount(); ++i)
        m_artists.push_back(fold(m_catalogue.artist(i).name));
    for (int i = 0; i < m_catalogue.albumCount(); ++i) {
        const Album album = m_catalogue.album(i);
        m_albums.push_back(fold(album.title) + "\n" +
                           m_artists[static_cast<std::size_t>(album.artists.front())]);
    }
    for (int i = 0; i < m_catalogue.trackCount(); ++i) {
        const Track track = m_catalogue.track(i);
        m_tracks.push_back(fold(track.title) + "\n" +
                           m_artists[static_cast<std::size_t>(track.artists.front())]);
    }
}

std::vector<int> SearchIndex::find(const std::vector<std::string>& names,
                                   const std::string& text) const
{
    const std::vector<std::string> words = wordsOf(text);
    if (words.empty())
        return {};
    std::vector<int> first; // names that begin with the text
    std::vector<int> others;
    for (std::size_t i = 0; i < names.size() && first.size() < maxResults; ++i) {
        if (holdsAll(names[i], words))
            (startsWith(names[i], words.front()) ? first : others).push_back(static_cast<int>(i));
    }
    first.insert(first.end(), others.begin(), others.end());
    first.resize(std::min(first.size(), maxResults));
    return first;
}

std::vector<int> SearchIndex::artists(const std::string& text)
{
    std::call_once(m_made, [this] { make(); });
    return find(m_artists, text);
}

std::vector<int> SearchIndex::albums(const std::string& text)
{
    std::call_once(m_made, [this] { make(); });
    return find(m_albums, text);
}

std::vector<int> SearchIndex::tracks(const std::string& text)
{
    std::call_once(m_made, [this] { make(); });
    return find(m_tracks, text);
}

} // namespace kelosim
