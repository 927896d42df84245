#include "TokenSet.h"

#include "OAuth2Answer.h"

namespace {

constexpr qint64 secondMs = 1000;
constexpr qint64 usualLifetimeS = 3600;
constexpr qint64 longestLifetimeS = 400LL * 24 * 3600;

} // namespace

bool TokenSet::isAlive(qint64 wallMs) const
{
    return !access.isEmpty() && wallMs >= obtainedAtMs && wallMs < obtainedAtMs + lifetimeMs;
}

qint64 TokenSet::refreshInMs(qint64 wallMs) const
{
    if (!isAlive(wallMs))
        return 0;
    // Late enough to be rare, early enough for a few tries; short lives are halved.
    const qint64 late = qMin(lifetimeMs / 10 * 9, lifetimeMs - 60 * secondMs);
    const qint64 due = obtainedAtMs + qMax(late, lifetimeMs / 2);
    return qMax(qint64(0), due - wallMs);
}

TokenSet TokenSet::fromAnswer(const OAuth2Answer& answer, qint64 wallMs)
{
    TokenSet tokens;
    if (!answer.isSuccess())
        return tokens;
    const QString access = answer.text("accessToken", "access_token");
    if (access.isEmpty())
        return tokens;
    tokens.access = Secret(access);
    tokens.refresh = Secret(answer.text("refreshToken", "refresh_token"));
    tokens.obtainedAtMs = wallMs;
    tokens.lifetimeMs =
        secondMs * qMin(longestLifetimeS, answer.number("expiresIn", "expires_in", usualLifetimeS));
    tokens.user = answer.user();
    return tokens;
}
