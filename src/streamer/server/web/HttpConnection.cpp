#include "HttpConnection.h"

#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>

namespace {

int pollFor(pollfd* fds, nfds_t count, int timeoutMs)
{
    int result = 0;
    do {
        result = ::poll(fds, count, timeoutMs);
    } while (result < 0 && errno == EINTR);
    return result;
}

} // namespace

bool HttpConnection::waitForRequest(int wakeFd, int timeoutMs)
{
    m_isInRequestLine = true;
    m_isInQuery = false;
    if (m_begin < m_received.size())
        return true;
    pollfd fds[] = {{m_socket, POLLIN, 0}, {wakeFd, POLLIN, 0}};
    if (pollFor(fds, 2, timeoutMs) <= 0 || fds[1].revents != 0)
        return false;
    char byte = 0;
    return ::recv(m_socket, &byte, 1, MSG_PEEK | MSG_DONTWAIT) > 0;
}

bool HttpConnection::waitFor(short events) const
{
    pollfd fd = {m_socket, events, 0};
    return pollFor(&fd, 1, m_timeoutMs) > 0;
}

bool HttpConnection::is_readable() const
{
    return m_begin < m_received.size() || waitFor(POLLIN);
}

bool HttpConnection::is_writable() const
{
    char byte = 0;
    const ssize_t peeked = ::recv(m_socket, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    const bool isGone =
        peeked == 0 || (peeked < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR);
    return !isGone && waitFor(POLLOUT);
}

ssize_t HttpConnection::read(char* bytes, size_t size)
{
    if (m_begin == m_received.size()) {
        char buffer[4096];
        if (!waitFor(POLLIN))
            return -1;
        const ssize_t received = ::recv(m_socket, buffer, sizeof buffer, 0);
        if (received <= 0)
            return received;
        keepReceived(buffer, size_t(received));
    }
    const size_t count = std::min(size, m_received.size() - m_begin);
    std::memcpy(bytes, m_received.data() + m_begin, count);
    m_begin += count;
    return ssize_t(count);
}

void HttpConnection::keepReceived(const char* bytes, size_t size)
{
    m_received.clear();
    m_begin = 0;
    size_t done = 0;
    for (; done < size && m_isInRequestLine; ++done) {
        const char byte = bytes[done];
        if (byte == '?' && m_isInQuery)
            m_received += "%3F";
        else
            m_received += byte;
        m_isInQuery = m_isInQuery || byte == '?';
        m_isInRequestLine = byte != '\n';
    }
    m_received.append(bytes + done, size - done);
}

ssize_t HttpConnection::write(const char* bytes, size_t size)
{
    if (!waitFor(POLLOUT))
        return -1;
    return ::send(m_socket, bytes, size, MSG_NOSIGNAL);
}
