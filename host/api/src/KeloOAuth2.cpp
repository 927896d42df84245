#include "KeloOAuth2.h"

CMPath KeloOAuth2ServicePath()
{
    static const CMPath path(QStringLiteral("/oauth2/services"));
    return path;
}

CMPath KeloOAuth2AddServicePath()
{
    static const CMPath path(QStringLiteral("/oauth2/add"));
    return path;
}

const QString& KeloOAuth2AccessTokenSubPath()
{
    static const QString segment = QStringLiteral("accessToken");
    return segment;
}

const QString& KeloOAuth2RefreshSubPath()
{
    static const QString segment = QStringLiteral("refresh");
    return segment;
}
