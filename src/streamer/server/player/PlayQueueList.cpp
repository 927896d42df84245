// The part of PlayQueue that follows its list, which changes.
#include "PlayQueue.h"

#include <algorithm>
#include <cstdlib>

namespace {
/// A row that is not found in so many pages is taken to be gone.
constexpr int mostSearched = 40;
} // namespace

void PlayQueue::makeRest()
{
    std::vector<Slot> rest;
    if (m_count >= 0 && (m_isShuffled || !m_isAnchorLost)) {
        const int count = std::min(m_count, mostOfList);
        std::vector<bool> isElsewhere(size_t(count), false);
        const auto mark = [&](int index) {
            if (index >= 0 && index < count)
                isElsewhere[size_t(index)] = true;
        };
        if (m_isShuffled) {
            for (const Credit& credit : m_played)
                mark(credit.index);
        }
        for (int i = 0; i < m_queued; ++i) {
            if (isOfList(at(i)))
                mark(at(i).index);
        }
        for (int i = m_isShuffled ? 0 : m_anchor.index + 1; i < count; ++i) {
            if (!isElsewhere[size_t(i)])
                rest.push_back({m_source, i});
        }
        if (m_isShuffled)
            std::shuffle(rest.begin(), rest.end(), m_random);
    }
    // What else was put among the list's rows counts as put in front of them.
    dropFrom(m_queued, m_source);
    m_queued = size();
    m_upcoming.insert(m_upcoming.end(), rest.begin(), rest.end());
    touched();
}

std::optional<int> PlayQueue::wanted() const
{
    const bool isSearching = m_isAnchorLost && !m_isShuffled;
    if (!hasList() || (m_count >= 0 && !isSearching))
        return std::nullopt;
    if (isSearching && m_searched >= 0)
        return m_searched * pageSize;
    return std::max(0, m_anchor.index);
}

void PlayQueue::listChanged()
{
    if (!hasList())
        return;
    m_count = -1;
    for (Credit& credit : m_played)
        credit.index = -1;
    m_isAnchorLost = m_isAnchorLost || m_anchor.index >= 0;
    m_searched = -1;
    dropFrom(0, m_source);
    makeRest();
}

bool PlayQueue::isAsSeen(int from, const std::vector<Seen>& rows) const
{
    const auto isThere = [&](const Credit& one) {
        const int row = one.index - from;
        return one.index < 0 || one.key == 0 || row < 0 || row >= int(rows.size()) ||
               rows[size_t(row)].key == one.key;
    };
    return (m_isAnchorLost || isThere(m_anchor)) &&
           std::all_of(m_played.begin(), m_played.end(), isThere);
}

void PlayQueue::findAnchor(int from, const std::vector<Seen>& rows)
{
    const int wantedPage = wanted().value_or(-pageSize) / pageSize * pageSize;
    int found = -1;
    for (int i = 0; i < int(rows.size()); ++i) {
        const bool isNearer =
            found < 0 || std::abs(from + i - m_anchor.index) < std::abs(found - m_anchor.index);
        if (rows[size_t(i)].key == m_anchor.key && isNearer)
            found = from + i;
    }
    if (found >= 0) {
        if (m_present.key == m_anchor.key && isOfList(m_present.slot))
            m_present.slot.index = found;
        m_anchor.index = found;
        m_isAnchorLost = false;
    } else if (from == wantedPage) {
        ++m_searched;
        if (m_searched * pageSize >= m_count || m_searched >= mostSearched)
            giveAnchorUp();
    }
}

/// The rows behind it took its place.
void PlayQueue::giveAnchorUp()
{
    m_isAnchorLost = false;
    m_anchor.index = m_anchor.index < 0 ? m_count : std::min(m_anchor.index, m_count) - 1;
    m_anchor.key = 0;
}

std::vector<bool> PlayQueue::findPlayed(int from, const std::vector<Seen>& rows)
{
    std::vector<bool> isPlayed(rows.size(), false);
    bool areAllFound = true;
    for (const Credit& credit : m_played) {
        const int row = credit.index - from;
        if (credit.index >= 0 && row >= 0 && row < int(rows.size()))
            isPlayed[size_t(row)] = true;
        areAllFound = areAllFound && credit.index >= 0;
    }
    for (size_t i = 0; i < rows.size() && !areAllFound; ++i) {
        const auto credit = std::find_if(m_played.begin(), m_played.end(), [&](const Credit& one) {
            return one.index < 0 && one.key == rows[i].key;
        });
        if (isPlayed[i] || credit == m_played.end())
            continue;
        credit->index = from + int(i);
        isPlayed[i] = true;
    }
    return isPlayed;
}

PlayQueue::Sight PlayQueue::see(const CMPath& list, int from, const std::vector<Seen>& rows,
                                int count, const TrString& title)
{
    Sight sight = Sight::Same;
    for (Origin& origin : m_origins) {
        if (!title.isEmpty() && origin.title.isEmpty() && origin.list == list)
            origin.title = title;
    }
    std::vector<bool> isPlayed(rows.size(), false);
    if (hasList() && list == this->list()) {
        if ((m_count >= 0 && count != m_count) || !isAsSeen(from, rows)) {
            listChanged();
            sight = Sight::Changed;
        }
        const std::optional<int> before = wanted();
        m_count = count;
        if (m_isAnchorLost)
            findAnchor(from, rows);
        if (m_isShuffled)
            isPlayed = findPlayed(from, rows);
        if (before && !wanted())
            makeRest();
        if (before && sight == Sight::Same)
            sight = Sight::Other;
    }
    std::vector<bool> isThisList;
    for (const Origin& origin : m_origins)
        isThisList.push_back(origin.isList() && origin.list == list);
    const auto goes = [&](size_t position) {
        const Slot slot = m_upcoming[position];
        if (!isThisList[size_t(slot.origin)])
            return false;
        const int row = slot.index - from;
        if (row < 0 || row >= int(rows.size()))
            return slot.index >= count;
        return !rows[size_t(row)].isItem ||
               (isOfList(slot) && int(position) >= m_queued && isPlayed[size_t(row)]);
    };
    size_t kept = 0;
    int queued = 0;
    for (size_t i = 0; i < m_upcoming.size(); ++i) {
        if (goes(i))
            continue;
        m_upcoming[kept++] = m_upcoming[i];
        queued += int(i) < m_queued ? 1 : 0;
    }
    if (kept == m_upcoming.size())
        return sight;
    m_upcoming.resize(kept);
    m_queued = queued;
    touched();
    return sight == Sight::Same ? Sight::Other : sight;
}

void PlayQueue::drop(qint32 origin)
{
    dropFrom(0, origin);
    touched();
}

void PlayQueue::dropFrom(int position, qint32 origin)
{
    const auto isDropped = [origin](Slot slot) { return slot.origin == origin; };
    const auto first = m_upcoming.begin() + position;
    const auto rest = m_upcoming.begin() + std::max(position, m_queued);
    m_queued -= int(std::count_if(first, rest, isDropped));
    m_upcoming.erase(std::remove_if(first, m_upcoming.end(), isDropped), m_upcoming.end());
}
