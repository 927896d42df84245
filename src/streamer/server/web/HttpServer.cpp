#include "HttpServer.h"

#include "HttpSession.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/strand.hpp>
#include <kelo/KeloLog.h>
#include <sys/resource.h>
#include <system_error>
#include <thread>

namespace asio = boost::asio;
using asio::ip::tcp;

namespace {

/// They write answers; nobody waits on them.
constexpr size_t threadCount = 4;
constexpr std::chrono::milliseconds stopPatience{500};
/// After the system had no connection to give.
constexpr std::chrono::milliseconds acceptPause{100};
/// File descriptors for everything but connections.
constexpr rlim_t otherFiles = 200;

/// Lets the process have as many files open as the wanted connections take, and returns how many
/// of these it may have.
size_t allowConnections(size_t wanted)
{
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return wanted;
    const rlim_t files = std::min<rlim_t>(limit.rlim_max, wanted + otherFiles);
    if (limit.rlim_cur < files) {
        limit.rlim_cur = files;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    return size_t(files > 2 * otherFiles ? files - otherFiles : otherFiles);
}

} // namespace

class HttpServer::Private
{
public:
    Private(HttpHandler handler, const Fields& fields, const Limits& limits)
    {
        m_context->handler = std::move(handler);
        m_context->fields = fields;
        m_context->limits = limits;
    }

    bool start(const std::string& host, int port, std::string* error);
    void stop();
    int port() const { return m_port; }
    const std::shared_ptr<HttpContext>& context() const { return m_context; }

private:
    bool bind(const std::string& host, int port, boost::system::error_code& error);
    void accept();
    void run();

    const std::shared_ptr<HttpContext> m_context = std::make_shared<HttpContext>();
    tcp::acceptor m_acceptor{asio::make_strand(m_context->io)};
    /// Keeps the threads while all connections wait for answers.
    asio::executor_work_guard<asio::io_context::executor_type> m_work{m_context->io.get_executor()};
    asio::steady_timer m_pause{m_acceptor.get_executor()};
    std::vector<std::thread> m_threads;
    int m_port = 0;
};

bool HttpServer::Private::bind(const std::string& host, int port, boost::system::error_code& error)
{
    tcp::resolver resolver(m_context->io);
    const auto found = resolver.resolve(host, std::to_string(port), tcp::resolver::passive, error);
    if (error)
        return false;
    const tcp::endpoint endpoint = *found.begin();
    m_acceptor.open(endpoint.protocol(), error);
    // Not SO_REUSEPORT: two streamers would share the port in silence.
    if (!error)
        m_acceptor.set_option(tcp::acceptor::reuse_address(true), error);
    if (!error)
        m_acceptor.bind(endpoint, error);
    if (!error)
        m_acceptor.listen(asio::socket_base::max_listen_connections, error);
    if (!error)
        m_port = m_acceptor.local_endpoint(error).port();
    return !error;
}

bool HttpServer::Private::start(const std::string& host, int port, std::string* error)
{
    boost::system::error_code failure;
    if (!bind(host, port, failure)) {
        *error = failure.message();
        return false;
    }
    m_context->limits.connections = allowConnections(m_context->limits.connections);
    accept();
    try {
        while (m_threads.size() < threadCount)
            m_threads.emplace_back([this] { run(); });
    } catch (const std::system_error& reason) {
        if (m_threads.empty()) {
            *error = reason.what();
            return false;
        }
        KELO_LOG("Web", ERROR) << "Clients are served by " << int(m_threads.size())
                               << " threads alone: " << reason.what();
    }
    return true;
}

void HttpServer::Private::accept()
{
    m_acceptor.async_accept(
        asio::any_io_executor(asio::make_strand(m_context->io)),
        [this](const boost::system::error_code& error, tcp::socket socket) {
            if (!m_acceptor.is_open())
                return;
            if (!error) {
                const auto session = std::make_shared<HttpSession>(std::move(socket), m_context);
                m_context->sessions.add(session, m_context->limits.connections);
                session->start();
                return accept();
            }
            m_pause.expires_after(acceptPause);
            m_pause.async_wait([this](const boost::system::error_code& stopped) {
                if (!stopped)
                    accept();
            });
        });
}

void HttpServer::Private::run()
{
    for (;;) {
        try {
            m_context->io.run();
            return;
        } catch (const std::exception& exception) {
            KELO_LOG("Web", ERROR) << "A connection failed: " << exception.what();
        }
    }
}

void HttpServer::Private::stop()
{
    if (m_threads.empty())
        return;
    asio::post(m_acceptor.get_executor(), [this] {
        boost::system::error_code ignored;
        m_acceptor.close(ignored);
        m_pause.cancel();
    });
    m_context->sessions.stop();
    m_context->sessions.waitUntilEmpty(stopPatience);
    m_context->sessions.closeAll();
    m_work.reset();
    for (std::thread& thread : m_threads)
        thread.join();
    m_threads.clear();
}

HttpServer::HttpServer(HttpHandler handler, const Fields& fields, const Limits& limits)
    : d(std::make_unique<Private>(std::move(handler), fields, limits))
{
}

HttpServer::~HttpServer()
{
    stop();
}

bool HttpServer::start(const std::string& host, int port, std::string* error)
{
    return d->start(host, port, error);
}

int HttpServer::port() const
{
    return d->port();
}

std::function<void(std::function<void()>)> HttpServer::runner() const
{
    return [context = d->context()](std::function<void()> function) {
        asio::post(context->io, std::move(function));
    };
}

void HttpServer::stop()
{
    d->stop();
}
