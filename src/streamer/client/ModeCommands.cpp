#include "client/Commands.h"
#include "client/PlayerCall.h"

namespace cli {

namespace {

/// A mode of the player: shown without a wish, else set by \p body.
int setMode(const CommandContext& context, const QString& name, const QString& wish,
            const QJsonObject& body)
{
    if (!wish.isEmpty())
        return tellPlayer(context, name, json(body));
    return showPlayer(context, [&name](const StatusView& view) {
        const QString text = view.named(name);
        return text.isEmpty() ? "this streamer cannot " + name : text;
    });
}

} // namespace

Command shuffleCommand()
{
    const auto wish = std::make_shared<QString>();
    return Command("shuffle", "Play the list in random order; without a wish, say whether it does.",
                   "kelo shuffle\nkelo shuffle on")
        .option("[WISH]", {*wish, QStringList{"on", "off"}}, "on or off")
        .asks([wish](const CommandContext& context) {
            return setMode(context, "shuffle", *wish, {{"on", *wish == "on"}});
        });
}

Command repeatCommand()
{
    const auto mode = std::make_shared<QString>();
    return Command("repeat", "Repeat the list or one item; without a mode, say which it is.",
                   "kelo repeat\nkelo repeat all")
        .option("[MODE]", {*mode, QStringList{"off", "all", "one"}}, "off, all or one")
        .asks([mode](const CommandContext& context) {
            return setMode(context, "repeat", *mode, {{"mode", *mode}});
        });
}

} // namespace cli
