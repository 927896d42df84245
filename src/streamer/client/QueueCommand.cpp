#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PlayerCall.h"
#include "client/RowNames.h"
#include "client/RowsTable.h"

namespace cli {

namespace {

const char* const queuePath = "player/queue";

/// `kelo queue` and its commands: what plays after the present item. Positions count from 0, what
/// was put in by hand stands in front.
struct QueueCommand
{
    int from = 0;
    int to = 49;
    QStringList names; ///< rows to add, as they were typed
    bool isNext = false;
    int position = 0;
    int target = INT_MAX; ///< of a move
    int count = 1;

    int show(const CommandContext& context) const;
    int add(const CommandContext& context) const;
    int move(const CommandContext& context) const;
    int remove(const CommandContext& context) const;
    int clear(const CommandContext& context) const;

private:
    /// An edit of positions, which are those of one version of the queue. Shows the rows around
    /// them afterwards.
    int edit(const CommandContext& context, QJsonObject body) const;
};

QString heading(const CommandContext& context, const QJsonObject& page)
{
    const Terminal& terminal = context.terminal;
    const QString list = shown(titleOfList(context, page));
    const int queued = page.value("queued").toInt();
    const int rows = rowsCountIn(page);
    const int got = rowsIn(page).size();
    const int first = page.value("from").toInt();
    QString count =
        rows == 0 ? QStringLiteral("  nothing to come") : QStringLiteral("  %1 to come").arg(rows);
    if (queued > 0)
        count += QStringLiteral(", %1 queued").arg(queued);
    if (got > 0 && got < rows)
        count += QStringLiteral(", here %1 to %2").arg(first).arg(first + got - 1);
    const QString name = list.isEmpty() ? QStringLiteral("Queue") : "Playing from " + list;
    return terminal.styled(cut(name, qMax(8, terminal.width() - columns(count))),
                           Terminal::Style::Bold) +
           terminal.styled(count, Terminal::Style::Dim);
}

int QueueCommand::show(const CommandContext& context) const
{
    const ApiReply reply =
        context.api.get(queuePath, {{"from", QString::number(from)}, {"to", QString::number(to)}});
    return context.show(reply, [&] {
        Terminal& terminal = context.terminal;
        Listing listing{context.api.server()};
        listing.queueVersion = reply.document.value("version").toVariant().toLongLong();
        listing.add(reply.document);
        if (terminal.hasWidth())
            terminal.line(heading(context, reply.document));
        context.state.keep(listing);
        terminal.lines(
            RowsTable(terminal, reply.document, {-1, -1, RowsTable::Options::Paths::Never})
                .lines());
    });
}

int QueueCommand::add(const CommandContext& context) const
{
    QJsonArray paths;
    ListedRow last;
    for (const QString& name : names) {
        const auto row = namedRow(context, name);
        if (!row)
            return ExitRefused;
        last = *row;
        paths.append(row->path);
    }
    QJsonObject body{{"action", "add"}, {"at", isNext ? "next" : "end"}};
    if (paths.size() > 1) {
        body.insert("paths", paths);
    } else {
        body.insert("path", last.path);
        if (!last.list.isEmpty() && last.index >= 0) {
            body.insert("list", last.list);
            body.insert("index", last.index);
        }
    }
    const ApiReply reply = context.api.post(queuePath, json(body));
    return context.show(reply, [&] {
        context.terminal.line(QStringLiteral("added %1, %2 queued")
                                  .arg(isNext ? "next" : "at the end")
                                  .arg(reply.document.value("queued").toInt()));
    });
}

int QueueCommand::edit(const CommandContext& context, QJsonObject body) const
{
    const auto version = queueVersion(context);
    if (!version)
        return ExitRefused;
    body.insert("version", *version);
    const ApiReply reply = context.api.post(queuePath, json(body));
    if (!reply.isDone() || context.isJson)
        return context.printJson(reply);
    constexpr int rowsAround = 10;
    QueueCommand around;
    around.from = qMax(0, qMin(position, target) - 2);
    around.to = around.from + rowsAround - 1;
    return around.show(context);
}

int QueueCommand::move(const CommandContext& context) const
{
    return edit(context, {{"action", "move"}, {"position", position}, {"to", target}});
}

int QueueCommand::remove(const CommandContext& context) const
{
    return edit(context, {{"action", "remove"}, {"position", position}, {"count", count}});
}

int QueueCommand::clear(const CommandContext& context) const
{
    const ApiReply reply = context.api.post(queuePath, R"({"action":"clear"})");
    return context.show(reply, [&] { context.terminal.line("cleared; what plays goes on"); });
}

} // namespace

Command queueCommand()
{
    using Run = int (QueueCommand::*)(const CommandContext&) const;
    const auto values = std::make_shared<QueueCommand>();
    Command all("queue", "Show what plays next, and change it.",
                "kelo queue\n"
                "kelo queue move 2 0\n"
                "kelo play 3                      go on there, when the queue was listed last\n"
                "kelo queue add 0 3 --next        rows of what was listed last");
    all.option("--from N", values->from, "First position (0)")
        .option("--to N", values->to, "Last position (49)")
        .asks([values](const CommandContext& context) { return values->show(context); });
    const auto add = [&](const QString& name, const QString& text, const QString& examples,
                         Run run) -> Command& {
        all.commands.append(
            Command(name, text, examples).asks([values, run](const CommandContext& context) {
                return (*values.*run)(context);
            }));
        return all.commands.last();
    };
    const char* const position = "The position, from 0 on";
    add("add", "Queue rows or whole lists.", "kelo queue add 0\nkelo queue add 0 --next",
        &QueueCommand::add)
        .option("PATH", values->names, "Rows that can play, lists, or track ids")
        .option("--next", values->isNext, "In front of what is queued, not behind it");
    add("move", "Move what stands at a position.", "kelo queue move 2 0", &QueueCommand::move)
        .option("FROM", {values->position, 0, INT_MAX}, position)
        .option("TO", {values->target, 0, INT_MAX}, "The position it gets");
    add("remove", "Remove what stands at a position.",
        "kelo queue remove 1\nkelo queue remove 1 2        two of them", &QueueCommand::remove)
        .option("POSITION", {values->position, 0, INT_MAX}, position)
        .option("[COUNT]", {values->count, 1, INT_MAX}, "How many from there on (1)");
    add("clear", "Remove everything that comes.", "kelo queue clear", &QueueCommand::clear);
    return all;
}

std::optional<qint64> queueVersion(const CommandContext& context)
{
    const auto listing = context.state.listing(context.api.server());
    if (listing && listing->queueVersion >= 0)
        return listing->queueVersion;
    const ApiReply reply = context.api.get(queuePath, {{"from", "0"}, {"to", "0"}});
    if (context.finish(reply) != ExitDone)
        return std::nullopt;
    return reply.document.value("version").toVariant().toLongLong();
}

int jumpInQueue(const CommandContext& context, int position, qint64 version)
{
    const ApiReply reply = context.api.post(
        queuePath,
        json(QJsonObject{{"action", "jump"}, {"position", position}, {"version", version}}));
    if (!reply.isDone() || context.isJson)
        return context.printJson(reply);
    return showPlayer(context, [](const StatusView& view) { return view.oneLine(false); });
}

} // namespace cli
