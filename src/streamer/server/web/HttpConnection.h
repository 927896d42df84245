#pragma once
#include <httplib.h>
#include <string>

/// One accepted connection as the HTTP library reads and writes it. Owned by the server's thread
/// that serves it; closes nothing.
class HttpConnection : public httplib::Stream
{
public:
    HttpConnection(socket_t socket, int timeoutMs) : m_socket(socket), m_timeoutMs(timeoutMs) {}

    /// Waits until a request begins; false when none does in time, the peer has gone, or `wakeFd`
    /// becomes readable.
    bool waitForRequest(int wakeFd, int timeoutMs);

    bool is_readable() const override;
    /// False when the peer has gone, too.
    bool is_writable() const override;
    ssize_t read(char* bytes, size_t size) override;
    ssize_t write(const char* bytes, size_t size) override;
    /// Nobody asks for the addresses.
    void get_remote_ip_and_port(std::string&, int&) const override {}
    void get_local_ip_and_port(std::string&, int&) const override {}
    socket_t socket() const override { return m_socket; }

private:
    bool waitFor(short events) const;
    /// Encodes question marks inside the query of the request line: they may stand there as they
    /// are (RFC 3986 3.4), but the library refuses them, and the text of a path has one.
    void keepReceived(const char* bytes, size_t size);

    const socket_t m_socket;
    const int m_timeoutMs;
    std::string m_received; ///< what was received
    size_t m_begin = 0;     ///< of m_received, what was not read yet
    bool m_isInRequestLine = false;
    bool m_isInQuery = false; ///< of the request line
};
