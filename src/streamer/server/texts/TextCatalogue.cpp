#include "TextCatalogue.h"

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
    if (!m_plain.contains(source))
        m_plain.insert(source, translation);
}

QString TextCatalogue::translate(const char* context, const char* source, const char* comment,
                                 int) const
{
    const auto find = [&](const char* told) { return m_texts.value(keyOf(context, source, told)); };
    const QString text = comment ? find(comment) : QString();
    return text.isNull() ? find("") : text;
}
