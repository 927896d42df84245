#include "client/Commands.h"
#include "client/Following.h"
#include "client/RowNames.h"
#include "client/StatusView.h"

#include <optional>
#include <QJsonDocument>
#include <QRegularExpression>

namespace cli {

namespace {

/// Tells the player something and prints what it does then. \p action is the last segment of the
/// call's path, \p body what goes with it, JSON.
int tell(const CommandContext& context, const QString& action, const QByteArray& body = "{}")
{
    const ApiReply reply = context.api.post("player/" + action, body);
    return context.show(reply, [&] {
        const StatusView view(context.terminal, reply.document);
        if (action == "volume" && !view.volume().isEmpty())
            context.terminal.line("volume  " + view.volume());
        else if (!reply.document.contains("state"))
            context.terminal.line("done");
        else
            context.terminal.line(view.oneLine(action != "play")); // which starts an item
    });
}

/// The list and the row in it go along where they are known, so that the streamer need not look.
int play(const CommandContext& context, const ListedRow& row)
{
    QJsonObject body{{"path", row.path}};
    if (!row.list.isEmpty() && row.index >= 0) {
        body.insert("list", row.list);
        body.insert("index", row.index);
    }
    return tell(context, "play", json(body));
}

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
    return tell(context, "seek", "{\"positionMs\":" + QByteArray::number(position) + '}');
}

int showStatus(const CommandContext& context)
{
    const ApiReply reply = context.api.get("player");
    return context.show(reply, [&] {
        context.terminal.lines(StatusView(context.terminal, reply.document).block());
    });
}

/// The stream begins with the present state.
int followStatus(const CommandContext& context)
{
    QString last;
    Terminal& terminal = context.terminal;
    const auto print = [&](const QByteArray& document) {
        const StatusView view(terminal, QJsonDocument::fromJson(document).object());
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

Command playCommand()
{
    const auto path = std::make_shared<QString>();
    return Command("play", "Play a row, a list or a track.", "kelo play PATH\nkelo play 12345678")
        .option("PATH", *path, "A row that can play, a list, or a track id")
        .asks([path](const CommandContext& context) {
            const auto row = namedRow(context, *path);
            return row ? play(context, *row) : ExitRefused;
        });
}

Command playerCommand(const QString& name, const QString& text)
{
    return Command(name, text, "kelo " + name).asks([name](const CommandContext& context) {
        return tell(context, name);
    });
}

Command seekCommand()
{
    const auto place = std::make_shared<QString>();
    return Command("seek", "Go to a place in the track.",
                   "kelo seek 1:30\nkelo seek +15\nkelo seek -- -15")
        .option("TIME", *place, "Seconds, m:ss or h:mm:ss; with + or - from where it is")
        .asks([place](const CommandContext& context) { return seek(context, *place); });
}

Command volumeCommand()
{
    const auto percent = std::make_shared<int>();
    return Command("volume", "Set the volume.", "kelo volume 40")
        .option("PERCENT", {*percent, 0, 100}, "0 to 100")
        .asks([percent](const CommandContext& context) {
            return tell(context, "volume", "{\"percent\":" + QByteArray::number(*percent) + '}');
        });
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
