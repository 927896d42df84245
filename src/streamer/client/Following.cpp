#include "client/Following.h"

#include <QJsonArray>

namespace cli {

ApiReply follow(const CommandContext& context, const QStringList& paths,
                const std::function<void()>& onOpen,
                const std::function<bool(const ServerEvent&)>& onEvent, const Query& more)
{
    if (context.endOnInterrupt)
        context.endOnInterrupt();
    Terminal& terminal = context.terminal;
    bool wasOpen = false;
    bool isGone = false;
    bool isEnough = false;
    const auto tell = [&terminal](const QString& text) {
        terminal.keep(); // what is drawn stays above the message
        terminal.note(text);
    };
    for (;;) {
        const ApiReply reply = context.api.events(
            paths,
            [&] {
                if (isGone)
                    tell("kelo: the streamer is back");
                wasOpen = true;
                isGone = false;
                if (onOpen)
                    onOpen();
            },
            [&](const ServerEvent& event) {
                isEnough = !onEvent(event);
                return !isEnough;
            },
            more);
        if (isEnough || !wasOpen || !context.waitASecond)
            return reply;
        if (!isGone)
            tell(QStringLiteral("kelo: the streamer at %1 is gone; waiting for it (Ctrl-C ends)")
                     .arg(context.api.server()));
        isGone = true;
        if (!context.waitASecond())
            return reply;
    }
}

QString changeText(const QJsonValue& change)
{
    if (!change.isArray())
        return valueText(change);
    QStringList words;
    for (const auto& word : change.toArray())
        words.append(valueText(word));
    return words.join(',');
}

} // namespace cli
