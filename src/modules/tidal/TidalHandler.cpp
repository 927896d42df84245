#include "TidalHandler.h"
#include "TidalWorker.h"
#include <algorithm>
#include <kelo/CMRoot.h>
#include <kelo/HttpClient.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloUrl.h>
#include <QUrl>

namespace {
constexpr int getTimeoutMs = 30000;
constexpr int getReadSizeLimit = 262144;

/// Something of this service at the host's OAuth2 service.
CMPath loginPath(const QString& subpath)
{
    CMPath path = TidalWorker::loginPath();
    path.appendSubpath(subpath);
    return path;
}

KeloUrl requestUrl(const QString& apiUrl, const QString& path, const TidalHandler::Query& query)
{
    KeloUrl url;
    url.setUrl(apiUrl + path);
    url.setQueryItems(query);
    return url;
}

/// Whether a text can be one segment of a path. A "/" cannot even when it is escaped, because many
/// a server decodes before it looks for segments; "." and ".." are taken out on the way (RFC 3986
/// 5.2.4).
bool isSegment(const QString& text)
{
    return !text.isEmpty() && text != QLatin1String(".") && text != QLatin1String("..") &&
           !text.contains(QLatin1Char('/'));
}

/// What need not be escaped in a segment stays as it is (RFC 3986 3.3).
QString encodedSegment(const QString& text)
{
    // Most are identifiers.
    const auto isPlain = [](QChar c) { return c < QChar(0x80) && c.isLetterOrNumber(); };
    if (std::all_of(text.begin(), text.end(), isPlain))
        return text;
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "!$&'()*+,;=:@"));
}
} // namespace

TidalHandler::TidalHandler(TidalWorker* worker, QString const& apiUrl, QString const& countryCode)
    : QObject(worker), m_worker(worker),
      m_httpClient(new HttpClient(this, HttpClient::VersionAny, true)), m_apiUrl(apiUrl),
      m_accessToken(new CMValueItem(this, loginPath(KeloOAuth2AccessTokenSubPath()))),
      m_responder(apiUrl, this)
{
    m_account.setCountryCode(countryCode);
}

void TidalHandler::resetAccount()
{
    m_account.clear();
    m_responder.forgetRadio();
}

void TidalHandler::setAccount(QString const& sessionId, QString const& countryCode, qint64 userId)
{
    m_account.setSessionId(sessionId);
    m_account.setCountryCode(countryCode);
    m_account.setUserId(userId);
}

void* TidalHandler::get(QString path, QList<QPair<QString, QString>>& query, QObject* receiver,
                        char const* member, HttpClientPrivate const& userData, int timeoutMs,
                        int readSizeLimit)
{
    const KeloUrl url = requestUrl(m_apiUrl, path, query);
    KELO_LOG("Tidal", INFO) << "Url get request: " << [&] { return keloUrlForLog(url.toString()); };
    return m_httpClient->get(url, receiver, member,
                             requestOptions(userData, timeoutMs, readSizeLimit));
}

void* TidalHandler::post(QString path, QList<QPair<QString, QString>>& query, QString& body,
                         QObject* receiver, char const* member, HttpClientPrivate const& userData,
                         int timeoutMs, HttpClientHeaders const& headers, int readSizeLimit)
{
    const KeloUrl url = requestUrl(m_apiUrl, path, query);
    KELO_LOG("Tidal", INFO) << "Url post request: "
                            << [&] { return keloUrlForLog(url.toString()); };
    KELO_LOG("Tidal", TRACE) << "Post data: " << body;
    return m_httpClient->post(url, body.toLatin1(), receiver, member,
                              requestOptions(userData, timeoutMs, readSizeLimit, headers));
}

void* TidalHandler::deleteCall(QString path, QList<QPair<QString, QString>>& query,
                               QObject* receiver, char const* member,
                               HttpClientPrivate const& userData, int timeoutMs,
                               HttpClientHeaders const& headers, int readSizeLimit)
{
    const KeloUrl url = requestUrl(m_apiUrl, path, query);
    // The wording of a GET is deliberate: readers of logs rely on it.
    KELO_LOG("Tidal", INFO) << "Url get request: " << [&] { return keloUrlForLog(url.toString()); };
    return m_httpClient->delete_(url, QByteArray(), receiver, member,
                                 requestOptions(userData, timeoutMs, readSizeLimit, headers));
}

