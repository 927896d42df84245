// What the walk looks at: rows, counts, paths and ranges.
#include "Conformance.h"

#include <algorithm>
#include <kelo/KeloRolesType.h>
#include <limits>
#include <QSet>

namespace {

constexpr int pageSize = 20;
constexpr int shortList = 12;    ///< all its rows are opened in turn
constexpr int mostOpened = 3;    ///< of a longer one
constexpr size_t mostRanged = 8; ///< lists whose ranges are tried
constexpr int mostLooks = 5;     ///< at a list that changes, or at its end
constexpr int mostRows = std::numeric_limits<int>::max() - 100; ///< so that one can ask beyond

const QString rowsCheck = QStringLiteral("rows");
const QString countsCheck = QStringLiteral("counts");
const QString pathsCheck = QStringLiteral("paths");
const QString rangesCheck = QStringLiteral("ranges");

bool isKnownType(const QString& type)
{
    static const QStringList known{QString(),
                                   KeloRolesType::Container(),
                                   KeloRolesType::Action(),
                                   KeloRolesType::Audio(),
                                   KeloRolesType::Text(),
                                   KeloRolesType::Choice(),
                                   KeloRolesType::Header()};
    return known.contains(type);
}

} // namespace

void Conformance::walk()
{
    QSet<QString> seen{m_options.prefix};
    QList<CMPath> further{CMPath(m_options.prefix)};
    int rows = 0;
    while (!further.isEmpty() && int(m_lists.size()) < m_options.mostLists) {
        const CMPath path = further.takeFirst();
        QList<CMPath> found;
        if (!visit(path, found))
            continue;
        rows += m_lists.back().first.rows.size();
        for (const CMPath& next : qAsConst(found)) {
            if (seen.contains(next.toEncoded()))
                continue;
            seen.insert(next.toEncoded());
            further.append(next);
        }
    }
    m_findings.end(rowsCheck, QStringLiteral("%1 rows of %2 lists").arg(rows).arg(m_lists.size()));
    m_findings.end(countsCheck, QStringLiteral("lists have as many rows as they say"));
    m_findings.end(pathsCheck, QStringLiteral("what a row names answers, twice the same"));
}

bool Conformance::visit(const CMPath& path, QList<CMPath>& further)
{
    const QString text = path.toEncoded();
    m_findings.begin(pathsCheck, text);
    List list{path, Page(), std::make_shared<Watch>(path)};
    look(list);
    if (list.first.isAnswered())
        judge(list, [this](List& seen) {
            const Faults faults = pageFaults(seen); // first: it may look again
            return faults + lastPageFaults(seen) + pathFaults(seen);
        });
    const Page& page = list.first;
    if (!page.isAnswered()) {
        m_findings.fault(pathsCheck, text + QStringLiteral(": ") + page.error.message());
        return false;
    }
    const int opened = page.count <= shortList ? shortList : mostOpened;
    for (const KeloRoles& row : page.rows) {
        checkRow(path, row);
        if (row.type() == KeloRolesType::Container() && further.size() < opened)
            further.append(row.path());
    }
    m_lists.push_back(list);
    return true;
}

void Conformance::judge(List& list, const std::function<Faults(List&)>& faultsOf)
{
    Faults faults = faultsOf(list);
    for (int i = 0; i < mostLooks && !faults.isEmpty() && isToldToChange(list); ++i) {
        look(list);
        faults = faultsOf(list);
    }
    for (const Fault& fault : qAsConst(faults))
        m_findings.fault(fault.check, fault.what);
}

void Conformance::look(List& list)
{
    list.told = list.watch->count();
    list.first = m_asker.rows(list.path, 0, pageSize - 1);
}

bool Conformance::isToldToChange(const List& list)
{
    settle(); // the module may just be telling
    return list.watch->count() != list.told ||
           m_asker.rows(list.path, 0, 0).version != list.first.version;
}

/// A list's first page, asked for twice.
Conformance::Faults Conformance::pageFaults(List& list)
{
    const QString text = list.path.toEncoded();
    const Page page = list.first;
    Faults faults;
    if (page.count < 0 || page.count > mostRows)
        return {{countsCheck, QStringLiteral("%1 says %2 rows").arg(text).arg(page.count)}};
    if (page.rows.size() != std::min(page.count, pageSize))
        faults.append({countsCheck, QStringLiteral("%1 says %2 rows, and gives %3 of the first %4")
                                        .arg(text)
                                        .arg(page.count)
                                        .arg(page.rows.size())
                                        .arg(pageSize)});
    const Page again = m_asker.rows(list.path, 0, pageSize - 1);
    if (again.paths() != page.paths())
        faults.append({pathsCheck, text + QStringLiteral(": asked twice, other rows")});
    // Once: a list may say a better count when it has got its rows.
    if (again.count == page.count)
        return faults;
    const int told = list.told; // what was told meanwhile still counts
    look(list);
    list.told = told;
    if (list.first.count != again.count)
        faults.append({countsCheck, text + QStringLiteral(": another count each time")});
    return faults;
}

