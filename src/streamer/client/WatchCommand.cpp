#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/Following.h"
#include "client/PathText.h"
#include "client/RowNames.h"
#include "client/TopNodes.h"

#include <QJsonDocument>
#include <QTime>

namespace cli {

namespace {

/// `kelo watch`: keeps \p paths open and prints each change notice, and each edit that any client
/// makes, as one line. Waits for a streamer that goes away. It reads no rows.
int watch(const CommandContext& context, const QStringList& paths)
{
    const auto named = namedPaths(context, paths);
    if (!named)
        return ExitRefused;
    const QStringList watched = named->isEmpty() ? QStringList{beginPath(context.api)} : *named;
    const bool hasWidth = context.terminal.hasWidth();
    const auto pathText = [hasWidth](const QJsonValue& path) {
        return hasWidth ? shellWord(valueText(path)) : valueText(path);
    };
    const ApiReply stream = follow(context, watched, nullptr, [&](const ServerEvent& event) {
        const bool isEdit = event.name == "acted";
        if (event.name != "rows" && !isEdit)
            return true;
        if (context.isJson) {
            context.printJson(event.data);
            return true;
        }
        const QJsonObject notice = QJsonDocument::fromJson(event.data).object();
        QStringList words{QTime::currentTime().toString("HH:mm:ss")};
        if (isEdit)
            words << pathText(notice.value(notice.contains("item") ? "item" : "path"))
                  << valueText(notice.value("action"));
        else
            words << pathText(notice.value("path")) << changeText(notice.value("change"))
                  << valueText(notice.value("count"));
        context.terminal.line(words.join(hasWidth ? "  " : "\t"));
        return true;
    });
    return context.finish(stream);
}

} // namespace

Command watchCommand()
{
    const auto paths = std::make_shared<QStringList>();
    return Command("watch",
                   "Print each change notice (time, path, change, count) and each edit "
                   "(time, path, what was done).",
                   "kelo watch /tidal\nkelo watch --json /tidal/myMusic /tidal/new")
        .option("[PATH]", *paths, "Paths to keep open (the service's top)")
        .asks([paths](const CommandContext& context) { return watch(context, *paths); });
}

} // namespace cli
