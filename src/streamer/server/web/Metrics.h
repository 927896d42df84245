#pragma once
#include <chrono>
#include <map>
#include <mutex>
#include <string>

/// Counts the calls of the HTTP API and writes them as Prometheus text. Owned by the web server;
/// any thread.
class Metrics
{
public:
    /// `route` is one of the server's own, never a text from outside.
    void count(const std::string& route, int status, std::chrono::nanoseconds duration);
    /// All figures; the arguments are those that others keep.
    std::string text(int eventClients, int droppedEventClients, int pendingRequests) const;

private:
    struct Route
    {
        std::map<int, unsigned long long> byStatus;
        unsigned long long calls = 0;
        double seconds = 0;
    };

    mutable std::mutex m_mutex;
    std::map<std::string, Route> m_routes;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};
