#pragma once
#include <functional>
#include <kelo/CMReply.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>

/// The state of the login to one service. A plain value.
struct LoginState
{
    QString service; ///< its name, by which it is registered
    KeloOAuth2Info info;
};

/// What the web API asks of the logins. Every operation may be called from any thread.
class LoginControl
{
public:
    using Listener = std::function<void(const LoginState& state)>;

    virtual ~LoginControl() = default;

    /// The names of the services, in the order of their registration. One that is there stays.
    virtual QStringList services() const = 0;
    /// Its `expiresIn` counts from now. Empty for a service that is not there.
    virtual KeloOAuth2Info status(const QString& service) const = 0;
    /// Starts a login, or joins the one that waits for the user. Answered when there is a code to
    /// show, when logged in already, or with the reason why there is none.
    virtual CMReply<QVariant> start(const QString& service) = 0;
    virtual CMReply<QVariant> logout(const QString& service) = 0;
    /// Hears of a service that is new, and of each later state. As PlayerControl's.
    virtual quint64 addListener(Listener listener) = 0;
    virtual void removeListener(quint64 id) = 0;

    /// The service that is meant where none is named: TIDAL where it is there, else the first;
    /// empty where there is none.
    QString usual() const
    {
        const QStringList all = services();
        return all.contains(KeloTidalName()) ? KeloTidalName() : all.value(0);
    }
};
