#pragma once
#include "TokenEndpoint.h"

#include <kelo/KeloJson.h>

/// An answer of a login service. A plain value. Fields are read by their camelCase or their
/// standard name, since services spell them either way.
class OAuth2Answer
{
public:
    /// \p wallMs is this machine's time when the answer came.
    OAuth2Answer(const TokenReply& reply, qint64 wallMs);

    int status() const { return m_status; }
    /// A success that is a JSON object.
    bool isSuccess() const { return m_status >= 200 && m_status < 300 && m_json.isObject(); }
    /// Nothing usable came, and asking again may help: no answer, a fault or overload of the
    /// server.
    bool isTemporary() const;
    /// The error's code (RFC 6749 5.2); empty when there is none.
    QString error() const { return m_json.value("error").toString(); }
    /// For people: the error's code and description, or the status, or why there is no answer.
    TrString problem() const;
    /// For an answer that is a failure: one of KeloOAuth2Reason's. What the service says itself
    /// comes first, then a wrong clock.
    QString reason() const;

    /// Who the answer says has logged in, by the name that a person knows best; empty when nobody.
    QString user() const;
    QString text(const char* camelCase, const char* standard) const;
    /// A number, also when it stands there as text; the fallback when it is missing or not
    /// positive.
    qint64 number(const char* camelCase, const char* standard, qint64 fallback) const;

private:
    KeloJson field(const char* camelCase, const char* standard) const;

    bool isClockWrong() const;
    /// What the answer itself says is wrong.
    TrString serviceProblem() const;

    int m_status;
    HttpClient::Failure m_failure;
    qint64 m_aheadMs; ///< this machine's clock, of the service's; 0 when it gave no time
    KeloJson m_json;
};
