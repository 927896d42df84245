#include "HttpCall.h"
#include "CurlAddress.h"
#include <algorithm>
#include <cstring>
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>

namespace {
/// Most redirects that one call follows.
constexpr int maxRedirects = 5;
/// Largest header block of an answer, in bytes.
constexpr int maxHeaderBytes = 256 * 1024;
/// Body memory taken at once on the word of an answer's Content-Length, in bytes.
constexpr curl_off_t maxReserve = 1024 * 1024;
/// Room behind a body, so that a reader that wants padding need not copy it.
constexpr int bodyPadding = 64;
constexpr long connectTimeoutMs = 30000;
/// After this time a call may be one that hangs, and others ask for themselves.
constexpr std::chrono::seconds longestJoined{3};
constexpr long receiveBufferBytes = 64 * 1024;

/// What the environment excludes from its proxy, and loopback.
const QByteArray& noProxy()
{
    static const QByteArray hosts = [] {
        QByteArray list = qgetenv("no_proxy");
        if (list.isEmpty())
            list = qgetenv("NO_PROXY");
        if (list.trimmed() == "*")
            return list;
        return list + (list.isEmpty() ? "" : ",") + "localhost,127.0.0.0/8,::1";
    }();
    return hosts;
}

/// RFC 9110 5.6.2.
bool isToken(const QByteArray& name)
{
    const auto isTokenByte = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
               (c != '\0' && std::strchr("!#$%&'*+-.^_`|~", c));
    };
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), isTokenByte);
}

