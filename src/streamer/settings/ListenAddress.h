#pragma once

#include <optional>
#include <QString>

/// Whether a text is an IPv4 address or a name as host names are written (RFC 1123, section 2.1).
bool isIpv4OrHostName(const QString& host);

/// Where a server listens: a host (IPv4, IPv6 or a name) and a port, 0 meaning any free one. A
/// plain value. It does not look names up.
struct ListenAddress
{
    QString host = "127.0.0.1"; ///< without the brackets of an IPv6 address
    quint16 port = 8095;

    /// Reads `ADDR:PORT`, an IPv6 address in brackets; nothing when the text is no such address.
    static std::optional<ListenAddress> parse(const QString& text);
    QString toString() const;
};
