#pragma once
#include "HttpServer.h"
#include "HttpSessions.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <optional>

/// What the connections of a server share.
struct HttpContext
{
    boost::asio::io_context io;
    HttpHandler handler;
    HttpServer::Fields fields;
    HttpServer::Limits limits;
    HttpSessions sessions;
};

/// One connection: reads requests one after the other and writes their answers. Kept by the
/// server's list until it ends; all of it runs on the connection's strand.
class HttpSession : public std::enable_shared_from_this<HttpSession>
{
public:
    HttpSession(boost::asio::ip::tcp::socket&& socket, std::shared_ptr<HttpContext> context);

    void start();
    /// Any thread: closes the connection soon.
    void close();
    /// On the strand: answers the request that is under way.
    void answer(HttpReply reply);
    boost::asio::any_io_executor executor() { return m_stream.get_executor(); }

private:
    using Error = boost::beast::error_code;

    void awaitRequest();
    void readHeader();
    /// Whether the end of the body is known (RFC 9112 6.3).
    bool isFramed() const;
    /// Says that the body is wanted, where the client asks first (RFC 9110 10.1.1), and reads it.
    void encourage();
    void readBody();
    void onRead(const Error& error);
    /// Ends the connection, or says what was wrong with the request.
    void fail(const Error& error);
    /// Answers what no handler is to see, as the last of this connection.
    void refuse(int status);
    void takeRequest();
    void write();
    /// Begins an event stream; writes what it has, and again when it has more.
    void follow();
    void writeEvents();
    void tick();
    void watchPeer();
    /// Reads what the client still sends and drops it, since closing at once would take the answer
    /// away from it (RFC 9112 9.6).
    void linger();
    void end();

    const std::shared_ptr<HttpContext> m_context;
    boost::beast::tcp_stream m_stream;
    boost::beast::flat_buffer m_buffer; ///< bounds what stands between the parts of a body
    std::optional<boost::beast::http::request_parser<boost::beast::http::string_body>> m_parser;
    std::chrono::steady_clock::time_point m_bodyEnd; ///< when all of it is to be there
    HttpRequest m_request;
    bool m_isLast = false;   ///< the connection ends with this answer
    bool m_isUnread = false; ///< the client may still be sending the request
    size_t m_dropped = 0;    ///< bytes of it
    bool m_isEnded = false;
    bool m_isAnswered = true; ///< or there is no request
    std::string m_head;       ///< of the answer that is written
    std::string m_body;
    size_t m_written = 0; ///< bytes of both
    std::shared_ptr<EventStream> m_events;
    boost::asio::steady_timer m_tick;
    bool m_isWriting = false; ///< of events
};
