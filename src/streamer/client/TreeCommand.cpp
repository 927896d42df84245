#include "client/TreeCommand.h"

#include "client/DisplayText.h"
#include "client/PathText.h"
#include "client/RowsCommand.h"
#include "client/RowsTable.h"

#include <QJsonDocument>

namespace cli {

int TreeCommand::run(const CommandContext& context)
{
    const ApiReply reply = RowsCommand::fetch(context.api, m_path, 0, rowsPerLevel - 1);
    if (!reply.isDone())
        return context.finish(reply);
    m_read.insert(m_path);
    if (!context.isJson) {
        const Terminal& terminal = context.terminal;
        context.terminal.line(terminal.styled(
            cut(RowsTable::heading(reply.document), terminal.width()), Terminal::Style::Bold));
    }
    const QJsonArray rows = descend(context, reply.document, m_depth, 1);
    if (context.isJson) {
        const QJsonObject tree{
            {QStringLiteral("path"), m_path},
            {QStringLiteral("rowsCount"), reply.document.value(QLatin1String("rowsCount"))},
            {QStringLiteral("rows"), rows}};
        context.printJson(QJsonDocument(tree).toJson(QJsonDocument::Compact));
    }
    return ExitDone;
}

QJsonArray TreeCommand::descend(const CommandContext& context, const QJsonObject& page, int depth,
                                int level)
{
    QJsonArray result;
    const QJsonArray rows = page.value(QLatin1String("rows")).toArray();
    const int count = qMin(rows.size(), rowsPerLevel);
    for (int i = 0; i < count; ++i)
        result.append(visit(context, rows.at(i).toObject(), depth, level));
    const qint64 all = page.value(QLatin1String("rowsCount")).toVariant().toLongLong();
    if (all > count)
        note(context, level, QStringLiteral("... %1 more").arg(all - count));
    return result;
}

QJsonObject TreeCommand::visit(const CommandContext& context, const QJsonObject& row, int depth,
                               int level)
{
    const QString path = row.value(QLatin1String("Path")).toString();
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
    const bool isContainer =
        row.value(QLatin1String("Type")).toString() == QLatin1String("Container");
    if (depth <= 1 || !isContainer || path.isEmpty())
        return result;
    if (m_read.contains(path)) {
        note(context, level + 1, QStringLiteral("(shown above)"));
        return result;
    }
    m_read.insert(path);
    const ApiReply below = RowsCommand::fetch(context.api, path, 0, rowsPerLevel - 1);
    if (below.isDone()) {
        result.insert(QStringLiteral("rows"),
                      descend(context, below.document, depth - 1, level + 1));
    } else {
        note(context, level + 1, QStringLiteral("(%1)").arg(below.message));
        result.insert(QStringLiteral("problem"), below.message);
    }
    return result;
}

void TreeCommand::note(const CommandContext& context, int level, const QString& text) const
{
    if (!context.isJson)
        context.terminal.line(QString(2 * level, ' ') +
                              context.terminal.styled(text, Terminal::Style::Dim));
}

} // namespace cli
