#include "ImageApi.h"

#include <algorithm>
#include <QRegularExpression>

namespace {

constexpr int longestUrl = 2048;

} // namespace

ImageApi::ImageApi(const QString& base, Bases others) : m_base(base), m_others(std::move(others)) {}

void ImageApi::addRoutes(RouteTable& routes)
{
    routes.add("GET", "/api/v1/image",
               [this](const HttpCall& call, const HttpAnswer& answer) { image(call, answer); });
}

/// The address is the base, letter by letter, and names of files and folders behind it that no
/// reader of addresses takes for anything else: no dot segments, no escapes of dots and slashes, no
/// second host. So nothing but the base decides what is reached.
bool ImageApi::isBelow(const QString& base, const QString& url)
{
    static const QRegularExpression rest(
        QStringLiteral("\\A(?!.*(?:\\A|/)\\.{1,2}(?:/|\\?|\\z))"
                       "(?:[A-Za-z0-9._~,+=-]|%(?:20|[89A-Fa-f][0-9A-Fa-f]))+"
                       "(?:/(?:[A-Za-z0-9._~,+=-]|%(?:20|[89A-Fa-f][0-9A-Fa-f]))+)*"
                       "(?:\\?[A-Za-z0-9._~,+=&-]*)?\\z"));
    return !base.isEmpty() && url.size() <= longestUrl && url.startsWith(base) &&
           rest.match(url.mid(base.size())).hasMatch();
}

bool ImageApi::isAllowed(const QString& url) const
{
    static const QRegularExpression usable(QStringLiteral("\\Ahttps?://[^/@?#]+/([^?#]*/)?\\z"));
    if (isBelow(m_base, url))
        return true;
    const QStringList others = m_others ? m_others() : QStringList();
    return std::any_of(others.begin(), others.end(), [&url](const QString& base) {
        return usable.match(base).hasMatch() && isBelow(base, url);
    });
}

/// The service of the demo has another port after each start; what clients have kept names the
/// earlier one.
QString ImageApi::present(const QString& url) const
{
    static const QRegularExpression demo(QStringLiteral("\\Ahttp://127\\.0\\.0\\.1:\\d+/images/"));
    return demo.match(m_base).hasMatch() ? QString(url).replace(demo, m_base) : url;
}

void ImageApi::image(const HttpCall& call, const HttpAnswer& answer)
{
    std::optional<QString> url = call.parameter("url");
    if (!url || url->isEmpty())
        return answer(HttpReply::badRequest(QStringLiteral("url: is missing")));
    url = present(*url);
    if (!isAllowed(*url))
        return answer(
            HttpReply::problem(403, QStringLiteral("url: wanted an address of the service's "
                                                   "pictures, which begin with %1")
                                        .arg(m_base)));
    m_loader.load(url->toStdString(), [answer](const ImageResult& result) {
        if (!result.image)
            return answer(HttpReply::problem(result.status, result.problem));
        HttpReply reply;
        reply.contentType = result.image->contentType;
        reply.body = result.image->body.toStdString();
        // A page from elsewhere is refused by where it says to come from, so this decides about
        // copies.
        reply.headers = {{"Cache-Control", "private, max-age=86400"},
                         {"Vary", "Origin, Sec-Fetch-Site"}};
        answer(std::move(reply));
    });
}
