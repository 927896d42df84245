#include "client/Commands.h"
#include "client/PlayerCall.h"

namespace cli {

namespace {

/// A mode of the player: shown when none is given, else set by \p body.
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
    return Command("shuffle", "Play the list in random order or not; or say which.",
                   "kelo shuffle\nkelo shuffle on")
        .option("[on|off]", {*wish, QStringList{"on", "off"}},
                "What it is to be (it says what it is)")
        .asks([wish](const CommandContext& context) {
            return setMode(context, "shuffle", *wish, {{"on", *wish == "on"}});
        });
}

Command repeatCommand()
{
    const auto mode = std::make_shared<QString>();
    return Command("repeat", "Repeat the list, one item or nothing; or say which.",
                   "kelo repeat\nkelo repeat all")
        .option("[off|all|one]", {*mode, QStringList{"off", "all", "one"}},
                "What it is to be (it says what it is)")
        .asks([mode](const CommandContext& context) {
            return setMode(context, "repeat", *mode, {{"mode", *mode}});
        });
}

} // namespace cli
