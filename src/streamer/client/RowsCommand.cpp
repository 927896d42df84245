#include "client/RowsCommand.h"

#include "client/DisplayText.h"
#include "client/RowsTable.h"

#include <algorithm>
#include <QJsonArray>

namespace cli {

ApiReply RowsCommand::fetch(ApiClient& api, const QString& path, int from, int to,
                            const QString& roles)
{
    Query query{{QStringLiteral("path"), path},
                {QStringLiteral("from"), QString::number(from)},
                {QStringLiteral("to"), QString::number(to)}};
    if (!roles.isEmpty())
        query.append({QStringLiteral("roles"), roles});
    return api.get(QStringLiteral("rows"), query);
}

int RowsCommand::run(const CommandContext& context) const
{
    if (isFollowing)
        return follow(context);
    return context.finish(print(context));
}

ApiReply RowsCommand::print(const CommandContext& context) const
{
    const ApiReply reply = fetch(context.api, path, from, to, roles);
    if (!reply.isDone())
        return reply;
    if (context.isJson) {
        context.printJson(reply.body);
        return reply;
    }
    const QJsonObject page = withValues(context.api, reply.document);
    const int got = page.value(QLatin1String("rows")).toArray().size();
    const qint64 first = page.value(QLatin1String("from")).toVariant().toLongLong();
    const qint64 all = page.value(QLatin1String("rowsCount")).toVariant().toLongLong();
    const QString range =
        got == 0 ? QString() : QStringLiteral(", here %1 to %2").arg(first).arg(first + got - 1);
    Terminal& terminal = context.terminal;
    const QString count = QStringLiteral("  %1 rows%2").arg(all).arg(got < all ? range : QString());
    terminal.line(
        terminal.styled(cut(RowsTable::heading(page), qMax(8, terminal.width() - columns(count))),
                        Terminal::Style::Bold) +
        terminal.styled(count, Terminal::Style::Dim));
    for (const QString& line : RowsTable(terminal, page).lines())
        terminal.line(line);
    return reply;
}

/// Values are no usual role of a row, so they are asked for where a row can have one.
QJsonObject RowsCommand::withValues(ApiClient& api, QJsonObject page) const
{
    QJsonArray rows = page.value(QLatin1String("rows")).toArray();
    const bool hasValues = std::any_of(rows.begin(), rows.end(), [](const QJsonValue& row) {
        return RowsTable::hasValue(row.toObject());
    });
    if (!roles.isEmpty() || !hasValues)
        return page;
    const ApiReply reply = fetch(api, path, from, to, QStringLiteral("Value"));
    const QJsonArray values = reply.document.value(QLatin1String("rows")).toArray();
    const QString version = QStringLiteral("rowsVersion");
    if (!reply.isDone() || values.size() != rows.size() ||
        reply.document.value(version) != page.value(version))
        return page;
    for (int i = 0; i < rows.size(); ++i) {
        QJsonObject row = rows.at(i).toObject();
        const QString name = QStringLiteral("Value");
        row.insert(name, values.at(i).toObject().value(name));
        rows.replace(i, row);
    }
    page.insert(QStringLiteral("rows"), rows);
    return page;
}

/// The path is opened before the first page is read, so that no change in between is missed.
int RowsCommand::follow(const CommandContext& context) const
{
    ApiReply last;
    const auto printAgain = [&] {
        last = print(context);
        if (last.outcome == ApiReply::Outcome::Refused)
            context.finish(last); // the rows may come back, at the next login for one
        return last.outcome != ApiReply::Outcome::Unreachable;
    };
    bool isReachable = true;
    const ApiReply stream = context.api.events(
        {path}, [&] { isReachable = printAgain(); },
        [&](const ServerEvent& event) {
            if (isReachable && event.name == "rows") {
                if (!context.isJson)
                    context.terminal.line();
                isReachable = printAgain();
            }
            return isReachable;
        });
    return context.finish(isReachable ? stream : last);
}

} // namespace cli
