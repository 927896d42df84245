#include "client/PlayerCall.h"

namespace cli {

int tellPlayer(const CommandContext& context, const QString& action, const QByteArray& body)
{
    const ApiReply reply = context.api.post("player/" + action, body);
    return context.show(reply, [&] {
        const StatusView view(context.terminal, reply.document);
        const QString told = view.named(action); // what a call like "volume" changes
        if (!told.isEmpty())
            context.terminal.line(told);
        else if (!reply.document.contains("state"))
            context.terminal.line("done");
        else
            context.terminal.line(view.oneLine(action != "play")); // which starts an item
    });
}

int showPlayer(const CommandContext& context, const std::function<QString(const StatusView&)>& line)
{
    const ApiReply reply = context.api.get("player");
    return context.show(
        reply, [&] { context.terminal.line(line(StatusView(context.terminal, reply.document))); });
}

} // namespace cli
