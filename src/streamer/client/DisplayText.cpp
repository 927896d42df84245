#include "client/DisplayText.h"

#include <locale.h>
#include <QVector>
#include <wchar.h>

namespace cli {

namespace {

/// Makes wcwidth() know all of Unicode while it lives, for this thread alone.
class UnicodeWidths
{
public:
    UnicodeWidths() : m_before(uselocale(unicode())) {}
    ~UnicodeWidths() { uselocale(m_before); }
    UnicodeWidths(const UnicodeWidths&) = delete;
    UnicodeWidths& operator=(const UnicodeWidths&) = delete;

private:
    static locale_t unicode()
    {
        static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return locale;
    }

    locale_t m_before;
};

int columnsOf(uint character)
{
    return qMax(0, wcwidth(static_cast<wchar_t>(character)));
}

bool isDirectionMark(uint c)
{
    return c == 0x061c || c == 0x200e || c == 0x200f || (c >= 0x2028 && c <= 0x202e) ||
           (c >= 0x2066 && c <= 0x2069) || c == 0xfeff;
}

QString writtenOut(uint c)
{
    if (c == '\n')
        return "\\n";
    if (c == '\r')
        return "\\r";
    if (c == '\t')
        return "\\t";
    if (c < 0x20 || (c >= 0x7f && c <= 0x9f))
        return QStringLiteral("\\x%1").arg(c, 2, 16, QChar('0'));
    if (isDirectionMark(c))
        return QStringLiteral("\\u%1").arg(c, 4, 16, QChar('0'));
    return {};
}

} // namespace

QString shown(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        const QString replacement = writtenOut(c.unicode());
        if (replacement.isEmpty())
            result += c;
        else
            result += replacement;
    }
    return result;
}

int columns(const QString& text)
{
    const UnicodeWidths widths;
    int count = 0;
    for (const uint c : text.toUcs4())
        count += columnsOf(c);
    return count;
}

QString cut(const QString& text, int width)
{
    if (columns(text) <= width)
        return text;
    if (width <= 0)
        return {};
    const UnicodeWidths widths;
    QVector<uint> kept;
    int count = 0;
    for (const uint c : text.toUcs4()) {
        count += columnsOf(c);
        if (count > width - 1) // one column stays for the ellipsis
            break;
        kept.append(c);
    }
    return QString::fromUcs4(kept.constData(), kept.size()) + QChar(0x2026);
}

QString padded(const QString& text, int width)
{
    return text + QString(qMax(0, width - columns(text)), ' ');
}

QStringList wrapped(const QString& text, int width)
{
    QStringList lines{QString()};
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
        QString& line = lines.last();
        if (line.isEmpty())
            line = word;
        else if (columns(line) + 1 + columns(word) <= width)
            line += ' ' + word;
        else
            lines.append(word);
    }
    return lines;
}

QString clockTime(qint64 milliseconds)
{
    const qint64 seconds = qMax<qint64>(0, milliseconds) / 1000;
    const QChar zero('0');
    if (seconds < 3600)
        return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, zero);
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

} // namespace cli
