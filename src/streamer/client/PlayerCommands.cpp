#include "client/Commands.h"
#include "client/Following.h"
#include "client/PlayerCall.h"
#include "client/RowNames.h"
#include "client/StatusView.h"

#include <optional>
#include <QJsonDocument>
#include <QRegularExpression>
#include <utility>

namespace cli {

namespace {

/// Reads "90", "1:30", "1:02:03", fractions of the last part allowed, with "+" or "-" in front when
/// \p isRelative. Milliseconds; nothing when the text is no such time.
std::optional<qint64> parseTime(const QString& text, bool& isRelative)
{
    static const QRegularExpression form(
        "^([+-]?)(?:(?:([0-9]{1,3}):)?([0-9]{1,5}):)?([0-9]{1,7}(?:\\.[0-9]{1,3})?)$");
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const double seconds = match.captured(4).toDouble();
    if (!match.captured(3).isEmpty() && seconds >= 60)
        return std::nullopt;
    const double all = match.captured(2).toInt() * 3600 + match.captured(3).toInt() * 60 + seconds;
    isRelative = !match.captured(1).isEmpty();
    return qRound64(all * 1000) * (match.captured(1) == "-" ? -1 : 1);
}

/// `kelo seek`: to a place in the track, or on and back from where it is.
int seek(const CommandContext& context, const QString& place)
{
    bool isRelative = false;
    const auto parsed = parseTime(place, isRelative);
    if (!parsed) {
        context.terminal.error(
            "kelo: wanted a time such as 90, 1:30 or 1:02:03, with + or - to go on or back");
        return ExitUsage;
    }
    qint64 position = *parsed;
    if (isRelative) {
        const ApiReply now = context.api.get("player");
        if (!now.isDone())
            return context.finish(now);
        position += now.document.value("positionMs").toVariant().toLongLong();
        position = qMax<qint64>(0, position);
    }
    return tellPlayer(context, "seek", "{\"positionMs\":" + QByteArray::number(position) + '}');
}

int showStatus(const CommandContext& context)
{
    const ApiReply reply = context.api.get("player");
    return context.show(reply, [&] {
        QJsonObject player = reply.document;
        player.insert("listTitle", titleOfList(context, player));
        context.terminal.lines(StatusView(context.terminal, player).block());
    });
}

/// The stream begins with the present state.
int followStatus(const CommandContext& context)
{
    QString last;
    QString list;
    QString listTitle;
    Terminal& terminal = context.terminal;
    const auto print = [&](const QByteArray& document) {
        QJsonObject player = QJsonDocument::fromJson(document).object();
        const QString before = std::exchange(list, textIn(player, "list"));
        if (before != list || listTitle.isEmpty())
            listTitle = titleOfList(context, player);
        player.insert("listTitle", listTitle);
        const StatusView view(terminal, player);
        if (context.isJson)
            context.printJson(document);
        else if (terminal.isInteractive())
            terminal.redraw(view.block());
        else if (view.fingerprint() != last)
            terminal.line(view.oneLine());
        last = view.fingerprint();
    };
    const ApiReply stream = cli::follow(context, {}, nullptr, [&](const ServerEvent& event) {
        if (event.name == "player")
            print(event.data);
        return true;
    });
    return context.finish(stream);
}

} // namespace

Command playerCommand(const QString& name, const QString& text)
{
    return Command(name, text, "kelo " + name).asks([name](const CommandContext& context) {
        return tellPlayer(context, name);
    });
}

Command toggleCommand()
{
    return Command("toggle", "Pause, or go on.", "kelo toggle")
        .asks([](const CommandContext& context) {
            const ApiReply now = context.api.get("player");
            if (!now.isDone())
                return context.finish(now);
            const QString state = textIn(now.document, "state");
            const bool isPlaying = state == "playing" || state == "resolving";
            return tellPlayer(context, isPlaying ? "pause" : "resume");
        });
}

Command seekCommand()
{
    const auto place = std::make_shared<QString>();
    return Command("seek", "Go to a place in the track.",
                   "kelo seek 1:30\nkelo seek +15\nkelo seek -15")
        .option("TIME", *place, "Seconds, m:ss or h:mm:ss; with + or - from where it is")
        .asks([place](const CommandContext& context) { return seek(context, *place); });
}

Command statusCommand()
{
    const auto isFollowing = std::make_shared<bool>();
    return Command("status", "Show what the player does.", "kelo status\nkelo status --follow")
        .option("--follow", *isFollowing, "Go on until interrupted")
        .asks([isFollowing](const CommandContext& context) {
            return *isFollowing ? followStatus(context) : showStatus(context);
        });
}

} // namespace cli
