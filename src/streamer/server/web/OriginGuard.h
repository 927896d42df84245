#pragma once
#include "HttpReply.h"
#include "HttpRequest.h"

#include <optional>
#include <QStringList>

/// Decides whether a request comes from where it may: not through a foreign name (DNS rebinding),
/// not from a foreign page, and, when a page changes something, with the session token that only
/// the streamer's own page can read. Owned by the web server; any thread.
class OriginGuard
{
public:
    /// `names` are further host names under which the streamer is reached.
    OriginGuard(const QString& boundAddress, const QStringList& names);

    /// The refusal; nothing when the request may pass.
    std::optional<HttpReply> check(const HttpRequest& request) const;
    /// Made at start; sent back in the header sessionHeader().
    const std::string& sessionToken() const { return m_token; }
    static const char* sessionHeader() { return "X-Kelo-Session"; }

private:
    bool isOwnHost(const std::string& host) const;

    QStringList m_names;
    bool m_isBoundToAll;
    std::string m_token;
};
