#pragma once

#include "HttpMessage.h"

#include <list>
#include <mutex>
#include <optional>

namespace kelosim {

// The faults in force. A fault is one line: a name and key=value items. Those that concern the way
// of an answer are applied here to any route's answer; those that concern what the service says are
// asked for by the routes with use(). Owned by SimServer, used from every connection thread.
class Faults
{
public:
    // "" or a sentence. Also accepts "name=value" for the fault's main key.
    std::string add(const std::string& line);
    void clear();

    // The first fault of this name that applies to the request, its count reduced; empty otherwise.
    // Some faults know no path and are asked for without a request.
    std::optional<Pairs> use(const std::string& name, const HttpRequest& request = {});

    // What happens to the request before it reaches a route: an answer in its place.
    std::optional<HttpResponse> instead(const HttpRequest& request);
    // What happens to a finished answer on its way.
    void onTheWay(const HttpRequest& request, HttpResponse& response);

    // How far the Date header of an answer to this request is from the time, 0 without a fault.
    std::int64_t dateShiftMs(const HttpRequest& request);

    static std::string help();

private:
    struct Fault
    {
        std::string name;
        Pairs keys;
        std::int64_t skip = 0;   // matching requests that pass untouched first
        std::int64_t count = -1; // how often it still strikes, -1 without end
    };

    bool matches(const Fault& fault, const HttpRequest& request) const;

    std::mutex m_mutex;
    std::list<Fault> m_faults;
};

} // namespace kelosim
