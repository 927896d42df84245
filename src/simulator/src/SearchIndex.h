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

    enum Kind { Artists, Albums, Tracks };

    // Indexes of the items whose names hold every word of the text, best first, at most 300.
    std::vector<int> find(Kind kind, const std::string& text);

    // Whether `folded` holds every word of `text`.
    static bool holds(const std::string& folded, const std::string& text);

private:
    void make();

    const Catalogue& m_catalogue;
    std::once_flag m_made;
    std::vector<std::string> m_names[3]; // folded texts by kind and index
};

} // namespace kelosim
