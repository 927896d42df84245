#include "client/MenuCommand.h"

#include "client/DisplayText.h"
#include "client/EditSteps.h"
#include "client/RowsTable.h"
#include "client/TreeWalk.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace cli {

namespace {

/// \p row with what its action says of itself now. An action that cannot tell keeps its row, with
/// the reason.
ApiReply addData(const TreeWalk& walk, QJsonObject& row)
{
    QJsonObject data;
    const ApiReply reply = walk.data(roleText(row, "Path"), data);
    if (!reply.isDone()) {
        row.insert(QStringLiteral("problem"), reply.message);
        row.insert(QStringLiteral("Description"), QStringLiteral("(%1)").arg(reply.message));
    }
    for (auto it = data.begin(); it != data.end(); ++it)
        row.insert(it.key(), it.value());
    return reply;
}

} // namespace

int MenuCommand::run(const CommandContext& context) const
{
    const TreeWalk walk(context.api);
    QString menu;
    const ApiReply found = walk.menuOf(path, menu);
    if (!found.isDone())
        return context.finish(found);
    QJsonObject page;
    const ApiReply reply = walk.page(menu, 0, page);
    if (!reply.isDone())
        return context.finish(reply);
    QJsonArray rows = page.value(QLatin1String("rows")).toArray();
    for (QJsonValueRef value : rows) {
        QJsonObject row = value.toObject();
        if (!isAction(row))
            continue;
        const ApiReply data = addData(walk, row);
        if (data.outcome == ApiReply::Outcome::Unreachable)
            return context.finish(data);
        value = row;
    }
    page.insert(QStringLiteral("rows"), rows);
    if (context.isJson) {
        context.printJson(QJsonDocument(page).toJson(QJsonDocument::Compact));
        return ExitDone;
    }
    for (const QString& line : RowsTable(context.terminal, page).lines())
        context.terminal.line(line);
    return ExitDone;
}

/// The action says what it would do, so an item is a favourite when it offers to take it away;
/// asked for in English, whatever the user reads.
ApiReply FavoriteCommand::readState(ApiClient& api, const QString& action, State& state)
{
    const ApiReply reply =
        api.get(QStringLiteral("data"), {{QStringLiteral("path"), action},
                                         {QStringLiteral("language"), QStringLiteral("en")}});
    const QJsonObject data = reply.document.value(QLatin1String("data")).toObject();
    const QString title = roleText(data, "Title");
    state = title == QLatin1String("Remove from favorites") ? State::On
            : title == QLatin1String("Add to favorites")    ? State::Off
                                                            : State::Unknown;
    if (reply.isDone() && state == State::Unknown)
        return ApiReply::refusal(
            QStringLiteral("the menu says \"%1\", which tells nothing about favorites")
                .arg(shown(title)));
    return reply;
}

ApiReply FavoriteCommand::apply(const CommandContext& context, QJsonObject& result) const
{
    const TreeWalk walk(context.api);
    QString menu;
    ApiReply reply = walk.menuOf(path, menu);
    if (!reply.isDone())
        return reply;
    QJsonObject row;
    reply = walk.need(
        menu, [](const QJsonObject& one) { return isAction(one) && hasSegment(one, "favorites"); },
        QStringLiteral("the menu of %1 has no favorite action").arg(shown(path)), row);
    if (!reply.isDone())
        return reply;

    const QString action = roleText(row, "Path");
    State state = State::Unknown;
    reply = readState(context.api, action, state);
    if (!reply.isDone())
        return reply;
    const State wanted = wish.isEmpty() ? (state == State::On ? State::Off : State::On)
                         : wish == QLatin1String("on") ? State::On
                                                       : State::Off;
    result = {{QStringLiteral("favorite"), wanted == State::On},
              {QStringLiteral("changed"), state != wanted},
              {QStringLiteral("confirmed"), true}};
    if (state == wanted)
        return reply;
    reply = send(context.api, EditStep{action});
    if (!reply.isDone())
        return reply;
    reply = readState(context.api, action, state);
    result.insert(QStringLiteral("confirmed"), state == wanted);
    return reply;
}

int FavoriteCommand::run(const CommandContext& context) const
{
    QJsonObject result;
    const ApiReply reply = apply(context, result);
    if (!reply.isDone())
        return context.finish(reply);
    // Only the first favourites are looked at, so a missing one is no proof that it was refused.
    if (!result.value(QLatin1String("confirmed")).toBool())
        context.terminal.error(
            QStringLiteral("kelo: sent, but the menu does not show the change yet"));
    if (context.isJson) {
        context.printJson(QJsonDocument(result).toJson(QJsonDocument::Compact));
        return ExitDone;
    }
    const bool isOn = result.value(QLatin1String("favorite")).toBool();
    const bool hasChanged = result.value(QLatin1String("changed")).toBool();
    context.terminal.line(QStringLiteral("favorite %1%2")
                              .arg(QLatin1String(isOn ? "on" : "off"),
                                   QLatin1String(hasChanged ? "" : " (it was already)")));
    return ExitDone;
}

} // namespace cli
