#include "HttpServer.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kelosim {

namespace {
constexpr std::size_t maxClients = 256; // further connections are closed at once
}

bool HttpServer::start(const std::string& host, int port, std::string* error)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(std::uint16_t(port));
    if (inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1) {
        *error = "'" + host + "' is no IPv4 address";
        return false;
    }
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int on = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (m_listener < 0 || ::bind(m_listener, generic, size) != 0 ||
        ::listen(m_listener, 128) != 0 || ::getsockname(m_listener, generic, &size) != 0) {
        *error =
            "cannot listen on " + host + ":" + std::to_string(port) + ": " + std::strerror(errno);
        stop();
        return false;
    }
    m_port = ntohs(address.sin_port);
    m_stopEvent = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_thread = std::thread([this] { listen(); });
    return true;
}

void HttpServer::stop()
{
    if (m_thread.joinable()) {
        const std::uint64_t one = 1;
        // The event is never read again, so it wakes the listener and every connection.
        if (::write(m_stopEvent, &one, sizeof one) != sizeof one)
            ::shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        reap(true);
    }
    for (int* descriptor : {&m_listener, &m_stopEvent}) {
        if (*descriptor >= 0)
            ::close(*descriptor);
        *descriptor = -1;
    }
}

void HttpServer::listen()
{
    while (true) {
        pollfd fds[] = {{m_listener, POLLIN, 0}, {m_stopEvent, POLLIN, 0}};
        if (::poll(fds, 2, -1) < 0 && errno == EINTR)
            continue;
        if (fds[1].revents != 0 || (fds[0].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0)
            return;
        accept();
    }
}

void HttpServer::accept()
{
    const int socket = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (socket < 0)
        return;
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    reap(false);
    if (m_clients.size() >= maxClients) {
        ::close(socket);
        return;
    }
    Client& client = m_clients.emplace_back();
    client.thread = std::thread([this, socket, &client] {
        HttpConnection(socket, m_stopEvent, m_handler).run();
        client.done = true;
    });
}

void HttpServer::reap(bool all)
{
    for (auto it = m_clients.begin(); it != m_clients.end();) {
        if (all || it->done) {
            it->thread.join();
            it = m_clients.erase(it);
        } else {
            ++it;
        }
    }
}

} // namespace kelosim
