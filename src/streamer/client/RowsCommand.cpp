#include "client/RowsCommand.h"

#include "client/DisplayText.h"
#include "client/Following.h"
#include "client/RowsTable.h"
#include "client/WatchCommand.h"

#include <algorithm>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTime>

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
    QStringList lines;
    const ApiReply reply = read(context, lines);
    if (context.isJson)
        return context.printJson(reply);
    for (const QString& line : lines)
        context.terminal.line(line);
    return context.finish(reply);
}

ApiReply RowsCommand::read(const CommandContext& context, QStringList& lines) const
{
    const ApiReply reply = fetch(context.api, path, from, to, roles);
    if (!reply.isDone() || context.isJson)
        return reply;
    const QJsonObject page = withValues(context.api, reply.document);
    const int got = page.value(QLatin1String("rows")).toArray().size();
    const qint64 first = page.value(QLatin1String("from")).toVariant().toLongLong();
    const qint64 all = page.value(QLatin1String("rowsCount")).toVariant().toLongLong();
    const QString range =
        got == 0 ? QString() : QStringLiteral(", here %1 to %2").arg(first).arg(first + got - 1);
    const Terminal& terminal = context.terminal;
    const QString count = QStringLiteral("  %1 rows%2").arg(all).arg(got < all ? range : QString());
    lines.append(
        terminal.styled(cut(RowsTable::heading(page), qMax(8, terminal.width() - columns(count))),
                        Terminal::Style::Bold) +
        terminal.styled(count, Terminal::Style::Dim));
    lines += RowsTable(terminal, page).lines();
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

/// The path is opened before the first page is read, so that no change in between is missed. Rows
/// that cannot be had now may come back, at the next login for one.
int RowsCommand::follow(const CommandContext& context) const
{
    Terminal& terminal = context.terminal;
    bool hasPrinted = false;
    bool isDone = false; ///< the last page was read
    QJsonValue loggedIn;
    const auto show = [&](const QString& change) {
        QStringList lines;
        const ApiReply reply = read(context, lines);
        if (reply.outcome == ApiReply::Outcome::Unreachable)
            return; // the stream ends as well, and says so
        isDone = reply.isDone();
        if (context.isJson) {
            context.printJson(reply);
        } else if (terminal.isInteractive()) {
            if (!reply.isDone())
                lines.append(terminal.styled(reply.message, Terminal::Style::Bad));
            const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
            terminal.redraw(
                lines, terminal.styled(time + QStringLiteral("  ") + change, Terminal::Style::Dim));
        } else {
            if (hasPrinted)
                terminal.line();
            for (const QString& line : lines)
                terminal.line(line);
            context.finish(reply);
        }
        hasPrinted = true;
    };
    const ApiReply stream = cli::follow(
        context, {path}, [&] { show(QStringLiteral("following, Ctrl-C ends")); },
        [&](const ServerEvent& event) {
            const QJsonObject body = QJsonDocument::fromJson(event.data).object();
            if (event.name == "rows")
                show(WatchCommand::changeText(body.value(QLatin1String("change"))));
            const QJsonValue now = body.value(QLatin1String("loggedIn"));
            if (event.name == "login" && now.isBool()) {
                const QJsonValue before = std::exchange(loggedIn, now);
                // Nodes that wait for a login tell nobody when it comes.
                if (before.isBool() && before != now && !isDone)
                    show(QStringLiteral("login"));
            }
            return true;
        });
    return context.finish(stream);
}

} // namespace cli
