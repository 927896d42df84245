// What the walk looks at: rows, counts, paths and ranges.
#include "Conformance.h"

#include <algorithm>
#include <kelo/KeloRolesType.h>
#include <QSet>

namespace {

constexpr int pageSize = 20;
constexpr int shortList = 12;    ///< all its rows are opened in turn
constexpr int mostOpened = 3;    ///< of a longer one
constexpr size_t mostRanged = 8; ///< lists whose ranges are tried

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
    const Page page = m_asker.rows(path, 0, pageSize - 1);
    if (!page.isAnswered()) {
        m_findings.fault(pathsCheck, text + QStringLiteral(": ") + page.error.message());
        return false;
    }
    if (page.rows.size() != std::min(page.count, pageSize))
        m_findings.fault(countsCheck,
                         QStringLiteral("%1 says %2 rows, and gives %3 of the first %4")
                             .arg(text)
                             .arg(page.count)
                             .arg(page.rows.size())
                             .arg(pageSize));
    const Page again = m_asker.rows(path, 0, pageSize - 1);
    if (again.paths() != page.paths())
        m_findings.fault(pathsCheck, text + QStringLiteral(": asked twice, other rows"));
    if (again.count != page.count)
        m_findings.fault(countsCheck, text + QStringLiteral(": asked twice, another count"));
    const int opened = page.count <= shortList ? shortList : mostOpened;
    for (const KeloRoles& row : page.rows) {
        checkRow(path, row);
        if (row.type() == KeloRolesType::Container() && further.size() < opened)
            further.append(row.path());
    }
    m_lists.push_back({path, page});
    return true;
}

void Conformance::checkRow(const CMPath& list, const KeloRoles& row)
{
    const QString path = row.toHash().value(KeloRoles::Path()).toString();
    const QString where = QStringLiteral("%1, row \"%2\"").arg(list.toEncoded(), row.title());
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
    for (const List& list : m_lists) {
        if (list.first.rows.isEmpty() || tried == mostRanged)
            continue;
        ++tried;
        m_findings.begin(rangesCheck, list.path.toEncoded());
        checkRangesOf(list);
    }
    m_findings.end(rangesCheck,
                   QStringLiteral("%1 lists: within, at the end, beyond, upside down").arg(tried));
}

void Conformance::checkRangesOf(const List& list)
{
    const QString path = list.path.toEncoded();
    const QStringList all = list.first.paths();
    const int count = list.first.count;
    const auto fault = [&](int from, int to, const QString& what) {
        m_findings.fault(
            rangesCheck,
            QStringLiteral("%1, rows %2 to %3: %4").arg(path).arg(from).arg(to).arg(what));
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
}
