#include "OAuth2Answer.h"

OAuth2Answer::OAuth2Answer(int status, const QByteArray& body)
    : m_status(status), m_json(KeloJson::parse(body))
{
}

bool OAuth2Answer::isTemporary() const
{
    return m_status == 0 || m_status == 408 || m_status == 429 || m_status >= 500 ||
           (m_status >= 200 && m_status < 300 && !m_json.isObject());
}

QString OAuth2Answer::problem() const
{
    if (m_status == 0)
        return QStringLiteral("the login service does not answer");
    const QString code = error().left(100);
    const QString description = m_json.value("error_description").toString().left(300);
    if (!code.isEmpty() && !description.isEmpty())
        return code + QStringLiteral(", ") + description;
    if (!code.isEmpty() || !description.isEmpty())
        return code + description;
    if (m_status >= 200 && m_status < 300)
        return QStringLiteral("the login service's answer is not understood");
    return QStringLiteral("the login service answered with status %1").arg(m_status);
}

KeloJson OAuth2Answer::field(const char* camelCase, const char* standard) const
{
    const KeloJson value = m_json.value(camelCase);
    return value.isNull() ? m_json.value(standard) : value;
}

QString OAuth2Answer::text(const char* camelCase, const char* standard) const
{
    return field(camelCase, standard).toString();
}

qint64 OAuth2Answer::number(const char* camelCase, const char* standard, qint64 fallback) const
{
    const KeloJson value = field(camelCase, standard);
    const qint64 number = value.isString() ? value.toString().toLongLong() : value.toInt64();
    return number > 0 ? number : fallback;
}
