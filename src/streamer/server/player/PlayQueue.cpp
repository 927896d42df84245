#include "PlayQueue.h"

#include <algorithm>
#include <kelo/KeloJson.h>
#include <QJsonDocument>

namespace {
/// FNV-1a, of as many bits as a JSON number holds.
quint64 hashOf(const QByteArray& text)
{
    quint64 hash = 14695981039346656037ULL;
    for (const char c : text)
        hash = (hash ^ quint8(c)) * 1099511628211ULL;
    return hash >> 12;
}
} // namespace

quint64 PlayQueue::keyOf(const QueueEntry& entry)
{
    if (!entry.id.isEmpty())
        return hashOf(entry.id.toUtf8());
    const CMPath prePlay = entry.prePlayPath();
    if (!prePlay.isEmpty())
        return hashOf((prePlay.toEncoded() + entry.prePlayData()).toUtf8());
    const QString id = entry.row.id();
    return hashOf((id.isEmpty() ? entry.row.path().toEncoded() : id).toUtf8());
}

int PlayQueue::positionOf(Slot slot, int position) const
{
    for (int i = std::min(position, size() - 1); i >= 0; --i) {
        if (at(i) == slot)
            return i;
    }
    return -1;
}

CMPath PlayQueue::listOf(Slot slot) const
{
    return slot.origin < 0 ? CMPath() : m_origins[size_t(slot.origin)].list;
}

TrString PlayQueue::titleOf(Slot slot) const
{
    return slot.origin < 0 ? TrString() : m_origins[size_t(slot.origin)].title;
}

int PlayQueue::indexOf(Slot slot) const
{
    return isRead(slot) || slot.origin < 0 ? slot.index : m_origins[size_t(slot.origin)].index;
}

bool PlayQueue::isRead(Slot slot) const
{
    return slot.origin >= 0 && m_origins[size_t(slot.origin)].isList();
}

QueueEntry PlayQueue::entry(Slot slot) const
{
    if (slot.origin < 0 || isRead(slot))
        return {};
    const Origin& origin = m_origins[size_t(slot.origin)];
    const QVariantHash row = KeloJson::parse(origin.row).toVariant().toHash();
    return {KeloRoles(KeloHash(row)), origin.id, origin.list, origin.index};
}

void PlayQueue::endList()
{
    m_upcoming.resize(size_t(m_queued));
    m_history.clear();
    m_played.clear();
    m_present = Played();
    m_source = -1;
    sweep();
}

void PlayQueue::begin(const List& list, int index, quint64 key)
{
    endList();
    Origin origin;
    origin.list = list.path;
    origin.title = list.title;
    m_source = addOrigin(origin);
    m_count = list.count;
    m_anchor = Credit();
    m_isAnchorLost = index < 0 && key != 0;
    m_searched = -1;
    if (key != 0)
        makePresent({{m_source, index}, key}, false);
    m_anchor = {key, index};
    makeRest();
}

void PlayQueue::beginAlone(const QueueEntry& entry)
{
    endList();
    makePresent({{originOf({entry, {}}), 0}, keyOf(entry)}, true);
    touched();
}

void PlayQueue::makePresent(const Played& next, bool isByHand)
{
    if (m_present.slot.origin >= 0)
        m_history.push_back(m_present);
    if (m_history.size() > mostHistory)
        m_history.erase(m_history.begin());
    m_present = next;
    const Slot slot = next.slot;
    if (!isOfList(slot))
        return;
    if (m_played.size() < size_t(mostOfList))
        m_played.push_back({next.key, slot.index});
    // A row that was moved to the front leaves those behind the row before it to come.
    const bool isInOrder =
        m_isShuffled || std::none_of(m_upcoming.begin() + m_queued, m_upcoming.end(),
                                     [&](Slot s) { return isOfList(s) && s.index < slot.index; });
    if (!isByHand && isInOrder) {
        m_anchor = {next.key, slot.index};
        m_isAnchorLost = slot.index < 0;
    }
}

