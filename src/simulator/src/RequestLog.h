#pragma once

#include "HttpMessage.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace kelosim {

// What was asked of the service, for tests to read and to wait on. Owned by SimServer, used from
// every connection thread. Keeps the newest entries only; secrets are shortened before they are
// stored.
class RequestLog
{
public:
    void add(HttpRequest request);
    void clear();
    // JSON array, oldest first: method, path, query [[key, value]], headers [[name, value]], body.
    std::string json() const;
    // Waits until `count` kept entries have a path that starts with `pathPrefix`, counted from
    // "/v1" or from behind it. False when `timeoutMs` pass first.
    bool waitFor(const std::string& pathPrefix, int count, int timeoutMs) const;

private:
    static constexpr std::size_t maxEntries = 20000;
    static constexpr std::size_t maxBody = 4096;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_added;
    std::deque<HttpRequest> m_entries;
};

} // namespace kelosim
