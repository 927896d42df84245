#pragma once
#include "HttpCall.h"
#include "HttpServer.h"

#include <map>

/// The calls that the HTTP API answers, by path and method. Owned by the web server; filled before
/// it starts, then only read, on any thread. Where a request comes from is not its business.
class RouteTable
{
public:
    /// Answers at once or later, and never waits.
    using Handler = std::function<void(const HttpCall&, const HttpAnswer&)>;

    void add(const char* method, const std::string& path, Handler handler);
    /// A call that is answered at once.
    void add(const char* method, const std::string& path,
             std::function<HttpReply(const HttpCall&)> handler);
    bool hasPath(const std::string& path) const { return m_routes.count(path) != 0; }
    /// The handler of a path of the table (a HEAD is answered as a GET), or one that says 405 when
    /// the path does not take the method.
    Handler find(const std::string& method, const std::string& path) const;
    /// All calls as "METHOD PATH".
    std::vector<std::string> list() const;

private:
    std::map<std::string, std::map<std::string, Handler>> m_routes; ///< by path, then method
};
