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

bool hasType(const QJsonObject& row, const char* type)
{
    return roleText(row, "Type") == QLatin1String(type);
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
        reply = m_api.get(QStringLiteral("row"), {{QStringLiteral("path"), path}});
        if (!reply.isDone())
            return reply;
        roles = reply.document.value(QLatin1String("row")).toObject();
    }
    menu = contextPath(roles);
    return menu.isEmpty()
               ? ApiReply::refusal(QStringLiteral("%1 has no context menu").arg(shown(path)))
               : reply;
}

} // namespace cli
