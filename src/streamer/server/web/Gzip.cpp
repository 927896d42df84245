#include "Gzip.h"

#include <zlib.h>

std::optional<std::string> gzip(const std::string& text, int level)
{
    constexpr int gzipWindow = 15 + 16;
    constexpr int memoryLevel = 8;
    z_stream stream = {};
    if (::deflateInit2(&stream, level, Z_DEFLATED, gzipWindow, memoryLevel, Z_DEFAULT_STRATEGY) !=
        Z_OK)
        return std::nullopt;
    std::string packed(::deflateBound(&stream, uLong(text.size())), 0);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = uInt(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(&packed[0]);
    stream.avail_out = uInt(packed.size());
    const int result = ::deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    ::deflateEnd(&stream);
    return result == Z_STREAM_END ? std::optional(std::move(packed)) : std::nullopt;
}
