#include "client/Commands.h"
#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowNames.h"
#include "client/RowsTable.h"
#include "client/TopNodes.h"
#include "client/TreeWalk.h"

#include <QSet>

namespace cli {

namespace {

constexpr int rowsPerLevel = 50;

/// `kelo tree`: the tree as an indented outline, found by reading rows. Each container is read
/// once, at most rowsPerLevel rows of it.
class TreeOutline
{
public:
    explicit TreeOutline(const CommandContext& context)
        : m_context(context), m_terminal(context.terminal)
    {
    }

    int print(const QString& path, int depth);

private:
    /// Prints the rows of \p page and of the containers in it, down to \p depth more levels; with
    /// JSON wanted nothing is printed. Gives the rows with what stands below each under "rows".
    QJsonArray descend(const QJsonObject& page, int depth, int level);
    QJsonObject visit(QJsonObject row, int depth, int level);
    void printRow(const QJsonObject& row, int level) const;
    void note(int level, const QString& text) const;

    const CommandContext& m_context;
    Terminal& m_terminal;
    QSet<QString> m_read; ///< paths whose rows stand in the outline already
};

int TreeOutline::print(const QString& path, int depth)
{
    const ApiReply reply = m_context.api.rows(path, 0, rowsPerLevel - 1);
    if (!reply.isDone())
        return m_context.finish(reply);
    m_read.insert(path);
    if (!m_context.isJson && m_terminal.hasWidth())
        m_terminal.line(m_terminal.styled(
            cut(RowsTable::heading(reply.document), m_terminal.width()), Terminal::Style::Bold));
    const QJsonArray rows = descend(reply.document, depth, 1);
    if (m_context.isJson)
        m_context.printJson(json(QJsonObject{
            {"path", path}, {"rowsCount", reply.document.value("rowsCount")}, {"rows", rows}}));
    return ExitDone;
}

QJsonArray TreeOutline::descend(const QJsonObject& page, int depth, int level)
{
    QJsonArray result;
    for (const QJsonObject& row : rowsIn(page).mid(0, rowsPerLevel))
        result.append(visit(row, depth, level));
    const int left = rowsCountIn(page) - result.size();
    if (left > 0)
        note(level, QStringLiteral("... %1 more").arg(left));
    return result;
}

QJsonObject TreeOutline::visit(QJsonObject row, int depth, int level)
{
    const QString path = textIn(row, "Path");
    if (!m_context.isJson)
        printRow(row, level);
    if (depth <= 1 || !isOfType(row, "Container") || path.isEmpty())
        return row;
    if (m_read.contains(path)) {
        note(level + 1, "(shown above)");
        return row;
    }
    m_read.insert(path);
    const ApiReply below = m_context.api.rows(path, 0, rowsPerLevel - 1);
    if (below.isDone()) {
        row.insert("rows", descend(below.document, depth - 1, level + 1));
    } else {
        note(level + 1, QStringLiteral("(%1)").arg(below.message));
        row.insert("problem", below.message);
    }
    return row;
}

void TreeOutline::printRow(const QJsonObject& row, int level) const
{
    using Style = Terminal::Style;
    const QString indent(2 * level, ' ');
    const QString path = textIn(row, "Path");
    if (!m_terminal.hasWidth()) {
        m_terminal.line(QStringList{QString::number(level), textIn(row, "Type"),
                                    RowsTable::title(row), shown(path)}
                            .join('\t'));
        return;
    }
    const QString place = path.isEmpty() ? QString() : shellWord(shown(path));
    const int left = m_terminal.width() - indent.size() - 4 - columns(place);
    // A path is never cut; where it leaves no room the line grows over the width.
    const QString title = cut(RowsTable::title(row), qMax(20, left));
    m_terminal.line(
        indent + m_terminal.styled(RowsTable::mark(row), Style::Accent) + ' ' +
        m_terminal.styled(title, RowsTable::isDisabled(row) ? Style::Dim : Style::Plain) +
        QString(place.isEmpty() ? 0 : 2, ' ') + m_terminal.styled(place, Style::Dim));
}

void TreeOutline::note(int level, const QString& text) const
{
    if (!m_context.isJson && m_terminal.hasWidth())
        m_terminal.line(QString(2 * level, ' ') + m_terminal.styled(text, Terminal::Style::Dim));
}

} // namespace

Command treeCommand()
{
    struct Values
    {
        QString path;
        int depth = 2;
    };
    const auto values = std::make_shared<Values>();
    return Command("tree", "Show the tree as an outline.", "kelo tree\nkelo tree /tidal --depth 3")
        .option("[PATH]", values->path, "Where to begin (the service)")
        .option("--depth N", {values->depth, 1, 16}, "Levels below it (2)")
        .asks([values](const CommandContext& context) {
            const auto print = [&](const QString& path) {
                return TreeOutline(context).print(path, values->depth);
            };
            return values->path.isEmpty() ? print(beginPath(context.api))
                                          : atPath(context, values->path, print);
        });
}

} // namespace cli
