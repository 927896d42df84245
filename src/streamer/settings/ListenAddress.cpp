#include "settings/ListenAddress.h"

#include <arpa/inet.h>
#include <QRegularExpression>

namespace {

bool isIpv6(const QString& host)
{
    in6_addr address;
    return inet_pton(AF_INET6, host.toLatin1().constData(), &address) == 1;
}

} // namespace

/// Digits and dots alone are never a name.
bool isIpv4OrHostName(const QString& host)
{
    static const QRegularExpression digitsAndDots("^[0-9.]+$");
    static const QRegularExpression name("^(?=.{1,253}$)[A-Za-z0-9]([A-Za-z0-9-]*[A-Za-z0-9])?"
                                         "(\\.[A-Za-z0-9]([A-Za-z0-9-]*[A-Za-z0-9])?)*$");
    if (digitsAndDots.match(host).hasMatch()) {
        in_addr address;
        return inet_pton(AF_INET, host.toLatin1().constData(), &address) == 1;
    }
    return name.match(host).hasMatch();
}

std::optional<ListenAddress> ListenAddress::parse(const QString& text)
{
    static const QRegularExpression form("^(?:\\[(.+)\\]|([^:\\[\\]]+)):([0-9]{1,5})$");
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const int port = match.captured(3).toInt();
    const QString bracketed = match.captured(1);
    const QString plain = match.captured(2);
    if (port > 65535 || (bracketed.isEmpty() ? !isIpv4OrHostName(plain) : !isIpv6(bracketed)))
        return std::nullopt;
    return ListenAddress{bracketed.isEmpty() ? plain : bracketed, static_cast<quint16>(port)};
}

QString ListenAddress::toString() const
{
    const QString form = host.contains(':') ? "[%1]:%2" : "%1:%2";
    return form.arg(host).arg(port);
}
