#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsTable.h"
#include "client/SearchLists.h"
#include "client/TopNodes.h"

#include <utility>

namespace cli {

namespace {

constexpr int rowsOfEach = 5;

/// `kelo search`: prints the rows of the lists that a text finds.
struct SearchCommand
{
    QString text;
    QString kind; ///< one of searchKinds(); empty: the first rows of all, and of other modules

    int run(const CommandContext& context) const;

private:
    /// Kind -> encoded path of its list for the text.
    using Lists = QMap<QString, QString>;

    /// The first rows of one kind.
    struct Hits
    {
        QString word;
        QJsonObject page;

        bool isEmpty() const { return textIn(rowsIn(page).value(0), "Path").isEmpty(); }
    };

    int printAll(const CommandContext& context, const Lists& lists) const;
    void print(const CommandContext& context, const QVector<Hits>& all) const;
    QString heading(const Terminal& terminal, const Hits& hits) const;
};

int SearchCommand::run(const CommandContext& context) const
{
    Lists lists;
    TreeWalk walk(context.api);
    const QList<TopNode> nodes = topNodes(context.api);
    for (const TopNode& node : nodes) {
        if (node.path == topPath())
            lists = searchLists(walk, text);
    }
    for (const TopNode& node : kind.isEmpty() ? nodes : QList<TopNode>()) {
        const bool isOther = node.path != topPath() && !node.searchPath.isEmpty();
        const QString list = isOther ? searchList(context.api, node.searchPath, text) : QString();
        if (!list.isEmpty())
            lists.insert(node.title, list);
    }
    if (lists.isEmpty())
        walk.refuse("there is no module that can be searched");
    if (!kind.isEmpty() && !lists.contains(kind))
        walk.refuse("the service cannot search in " + kind);
    if (!walk.isDone() && (lists.isEmpty() || !kind.isEmpty()))
        return context.finish(walk.reply());
    return kind.isEmpty() ? printAll(context, lists) : showRows(context, lists.value(kind));
}

int SearchCommand::printAll(const CommandContext& context, const Lists& lists) const
{
    QByteArray document = "{\"query\":" + json(text);
    QVector<Hits> all;
    QStringList words = searchKinds();
    for (const QString& word : lists.keys()) {
        if (!words.contains(word))
            words.append(word); // a module's title
    }
    for (const QString& word : qAsConst(words)) {
        if (!lists.contains(word))
            continue;
        const ApiReply reply = context.api.rows(lists.value(word), 0, rowsOfEach - 1);
        if (!reply.isDone())
            return context.finish(reply);
        document += ',' + json(word) + ':' + reply.body.trimmed();
        all.append({word, reply.document});
    }
    if (context.isJson)
        context.printJson(document + '}');
    else
        print(context, all);
    return ExitDone;
}

/// One table for all kinds, so that their columns stand below each other; the numbers go on.
void SearchCommand::print(const CommandContext& context, const QVector<Hits>& all) const
{
    Terminal& terminal = context.terminal;
    Listing listing{context.api.server()};
    QJsonArray rows;
    for (const Hits& hits : all) {
        if (hits.isEmpty())
            continue;
        listing.add(hits.page, rowsOfEach, rows.size());
        for (const QJsonObject& row : rowsIn(hits.page).mid(0, rowsOfEach))
            rows.append(row);
    }
    context.state.keep(listing);
    const RowsTable table(terminal, {{"rows", rows}}, {-1, 0});
    int first = 0;
    for (const Hits& hits : all) {
        const int count = hits.isEmpty() ? 0 : qMin(rowsOfEach, rowsIn(hits.page).size());
        const QStringList lines = table.lines(std::exchange(first, first + count), count);
        if (terminal.hasWidth() && hits.word != all.first().word)
            terminal.line();
        if (terminal.hasWidth())
            terminal.line(heading(terminal, hits));
        for (const QString& line : lines)
            terminal.line(terminal.hasWidth() ? line : hits.word + '\t' + line);
    }
}

/// The kind, how many there are, and the command that shows them where these are not all.
QString SearchCommand::heading(const Terminal& terminal, const Hits& hits) const
{
    const int found = rowsCountIn(hits.page);
    QString rest = hits.isEmpty() ? QStringLiteral("  nothing found")
                                  : QStringLiteral("  %1 found").arg(found);
    if (!hits.isEmpty() && found > rowsOfEach) {
        const QString all = searchKinds().contains(hits.word)
                                ? "kelo search " + shellWord(shown(text)) + " --in " + hits.word
                                : "kelo rows " + shellWord(shown(textIn(hits.page, "path")));
        const bool fits = hits.word.size() + columns(rest) + 7 + columns(all) <= terminal.width();
        rest += (fits ? ", all: " : ", all:\n  ") + all;
    }
    return terminal.styled(hits.word, Terminal::Style::Bold) +
           terminal.styled(rest, Terminal::Style::Dim);
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
