#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/RowNames.h"
#include "client/RowsTable.h"
#include "client/TreeWalk.h"

namespace cli {

namespace {

/// \p row with what its action says of itself now. An action that cannot tell keeps its row, with
/// the reason. False when the streamer is gone.
bool addData(TreeWalk& walk, QJsonObject& row)
{
    const QJsonObject data = walk.data(textIn(row, "Path"));
    if (!walk.isDone()) {
        row.insert("problem", walk.reply().message);
        row.insert("Description", QStringLiteral("(%1)").arg(walk.reply().message));
    }
    for (auto it = data.begin(); it != data.end(); ++it)
        row.insert(it.key(), it.value());
    return walk.reply().outcome != ApiReply::Outcome::Unreachable;
}

/// `kelo menu`: prints the context menu of the row, list or menu at \p path, its actions with the
/// titles that they have now. It activates nothing.
int showMenu(const CommandContext& context, const QString& path, bool hasPaths)
{
    TreeWalk walk(context.api);
    QJsonObject page = walk.page(walk.menuOf(path));
    if (!walk.isDone())
        return context.finish(walk.reply());
    QJsonArray rows;
    for (QJsonObject row : rowsIn(page)) {
        TreeWalk one(context.api);
        if (isOfType(row, "Action") && !addData(one, row))
            return context.finish(one.reply());
        rows.append(row);
    }
    page.insert("rows", rows);
    if (context.isJson) {
        context.printJson(json(page));
        return ExitDone;
    }
    Listing listing{context.api.server()};
    listing.add(page);
    context.state.keep(listing);
    using Paths = RowsTable::Options::Paths;
    const Paths paths = hasPaths ? Paths::Always : Paths::Usual;
    context.terminal.lines(RowsTable(context.terminal, page, {-1, -1, paths}).lines());
    return ExitDone;
}

/// Whether the item of the action is a favourite now. The action says what it would do, so it is
/// one when it offers to take it away; asked for in English, whatever the user reads.
bool isFavorite(TreeWalk& walk, const QString& action)
{
    const QString title = textIn(walk.data(action, "en"), "Title");
    const bool isOn = title == "Remove from favorites";
    if (!isOn && title != "Add to favorites")
        walk.refuse(QStringLiteral("the menu says \"%1\", which tells nothing about favorites")
                        .arg(shown(title)));
    return isOn;
}

/// `kelo favorite`: makes the row at \p path a favourite or takes that back, by the action of its
/// context menu, which is told what the row is to be. \p wish is "on", "off" or empty: the other
/// one than now.
int makeFavorite(const CommandContext& context, const QString& path, const QString& wish)
{
    TreeWalk walk(context.api);
    const QString action =
        textIn(walk.need(
                   walk.menuOf(path),
                   [](const QJsonObject& one) {
                       return isOfType(one, "Action") && hasSegment(one, "favorites");
                   },
                   QStringLiteral("the menu of %1 has no favorite action").arg(shown(path))),
               "Path");
    const bool wasOn = isFavorite(walk, action);
    const bool isOn = wish.isEmpty() ? !wasOn : wish == "on";
    bool isConfirmed = true;
    // Only the first favourites are looked at, so a row that is not among them may be one, and a
    // missing one is no proof that it was refused.
    if (isOn != wasOn || !isOn) {
        walk.set(action, isOn ? "true" : "false", "Favorite");
        isConfirmed = isFavorite(walk, action) == isOn;
    }
    if (!walk.isDone())
        return context.finish(walk.reply());
    if (!isConfirmed)
        context.terminal.note("kelo: sent, but the menu does not show the change yet");
    if (context.isJson) {
        const QJsonObject result{
            {"favorite", isOn}, {"changed", isOn != wasOn}, {"confirmed", isConfirmed}};
        context.printJson(json(result));
        return ExitDone;
    }
    context.terminal.line(
        QStringLiteral("favorite %1%2")
            .arg((isOn ? "on" : "off"), (isOn != wasOn ? "" : " (it was already)")));
    return ExitDone;
}

} // namespace

Command menuCommand()
{
    struct Values
    {
        QString name;
        bool hasPaths = false;
    };
    const auto values = std::make_shared<Values>();
    return Command("menu", "Show the context menu of a row.",
                   "kelo menu 3        of row 3 of what was listed last\n"
                   "kelo set 0         then does what row 0 of the menu says")
        .option("PATH", values->name, "A row, a list, or a menu's own path")
        .option("--paths", values->hasPaths, "Show all paths")
        .asks([values](const CommandContext& context) {
            return atPath(context, values->name, [&](const QString& path) {
                return showMenu(context, path, values->hasPaths);
            });
        });
}

Command favoriteCommand()
{
    struct Values
    {
        QString path;
        QString wish;
    };
    const auto values = std::make_shared<Values>();
    const QStringList wishes{"on", "off"};
    return Command("favorite", "Make a row a favorite, or take that back.",
                   "kelo favorite 3\nkelo favorite 3 off")
        .option("PATH", values->path, "The row")
        .option("[on|off]", {values->wish, wishes}, "What it is to be (the other one than now)")
        .asks([values](const CommandContext& context) {
            return atPath(context, values->path, [&](const QString& path) {
                return makeFavorite(context, path, values->wish);
            });
        });
}

} // namespace cli
