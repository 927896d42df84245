#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/Following.h"
#include "client/RowNames.h"
#include "client/RowsTable.h"

#include <algorithm>
#include <QJsonDocument>
#include <QTime>

namespace cli {

namespace {

/// `kelo rows`: prints a page of rows and, when told to follow, prints it again after each change.
struct RowsCommand
{
    QString path; ///< of a container; before run() as it was typed
    int from = 0;
    int to = 49;
    QString roles; ///< names with commas; empty: the streamer's usual ones
    bool isFollowing = false;
    bool hasPaths = false; ///< also where they take lines of their own
    bool hasNoPaths = false;
    QString title; ///< that of the list, where it does not say it itself

    int run(const CommandContext& context) const;

private:
    /// Reads the page, and gives what to print of it: the document, or lines for people.
    ApiReply read(const CommandContext& context, QStringList& lines) const;
    /// Adds the values to a page that shows settings or choices, and for a person how long items
    /// last and what playlists say of themselves; as it was when they cannot be had.
    QJsonObject withMore(const CommandContext& context, QJsonObject page) const;
    int follow(const CommandContext& context) const;
};

int RowsCommand::run(const CommandContext& context) const
{
    if (isFollowing)
        return follow(context);
    QStringList lines;
    const ApiReply reply = read(context, lines);
    return context.show(reply, [&] { context.terminal.lines(lines); });
}

ApiReply RowsCommand::read(const CommandContext& context, QStringList& lines) const
{
    const QString wanted = roles.isEmpty() ? context.fields.join(',') : roles;
    const ApiReply reply = context.api.rows(path, from, to, wanted);
    if (!reply.isDone() || context.isJson)
        return reply;
    const QJsonObject page = withMore(context, reply.document);
    const int got = rowsIn(page).size();
    const int first = page.value("from").toInt();
    const int all = rowsCountIn(page);
    const QString range =
        got == 0 ? QString() : QStringLiteral(", here %1 to %2").arg(first).arg(first + got - 1);
    const Terminal& terminal = context.terminal;
    Listing listing{context.api.server()};
    listing.add(page);
    context.state.keep(listing);
    if (!terminal.hasWidth()) {
        lines += RowsTable(terminal, page).lines();
        return reply;
    }
    const QString count = QStringLiteral("  %1 %2%3")
                              .arg(all)
                              .arg(all == 1 ? "row" : "rows", got < all ? range : QString());
    lines.append(terminal.styled(cut(title.isEmpty() ? RowsTable::heading(page) : shown(title),
                                     qMax(8, terminal.width() - columns(count))),
                                 Terminal::Style::Bold) +
                 terminal.styled(count, Terminal::Style::Dim));
    using Paths = RowsTable::Options::Paths;
    const Paths paths = hasPaths ? Paths::Always : hasNoPaths ? Paths::Never : Paths::Usual;
    lines += RowsTable(terminal, page, {-1, -1, paths}).lines();
    return reply;
}

/// These are no usual roles of a row, so they are asked for where a row can have them.
QJsonObject RowsCommand::withMore(const CommandContext& context, QJsonObject page) const
{
    QVector<QJsonObject> rows = rowsIn(page);
    const auto isItem = [](const QJsonObject& row) {
        return textIn(row, "Type") == "Audio" || !textIn(row, "Id").isEmpty();
    };
    QStringList more;
    if (std::any_of(rows.begin(), rows.end(), &RowsTable::hasValue))
        more.append("Value");
    if (context.terminal.isInteractive() && std::any_of(rows.begin(), rows.end(), isItem))
        more << "Duration"
             << "Summary";
    if (!roles.isEmpty() || more.isEmpty())
        return page;
    const ApiReply reply = context.api.rows(path, from, to, more.join(','));
    const QVector<QJsonObject> values = rowsIn(reply.document);
    const QString version = "rowsVersion";
    if (!reply.isDone() || values.size() != rows.size() ||
        reply.document.value(version) != page.value(version))
        return page;
    QJsonArray filled;
    for (int i = 0; i < rows.size(); ++i) {
        for (const QString& role : qAsConst(more))
            rows[i].insert(role, values.at(i).value(role));
        filled.append(rows.at(i));
    }
    page.insert("rows", filled);
    return page;
}

/// The path is opened before the first page is read, so that no change in between is missed. Rows
/// that cannot be had now may come back, at the next login for one.
int RowsCommand::follow(const CommandContext& context) const
{
    Terminal& terminal = context.terminal;
    bool hasPrinted = false;
    bool isDone = false;           ///< the last page was read
    QHash<QString, bool> loggedIn; ///< by the name of the service
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
            const QString time = QTime::currentTime().toString("HH:mm:ss");
            terminal.redraw(lines, terminal.styled(time + "  " + change, Terminal::Style::Dim));
        } else {
            if (hasPrinted)
                terminal.line();
            terminal.lines(lines);
            context.finish(reply);
        }
        hasPrinted = true;
    };
    const ApiReply stream = cli::follow(
        context, {path}, [&] { show("following, Ctrl-C ends"); },
        [&](const ServerEvent& event) {
            const QJsonObject body = QJsonDocument::fromJson(event.data).object();
            if (event.name == "rows")
                show(changeText(body.value("change")));
            const QString service = textIn(body, "service");
            const QJsonValue now = body.value("loggedIn");
            if (event.name == "login" && now.isBool()) {
                const bool isOther =
                    loggedIn.contains(service) && loggedIn.value(service) != now.toBool();
                loggedIn.insert(service, now.toBool());
                // Nodes that wait for a login tell nobody when it comes.
                if (isOther && !isDone)
                    show("login");
            }
            return true;
        },
        {{"logins", "1"}});
    return context.finish(stream);
}

} // namespace

Command rowsCommand()
{
    const auto rows = std::make_shared<RowsCommand>();
    return Command("rows", "Show a page of a container's rows.",
                   "kelo rows /tidal\nkelo rows 0\nkelo rows /tidal/req/featured/new/albums --from "
                   "50 --to 99\n"
                   "kelo rows /tidal/myMusic --json Title,Path")
        .option("PATH", rows->path, "The container")
        .option("--from N", rows->from, "First row (0)")
        .option("--to N", rows->to, "Last row (49)")
        .option("--roles A,B", rows->roles, "Roles wanted, with commas between")
        .option("--paths", rows->hasPaths, "Show all paths")
        .option("--follow", rows->isFollowing, "Show them again whenever they change")
        .asks([rows](const CommandContext& context) {
            return atPath(context, rows->path, [&](const QString& path) {
                rows->path = path;
                rows->title = nameOfList(context, path);
                return rows->run(context);
            });
        });
}

int showRows(const CommandContext& context, const QString& path, const QString& title)
{
    RowsCommand rows;
    rows.title = title;
    rows.hasNoPaths = !title.isEmpty();
    rows.path = path;
    return rows.run(context);
}

} // namespace cli
