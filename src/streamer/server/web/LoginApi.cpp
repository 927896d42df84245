#include "LoginApi.h"

#include "LoginControl.h"
#include "ReplyWaiter.h"

void LoginApi::addRoutes(RouteTable& routes)
{
    const std::string path = "/api/v1/login";
    routes.add("GET", path, [this](const HttpCall&) { return HttpReply::json(m_login.status()); });
    routes.add("POST", path, [this](const HttpCall&) { return answer(m_login.start()); });
    routes.add("DELETE", path, [this](const HttpCall&) { return answer(m_login.logout()); });
}

HttpReply LoginApi::answer(const CMReply<QVariant>& reply)
{
    m_waiter.wait(reply);
    if (reply.error().isSet())
        return HttpReply::error(reply.error());
    return HttpReply::json(m_login.status());
}
