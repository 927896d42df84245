#pragma once
#include "HttpCall.h"
#include "HttpReply.h"

#include <functional>
#include <map>

/// The calls that the HTTP API answers, by path and method. Owned by the web server; filled before
/// it starts, then only read, on any thread. Where a request comes from is not its business.
class RouteTable
{
public:
    using Handler = std::function<HttpReply(const HttpCall&)>;

    void add(const char* method, const std::string& path, Handler handler);
    bool hasPath(const std::string& path) const { return m_routes.count(path) != 0; }
    /// Runs the handler of a path of the table (a HEAD is answered as a GET); 405 when it does not
    /// take the method.
    HttpReply answer(const std::string& method, const std::string& path,
                     const HttpCall& call) const;
    /// All calls as "METHOD PATH".
    std::vector<std::string> list() const;

private:
    std::map<std::string, std::map<std::string, Handler>> m_routes; ///< by path, then method
};
