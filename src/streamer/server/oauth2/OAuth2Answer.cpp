#include "OAuth2Answer.h"

#include <kelo/TrString.h>
#include <QHash>

namespace {

constexpr qint64 minuteMs = 60 * 1000;
constexpr qint64 toleratedMs = 5 * minuteMs;

TrString problemOf(HttpClient::Failure failure)
{
    switch (failure) {
    case HttpClient::ConnectionFailed:
        return TrString::in("Login", "the login service is not reached");
    case HttpClient::TlsFailed:
        return TrString::in("Login", "no secure connection to the login service");
    case HttpClient::CertificateDate:
        return TrString::in("Login",
                            "the login service's certificate is not valid at the time that the "
                            "streamer's clock shows");
    case HttpClient::BodyTooLarge:
        return TrString::in("Login", "the login service's answer is too large");
    default:
        return TrString::in("Login", "the login service does not answer");
    }
}

QString reasonOf(HttpClient::Failure failure)
{
    switch (failure) {
    case HttpClient::CertificateDate:
        return KeloOAuth2Reason::Clock();
    case HttpClient::BodyTooLarge:
    case HttpClient::BadUrl:
        return KeloOAuth2Reason::Service();
    default:
        return KeloOAuth2Reason::Network();
    }
}

/// RFC 6749 5.2 and RFC 8628 3.5; empty for codes that say nothing to a user.
QString reasonOf(const QString& error)
{
    static const QHash<QString, QString> reasons{
        {QStringLiteral("expired_token"), KeloOAuth2Reason::Expired()},
        {QStringLiteral("access_denied"), KeloOAuth2Reason::Denied()},
        {QStringLiteral("invalid_client"), KeloOAuth2Reason::Client()},
        {QStringLiteral("unauthorized_client"), KeloOAuth2Reason::Client()},
        {QStringLiteral("invalid_scope"), KeloOAuth2Reason::Client()}};
    return reasons.value(error);
}

} // namespace

OAuth2Answer::OAuth2Answer(const TokenReply& reply, qint64 wallMs)
    : m_status(reply.status), m_failure(reply.failure),
      m_aheadMs(reply.dateMs == 0 ? 0 : wallMs - reply.dateMs), m_json(KeloJson::parse(reply.body))
{
}

bool OAuth2Answer::isClockWrong() const
{
    return qAbs(m_aheadMs) > toleratedMs;
}

bool OAuth2Answer::isTemporary() const
{
    return m_status == 0 || m_status == 408 || m_status == 429 || m_status >= 500 ||
           (m_status >= 200 && m_status < 300 && !m_json.isObject());
}

QString OAuth2Answer::reason() const
{
    if (m_status == 0)
        return reasonOf(m_failure);
    const QString named = reasonOf(error());
    if (!named.isEmpty())
        return named;
    if (isClockWrong())
        return KeloOAuth2Reason::Clock();
    // RFC 6749 5.2: a client that is not accepted may be told so by the status alone.
    return m_status == 401 ? KeloOAuth2Reason::Client() : KeloOAuth2Reason::Service();
}

TrString OAuth2Answer::problem() const
{
    if (m_status == 0)
        return problemOf(m_failure);
    if (reason() == KeloOAuth2Reason::Clock()) {
        const QString minutes = QString::number(qAbs(m_aheadMs) / minuteMs);
        return m_aheadMs > 0
                   ? TrString::in("Login", "%1, and the streamer's clock is %2 minutes fast",
                                  {serviceProblem(), minutes})
                   : TrString::in("Login", "%1, and the streamer's clock is %2 minutes slow",
                                  {serviceProblem(), minutes});
    }
    return serviceProblem();
}

TrString OAuth2Answer::serviceProblem() const
{
    const QString code = error().left(100);
    const QString description = m_json.value("error_description").toString().left(300);
    if (!code.isEmpty() && !description.isEmpty())
        return code + QStringLiteral(", ") + description;
    if (!code.isEmpty() || !description.isEmpty())
        return code + description;
    if (m_status >= 200 && m_status < 300)
        return TrString::in("Login", "the login service's answer is not understood");
    return TrString::in("Login", "the login service answered with status %1",
                        {QString::number(m_status)});
}

KeloJson OAuth2Answer::field(const char* camelCase, const char* standard) const
{
    const KeloJson value = m_json.value(camelCase);
    return value.isNull() ? m_json.value(standard) : value;
}

QString OAuth2Answer::user() const
{
    constexpr int longestName = 100;
    const KeloJson user = m_json.value("user");
    for (const char* field : {"fullName", "nickname", "username"}) {
        const QString name = user.value(field).toString().simplified();
        if (!name.isEmpty())
            return name.left(longestName);
    }
    return QString();
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
