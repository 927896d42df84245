#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowNames.h"
#include "client/TreeWalk.h"

namespace cli {

namespace {

/// One value that an edit sends to a node.
struct EditStep
{
    QString path;
    QByteArray value = "1"; ///< JSON
};

using EditSteps = QVector<EditStep>;

/// Prints what would be sent, each step as the command that sends it, or as one JSON document.
void printDryRun(const CommandContext& context, const EditSteps& steps)
{
    QByteArray document;
    for (const EditStep& step : steps) {
        if (!context.isJson)
            context.terminal.line(
                QStringLiteral("kelo set %1 %2")
                    .arg(shellWord(shown(step.path)),
                         shellWord(QString::fromUtf8(printableJson(step.value)))));
        document += document.isEmpty() ? "" : ",";
        document +=
            "{\"method\":\"set\",\"path\":" + json(step.path) + ",\"value\":" + step.value + '}';
    }
    if (context.isJson)
        context.printJson("{\"wouldSend\":[" + document + "]}");
}

/// The ids of the rows of \p list, with their titles; none when they cannot be read.
QMap<QString, QString> readIds(ApiClient& api, const QString& list)
{
    TreeWalk walk(api);
    QMap<QString, QString> ids;
    walk.find(list, [&ids](const QJsonObject& row) {
        ids.insert(textIn(row, "Id"), textIn(row, "Title"));
        return false;
    });
    return walk.isDone() ? ids : QMap<QString, QString>();
}

/// The one id of \p after that is not in \p before; of several the one that is called \p title.
QString newId(const QMap<QString, QString>& before, QMap<QString, QString> after,
              const QString& title)
{
    for (const QString& id : before.keys())
        after.remove(id);
    const QStringList named = after.keys(title);
    return named.size() == 1 ? named.first() : after.size() == 1 ? after.firstKey() : QString();
}

TreeWalk::Match hasId(const QString& id)
{
    return [id](const QJsonObject& row) { return textIn(row, "Id") == id; };
}

QString quotedTitle(const QJsonObject& row)
{
    return QStringLiteral("\"%1\"").arg(shown(textIn(row, "Title")));
}

/// The commands of `kelo playlist`: they find the menus, choosers and forms that a screen would
/// show, fill them in and submit them. Everything is looked up before anything is sent. Actions
/// answer the same whether the service took them or not, so where it can be told the lists are
/// looked at afterwards.
struct PlaylistCommand
{
    QString name; ///< what a person calls the playlist by, see findPlaylist()
    QString title;
    QString description;
    QStringList paths; ///< rows to add
    int row = 0;
    int target = 0;
    bool isDryRun = false;
    bool isSure = false; ///< nothing is asked

