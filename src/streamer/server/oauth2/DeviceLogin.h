#pragma once
#include "Clock.h"
#include "LoginProblem.h"
#include "OAuth2Answer.h"
#include "TokenEndpoint.h"
#include "TokenSet.h"

/// What a user needs to approve a login.
struct DeviceCode
{
    QString userCode;
    QString verificationUri;         ///< with its scheme
    QString verificationUriComplete; ///< with its scheme; empty when the service gives none
    qint64 expiresInS = 0;
};

/// One login by device code (RFC 8628): asks for a code, then for the tokens until the user has
/// approved, refused, or let it expire. Owned by its service, on that one's thread; calls back
/// there, last of all in a call. It publishes and stores nothing.
class DeviceLogin : public QObject
{
    Q_OBJECT
public:
    struct Listener
    {
        std::function<void(const DeviceCode&)> code;
        std::function<void(const TokenSet&)> tokens;
        std::function<void(const LoginProblem& problem)> failed;
    };

    DeviceLogin(TokenEndpoint& endpoint, Clock& clock, Listener listener);

    /// Not while one is running.
    void start(const KeloOAuth2ServiceInfo& info);
    /// Ends it; nobody is told.
    void cancel();
    bool isRunning() const { return m_isRunning; }
    /// Whether its code has come and ended; it may still run, until a last answer.
    bool isExpired() const { return m_expiresAtMs > 0 && m_clock.steadyMs() >= m_expiresAtMs; }

private:
    void onCode(const OAuth2Answer& answer);
    void pollLater(qint64 delayS);
    void poll();
    void onToken(const OAuth2Answer& answer);
    void fail(const LoginProblem& problem);
    void expire();
    /// Wraps a call so that it runs only while this very login does.
    TokenEndpoint::Done guarded(void (DeviceLogin::*handle)(const OAuth2Answer&));

    TokenEndpoint& m_endpoint;
    Clock& m_clock;
    const Listener m_listener;
    KeloOAuth2ServiceInfo m_info;
    bool m_isRunning = false;
    int m_generation = 0; ///< grows with every start and end; late answers carry an older one
    Secret m_deviceCode;
    qint64 m_intervalS = 0;
    qint64 m_pauseS = 0;      ///< until the next poll; longer than the interval after a failed one
    qint64 m_expiresAtMs = 0; ///< steady time; 0 before there is a code
    LoginProblem m_trouble;   ///< why the last poll had no answer; empty when it had one
};