void PlayQueue::take(int position, quint64 key)
{
    const Slot slot = at(position);
    const bool isByHand = position < m_queued;
    const int from = isByHand ? 0 : m_isShuffled ? position : m_queued;
    m_upcoming.erase(m_upcoming.begin() + from, m_upcoming.begin() + position + 1);
    if (isByHand)
        m_queued -= position + 1;
    makePresent({slot, key}, isByHand);
    touched();
}

void PlayQueue::pass(int position)
{
    m_upcoming.erase(m_upcoming.begin() + position);
    m_queued -= position < m_queued ? 1 : 0;
    touched();
}

void PlayQueue::pushPresent()
{
    const Played played = std::exchange(m_present, Played());
    if (played.slot.origin < 0)
        return;
    m_upcoming.insert(m_upcoming.begin(), played.slot);
    if (m_queued > 0 || !isOfList(played.slot))
        ++m_queued;
    const auto credit = std::find_if(m_played.rbegin(), m_played.rend(),
                                     [&](const Credit& one) { return one.key == played.key; });
    if (isOfList(played.slot) && credit != m_played.rend())
        m_played.erase(std::next(credit).base());
}

void PlayQueue::goBack(Slot slot)
{
    const Played played{slot, lastKey()};
    m_history.pop_back();
    pushPresent();
    m_present = played;
    if (isOfList(slot)) {
        m_anchor = {played.key, slot.index};
        m_isAnchorLost = false;
    }
    touched();
}

void PlayQueue::backTo(int index, quint64 key)
{
    pushPresent();
    makePresent({{m_source, index}, key}, false);
    m_anchor = {key, index};
    touched();
}

bool PlayQueue::beginRound()
{
    if (!hasList())
        return false;
    const Credit last = m_anchor;
    m_played.clear();
    m_anchor = Credit();
    m_isAnchorLost = false;
    makeRest();
    const size_t first = size_t(m_queued);
    if (m_isShuffled && m_upcoming.size() > first + 1 && m_upcoming[first].index == last.index)
        std::swap(m_upcoming[first], m_upcoming.back());
    return true;
}

bool PlayQueue::add(const std::vector<Item>& items, bool isNext)
{
    sweep();
    qint64 count = m_queued;
    for (const Item& item : items)
        count += item.row.isEmpty() ? item.list.count : 1;
    if (count > mostQueued)
        return false;
    const auto before = qint32(m_origins.size());
    std::vector<Slot> added;
    for (const Item& item : items) {
        const qint32 origin = originOf(item);
        if (origin < 0) {
            m_origins.erase(m_origins.begin() + before, m_origins.end());
            return false;
        }
        for (int i = 0; i < (item.row.isEmpty() ? item.list.count : 1); ++i)
            added.push_back({origin, i});
    }
    m_upcoming.insert(m_upcoming.begin() + (isNext ? 0 : m_queued), added.begin(), added.end());
    m_queued = int(count);
    ++m_edits;
    touched();
    return true;
}

bool PlayQueue::move(int from, int to)
{
    if (from < 0 || to < 0 || from >= size() || to >= size())
        return false;
    if (from == to)
        return true;
    const Slot slot = at(from);
    m_upcoming.erase(m_upcoming.begin() + from);
    m_upcoming.insert(m_upcoming.begin() + to, slot);
    // What is put right behind those put in by hand is one of them.
    if (from < m_queued)
        m_queued -= to >= m_queued ? 1 : 0;
    else if (to <= m_queued && m_queued < mostQueued)
        ++m_queued;
    ++m_edits;
    touched();
    return true;
}

bool PlayQueue::remove(int position, int count)
{
    if (position < 0 || count < 1 || position >= size() || count > size() - position)
        return false;
    const auto first = m_upcoming.begin() + position;
    m_upcoming.erase(first, first + count);
    m_queued -= std::max(0, std::min(m_queued, position + count) - position);
    ++m_edits;
    touched();
    return true;
}

