#include "Metrics.h"

#include <fstream>
#include <sstream>
#include <unistd.h>

namespace {

long long residentBytes()
{
    std::ifstream statm("/proc/self/statm");
    long long all = 0;
    long long resident = 0;
    statm >> all >> resident;
    return resident * ::sysconf(_SC_PAGESIZE);
}

template <class Number>
void write(std::ostream& out, const char* name, const char* type, const char* help, Number value)
{
    out << "# HELP " << name << ' ' << help << "\n# TYPE " << name << ' ' << type << '\n'
        << name << ' ' << value << '\n';
}

} // namespace

void Metrics::count(const std::string& route, int status, std::chrono::nanoseconds duration)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Route& entry = m_routes[route];
    ++entry.byStatus[status];
    ++entry.calls;
    entry.seconds += std::chrono::duration<double>(duration).count();
}

std::string Metrics::text(int eventClients, int droppedEventClients, int pendingRequests) const
{
    using namespace std::chrono;
    std::ostringstream out;
    out << "# HELP kelo_http_requests_total Calls answered, by route and status.\n"
           "# TYPE kelo_http_requests_total counter\n";
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& [name, route] : m_routes) {
        for (const auto& [status, count] : route.byStatus) {
            out << "kelo_http_requests_total{route=\"" << name << "\",status=\"" << status << "\"} "
                << count << '\n';
        }
    }
    out << "# HELP kelo_http_request_seconds Time from request to answer, by route.\n"
           "# TYPE kelo_http_request_seconds summary\n";
    for (const auto& [name, route] : m_routes) {
        out << "kelo_http_request_seconds_sum{route=\"" << name << "\"} " << route.seconds << '\n'
            << "kelo_http_request_seconds_count{route=\"" << name << "\"} " << route.calls << '\n';
    }
    write(out, "kelo_event_clients", "gauge", "Open event streams.", eventClients);
    write(out, "kelo_event_clients_dropped_total", "counter",
          "Event streams ended because the client did not keep up.", droppedEventClients);
    write(out, "kelo_pending_requests", "gauge", "Requests to the tree without an answer yet.",
          pendingRequests);
    write(out, "kelo_resident_memory_bytes", "gauge", "Resident memory.", residentBytes());
    write(out, "kelo_uptime_seconds", "gauge", "Time since start.",
          duration_cast<seconds>(steady_clock::now() - m_start).count());
    return out.str();
}
