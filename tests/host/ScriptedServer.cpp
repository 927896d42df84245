#include "ScriptedServer.h"
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
std::size_t bodyLength(const std::string& head)
{
    const std::string name = "\r\nContent-Length: ";
    const std::size_t at = head.find(name);
    return at == std::string::npos ? 0 : std::stoul(head.substr(at + name.size()));
}

/// Takes the next whole request off the buffer, reading more as needed; empty at the end.
std::string nextRequest(int fd, std::string& buffer)
{
    for (;;) {
        const auto headEnd = buffer.find("\r\n\r\n");
        if (headEnd != std::string::npos) {
            const std::size_t size = headEnd + 4 + bodyLength(buffer.substr(0, headEnd));
            if (buffer.size() >= size) {
                const std::string request = buffer.substr(0, size);
                buffer.erase(0, size);
                return request;
            }
        }
        char chunk[4096];
        const ssize_t got = ::recv(fd, chunk, sizeof chunk, 0);
        if (got <= 0)
            return {};
        buffer.append(chunk, std::size_t(got));
    }
}

void sendAll(int fd, const std::string& bytes)
{
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t step = ::send(fd, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (step <= 0)
            return;
        sent += std::size_t(step);
    }
}
} // namespace

ScriptedServer::ScriptedServer(const Script& script)
    : ScriptedServer(
          [this, script](const std::string& request, int) {
              {
                  std::lock_guard<std::mutex> lock(m_mutex);
                  m_requests.push_back(request);
              }
              return script(request);
          },
          [](int) {})
{
}

ScriptedServer::ScriptedServer(const ConnectionScript& script,
                               const std::function<void(int)>& ended)
    : m_script(script), m_ended(ended)
{
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(m_listener, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::listen(m_listener, 64);
    socklen_t size = sizeof address;
    ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size);
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { accept(); });
}

ScriptedServer::~ScriptedServer()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_isStopping = true;
    for (const int fd : m_open)
        ::shutdown(fd, SHUT_RDWR);
    m_closed.wait(lock, [this] { return m_open.empty(); });
    lock.unlock();
    ::shutdown(m_listener, SHUT_RDWR);
    m_acceptor.join();
    ::close(m_listener);
}

std::string ScriptedServer::url(const std::string& path) const
{
    return "http://127.0.0.1:" + std::to_string(m_port) + path;
}

std::vector<std::string> ScriptedServer::requests() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_requests;
}

int ScriptedServer::connections() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_connections;
}

std::string ScriptedServer::whole(const std::string& body, const std::string& headers,
                                  const std::string& status)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" +
           headers + "\r\n" + body;
}

void ScriptedServer::accept()
{
    for (;;) {
        const int fd = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (fd < 0)
            return;
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_isStopping) {
            ::close(fd);
            return;
        }
        ++m_connections;
        m_open.insert(fd);
        std::thread([this, fd] { serve(fd); }).detach();
    }
}

void ScriptedServer::serve(int fd)
{
    std::string buffer;
    for (;;) {
        const std::string request = nextRequest(fd, buffer);
        if (request.empty())
            break;
        const Answer answer = m_script(request, fd);
        sendAll(fd, answer.bytes);
        if (answer.then == Then::Close)
            break;
        char byte = 0;
        if (answer.then == Then::Hang) {
            while (::recv(fd, &byte, 1, 0) > 0) {
            }
            break;
        }
    }
    m_ended(fd);
    std::lock_guard<std::mutex> lock(m_mutex);
    m_open.erase(fd);
    ::close(fd);
    m_closed.notify_all();
}
