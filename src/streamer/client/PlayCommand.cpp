#include "client/Commands.h"
#include "client/PathText.h"
#include "client/PlayerCall.h"
#include "client/RowNames.h"
#include "client/SearchLists.h"

namespace cli {

namespace {

/// `kelo play`: a row, by path, number or title, a track by its id, or what a search finds first;
/// without any of them it goes on.
struct PlayCommand
{
    QString name;
    QString search;
    QString kind; ///< of searchKinds(); empty: any

    int run(const CommandContext& context) const;

private:
    static int play(const CommandContext& context, ListedRow row);
};

/// The list of an artist's page that playing the artist means; empty when \p path is none.
QString topTracksOf(TreeWalk& walk, const QString& path)
{
    const auto parameters = PathText::parse(path).parameters;
    for (const char* other : {"artistContent", "trackId", "contentId"}) {
        if (parameters.contains(other))
            return {};
    }
    if (!parameters.contains("artistId"))
        return {};
    const QJsonObject row = walk.find(path, [](const QJsonObject& one) {
        return PathText::parse(textIn(one, "Path")).parameters.value("artistContent") ==
               "toptracks";
    });
    return textIn(row, "Path");
}

/// The list and the row in it go along where they are known, so that the streamer need not look.
int PlayCommand::play(const CommandContext& context, ListedRow row)
{
    TreeWalk walk(context.api);
    const QString tracks = topTracksOf(walk, row.path);
    if (!tracks.isEmpty())
        row = {-1, {}, tracks};
    QJsonObject body{{"path", row.path}};
    if (!row.list.isEmpty() && row.index >= 0) {
        body.insert("list", row.list);
        body.insert("index", row.index);
    }
    return tellPlayer(context, "play", json(body));
}

int PlayCommand::run(const CommandContext& context) const
{
    if (!search.isEmpty()) {
        TreeWalk walk(context.api);
        const ListedRow hit = bestHit(walk, search, kind);
        return walk.isDone() ? play(context, hit) : context.finish(walk.reply());
    }
    if (name.isEmpty())
        return tellPlayer(context, "resume");
    const auto row = namedRow(context, name);
    if (row && row->queueVersion >= 0)
        return jumpInQueue(context, row->number, row->queueVersion);
    return row ? play(context, *row) : ExitRefused;
}

} // namespace

Command playCommand()
{
    const auto play = std::make_shared<PlayCommand>();
    return Command("play", "Play a row, a list or a track.",
                   "kelo play --search 'silver station'\n"
                   "kelo play --search 'silver station' --in albums\n"
                   "kelo play 0                      row 0 of what was listed last\n"
                   "kelo play /tidal/req/featured/new/tracks")
        .option("[PATH]", play->name,
                "A row that can play, a list, an artist, or a track id (else it goes on)")
        .option("--search TEXT", play->search, "Play the best hit of a search")
        .option("--in KIND", {play->kind, searchKinds()}, "Of one kind alone")
        .asks([play](const CommandContext& context) { return play->run(context); });
}

} // namespace cli
