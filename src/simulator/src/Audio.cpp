#include "Audio.h"

#include <algorithm>

namespace kelosim {

namespace {

constexpr std::int64_t addressSeconds = 3600;

struct Range
{
    std::int64_t first;
    std::int64_t last; // in front of the first: no byte of the file is meant
};

// RFC 9110, 14.1.2: one byte range; several or malformed ones are ignored.
std::optional<Range> readRange(const std::string& header, std::int64_t size)
{
    const std::size_t dash = header.find('-');
    if (!startsWith(header, "bytes=") || header.find(',') != std::string::npos ||
        dash == std::string::npos)
        return std::nullopt;
    const std::string firstText = header.substr(6, dash - 6);
    const std::string lastText = header.substr(dash + 1);
    const auto first = toNumber(firstText);
    const auto last = toNumber(lastText);
    if (firstText.empty()) // the last so many bytes
        return last && *last >= 0 ? std::optional(Range{std::max<std::int64_t>(0, size - *last),
                                                        *last == 0 ? -1 : size - 1})
                                  : std::nullopt;
    if (!first || (!last && !lastText.empty()) || (last && *last < *first))
        return std::nullopt;
    return Range{*first, last ? std::min(size - 1, *last) : size - 1};
}

} // namespace

int Audio::shortSeconds() const
{
    const auto fault = m_faults.use("short-tracks");
    return fault ? int(std::clamp<std::int64_t>(numberKey(*fault, "seconds", 0), 1, 3600)) : 0;
}

std::string Audio::signature(std::int64_t track, std::int64_t expires, std::uint64_t nonce) const
{
    return hex(mix(m_catalogue.seed(), track, expires, nonce), 16);
}

std::string Audio::address(const std::string& baseUrl, int track, bool preview) const
{
    const std::uint64_t nonce = ++m_nonce;
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
           parts[2] == signature(track, *expires, (*nonce));
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
        const std::uint64_t number = mix(m_catalogue.seed(), track, 8);
        m_tones.push_front({track, seconds, std::make_shared<FlacTone>(number, seconds)});
        if (m_tones.size() > maxTones)
            m_tones.pop_back();
    }
    return m_tones.front().tone;
}

HttpResponse Audio::serve(const HttpRequest& request)
{
    if (!request.isGet())
        return HttpResponse::html(405, "Method not allowed");
    const std::vector<std::string>& segments = request.segments;
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
    const auto size = std::int64_t(tone->size());
    const std::string* header = request.header("Range");
    const auto part = header ? readRange(*header, size) : std::nullopt;
    const Range range = part.value_or(Range{0, size - 1});
    HttpResponse response;
    response.transport.compress = false;
    response.headers.emplace_back("Accept-Ranges", "bytes");
    if (range.last < range.first) {
        response.status = 416;
        response.headers.emplace_back("Content-Range", "bytes */" + std::to_string(size));
        return response;
    }
    if (part) {
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
