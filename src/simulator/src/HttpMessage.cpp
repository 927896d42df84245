#include "HttpMessage.h"

#include <map>
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

const char* statusText(int status)
{
    static const std::map<int, const char*> texts = {{200, "OK"},
                                                     {201, "Created"},
                                                     {204, "No Content"},
                                                     {206, "Partial Content"},
                                                     {304, "Not Modified"},
                                                     {400, "Bad Request"},
                                                     {401, "Unauthorized"},
                                                     {403, "Forbidden"},
                                                     {404, "Not Found"},
                                                     {405, "Method Not Allowed"},
                                                     {410, "Gone"},
                                                     {412, "Precondition Failed"},
                                                     {413, "Payload Too Large"},
                                                     {416, "Range Not Satisfiable"},
                                                     {429, "Too Many Requests"},
                                                     {431, "Request Header Fields Too Large"},
                                                     {500, "Internal Server Error"},
                                                     {502, "Bad Gateway"},
                                                     {503, "Service Unavailable"},
                                                     {504, "Gateway Timeout"}};
    const auto it = texts.find(status);
    return it == texts.end() ? "Status" : it->second;
}

bool acceptsGzip(const HttpRequest& request)
{
    const std::string* accepted = request.header("Accept-Encoding");
    return accepted && accepted->find("gzip") != std::string::npos;
}

std::string gzip(const std::string& bytes)
{
    z_stream stream{};
    constexpr int gzipWindow = 15 + 16;
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, gzipWindow, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return {};
    std::string out(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = uInt(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(&out[0]);
    stream.avail_out = uInt(out.size());
    const int result = deflate(&stream, Z_FINISH);
    out.resize(result == Z_STREAM_END ? stream.total_out : 0);
    deflateEnd(&stream);
    return out;
}

} // namespace kelosim
