#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowNames.h"
#include "client/TreeWalk.h"

namespace cli {

namespace {

bool hasParameter(const QJsonObject& row, const char* name, const char* value = nullptr)
{
    const auto parameters = PathText::parse(textIn(row, "Path")).parameters;
    return parameters.contains(name) && (!value || parameters.value(name) == value);
}

/// The page of the artist at \p path, or of the first artist in the menu of a track.
QString artistOf(TreeWalk& walk, const QString& path)
{
    const PathText place = PathText::parse(path);
    if (place.parameters.contains("artistId") && !place.parameters.contains("trackId"))
        return path;
    const QJsonObject artist = walk.need(
        walk.menuOf(path),
        [](const QJsonObject& row) {
            return isOfType(row, "Container") && hasParameter(row, "artistId");
        },
        QStringLiteral("%1 leads to no artist").arg(shown(path)));
    return textIn(artist, "Path");
}

/// The service's text: line breaks are its only markup.
void printText(Terminal& terminal, const QString& text)
{
    constexpr int mostColumns = 100;
    QString plain = text;
    plain.replace("<br/>", "\n").replace("<br>", "\n");
    for (const QString& line : plain.split('\n')) {
        if (terminal.hasWidth())
            terminal.lines(wrapped(shown(line), qMin(terminal.width(), mostColumns)));
        else
            terminal.line(shown(line));
    }
}

/// `kelo bio`: the biography of an artist, of a track's artist, or of who plays.
int showBio(const CommandContext& context, QString path)
{
    TreeWalk walk(context.api);
    if (path.isEmpty()) {
        const ApiReply player = context.api.get("player");
        if (!player.isDone())
            return context.finish(player);
        path = textIn(player.document, "path");
        if (path.isEmpty())
            walk.refuse("nothing plays; name an artist");
    }
    const QString artist = artistOf(walk, path);
    const QString action =
        textIn(walk.need(
                   artist,
                   [](const QJsonObject& row) { return hasParameter(row, "artistContent", "bio"); },
                   "the service has no biography here"),
               "Path");
    walk.set(action);
    return context.show(walk.reply(), [&] {
        const QJsonObject result =
            objectIn(walk.reply().document.value("reply").toObject(), "result");
        printText(context.terminal, textIn(result, "Description"));
    });
}

} // namespace

Command bioCommand()
{
    const auto name = std::make_shared<QString>();
    return Command("bio", "Show the biography of an artist.",
                   "kelo bio                         of who plays\n"
                   "kelo bio '/tidal/req/artists?artistId=900292'")
        .option("[PATH]", *name, "An artist or a track (what plays)")
        .asks([name](const CommandContext& context) {
            return name->isEmpty() ? showBio(context, {})
                                   : atPath(context, *name, [&](const QString& path) {
                                         return showBio(context, path);
                                     });
        });
}

} // namespace cli
