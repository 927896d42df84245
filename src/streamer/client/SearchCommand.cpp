#include "client/SearchCommand.h"

#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsCommand.h"
#include "client/RowsTable.h"

#include <QJsonArray>

namespace cli {

namespace {

constexpr int rowsOfOne = 50;
constexpr int rowsOfEach = 5;

QString rowPath(const QJsonValue& row)
{
    return row.toObject().value(QLatin1String("Path")).toString();
}

} // namespace

QStringList SearchCommand::kinds()
{
    return {QStringLiteral("albums"), QStringLiteral("tracks"), QStringLiteral("artists"),
            QStringLiteral("playlists")};
}

/// Top node -> its search container -> the query row -> the lists, one per kind, told apart by the
/// last segment of their paths since titles are translated.
ApiReply SearchCommand::findLists(ApiClient& api, Lists& lists) const
{
    const ApiReply top = RowsCommand::fetch(api, topPath(), 0, 0);
    if (!top.isDone())
        return top;
    const QString container = top.document.value(QLatin1String("roles"))
                                  .toObject()
                                  .value(QLatin1String("SearchPath"))
                                  .toString();
    if (container.isEmpty())
        return ApiReply::refusal(
            QStringLiteral("search is not offered now; it needs a login (kelo login)"));

    const ApiReply queries = RowsCommand::fetch(api, container, 0, 0);
    if (!queries.isDone())
        return queries;
    PathText query =
        PathText::parse(rowPath(queries.document.value(QLatin1String("rows")).toArray().at(0)));
    if (query.base.isEmpty())
        return ApiReply::refusal(
            QStringLiteral("the search node at %1 has no query row").arg(shown(container)));
    query.parameters.insert(QStringLiteral("query"), text);

    const ApiReply choices = RowsCommand::fetch(api, query.encoded(), 0, 49);
    if (!choices.isDone())
        return choices;
    const QJsonArray rows = choices.document.value(QLatin1String("rows")).toArray();
    for (const QJsonValue& row : rows) {
        PathText list = PathText::parse(rowPath(row));
        list.parameters.insert(QStringLiteral("query"), text);
        if (kinds().contains(list.lastSegment()))
            lists.insert(list.lastSegment(), list.encoded());
    }
    if (lists.isEmpty())
        return ApiReply::refusal(
            QStringLiteral("the search at %1 has no lists").arg(shown(query.encoded())));
    return choices;
}

int SearchCommand::run(const CommandContext& context) const
{
    Lists lists;
    const ApiReply found = findLists(context.api, lists);
    if (!found.isDone())
        return context.finish(found);
    if (kind.isEmpty())
        return printAll(context, lists);
    if (!lists.contains(kind))
        return context.finish(
            ApiReply::refusal(QStringLiteral("the service cannot search in ") + kind));
    return printOne(context, lists.value(kind));
}

int SearchCommand::printOne(const CommandContext& context, const QString& path) const
{
    RowsCommand rows;
    rows.path = path;
    rows.to = rowsOfOne - 1;
    return rows.run(context);
}

int SearchCommand::printAll(const CommandContext& context, const Lists& lists) const
{
    QByteArray document = "{\"query\":" + jsonString(text);
    for (const QString& word : kinds()) {
        if (!lists.contains(word))
            continue;
        const ApiReply reply =
            RowsCommand::fetch(context.api, lists.value(word), 0, rowsOfEach - 1);
        if (!reply.isDone())
            return context.finish(reply);
        document += ",\"" + word.toLatin1() + "\":" + reply.body.trimmed();
        if (context.isJson)
            continue;
        Terminal& terminal = context.terminal;
        const qint64 count =
            reply.document.value(QLatin1String("rowsCount")).toVariant().toLongLong();
        if (word != kinds().first())
            terminal.line();
        if (rowPath(reply.document.value(QLatin1String("rows")).toArray().at(0)).isEmpty()) {
            terminal.line(terminal.styled(word, Terminal::Style::Bold) +
                          terminal.styled(QStringLiteral("  nothing found"), Terminal::Style::Dim));
            continue;
        }
        const QString found = QStringLiteral("  %1 found, all:").arg(count);
        const QString all = QStringLiteral("kelo rows ") + shellWord(shown(lists.value(word)));
        const bool fits = word.size() + columns(found) + 1 + columns(all) <= terminal.width();
        terminal.line(terminal.styled(word, Terminal::Style::Bold) +
                      terminal.styled(found + QLatin1String(fits ? " " : "\n  ") + all,
                                      Terminal::Style::Dim));
        for (const QString& line : RowsTable(terminal, reply.document, rowsOfEach).lines())
            terminal.line(line);
    }
    if (context.isJson)
        context.printJson(document + '}');
    return ExitDone;
}

} // namespace cli
