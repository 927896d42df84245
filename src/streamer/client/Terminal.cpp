#include "client/Terminal.h"

#include "client/DisplayText.h"

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
    winsize size = {};
    const bool hasSize = isTerminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    result.height = hasSize ? size.ws_row : 0;
    bool isNumber = false;
    const int wished = qEnvironmentVariableIntValue("COLUMNS", &isNumber);
    if (isNumber && wished > 0)
        result.width = wished;
    else if (!isTerminal)
        result.width = unlimited;
    else if (hasSize && size.ws_col > 0)
        result.width = size.ws_col;
    return result;
}

void Terminal::line(const QString& text)
{
    m_out << text.toStdString() << '\n' << std::flush;
}

void Terminal::error(const QString& text)
{
    const QStringList lines = isInteractive() ? wrapped(text, width()) : QStringList{text};
    m_err << lines.join('\n').toStdString() << '\n' << std::flush;
}

void Terminal::redraw(const QStringList& lines, const QString& last)
{
    if (isInteractive() && m_drawnLines > 0)
        m_out << "\033[" << m_drawnLines << "A\033[J"; // up, then clear to the end
    m_drawnLines = 0;
    // The cursor's own line and the one that tells of the rest stay free.
    const int room = isInteractive() && m_properties.height > 0
                         ? m_properties.height - (last.isEmpty() ? 2 : 3)
                         : INT_MAX;
    for (int i = 0; i < lines.size(); ++i) {
        const int height = heightOf(lines.at(i));
        if (m_drawnLines + height > room) {
            m_out << styled(QStringLiteral("... %1 more lines").arg(lines.size() - i), Style::Dim)
                         .toStdString()
                  << '\n';
            ++m_drawnLines;
            break;
        }
        m_out << lines.at(i).toStdString() << '\n';
        m_drawnLines += height;
    }
    if (!last.isEmpty())
        m_out << last.toStdString() << '\n';
    m_drawnLines += last.isEmpty() ? 0 : 1;
    m_out << std::flush;
}

int Terminal::heightOf(const QString& text) const
{
    static const QRegularExpression style(QStringLiteral("\033\\[[0-9;]*m"));
    const int all = columns(QString(text).remove(style));
    return qMax(1, (all + width() - 1) / width());
}

QString Terminal::styled(const QString& text, Style style) const
{
    static const char* const codes[] = {"", "1", "2", "32", "33", "31", "36"};
    if (!hasColours() || style == Style::Plain || text.isEmpty())
        return text;
    return QStringLiteral("\033[%1m%2\033[0m")
        .arg(QLatin1String(codes[static_cast<int>(style)]), text);
}

} // namespace cli
