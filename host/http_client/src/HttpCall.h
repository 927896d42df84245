#pragma once
#include "HttpCallLog.h"
#include "HttpClient.h"
#include <chrono>
#include <curl/curl.h>
#include <QMetaMethod>
#include <QPointer>
#include <vector>

/// One HTTP call: a curl handle with its request, and what has come of the answer, which may have
/// several recipients. Owned by the client, which uses it again when the call has ended. It neither
/// runs the transfer nor delivers.
class HttpCall
{
public:
    enum class Method { Get, Post, Delete };

    HttpCall(HttpClient::HttpVersion version, bool keepAlive);
    ~HttpCall();
    HttpCall(const HttpCall&) = delete;
    HttpCall& operator=(const HttpCall&) = delete;

    CURL* easy() const { return m_easy; }
    /// The call that an easy handle belongs to.
    static HttpCall* of(CURL* easy);

    quintptr id() const { return m_id; }
    const KeloUrl& url() const { return m_url; }
    /// Sets the request; NoFailure when it can be sent.
    HttpClient::Failure prepare(quintptr id, Method method, const KeloUrl& url,
                                const QByteArray& body, const HttpClientOptions& options);
    /// Whether its answer is also that of a GET with these options.
    bool answers(const HttpClientOptions& options) const;
    /// Adds one that the answer is delivered to, by a number of its own.
    void addRecipient(quintptr id, QObject* receiver, const QMetaMethod& member,
                      const HttpClientPrivate& userData);
    /// Takes a recipient out, which is told that its call was aborted; false when nobody is left.
    bool abort(quintptr id);
    std::vector<quintptr> recipients() const;
    /// Before the call is sent, and sent again: how long it may still take.
    void setTimeout();
    /// curl has the call; before it waits for others.
    void setRunning() { m_isRunning = true; }
    bool isRunning() const { return m_isRunning; }
    Method method() const { return m_method; }
    void setRecorded(bool isRecorded) { m_isRecorded = isRecorded; }
    /// Whether the HttpCallLog knows of the call.
    bool isRecorded() const { return m_isRecorded; }
    /// Why a transfer that curl ended did not arrive whole.
    HttpClient::Failure failure(CURLcode result) const;
    /// Turns to the address that the answer redirects to, where it may be followed: then the call
    /// is to be sent again.
    bool redirect();
    /// Queues the invocation of each recipient's member.
    void deliver(HttpClient::Failure failure) const;
    /// What may be shown of the call; without a number.
    HttpCallRecord record(HttpClient::Failure failure) const;
    /// Drops request and answer, so that the handle can be used again.
    void clear();

private:
    struct Recipient
    {
        quintptr id;
        QPointer<QObject> receiver;
        QMetaMethod member; ///< invalid: the receiver cannot take an answer
        HttpClientPrivate userData;
    };

    static size_t writeBody(char* data, size_t size, size_t count, void* call);
    static size_t writeHeader(char* data, size_t size, size_t count, void* call);

    bool setHeaders(Method method, const HttpClientHeaders& headers);
    void setMethod(Method method);
    bool append(const char* data, int size);
    int status(HttpClient::Failure failure) const;
    void deliver(const Recipient& recipient, HttpClient::Failure failure, const QByteArray& body,
                 const HttpClientHeaders& headers) const;

    CURL* m_easy;
    const bool m_isKeptAlive; ///< connections are kept for the next call
    quintptr m_id = 0;
    Method m_method = Method::Get;
    KeloUrl m_url;
    QByteArray m_requestBody; ///< curl points into it
    HttpClientOptions m_options;
    curl_slist* m_headers = nullptr; ///< curl points to it
    bool m_isRecorded = false;
    bool m_isRunning = false;
    std::vector<Recipient> m_recipients;
    std::chrono::steady_clock::time_point m_started;
    std::chrono::system_clock::time_point m_startedAt;
    int m_redirects = 0;

    QByteArray m_body;
    QByteArray m_headerBlock; ///< lines of the last answer, without its status line
    bool m_isBodyTooLarge = false;
};
