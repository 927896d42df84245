#pragma once
#include <functional>
#include <kelo/HttpClient.h>
#include <kelo/KeloOAuth2.h>
#include <QHash>
#include <QList>
#include <QPair>

/// What came of a form that was sent. A plain value.
struct TokenReply
{
    int status = 0; ///< 0: the answer did not arrive whole
    QByteArray body = {};
    HttpClient::Failure failure = HttpClient::NoFailure; ///< why it did not
    qint64 dateMs = 0; ///< the service's time, milliseconds since 1970; 0 when it did not say
};

/// Sends forms to a login service (RFC 6749 and RFC 8628). Used on one thread; answers come on the
/// same thread, never from inside post().
class TokenEndpoint
{
public:
    using Form = QList<QPair<QString, QString>>;
    using Done = std::function<void(const TokenReply& reply)>;

    virtual ~TokenEndpoint() = default;

    /// `authorization` is the value of the header of that name; empty for none.
    virtual void post(const QString& url, const Form& form, const QString& authorization,
                      Done done) = 0;
    /// Asks for tokens: sends the fields of a grant with the client's authentication and the scope.
    void askForTokens(const KeloOAuth2ServiceInfo& info, const Form& grant, Done done);
};

/// The token endpoint over HTTP. Owned by the OAuth2 worker, on its thread. Bodies are never
/// logged.
class HttpTokenEndpoint : public QObject, public TokenEndpoint
{
    Q_OBJECT
public:
    explicit HttpTokenEndpoint(QObject* parent = nullptr);

    void post(const QString& url, const Form& form, const QString& authorization,
              Done done) override;

    Q_INVOKABLE void on_answer_invoke(KeloUrl url, HttpClientPrivate userData, int status, int code,
                                      QByteArray body, HttpClientHeaders headers);

private:
    HttpClient m_client;
    QHash<int, Done> m_waiting; ///< by the tag of the call
    int m_lastTag = 0;
};
