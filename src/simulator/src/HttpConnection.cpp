#include "HttpConnection.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace kelosim {

namespace {

constexpr std::size_t maxHead = 64 * 1024;
constexpr std::size_t maxBody = 4 * 1024 * 1024;
constexpr int idleTimeoutMs = 60000;
constexpr int sendTimeoutMs = 30000;
constexpr std::size_t pieceSize = 64 * 1024;

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

bool hasBody(int status)
{
    return status >= 200 && status != 204 && status != 304;
}

} // namespace

HttpConnection::HttpConnection(int socket, int stopEvent, const HttpHandler& handler)
    : m_socket(socket), m_stopEvent(stopEvent), m_handler(handler)
{
}

HttpConnection::~HttpConnection()
{
    ::close(m_socket);
}

void HttpConnection::run()
{
    while (true) {
        HttpRequest request;
        const Read read = readRequest(request);
        if (read == Read::Closed)
            return;
        if (read == Read::Bad) {
            answer(request, HttpResponse::html(m_badStatus, statusText(m_badStatus)));
            return;
        }
        const std::string* connection = request.header("Connection");
        const bool last = connection && lowerAscii(*connection) == "close";
        if (!answer(request, m_handler(request)) || last)
            return;
    }
}

HttpConnection::Read HttpConnection::readRequest(HttpRequest& request)
{
    std::size_t headSize = 0;
    if (!readHead(headSize))
        return m_input.size() > maxHead ? (m_badStatus = 431, Read::Bad) : Read::Closed;
    if (!parseHead(std::string_view(m_input).substr(0, headSize), request)) {
        m_badStatus = 400;
        return Read::Bad;
    }
    if (const std::string* expect = request.header("Expect")) {
        static const char go[] = "HTTP/1.1 100 Continue\r\n\r\n";
        if (lowerAscii(*expect) == "100-continue" && !sendAll(go, sizeof go - 1))
            return Read::Closed;
    }
    m_badStatus = 0;
    if (readBody(request, headSize))
        return Read::Request;
    return m_badStatus ? Read::Bad : Read::Closed;
}

