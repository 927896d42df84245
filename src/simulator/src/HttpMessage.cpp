#include "HttpMessage.h"

#include <zlib.h>

namespace kelosim {

const std::string* HttpRequest::header(std::string_view name) const
{
    const std::string wanted = lowerAscii(name);
    for (const auto& header : headers) {
        if (lowerAscii(header.first) == wanted)
            return &header.second;
    }
    return nullptr;
}

std::string HttpRequest::queryValue(std::string_view key) const
{
    const std::string* value = findValue(query, key);
    return value ? *value : std::string();
}

std::vector<std::string> HttpRequest::segments() const
{
    std::vector<std::string> out;
    for (const std::string& part : split(rawPath, '/')) {
        if (!part.empty())
            out.push_back(percentDecode(part, false));
    }
    return out;
}

HttpResponse HttpResponse::json(int status, std::string body)
{
    HttpResponse response;
    response.status = status;
    response.contentType = "application/json;charset=UTF-8";
    response.body = std::move(body);
    return response;
}

HttpResponse HttpResponse::html(int status, std::string body)
{
    HttpResponse response;
    response.status = status;
    response.contentType = "text/html;charset=UTF-8";
    response.body = std::move(body);
    return response;
}

HttpResponse HttpResponse::empty(int status)
{
    HttpResponse response;
    response.status = status;
    return response;
}

const char* statusText(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 201:
        return "Created";
    case 204:
        return "No Content";
    case 206:
        return "Partial Content";
    case 304:
        return "Not Modified";
    case 400:
        return "Bad Request";
    case 401:
        return "Unauthorized";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 410:
        return "Gone";
    case 412:
        return "Precondition Failed";
    case 413:
        return "Payload Too Large";
    case 416:
        return "Range Not Satisfiable";
    case 429:
        return "Too Many Requests";
    case 431:
        return "Request Header Fields Too Large";
    case 500:
        return "Internal Server Error";
    case 502:
        return "Bad Gateway";
    case 503:
        return "Service Unavailable";
    case 504:
        return "Gateway Timeout";
    default:
        return "Status";
    }
}

bool acceptsGzip(const HttpRequest& request)
{
    const std::string* accepted = request.header("Accept-Encoding");
    if (!accepted)
        return false;
    for (const std::string& part : split(lowerAscii(*accepted), ',')) {
        const std::size_t begin = part.find_first_not_of(' ');
        if (begin == std::string::npos || part.compare(begin, 4, "gzip") != 0)
            continue;
        return part.find("q=0", begin) == std::string::npos ||
               part.find("q=0.", begin) != std::string::npos;
    }
    return false;
}

std::string gzip(const std::string& bytes)
{
    z_stream stream{};
    constexpr int gzipWindow = 15 + 16;
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, gzipWindow, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return {};
    std::string out(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(&out[0]);
    stream.avail_out = static_cast<uInt>(out.size());
    const int result = deflate(&stream, Z_FINISH);
    out.resize(result == Z_STREAM_END ? stream.total_out : 0);
    deflateEnd(&stream);
    return out;
}

} // namespace kelosim
