#include "DeviceLogin.h"

namespace {

constexpr qint64 usualIntervalS = 5; // RFC 8628 3.2
constexpr qint64 slowDownS = 5;      // RFC 8628 3.5
constexpr qint64 longestPauseS = 30;
constexpr qint64 usualExpiryS = 300;
constexpr qint64 lastAnswerMs = 2000; // behind the end of a code

/// Services give the address without its scheme.
QString withScheme(const QString& uri)
{
    if (uri.isEmpty() || uri.startsWith(QLatin1String("https://"), Qt::CaseInsensitive) ||
        uri.startsWith(QLatin1String("http://"), Qt::CaseInsensitive))
        return uri;
    return QStringLiteral("https://") + uri;
}

} // namespace

DeviceLogin::DeviceLogin(TokenEndpoint& endpoint, Clock& clock, Listener listener)
    : m_endpoint(endpoint), m_clock(clock), m_listener(std::move(listener))
{
}

void DeviceLogin::start(const KeloOAuth2ServiceInfo& info)
{
    m_info = info;
    m_isRunning = true;
    ++m_generation;
    m_expiresAtMs = 0;
    m_trouble = LoginProblem();
    TokenEndpoint::Form form;
    form.append({QStringLiteral("client_id"), info.clientId()});
    form.append({QStringLiteral("scope"), info.scope()});
    m_endpoint.post(info.deviceCodeUrl(), form, QString(), guarded(&DeviceLogin::onCode));
}

void DeviceLogin::cancel()
{
    m_isRunning = false;
    ++m_generation;
    m_deviceCode = Secret();
}

TokenEndpoint::Done DeviceLogin::guarded(void (DeviceLogin::*handle)(const OAuth2Answer&))
{
    return [this, handle, generation = m_generation](const TokenReply& reply) {
        if (generation == m_generation)
            (this->*handle)(OAuth2Answer(reply, m_clock.wallMs()));
    };
}

void DeviceLogin::onCode(const OAuth2Answer& answer)
{
    DeviceCode code;
    const QString deviceCode = answer.text("deviceCode", "device_code");
    code.userCode = answer.text("userCode", "user_code");
    code.verificationUri = withScheme(answer.text("verificationUri", "verification_uri"));
    code.verificationUriComplete =
        withScheme(answer.text("verificationUriComplete", "verification_uri_complete"));
    if (!answer.isSuccess() || deviceCode.isEmpty() || code.userCode.isEmpty() ||
        code.verificationUri.isEmpty()) {
        // This request says nothing but who the client is, so it is what the service refuses.
        const bool isClientRefused = answer.error() == QLatin1String("invalid_request");
        fail({TrString::in("Login", "No login code: %1.", {answer.problem()}),
              isClientRefused ? KeloOAuth2Reason::Client() : answer.reason()});
        return;
    }
    m_deviceCode = Secret(deviceCode);
    m_intervalS = qMin(answer.number("interval", "interval", usualIntervalS), longestPauseS);
    code.expiresInS = qMin(answer.number("expiresIn", "expires_in", usualExpiryS), qint64(86400));
    m_expiresAtMs = m_clock.steadyMs() + code.expiresInS * 1000;
    pollLater(m_intervalS);
    // A poll that hangs does not keep a code on the screen that has ended.
    m_clock.callLater(code.expiresInS * 1000 + lastAnswerMs, this,
                      [done = guarded(&DeviceLogin::onToken)] { done(TokenReply()); });
    m_listener.code(code);
}

void DeviceLogin::pollLater(qint64 delayS)
{
    m_pauseS = delayS;
    const qint64 leftMs = qMax(qint64(0), m_expiresAtMs - m_clock.steadyMs());
    m_clock.callLater(qMin(delayS * 1000, leftMs), this, [this, generation = m_generation] {
        if (generation == m_generation)
            poll();
    });
}

void DeviceLogin::poll()
{
    if (isExpired()) {
        expire();
        return;
    }
    m_endpoint.askForTokens(m_info,
                            {{QStringLiteral("device_code"), m_deviceCode.reveal()},
                             {QStringLiteral("grant_type"),
                              QStringLiteral("urn:ietf:params:oauth:grant-type:device_code")}},
                            guarded(&DeviceLogin::onToken));
}

void DeviceLogin::onToken(const OAuth2Answer& answer)
{
    const TokenSet tokens = TokenSet::fromAnswer(answer, m_clock.wallMs());
    if (!tokens.isEmpty()) {
        cancel();
        m_listener.tokens(tokens);
        return;
    }
    m_trouble = LoginProblem();
    const QString error = answer.error();
    if (error == QLatin1String("authorization_pending")) {
        pollLater(m_intervalS);
    } else if (error == QLatin1String("slow_down")) {
        m_intervalS += slowDownS;
        pollLater(m_intervalS);
    } else if (error == QLatin1String("expired_token")) {
        expire();
    } else if (error == QLatin1String("access_denied")) {
        fail({TrString::in("Login", "The login was refused."), answer.reason()});
    } else if (answer.isTemporary()) {
        // RFC 8628 3.5: ask less often when the service does not answer. The login goes on: the
        // user may confirm it meanwhile.
        m_trouble = {answer.problem(), answer.reason()};
        pollLater(qMax(m_intervalS, qMin(2 * m_pauseS, longestPauseS)));
    } else {
        fail({TrString::in("Login", "The login failed: %1.", {answer.problem()}), answer.reason()});
    }
}

void DeviceLogin::expire()
{
    if (m_trouble.isEmpty())
        fail({TrString::in("Login", "The code has expired. Start the login again."),
              KeloOAuth2Reason::Expired()});
    else
        fail({TrString::in("Login", "The code has expired: %1.", {m_trouble.text}),
              m_trouble.reason});
}

void DeviceLogin::fail(const LoginProblem& problem)
{
    cancel();
    m_listener.failed(problem);
}
