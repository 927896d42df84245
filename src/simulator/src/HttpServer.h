#pragma once

#include "HttpConnection.h"

#include <atomic>
#include <list>
#include <string>
#include <thread>

namespace kelosim {

// A small HTTP/1.1 server: keep-alive, no Nagle delay, one thread per connection, and answers that
// may misbehave on purpose. Owned by SimServer; start and stop are called from one thread. It
// knows nothing of what it serves.
class HttpServer
{
public:
    explicit HttpServer(HttpHandler handler) : m_handler(std::move(handler)) {}
    ~HttpServer() { stop(); }

    // Binds and starts to accept; false with a sentence in *error when it cannot.
    bool start(const std::string& host, int port, std::string* error);
    void stop();
    // Known before the first request can come.
    int port() const { return m_port; }

private:
    // The record of one connection's thread; `done` is set as the thread's last act.
    struct Client
    {
        std::thread thread;
        std::atomic<bool> done{false};
    };

    void listen();
    void accept();
    void reap(bool all);

    HttpHandler m_handler;
    int m_listener = -1;
    int m_stopEvent = -1;
    int m_port = 0;
    std::thread m_thread;
    std::list<Client> m_clients; // touched by the listening thread, and by stop() after its end
};

} // namespace kelosim