/// RFC 9110 5.5: neither line ends nor zero bytes.
bool isFieldValue(const QByteArray& value)
{
    return std::none_of(value.begin(), value.end(),
                        [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
}

/// Whether the verification of a certificate failed for its dates, as OpenSSL numbers it.
bool isCertificateDate(CURL* easy)
{
    constexpr long notYetValid = 9; // X509_V_ERR_CERT_NOT_YET_VALID
    constexpr long hasExpired = 10; // X509_V_ERR_CERT_HAS_EXPIRED
    long result = 0;
    curl_easy_getinfo(easy, CURLINFO_SSL_VERIFYRESULT, &result);
    return result == notYetValid || result == hasExpired;
}

bool isRedirect(long status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}
} // namespace

HttpCall::HttpCall(HttpClient::HttpVersion version, bool keepAlive)
    : m_easy(curl_easy_init()), m_isKeptAlive(keepAlive)
{
    curl_easy_setopt(m_easy, CURLOPT_PRIVATE, this);
    curl_easy_setopt(m_easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(m_easy, CURLOPT_TCP_NODELAY, 1L);
    curl_easy_setopt(m_easy, CURLOPT_TCP_KEEPALIVE, 1L);
    curl_easy_setopt(m_easy, CURLOPT_CONNECTTIMEOUT_MS, connectTimeoutMs);
    curl_easy_setopt(m_easy, CURLOPT_BUFFERSIZE, receiveBufferBytes);
    curl_easy_setopt(m_easy, CURLOPT_USERAGENT, "kelo/0.1.0");
    curl_easy_setopt(m_easy, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(m_easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(m_easy, CURLOPT_NOPROXY, noProxy().constData());
    curl_easy_setopt(m_easy, CURLOPT_HTTP_VERSION,
                     version == HttpClient::Version11 ? CURL_HTTP_VERSION_1_1
                                                      : CURL_HTTP_VERSION_2TLS);
    curl_easy_setopt(m_easy, CURLOPT_FORBID_REUSE, keepAlive ? 0L : 1L);
    curl_easy_setopt(m_easy, CURLOPT_WRITEFUNCTION, &HttpCall::writeBody);
    curl_easy_setopt(m_easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(m_easy, CURLOPT_HEADERFUNCTION, &HttpCall::writeHeader);
    curl_easy_setopt(m_easy, CURLOPT_HEADERDATA, this);
}

HttpCall::~HttpCall()
{
    curl_easy_cleanup(m_easy);
    curl_slist_free_all(m_headers);
}

HttpCall* HttpCall::of(CURL* easy)
{
    char* call = nullptr;
    curl_easy_getinfo(easy, CURLINFO_PRIVATE, &call);
    return reinterpret_cast<HttpCall*>(call);
}

HttpClient::Failure HttpCall::prepare(quintptr id, Method method, const KeloUrl& url,
                                      const QByteArray& body, const HttpClientOptions& options)
{
    m_id = id;
    m_method = method;
    m_url = url;
    m_requestBody = body;
    m_options = options;
    m_redirects = 0;
    m_started = std::chrono::steady_clock::now();
    m_startedAt = std::chrono::system_clock::now();
    if (!CurlAddress::isHttp(url.toEncoded()))
        return HttpClient::BadUrl;
    if (!setHeaders(method, options.headers()))
        return HttpClient::TransferFailed;
    curl_easy_setopt(m_easy, CURLOPT_URL, url.toEncoded().constData());
    setMethod(method);
    return HttpClient::NoFailure;
}

bool HttpCall::answers(const HttpClientOptions& options) const
{
    return std::chrono::steady_clock::now() - m_started < longestJoined &&
           m_options.headers().fields() == options.headers().fields() &&
           m_options.timeoutMs() == options.timeoutMs() &&
           m_options.readSizeLimit() == options.readSizeLimit() &&
           m_options.followsRedirects() == options.followsRedirects();
}

void HttpCall::addRecipient(quintptr id, QObject* receiver, const QMetaMethod& member,
                            const HttpClientPrivate& userData)
{
    m_recipients.push_back({id, receiver, member, userData});
}

bool HttpCall::abort(quintptr id)
{
    const auto found = std::find_if(m_recipients.begin(), m_recipients.end(),
                                    [id](const Recipient& one) { return one.id == id; });
    deliver(*found, HttpClient::Aborted, QByteArray(), HttpClientHeaders());
    m_recipients.erase(found);
    return !m_recipients.empty();
}

std::vector<quintptr> HttpCall::recipients() const
{
    std::vector<quintptr> ids;
    for (const Recipient& recipient : m_recipients)
        ids.push_back(recipient.id);
    return ids;
}

bool HttpCall::setHeaders(Method method, const HttpClientHeaders& headers)
{
    if (method != Method::Get)
        m_headers = curl_slist_append(m_headers, "Expect:"); // the body is sent at once
    for (const auto& field : headers.fields()) {
        const QByteArray name = field.first.toLatin1();
        const QByteArray value = field.second.toUtf8();
        if (!isToken(name) || !isFieldValue(value)) {
            KELO_LOG("http", ERROR) << "Header field refused: " << field.first;
            return false;
        }
        const QByteArray line = value.trimmed().isEmpty() ? name + ';' : name + ": " + value;
        m_headers = curl_slist_append(m_headers, line.constData());
    }
    curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, m_headers);
    return true;
}

void HttpCall::setMethod(Method method)
{
    // curl sends a request again when a kept connection turns out to be closed. What changes
    // something is sent once, so it gets a connection of its own.
    const bool isRead = method == Method::Get;
    curl_easy_setopt(m_easy, CURLOPT_FRESH_CONNECT, isRead && m_isKeptAlive ? 0L : 1L);
    const bool hasBody = method == Method::Post || !m_requestBody.isEmpty();
    if (hasBody && !isRead) {
        curl_easy_setopt(m_easy, CURLOPT_POST, 1L);
        curl_easy_setopt(m_easy, CURLOPT_POSTFIELDSIZE, long(m_requestBody.size()));
        curl_easy_setopt(m_easy, CURLOPT_POSTFIELDS, m_requestBody.constData());
    } else {
        curl_easy_setopt(m_easy, CURLOPT_HTTPGET, 1L);
    }
    curl_easy_setopt(m_easy, CURLOPT_CUSTOMREQUEST, method == Method::Delete ? "DELETE" : nullptr);
}

/// At least a moment: curl takes zero for no limit.
void HttpCall::setTimeout()
{
    using namespace std::chrono;
    long left = 0;
    if (m_options.timeoutMs() > 0) {
        const auto spent = duration_cast<milliseconds>(steady_clock::now() - m_started).count();
        left = std::max(1L, long(m_options.timeoutMs() - spent));
    }
    curl_easy_setopt(m_easy, CURLOPT_TIMEOUT_MS, left);
}

size_t HttpCall::writeBody(char* data, size_t, size_t count, void* call)
{
    return static_cast<HttpCall*>(call)->append(data, int(count)) ? count : 0;
}

bool HttpCall::append(const char* data, int size)
{
    const int limit = m_options.readSizeLimit();
    m_isBodyTooLarge = limit > 0 && size > limit - m_body.size();
    if (m_isBodyTooLarge || size > INT_MAX / 2 - m_body.size())
        return false;
    if (m_body.isEmpty()) {
        curl_off_t length = 0;
        curl_easy_getinfo(m_easy, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
        m_body.reserve(std::max(size, int(std::min(length, maxReserve))) + bodyPadding);
    }
    m_body.append(data, size);
    return true;
}

size_t HttpCall::writeHeader(char* data, size_t, size_t count, void* call)
{
    QByteArray& block = static_cast<HttpCall*>(call)->m_headerBlock;
    if (count >= 5 && std::memcmp(data, "HTTP/", 5) == 0)
        block.clear(); // the answer behind an interim one (RFC 9110 15.2)
    else if (block.size() + int(count) > maxHeaderBytes)
        return 0;
    else
        block.append(data, int(count));
    return count;
}

HttpClient::Failure HttpCall::failure(CURLcode result) const
{
    if (m_isBodyTooLarge)
        return HttpClient::BodyTooLarge;
    switch (result) {
    case CURLE_OK:
        return HttpClient::NoFailure;
    case CURLE_OPERATION_TIMEDOUT:
        return HttpClient::TimedOut;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
        return HttpClient::ConnectionFailed;
    case CURLE_PEER_FAILED_VERIFICATION:
        return isCertificateDate(m_easy) ? HttpClient::CertificateDate : HttpClient::TlsFailed;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
        return HttpClient::TlsFailed;
    case CURLE_URL_MALFORMAT:
        return HttpClient::BadUrl;
    default:
        return HttpClient::TransferFailed;
    }
}

bool HttpCall::redirect()
{
    if (!m_options.followsRedirects())
        return false;
    long status = 0;
    curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
    if (!isRedirect(status) || m_method != Method::Get || m_redirects >= maxRedirects)
        return false;
    char* text = nullptr;
    curl_easy_getinfo(m_easy, CURLINFO_REDIRECT_URL, &text);
    const QByteArray target = text;
    if (target.isEmpty() || !CurlAddress::isSameOrigin(m_url.toEncoded(), target))
        return false;
    ++m_redirects;
    m_body.clear();
    m_headerBlock.clear();
    curl_easy_setopt(m_easy, CURLOPT_URL, target.constData());
    setTimeout();
    return true;
}

int HttpCall::status(HttpClient::Failure failure) const
{
    long status = 0;
    if (failure == HttpClient::NoFailure)
        curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
    return int(status);
}

HttpCallRecord HttpCall::record(HttpClient::Failure failure) const
{
    using namespace std::chrono;
    static const char* const methods[] = {"GET", "POST", "DELETE"};
    HttpCallRecord record;
    record.startedMs = duration_cast<milliseconds>(m_startedAt.time_since_epoch()).count();
    record.durationMs = duration_cast<milliseconds>(steady_clock::now() - m_started).count();
    record.method = methods[int(m_method)];
    record.status = status(failure);
    record.failure = failure;
    record.bytes = m_body.size();
    record.setUrl(m_url);
    return record;
}

void HttpCall::deliver(HttpClient::Failure failure) const
{
    const bool isWhole = failure == HttpClient::NoFailure;
    const QByteArray body = isWhole ? m_body : QByteArray();
    const HttpClientHeaders headers =
        isWhole ? HttpClientHeaders(m_headerBlock) : HttpClientHeaders();
    for (const Recipient& recipient : m_recipients)
        deliver(recipient, failure, body, headers);
}

void HttpCall::deliver(const Recipient& recipient, HttpClient::Failure failure,
                       const QByteArray& body, const HttpClientHeaders& headers) const
{
    QObject* receiver = recipient.receiver.data();
    if (!receiver || !recipient.member.isValid())
        return;
    // Directly, since a queued call of a method looks up the types of its arguments each time.
    keloPost(receiver,
             [receiver, member = recipient.member, url = m_url, userData = recipient.userData,
              status = status(failure), failure, body, headers] {
                 member.invoke(receiver, Qt::DirectConnection, Q_ARG(KeloUrl, url),
                               Q_ARG(HttpClientPrivate, userData), Q_ARG(int, status),
                               Q_ARG(int, int(failure)), Q_ARG(QByteArray, body),
                               Q_ARG(HttpClientHeaders, headers));
             });
}

void HttpCall::clear()
{
    curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, nullptr);
    curl_slist_free_all(m_headers);
    m_headers = nullptr;
    m_url = KeloUrl();
    m_requestBody.clear();
    m_options = HttpClientOptions();
    m_recipients.clear();
    m_body = QByteArray();
    m_headerBlock.clear();
    m_isBodyTooLarge = false;
    m_isRunning = false;
}
