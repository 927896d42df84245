#pragma once

#include "Text.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace kelosim {

// One request as it came over the wire. Plain data, handed to the handler by reference.
struct HttpRequest
{
    std::string method;
    std::string path;                  // decoded
    std::vector<std::string> segments; // of the path, each decoded on its own: "%2F" stays inside
    Pairs query;                       // decoded, in the order sent
    Pairs headers;                     // names as sent
    std::string body;

    bool isGet() const { return method == "GET" || method == "HEAD"; }
    // The header's value without regard to the name's case, nullptr when absent.
    const std::string* header(std::string_view name) const;
    // The query value, "" when absent.
    std::string queryValue(std::string_view key) const { return textKey(query, key); }
};

// A body that is produced while it is sent; `read` fills up to `size` bytes from `offset`.
struct BodySource
{
    std::uint64_t length = 0;
    std::function<std::size_t(std::uint64_t offset, char* out, std::size_t size)> read;
};

// How an answer travels: what faults may do to it on its way.
struct Transport
{
    enum class Reset { None, BeforeHeaders, AfterHeaders };

    int delayMs = 0;
    bool hang = false;          // no answer until the client or the server goes away
    Reset reset = Reset::None;  // RST instead of the rest
    std::int64_t cutAfter = -1; // body bytes sent before the connection closes, -1 for all
    int dripMs = 0;             // pause between pieces of dripBytes
    std::size_t dripBytes = 64;
    bool compress = true; // gzip when the client accepts it
};

struct HttpResponse
{
    int status = 200;
    std::string contentType = {}; // none: header left out
    std::string body = {};
    Pairs headers = {};
    std::shared_ptr<BodySource> source = {}; // instead of body
    Transport transport = {};

    static HttpResponse json(int status, std::string body)
    {
        return {status, "application/json;charset=UTF-8", std::move(body)};
    }
    static HttpResponse html(int status, std::string body)
    {
        return {status, "text/html;charset=UTF-8", std::move(body)};
    }
};

const char* statusText(int status);
bool acceptsGzip(const HttpRequest& request);
std::string gzip(const std::string& bytes);

} // namespace kelosim