    int list(const CommandContext& context) const;
    int show(const CommandContext& context) const;
    int create(const CommandContext& context) const;
    int rename(const CommandContext& context) const;
    int destroy(const CommandContext& context) const;
    int add(const CommandContext& context) const;
    /// Removes one row of the playlist.
    int remove(const CommandContext& context) const;
    int move(const CommandContext& context) const;

private:
    QJsonObject findPlaylist(const CommandContext& context, TreeWalk& walk) const;
    EditSteps fillForm(TreeWalk& walk, const QString& form) const;
    /// Sends the steps if everything was found, and has \p check refuse when the edit has not
    /// happened.
    int finish(const CommandContext& context, TreeWalk& walk, const EditSteps& steps,
               const QString& done, const std::function<void()>& check = nullptr) const;
};

/// By id, path, title, or number in what the terminal listed last.
QJsonObject PlaylistCommand::findPlaylist(const CommandContext& context, TreeWalk& walk) const
{
    const auto listing = context.state.listing(context.api.server());
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    const ListedRow* listed = isNumber && listing ? listing->at(number) : nullptr;
    const QString wanted = listed ? listed->path : name;

    QVector<QJsonObject> own;
    Listing titles;
    const QJsonObject found = walk.find(walk.ownPlaylists(), [&](const QJsonObject& row) {
        if (!isOfType(row, "Container"))
            return false;
        titles.rows.append({own.size(), textIn(row, "Title"), textIn(row, "Path")});
        own.append(row);
        return textIn(row, "Id") == wanted || textIn(row, "Path") == wanted;
    });
    if (!found.isEmpty())
        return found;
    const QVector<ListedRow> named = titles.called(wanted);
    if (named.isEmpty() && listed)
        walk.refuse(QStringLiteral("row %1 of the last listing, \"%2\", is none of your playlists "
                                   "(kelo playlist list)")
                        .arg(number)
                        .arg(shown(listed->title)));
    else if (named.isEmpty())
        walk.refuse(QStringLiteral("none of your playlists has the title or id %1 (kelo playlist "
                                   "list)")
                        .arg(shown(wanted)));
    else if (named.size() > 1)
        walk.refuse(QStringLiteral("%1 of your playlists may be \"%2\"; take a number of kelo "
                                   "playlist list")
                        .arg(named.size())
                        .arg(shown(wanted)));
    return named.isEmpty() ? QJsonObject() : own.at(named.first().number);
}

/// Both fields are filled, so that nothing of an earlier, failed submission is sent along.
EditSteps PlaylistCommand::fillForm(TreeWalk& walk, const QString& form) const
{
    EditSteps steps;
    const QJsonObject page = walk.page(form);
    for (const QJsonObject& field : rowsIn(page)) {
        if (isOfType(field, "Text") && hasSegment(field, "title"))
            steps.append({textIn(field, "Path"), json(title)});
        else if (isOfType(field, "Text") && hasSegment(field, "description"))
            steps.append({textIn(field, "Path"), json(description)});
    }
    const QString accept = textIn(objectIn(page, "roles"), "AcceptPath");
    if (steps.size() != 2 || accept.isEmpty())
        walk.refuse(
            QStringLiteral("%1 is no form with a title and a description").arg(shown(form)));
    return steps << EditStep{accept};
}

int PlaylistCommand::finish(const CommandContext& context, TreeWalk& walk, const EditSteps& steps,
                            const QString& done, const std::function<void()>& check) const
{
    if (walk.isDone() && isDryRun) {
        printDryRun(context, steps);
        return ExitDone;
    }
    for (const EditStep& step : steps)
        walk.set(step.path, step.value);
    if (walk.isDone() && context.isJson)
        context.printJson(walk.reply().body);
    if (walk.isDone() && check)
        check();
    if (walk.isDone() && !context.isJson)
        context.terminal.line(done);
    return context.finish(walk.reply());
}

int PlaylistCommand::list(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QString all = walk.ownPlaylists();
    return walk.isDone() ? showRows(context, all, "My playlists") : context.finish(walk.reply());
}

int PlaylistCommand::show(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QJsonObject playlist = findPlaylist(context, walk);
    const QString path = textIn(playlist, "Path");
    return walk.isDone() ? showRows(context, path, textIn(playlist, "Title"))
                         : context.finish(walk.reply());
}

int PlaylistCommand::create(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QString list = walk.ownPlaylists();
    const QVector<QJsonObject> collection = rowsIn(walk.page(walk.ownCollection()));
    const EditSteps steps = fillForm(walk, textIn(collection.value(collection.size() - 1), "Path"));
    if (!walk.isDone() || isDryRun)
        return finish(context, walk, steps, QString());

    const QMap<QString, QString> before = readIds(context.api, list);
    for (const EditStep& step : steps)
        walk.set(step.path, step.value);
    if (!walk.isDone())
        return context.finish(walk.reply());
    const QString made = newId(before, readIds(context.api, list), title);
    if (context.isJson)
        context.printJson("{\"id\":" + (made.isEmpty() ? "null" : json(made)) + '}');
    else
        context.terminal.line(QStringLiteral("created %1").arg(shown(made)).trimmed());
    return ExitDone;
}

int PlaylistCommand::rename(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QJsonObject playlist = findPlaylist(context, walk);
    const QJsonObject form = walk.inMenu(contextPath(playlist), "Container", "updatePlaylists");
    return finish(context, walk, fillForm(walk, textIn(form, "Path")),
                  QStringLiteral("renamed %1 to \"%2\"").arg(quotedTitle(playlist), shown(title)));
}

int PlaylistCommand::destroy(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QJsonObject playlist = findPlaylist(context, walk);
    const QJsonObject action = walk.inMenu(contextPath(playlist), "Action", "removeFromPlaylists");
    const bool isAsked = walk.isDone() && !isDryRun && !isSure && context.confirm;
    if (isAsked &&
        !context.confirm(QStringLiteral("delete the playlist %1?").arg(quotedTitle(playlist))))
        return context.finish(ApiReply::refusal("not deleted"));
    return finish(context, walk, {{textIn(action, "Path")}},
                  QStringLiteral("deleted %1").arg(quotedTitle(playlist)), [&] {
                      const TreeWalk::Match isIt = hasId(textIn(playlist, "Id"));
                      if (!walk.find(walk.ownPlaylists(), isIt).isEmpty())
                          walk.refuse("sent, but the playlist is still there; the service refused");
                  });
}

/// The chooser of each row's menu lists the playlists that the row can be added to.
int PlaylistCommand::add(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QJsonObject playlist = findPlaylist(context, walk);
    const QString list = textIn(playlist, "Path");
    const int before = walk.count(list);
    const TreeWalk::Match isWanted = hasId(textIn(playlist, "Id"));
    EditSteps steps;
    const auto named = namedPaths(context, paths);
    if (!named)
        return ExitRefused;
    for (const QString& path : *named) {
        const QJsonObject chooser =
            walk.inMenu(walk.menuOf(path), "Container", "addToPlaylists",
                        QStringLiteral("%1 cannot be added to a playlist").arg(shown(path)));
        const QJsonObject action = walk.need(
            textIn(chooser, "Path"),
            [&](const QJsonObject& one) { return isOfType(one, "Action") && isWanted(one); },
            QStringLiteral("%1 cannot be added to %2").arg(shown(path), quotedTitle(playlist)));
        steps.append({textIn(action, "Path")});
    }
    const QString what =
        steps.size() == 1 ? QString() : QStringLiteral("%1 items ").arg(steps.size());
    return finish(context, walk, steps,
                  QStringLiteral("added %1to %2").arg(what, quotedTitle(playlist)), [&] {
                      if (walk.count(list) <= before)
                          walk.refuse(
                              "sent, but the playlist has not grown; the service refused, or "
                              "nothing of this can be played");
                  });
}

/// Afterwards the row is looked for where it and its neighbours were, since a service that shows
/// the playlist in another order than its own takes the row's number for another item.
int PlaylistCommand::remove(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QString list = textIn(findPlaylist(context, walk), "Path");
    const QJsonObject item = walk.rowAt(list, row);
    const QString path = textIn(item, "Path");
    const QJsonObject action = walk.inMenu(contextPath(item), "Action", "removeFromPlaylists");
    const int first = qMax(0, row - 1);
    const int before = walk.countOf(list, first, row + 1, path);
    return finish(context, walk, {{textIn(action, "Path")}},
                  QStringLiteral("removed %1").arg(quotedTitle(item)), [&] {
                      if (walk.countOf(list, first, row, path) >= before)
                          walk.refuse(
                              "sent, but the row is still there: the service refused, or the "
                              "playlist is shown in another order than its own");
                  });
}

/// The menu that moves an item has two rows: where to, and the action.
int PlaylistCommand::move(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const QJsonObject item = walk.rowAt(textIn(findPlaylist(context, walk), "Path"), row);
    const QString menu = textIn(walk.inMenu(contextPath(item), "Container", "moveTrack"), "Path");
    const QJsonObject field = walk.inMenu(menu, "Text", "moveTrack");
    const QJsonObject action = walk.inMenu(menu, "Action", "moveTrack");
    return finish(context, walk,
                  {{textIn(field, "Path"), QByteArray::number(target)}, {textIn(action, "Path")}},
                  QStringLiteral("moved %1 to %2").arg(quotedTitle(item)).arg(target));
}

} // namespace

Command playlistCommand()
{
    using Run = int (PlaylistCommand::*)(const CommandContext&) const;
    const auto values = std::make_shared<PlaylistCommand>();
    Command all("playlist", "Show, make and change playlists.",
                "kelo playlist list\n"
                "kelo playlist show 'Morning commute'\n"
                "kelo playlist create 'Late evening' --description 'quiet ones'\n"
                "kelo playlist add 'Late evening' 0 1    rows of what was listed last");
    const auto add = [&](const QString& name, const QString& text, const QString& examples,
                         Run run) -> Command& {
        all.commands.append(
            Command(name, text, examples).asks([values, run](const CommandContext& context) {
                return (*values.*run)(context);
            }));
        return all.commands.last();
    };
    const auto addEdit = [&](const QString& name, const QString& text, const QString& examples,
                             Run run) -> Command& {
        return add(name, text, examples, run)
            .option("--dry-run", values->isDryRun, "Only say what would be sent");
    };
    const auto addTitle = [&](Command& command) {
        command.option("TITLE", values->title, "Its title")
            .option("--description TEXT", values->description, "Its description");
    };
    const auto addName = [&](Command& command) -> Command& {
        return command.option("PLAYLIST", values->name,
                              "The playlist's title or id, or its number in what was listed last");
    };
    add("list", "List your playlists.", "kelo playlist list", &PlaylistCommand::list);
    addName(add("show", "List what is in a playlist.", "kelo playlist show 'Morning commute'",
                &PlaylistCommand::show));
    addTitle(addEdit("create", "Make a playlist and print its id.",
                     "kelo playlist create 'Late evening'\n"
                     "kelo playlist create -- '-1-'",
                     &PlaylistCommand::create));
    addTitle(addName(
        addEdit("rename", "Give a playlist another title; without a description it keeps its own.",
                "kelo playlist rename 'Empty one' 'Rainy days'", &PlaylistCommand::rename)));
    addName(addEdit("delete", "Delete a playlist, once you have said yes where a terminal can ask.",
                    "kelo playlist delete 'Films only'\n"
                    "kelo playlist delete 'Late evening' --yes",
                    &PlaylistCommand::destroy))
        .option("-y --yes", values->isSure, "Ask nothing");
    addName(addEdit("add", "Add tracks, albums or other playlists at the end of a playlist.",
                    "kelo playlist add 'Morning commute' 0 1    rows of what was listed last",
                    &PlaylistCommand::add))
        .option("PATH", values->paths, "Rows, or their menus");
    const char* const number = "The row's number, from 0 on";
    addName(addEdit("remove", "Remove one row of a playlist.",
                    "kelo playlist remove 'Morning commute' 4", &PlaylistCommand::remove))
        .option("ROW", {values->row, 0, INT_MAX}, number);
    addName(addEdit("move", "Move one row of a playlist.",
                    "kelo playlist move 'Morning commute' 3 0", &PlaylistCommand::move))
        .option("FROM", {values->row, 0, INT_MAX}, number)
        .option("TO", {values->target, 0, INT_MAX}, "The number it gets");
    return all;
}

} // namespace cli
