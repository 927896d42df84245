#pragma once
#include <array>
#include <httplib.h>

/// One accepted connection as the HTTP library reads and writes it. Owned by the server's thread
/// that serves it; closes nothing.
class HttpConnection : public httplib::Stream
{
public:
    HttpConnection(socket_t socket, int timeoutMs) : m_socket(socket), m_timeoutMs(timeoutMs) {}

    /// Waits until a request begins; false when none does in time, the peer has gone, or `wakeFd`
    /// becomes readable.
    bool waitForRequest(int wakeFd, int timeoutMs) const;

    bool is_readable() const override;
    /// False when the peer has gone, too.
    bool is_writable() const override;
    ssize_t read(char* bytes, size_t size) override;
    ssize_t write(const char* bytes, size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override { return m_socket; }

private:
    bool waitFor(short events) const;

    const socket_t m_socket;
    const int m_timeoutMs;
    std::array<char, 4096> m_buffer;
    size_t m_begin = 0; ///< what was received and not read yet is [m_begin, m_end)
    size_t m_end = 0;
};
