#include "client/TreeWalk.h"

#include "client/CommandContext.h"
#include "client/DisplayText.h"
#include "client/PathText.h"

#include <algorithm>

namespace cli {

/// Rows of one list that are looked through.
constexpr int mostRows = 10000;

QString contextPath(const QJsonObject& row)
{
    return textIn(objectIn(row, "Context"), "Path");
}

bool isOfType(const QJsonObject& row, const char* type)
{
    return textIn(row, "Type") == type;
}

bool hasSegment(const QJsonObject& row, const char* segment)
{
    return PathText::parse(textIn(row, "Path")).base.split('/').contains(segment);
}

QJsonObject TreeWalk::take(const std::function<ApiReply()>& ask)
{
    if (isDone())
        m_reply = ask();
    return isDone() ? m_reply.document : QJsonObject();
}

void TreeWalk::refuse(const QString& message)
{
    if (isDone())
        m_reply = ApiReply::refusal(message);
}

QJsonObject TreeWalk::page(const QString& path, int from, int to)
{
    return take([&] { return m_api.rows(path, from, to); });
}

QJsonObject TreeWalk::find(const QString& list, const Match& match)
{
    for (int from = 0; from < mostRows; from += pageSize) {
        const QJsonObject read = page(list, from, from + pageSize - 1);
        const QVector<QJsonObject> rows = rowsIn(read);
        const auto found = std::find_if(rows.begin(), rows.end(), match);
        if (found != rows.end())
            return *found;
        if (rows.isEmpty() || from + pageSize >= rowsCountIn(read))
            break;
    }
    return {};
}

QJsonObject TreeWalk::need(const QString& list, const Match& match, const QString& missing)
{
    const QJsonObject row = find(list, match);
    if (row.isEmpty())
        refuse(missing);
    return row;
}

QJsonObject TreeWalk::inMenu(const QString& menu, const char* type, const char* segment,
                             const QString& missing)
{
    if (menu.isEmpty())
        refuse("this row has no context menu");
    return need(
        menu,
        [&](const QJsonObject& row) { return isOfType(row, type) && hasSegment(row, segment); },
        missing);
}

QJsonObject TreeWalk::rowAt(const QString& list, int number)
{
    const QJsonObject read = page(list, number, number);
    const QJsonObject row = rowsIn(read).value(0);
    const int count = rowsCountIn(read);
    if (row.isEmpty() || number >= count)
        refuse(QStringLiteral("there is no row %1, the last one is %2").arg(number).arg(count - 1));
    return row;
}

int TreeWalk::count(const QString& list)
{
    const QJsonObject read = page(list, 0, 0);
    return contextPath(rowsIn(read).value(0)).isEmpty() ? 0 : rowsCountIn(read);
}

int TreeWalk::countOf(const QString& list, int from, int to, const QString& wanted)
{
    const QVector<QJsonObject> rows = rowsIn(page(list, from, to));
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), [&](const QJsonObject& row) {
        return textIn(row, "Path") == wanted;
    }));
}

QJsonObject TreeWalk::data(const QString& path, const QString& language)
{
    Query query{{"path", path}};
    if (!language.isEmpty())
        query.append({"language", language});
    return objectIn(take([&] { return m_api.get("data", query); }), "data");
}

/// Menus, choosers and forms are containers of their own type, which no list of items has. The
/// menu of a node without parameters stands in its data. Not every row with parameters has data.
QString TreeWalk::menuOf(const QString& path)
{
    if (!isDone())
        return {};
    const bool isItem = path.contains('?');
    QJsonObject roles = data(path);
    if (m_reply.outcome == ApiReply::Outcome::Refused && isItem)
        m_reply.outcome = ApiReply::Outcome::Done;
    if (textIn(roles, "ContainerType") == "List")
        return path;
    if (isItem) {
        const Query query{{"path", path}};
        roles = objectIn(take([&] { return m_api.get("row", query); }), "row");
    }
    const QString menu = contextPath(roles);
    if (menu.isEmpty())
        refuse(QStringLiteral("%1 has no context menu").arg(shown(path)));
    return menu;
}

QString TreeWalk::ownCollection()
{
    const QJsonObject row = need(
        topPath(), [](const QJsonObject& one) { return hasSegment(one, "myMusic"); },
        "playlists are not offered now; they need a login (kelo login)");
    return textIn(row, "Path");
}

QString TreeWalk::ownPlaylists()
{
    const QString collection = ownCollection();
    const QJsonObject row = need(
        collection,
        [](const QJsonObject& one) {
            return isOfType(one, "Container") && hasSegment(one, "created");
        },
        QStringLiteral("%1 has no list of playlists").arg(shown(collection)));
    return textIn(row, "Path");
}

void TreeWalk::set(const QString& path, const QByteArray& value, const QString& role)
{
    take([&] { return m_api.set(path, value, role); });
}

} // namespace cli
