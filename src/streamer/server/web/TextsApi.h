#pragma once
#include "RouteTable.h"

/// The call of the HTTP API that gives the web page its texts in the client's language. Holds
/// nothing; any thread.
class TextsApi
{
public:
    static void addRoutes(RouteTable& routes);

private:
    static HttpReply texts(const HttpCall& call);
};
