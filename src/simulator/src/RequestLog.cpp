#include "RequestLog.h"

#include "Json.h"

#include <algorithm>
#include <chrono>

namespace kelosim {

namespace {

bool isSecret(std::string_view name)
{
    for (const char* word : {"authorization", "access_token", "refresh_token", "client_secret",
                             "device_code", "token", "x-tidal-token", "sessionid"}) {
        if (name == word)
            return true;
    }
    return false;
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

void RequestLog::add(const HttpRequest& request)
{
    Entry entry{request.method, request.path, request.query, request.headers,
                shortenBody(request.body.substr(0, maxBody))};
    shortenSecrets(entry.query);
    shortenSecrets(entry.headers);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_entries.push_back(std::move(entry));
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
        for (const Entry& entry : m_entries) {
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
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_added.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                            [&] { return countOf(pathPrefix) >= count; });
}

int RequestLog::countOf(const std::string& pathPrefix) const
{
    const std::string full = "/v1" + pathPrefix;
    return static_cast<int>(
        std::count_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
            return startsWith(entry.path, pathPrefix) || startsWith(entry.path, full);
        }));
}

} // namespace kelosim
