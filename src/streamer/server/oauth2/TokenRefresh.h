#pragma once
#include "Clock.h"
#include "LoginProblem.h"
#include "OAuth2Answer.h"
#include "TokenEndpoint.h"
#include "TokenSet.h"

/// Keeps the tokens of one login fresh (RFC 6749 6): ahead of expiry, and at once when a token was
/// refused; one request at a time, whoever asks. After a failure that may pass it tries again, with
/// growing pauses, as long as the login stands. Owned by its service, on that one's thread; calls
/// back there, last of all in a call. It publishes and stores nothing.
class TokenRefresh : public QObject
{
    Q_OBJECT
public:
    struct Listener
    {
        /// Hands over the new tokens. The receiver stores them, then calls setTokens().
        std::function<void(const TokenSet&)> refreshed;
        /// A try failed; another one follows.
        std::function<void(const LoginProblem& problem)> failed;
        /// The service says that the login is over.
        std::function<void(const LoginProblem& problem)> ended;
    };

    TokenRefresh(TokenEndpoint& endpoint, Clock& clock, Listener listener);

    /// The tokens of the login from now on.
    void setTokens(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens);
    /// Forgets the tokens; an answer under way is dropped.
    void reset();
    /// Somebody was refused with this access token: refreshes unless it is an older one, soon after
    /// the last refresh only with a pause.
    void tokenRefused(const QString& accessToken);
    /// Whether a request is under way.
    bool isRunning() const { return m_isRunning; }

private:
    void callLater(qint64 ms);
    void onTime();
    void refresh();
    void onAnswer(const OAuth2Answer& answer);
    void retryLater(const LoginProblem& problem);

    TokenEndpoint& m_endpoint;
    Clock& m_clock;
    const Listener m_listener;
    KeloOAuth2ServiceInfo m_info;
    TokenSet m_tokens;
    bool m_isRunning = false;
    bool m_isRefused = false; ///< the present access token was refused; cleared by new tokens
    qint64 m_pauseMs = 0;     ///< after the last failure; 0 when there was none
    qint64 m_lastAnswerMs;    ///< steady time of the last answer
    int m_login = 0;          ///< grows with new tokens and reset(): late answers are dropped
    int m_timer = 0;          ///< number of the timer that counts
};
