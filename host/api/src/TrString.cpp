#include "TrString.h"
#include <QCoreApplication>
#include <QTranslator>

namespace {
/// Variants of it convert to QString and compare by content, as those of QString do.
const bool isRegistered = QMetaType::registerConverter<TrString, QString>(
                              [](const TrString& text) { return text.toString(); }) &&
                          QMetaType::registerEqualsComparator<TrString>();
} // namespace

TrString::TrString(const QString& text) : m_text(text) {}

TrString::TrString(const TrCharData& source, const QList<TrString>& arguments)
    : m_source(source), m_arguments(arguments)
{
}

TrString TrString::fromVariant(const QVariant& value)
{
    return value.userType() == qMetaTypeId<TrString>() ? value.value<TrString>()
                                                       : TrString(value.toString());
}

/// Replaces %1 to %9 in one pass, so that an argument that holds "%2" stays as it is.
template <class Read>
QString TrString::filled(const QString& form, const Read& read) const
{
    if (m_arguments.isEmpty())
        return form;
    QString result;
    result.reserve(form.size());
    for (int i = 0; i < form.size(); ++i) {
        const bool isPlace = form[i] == u'%' && i + 1 < form.size();
        const int number = isPlace ? form[i + 1].unicode() - u'0' : 0;
        if (number < 1 || number > 9 || number > m_arguments.size()) {
            result += form[i];
            continue;
        }
        result += read(m_arguments[number - 1]);
        ++i;
    }
    return result;
}

bool TrString::isEmpty() const
{
    return m_source.text ? *m_source.text == '\0' : m_text.isEmpty();
}

QString TrString::toString() const
{
    if (!m_source.text)
        return m_text;
    return filled(Language::ntr(m_source.text, m_source.context, m_source.comment),
                  [](const TrString& argument) { return argument.toString(); });
}

QString TrString::toString(const QTranslator& translator) const
{
    if (!m_source.text)
        return m_text;
    const QString text = translator.translate(m_source.context ? m_source.context : "",
                                              m_source.text, m_source.comment);
    if (text.isEmpty())
        return source();
    return filled(text, [&](const TrString& argument) { return argument.toString(translator); });
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
    if (!m_source.text)
        return m_text;
    return filled(QString::fromUtf8(m_source.text),
                  [](const TrString& argument) { return argument.source(); });
}

QString Language::ntr(const char* text, const char* context, const char* comment)
{
    return QCoreApplication::translate(context ? context : "", text, comment);
}

QString Language::ntr(const QString& text, const char* context)
{
    return text.isEmpty() ? text : ntr(text.toUtf8().constData(), context);
}
