#include "RouteTable.h"

void RouteTable::add(const char* method, const std::string& path, Handler handler)
{
    m_routes[path][method] = std::move(handler);
}

void RouteTable::add(const char* method, const std::string& path,
                     std::function<HttpReply(const HttpCall&)> handler)
{
    add(method, path,
        [handler = std::move(handler)](const HttpCall& call, const HttpAnswer& answer) {
            answer(handler(call));
        });
}

RouteTable::Handler RouteTable::find(const std::string& method, const std::string& path) const
{
    const auto& byMethod = m_routes.at(path);
    const auto handler = byMethod.find(method == "HEAD" ? "GET" : method);
    if (handler != byMethod.end())
        return handler->second;
    return [&byMethod, method](const HttpCall&, const HttpAnswer& answer) {
        HttpReply reply = HttpReply::wrongMethod(method);
        for (const auto& other : byMethod)
            reply.headers.emplace_back("Allow", other.first);
        answer(std::move(reply));
    };
}

std::vector<std::string> RouteTable::list() const
{
    std::vector<std::string> calls;
    for (const auto& [path, byMethod] : m_routes) {
        for (const auto& handler : byMethod)
            calls.push_back(handler.first + ' ' + path);
    }
    return calls;
}
