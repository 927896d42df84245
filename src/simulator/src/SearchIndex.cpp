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
    return !words.empty() && std::all_of(words.begin(), words.end(), [&](const std::string& word) {
        return folded.find(word) != std::string::npos;
    });
}

} // namespace

bool SearchIndex::holds(const std::string& folded, const std::string& text)
{
    return holdsAll(folded, wordsOf(text));
}

void SearchIndex::make()
{
    for (int i = 0; i < m_catalogue.artistCount(); ++i)
        m_names[Artists].push_back(fold(m_catalogue.artist(i).name));
    const auto add = [this](Kind kind, const auto& item) {
        m_names[kind].push_back(fold(item.title) + "\n" + m_names[Artists][item.artists.front()]);
    };
    for (int i = 0; i < m_catalogue.albumCount(); ++i)
        add(Albums, m_catalogue.album(i));
    for (int i = 0; i < m_catalogue.trackCount(); ++i)
        add(Tracks, m_catalogue.track(i));
}

std::vector<int> SearchIndex::find(Kind kind, const std::string& text)
{
    std::call_once(m_made, [this] { make(); });
    const std::vector<std::string>& names = m_names[kind];
    const std::vector<std::string> words = wordsOf(text);
    std::vector<int> first; // names that begin with the text
    std::vector<int> others;
    for (std::size_t i = 0; i < names.size() && first.size() < maxResults; ++i) {
        if (holdsAll(names[i], words))
            (startsWith(names[i], words.front()) ? first : others).push_back(int(i));
    }
    first.insert(first.end(), others.begin(), others.end());
    first.resize(std::min(first.size(), maxResults));
    return first;
}

} // namespace kelosim
