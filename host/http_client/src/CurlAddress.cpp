#include "CurlAddress.h"
#include <curl/curl.h>
#include <memory>

namespace {
struct UrlDeleter
{
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
using Url = std::unique_ptr<CURLU, UrlDeleter>;

QByteArray part(const Url& url, CURLUPart which)
{
    char* text = nullptr;
    if (curl_url_get(url.get(), which, &text, CURLU_DEFAULT_PORT) != CURLUE_OK)
        return QByteArray();
    const QByteArray result = text;
    curl_free(text);
    return result;
}

/// Scheme, host and port in lower case; empty for what curl cannot read.
QByteArray origin(const QByteArray& text, unsigned flags)
{
    const Url url(curl_url());
    if (!url || curl_url_set(url.get(), CURLUPART_URL, text.constData(), flags) != CURLUE_OK)
        return QByteArray();
    const QByteArray host = part(url, CURLUPART_HOST).toLower();
    return part(url, CURLUPART_SCHEME).toLower() + ' ' + host + ' ' + part(url, CURLUPART_PORT);
}
} // namespace

bool CurlAddress::isHttp(const QByteArray& url)
{
    const auto begins = [&](const char* prefix) {
        return qstrnicmp(url.constData(), prefix, uint(qstrlen(prefix))) == 0;
    };
    return begins("http://") || begins("https://");
}

bool CurlAddress::isSameOrigin(const QByteArray& url, const QByteArray& other)
{
    const QByteArray from = origin(url, 0);
    return !from.isEmpty() && from == origin(other, CURLU_DISALLOW_USER);
}
