#include "KeptRows.h"

#include "ItemRoles.h"

#include <algorithm>
#include <atomic>
#include <kelo/CMRoot.h>

namespace {
constexpr qint64 keptForMs = 300000;
constexpr std::size_t mostPages = 8;

bool hasTracks(const KeloRowsRoles& answer)
{
    static const int typeAt = itemRoles().indexOf(KeloRoles::Type());
    if (answer.block())
        return answer.size() > 0 &&
               answer.block()->columns()[std::size_t(typeAt)].shared == KeloRolesType::Audio();
    const QVariantList rows = answer.rows().toList();
    return std::any_of(rows.begin(), rows.end(), [](const QVariant& row) {
        return row.toList().value(typeAt) == KeloRolesType::Audio();
    });
}
} // namespace

/// Holds a list open for its notices.
class KeptRows::Watch
{
public:
    Watch(const CMPath& list, int changes) : m_list(list), m_changes(changes)
    {
        m_open = CMRoot().openRows(
            list, [isChanged = m_isChanged](const CMRowsNotice&) { *isChanged = true; });
    }
    ~Watch() { CMRoot().closeRows(m_open); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    const CMPath& list() const { return m_list; }
    int changes() const { return m_changes; }
    /// Whether there are notices, and none has come.
    bool isQuiet() const { return m_open != 0 && !*m_isChanged; }

private:
    const CMPath m_list;
    const int m_changes;
    /// Set on the notifying thread.
    const std::shared_ptr<std::atomic<bool>> m_isChanged =
        std::make_shared<std::atomic<bool>>(false);
    quint64 m_open = 0; ///< zero when nobody serves the list
};

std::shared_ptr<KeptRows::Watch> KeptRows::begin(const CMPath& list) const
{
    const int changes = [this] {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_changes;
    }();
    return std::make_shared<Watch>(list, changes);
}

void KeptRows::take(const std::shared_ptr<Watch>& watch, int from,
                    const CMReply<KeloRowsRoles>& reply)
{
    const bool isError = reply.error().isSet();
    const KeloRowsRoles answer = isError ? KeloRowsRoles() : reply.value();
    const bool isWorthIt = !isError && hasTracks(answer);
    std::list<Kept> ended; // goes without the lock, as lists close with it
    std::lock_guard<std::mutex> lock(m_mutex);
    if (watch->changes() != m_changes)
        return;
    for (auto kept = m_kept.begin(); kept != m_kept.end();) {
        const auto next = std::next(kept);
        const bool isOlder =
            kept->watch->list() == watch->list() &&
            (isError || kept->from == from || kept->answer.rowsCount() != answer.rowsCount());
        if (isOlder || !isValid(*kept))
            ended.splice(ended.end(), m_kept, kept);
        kept = next;
    }
    if (isWorthIt)
        m_kept.push_front({watch, from, answer, m_clock.steadyMs()});
    if (m_kept.size() > mostPages)
        ended.splice(ended.end(), m_kept, std::prev(m_kept.end()));
}

void KeptRows::clear()
{
    std::list<Kept> ended;
    std::lock_guard<std::mutex> lock(m_mutex);
    ended.swap(m_kept);
    ++m_changes;
}

bool KeptRows::isValid(const Kept& kept) const
{
    return kept.watch->isQuiet() && m_clock.steadyMs() - kept.takenAtMs <= keptForMs;
}

KeptRows::Found KeptRows::find(const CMPath& path, const CMPath& list, int index) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Kept& kept : m_kept) {
        if (!isValid(kept) || !(list.isEmpty() || list == kept.watch->list()))
            continue;
        const Page page(kept.answer);
        const int place = index - kept.from;
        if (!list.isEmpty() && (place < 0 || place >= page.rows.size()))
            continue;
        const int at = page.indexOf(path, place);
        if (at >= 0)
            return {page.rows.at(at), kept.watch->list(), kept.from + at};
    }
    return {};
}

std::optional<KeptRows::Slice> KeptRows::at(const CMPath& list, int index) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Kept& kept : m_kept) {
        if (!isValid(kept) || !(list == kept.watch->list()))
            continue;
        const int place = index - kept.from;
        const int size = kept.answer.size();
        const bool isAtEnd = kept.from + size >= kept.answer.rowsCount();
        if (place >= 0 && (place < size || isAtEnd))
            return Slice{Page(kept.answer), kept.from};
    }
    return std::nullopt;
}
