#include "KeptRows.h"

#include <algorithm>
#include <kelo/CMRoot.h>

namespace {
constexpr qint64 keptForMs = 300000;
}

void KeptRows::clear()
{
    if (m_open != 0)
        CMRoot().closeRows(m_open);
    m_open = 0;
    m_rows.reset();
}

void KeptRows::begin(const CMPath& list)
{
    clear();
    m_list = list;
    m_isChanged = std::make_shared<std::atomic<bool>>(false);
    m_open = CMRoot().openRows(
        list, [isChanged = m_isChanged](const CMRowsNotice&) { *isChanged = true; });
}

void KeptRows::take(int from, const Page& page)
{
    if (m_open == 0 || page.error.isSet() || page.rows.isEmpty())
        return clear();
    m_rows = Slice{page, from};
    m_takenAtMs = m_clock.steadyMs();
}

bool KeptRows::isValid() const
{
    return m_rows && !*m_isChanged && m_clock.steadyMs() - m_takenAtMs <= keptForMs;
}

QueueEntry KeptRows::find(const CMPath& path) const
{
    if (!isValid())
        return {};
    const QList<KeloRoles>& rows = m_rows->page.rows;
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const KeloRoles& row) {
        return row.type() == KeloRolesType::Audio() && row.path() == path;
    });
    if (found == rows.end())
        return {};
    return {*found, QString(), m_list, m_rows->from + int(found - rows.begin())};
}

std::optional<KeptRows::Slice> KeptRows::beside(const CMPath& list, int index, int step) const
{
    if (!isValid() || !(list == m_list))
        return std::nullopt;
    const int place = index - m_rows->from; // may be just outside
    const int size = m_rows->page.rows.size();
    const bool isAtEnd = m_rows->from + size >= m_rows->page.count;
    if (step > 0 ? place < -1 || place >= (isAtEnd ? size : size - 1) : place < 1 || place > size)
        return std::nullopt;
    Slice slice = *m_rows;
    slice.from = step > 0 ? index + 1 : m_rows->from;
    slice.page.rows = step > 0 ? slice.page.rows.mid(place + 1) : slice.page.rows.mid(0, place);
    return slice;
}