void PlayQueue::clear()
{
    m_upcoming.clear();
    m_queued = 0;
    m_source = -1;
    m_count = -1;
    m_played.clear();
    m_isAnchorLost = false;
    ++m_edits;
    sweep();
    touched();
}

void PlayQueue::setShuffled(bool on)
{
    if (on == m_isShuffled)
        return;
    m_isShuffled = on;
    ++m_edits;
    makeRest();
}

void PlayQueue::setRepeat(Repeat repeat)
{
    // A round that was begun ahead of time, of which nothing has played, is not to come.
    const bool isAhead = m_repeat == Repeat::All && m_played.empty() && m_present.slot.origin >= 0;
    if (isAhead && repeat != Repeat::All && hasList()) {
        dropFrom(m_queued, m_source);
        m_anchor.index = std::max(0, m_count);
        touched();
    }
    m_repeat = repeat;
    ++m_edits;
}

void PlayQueue::restore(const PlayQueue& other)
{
    const quint64 version = m_version;
    *this = other;
    m_version = version;
    touched();
}

qint32 PlayQueue::addOrigin(const Origin& origin)
{
    m_origins.push_back(origin);
    return qint32(m_origins.size() - 1);
}

qint32 PlayQueue::originOf(const Item& item)
{
    Origin origin;
    origin.title = item.list.title;
    if (item.row.isEmpty()) {
        origin.list = item.list.path;
        origin.count = item.list.count;
    } else {
        const QJsonObject row = QJsonObject::fromVariantHash(item.row.row.toHash());
        if (!row.isEmpty())
            origin.row = QJsonDocument(row).toJson(QJsonDocument::Compact);
        origin.id = item.row.id;
        origin.list = item.row.list;
        origin.index = item.row.index;
    }
    origin.digest = qHash(origin.row) ^ qHash(origin.id);
    int kept = 0;
    for (size_t i = 0; i < m_origins.size(); ++i) {
        const Origin& other = m_origins[i];
        const bool isSame = other.digest == origin.digest && other.row == origin.row &&
                            other.id == origin.id && other.index == origin.index &&
                            other.count == origin.count && other.list == origin.list &&
                            qint32(i) != m_source;
        if (isSame)
            return qint32(i);
        kept += other.isList() ? 0 : 1;
    }
    return kept < mostKept || origin.isList() ? addOrigin(origin) : -1;
}

template <class Function>
void PlayQueue::eachSlot(const Function& function)
{
    for (Slot& slot : m_upcoming)
        function(slot.origin);
    for (Played& played : m_history)
        function(played.slot.origin);
    function(m_present.slot.origin);
    function(m_source);
}

void PlayQueue::sweep()
{
    if (m_origins.size() < m_sweepAt)
        return;
    std::vector<qint32> places(m_origins.size(), -1);
    eachSlot([&](qint32 origin) {
        if (origin >= 0)
            places[size_t(origin)] = 0;
    });
    if (std::find(places.begin(), places.end(), -1) == places.end())
        return;
    std::vector<Origin> kept;
    for (size_t i = 0; i < m_origins.size(); ++i) {
        if (places[i] < 0)
            continue;
        places[i] = qint32(kept.size());
        kept.push_back(std::move(m_origins[i]));
    }
    eachSlot([&](qint32& origin) {
        if (origin >= 0)
            origin = places[size_t(origin)];
    });
    m_origins = std::move(kept);
    m_sweepAt = std::min<size_t>(std::max<size_t>(64, 2 * m_origins.size()), mostKept);
}

QString PlayQueue::nameOf(Repeat repeat)
{
    return repeat == Repeat::All   ? QStringLiteral("all")
           : repeat == Repeat::One ? QStringLiteral("one")
                                   : QStringLiteral("off");
}

std::optional<PlayQueue::Repeat> PlayQueue::repeatOf(const QString& name)
{
    for (const Repeat repeat : {Repeat::Off, Repeat::All, Repeat::One}) {
        if (name == nameOf(repeat))
            return repeat;
    }
    return std::nullopt;
}
