#pragma once
#include "CMPath.h"
#include "KeloHash.h"
#include "KeloNames.h"
#include "TrString.h"

/// How a client shows a token service who it is (RFC 6749 2.3).
struct KELO_EXPORT KeloOAuth2AuthMethod
{
    enum Enum {
        RequestBody_ = 0, ///< client id and secret in the form
        Basic_ = 1        ///< HTTP Basic authorisation
    };
};

/// What the host's OAuth2 service needs to log in to one service. Sent to
/// KeloOAuth2AddServicePath().
class KELO_EXPORT KeloOAuth2ServiceInfo : public KeloHash
{
public:
    KELO_NAME(AuthMethod, "authMethod")

    KeloOAuth2ServiceInfo() = default;
    explicit KeloOAuth2ServiceInfo(const KeloHash& hash) : KeloHash(hash) {}

    /// The service's key: its node stands at KeloOAuth2ServicePath() with this name appended.
    KELO_FIELD(QString, serviceName, ServiceName)
    KELO_FIELD(QString, displayName, DisplayName)
    KELO_FIELD(QString, authorizationUrl, AuthorizationUrl)
    KELO_FIELD(QString, clientId, ClientId)
    KELO_FIELD(QString, clientSecret, ClientSecret)
    KELO_FIELD(QString, tokenUrl, TokenUrl)
    KELO_FIELD(QString, scope, Scope)
    KELO_FIELD(QVariant, scopeData, ScopeData)
    KELO_FIELD(bool, usePkce, UsePkce)
    int authMethod() const { return value(AuthMethod()).toInt(); }
    void setAuthMethod(KeloOAuth2AuthMethod::Enum method) { insert(AuthMethod(), int(method)); }
    KELO_FIELD(QString, deviceCodeUrl, DeviceCodeUrl)
};

/// Why a login failed or ended, for clients that help.
struct KELO_EXPORT KeloOAuth2Reason
{
    KELO_NAME(Expired, "expired") ///< the code ended before it was confirmed
    KELO_NAME(Denied, "denied")   ///< the user or the service refused the login
    KELO_NAME(Client, "client")   ///< the service refuses this client, or none is set
    KELO_NAME(Clock, "clock")     ///< this machine's clock is wrong
    KELO_NAME(Network, "network") ///< the service is not reached
    KELO_NAME(Service, "service") ///< the service fails, or is not understood
    KELO_NAME(Ended, "ended")     ///< the service ended a login that stood
};

/// Login state of one service, as the host's OAuth2 service publishes it. It is published, logged
/// out, before anybody logs in, and the access token is published before `loggedIn` turns true.
class KELO_EXPORT KeloOAuth2Info : public KeloHash
{
public:
    KeloOAuth2Info() = default;
    explicit KeloOAuth2Info(const KeloHash& hash) : KeloHash(hash) {}

    KELO_FIELD(bool, loggedIn, LoggedIn)
    KELO_FIELD(QString, displayName, DisplayName)
    /// Whether a login waits for the user: then code and addresses are set.
    bool isPending() const { return contains(UserCode()); }
    /// The code that the user types at the verification address (RFC 8628 3.2).
    KELO_FIELD(QString, userCode, UserCode)
    KELO_FIELD(QString, verificationUri, VerificationUri)
    KELO_FIELD(QString, verificationUriComplete, VerificationUriComplete)
    /// Seconds that the code was good for when it was published.
    KELO_FIELD(int, expiresIn, ExpiresIn)
    /// Why the last login failed or ended; empty when there is nothing to say.
    KELO_NAME(Problem, "problem")
    TrString problem() const { return TrString::fromVariant(value(Problem())); }
    void setProblem(const TrString& problem) { insert(Problem(), problem.toVariant()); }
    /// One of KeloOAuth2Reason's when there is a problem.
    KELO_FIELD(QString, reason, Reason)
    /// Grows with each login, so that what is known of one is not taken for another's.
    KELO_FIELD(int, loginNumber, LoginNumber)
    /// Who is logged in, as the service names them; empty where it does not say.
    KELO_FIELD(QString, user, User)
    /// What they subscribe to, in words; empty until a module has asked the service.
    KELO_FIELD(QString, subscription, Subscription)
};

/// Where the login states of the services stand, each at its name.
KELO_PATH(KeloOAuth2ServicePath, "/oauth2/services")
/// Takes a KeloOAuth2ServiceInfo.
KELO_PATH(KeloOAuth2AddServicePath, "/oauth2/add")
/// Segment below a service's login state at which its access token stands.
KELO_WORD(KeloOAuth2AccessTokenSubPath, "accessToken")
/// Segment below a service's login state that takes an access token that the service refused, a
/// string: when it is still the present one, another is fetched.
KELO_WORD(KeloOAuth2RefreshSubPath, "refresh")

Q_DECLARE_METATYPE(KeloOAuth2Info)
Q_DECLARE_METATYPE(KeloOAuth2ServiceInfo)
