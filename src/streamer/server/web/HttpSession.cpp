#include "HttpSession.h"

#include "EventStream.h"

#include <boost/asio/dispatch.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/http/read.hpp>
#include <kelo/KeloLog.h>

namespace http = boost::beast::http;
using Clock = std::chrono::steady_clock;

namespace {

/// The answer's side of a request, which somebody keeps until there is one. When it is given up
/// without, the client is told so.
class Answer
{
public:
    explicit Answer(std::weak_ptr<HttpSession> session) : m_session(std::move(session)) {}
    ~Answer() { give(HttpReply::problem(500, QStringLiteral("the streamer made a mistake"))); }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;

    void give(HttpReply reply)
    {
        if (m_isGiven.exchange(true))
            return;
        const auto session = m_session.lock();
        if (!session)
            return;
        // Not a strong handle: a server that has stopped runs nothing any more.
        boost::asio::dispatch(session->executor(),
                              [weak = m_session, reply = std::move(reply)]() mutable {
                                  if (const auto again = weak.lock())
                                      again->answer(std::move(reply));
                              });
    }

private:
    const std::weak_ptr<HttpSession> m_session;
    std::atomic<bool> m_isGiven{false};
};

int statusOf(const boost::beast::error_code& error)
{
    if (error == http::error::body_limit)
        return 413;
    if (error == http::error::header_limit)
        return 431;
    return 400;
}

const char* reasonPhrase(int status)
{
    const boost::beast::string_view text = http::obsolete_reason(http::status(status));
    return text.data();
}

void appendField(std::string& head, const std::string& name, const std::string& value)
{
    head += name;
    head += ": ";
    head += value;
    head += "\r\n";
}

/// Percent-decoding of an address' path; an escape that is none stays as it is.
std::string decodedPath(const std::string& target)
{
    const std::string path = target.substr(0, target.find('?'));
    return QByteArray::fromPercentEncoding(QByteArray::fromStdString(path)).toStdString();
}

} // namespace

HttpSession::HttpSession(boost::asio::ip::tcp::socket&& socket,
                         std::shared_ptr<HttpContext> context)
    : m_context(std::move(context)), m_stream(std::move(socket)),
      m_buffer(2 * m_context->limits.header), m_tick(m_stream.get_executor())
{
}

void HttpSession::start()
{
    Error ignored;
    m_stream.socket().set_option(boost::asio::ip::tcp::no_delay(true), ignored);
    const auto peer = m_stream.socket().remote_endpoint(ignored);
    m_request.isFromThisMachine = !ignored && peer.address().is_loopback();
    boost::asio::dispatch(m_stream.get_executor(),
                          [self = shared_from_this()] { self->awaitRequest(); });
}

void HttpSession::close()
{
    boost::asio::post(m_stream.get_executor(), [self = shared_from_this()] { self->end(); });
}

void HttpSession::awaitRequest()
{
    if (m_buffer.size() > 0)
        return readHeader();
    if (!m_context->sessions.setIdle(this, true))
        return end();
    m_stream.expires_after(std::chrono::seconds(m_context->limits.idleSeconds));
    m_stream.async_read_some(m_buffer.prepare(4096),
                             [self = shared_from_this()](const Error& error, size_t size) {
                                 if (error || !self->m_context->sessions.setIdle(self.get(), false))
                                     return self->end();
                                 self->m_buffer.commit(size);
                                 self->readHeader();
                             });
}

void HttpSession::readHeader()
{
    m_parser.emplace();
    m_parser->header_limit(std::uint32_t(m_context->limits.header));
    m_parser->body_limit(m_context->limits.body);
    m_stream.expires_after(std::chrono::seconds(m_context->limits.transferSeconds));
    http::async_read_header(
        m_stream, m_buffer, *m_parser, [self = shared_from_this()](const Error& error, size_t) {
            const auto& parser = *self->m_parser;
            if (error)
                self->fail(error);
            else if (parser.get().target().size() > self->m_context->limits.target)
                self->refuse(414);
            else if (!self->isFramed())
                self->refuse(400);
            else if (parser.is_done())
                self->takeRequest();
            else
                self->encourage();
        });
}

