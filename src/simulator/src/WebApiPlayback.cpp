#include "WebApi.h"

#include <algorithm>

// Playback info and the manifests inside.
namespace kelosim {

namespace {

constexpr const char* qualities[] = {"LOW", "HIGH", "LOSSLESS", "HI_RES", "HI_RES_LOSSLESS"};

int rank(const std::string& quality)
{
    for (int i = 0; i < 5; ++i) {
        if (quality == qualities[i])
            return i;
    }
    return -1;
}

constexpr int lossless = 2;

constexpr const char* dash =
    "<?xml version='1.0' encoding='UTF-8'?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" "
    "type=\"static\" mediaPresentationDuration=\"PT3M\"><Period id=\"0\"/></MPD>";

} // namespace

HttpResponse WebApi::playbackInfo(const Call& call)
{
    const HttpRequest& request = call.request;
    const int asked = rank(request.queryValue("audioquality"));
    const std::int64_t id = call.id();
    const auto index = m_catalogue.trackIndex(id);
    if (auto refusal = playbackLimit(call))
        return std::move(*refusal);
    if (!index)
        return apiError(500, 999, "Unexpected error occurred.");
    if (asked < 0)
        return notFound("Quality");
    if (request.queryValue("playbackmode") == "OFFLINE")
        return apiError(401, 4007, "Client is not authorized for offline");
    if (!m_catalogue.track(*index).streamable)
        return apiError(401, 4005, "Asset is not ready for playback");
    int granted = std::min(asked, lossless); // nothing better is kept here
    if (const auto fault = m_faults.use("quality", request))
        granted = std::min(asked, rank(textKey(*fault, "grant")));
    const bool preview = request.queryValue("assetpresentation") == "PREVIEW";
    std::string mimeType;
    const std::string manifest =
        this->manifest(call, *index, qualities[granted], preview, &mimeType);
    JsonWriter json;
    json.beginObject().field("trackId", id);
    json.field("assetPresentation", preview ? "PREVIEW" : "FULL");
    if (preview)
        json.field("previewReason", "FULL_REQUIRES_SUBSCRIPTION");
    json.field("audioMode", "STEREO").field("audioQuality", qualities[granted]);
    if (const std::string* session = findValue(request.query, "streamingsessionid"))
        json.field("streamingSessionId", *session);
    json.field("manifestMimeType", mimeType);
    json.field("manifestHash", base64(hex(mix(id, granted), 16)));
    json.field("manifest", manifest).field("albumReplayGain", -7.9);
    json.field("albumPeakAmplitude", 1.0).field("trackReplayGain", -7.42);
    json.field("trackPeakAmplitude", 0.988553);
    if (granted >= lossless)
        json.field("bitDepth", 16).field("sampleRate", 44100);
    return HttpResponse::json(200, json.endObject().take());
}

// "Other device plays" for a while once too many calls came in three seconds.
std::optional<HttpResponse> WebApi::playbackLimit(const Call& call)
{
    const auto fault = m_faults.use("playback-limit", call.request);
    if (!fault)
        return std::nullopt;
    constexpr std::int64_t window = 3000;
    const std::int64_t now = nowMs();
    const std::lock_guard<std::mutex> lock(m_playbackMutex);
    while (!m_playbackCalls.empty() && m_playbackCalls.front() < now - window)
        m_playbackCalls.pop_front();
    m_playbackCalls.push_back(now);
    if (std::int64_t(m_playbackCalls.size()) > numberKey(*fault, "calls", 50)) {
        m_playbackBlockedUntil = now + 1000 * numberKey(*fault, "seconds", 60);
        m_playbackCalls.clear();
    }
    if (now >= m_playbackBlockedUntil)
        return std::nullopt;
    return apiError(401, 4006, "Session does not have streaming privileges");
}

std::string WebApi::manifest(const Call& call, int track, const std::string& granted, bool preview,
                             std::string* mimeType)
{
    const auto fault = m_faults.use("manifest", call.request);
    const std::string kind = fault ? textKey(*fault, "kind") : std::string();
    *mimeType = kind == "dash"      ? "application/dash+xml"
                : kind == "unknown" ? "application/vnd.example.other"
                                    : "application/vnd.tidal.bts";
    if (kind == "dash")
        return base64(dash);
    if (kind == "nonjson")
        return base64("this is no JSON");
    if (kind == "badbase64")
        return "%%%not*base64%%%";
    // The bytes are FLAC whatever is granted; lossy grants name the type that the service names.
    const bool lossy = rank(granted) < lossless;
    JsonWriter json;
    json.beginObject().field("mimeType", lossy ? "audio/mp4" : "audio/flac");
    json.field("codecs", granted == "LOW" ? "mp4a.40.5" : lossy ? "mp4a.40.2" : "flac");
    json.field("encryptionType", kind == "encrypted" ? "OLD_AES" : "NONE");
    if (kind == "encrypted")
        json.field("keyId", "c2ltdWxhdGVkIGtleQ==");
    json.key("urls").beginArray();
    const int urls = kind == "nourls" ? 0 : kind == "manyurls" ? 3 : 1;
    for (int i = 0; i < urls; ++i)
        json.value(m_audio.address(call.baseUrl, track, preview));
    return base64(json.endArray().endObject().take());
}

} // namespace kelosim
