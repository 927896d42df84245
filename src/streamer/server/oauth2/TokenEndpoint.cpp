#include "TokenEndpoint.h"

#include <kelo/KeloLog.h>
#include <QDateTime>
#include <QLocale>

namespace {

constexpr int answerTimeoutMs = 20000;
constexpr int longestAnswer = 256 * 1024;

QByteArray encodedForm(const TokenEndpoint::Form& form)
{
    QByteArray body;
    for (const auto& [key, value] : form) {
        if (!body.isEmpty())
            body += '&';
        body += KeloUrl::toPercentEncoding(key) + '=' + KeloUrl::toPercentEncoding(value);
    }
    return body;
}

/// RFC 9110 5.6.7, the form that is sent today; 0 for any other.
qint64 dateMs(const QString& text)
{
    QDateTime date =
        QLocale::c().toDateTime(text, QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"));
    date.setTimeSpec(Qt::UTC);
    return date.isValid() ? date.toMSecsSinceEpoch() : 0;
}

/// Client authentication (RFC 6749 2.3.1): adds id and, where there is one, secret to the form, or
/// the id alone and returns the authorization header's value, as the service wants it.
QString addClient(const KeloOAuth2ServiceInfo& info, TokenEndpoint::Form& form)
{
    form.append({QStringLiteral("client_id"), info.clientId()});
    if (info.clientSecret().isEmpty())
        return QString();
    if (info.authMethod() == KeloOAuth2AuthMethod::Basic_) {
        const QByteArray pair = KeloUrl::toPercentEncoding(info.clientId()) + ':' +
                                KeloUrl::toPercentEncoding(info.clientSecret());
        return QStringLiteral("Basic ") + QString::fromLatin1(pair.toBase64());
    }
    form.append({QStringLiteral("client_secret"), info.clientSecret()});
    return QString();
}

} // namespace

void TokenEndpoint::askForTokens(const KeloOAuth2ServiceInfo& info, const Form& grant, Done done)
{
    Form form;
    const QString authorization = addClient(info, form);
    form += grant;
    form.append({QStringLiteral("scope"), info.scope()});
    post(info.tokenUrl(), form, authorization, std::move(done));
}

HttpTokenEndpoint::HttpTokenEndpoint(QObject* parent) : QObject(parent), m_client(nullptr) {}

void HttpTokenEndpoint::post(const QString& url, const Form& form, const QString& authorization,
                             Done done)
{
    HttpClientHeaders headers;
    headers.insert(QStringLiteral("Accept"), QStringLiteral("application/json"));
    if (!authorization.isEmpty())
        headers.insert(QStringLiteral("Authorization"), authorization);
    HttpClientPrivate userData;
    userData.setTag(++m_lastTag);
    m_waiting.insert(m_lastTag, std::move(done));
    HttpClientOptions options;
    options.setTimeoutMs(answerTimeoutMs).setReadSizeLimit(longestAnswer).setHeaders(headers);
    options.setUserData(userData);
    m_client.post(KeloUrl(url), encodedForm(form), this, "on_answer_invoke", options);
}

void HttpTokenEndpoint::on_answer_invoke(KeloUrl url, HttpClientPrivate userData, int status,
                                         int code, QByteArray body, HttpClientHeaders headers)
{
    KELO_LOG("OAuth2", DEBUG) << keloUrlForLog(url.toString()) << " answered with status " << status
                              << ", code " << code;
    m_waiting.take(userData.tag())(
        {status, body, HttpClient::Failure(code), dateMs(headers.value(QStringLiteral("Date")))});
}
