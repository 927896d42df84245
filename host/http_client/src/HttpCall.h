#pragma once
#include "HttpCallLog.h"
#include "HttpClient.h"
#include <chrono>
#include <curl/curl.h>
#include <QPointer>

/// One HTTP call: a curl handle with its request, and what has come of the answer. Owned by the
/// client, which uses it again when the call has ended. It neither runs the transfer nor delivers.
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
    void setReceiver(QObject* receiver, const char* member);
    void setRecorded(bool isRecorded) { m_isRecorded = isRecorded; }
    /// Whether the HttpCallLog knows of the call.
    bool isRecorded() const { return m_isRecorded; }
    /// Why a transfer that curl ended did not arrive whole.
    HttpClient::Failure failure(CURLcode result) const;
    /// Turns to the address that the answer redirects to, where it may be followed: then the call
    /// is to be sent again.
    bool redirect();
    /// Queues the invocation of the receiver's member.
    void deliver(HttpClient::Failure failure) const;
    /// What may be shown of the call; without a number.
    HttpCallRecord record(HttpClient::Failure failure) const;
    /// Drops request and answer, so that the handle can be used again.
    void clear();

private:
    static size_t writeBody(char* data, size_t size, size_t count, void* call);
    static size_t writeHeader(char* data, size_t size, size_t count, void* call);

    bool setHeaders(Method method, const HttpClientHeaders& headers);
    void setMethod(Method method);
    void setTimeout();
    bool append(const char* data, int size);
    int status(HttpClient::Failure failure) const;
    HttpClientHeaders answerHeaders() const;

    CURL* m_easy;
    const bool m_isKeptAlive; ///< connections are kept for the next call
    quintptr m_id = 0;
    Method m_method = Method::Get;
    KeloUrl m_url;
    QByteArray m_requestBody; ///< curl points into it
    HttpClientOptions m_options;
    curl_slist* m_headers = nullptr; ///< curl points to it
    bool m_isRecorded = false;
    QPointer<QObject> m_receiver;
    QByteArray m_member;
    std::chrono::steady_clock::time_point m_started;
    std::chrono::system_clock::time_point m_startedAt;
    int m_redirects = 0;

    QByteArray m_body;
    QByteArray m_headerBlock; ///< lines of the last answer, without its status line
    bool m_isBodyTooLarge = false;
};
