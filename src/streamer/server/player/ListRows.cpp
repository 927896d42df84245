#include "ListRows.h"

#include "ItemRoles.h"

#include <kelo/CMRoot.h>
#include <kelo/KeloPost.h>

void ListRows::follow(const CMPath& list, std::function<void()> changed)
{
    if (list == m_followed)
        return;
    m_followed = list;
    if (m_open != 0)
        CMRoot().closeRows(m_open);
    m_open = 0;
    if (list.isEmpty())
        return;
    m_open =
        CMRoot().openRows(list, [this, list, changed = std::move(changed)](const CMRowsNotice&) {
            keloPost(this, [this, list, changed] {
                ++m_changes;
                if (list == m_followed)
                    changed();
            });
        });
}

void ListRows::fetch(const CMPath& list, int from, const Then& then)
{
    for (auto& asked : m_asked) {
        Asked& one = asked.second;
        if (one.list == list && one.from == from && one.changes == m_changes)
            return one.thens.push_back(then);
    }
    const quint64 number = ++m_number;
    m_asked[number] = {list, from, m_changes, {then}};
    const auto watch = m_kept.begin(list);
    const CMGetRowsRequest request(list, from, from + pageSize - 1, itemRoles());
    CMRoot().request(request);
    const CMReply<KeloRowsRoles> reply = request.reply();
    reply.addWatcher(
        this,
        [this, reply, watch, number] {
            const Asked asked = m_asked[number];
            m_asked.erase(number);
            m_kept.take(watch, asked.from, reply);
            const Page page{RowSearch::Page(reply), asked.from};
            for (const Then& then : asked.thens)
                then(page);
        },
        Qt::QueuedConnection);
}

std::optional<ListRows::Page> ListRows::page(const CMPath& list, int index) const
{
    const auto kept = m_kept.at(list, index);
    return kept ? std::optional(Page{kept->page, kept->from}) : std::nullopt;
}
