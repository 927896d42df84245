#pragma once
#include <condition_variable>
#include <httplib.h>
#include <mutex>
#include <set>
#include <thread>

/// The HTTP library's server on one address, with connections that can be ended at once: the
/// library's own loop leaves idle ones open until they time out. Owned by the web server; has a
/// thread that accepts and a pool that serves.
class HttpListener : private httplib::Server
{
public:
    HttpListener();
    ~HttpListener() override;

    /// For the handlers, before start().
    httplib::Server& server() { return *this; }

    /// Binds (port 0 picks one) and starts; false with errno set when the address is not to be had.
    bool start(const std::string& host, int port);
    int port() const { return m_port; }
    /// Ends idle connections at once, gives answers that are being written a moment, then ends
    /// everything and joins the threads. May be called twice.
    void stop();

private:
    bool process_and_close_socket(socket_t socket) override;

    int m_port = 0;
    int m_wakeFd; ///< readable from stop() on
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::set<socket_t> m_sockets; ///< open connections; guarded by the mutex
    bool m_isStopping = false;    ///< guarded by the mutex
};
