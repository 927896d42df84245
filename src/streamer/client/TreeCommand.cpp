#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsTable.h"
#include "client/TreeWalk.h"

#include <QSet>

namespace cli {

namespace {

constexpr int rowsPerLevel = 50;

/// `kelo tree`: the tree as an indented outline, found by reading rows. Each container is read
/// once, at most rowsPerLevel rows of it.
struct TreeCommand
{
    QString path = topPath();
    int depth = 2;

    int run(const CommandContext& context);

private:
    /// Prints the rows of \p page and of the containers in it, down to \p depth more levels; with
    /// \p isJson nothing is printed. Gives the rows with what stands below each under "rows".
    QJsonArray descend(const CommandContext& context, const QJsonObject& page, int depth,
                       int level);
    QJsonObject visit(const CommandContext& context, const QJsonObject& row, int depth, int level);
    void note(const CommandContext& context, int level, const QString& text) const;

    QSet<QString> m_read; ///< paths whose rows stand in the outline already
};

int TreeCommand::run(const CommandContext& context)
{
    const ApiReply reply = context.api.rows(path, 0, rowsPerLevel - 1);
    if (!reply.isDone())
        return context.finish(reply);
    m_read.insert(path);
    if (!context.isJson) {
        const Terminal& terminal = context.terminal;
        context.terminal.line(terminal.styled(
            cut(RowsTable::heading(reply.document), terminal.width()), Terminal::Style::Bold));
    }
    const QJsonArray rows = descend(context, reply.document, depth, 1);
    if (context.isJson) {
        const QJsonObject tree{
            {"path", path}, {"rowsCount", reply.document.value("rowsCount")}, {"rows", rows}};
        context.printJson(json(tree));
    }
    return ExitDone;
}

QJsonArray TreeCommand::descend(const CommandContext& context, const QJsonObject& page, int depth,
                                int level)
{
    QJsonArray result;
    for (const QJsonObject& row : rowsIn(page).mid(0, rowsPerLevel))
        result.append(visit(context, row, depth, level));
    const int left = rowsCountIn(page) - result.size();
    if (left > 0)
        note(context, level, QStringLiteral("... %1 more").arg(left));
    return result;
}

QJsonObject TreeCommand::visit(const CommandContext& context, const QJsonObject& row, int depth,
                               int level)
{
    const QString path = textIn(row, "Path");
    if (!context.isJson) {
        const Terminal& terminal = context.terminal;
        const QString indent(2 * level, ' ');
        const QString place = path.isEmpty() ? QString() : shellWord(shown(path));
        const int left = terminal.width() - indent.size() - 4 - columns(place);
        // A path is never cut; where it leaves no room the line grows over the width.
        const QString title = cut(RowsTable::title(row), qMax(20, left));
        context.terminal.line(
            indent + terminal.styled(RowsTable::mark(row), Terminal::Style::Accent) + ' ' +
            terminal.styled(title, RowsTable::isDisabled(row) ? Terminal::Style::Dim
                                                              : Terminal::Style::Plain) +
            QString(place.isEmpty() ? 0 : 2, ' ') + terminal.styled(place, Terminal::Style::Dim));
    }
    QJsonObject result = row;
    if (depth <= 1 || !isContainer(row) || path.isEmpty())
        return result;
    if (m_read.contains(path)) {
        note(context, level + 1, "(shown above)");
        return result;
    }
    m_read.insert(path);
    const ApiReply below = context.api.rows(path, 0, rowsPerLevel - 1);
    if (below.isDone()) {
        result.insert("rows", descend(context, below.document, depth - 1, level + 1));
    } else {
        note(context, level + 1, QStringLiteral("(%1)").arg(below.message));
        result.insert("problem", below.message);
    }
    return result;
}

void TreeCommand::note(const CommandContext& context, int level, const QString& text) const
{
    if (!context.isJson)
        context.terminal.line(QString(2 * level, ' ') +
                              context.terminal.styled(text, Terminal::Style::Dim));
}

} // namespace

Command treeCommand()
{
    const auto tree = std::make_shared<TreeCommand>();
    return Command("tree", "Show the tree as an outline.", "kelo tree\nkelo tree /tidal --depth 3")
        .option("[PATH]", tree->path, "Where to begin (/tidal)")
        .option("--depth N", {tree->depth, 1, 16}, "Levels below it (2)")
        .asks([tree](const CommandContext& context) { return tree->run(context); });
}

} // namespace cli
