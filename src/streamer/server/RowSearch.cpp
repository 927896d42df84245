#include "RowSearch.h"

#include "ItemRoles.h"

#include <algorithm>
#include <QtAlgorithms>

namespace {
/// Each parameter doubles the ways to leave some out; of more only one at a time is.
constexpr int mostParameters = 6;

QStringList parentOf(const CMPath& path)
{
    return path.splitBase().mid(0, path.splitBase().size() - 1);
}
} // namespace

RowSearch::Page::Page(const CMReply<KeloRowsRoles>& reply)
    : Page(reply.error().isSet() ? KeloRowsRoles() : reply.value())
{
    error = reply.error();
}

RowSearch::Page::Page(const KeloRowsRoles& answer)
    : count(answer.rowsCount()),
      title(TrString::fromVariant(answer.roles().toHash().value(KeloRoles::Title())))
{
    const QVariantList list = answer.rows().toList();
    rows.reserve(list.size());
    for (const QVariant& row : list) {
        const QVariantList values = row.toList();
        KeloRoles roles;
        for (int i = 0; i < values.size() && i < itemRoles().size(); ++i)
            if (values.at(i).isValid())
                roles.insert(itemRoles().at(i), values.at(i));
        rows.append(roles);
    }
}

int RowSearch::Page::indexOf(const CMPath& path, int place) const
{
    const auto isIt = [&path](const KeloRoles& row) {
        return row.type() == KeloRolesType::Audio() && row.path() == path;
    };
    if (isIt(rows.value(place)))
        return place;
    const auto found = std::find_if(rows.begin(), rows.end(), isIt);
    return found == rows.end() ? -1 : int(found - rows.begin());
}

RowSearch::RowSearch(const CMPath& path, QList<CMPath> lists)
    : RowSearch(std::move(lists), [path](const KeloRoles& row) { return row.path() == path; })
{
    m_isAlike = [path](const KeloRoles& row) {
        return row.path().params().keys() == path.params().keys() &&
               parentOf(row.path()) == parentOf(path);
    };
}

QList<CMPath> RowSearch::listsOf(const CMPath& path)
{
    QStringList keys = path.params().keys();
    const int item = keys.indexOf(QStringLiteral("trackId"));
    if (item > 0)
        keys.move(item, 0);
    QVector<uint> choices; // a bit for each parameter that is left out
    if (keys.size() <= mostParameters)
        for (uint choice = 1; choice < 1u << keys.size(); ++choice)
            choices.append(choice);
    else
        for (int i = 0; i < qMin(keys.size(), 32); ++i)
            choices.append(1u << i);
    std::stable_sort(choices.begin(), choices.end(),
                     [](uint a, uint b) { return qPopulationCount(a) < qPopulationCount(b); });
    QList<CMPath> lists;
    for (const uint choice : qAsConst(choices)) {
        CMPath list = path;
        for (int i = 0; i < keys.size(); ++i)
            if (choice & 1u << i)
                list.removeParam(keys.at(i));
        lists.append(list);
    }
    const QStringList parent = parentOf(path);
    if (!parent.isEmpty())
        lists.append(CMPath(QLatin1Char('/') + parent.join(QLatin1Char('/')), path.params()));
    return lists;
}

void RowSearch::take(const Page& page)
{
    const auto found = std::find_if(page.rows.begin(), page.rows.end(), m_match);
    if (found != page.rows.end()) {
        m_row = *found;
        m_index = m_from + int(found - page.rows.begin());
        return;
    }
    const bool isFirst = m_from == 0;
    m_from += pageSize;
    const bool isOther = m_isAlike && isFirst && m_lists.size() > 1 &&
                         std::none_of(page.rows.begin(), page.rows.end(), m_isAlike);
    if (page.error.isSet() || page.rows.isEmpty() || m_from >= page.count || isOther) {
        m_lists.removeFirst();
        m_from = 0;
    }
}
