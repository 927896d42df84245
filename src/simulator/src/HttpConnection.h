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
    HttpConnection(int socket, int stopEvent, const HttpHandler& handler)
        : m_socket(socket), m_stopEvent(stopEvent), m_handler(handler)
    {
    }
    ~HttpConnection();

    // Serves requests until the client, an error or the stop event ends the connection.
    void run();

private:
    // 0 when the connection is over, 200 for a request, else the status that refuses it.
    int readRequest(HttpRequest& request);
    bool readUntil(std::size_t size); // m_input holds at least that many bytes
    static bool parseHead(std::string_view head, HttpRequest& request);

    bool answer(const HttpRequest& request, HttpResponse response); // false: close now
    bool sendBody(const HttpResponse& response, bool chunked);
    bool send(std::string_view bytes);
    bool reset();       // RST on close
    bool pause(int ms); // false: stop event or client gone; ms < 0 waits for either

    enum class Wake { Ready, Late, Stopped };
    Wake wait(short events, int timeoutMs) const;

    int m_socket;
    int m_stopEvent;
    const HttpHandler& m_handler;
    std::string m_input; // bytes received and not yet consumed
};

} // namespace kelosim
