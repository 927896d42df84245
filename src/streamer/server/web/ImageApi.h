#pragma once
#include "ImageLoader.h"
#include "RouteTable.h"

/// The picture call of the HTTP API: brings the service's pictures to the page, so that it loads
/// nothing from elsewhere. Only addresses that begin as the picture address of the service or of
/// another module does are fetched. Owned by the web server; any thread.
class ImageApi
{
public:
    using Bases = std::function<QStringList()>;

    /// `base` is the service's picture address, with the closing slash, `others` gives those of
    /// other modules; empty: no picture may be asked for.
    explicit ImageApi(const QString& base, Bases others = {});

    void addRoutes(RouteTable& routes);
    void stop() { m_loader.stop(); }

private:
    void image(const HttpCall& call, const HttpAnswer& answer);
    bool isAllowed(const QString& url) const;
    static bool isBelow(const QString& base, const QString& url);
    QString present(const QString& url) const;

    const QString m_base;
    const Bases m_others;
    ImageLoader m_loader;
};
