#include "Gzip.h"

#include <memory>
#include <zlib.h>

std::optional<std::string> gzip(const std::string& text, int level)
{
    constexpr int gzipWindow = 15 + 16;
    constexpr int memoryLevel = 8;
    z_stream stream = {};
    if (::deflateInit2(&stream, level, Z_DEFLATED, gzipWindow, memoryLevel, Z_DEFAULT_STRATEGY) !=
        Z_OK)
        return std::nullopt;
    const uLong bound = ::deflateBound(&stream, uLong(text.size()));
    // Not filled beforehand: of a long text's bound most is never touched.
    const std::unique_ptr<char[]> packed(new char[bound]);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = uInt(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.get());
    stream.avail_out = uInt(bound);
    const int result = ::deflate(&stream, Z_FINISH);
    ::deflateEnd(&stream);
    if (result != Z_STREAM_END)
        return std::nullopt;
    return std::string(packed.get(), stream.total_out);
}
