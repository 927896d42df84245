#pragma once

#include "HttpMessage.h"

#include <functional>

namespace kelosim {

using HttpHandler = std::function<HttpResponse(const HttpRequest&)>;

// One client connection: reads requests, hands them to the handler, sends the answers with what
// their transport asks for. Lives on a thread of its own that HttpServer starts and joins. Every
// wait also watches the server's stop event, so nothing here outlives stop() by more than a moment.
class HttpConnection
{
public:
    // Takes over the socket; `stopEvent` becomes readable once, for ever, when the server stops.
    HttpConnection(int socket, int stopEvent, const HttpHandler& handler);
    ~HttpConnection();

    // Serves requests until the client, an error or the stop event ends the connection.
    void run();

private:
    enum class Read { Request, Closed, Bad };

    Read readRequest(HttpRequest& request);
    bool readUntil(std::size_t size); // m_input holds at least that many bytes
    bool readHead(std::size_t& headSize);
    bool readBody(HttpRequest& request, std::size_t headSize);
    bool readChunked(HttpRequest& request, std::size_t offset);
    bool parseHead(std::string_view head, HttpRequest& request);

    bool answer(const HttpRequest& request, HttpResponse response); // false: close now
    bool sendBody(const HttpResponse& response, bool chunked);
    bool sendPiece(const char* data, std::size_t size, bool chunked);
    bool sendAll(const char* data, std::size_t size);
    bool pause(int ms); // false: stop event or client gone; ms < 0 waits for either
    bool wait(short events, int timeoutMs);
    void sendReset(); // RST on close

    int m_socket;
    int m_stopEvent;
    const HttpHandler& m_handler;
    std::string m_input;   // bytes received and not yet consumed
    int m_badStatus = 400; // what readRequest answers when it returns Bad
};

} // namespace kelosim
