#pragma once
#include <functional>
#include <kelo/CMReply.h>
#include <kelo/KeloOAuth2.h>

/// What the web API asks of the login. Every operation may be called from any thread.
class LoginControl
{
public:
    using Listener = std::function<void(const KeloOAuth2Info& status)>;

    virtual ~LoginControl() = default;

    /// Its `expiresIn` counts from now.
    virtual KeloOAuth2Info status() const = 0;
    /// Starts a login, or joins the one that waits for the user. Answered when there is a code to
    /// show, when logged in already, or with the reason why there is none.
    virtual CMReply<QVariant> start() = 0;
    virtual CMReply<QVariant> logout() = 0;
    /// As PlayerControl's.
    virtual quint64 addListener(Listener listener) = 0;
    virtual void removeListener(quint64 id) = 0;
};
