#pragma once
#include "RouteTable.h"

#include <kelo/CMReply.h>

class KeloOAuth2Info;
class LoginControl;
class ReplyWaiter;

/// The login's calls of the HTTP API. Owned by the web server; any thread.
class LoginApi
{
public:
    LoginApi(LoginControl& login, ReplyWaiter& waiter) : m_login(login), m_waiter(waiter) {}

    void addRoutes(RouteTable& routes);
    /// A login state as JSON, as the call and the event show it.
    static std::string text(const KeloOAuth2Info& info, const TextCatalogue* texts);

private:
    HttpReply state(const HttpCall& call) const;
    /// Answers with the state when the reply is finished.
    void finish(const CMReply<QVariant>& reply, const HttpCall& call, const HttpAnswer& answer);
    /// The address to confirm the login at, as a picture to read with a telephone.
    HttpReply qrCode() const;

    LoginControl& m_login;
    ReplyWaiter& m_waiter;
};
