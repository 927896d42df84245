#include "ImageFetcher.h"

namespace {

constexpr int largestImage = 4 * 1024 * 1024;
constexpr int timeoutMs = 15000;

/// The type alone, without parameters (RFC 9110 8.3.1).
QString typeOf(const HttpClientHeaders& headers)
{
    const QString value = headers.value(QStringLiteral("Content-Type"));
    return value.left(value.indexOf(';')).trimmed().toLower();
}

/// Not svg: it may hold scripts and load from elsewhere.
bool isPicture(const QString& type)
{
    static const QStringList types{QStringLiteral("image/jpeg"), QStringLiteral("image/png"),
                                   QStringLiteral("image/webp"), QStringLiteral("image/gif")};
    return types.contains(type);
}

ImageResult problem(int status, const QString& text)
{
    return {nullptr, status, text};
}

} // namespace

void ImageFetcher::fetch(const std::string& url)
{
    if (!m_client) {
        m_client = new HttpClient(this);
        m_client->setRecorded(false);
    }
    HttpClientOptions options;
    options.setTimeoutMs(timeoutMs).setReadSizeLimit(largestImage).setFollowsRedirects(false);
    m_client->get(KeloUrl::fromEncoded(QByteArray::fromStdString(url)), this, "on_answer_invoke",
                  options);
}

void ImageFetcher::on_answer_invoke(KeloUrl url, HttpClientPrivate, int status, int code,
                                    QByteArray body, HttpClientHeaders headers)
{
    m_done(url.toEncoded().toStdString(), result(status, code, body, headers));
}

ImageResult ImageFetcher::result(int status, int code, const QByteArray& body,
                                 const HttpClientHeaders& headers)
{
    if (code == HttpClient::TimedOut)
        return problem(504, QStringLiteral("the server of the picture did not answer in time"));
    if (code == HttpClient::BodyTooLarge)
        return problem(502,
                       QStringLiteral("the picture is larger than %1 bytes").arg(largestImage));
    if (code != HttpClient::NoFailure)
        return problem(502, QStringLiteral("the server of the picture did not answer"));
    // A store of pictures that lists none says 403 of one that it does not have.
    if (status == 403 || status == 404 || status == 410)
        return problem(404, QStringLiteral("there is no such picture"));
    if (status != 200)
        return problem(
            502, QStringLiteral("the server of the picture answered with status %1").arg(status));
    const QString type = typeOf(headers);
    if (!isPicture(type))
        return problem(502, QStringLiteral("what stands at the address is no picture"));
    return {std::make_shared<const Image>(Image{type.toStdString(), body}), 200, {}};
}
