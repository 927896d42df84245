#include "HttpListener.h"

#include "HttpConnection.h"
#include "ServingThreads.h"

#include <cerrno>
#include <chrono>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr size_t threadCount = 64;
/// The library's own backlog of 5 lets a burst of clients wait for a second.
constexpr int backlog = 128;
constexpr int idleTimeoutMs = 5000;
constexpr int transferTimeoutMs = 5000;
constexpr std::chrono::milliseconds stopPatience{500};

void setListenOptions(socket_t socket)
{
    // Not SO_REUSEPORT, the library's choice: two streamers would share the port in silence.
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
}

} // namespace

HttpListener::HttpListener() : m_wakeFd(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    new_task_queue = [] { return new ServingThreads(threadCount); };
    set_socket_options(setListenOptions);
}

HttpListener::~HttpListener()
{
    stop();
    ::close(m_wakeFd);
}

bool HttpListener::start(const std::string& host, int port)
{
    errno = 0;
    if (port == 0)
        m_port = bind_to_any_port(host);
    else
        m_port = bind_to_port(host, port) ? port : -1;
    if (m_port <= 0)
        return false;
    ::listen(svr_sock_, backlog);
    m_thread = std::thread([this] { listen_after_bind(); });
    while (!is_running())
        std::this_thread::yield();
    return true;
}

void HttpListener::stop()
{
    if (!m_thread.joinable())
        return;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    ::eventfd_write(m_wakeFd, 1);
    httplib::Server::stop();
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, stopPatience, [this] { return m_sockets.empty(); });
        for (const socket_t socket : m_sockets)
            ::shutdown(socket, SHUT_RDWR);
    }
    m_thread.join();
}

bool HttpListener::process_and_close_socket(socket_t socket)
{
    bool isWanted = false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        isWanted = !m_isStopping;
        if (isWanted)
            m_sockets.insert(socket);
    }
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    HttpConnection connection(socket, transferTimeoutMs);
    while (isWanted && connection.waitForRequest(m_wakeFd, idleTimeoutMs)) {
        bool isClosed = false;
        isWanted = process_request(connection, false, isClosed, nullptr) && !isClosed;
    }
    ::shutdown(socket, SHUT_RDWR);
    std::lock_guard<std::mutex> lock(m_mutex);
    m_sockets.erase(socket);
    ::close(socket);
    m_changed.notify_all();
    return true;
}