bool HttpSession::isFramed() const
{
    return m_parser->chunked() || m_parser->get().count(http::field::transfer_encoding) == 0;
}

void HttpSession::encourage()
{
    m_bodyEnd = Clock::now() + std::chrono::seconds(m_context->limits.bodySeconds);
    if (!boost::beast::iequals(m_parser->get()[http::field::expect], "100-continue"))
        return readBody();
    static const std::string goOn = "HTTP/1.1 100 Continue\r\n\r\n";
    boost::asio::async_write(m_stream, boost::asio::buffer(goOn),
                             [self = shared_from_this()](const Error& failure, size_t) {
                                 if (failure)
                                     return self->end();
                                 self->readBody();
                             });
}

void HttpSession::readBody()
{
    const std::chrono::seconds patience(m_context->limits.transferSeconds);
    m_stream.expires_at(std::min(m_bodyEnd, Clock::now() + patience));
    http::async_read_some(
        m_stream, m_buffer, *m_parser,
        [self = shared_from_this()](const Error& error, size_t) { self->onRead(error); });
}

void HttpSession::onRead(const Error& error)
{
    if (error)
        return fail(error);
    if (m_parser->is_done())
        takeRequest();
    else
        readBody();
}

void HttpSession::fail(const Error& error)
{
    const bool isFault = error.category() == make_error_code(http::error::bad_target).category() &&
                         error != http::error::end_of_stream &&
                         error != http::error::partial_message;
    if (isFault)
        refuse(statusOf(error));
    else
        end();
}

void HttpSession::refuse(int status)
{
    m_request.method.clear(); // it may be that of the request before
    m_isLast = true;
    m_isUnread = true;
    m_isAnswered = false;
    answer(HttpReply::problem(status, QStringLiteral("the request was refused")));
}

void HttpSession::takeRequest()
{
    auto message = m_parser->release();
    m_parser.reset();
    m_isLast = !message.keep_alive();
    m_request.method.assign(message.method_string().data(), message.method_string().size());
    m_request.target.assign(message.target().data(), message.target().size());
    m_request.path = decodedPath(m_request.target);
    m_request.fields.clear();
    for (const auto& field : message) {
        const auto name = field.name_string();
        const auto value = field.value();
        m_request.fields.emplace_back(std::string(name.data(), name.size()),
                                      std::string(value.data(), value.size()));
    }
    m_request.body = std::move(message.body());
    m_isAnswered = false;
    const auto once = std::make_shared<Answer>(weak_from_this());
    try {
        m_context->handler(m_request, [once](HttpReply reply) { once->give(std::move(reply)); });
    } catch (const std::exception& exception) {
        KELO_LOG("Web", ERROR) << "A handler threw: " << exception.what();
    }
}

void HttpSession::answer(HttpReply reply)
{
    if (m_isEnded || m_isAnswered)
        return;
    m_isAnswered = true;
    const bool isHead = m_request.method == "HEAD";
    m_events = isHead ? nullptr : reply.stream;
    m_head = "HTTP/1.1 " + std::to_string(reply.status) + ' ' + reasonPhrase(reply.status) + "\r\n";
    for (const auto& [name, value] : reply.headers)
        appendField(m_head, name, value);
    for (const auto& [name, value] : m_context->fields) {
        const auto isSame = [&name = name](const auto& field) { return field.first == name; };
        if (std::none_of(reply.headers.begin(), reply.headers.end(), isSame))
            appendField(m_head, name, value);
    }
    if (m_isLast && !m_events)
        appendField(m_head, "Connection", "close");
    if (m_events) {
        m_isLast = true;
        appendField(m_head, "Content-Type", "text/event-stream");
        appendField(m_head, "Transfer-Encoding", "chunked");
    } else if (reply.status != 304) {
        appendField(m_head, "Content-Type", reply.contentType);
        appendField(m_head, "Content-Length", std::to_string(reply.body.size()));
    }
    m_head += "\r\n";
    m_body.clear();
    if (!isHead && reply.status != 304 && !m_events)
        m_body = std::move(reply.body);
    m_written = 0;
    write();
}

