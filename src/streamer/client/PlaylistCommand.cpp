#include "client/PlaylistCommand.h"

#include "client/DisplayText.h"

#include <QJsonArray>
#include <QSet>

namespace cli {

namespace {

/// Looks for the row of \p row's context menu that \p match accepts and has \p segment in its path.
ApiReply findInMenu(const TreeWalk& walk, const QString& menu, bool (*match)(const QJsonObject&),
                    const char* segment, QJsonObject& row)
{
    if (menu.isEmpty())
        return ApiReply::refusal(QStringLiteral("this row has no context menu"));
    return walk.need(
        menu, [&](const QJsonObject& one) { return match(one) && hasSegment(one, segment); },
        QStringLiteral("the menu %1 does not offer this").arg(shown(menu)), row);
}

/// The ids of the rows of \p list, with their titles.
QMap<QString, QString> readIds(const TreeWalk& walk, const QString& list)
{
    QMap<QString, QString> ids;
    QJsonObject none;
    const ApiReply reply = walk.find(
        list,
        [&ids](const QJsonObject& row) {
            ids.insert(roleText(row, "Id"), roleText(row, "Title"));
            return false;
        },
        none);
    return reply.isDone() ? ids : QMap<QString, QString>();
}

/// The one id of \p after that is not in \p before; of several the one that is called \p title.
QString newId(const QMap<QString, QString>& before, const QMap<QString, QString>& after,
              const QString& title)
{
    QStringList fresh;
    QStringList named;
    for (auto it = after.begin(); it != after.end(); ++it) {
        if (before.contains(it.key()))
            continue;
        fresh.append(it.key());
        if (it.value() == title)
            named.append(it.key());
    }
    return named.size() == 1 ? named.first() : fresh.size() == 1 ? fresh.first() : QString();
}

using Match = TreeWalk::Match;

Match hasId(const QString& id)
{
    return [id](const QJsonObject& row) { return roleText(row, "Id") == id; };
}

QString quotedTitle(const QJsonObject& row)
{
    return QStringLiteral("\"%1\"").arg(shown(roleText(row, "Title")));
}

} // namespace

ApiReply PlaylistCommand::findCollection(const TreeWalk& walk, QString& path)
{
    QJsonObject row;
    const ApiReply reply = walk.need(
        topPath(), [](const QJsonObject& one) { return hasSegment(one, "myMusic"); },
        QStringLiteral("playlists are not offered now; they need a login (kelo login)"), row);
    path = roleText(row, "Path");
    return reply;
}

ApiReply PlaylistCommand::findPlaylists(const TreeWalk& walk, QString& list)
{
    QString collection;
    ApiReply reply = findCollection(walk, collection);
    if (!reply.isDone())
        return reply;
    QJsonObject row;
    reply = walk.need(
        collection,
        [](const QJsonObject& one) { return isContainer(one) && hasSegment(one, "created"); },
        QStringLiteral("%1 has no list of playlists").arg(shown(collection)), row);
    list = roleText(row, "Path");
    return reply;
}

ApiReply PlaylistCommand::findPlaylist(const TreeWalk& walk, QJsonObject& playlist) const
{
    QString list;
    const ApiReply reply = findPlaylists(walk, list);
    if (!reply.isDone())
        return reply;
    return walk.need(
        list,
        [this](const QJsonObject& row) {
            return isContainer(row) && (roleText(row, "Id") == id || roleText(row, "Path") == id);
        },
        QStringLiteral("none of your playlists has the id %1").arg(shown(id)), playlist);
}

ApiReply PlaylistCommand::findItem(const TreeWalk& walk, QString& list, QJsonObject& item) const
{
    QJsonObject playlist;
    const ApiReply reply = findPlaylist(walk, playlist);
    list = roleText(playlist, "Path");
    return reply.isDone() ? walk.rowAt(list, row, item) : reply;
}

/// Both fields are filled, so that nothing of an earlier, failed submission is sent along.
ApiReply PlaylistCommand::fillForm(const TreeWalk& walk, const QString& form,
                                   EditSteps& steps) const
{
    QJsonObject page;
    const ApiReply reply = walk.page(form, 0, page);
    if (!reply.isDone())
        return reply;
    for (const QJsonValue& value : page.value(QLatin1String("rows")).toArray()) {
        const QJsonObject field = value.toObject();
        if (isField(field) && hasSegment(field, "title"))
            steps.append({roleText(field, "Path"), jsonString(title)});
        else if (isField(field) && hasSegment(field, "description"))
            steps.append({roleText(field, "Path"), jsonString(description)});
    }
    const QString accept = roleText(page.value(QLatin1String("roles")).toObject(), "AcceptPath");
    if (steps.size() != 2 || accept.isEmpty())
        return ApiReply::refusal(
            QStringLiteral("%1 is no form with a title and a description").arg(shown(form)));
    steps.append({accept});
    return reply;
}

int PlaylistCommand::finish(const CommandContext& context, const ApiReply& found,
                            const EditSteps& steps, const QString& done, const Check& check) const
{
    if (!found.isDone())
        return context.finish(found);
    if (isDryRun) {
        printDryRun(context, steps);
        return ExitDone;
    }
    const ApiReply sent = send(context.api, steps);
    if (sent.isDone() && context.isJson)
        context.printJson(sent.body);
    const ApiReply reply = sent.isDone() && check ? check() : sent;
    if (reply.isDone() && !context.isJson)
        context.terminal.line(done);
    return context.finish(reply);
}

int PlaylistCommand::create(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QString collection;
    QString list;
    QJsonObject page;
    EditSteps steps;
    ApiReply reply = findPlaylists(walk, list);
    if (reply.isDone())
        reply = findCollection(walk, collection);
    if (reply.isDone())
        reply = walk.page(collection, 0, page);
    if (reply.isDone()) {
        const QJsonArray rows = page.value(QLatin1String("rows")).toArray();
        reply = fillForm(walk, roleText(rows.last().toObject(), "Path"), steps);
    }
    if (!reply.isDone() || isDryRun)
        return finish(context, reply, steps, QString());

    const QMap<QString, QString> before = readIds(walk, list);
    reply = send(context.api, steps);
    if (!reply.isDone())
        return context.finish(reply);
    const QString made = newId(before, readIds(walk, list), title);
    if (context.isJson)
        context.printJson("{\"id\":" + (made.isEmpty() ? "null" : jsonString(made)) + '}');
    else
        context.terminal.line(QStringLiteral("created %1").arg(shown(made)).trimmed());
    return ExitDone;
}

int PlaylistCommand::rename(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QJsonObject playlist;
    QJsonObject form;
    EditSteps steps;
    ApiReply reply = findPlaylist(walk, playlist);
    if (reply.isDone())
        reply = findInMenu(walk, contextPath(playlist), isContainer, "updatePlaylists", form);
    if (reply.isDone())
        reply = fillForm(walk, roleText(form, "Path"), steps);
    return finish(context, reply, steps,
                  QStringLiteral("renamed %1 to \"%2\"").arg(quotedTitle(playlist), shown(title)));
}

int PlaylistCommand::destroy(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QJsonObject playlist;
    QJsonObject action;
    ApiReply reply = findPlaylist(walk, playlist);
    if (reply.isDone())
        reply = findInMenu(walk, contextPath(playlist), isAction, "removeFromPlaylists", action);
    const Check isGone = [&] {
        QString list;
        QJsonObject left;
        ApiReply now = findPlaylists(walk, list);
        if (now.isDone())
            now = walk.find(list, hasId(roleText(playlist, "Id")), left);
        return left.isEmpty() ? now
                              : ApiReply::refusal(QStringLiteral(
                                    "sent, but the playlist is still there; the service refused"));
    };
    return finish(context, reply, {{roleText(action, "Path")}},
                  QStringLiteral("deleted %1").arg(quotedTitle(playlist)), isGone);
}

/// The chooser of each row's menu lists the playlists that the row can be added to.
int PlaylistCommand::add(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QJsonObject playlist;
    EditSteps steps;
    int before = 0;
    ApiReply reply = findPlaylist(walk, playlist);
    const QString list = roleText(playlist, "Path");
    if (reply.isDone())
        reply = walk.count(list, before);
    const Match isWanted = hasId(roleText(playlist, "Id"));
    for (const QString& path : paths) {
        QString menu;
        QJsonObject chooser;
        QJsonObject action;
        if (reply.isDone())
            reply = walk.menuOf(path, menu);
        if (reply.isDone())
            reply = findInMenu(walk, menu, isContainer, "addToPlaylists", chooser);
        if (reply.isDone())
            reply = walk.need(
                roleText(chooser, "Path"),
                [&](const QJsonObject& one) { return isAction(one) && isWanted(one); },
                QStringLiteral("%1 cannot be added to %2").arg(shown(path), quotedTitle(playlist)),
                action);
        steps.append({roleText(action, "Path")});
    }
    const Check hasGrown = [&] {
        int after = 0;
        const ApiReply now = walk.count(list, after);
        return !now.isDone() || after > before
                   ? now
                   : ApiReply::refusal(QStringLiteral(
                         "sent, but the playlist has not grown; the service refused, or nothing of "
                         "this can be played"));
    };
    const QString what =
        steps.size() == 1 ? QString() : QStringLiteral("%1 items ").arg(steps.size());
    return finish(context, reply, steps,
                  QStringLiteral("added %1to %2").arg(what, quotedTitle(playlist)), hasGrown);
}

/// Afterwards the row is looked for where it and its neighbours were, since a service that shows
/// the playlist in another order than its own takes the row's number for another item.
int PlaylistCommand::remove(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QString list;
    QJsonObject item;
    QJsonObject action;
    int before = 0;
    const int first = qMax(0, row - 1);
    ApiReply reply = findItem(walk, list, item);
    const QString path = roleText(item, "Path");
    if (reply.isDone())
        reply = findInMenu(walk, contextPath(item), isAction, "removeFromPlaylists", action);
    if (reply.isDone())
        reply = walk.countOf(list, first, row + 1, path, before);
    const Check isGone = [&] {
        int after = 0;
        const ApiReply now = walk.countOf(list, first, row, path, after);
        return after < before ? now
                              : ApiReply::refusal(QStringLiteral(
                                    "sent, but the row is still there: the service refused, or the "
                                    "playlist is shown in another order than its own"));
    };
    return finish(context, reply, {{roleText(action, "Path")}},
                  QStringLiteral("removed %1").arg(quotedTitle(item)), isGone);
}

/// The menu that moves an item has two rows: where to, and the action.
int PlaylistCommand::move(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QString list;
    QJsonObject item;
    QJsonObject mover;
    QJsonObject field;
    QJsonObject action;
    ApiReply reply = findItem(walk, list, item);
    if (reply.isDone())
        reply = findInMenu(walk, contextPath(item), isContainer, "moveTrack", mover);
    const QString menu = roleText(mover, "Path");
    if (reply.isDone())
        reply = findInMenu(walk, menu, isField, "moveTrack", field);
    if (reply.isDone())
        reply = findInMenu(walk, menu, isAction, "moveTrack", action);
    return finish(
        context, reply,
        {{roleText(field, "Path"), QByteArray::number(target)}, {roleText(action, "Path")}},
        QStringLiteral("moved %1 to %2").arg(quotedTitle(item)).arg(target));
}

} // namespace cli
