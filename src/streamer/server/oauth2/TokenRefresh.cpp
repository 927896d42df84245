#include "TokenRefresh.h"

namespace {

constexpr qint64 firstPauseMs = 2000;
constexpr qint64 longestPauseMs = 5 * 60 * 1000;
/// A service that refuses every token must not make a loop of refreshing.
constexpr qint64 refusalPauseMs = 5000;

} // namespace

TokenRefresh::TokenRefresh(TokenEndpoint& endpoint, Clock& clock, Listener listener)
    : m_endpoint(endpoint), m_clock(clock), m_listener(std::move(listener)),
      m_lastAnswerMs(clock.steadyMs() - refusalPauseMs)
{
}

void TokenRefresh::setTokens(const KeloOAuth2ServiceInfo& info, const TokenSet& tokens)
{
    reset();
    m_info = info;
    m_tokens = tokens;
    if (!m_tokens.refresh.isEmpty())
        callLater(m_tokens.refreshInMs(m_clock.wallMs()));
}

void TokenRefresh::reset()
{
    ++m_login;
    ++m_timer;
    m_isRunning = false;
    m_isRefused = false;
    m_pauseMs = 0;
    m_tokens = TokenSet();
}

void TokenRefresh::tokenRefused(const QString& accessToken)
{
    if (m_tokens.refresh.isEmpty() || accessToken != m_tokens.access.reveal() || m_isRefused)
        return;
    m_isRefused = true;
    if (m_isRunning || m_pauseMs > 0)
        return; // a refresh is under way or waits for its next try
    callLater(qMax(qint64(0), m_lastAnswerMs + refusalPauseMs - m_clock.steadyMs()));
}

void TokenRefresh::callLater(qint64 ms)
{
    const int timer = ++m_timer;
    m_clock.callLater(ms, this, [this, timer] {
        if (timer == m_timer)
            onTime();
    });
}

void TokenRefresh::onTime()
{
    const qint64 leftMs = m_tokens.refreshInMs(m_clock.wallMs());
    if (leftMs > 0 && !m_isRefused && m_pauseMs == 0)
        callLater(leftMs);
    else
        refresh();
}

void TokenRefresh::refresh()
{
    m_isRunning = true;
    m_endpoint.askForTokens(m_info,
                            {{QStringLiteral("refresh_token"), m_tokens.refresh.reveal()},
                             {QStringLiteral("grant_type"), QStringLiteral("refresh_token")}},
                            [this, login = m_login](const TokenReply& reply) {
                                if (login == m_login)
                                    onAnswer(OAuth2Answer(reply, m_clock.wallMs()));
                            });
}

void TokenRefresh::onAnswer(const OAuth2Answer& answer)
{
    m_isRunning = false;
    m_lastAnswerMs = m_clock.steadyMs();
    TokenSet tokens = TokenSet::fromAnswer(answer, m_clock.wallMs());
    if (!tokens.isEmpty()) {
        // RFC 6749 6: without a new refresh token the old one stays good.
        if (tokens.refresh.isEmpty())
            tokens.refresh = m_tokens.refresh;
        if (tokens.user.isEmpty())
            tokens.user = m_tokens.user;
        m_listener.refreshed(tokens);
    } else if (answer.error() == QLatin1String("invalid_grant")) {
        reset();
        m_listener.ended(
            {TrString::in("Login", "The login has ended: the service does not accept it any "
                                   "more. Log in again."),
             KeloOAuth2Reason::Ended()});
    } else {
        retryLater({answer.problem(), answer.reason()});
    }
}

void TokenRefresh::retryLater(const LoginProblem& problem)
{
    m_pauseMs = m_pauseMs == 0 ? firstPauseMs : qMin(2 * m_pauseMs, longestPauseMs);
    callLater(m_pauseMs);
    m_listener.failed(problem);
}
