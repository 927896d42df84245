#include "client/ManualText.h"

#include "client/DisplayText.h"

namespace cli {

ManualText::ManualText(const QString& name, int section, const QString& date)
{
    m_text = QStringLiteral(".TH %1 %2 %3 \"kelo %4\" \"Kelo\"\n.nh\n.ad l\n")
                 .arg(escaped(name.toUpper()))
                 .arg(section)
                 .arg(date, KELO_VERSION);
}

void ManualText::heading(const QString& text)
{
    m_text += ".SH " + escaped(text.toUpper()) + '\n';
    m_isAfterHeading = true;
}

void ManualText::subheading(const QString& text)
{
    m_text += ".SS " + escaped(text) + '\n';
    m_isAfterHeading = true;
}

void ManualText::paragraph(const QString& text)
{
    m_text += (m_isAfterHeading ? "" : ".PP\n") + filled(text) + '\n';
    m_isAfterHeading = false;
}

void ManualText::tagged(const QString& tag, int boldWords, const QString& text)
{
    m_isAfterHeading = false;
    const QString bold = tag.section(' ', 0, boldWords - 1);
    m_text += QStringLiteral(".TP\n\\fB%1\\fR%2\n%3\n")
                  .arg(escaped(bold), escaped(tag.mid(bold.size())), filled(text));
}

void ManualText::lines(const QStringList& lines)
{
    m_text += m_isAfterHeading ? "" : ".PP\n";
    m_text += ".nf\n.RS 4\n";
    m_isAfterHeading = false;
    for (const QString& line : lines)
        m_text += escaped(line) + '\n';
    m_text += ".RE\n.fi\n";
}

QString ManualText::escaped(const QString& text)
{
    QString result = text;
    result.replace('\\', "\\e");
    result.replace('-', "\\-");
    result.replace('\'', "\\(aq");
    result.replace('`', "\\(ga");
    if (result.startsWith('.'))
        result.prepend("\\&");
    return result;
}

QString ManualText::filled(const QString& text)
{
    constexpr int width = 72; // escapes make a line longer again
    QString result;
    bool isBold = false;
    for (const QString& line : wrapped(text, width)) {
        const QStringList parts = line.split('`');
        result += (result.isEmpty() ? "" : "\n");
        for (int i = 0; i < parts.size(); ++i) {
            if (i > 0) {
                isBold = !isBold;
                result += (isBold ? "\\fB" : "\\fR");
            }
            result += escaped(parts.at(i));
        }
    }
    return result;
}

} // namespace cli
