#include "client/ShellLine.h"

namespace cli {

namespace {

/// The splitting of one line. Lives on the stack of ShellLine::parse.
class Splitter
{
public:
    explicit Splitter(const QString& breaks) : m_breaks(breaks) {}

    void feed(QChar c)
    {
        if (m_isEscaped)
            takeEscaped(c);
        else if (c == '\\' && m_quote != '\'')
            m_isEscaped = true;
        else if (!m_quote.isNull())
            takeQuoted(c);
        else
            takePlain(c);
    }

    ShellLine finish()
    {
        m_line.words.append(m_word);
        return m_line;
    }

private:
    void takeEscaped(QChar c)
    {
        m_isEscaped = false;
        // Inside double quotes the backslash stays, except before these.
        if (m_quote == '"' && !QStringLiteral("\"\\$`").contains(c))
            m_word += '\\';
        m_word += c;
        m_hasWord = true;
    }

    void takeQuoted(QChar c)
    {
        if (c == m_quote)
            m_quote = QChar();
        else
            m_word += c;
    }

    void takePlain(QChar c)
    {
        if (c == ' ' || c == '\t' || c == '\n') {
            if (m_hasWord)
                m_line.words.append(m_word);
            m_word.clear();
            m_hasWord = false;
            m_line.fixed = 0;
            return;
        }
        m_hasWord = true;
        if (c == '\'' || c == '"') {
            m_quote = c;
            m_line.fixed = m_word.size(); // a completion goes behind an open quote
            return;
        }
        m_word += c;
        if (m_breaks.contains(c))
            m_line.fixed = m_word.size();
    }

    const QString m_breaks;
    ShellLine m_line;
    QString m_word;
    bool m_hasWord = false; ///< a word has begun, even an empty one in quotes
    bool m_isEscaped = false;
    QChar m_quote; ///< null outside quotes
};

} // namespace

ShellLine ShellLine::parse(const QString& line, const QString& breaks)
{
    Splitter splitter(breaks);
    for (const QChar c : line)
        splitter.feed(c);
    return splitter.finish();
}

} // namespace cli
