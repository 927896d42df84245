#include "HttpConnection.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kelosim {

namespace {

constexpr std::size_t maxHead = 64 * 1024;
constexpr std::int64_t maxBody = 4 * 1024 * 1024;
constexpr int idleTimeoutMs = 60000;
constexpr int sendTimeoutMs = 30000;
constexpr std::size_t pieceSize = 64 * 1024;

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r");
    return begin == std::string_view::npos
               ? std::string_view()
               : text.substr(begin, text.find_last_not_of(" \t\r") + 1 - begin);
}

bool hasBody(int status)
{
    return status >= 200 && status != 204 && status != 304;
}

} // namespace

HttpConnection::~HttpConnection()
{
    ::close(m_socket);
}

void HttpConnection::run()
{
    while (true) {
        HttpRequest request;
        const int status = readRequest(request);
        if (status == 0)
            return;
        if (status != 200) {
            answer(request, HttpResponse::html(status, statusText(status)));
            return;
        }
        const std::string* connection = request.header("Connection");
        const bool last = connection && lowerAscii(*connection) == "close";
        if (!answer(request, m_handler(request)) || last)
            return;
    }
}

int HttpConnection::readRequest(HttpRequest& request)
{
    std::size_t end = 0;
    while ((end = m_input.find("\r\n\r\n")) == std::string::npos) {
        if (m_input.size() > maxHead)
            return 431;
        if (!readUntil(m_input.size() + 1))
            return 0;
    }
    const std::size_t head = end + 4;
    if (!parseHead(std::string_view(m_input).substr(0, head), request) ||
        request.header("Transfer-Encoding"))
        return 400;
    const std::string* field = request.header("Content-Length");
    const std::int64_t length = field ? toNumber(*field).value_or(-1) : 0;
    if (length < 0 || length > maxBody)
        return length < 0 ? 400 : 413;
    if (!readUntil(head + std::size_t(length)))
        return 0;
    request.body = m_input.substr(head, std::size_t(length));
    m_input.erase(0, head + std::size_t(length));
    return 200;
}

bool HttpConnection::readUntil(std::size_t size)
{
    while (m_input.size() < size) {
        if (wait(POLLIN, idleTimeoutMs) != Wake::Ready)
            return false;
        char buffer[16384];
        const ssize_t count = ::recv(m_socket, buffer, sizeof buffer, 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            continue;
        if (count <= 0)
            return false;
        m_input.append(buffer, std::size_t(count));
    }
    return true;
}

bool HttpConnection::parseHead(std::string_view head, HttpRequest& request)
{
    const std::vector<std::string> lines = split(head, '\n');
    const std::vector<std::string> first = split(trimmed(lines[0]), ' ');
    if (first.size() != 3 || !startsWith(first[2], "HTTP/1.") || first[1].empty())
        return false;
    request.method = first[0];
    const std::size_t question = first[1].find('?');
    const std::string path = first[1].substr(0, question);
    request.path = percentDecode(path);
    for (const std::string& part : split(path, '/')) {
        if (!part.empty())
            request.segments.push_back(percentDecode(part));
    }
    if (question != std::string::npos)
        request.query = parsePairs(std::string_view(first[1]).substr(question + 1));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string_view line = trimmed(lines[i]);
        const std::size_t colon = line.find(':');
        if (line.empty())
            continue;
        if (colon == std::string_view::npos || colon == 0)
            return false;
        request.headers.emplace_back(line.substr(0, colon), trimmed(line.substr(colon + 1)));
    }
    return true;
}

bool HttpConnection::answer(const HttpRequest& request, HttpResponse response)
{
    const Transport& transport = response.transport;
    if (transport.hang)
        return pause(-1);
    if (transport.delayMs > 0 && !pause(transport.delayMs))
        return false;
    if (transport.reset == Transport::Reset::BeforeHeaders)
        return reset();
    // Compressed answers of the service come without a length.
    const bool chunked = transport.compress && !response.source && response.body.size() >= 256 &&
                         acceptsGzip(request);
    std::string head =
        "HTTP/1.1 " + std::to_string(response.status) + ' ' + statusText(response.status) + "\r\n";
    if (chunked) {
        response.body = gzip(response.body);
        head += "Content-Encoding: gzip\r\n";
    }
    if (!response.contentType.empty())
        head += "Content-Type: " + response.contentType + "\r\n";
    for (const auto& header : response.headers)
        head += header.first + ": " + header.second + "\r\n";
    const std::uint64_t length = response.source ? response.source->length : response.body.size();
    if (hasBody(response.status))
        head += chunked ? "Transfer-Encoding: chunked\r\n"
                        : "Content-Length: " + std::to_string(length) + "\r\n";
    head += "Connection: keep-alive\r\n\r\n";
    const bool withBody = hasBody(response.status) && request.method != "HEAD";
    // Head and a small body leave in one write; a reader then needs one wake-up for both.
    if (withBody && !chunked && !response.source && transport.dripMs == 0 &&
        transport.cutAfter < 0 && transport.reset == Transport::Reset::None)
        return send(head + response.body);
    if (!send(head))
        return false;
    if (transport.reset == Transport::Reset::AfterHeaders)
        return reset();
    return !withBody || sendBody(response, chunked);
}

bool HttpConnection::sendBody(const HttpResponse& response, bool chunked)
{
    const Transport& transport = response.transport;
    const std::uint64_t length = response.source ? response.source->length : response.body.size();
    const std::uint64_t end = std::min(length, std::uint64_t(transport.cutAfter)); // -1: no limit
    const std::size_t step = transport.dripMs > 0 ? transport.dripBytes : pieceSize;
    for (std::uint64_t offset = 0; offset < end;) {
        std::string piece(std::size_t(std::min<std::uint64_t>(step, end - offset)), '\0');
        piece.resize(response.source ? response.source->read(offset, &piece[0], piece.size())
                                     : response.body.copy(&piece[0], piece.size(), offset));
        offset += piece.size();
        if (piece.empty() ||
            !send(chunked ? hex(piece.size(), 8) + "\r\n" + piece + "\r\n" : piece) ||
            (transport.dripMs > 0 && offset < end && !pause(transport.dripMs)))
            return false;
    }
    return end == length && (!chunked || send("0\r\n\r\n"));
}

bool HttpConnection::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count > 0)
            bytes.remove_prefix(std::size_t(count));
        else if (errno == EAGAIN ? wait(POLLOUT, sendTimeoutMs) != Wake::Ready : errno != EINTR)
            return false;
    }
    return true;
}

bool HttpConnection::reset()
{
    const linger now{1, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    return false;
}

bool HttpConnection::pause(int ms)
{
    return wait(POLLRDHUP, ms) == Wake::Late;
}

HttpConnection::Wake HttpConnection::wait(short events, int timeoutMs) const
{
    pollfd fds[] = {{m_socket, events, 0}, {m_stopEvent, POLLIN, 0}};
    int count = 0;
    do {
        count = ::poll(fds, 2, timeoutMs);
    } while (count < 0 && errno == EINTR);
    return fds[1].revents != 0 ? Wake::Stopped : count > 0 ? Wake::Ready : Wake::Late;
}

} // namespace kelosim
