#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/Following.h"
#include "client/PathText.h"

#include <QJsonDocument>
#include <QTime>

namespace cli {

namespace {

/// `kelo watch`: keeps \p paths open and prints each change notice as one line. Waits for a
/// streamer that goes away. It reads no rows.
int watch(const CommandContext& context, const QStringList& paths)
{
    const QStringList watched = paths.isEmpty() ? QStringList{topPath()} : paths;
    const ApiReply stream = follow(context, watched, nullptr, [&](const ServerEvent& event) {
        if (event.name != "rows")
            return true;
        if (context.isJson) {
            context.printJson(event.data);
            return true;
        }
        const QJsonObject notice = QJsonDocument::fromJson(event.data).object();
        const QString path = textIn(notice, "path");
        context.terminal.line(
            QStringList{QTime::currentTime().toString("HH:mm:ss"), shellWord(shown(path)),
                        changeText(notice.value("change")), valueText(notice.value("count"))}
                .join("  "));
        return true;
    });
    return context.finish(stream);
}

} // namespace

Command watchCommand()
{
    const auto paths = std::make_shared<QStringList>();
    return Command("watch", "Print each change notice: time, path, change, count.",
                   "kelo watch /tidal\nkelo watch --json PATH PATH")
        .option("[PATH]", *paths, "Paths to keep open (/tidal)")
        .asks([paths](const CommandContext& context) { return watch(context, *paths); });
}

} // namespace cli
