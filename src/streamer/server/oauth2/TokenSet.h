#pragma once
#include "settings/Secret.h"
#include <QString>

class OAuth2Answer;

/// The tokens of one login. A plain value. Nobody logs its texts.
struct TokenSet
{
    Secret access;
    Secret refresh;          ///< empty when the service gave none
    qint64 obtainedAtMs = 0; ///< wall clock
    qint64 lifetimeMs = 0;   ///< of the access token
    QString user;            ///< whose they are; empty when the service did not say

    bool isEmpty() const { return access.isEmpty() && refresh.isEmpty(); }
    /// Whether the access token may still be used. A time of making that lies in the future says
    /// that the clock was wrong then or is now: such a token does not count.
    bool isAlive(qint64 wallMs) const;
    /// How long from now the token is to be refreshed; 0 when that is due.
    qint64 refreshInMs(qint64 wallMs) const;

    /// The tokens of a token answer (RFC 6749 5.1); empty when it holds no access token.
    static TokenSet fromAnswer(const OAuth2Answer& answer, qint64 wallMs);
};
