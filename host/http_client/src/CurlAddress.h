#pragma once
#include <QByteArray>

/// Questions about addresses that curl's own URL reader answers, so that no other reader's view of
/// a host decides where a token goes.
class CurlAddress
{
public:
    /// Whether the address names http or https, a scheme that curl would otherwise guess.
    static bool isHttp(const QByteArray& url);
    /// Whether two addresses have the same scheme, host and port (RFC 6454 4) and the second one
    /// carries no user info.
    static bool isSameOrigin(const QByteArray& url, const QByteArray& other);
};
