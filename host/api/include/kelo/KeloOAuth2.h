#pragma once
#include "CMPath.h"
#include "KeloHash.h"
#include "KeloNames.h"

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
    KELO_NAME(ServiceName, "serviceName")
    KELO_NAME(DisplayName, "displayName")
    KELO_NAME(AuthorizationUrl, "authorizationUrl")
    KELO_NAME(ClientId, "clientId")
    KELO_NAME(ClientSecret, "clientSecret")
    KELO_NAME(TokenUrl, "tokenUrl")
    KELO_NAME(Scope, "scope")
    KELO_NAME(ScopeData, "scopeData")
    KELO_NAME(UsePkce, "usePkce")
    KELO_NAME(AuthMethod, "authMethod")
    KELO_NAME(DeviceCodeUrl, "deviceCodeUrl")

    KeloOAuth2ServiceInfo() = default;
    explicit KeloOAuth2ServiceInfo(const KeloHash& hash) : KeloHash(hash) {}

    /// The service's key: its node stands at KeloOAuth2ServicePath() with this name appended.
    QString serviceName() const { return value(ServiceName()).toString(); }
    void setServiceName(const QString& name) { insert(ServiceName(), name); }
    QString displayName() const { return value(DisplayName()).toString(); }
    void setDisplayName(const QString& name) { insert(DisplayName(), name); }
    QString authorizationUrl() const { return value(AuthorizationUrl()).toString(); }
    void setAuthorizationUrl(const QString& url) { insert(AuthorizationUrl(), url); }
    QString clientId() const { return value(ClientId()).toString(); }
    void setClientId(const QString& id) { insert(ClientId(), id); }
    QString clientSecret() const { return value(ClientSecret()).toString(); }
    void setClientSecret(const QString& secret) { insert(ClientSecret(), secret); }
    QString tokenUrl() const { return value(TokenUrl()).toString(); }
    void setTokenUrl(const QString& url) { insert(TokenUrl(), url); }
    QString scope() const { return value(Scope()).toString(); }
    void setScope(const QString& scope) { insert(Scope(), scope); }
    QVariant scopeData() const { return value(ScopeData()); }
    void setScopeData(const QVariant& data) { insert(ScopeData(), data); }
    bool usePkce() const { return value(UsePkce()).toBool(); }
    void setUsePkce(bool use) { insert(UsePkce(), use); }
    int authMethod() const { return value(AuthMethod()).toInt(); }
    void setAuthMethod(KeloOAuth2AuthMethod::Enum method) { insert(AuthMethod(), int(method)); }
    QString deviceCodeUrl() const { return value(DeviceCodeUrl()).toString(); }
    void setDeviceCodeUrl(const QString& url) { insert(DeviceCodeUrl(), url); }
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
    KELO_NAME(LoggedIn, "loggedIn")
    KELO_NAME(DisplayName, "displayName")
    KELO_NAME(UserCode, "userCode")
    KELO_NAME(VerificationUri, "verificationUri")
    KELO_NAME(VerificationUriComplete, "verificationUriComplete")
    KELO_NAME(ExpiresIn, "expiresIn")
    KELO_NAME(Problem, "problem")
    KELO_NAME(Reason, "reason")

    KeloOAuth2Info() = default;
    explicit KeloOAuth2Info(const KeloHash& hash) : KeloHash(hash) {}

    bool loggedIn() const { return value(LoggedIn()).toBool(); }
    void setLoggedIn(bool loggedIn) { insert(LoggedIn(), loggedIn); }
    QString displayName() const { return value(DisplayName()).toString(); }
    void setDisplayName(const QString& name) { insert(DisplayName(), name); }
    /// Whether a login waits for the user: then code and addresses are set.
    bool isPending() const { return contains(UserCode()); }
    /// The code that the user types at the verification address (RFC 8628 3.2).
    QString userCode() const { return value(UserCode()).toString(); }
    void setUserCode(const QString& code) { insert(UserCode(), code); }
    QString verificationUri() const { return value(VerificationUri()).toString(); }
    void setVerificationUri(const QString& uri) { insert(VerificationUri(), uri); }
    QString verificationUriComplete() const { return value(VerificationUriComplete()).toString(); }
    void setVerificationUriComplete(const QString& uri) { insert(VerificationUriComplete(), uri); }
    /// Seconds that the code was good for when it was published.
    int expiresIn() const { return value(ExpiresIn()).toInt(); }
    void setExpiresIn(int seconds) { insert(ExpiresIn(), seconds); }
    /// Why the last login failed or ended; empty when there is nothing to say.
    QString problem() const { return value(Problem()).toString(); }
    void setProblem(const QString& text) { insert(Problem(), text); }
    /// One of KeloOAuth2Reason's when there is a problem.
    QString reason() const { return value(Reason()).toString(); }
    void setReason(const QString& reason) { insert(Reason(), reason); }
};

/// Where the login states of the services stand, each at its name.
KELO_EXPORT CMPath KeloOAuth2ServicePath();
/// Takes a KeloOAuth2ServiceInfo.
KELO_EXPORT CMPath KeloOAuth2AddServicePath();
/// Segment below a service's login state at which its access token stands.
KELO_EXPORT const QString& KeloOAuth2AccessTokenSubPath();
/// Segment below a service's login state that takes an access token that the service refused, a
/// string: when it is still the present one, another is fetched.
KELO_EXPORT const QString& KeloOAuth2RefreshSubPath();

Q_DECLARE_METATYPE(KeloOAuth2Info)
Q_DECLARE_METATYPE(KeloOAuth2ServiceInfo)
