#include "OriginGuard.h"

#include "RandomToken.h"

#include <arpa/inet.h>
#include <QSysInfo>

namespace {

/// The host of a Host header's value, without port and brackets, in lower case.
QString hostName(const std::string& header)
{
    const QString text = QString::fromStdString(header).trimmed().toLower();
    if (text.startsWith('[')) {
        const int end = text.indexOf(']');
        return end < 0 ? QString() : text.mid(1, end - 1);
    }
    const QString host = text.left(text.indexOf(':'));
    return host.endsWith('.') ? host.chopped(1) : host;
}

bool isAddress(const QString& host)
{
    in6_addr bytes;
    const QByteArray text = host.toLatin1();
    return inet_pton(AF_INET, text.constData(), &bytes) == 1 ||
           inet_pton(AF_INET6, text.constData(), &bytes) == 1;
}

bool isChanging(const std::string& method)
{
    return method != "GET" && method != "HEAD";
}

/// The user follows a link to the page, which opens for itself. Browsers alone can send these
/// fields.
bool isFollowedLink(const HttpRequest& request)
{
    return request.method == "GET" && request.path.rfind("/api/", 0) != 0 &&
           request.field("Sec-Fetch-Mode") == "navigate" &&
           request.field("Sec-Fetch-Dest") == "document";
}

} // namespace

OriginGuard::OriginGuard(const QString& boundAddress, const QStringList& names)
    : m_names{QStringLiteral("localhost"), QStringLiteral("127.0.0.1"), QStringLiteral("::1"),
              boundAddress.toLower()},
      m_isBoundToAll(boundAddress == QLatin1String("0.0.0.0") ||
                     boundAddress == QLatin1String("::")),
      m_token(randomToken())
{
    for (const QString& name : names)
        m_names.append(name.toLower());
    if (m_isBoundToAll) {
        const QString machine = QSysInfo::machineHostName().toLower();
        m_names << machine << machine + QStringLiteral(".local");
    }
}

bool OriginGuard::isOwnHost(const std::string& header) const
{
    const QString host = hostName(header);
    if (host.isEmpty())
        return false;
    // An address cannot be rebound; only names can.
    return m_names.contains(host) || (m_isBoundToAll && isAddress(host));
}

std::optional<HttpReply> OriginGuard::check(const HttpRequest& request) const
{
    const std::string host = request.field("Host");
    if (request.fieldCount("Host") != 1 || !isOwnHost(host))
        return HttpReply::problem(403, QStringLiteral("the Host header names another server"));
    if (request.fieldCount("Origin") > 0) {
        // The same name and port speaks one protocol, so "https" is our own page behind a proxy.
        const std::string origin = request.field("Origin");
        if (origin != "http://" + host && origin != "https://" + host)
            return HttpReply::problem(403, QStringLiteral("the page comes from another origin"));
        if (isChanging(request.method) && request.field(sessionHeader()) != m_token) {
            return HttpReply::problem(
                403, QStringLiteral("the session token is missing or old; see /api/v1/session"));
        }
    } else {
        // Browsers send no Origin with plain GETs, but say where they come from.
        const std::string site = request.field("Sec-Fetch-Site");
        if ((site == "cross-site" || site == "same-site") && !isFollowedLink(request))
            return HttpReply::problem(403, QStringLiteral("the page comes from another origin"));
    }
    return std::nullopt;
}
