#include "TrString.h"
#include <QCoreApplication>
#include <QTranslator>

namespace {
/// Replaces %1 to %9 in one pass, so that an argument that holds "%2" stays as it is.
QString withArguments(const QString& text, const QStringList& arguments)
{
    if (arguments.isEmpty())
        return text;
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const bool isPlace = text[i] == u'%' && i + 1 < text.size();
        const int number = isPlace ? text[i + 1].unicode() - u'0' : 0;
        if (number < 1 || number > 9 || number > arguments.size()) {
            result += text[i];
            continue;
        }
        result += arguments[number - 1];
        ++i;
    }
    return result;
}

/// Variants of it convert to QString and compare by content, as those of QString do.
const bool isRegistered = QMetaType::registerConverter<TrString, QString>(
                              [](const TrString& text) { return text.toString(); }) &&
                          QMetaType::registerEqualsComparator<TrString>();
} // namespace

TrString::TrString(const QString& text) : m_text(text) {}

TrString::TrString(const TrCharData& source, const QStringList& arguments)
    : m_source(source), m_arguments(arguments)
{
}

bool TrString::isEmpty() const
{
    return m_source.text ? *m_source.text == '\0' : m_text.isEmpty();
}

QString TrString::toString() const
{
    if (!m_source.text)
        return m_text;
    return withArguments(Language::ntr(m_source.text, m_source.context, m_source.comment),
                         m_arguments);
}

QString TrString::toString(const QTranslator& translator) const
{
    if (!m_source.text)
        return m_text;
    const QString text = translator.translate(m_source.context ? m_source.context : "",
                                              m_source.text, m_source.comment);
    return text.isEmpty() ? source() : withArguments(text, m_arguments);
}

QVariant TrString::toVariant() const
{
    return isTranslatable() ? QVariant::fromValue(*this) : QVariant(m_text);
}

bool TrString::operator==(const TrString& other) const
{
    return qstrcmp(m_source.context, other.m_source.context) == 0 &&
           qstrcmp(m_source.text, other.m_source.text) == 0 &&
           qstrcmp(m_source.comment, other.m_source.comment) == 0 && m_text == other.m_text &&
           m_arguments == other.m_arguments;
}

QString TrString::source() const
{
    return m_source.text ? withArguments(QString::fromUtf8(m_source.text), m_arguments) : m_text;
}

QString Language::ntr(const char* text, const char* context, const char* comment)
{
    return QCoreApplication::translate(context ? context : "", text, comment);
}

QString Language::ntr(const QString& text, const char* context)
{
    return text.isEmpty() ? text : ntr(text.toUtf8().constData(), context);
}
