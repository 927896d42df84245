#pragma once
#include "HttpClientOptions.h"
#include <kelo/KeloUrl.h>
#include <memory>
#include <QObject>

/// HTTP client on the event loop of the thread it lives on, where alone it is called.
///
/// Every call ends in exactly one queued invocation of the member of the receiver, whatever
/// happens: answer, time-out, abort, body above the limit, refused connection; never from inside
/// the call. The member is a bare name of an invokable method with the arguments (KeloUrl url,
/// HttpClientPrivate userData, int status, int code, QByteArray body, HttpClientHeaders headers).
/// An answer that did not arrive whole has status 0, an empty body, and a code that says why; else
/// the code is NoFailure. A receiver that is gone by then gets nothing.
class KELO_EXPORT HttpClient : public QObject
{
    Q_OBJECT
public:
    enum HttpVersion {
        VersionAny = 0, ///< what client and server agree on
        Version11 = 1   ///< HTTP/1.1
    };
    /// Why an answer did not arrive whole.
    enum Failure {
        NoFailure = 0,
        TimedOut = 1,
        Aborted = 2,          ///< the handle was aborted or the client deleted
        BodyTooLarge = 3,     ///< the read size limit was passed
        ConnectionFailed = 4, ///< name not found, connection refused, no route
        TransferFailed = 5,   ///< the connection broke, or the answer is not HTTP
        TlsFailed = 6,        ///< the server's certificate was refused
        BadUrl = 7,
        CertificateDate = 8 ///< as TlsFailed, because this machine's time is outside its dates
    };

    /// `keepAlive`: connections are kept for the next call to the same server.
    HttpClient(QObject* parent, HttpVersion version = VersionAny, bool keepAlive = true);
    /// Calls under way end as Aborted; their receivers are still told.
    ~HttpClient() override;

    /// Each returns a handle for abort(), valid until the answer is delivered.
    void* get(KeloUrl const& url, QObject* receiver, char const* member,
              HttpClientOptions const& options);
    /// The content type is application/x-www-form-urlencoded unless a header says otherwise.
    void* post(KeloUrl const& url, QByteArray const& body, QObject* receiver, char const* member,
               HttpClientOptions const& options);
    void* delete_(KeloUrl const& url, QByteArray const& body, QObject* receiver, char const* member,
                  HttpClientOptions const& options);

    /// Ends a call as Aborted; nothing for a handle that is not under way.
    void abort(void* handle);
    /// Requests that are sent and not answered yet; neither those that wait for others of their kind
    /// nor those that share an answer.
    int callsUnderWay() const;
    /// Whether calls from now on are recorded in the HttpCallLog; they are unless told otherwise.
    void setRecorded(bool isRecorded);

private:
    class Private;
    std::unique_ptr<Private> d;
};
