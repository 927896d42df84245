#include "client/RowsTable.h"

#include "client/DisplayText.h"
#include "client/JsonText.h"
#include "client/PathText.h"
#include "TrackTitle.h"

#include <algorithm>

namespace cli {

namespace {

constexpr int gap = 2;
/// Narrower than this for title and description, and paths go below.
constexpr int leastTextWidth = 32;

QString roleText(const QJsonObject& row, const char* role)
{
    return shown(row.value(role).toVariant().toString());
}

/// In the player's queue: whether it was put in by hand.
bool isQueued(const QJsonObject& row)
{
    return row.value("Queued").toBool();
}

/// The description, what a playlist says of itself, or else the value if it is a text, a number or
/// a truth.
QString secondText(const QJsonObject& row)
{
    for (const char* role : {"Description", "Summary"}) {
        const QString text = roleText(row, role);
        if (!text.isEmpty())
            return text;
    }
    QJsonValue value = row.value("Value");
    if (value.isObject()) {
        const QJsonObject typed = value.toObject();
        value = typed.value(typed.value("type").toString());
    }
    return value.isObject() || value.isArray() || value.isNull() ? QString() : valueText(value);
}

/// How long an item lasts.
QString length(const QJsonObject& row)
{
    const qint64 duration = row.value("Duration").toVariant().toLongLong();
    return duration > 0 ? clockTime(duration) : QString();
}

/// A track's title ends with its first artist, who stands beside it in a table.
QString titleOf(const QJsonObject& row, const Terminal& terminal)
{
    const QString artist = roleText(row, "Description");
    const QString title = RowsTable::title(row);
    return terminal.hasWidth() && textIn(row, "Type") == "Audio" ? titleWithoutArtist(title, artist)
                                                                 : title;
}

} // namespace

RowsTable::RowsTable(const Terminal& terminal, const QJsonObject& page, Options options)
    : m_terminal(terminal),
      m_arePathsExtra(terminal.isInteractive() && options.paths == Options::Paths::Usual)
{
    int number = options.first < 0 ? page.value("from").toInt() : options.first;
    for (const QJsonObject& row : rowsIn(page).mid(0, options.limit)) {
        const QString path = shown(textIn(row, "Path"));
        const bool isShown =
            !path.isEmpty() && (options.paths != Options::Paths::Never || !terminal.hasWidth());
        const bool isDisabledRow = isDisabled(row);
        m_rows.append({QString::number(number++),
                       isQueued(row) ? QStringLiteral("Queued") : roleText(row, "Type"), mark(row),
                       titleOf(row, terminal) + (isDisabledRow ? " (disabled)" : ""),
                       secondText(row), length(row),
                       !isShown              ? QString()
                       : terminal.hasWidth() ? shellWord(path)
                                             : path,
                       textIn(row, "Type") == "Header", isDisabledRow});
    }
    measure();
    if (m_pathsBelow && m_arePathsExtra) {
        for (Row& row : m_rows)
            row.path.clear();
        measure();
    }
}

QString RowsTable::heading(const QJsonObject& page)
{
    const QString title = roleText(objectIn(page, "roles"), "Title");
    return title.isEmpty() ? roleText(page, "path") : title;
}

QString RowsTable::mark(const QJsonObject& row)
{
    const QString type = textIn(row, "Type");
    if (isQueued(row))
        return "+";
    if (type == "Container")
        return "▸";
    if (type == "Audio")
        return "♪";
    if (type == "Action")
        return "•";
    return " ";
}

QString RowsTable::title(const QJsonObject& row)
{
    const QString text = roleText(row, "Title");
    return text.isEmpty() ? "(no title)" : text;
}

bool RowsTable::isDisabled(const QJsonObject& row)
{
    return row.value("Disabled").toVariant().toBool();
}

bool RowsTable::hasValue(const QJsonObject& row)
{
    const QString type = textIn(row, "Type");
    const bool isNode = !textIn(row, "Path").isEmpty();
    return type == "Choice" || (type == "Text" && isNode);
}

/// Shares the width out: what the path leaves, or everything with the path below.
void RowsTable::measure()
{
    int widestPath = 0;
    m_titleWidth = m_descriptionWidth = 0;
    for (const Row& row : m_rows) {
        m_numberWidth = qMax(m_numberWidth, columns(row.number));
        m_titleWidth = qMax(m_titleWidth, columns(row.title));
        m_descriptionWidth = qMax(m_descriptionWidth, columns(row.description));
        m_lengthWidth = qMax(m_lengthWidth, columns(row.length));
        widestPath = qMax(widestPath, columns(row.path));
    }
    const int before = m_numberWidth + gap + 1 + 1 + // number, gap, mark, blank
                       (m_lengthWidth > 0 ? gap + m_lengthWidth : 0);
    const int between = m_descriptionWidth > 0 ? gap : 0;
    const int wanted = m_titleWidth + between + m_descriptionWidth;
    const int beside = m_terminal.width() - before - gap - widestPath;
    const int least = m_arePathsExtra ? wanted : qMin(wanted, leastTextWidth);
    m_pathsBelow = widestPath > 0 && beside < least;
    const int available =
        qMax(8, m_pathsBelow || widestPath == 0 ? m_terminal.width() - before : beside);
    if (wanted > available)
        share(available - between);
}

/// Few long titles are cut, so that the descriptions of all others do not stand far away from
/// them; then the description gives way, down to a third.
void RowsTable::share(int width)
{
    if (m_descriptionWidth > 0)
        m_titleWidth = qMin(m_titleWidth, qMax(width / 2, usualTitleWidth()));
    m_descriptionWidth = qMin(m_descriptionWidth, qMax(width / 3, width - m_titleWidth));
    m_titleWidth = qMin(m_titleWidth, width - m_descriptionWidth);
}

/// The width that nine of ten titles do with.
int RowsTable::usualTitleWidth() const
{
    QVector<int> widths;
    for (const Row& row : m_rows)
        widths.append(columns(row.title));
    std::sort(widths.begin(), widths.end());
    return widths.value(widths.size() - 1 - widths.size() / 10);
}

QStringList RowsTable::lines(int from, int count) const
{
    QStringList result;
    for (const Row& row : m_rows.mid(from, count)) {
        if (!m_terminal.hasWidth()) {
            result.append(
                QStringList{row.number, row.type, row.title, row.description, row.path}.join('\t'));
            continue;
        }
        if (row.isHeader && !result.isEmpty())
            result.append(QString());
        result += drawn(row);
    }
    return result;
}

QStringList RowsTable::drawn(const Row& row) const
{
    using Style = Terminal::Style;
    const QString number = QString(m_numberWidth - columns(row.number), ' ') + row.number;
    const auto fitted = [](const QString& text, int width) {
        return padded(cut(text, width), width);
    };
    const QString title = fitted(row.title, m_titleWidth);
    const QString description =
        m_descriptionWidth > 0 ? QString(gap, ' ') + fitted(row.description, m_descriptionWidth)
                               : QString();
    const Style titleStyle = row.isHeader     ? Style::Bold
                             : row.isDisabled ? Style::Dim
                                              : Style::Plain;
    const QString length =
        m_lengthWidth > 0 ? QString(gap + m_lengthWidth - columns(row.length), ' ') + row.length
                          : QString();
    const bool hasPathBeside = !m_pathsBelow && !row.path.isEmpty();
    QString line =
        m_terminal.styled(number, Style::Dim) + QString(gap, ' ') +
        m_terminal.styled(row.mark, Style::Accent) + ' ' + m_terminal.styled(title, titleStyle) +
        m_terminal.styled(description, Style::Dim) + m_terminal.styled(length, Style::Dim);
    if (hasPathBeside)
        line += QString(gap, ' ') + m_terminal.styled(row.path, Style::Dim);
    while (line.endsWith(' '))
        line.chop(1);
    QStringList result{line};
    if (m_pathsBelow && !row.path.isEmpty())
        result.append(QString(m_numberWidth + gap + 2, ' ') +
                      m_terminal.styled(row.path, Style::Dim));
    return result;
}

} // namespace cli
