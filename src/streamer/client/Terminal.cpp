#include "client/Terminal.h"

#include "client/DisplayText.h"
#include "client/JsonText.h"

#include <climits>
#include <ostream>
#include <QRegularExpression>
#include <sys/ioctl.h>
#include <unistd.h>

namespace cli {

Terminal::Terminal(std::ostream& out, std::ostream& err, Properties properties)
    : m_out(out), m_err(err), m_properties(properties)
{
}

Terminal::Properties Terminal::ofStdout()
{
    Properties result;
    const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    result.isInteractive = isTerminal && qgetenv("TERM") != "dumb";
    result.hasColours = result.isInteractive && qEnvironmentVariableIsEmpty("NO_COLOR");
    if (!isTerminal)
        result.width = unlimited;
    result.measure = [](Properties& properties) {
        winsize size = {};
        const bool hasSize = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
        bool isNumber = false;
        const int wished = qEnvironmentVariableIntValue("COLUMNS", &isNumber);
        if (isNumber && wished > 0)
            properties.width = wished;
        else if (hasSize && size.ws_col > 0)
            properties.width = size.ws_col;
        properties.height = hasSize ? size.ws_row : 0;
    };
    result.measure(result);
    return result;
}

void Terminal::line(const QString& text)
{
    m_out << text.toStdString() << '\n' << std::flush;
}

void Terminal::lines(const QStringList& all)
{
    for (const QString& text : all)
        line(text);
}

void Terminal::error(const QString& text, const QJsonObject& more)
{
    if (!m_isJson)
        return note(text);
    QJsonObject document = more;
    const QString prefix = "kelo: ";
    document.insert("error", text.startsWith(prefix) ? text.mid(prefix.size()) : text);
    m_err << printableJson(json(document)).toStdString() << '\n' << std::flush;
}

void Terminal::note(const QString& text)
{
    const QStringList lines = isInteractive() ? wrapped(text, width()) : QStringList{text};
    m_err << lines.join('\n').toStdString() << '\n' << std::flush;
}

void Terminal::redraw(const QStringList& lines, const QString& last)
{
    if (m_properties.measure)
        m_properties.measure(m_properties);
    int above = 0;
    for (const QString& text : qAsConst(m_drawn))
        above += heightOf(text);
    if (isInteractive() && above > 0)
        m_out << "\033[" << above << "A\033[J"; // up, then clear to the end
    m_drawn.clear();
    // The cursor's own line and the one that tells of the rest stay free.
    int room = isInteractive() && m_properties.height > 0
                   ? m_properties.height - (last.isEmpty() ? 2 : 3)
                   : INT_MAX;
    for (const QString& text : lines) {
        room -= heightOf(text);
        if (room < 0) {
            const int left = lines.size() - m_drawn.size();
            m_drawn.append(styled(QStringLiteral("... %1 more").arg(left), Style::Dim));
            break;
        }
        m_drawn.append(text);
    }
    if (!last.isEmpty())
        m_drawn.append(last);
    for (const QString& text : qAsConst(m_drawn))
        m_out << text.toStdString() << '\n';
    m_out << std::flush;
}

int Terminal::heightOf(const QString& text) const
{
    static const QRegularExpression style("\033\\[[0-9;]*m");
    const int all = columns(QString(text).remove(style));
    return qMax(1, (all + width() - 1) / width());
}

QString Terminal::styled(const QString& text, Style style) const
{
    static const char* const codes[] = {"", "1", "2", "32", "33", "31", "36"};
    if (!hasColours() || style == Style::Plain || text.isEmpty())
        return text;
    return QStringLiteral("\033[%1m%2\033[0m").arg(codes[static_cast<int>(style)], text);
}

} // namespace cli
