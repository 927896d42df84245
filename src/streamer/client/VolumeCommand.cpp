#include "client/Commands.h"
#include "client/PlayerCall.h"

#include <QRegularExpression>

namespace cli {

namespace {

/// The volume that the player has now; nothing when it does not say, which is printed.
std::optional<int> volumeNow(const CommandContext& context)
{
    ApiReply reply = context.api.get("player");
    if (reply.isDone() && !reply.document.value("volume").isDouble())
        reply = ApiReply::refusal("the streamer does not say its volume");
    if (context.finish(reply) != ExitDone)
        return std::nullopt;
    return reply.document.value("volume").toInt();
}

int showVolume(const CommandContext& context, const ApiReply& reply)
{
    return context.show(reply, [&] {
        const int before = context.state.volumeBefore(context.api.server());
        const int now = reply.document.value("volume").toInt(-1);
        const QString text = StatusView(context.terminal, reply.document).named("volume");
        const QString was = QStringLiteral("muted, was %1 %").arg(before);
        const QString muted = context.terminal.hasWidth() ? " (" + was + ')' : '\t' + was;
        context.terminal.line(now < 0 ? QStringLiteral("done")
                                      : text + (now == 0 && before > 0 ? muted : QString()));
    });
}

int setVolume(const CommandContext& context, int percent)
{
    const QByteArray body = "{\"percent\":" + QByteArray::number(percent) + '}';
    return showVolume(context, context.api.post("player/volume", body));
}

/// `kelo volume`: sets it, changes it or, without a wish, shows it.
int changeVolume(const CommandContext& context, const QString& wish)
{
    if (wish.isEmpty())
        return showVolume(context, context.api.get("player"));
    int percent = wish.toInt();
    if (wish.startsWith('+') || wish.startsWith('-')) {
        const auto now = volumeNow(context);
        if (!now)
            return ExitRefused;
        percent = qBound(0, *now + percent, 100);
    }
    context.state.keepVolumeBefore(context.api.server(), 0);
    return setVolume(context, percent);
}

/// `kelo mute`: no sound, and the volume from before again. \p wish is "on", "off" or empty: the
/// other one than now.
int mute(const CommandContext& context, const QString& wish)
{
    const auto now = volumeNow(context);
    if (!now)
        return ExitRefused;
    const QString server = context.api.server();
    const bool isOn = wish.isEmpty() ? *now > 0 : wish == "on";
    if (isOn && *now > 0)
        context.state.keepVolumeBefore(server, *now);
    if (isOn)
        return setVolume(context, 0);
    const int before = context.state.volumeBefore(server);
    if (*now == 0 && before == 0)
        return context.finish(ApiReply::refusal(
            "the volume from before the mute is not known here; say one: kelo volume 40"));
    context.state.keepVolumeBefore(server, 0);
    return setVolume(context, *now > 0 ? *now : before);
}

} // namespace

Command volumeCommand()
{
    const auto wish = std::make_shared<QString>();
    OptionTarget target([wish](const QString& given) {
        static const QRegularExpression form("\\A[+-]?[0-9]{1,3}\\z");
        *wish = given;
        return form.match(given).hasMatch() && qAbs(given.toInt()) <= 100;
    });
    target.wanted = "a number from 0 to 100, with + or - to change it";
    return Command("volume", "Show or set the volume.",
                   "kelo volume\nkelo volume 40\nkelo volume +5\nkelo volume -5")
        .option("[PERCENT]", target, "0 to 100; with + or - from what it is")
        .asks([wish](const CommandContext& context) { return changeVolume(context, *wish); });
}

Command muteCommand()
{
    const auto wish = std::make_shared<QString>();
    return Command("mute", "Turn the sound off, and on again as loud as it was.",
                   "kelo mute\nkelo mute off")
        .option("[on|off]", {*wish, QStringList{"on", "off"}},
                "What it is to be (the other one than now)")
        .asks([wish](const CommandContext& context) { return mute(context, *wish); });
}

} // namespace cli