/// The last rows must be there. What an answer holds is measured by the count that it says itself;
/// where that is another one, the end is looked for there.
Conformance::Faults Conformance::lastPageFaults(const List& list)
{
    const QString text = list.path.toEncoded();
    int count = list.first.count;
    for (int i = 0; i < mostLooks && count > pageSize; ++i) {
        const int from = count - pageSize;
        const Page last = m_asker.rows(list.path, from, count - 1);
        if (!last.isAnswered())
            return {{countsCheck, QStringLiteral("%1 says %2 rows, and at row %3: %4")
                                      .arg(text)
                                      .arg(count)
                                      .arg(from)
                                      .arg(last.error.message())}};
        const int wanted = std::clamp(last.count - from, 0, pageSize);
        if (last.rows.size() != wanted)
            return {{countsCheck, QStringLiteral("%1 says %2 rows, and gives %3 from row %4 on")
                                      .arg(text)
                                      .arg(last.count)
                                      .arg(last.rows.size())
                                      .arg(from)}};
        if (last.count == count)
            return {};
        count = last.count;
    }
    if (count <= pageSize)
        return {};
    return {{countsCheck, text + QStringLiteral(": another count with each page")}};
}

/// A list may hold a thing twice, but not different things under one path, nor one thing alone.
Conformance::Faults Conformance::pathFaults(const List& list) const
{
    const QString text = list.path.toEncoded();
    QMap<QString, const KeloRoles*> seen;
    int withPath = 0;
    for (const KeloRoles& row : list.first.rows) {
        const QString path = row.toHash().value(KeloRoles::Path()).toString();
        if (path.isEmpty())
            continue;
        ++withPath;
        const KeloRoles* const earlier = seen.value(path, &row);
        if (earlier->title() != row.title() || earlier->type() != row.type())
            return {{pathsCheck, QStringLiteral("%1: rows \"%2\" and \"%3\" have one path, %4")
                                     .arg(text, earlier->title(), row.title(), path)}};
        seen.insert(path, earlier);
    }
    if (seen.size() == 1 && withPath == pageSize)
        return {
            {pathsCheck, QStringLiteral("%1: %2 rows have but one path").arg(text).arg(withPath)}};
    return {};
}

void Conformance::checkRow(const CMPath& list, const KeloRoles& row)
{
    const QString path = row.toHash().value(KeloRoles::Path()).toString();
    const QString where = QStringLiteral("%1, row \"%2\"").arg(list.toEncoded(), row.title());
    for (const QString& role : {KeloRoles::Path(), KeloRoles::Type()}) {
        const QVariant value = row.toHash().value(role);
        if (value.isValid() && value.type() != QVariant::String)
            m_findings.fault(rowsCheck, QStringLiteral("%1: %2 is no text").arg(where, role));
    }
    if (!isKnownType(row.type()))
        m_findings.fault(rowsCheck, QStringLiteral("%1: type %2").arg(where, row.type()));
    bool isWell = true;
    const CMPath read = CMPath::fromEncoded(path, &isWell);
    if (!isWell || read.toEncoded() != path)
        m_findings.fault(pathsCheck, QStringLiteral("%1: the path %2").arg(where, path));
    const bool isPlayable = row.type() == KeloRolesType::Audio();
    if (row.type() == KeloRolesType::Action() || isPlayable ||
        row.type() == KeloRolesType::Container()) {
        if (path.isEmpty())
            m_findings.fault(pathsCheck, where + QStringLiteral(": no path"));
    }
    if (row.type() == KeloRolesType::Action() && !path.isEmpty()) {
        const CMError error = m_asker.data(read);
        if (error.name() == CMError::NotFoundName())
            m_findings.fault(pathsCheck, QStringLiteral("%1: nothing is at %2").arg(where, path));
    }
}

void Conformance::checkRanges()
{
    size_t tried = 0;
    for (List& list : m_lists) {
        const bool isCounted = list.first.count >= 0 && list.first.count <= mostRows;
        if (list.first.rows.isEmpty() || !isCounted || tried == mostRanged)
            continue;
        ++tried;
        m_findings.begin(rangesCheck, list.path.toEncoded());
        judge(list, [this](const List& seen) { return rangeFaults(seen); });
    }
    m_findings.end(rangesCheck,
                   QStringLiteral("%1 lists: within, at the end, beyond, upside down").arg(tried));
}

Conformance::Faults Conformance::rangeFaults(const List& list)
{
    const QString path = list.path.toEncoded();
    const QStringList all = list.first.paths();
    const int count = list.first.count;
    Faults faults;
    const auto fault = [&](int from, int to, const QString& what) {
        faults.append(
            {rangesCheck,
             QStringLiteral("%1, rows %2 to %3: %4").arg(path).arg(from).arg(to).arg(what)});
    };
    for (const auto& [from, to] :
         {std::pair(0, 0), std::pair(1, 2), std::pair(2, 2), std::pair(0, count + 5)}) {
        if (from >= all.size() || (to > count && count > pageSize))
            continue;
        const Page page = m_asker.rows(list.path, from, to);
        if (!page.isAnswered())
            fault(from, to, page.error.message());
        else if (page.paths() != all.mid(from, to - from + 1))
            fault(from, to, QStringLiteral("other rows than in the whole page"));
        else if (page.count != count)
            fault(from, to, QStringLiteral("another count"));
    }
    const Page beyond = m_asker.rows(list.path, count + 10, count + 19);
    if (!beyond.rows.isEmpty())
        fault(count + 10, count + 19, QStringLiteral("rows beyond the end"));
    for (const auto& [from, to] : {std::pair(2, 1), std::pair(-1, 2), std::pair(0, -1)}) {
        if (m_asker.rows(list.path, from, to).isAnswered())
            fault(from, to, QStringLiteral("no error"));
    }
    return faults;
}
