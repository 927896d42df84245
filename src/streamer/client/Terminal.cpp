#include "client/Terminal.h"

#include "client/DisplayText.h"

#include <ostream>
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
    result.isInteractive = isatty(STDOUT_FILENO) != 0;
    const bool isDumb = qgetenv("TERM") == "dumb";
    result.hasColours = result.isInteractive && !isDumb && qEnvironmentVariableIsEmpty("NO_COLOR");
    winsize size = {};
    bool isNumber = false;
    const int wished = qEnvironmentVariableIntValue("COLUMNS", &isNumber);
    if (isNumber && wished > 0)
        result.width = wished;
    else if (!result.isInteractive)
        result.width = unlimited;
    else if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
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

void Terminal::redraw(const QStringList& lines)
{
    if (isInteractive() && m_drawnLines > 0)
        m_out << "\033[" << m_drawnLines << "A\033[J"; // up, then clear to the end
    for (const QString& text : lines)
        m_out << text.toStdString() << '\n';
    m_out << std::flush;
    m_drawnLines = lines.size();
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
