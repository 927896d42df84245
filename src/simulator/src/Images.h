#pragma once

#include "Catalogue.h"
#include "HttpMessage.h"

namespace kelosim {

// The image host: draws a picture per item in the sizes that exist for its kind. Owned by
// SimServer, used from every connection thread.
class Images
{
public:
    explicit Images(const Catalogue& catalogue) : m_catalogue(catalogue) {}

    // GET below /images; doubled slashes are accepted, anything unknown is 403 without JSON.
    HttpResponse serve(const HttpRequest& request);

private:
    const Catalogue& m_catalogue;
};

} // namespace kelosim
