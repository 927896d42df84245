#pragma once

#include "Catalogue.h"

#include <mutex>
#include <string>
#include <vector>

namespace kelosim {

// Finds artists, albums and tracks by their names. Owned by WebApi; the index is made at the first
// search, behind a lock, and immutable from then on.
class SearchIndex
{
public:
    explicit SearchIndex(const Catalogue& catalogue) : m_catalogue(catalogue) {}

    // Indexes of the items whose names hold every word of the text, best first, at most 300.
    std::vector<int> artists(const std::string& text);
    std::vector<int> albums(const std::string& text);
    std::vector<int> tracks(const std::string& text);

    // Whether `folded` holds every word of `text`.
    static bool holds(const std::string& folded, const std::string& text);

private:
    void make();
    std::vector<int> find(const std::vector<std::string>& names, const std::string& text) const;

    const Catalogue& m_catalogue;
    std::once_flag m_made;
    std::vector<std::string> m_artists; // folded texts by index
    std::vector<std::string> m_albums;
    std::vector<std::string> m_tracks;
};

} // namespace kelosim
