#include "RequestLog.h"

#include "Json.h"

#include <algorithm>
#include <chrono>
#include <set>

namespace kelosim {

namespace {

bool isSecret(const std::string& name)
{
    static const std::set<std::string> names = {"authorization", "access_token", "refresh_token",
                                                "client_secret", "device_code",  "token",
                                                "x-tidal-token", "sessionid"};
    return names.count(name) != 0;
}

// The scheme word and the first four characters stay, enough to tell two secrets apart.
std::string shortened(const std::string& value)
{
    const std::size_t blank = value.find(' ');
    const std::size_t begin = blank == std::string::npos ? 0 : blank + 1;
    if (value.size() <= begin + 4)
        return value;
    return value.substr(0, begin + 4) + "...";
}

void shortenSecrets(Pairs& pairs)
{
    for (auto& pair : pairs) {
        if (isSecret(lowerAscii(pair.first)))
            pair.second = shortened(pair.second);
    }
}

std::string shortenBody(const std::string& body)
{
    std::vector<std::string> parts = split(body, '&');
    std::string out;
    for (std::string& part : parts) {
        const std::size_t equals = part.find('=');
        if (equals != std::string::npos && isSecret(part.substr(0, equals)))
            part = part.substr(0, equals + 1) + shortened(part.substr(equals + 1));
        out += (out.empty() ? "" : "&") + part;
    }
    return out;
}

void writePairs(JsonWriter& json, const char* key, const Pairs& pairs)
{
    json.key(key).beginArray();
    for (const auto& pair : pairs)
        json.beginArray().value(pair.first).value(pair.second).endArray();
    json.endArray();
}

} // namespace

void RequestLog::add(HttpRequest request)
{
    request.body = shortenBody(request.body.substr(0, maxBody));
    shortenSecrets(request.query);
    shortenSecrets(request.headers);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_entries.push_back(std::move(request));
        if (m_entries.size() > maxEntries)
            m_entries.pop_front();
    }
    m_added.notify_all();
}

void RequestLog::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.clear();
}

std::string RequestLog::json() const
{
    JsonWriter json;
    json.beginArray();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (const HttpRequest& entry : m_entries) {
            json.beginObject().field("method", entry.method).field("path", entry.path);
            writePairs(json, "query", entry.query);
            writePairs(json, "headers", entry.headers);
            json.field("body", entry.body).endObject();
        }
    }
    return json.endArray().take();
}

bool RequestLog::waitFor(const std::string& pathPrefix, int count, int timeoutMs) const
{
    const auto isMeant = [&](const HttpRequest& entry) {
        return startsWith(entry.path, pathPrefix) || startsWith(entry.path, "/v1" + pathPrefix);
    };
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_added.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] {
        return std::count_if(m_entries.begin(), m_entries.end(), isMeant) >= count;
    });
}

} // namespace kelosim
