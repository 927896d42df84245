#pragma once
#include "RouteTable.h"

class HttpCallRecord;

/// The call of the HTTP API that lists the requests which the module made. Keeps nothing; any
/// thread.
class RequestsApi
{
public:
    static void addRoutes(RouteTable& routes);
    /// A request as JSON, as the list and the event show it.
    static std::string text(const HttpCallRecord& record);

private:
    static HttpReply requests(const HttpCall& call);
};
