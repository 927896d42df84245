#pragma once
#include "HttpReply.h"
#include "HttpRequest.h"

#include <functional>

/// Answers a request once, from any thread; further answers change nothing.
using HttpAnswer = std::function<void(HttpReply)>;
/// Takes a request on one of the server's threads and must not wait there.
using HttpHandler = std::function<void(const HttpRequest&, const HttpAnswer&)>;

/// An HTTP/1.1 server (RFC 9112) on one address: a few threads for work, none for waiting, so that
/// a connection costs its memory alone while it is idle, follows events or waits for an answer.
/// Owned by the web server.
class HttpServer
{
public:
    struct Limits
    {
        size_t target = 8192;                ///< bytes of an address
        size_t header = 64 * 1024;           ///< bytes of all fields
        size_t body = 1024 * 1024;           ///< bytes
        size_t lingering = 16 * 1024 * 1024; ///< bytes that are read of a refused request
        size_t connections =
            4096; ///< beyond them, or the system's limit, the longest idle one is closed
        int idleSeconds = 60;    ///< between two requests
        int transferSeconds = 5; ///< for a request's header, and without a byte of its body
        int bodySeconds = 60;    ///< for all of it
        int answerSeconds = 30;  ///< without a byte that is taken
    };

    using Fields = std::vector<std::pair<std::string, std::string>>;

    /// `fields` go with every answer that has none of their names.
    HttpServer(HttpHandler handler, const Fields& fields, const Limits& limits);
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// Binds (port 0 picks one) and starts; false with the system's words in `error`.
    bool start(const std::string& host, int port, std::string* error);
    int port() const;
    /// Runs functions on the server's threads, in later turns; nothing any more after stop(), which
    /// it outlives.
    std::function<void(std::function<void()>)> runner() const;
    /// Ends idle connections at once, gives answers that are being written a moment, then ends
    /// everything and joins the threads. May be called twice.
    void stop();

private:
    class Private;
    std::unique_ptr<Private> d;
};
