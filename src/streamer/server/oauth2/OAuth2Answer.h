#pragma once
#include <kelo/KeloJson.h>

/// An answer of a login service. A plain value. Fields are read by their camelCase or their
/// standard name, since services spell them either way.
class OAuth2Answer
{
public:
    OAuth2Answer(int status, const QByteArray& body);

    int status() const { return m_status; }
    /// A success that is a JSON object.
    bool isSuccess() const { return m_status >= 200 && m_status < 300 && m_json.isObject(); }
    /// Nothing usable came, and asking again may help: no answer, a fault or overload of the
    /// server.
    bool isTemporary() const;
    /// The error's code (RFC 6749 5.2); empty when there is none.
    QString error() const { return m_json.value("error").toString(); }
    /// For people: the error's code and description, or the status.
    QString problem() const;

    QString text(const char* camelCase, const char* standard) const;
    /// A number, also when it stands there as text; the fallback when it is missing or not
    /// positive.
    qint64 number(const char* camelCase, const char* standard, qint64 fallback) const;

private:
    KeloJson field(const char* camelCase, const char* standard) const;

    int m_status;
    KeloJson m_json;
};
