#include "Audio.h"

#include <algorithm>

namespace kelosim {

namespace {

constexpr std::int64_t addressSeconds = 3600;

struct Range
{
    std::uint64_t first = 0;
    std::uint64_t last = 0;
};

enum class RangeKind { Whole, Part, Impossible };

// RFC 9110, 14.1.2: one byte range; several or malformed ones are ignored.
RangeKind readRange(const std::string& header, std::uint64_t size, Range* range)
{
    if (!startsWith(header, "bytes=") || header.find(',') != std::string::npos)
        return RangeKind::Whole;
    const std::string text = header.substr(6);
    const std::size_t dash = text.find('-');
    if (dash == std::string::npos)
        return RangeKind::Whole;
    const auto first = toNumber(text.substr(0, dash));
    const auto last = toNumber(text.substr(dash + 1));
    if (dash == 0) { // the last so many bytes
        if (!last || *last < 0)
            return RangeKind::Whole;
        if (*last == 0)
            return RangeKind::Impossible;
        *range = {size - std::min<std::uint64_t>(size, static_cast<std::uint64_t>(*last)),
                  size - 1};
        return RangeKind::Part;
    }
    if (!first || (!last && dash + 1 != text.size()) || (last && *last < *first))
        return RangeKind::Whole;
    if (static_cast<std::uint64_t>(*first) >= size)
        return RangeKind::Impossible;
    *range = {static_cast<std::uint64_t>(*first), size - 1};
    if (last)
        range->last = std::min(range->last, static_cast<std::uint64_t>(*last));
    return RangeKind::Part;
}

} // namespace

int Audio::shortSeconds() const
{
    const auto fault = m_faults.use("short-tracks");
    return fault ? static_cast<int>(
                       std::clamp<std::int64_t>(numberKey(*fault, "seconds", 0), 1, 3600))
                 : 0;
}

std::string Audio::signature(std::int64_t track, std::int64_t expires, std::uint64_t nonce) const
{
    return hex(mix(m_catalogue.seed(), static_cast<std::uint64_t>(track),
                   static_cast<std::uint64_t>(expires), nonce),
               16);
}

std::string Audio::address(const std::string& baseUrl, int track, bool preview) const
{
    std::uint64_t nonce = 0;
    {
        const std::lock_guard<std::mutex> lock(m_nonceMutex);
        nonce = ++m_nonce;
    }
    const std::int64_t id = m_catalogue.track(track).id;
    const std::int64_t expires = nowMs() / 1000 + addressSeconds;
    return baseUrl + "/audio/" + std::to_string(id) + (preview ? "/preview" : "/0") +
           ".flac?token=" + std::to_string(expires) + "~" + std::to_string(nonce) + "~" +
           signature(id, expires, nonce);
}

bool Audio::isTokenValid(std::int64_t track, const std::string& token) const
{
    const std::vector<std::string> parts = split(token, '~');
    if (parts.size() != 3)
        return false;
    const auto expires = toNumber(parts[0]);
    const auto nonce = toNumber(parts[1]);
    return expires && nonce && *expires > nowMs() / 1000 &&
           parts[2] == signature(track, *expires, static_cast<std::uint64_t>(*nonce));
}

std::shared_ptr<const FlacTone> Audio::tone(int track, int seconds)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto kept = std::find_if(m_tones.begin(), m_tones.end(), [&](const Kept& one) {
        return one.track == track && one.seconds == seconds;
    });
    if (kept != m_tones.end()) {
        m_tones.splice(m_tones.begin(), m_tones, kept);
    } else {
        const std::uint64_t number = mix(m_catalogue.seed(), static_cast<std::uint64_t>(track), 8);
        m_tones.push_front({track, seconds, std::make_shared<FlacTone>(number, seconds)});
        if (m_tones.size() > maxTones)
            m_tones.pop_back();
    }
    return m_tones.front().tone;
}

HttpResponse Audio::serve(const HttpRequest& request)
{
    if (request.method != "GET" && request.method != "HEAD")
        return HttpResponse::html(405, "Method not allowed");
    const std::vector<std::string> segments = request.segments();
    const std::int64_t id = segments.size() == 3 ? toNumber(segments[1]).value_or(-1) : -1;
    const auto index = m_catalogue.trackIndex(id);
    if (!index || !isTokenValid(id, request.queryValue("token")))
        return HttpResponse::html(403, "<html><body>Access denied</body></html>");
    const Track track = m_catalogue.track(*index);
    const int shortened = shortSeconds();
    int seconds = shortened > 0 ? shortened : track.duration;
    if (segments[2] == "preview.flac")
        seconds = std::min(seconds, previewSeconds);
    const std::shared_ptr<const FlacTone> tone = this->tone(*index, seconds);
    if (!tone->isValid())
        return HttpResponse::html(503, "No encoder");
    const std::uint64_t size = tone->size();
    const std::string* header = request.header("Range");
    Range range{0, size - 1};
    const RangeKind kind = header ? readRange(*header, size, &range) : RangeKind::Whole;
    HttpResponse response;
    response.transport.compress = false;
    response.headers.emplace_back("Accept-Ranges", "bytes");
    if (kind == RangeKind::Impossible) {
        response.status = 416;
        response.headers.emplace_back("Content-Range", "bytes */" + std::to_string(size));
        return response;
    }
    if (kind == RangeKind::Part) {
        response.status = 206;
        response.headers.emplace_back("Content-Range", "bytes " + std::to_string(range.first) +
                                                           "-" + std::to_string(range.last) + "/" +
                                                           std::to_string(size));
    }
    response.contentType = "audio/flac";
    response.source = std::make_shared<BodySource>();
    response.source->length = range.last - range.first + 1;
    response.source->read = [tone, begin = range.first](std::uint64_t offset, char* out,
                                                        std::size_t count) {
        return tone->read(begin + offset, out, count);
    };
    return response;
}

} // namespace kelosim