HttpClientOptions TidalHandler::requestOptions(HttpClientPrivate userData, int timeoutMs,
                                               int readSizeLimit, HttpClientHeaders headers)
{
    // Not another one than was checked, which may be of another login.
    const QString token = m_checkedToken.isEmpty() ? accessToken() : m_checkedToken;
    m_checkedToken.clear();
    const bool isOtherSetUp = m_worker->setUpNumber() != m_sentSetUp;
    if (token != m_sentToken || isOtherSetUp || m_sentTag == 0)
        ++m_sentTag;
    if (token != m_sentToken)
        m_firstTagOfToken = m_sentTag;
    if (isOtherSetUp)
        m_firstTagOfSetUp = m_sentTag;
    m_sentToken = token;
    m_sentSetUp = m_worker->setUpNumber();
    headers.insert(QStringLiteral("Authorization"), QStringLiteral("Bearer ") + token);
    userData.setTag(m_sentTag);
    const CMGetRowsRequest rows = userData.getCMGetRowsRequest();
    return HttpClientOptions()
        .setShared(!rows.isNull() && !rows.reply().isNull())
        .setUserData(userData)
        .setTimeoutMs(timeoutMs)
        .setReadSizeLimit(readSizeLimit)
        .setHeaders(headers);
}

void TidalHandler::reportRefusedToken(const HttpClientPrivate& refused)
{
    if (refused.tag() >= m_firstTagOfToken)
        CMRoot().invoke(loginPath(KeloOAuth2RefreshSubPath()), m_sentToken);
}

bool TidalHandler::isOfEarlierLogin(const HttpClientPrivate& call) const
{
    return call.tag() != 0 &&
           (m_worker->setUpNumber() != m_sentSetUp || call.tag() < m_firstTagOfSetUp);
}

bool TidalHandler::checkAccessToken(const CMRequest& request)
{
    m_checkedToken = accessToken();
    const bool isMixed = m_account.userId() != 0 && m_worker->isLoginChanging();
    if (!m_checkedToken.isEmpty() && !isMixed)
        return true;
    KELO_LOG("Tidal", WARN) << "Access token is not set";
    if (!request.isNull())
        request.reply().setError(CMError(KELO_TR("Access token is not set")));
    return false;
}

bool TidalHandler::checkSession(const CMRequest& request)
{
    if (!checkAccessToken(request))
        return false;
    if (m_worker->isUserConfigured())
        return true;
    request.reply().setError(TidalWorker::loggedOutError());
    return false;
}

TidalHandler::Query TidalHandler::countryQuery() const
{
    return {{QStringLiteral("countryCode"), m_account.countryCode()}};
}

QString TidalHandler::userPath(const QString& subPath) const
{
    return KeloTidalApiPathUsers() + QLatin1Char('/') + QString::number(m_account.userId()) +
           subPath;
}

QString TidalHandler::pathOf(const CMRequest& request, std::initializer_list<QString> segments)
{
    QString path;
    for (const QString& segment : segments) {
        if (!isSegment(segment)) {
            KELO_LOG("Tidal", WARN) << "Not an identifier: " << segment;
            request.reply().setError(
                CMError(QStringLiteral("TIDAL"),
                        segment.isEmpty() ? KELO_TR("What this is about is not said")
                                          : TrString(TrCharData{trExtractContext(Q_FUNC_INFO),
                                                                "%1 is no identifier", nullptr},
                                                     {segment})));
            return QString();
        }
        path += QLatin1Char('/') + encodedSegment(segment);
    }
    return path;
}

QString TidalHandler::userPathOf(const CMRequest& request,
                                 std::initializer_list<QString> segments) const
{
    const QString path = pathOf(request, segments);
    return path.isEmpty() ? QString() : userPath(path);
}

void TidalHandler::sendGet(const QString& path, Query query, const char* member,
                           const HttpClientPrivate::Data& requests)
{
    if (!path.isEmpty())
        get(path, query, &m_responder, member, requests, getTimeoutMs, getReadSizeLimit);
}

CMGetRowsRequest TidalHandler::syntheticRequest(const QString& apiPath)
{
    return CMGetRowsRequest(KeloTidalPrefixPath() + apiPath, 0, 0, QStringList(), -1,
                            CMVoidReply());
}
