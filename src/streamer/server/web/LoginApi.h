#pragma once
#include "RouteTable.h"

#include <kelo/CMReply.h>

class LoginControl;
struct LoginState;
class ReplyWaiter;

/// The logins' calls of the HTTP API. Owned by the web server; any thread.
class LoginApi
{
public:
    LoginApi(LoginControl& login, ReplyWaiter& waiter) : m_login(login), m_waiter(waiter) {}

    void addRoutes(RouteTable& routes);
    /// A login state as JSON, as the call and the event show it.
    static std::string text(const LoginState& state, const TextCatalogue* texts);

private:
    using Handler = std::function<void(const QString& service, const HttpCall&, const HttpAnswer&)>;

    /// Adds a call that means one service: the named one, else the usual; 404 where that is not
    /// there.
    void add(RouteTable& routes, const char* method, const std::string& path,
             const Handler& handler);
    HttpReply state(const QString& service, const HttpCall& call) const;
    HttpReply list(const HttpCall& call) const;
    /// Answers with the service's state when the reply is finished.
    void finish(const CMReply<QVariant>& reply, const QString& service, const HttpCall& call,
                const HttpAnswer& answer);
    /// The address to confirm the login at, as a picture to read with a telephone.
    HttpReply qrCode(const QString& service) const;

    LoginControl& m_login;
    ReplyWaiter& m_waiter;
};
