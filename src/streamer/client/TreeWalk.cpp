#include "client/TreeWalk.h"

#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsCommand.h"

#include <algorithm>
#include <QJsonArray>

namespace cli {

namespace {

constexpr int pageSize = 50;
/// Rows of one list that are looked through.
constexpr int mostRows = 10000;
/// Parameters of a path up to which its list is looked for: each one doubles the tries.
constexpr int mostParameters = 6;

bool hasType(const QJsonObject& row, const char* type)
{
    return roleText(row, "Type") == QLatin1String(type);
}

/// Every path that \p path becomes by leaving parameters out, those that leave out few first. The
/// parameter of items that play comes before all others: such an item has no rows, so where it is
/// named it is the item, while lists may carry along what they were opened with.
QStringList candidateLists(const PathText& path)
{
    QStringList keys = path.parameters.keys();
    const int item = keys.indexOf(QStringLiteral("trackId"));
    if (item > 0)
        keys.move(item, 0);
    QVector<uint> choices;
    for (uint choice = 1; choice < 1u << keys.size(); ++choice)
        choices.append(choice);
    std::stable_sort(choices.begin(), choices.end(),
                     [](uint a, uint b) { return qPopulationCount(a) < qPopulationCount(b); });
    QStringList result;
    for (const uint choice : qAsConst(choices)) {
        PathText list = path;
        for (int i = 0; i < keys.size(); ++i) {
            if (choice & 1u << i)
                list.parameters.remove(keys.at(i));
        }
        result.append(list.encoded());
    }
    return result;
}

/// Whether \p page holds rows whose paths are built as \p path is. A list without one is not read
/// to its end.
bool hasAlike(const QJsonArray& rows, const PathText& path)
{
    return std::any_of(rows.begin(), rows.end(), [&path](const QJsonValue& row) {
        const PathText own = PathText::parse(roleText(row.toObject(), "Path"));
        return own.base == path.base && own.parameters.keys() == path.parameters.keys();
    });
}

} // namespace

QString roleText(const QJsonObject& row, const char* role)
{
    return row.value(QLatin1String(role)).toString();
}

QString contextPath(const QJsonObject& row)
{
    return roleText(row.value(QLatin1String("Context")).toObject(), "Path");
}

bool isContainer(const QJsonObject& row)
{
    return hasType(row, "Container");
}

bool isAction(const QJsonObject& row)
{
    return hasType(row, "Action");
}

bool isField(const QJsonObject& row)
{
    return hasType(row, "Text");
}

bool hasSegment(const QJsonObject& row, const char* segment)
{
    const QString base = PathText::parse(roleText(row, "Path")).base;
    return base.split('/').contains(QLatin1String(segment));
}

ApiReply TreeWalk::page(const QString& path, int from, QJsonObject& page) const
{
    const ApiReply reply = RowsCommand::fetch(m_api, path, from, from + pageSize - 1);
    page = reply.document;
    return reply;
}

ApiReply TreeWalk::find(const QString& list, const Match& match, QJsonObject& row) const
{
    row = QJsonObject();
    for (int from = 0;; from += pageSize) {
        QJsonObject rows;
        const ApiReply reply = page(list, from, rows);
        if (!reply.isDone())
            return reply;
        const QJsonArray array = rows.value(QLatin1String("rows")).toArray();
        for (const QJsonValue& value : array) {
            if (match(value.toObject())) {
                row = value.toObject();
                return reply;
            }
        }
        const int next = from + pageSize;
        if (array.isEmpty() || next >= rows.value(QLatin1String("rowsCount")).toInt() ||
            next >= mostRows)
            return reply;
    }
}

ApiReply TreeWalk::need(const QString& list, const Match& match, const QString& missing,
                        QJsonObject& row) const
{
    const ApiReply reply = find(list, match, row);
    return reply.isDone() && row.isEmpty() ? ApiReply::refusal(missing) : reply;
}

ApiReply TreeWalk::rowAt(const QString& list, int number, QJsonObject& row) const
{
    const ApiReply reply = RowsCommand::fetch(m_api, list, number, number);
    if (!reply.isDone())
        return reply;
    const int count = reply.document.value(QLatin1String("rowsCount")).toInt();
    row = reply.document.value(QLatin1String("rows")).toArray().at(0).toObject();
    if (row.isEmpty() || number >= count)
        return ApiReply::refusal(
            QStringLiteral("there is no row %1, the last one is %2").arg(number).arg(count - 1));
    return reply;
}

ApiReply TreeWalk::count(const QString& list, int& items) const
{
    const ApiReply reply = RowsCommand::fetch(m_api, list, 0, 0);
    const QJsonObject first =
        reply.document.value(QLatin1String("rows")).toArray().at(0).toObject();
    items =
        contextPath(first).isEmpty() ? 0 : reply.document.value(QLatin1String("rowsCount")).toInt();
    return reply;
}

ApiReply TreeWalk::countOf(const QString& list, int from, int to, const QString& wanted,
                           int& rows) const
{
    const ApiReply reply = RowsCommand::fetch(m_api, list, from, to);
    const QJsonArray page = reply.document.value(QLatin1String("rows")).toArray();
    rows =
        static_cast<int>(std::count_if(page.begin(), page.end(), [&wanted](const QJsonValue& row) {
            return roleText(row.toObject(), "Path") == wanted;
        }));
    return reply;
}

ApiReply TreeWalk::data(const QString& path, QJsonObject& roles) const
{
    const ApiReply reply = m_api.get(QStringLiteral("data"), {{QStringLiteral("path"), path}});
    roles = reply.document.value(QLatin1String("data")).toObject();
    return reply;
}

ApiReply TreeWalk::findRow(const QString& path, QJsonObject& row) const
{
    const PathText wanted = PathText::parse(path);
    ApiReply missing =
        ApiReply::refusal(QStringLiteral("no list has a row with the path %1").arg(shown(path)));
    if (wanted.parameters.size() > mostParameters)
        return missing;
    for (const QString& list : candidateLists(wanted)) {
        const ApiReply first = RowsCommand::fetch(m_api, list, 0, pageSize - 1);
        if (first.outcome == ApiReply::Outcome::Unreachable)
            return first;
        if (!hasAlike(first.document.value(QLatin1String("rows")).toArray(), wanted))
            continue;
        const ApiReply reply = find(
            list,
            [&wanted](const QJsonObject& candidate) {
                return roleText(candidate, "Path") == wanted.encoded();
            },
            row);
        if (!reply.isDone() || !row.isEmpty())
            return reply;
    }
    return missing;
}

/// Menus, choosers and forms are containers of their own type, which no list of items has. The
/// menu of a node without parameters stands in its data.
ApiReply TreeWalk::menuOf(const QString& path, QString& menu) const
{
    QJsonObject roles;
    ApiReply reply = data(path, roles);
    if (!reply.isDone())
        return reply;
    menu = path;
    if (roleText(roles, "ContainerType") == QLatin1String("List"))
        return reply;
    if (path.contains('?')) {
        reply = findRow(path, roles);
        if (!reply.isDone())
            return reply;
    }
    menu = contextPath(roles);
    return menu.isEmpty()
               ? ApiReply::refusal(QStringLiteral("%1 has no context menu").arg(shown(path)))
               : reply;
}

} // namespace cli
