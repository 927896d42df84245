#include "client/PlayerCommands.h"

#include "client/Following.h"
#include "client/StatusView.h"

#include <QJsonDocument>
#include <QRegularExpression>

namespace cli {

namespace {

ApiReply readPlayer(ApiClient& api)
{
    return api.get(QStringLiteral("player"));
}

} // namespace

PlayerCommand PlayerCommand::play(const QString& path)
{
    return {QStringLiteral("play"), "{\"path\":" + jsonString(path) + '}'};
}

PlayerCommand PlayerCommand::volume(int percent)
{
    return {QStringLiteral("volume"), "{\"percent\":" + QByteArray::number(percent) + '}'};
}

int PlayerCommand::run(const CommandContext& context) const
{
    const ApiReply reply = context.api.post(QStringLiteral("player/") + action, body);
    if (context.isJson)
        return context.printJson(reply);
    if (reply.isDone()) {
        const bool hasState = reply.document.contains(QLatin1String("state"));
        const StatusView view(context.terminal, reply.document);
        const bool startsAnItem = action == QLatin1String("play");
        if (action == QLatin1String("volume") && !view.volume().isEmpty())
            context.terminal.line(QStringLiteral("volume  ") + view.volume());
        else
            context.terminal.line(hasState ? view.oneLine(!startsAnItem) : QStringLiteral("done"));
    }
    return context.finish(reply);
}

std::optional<qint64> SeekCommand::parse(const QString& text, bool& isRelative)
{
    static const QRegularExpression form(QStringLiteral(
        "^([+-]?)(?:(?:([0-9]{1,3}):)?([0-9]{1,5}):)?([0-9]{1,7}(?:\\.[0-9]{1,3})?)$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const double seconds = match.captured(4).toDouble();
    if (!match.captured(3).isEmpty() && seconds >= 60)
        return std::nullopt;
    const double all = match.captured(2).toInt() * 3600 + match.captured(3).toInt() * 60 + seconds;
    isRelative = !match.captured(1).isEmpty();
    return qRound64(all * 1000) * (match.captured(1) == QLatin1String("-") ? -1 : 1);
}

int SeekCommand::run(const CommandContext& context) const
{
    bool isRelative = false;
    const auto parsed = parse(place, isRelative);
    if (!parsed) {
        context.terminal.error(QStringLiteral(
            "kelo: wanted a time such as 90, 1:30 or 1:02:03, with + or - to go on or back"));
        return ExitUsage;
    }
    qint64 position = *parsed;
    if (isRelative) {
        const ApiReply now = readPlayer(context.api);
        if (!now.isDone())
            return context.finish(now);
        position += now.document.value(QLatin1String("positionMs")).toVariant().toLongLong();
        position = qMax<qint64>(0, position);
    }
    const PlayerCommand command{QStringLiteral("seek"),
                                "{\"positionMs\":" + QByteArray::number(position) + '}'};
    return command.run(context);
}

int StatusCommand::run(const CommandContext& context) const
{
    if (isFollowing)
        return follow(context);
    const ApiReply reply = readPlayer(context.api);
    if (context.isJson)
        return context.printJson(reply);
    if (reply.isDone()) {
        for (const QString& line : StatusView(context.terminal, reply.document).block())
            context.terminal.line(line);
    }
    return context.finish(reply);
}

/// The stream begins with the present state.
int StatusCommand::follow(const CommandContext& context) const
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

} // namespace cli