void HttpSession::write()
{
    const size_t headLeft = m_head.size() - std::min(m_written, m_head.size());
    const size_t bodyDone = m_written - (m_head.size() - headLeft);
    const std::array<boost::asio::const_buffer, 2> rest{
        boost::asio::buffer(m_head.data() + m_head.size() - headLeft, headLeft),
        boost::asio::buffer(m_body.data() + bodyDone, m_body.size() - bodyDone)};
    m_stream.expires_after(std::chrono::seconds(m_context->limits.answerSeconds));
    m_stream.async_write_some(rest, [self = shared_from_this()](const Error& error, size_t size) {
        self->m_written += size;
        if (error)
            return self->end();
        if (self->m_written < self->m_head.size() + self->m_body.size())
            return self->write();
        std::string().swap(self->m_body);
        if (self->m_events)
            self->follow();
        else if (self->m_isUnread)
            self->linger();
        else if (self->m_isLast)
            self->end();
        else
            self->awaitRequest();
    });
}

void HttpSession::follow()
{
    m_stream.expires_never();
    watchPeer();
    m_events->setWake([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self)
            return;
        boost::asio::post(self->m_stream.get_executor(), [weak] {
            if (const auto again = weak.lock())
                again->writeEvents();
        });
    });
    tick();
}

void HttpSession::tick()
{
    if (m_isEnded)
        return;
    writeEvents();
    m_tick.expires_after(std::chrono::seconds(1));
    m_tick.async_wait([weak = weak_from_this()](const Error& error) {
        const auto self = weak.lock();
        if (!error && self)
            self->tick();
    });
}

void HttpSession::writeEvents()
{
    if (m_isEnded || m_isWriting)
        return;
    const std::string text = m_events->take();
    const bool isOver = text.empty() && m_events->isOver();
    if (text.empty() && !isOver)
        return;
    char size[20];
    std::snprintf(size, sizeof size, "%zx\r\n", text.size());
    m_head = isOver ? "0\r\n\r\n" : size + text + "\r\n";
    m_isWriting = true;
    m_stream.expires_after(std::chrono::seconds(m_context->limits.transferSeconds));
    boost::asio::async_write(m_stream, boost::asio::buffer(m_head),
                             [self = shared_from_this(), isOver](const Error& error, size_t) {
                                 self->m_isWriting = false;
                                 if (error || isOver)
                                     return self->end();
                                 self->writeEvents();
                             });
}

void HttpSession::watchPeer()
{
    m_buffer.consume(m_buffer.size());
    m_stream.async_read_some(m_buffer.prepare(1024),
                             [self = shared_from_this()](const Error& error, size_t) {
                                 if (error)
                                     return self->end();
                                 self->watchPeer();
                             });
}

void HttpSession::linger()
{
    if (m_dropped == 0) {
        Error ignored;
        m_stream.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, ignored);
        m_stream.expires_after(std::chrono::seconds(m_context->limits.transferSeconds));
    }
    m_buffer.consume(m_buffer.size());
    m_stream.async_read_some(m_buffer.prepare(16 * 1024),
                             [self = shared_from_this()](const Error& error, size_t size) {
                                 self->m_dropped += size;
                                 if (error || self->m_dropped > self->m_context->limits.lingering)
                                     return self->end();
                                 self->linger();
                             });
}

void HttpSession::end()
{
    if (m_isEnded)
        return;
    m_isEnded = true;
    Error ignored;
    m_stream.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_both, ignored);
    m_stream.close();
    m_tick.cancel();
    m_events.reset();
    m_context->sessions.remove(this);
}
