#include "client/Commands.h"
#include "client/RowNames.h"
#include "client/TopNodes.h"

namespace cli {

namespace {

/// `kelo open`: shows a place in the streamer's page, in the browser of this desktop; where there
/// is none the address alone.
int openPage(const CommandContext& context, const QString& path)
{
    const ApiReply health = context.api.probe("/healthz");
    if (!health.isDone())
        return context.finish(health);
    const QString address = context.api.server() + (path == "/" ? path : "/#" + path);
    const bool isOpen = context.openAddress && context.openAddress(address);
    if (context.isJson)
        context.printJson(json(QJsonObject{{"address", address}, {"opened", isOpen}}));
    else
        context.terminal.line(address);
    return ExitDone;
}

} // namespace

Command openCommand()
{
    const auto name = std::make_shared<QString>();
    return Command("open", "Open the page in a browser, and print its address.",
                   "kelo open\nkelo open /tidal/new")
        .option("[PATH]", *name, "What it shows (its home)")
        .asks([name](const CommandContext& context) {
            return name->isEmpty() ? openPage(context, beginPath(context.api))
                                   : atPath(context, *name, [&](const QString& path) {
                                         return openPage(context, path);
                                     });
        });
}

} // namespace cli
