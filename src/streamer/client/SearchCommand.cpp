#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsTable.h"
#include "client/SearchLists.h"

namespace cli {

namespace {

constexpr int rowsOfEach = 5;

/// `kelo search`: prints the rows of the lists that a text finds.
struct SearchCommand
{
    QString text;
    QString kind; ///< one of searchKinds(); empty: the first rows of all four

    int run(const CommandContext& context) const;

private:
    /// Kind -> encoded path of its list for the text.
    using Lists = QMap<QString, QString>;

    int printAll(const CommandContext& context, const Lists& lists) const;
    void printKind(Terminal& terminal, const QString& word, const QJsonObject& page,
                   Listing& listing) const;
};

int SearchCommand::run(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const Lists lists = searchLists(walk, text);
    if (!kind.isEmpty() && !lists.contains(kind))
        walk.refuse("the service cannot search in " + kind);
    if (!walk.isDone())
        return context.finish(walk.reply());
    return kind.isEmpty() ? printAll(context, lists) : showRows(context, lists.value(kind));
}

int SearchCommand::printAll(const CommandContext& context, const Lists& lists) const
{
    QByteArray document = "{\"query\":" + json(text);
    Listing listing{context.api.server()};
    for (const QString& word : searchKinds()) {
        if (!lists.contains(word))
            continue;
        const ApiReply reply = context.api.rows(lists.value(word), 0, rowsOfEach - 1);
        if (!reply.isDone())
            return context.finish(reply);
        document += ",\"" + word.toLatin1() + "\":" + reply.body.trimmed();
        if (!context.isJson)
            printKind(context.terminal, word, reply.document, listing);
    }
    if (context.isJson)
        context.printJson(document + '}');
    else
        context.state.keep(listing);
    return ExitDone;
}

/// The rows of one kind; their numbers go on from those that are listed already.
void SearchCommand::printKind(Terminal& terminal, const QString& word, const QJsonObject& page,
                              Listing& listing) const
{
    const bool hasFound = !textIn(rowsIn(page).value(0), "Path").isEmpty();
    const int first = listing.rows.size();
    const QStringList rows = RowsTable(terminal, page, {rowsOfEach, first}).lines();
    if (hasFound)
        listing.add(page, rowsOfEach, first);
    if (!terminal.hasWidth()) {
        for (const QString& row : hasFound ? rows : QStringList())
            terminal.line(word + '\t' + row);
        return;
    }
    if (word != searchKinds().first())
        terminal.line();
    const QString found =
        hasFound ? QStringLiteral("  %1 found, all:").arg(rowsCountIn(page)) : "  nothing found";
    const QString all =
        hasFound ? "kelo search " + shellWord(shown(text)) + " --in " + word : QString();
    const bool fits = word.size() + columns(found) + 1 + columns(all) <= terminal.width();
    const QString rest = fits ? found + ' ' + all : found + "\n  " + all;
    terminal.line(terminal.styled(word, Terminal::Style::Bold) +
                  terminal.styled(hasFound ? rest : found, Terminal::Style::Dim));
    if (hasFound)
        terminal.lines(rows);
}

} // namespace

Command searchCommand()
{
    const auto search = std::make_shared<SearchCommand>();
    return Command("search", "Find albums, tracks, artists, playlists.",
                   "kelo search 'silver station'\nkelo search silver --in artists")
        .option("TEXT", search->text, "What to look for")
        .option("--in KIND", {search->kind, searchKinds()}, "One kind alone, with more rows")
        .asks([search](const CommandContext& context) { return search->run(context); });
}

} // namespace cli