bool HttpConnection::readUntil(std::size_t size)
{
    while (m_input.size() < size) {
        if (!wait(POLLIN, idleTimeoutMs))
            return false;
        char buffer[16384];
        const ssize_t count = ::recv(m_socket, buffer, sizeof buffer, 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            continue;
        if (count <= 0)
            return false;
        m_input.append(buffer, static_cast<std::size_t>(count));
    }
    return true;
}

bool HttpConnection::readHead(std::size_t& headSize)
{
    std::size_t end = m_input.find("\r\n\r\n");
    while (end == std::string::npos) {
        if (m_input.size() > maxHead || !readUntil(m_input.size() + 1))
            return false;
        end = m_input.find("\r\n\r\n");
    }
    headSize = end + 4;
    return true;
}

bool HttpConnection::parseHead(std::string_view head, HttpRequest& request)
{
    std::vector<std::string> lines = split(head, '\n');
    const std::vector<std::string> first = split(trimmed(lines[0]), ' ');
    if (first.size() != 3 || !startsWith(first[2], "HTTP/1.") || first[1].empty())
        return false;
    request.method = first[0];
    request.target = first[1];
    const std::size_t question = request.target.find('?');
    request.rawPath = request.target.substr(0, question);
    request.path = percentDecode(request.rawPath, false);
    if (question != std::string::npos)
        request.query = parsePairs(std::string_view(request.target).substr(question + 1));
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

bool HttpConnection::readBody(HttpRequest& request, std::size_t headSize)
{
    if (const std::string* coding = request.header("Transfer-Encoding")) {
        if (lowerAscii(*coding) == "chunked")
            return readChunked(request, headSize);
        m_badStatus = 400;
        return false;
    }
    std::size_t length = 0;
    if (const std::string* header = request.header("Content-Length")) {
        const auto number = toNumber(*header);
        if (!number || *number < 0) {
            m_badStatus = 400;
            return false;
        }
        length = static_cast<std::size_t>(*number);
    }
    if (length > maxBody) {
        m_badStatus = 413;
        return false;
    }
    if (!readUntil(headSize + length))
        return false;
    request.body = m_input.substr(headSize, length);
    m_input.erase(0, headSize + length);
    return true;
}

bool HttpConnection::readChunked(HttpRequest& request, std::size_t offset)
{
    while (true) {
        std::size_t end = m_input.find("\r\n", offset);
        while (end == std::string::npos) {
            if (!readUntil(m_input.size() + 1))
                return false;
            end = m_input.find("\r\n", offset);
        }
        std::size_t size = 0;
        try {
            size = std::stoul(m_input.substr(offset, end - offset), nullptr, 16);
        } catch (const std::exception&) {
            m_badStatus = 400;
            return false;
        }
        if (size > maxBody || request.body.size() + size > maxBody) {
            m_badStatus = 413;
            return false;
        }
        if (!readUntil(end + 2 + size + 2))
            return false;
        request.body.append(m_input, end + 2, size);
        offset = end + 2 + size + 2;
        if (size == 0) {
            m_input.erase(0, offset);
            return true;
        }
    }
}

bool HttpConnection::answer(const HttpRequest& request, HttpResponse response)
{
    const Transport& transport = response.transport;
    if (transport.hang)
        return pause(-1) && false;
    if (transport.delayMs > 0 && !pause(transport.delayMs))
        return false;
    if (transport.reset == Transport::Reset::BeforeHeaders) {
        sendReset();
        return false;
    }
    bool chunked = false;
    std::string extra;
    if (transport.compress && !response.source && response.body.size() >= 256 &&
        acceptsGzip(request)) {
        response.body = gzip(response.body);
        extra = "Content-Encoding: gzip\r\n";
        chunked = true; // compressed answers of the service come without a length
    }
    std::string head = "HTTP/1.1 " + std::to_string(response.status) + ' ' +
                       statusText(response.status) + "\r\n" + extra;
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
        transport.cutAfter < 0 && transport.reset == Transport::Reset::None) {
        head += response.body;
        return sendAll(head.data(), head.size());
    }
    if (!sendAll(head.data(), head.size()))
        return false;
    if (transport.reset == Transport::Reset::AfterHeaders) {
        sendReset();
        return false;
    }
    return !withBody || sendBody(response, chunked);
}

bool HttpConnection::sendBody(const HttpResponse& response, bool chunked)
{
    const Transport& transport = response.transport;
    const std::uint64_t length = response.source ? response.source->length : response.body.size();
    std::uint64_t end = length;
    if (transport.cutAfter >= 0)
        end = std::min<std::uint64_t>(length, static_cast<std::uint64_t>(transport.cutAfter));
    const std::size_t step = transport.dripMs > 0 ? transport.dripBytes : pieceSize;
    std::vector<char> buffer(response.source ? step : 0);
    for (std::uint64_t offset = 0; offset < end;) {
        std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(step, end - offset));
        const char* data = response.body.data() + offset;
        if (response.source) {
            size = response.source->read(offset, buffer.data(), size);
            data = buffer.data();
        }
        if (size == 0 || !sendPiece(data, size, chunked))
            return false;
        offset += size;
        if (transport.dripMs > 0 && offset < end && !pause(transport.dripMs))
            return false;
    }
    if (end < length)
        return false;
    return !chunked || sendAll("0\r\n\r\n", 5);
}

bool HttpConnection::sendPiece(const char* data, std::size_t size, bool chunked)
{
    if (!chunked)
        return sendAll(data, size);
    std::string piece = hex(size, 8) + "\r\n";
    piece.append(data, size);
    piece += "\r\n";
    return sendAll(piece.data(), piece.size());
}

bool HttpConnection::sendAll(const char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t count = ::send(m_socket, data, size, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && errno == EAGAIN) {
            if (!wait(POLLOUT, sendTimeoutMs))
                return false;
            continue;
        }
        if (count <= 0)
            return false;
        data += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

bool HttpConnection::pause(int ms)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(ms);
    int left = ms;
    while (ms < 0 || left > 0) {
        // POLLRDHUP is always among the results: a client that gives up ends the pause.
        pollfd fds[] = {{m_socket, POLLRDHUP, 0}, {m_stopEvent, POLLIN, 0}};
        const int count = ::poll(fds, 2, left);
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0)
            return false;
        if (ms >= 0)
            left = static_cast<int>(
                std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count());
    }
    return true;
}

bool HttpConnection::wait(short events, int timeoutMs)
{
    while (true) {
        pollfd fds[] = {{m_socket, events, 0}, {m_stopEvent, POLLIN, 0}};
        const int count = ::poll(fds, 2, timeoutMs);
        if (count < 0 && errno == EINTR)
            continue;
        return count > 0 && fds[1].revents == 0;
    }
}

void HttpConnection::sendReset()
{
    const linger now{1, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &now, sizeof now);
}

} // namespace kelosim
