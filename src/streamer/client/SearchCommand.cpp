#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsTable.h"
#include "client/TreeWalk.h"

#include <QMap>

namespace cli {

namespace {

constexpr int rowsOfEach = 5;

QStringList kinds()
{
    return {"albums", "tracks", "artists", "playlists"};
}

/// `kelo search`: finds the search lists by walking the tree from the service's top node, puts the
/// text into them and prints their rows.
struct SearchCommand
{
    QString text;
    QString kind; ///< one of kinds(); empty: the first rows of all four

    int run(const CommandContext& context) const;

private:
    /// Kind -> encoded path of its list for the text.
    using Lists = QMap<QString, QString>;

    Lists findLists(TreeWalk& walk) const;
    int printAll(const CommandContext& context, const Lists& lists) const;
    static void printKind(Terminal& terminal, const QString& word, const QString& list,
                          const QJsonObject& page, Listing& listing);
};

/// Top node -> its search container -> the query row -> the lists, one per kind, told apart by the
/// last segment of their paths since titles are translated.
SearchCommand::Lists SearchCommand::findLists(TreeWalk& walk) const
{
    const QString container = textIn(objectIn(walk.page(topPath(), 0, 0), "roles"), "SearchPath");
    if (container.isEmpty())
        walk.refuse("search is not offered now; it needs a login (kelo login)");
    PathText query = PathText::parse(textIn(rowsIn(walk.page(container, 0, 0)).value(0), "Path"));
    if (query.base.isEmpty())
        walk.refuse(QStringLiteral("the search node at %1 has no query row").arg(shown(container)));
    query.parameters.insert("query", text);
    Lists lists;
    for (const QJsonObject& row : rowsIn(walk.page(query.encoded()))) {
        PathText list = PathText::parse(textIn(row, "Path"));
        list.parameters.insert("query", text);
        const QString kind = list.base.section('/', -1);
        if (kinds().contains(kind))
            lists.insert(kind, list.encoded());
    }
    if (lists.isEmpty())
        walk.refuse(QStringLiteral("the search at %1 has no lists").arg(shown(query.encoded())));
    return lists;
}

int SearchCommand::run(const CommandContext& context) const
{
    TreeWalk walk(context.api);
    const Lists lists = findLists(walk);
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
    for (const QString& word : kinds()) {
        if (!lists.contains(word))
            continue;
        const ApiReply reply = context.api.rows(lists.value(word), 0, rowsOfEach - 1);
        if (!reply.isDone())
            return context.finish(reply);
        document += ",\"" + word.toLatin1() + "\":" + reply.body.trimmed();
        if (!context.isJson)
            printKind(context.terminal, word, lists.value(word), reply.document, listing);
    }
    if (context.isJson)
        context.printJson(document + '}');
    else
        context.state.keep(listing);
    return ExitDone;
}

/// The rows of one kind; their numbers go on from those that are listed already.
void SearchCommand::printKind(Terminal& terminal, const QString& word, const QString& list,
                              const QJsonObject& page, Listing& listing)
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
    if (word != kinds().first())
        terminal.line();
    const QString found =
        hasFound ? QStringLiteral("  %1 found, all:").arg(rowsCountIn(page)) : "  nothing found";
    const QString all = hasFound ? "kelo rows " + shellWord(shown(list)) : QString();
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
                   "kelo search 'blue train'\nkelo search coltrane --in artists")
        .option("TEXT", search->text, "What to look for")
        .option("--in KIND", {search->kind, kinds()}, "One kind alone, with more rows")
        .asks([search](const CommandContext& context) { return search->run(context); });
}

} // namespace cli
