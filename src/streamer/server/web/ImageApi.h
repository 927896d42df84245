#pragma once
#include "ImageLoader.h"
#include "RouteTable.h"

/// The picture call of the HTTP API: brings the service's pictures to the page, so that it loads
/// nothing from elsewhere. Only addresses that begin as the service's picture address does are
/// fetched. Owned by the web server; any thread.
class ImageApi
{
public:
    /// `base` is the service's picture address, with the closing slash; empty: no picture may be
    /// asked for.
    explicit ImageApi(const QString& base);

    void addRoutes(RouteTable& routes);
    void stop() { m_loader.stop(); }

private:
    void image(const HttpCall& call, const HttpAnswer& answer);
    bool isAllowed(const QString& url) const;
    QString present(const QString& url) const;

    const QString m_base;
    ImageLoader m_loader;
};
