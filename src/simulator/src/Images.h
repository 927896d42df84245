#pragma once

#include "Catalogue.h"
#include "HttpMessage.h"

#include <list>
#include <mutex>

namespace kelosim {

// The image host: draws a picture per item in the sizes that exist for its kind. Owned by
// SimServer, used from every connection thread. Keeps the last pictures up to a number of bytes.
class Images
{
public:
    explicit Images(const Catalogue& catalogue) : m_catalogue(catalogue) {}

    // GET below /images; doubled slashes are accepted, anything unknown is 403 without JSON.
    HttpResponse serve(const HttpRequest& request);

private:
    struct Kept
    {
        std::string path;
        std::string bytes;
    };

    std::string find(const std::string& path);
    void keep(const std::string& path, const std::string& bytes);

    static constexpr std::size_t maxBytes = 32 * 1024 * 1024;
    const Catalogue& m_catalogue;
    std::mutex m_mutex;
    std::list<Kept> m_kept; // the last used one first
    std::size_t m_bytes = 0;
};

} // namespace kelosim
