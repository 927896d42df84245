#include "TextCatalogue.h"

#include <algorithm>
#include <QXmlStreamReader>

namespace {

QByteArray keyOf(const QByteArray& context, const QByteArray& source, const QByteArray& comment)
{
    return context + '\0' + source + '\0' + comment;
}

/// One <message> of a catalogue.
struct Message
{
    QString source;
    QString comment;
    QString translation; ///< empty while it is unfinished
};

Message readMessage(QXmlStreamReader& xml)
{
    Message message;
    while (xml.readNextStartElement()) {
        const bool isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
        if (xml.name() == QLatin1String("source"))
            message.source = xml.readElementText();
        else if (xml.name() == QLatin1String("comment"))
            message.comment = xml.readElementText();
        else if (xml.name() == QLatin1String("translation") && isFinished)
            message.translation = xml.readElementText();
        else
            xml.skipCurrentElement();
    }
    return message;
}

} // namespace

bool TextCatalogue::add(QIODevice& file)
{
    QXmlStreamReader xml(&file);
    QString context;
    xml.readNextStartElement(); // <TS>
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("context")) {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("name")) {
                context = xml.readElementText();
            } else if (xml.name() == QLatin1String("message")) {
                const Message message = readMessage(xml);
                if (!message.translation.isEmpty())
                    add(context, message.source, message.comment, message.translation);
            } else {
                xml.skipCurrentElement();
            }
        }
    }
    return !xml.hasError();
}

void TextCatalogue::add(const QString& context, const QString& source, const QString& comment,
                        const QString& translation)
{
    if (context == QLatin1String("page")) {
        m_pageTexts.insert(source, translation);
        return;
    }
    m_texts.insert(keyOf(context.toUtf8(), source.toUtf8(), comment.toUtf8()), translation);
    addPlain(source, comment, translation);
}

void TextCatalogue::addPlain(const QString& source, const QString& comment,
                             const QString& translation)
{
    Pattern pattern;
    int begin = 0;
    for (int i = 0; i + 1 < source.size(); ++i) {
        const int number = source[i] == u'%' ? source[i + 1].unicode() - u'0' : 0;
        if (number < 1 || number > 9)
            continue;
        pattern.pieces.append(source.mid(begin, i - begin));
        pattern.numbers.append(number);
        begin = i + 2;
    }
    if (pattern.numbers.isEmpty()) {
        if (!m_plain.contains(source))
            m_plain.insert(source, translation);
        return;
    }
    pattern.pieces.append(source.mid(begin));
    if (pattern.size() == 0)
        return; // every text is of that form
    pattern.comment = comment;
    pattern.translation = translation;
    const auto place = std::upper_bound(
        m_patterns.begin(), m_patterns.end(), pattern,
        [](const Pattern& one, const Pattern& other) { return one.size() > other.size(); });
    m_patterns.insert(place, pattern);
}

TextCatalogue::Arguments TextCatalogue::argumentsOf(const QString& text, const Pattern& pattern)
{
    const QStringList& pieces = pattern.pieces;
    if (!text.startsWith(pieces.first()) || !text.endsWith(pieces.last()))
        return {};
    Arguments arguments;
    int begin = pieces.first().size();
    for (int i = 0; i < pattern.numbers.size(); ++i) {
        const bool isLast = i + 1 == pattern.numbers.size();
        const QString& next = pieces[i + 1];
        const int end = isLast ? text.size() - next.size() : text.indexOf(next, begin);
        if (end < begin)
            return {};
        arguments.insert(pattern.numbers[i], text.mid(begin, end - begin));
        begin = end + next.size();
    }
    return arguments;
}

QString TextCatalogue::filled(const Pattern& pattern, const Arguments& arguments) const
{
    const QString& form = pattern.translation;
    QString result;
    for (int i = 0; i < form.size(); ++i) {
        const int number =
            form[i] == u'%' && i + 1 < form.size() ? form[i + 1].unicode() - u'0' : 0;
        const auto argument = arguments.find(number);
        if (argument == arguments.end()) {
            result += form[i];
            continue;
        }
        const bool isOurs = pattern.comment.contains(QLatin1Char('%') + QString::number(number));
        result += isOurs ? plain(*argument) : *argument;
        ++i;
    }
    return result;
}

QString TextCatalogue::translate(const char* context, const char* source, const char* comment,
                                 int) const
{
    const auto find = [&](const char* told) { return m_texts.value(keyOf(context, source, told)); };
    const QString text = comment ? find(comment) : QString();
    return text.isNull() ? find("") : text;
}

QString TextCatalogue::plain(const QString& text) const
{
    const auto found = m_plain.find(text);
    if (found != m_plain.end())
        return *found;
    for (const Pattern& pattern : m_patterns) {
        const Arguments arguments = argumentsOf(text, pattern);
        if (!arguments.isEmpty())
            return filled(pattern, arguments);
    }
    return text;
}

QString TextCatalogue::plainList(const QString& texts) const
{
    const QString separator = QStringLiteral("; ");
    QStringList list = texts.split(separator);
    bool isList = true; // rather than one text with the separator inside
    for (QString& text : list) {
        const QString known = plain(text);
        isList = isList && known != text;
        text = known;
    }
    return isList ? list.join(separator) : plain(texts);
}
