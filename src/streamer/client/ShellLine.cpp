#include "client/ShellLine.h"

namespace cli {

ShellLine ShellLine::parse(const QString& line, const QString& breaks)
{
    ShellLine result{{QString()}};
    bool hasWord = false; // a word has begun, even an empty one in quotes
    bool isEscaped = false;
    QChar quote; // null outside quotes
    for (const QChar c : line) {
        QString& word = result.words.last();
        if (isEscaped) {
            isEscaped = false;
            // Inside double quotes the backslash stays, except before these.
            if (quote == '"' && !QStringLiteral("\"\\$`").contains(c))
                word += '\\';
            word += c;
        } else if (c == '\\' && quote != '\'') {
            isEscaped = hasWord = true;
        } else if (!quote.isNull() && c == quote) {
            quote = QChar();
        } else if (!quote.isNull()) {
            word += c;
        } else if (c == ' ' || c == '\t' || c == '\n') {
            if (hasWord)
                result.words.append(QString());
            hasWord = false;
            result.fixed = 0;
        } else if (c == '\'' || c == '"') {
            hasWord = true;
            quote = c;
            result.fixed = word.size(); // a completion goes behind an open quote
        } else {
            hasWord = true;
            word += c;
            if (breaks.contains(c))
                result.fixed = word.size();
        }
    }
    return result;
}

} // namespace cli
