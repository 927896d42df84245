#include "web/WebServer.h"

#include "EventHub.h"
#include "HealthApi.h"
#include "HttpListener.h"
#include "LoginControl.h"
#include "Metrics.h"
#include "OriginGuard.h"
#include "PlayerControl.h"
#include "TreeApi.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>
#include <map>

namespace {

constexpr size_t largestBody = 1024 * 1024;
constexpr std::chrono::seconds heartbeat{15};
constexpr std::chrono::seconds streamStep{1};
constexpr char apiBase[] = "/api/v1/";

const httplib::Headers& defaultHeaders()
{
    static const httplib::Headers headers{
        {"Cache-Control", "no-store"},
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self'; "
         "img-src 'self' https: data:; base-uri 'none'; form-action 'none'; "
         "frame-ancestors 'none'"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Referrer-Policy", "no-referrer"},
        {"X-Content-Type-Options", "nosniff"},
        {"X-Frame-Options", "DENY"}};
    return headers;
}

constexpr char startPage[] =
    "<!doctype html><html lang=\"en\"><title>kelo</title><h1>kelo</h1>"
    "<p>The streamer runs. Its web page is not built yet.</p>"
    "<p>Use the command <code>kelo</code>, or the HTTP API below <code>/api/v1</code>, for example "
    "<a href=\"/api/v1/rows?path=/tidal\">/api/v1/rows?path=/tidal</a>.</p></html>";

void send(const HttpReply& reply, httplib::Response& response)
{
    response.status = reply.status;
    response.set_content(reply.body, reply.contentType);
}

} // namespace

class WebServer::Private
{
public:
    using Handler = std::function<HttpReply(const HttpCall&)>;

    Private(const WebServerOptions& options, PlayerControl& player, LoginControl& login)
        : m_options(options), m_player(player), m_login(login),
          m_guard(options.address, options.hostNames), m_tree(m_waiter),
          m_health(options.moduleFile), m_hub(player, login)
    {
        addTreeRoutes();
        addPlayerRoutes();
        addLoginRoutes();
        addOtherRoutes();
        setUp(m_listener.server());
    }

    bool start(QString* error);
    void stop();
    int port() const { return m_listener.port(); }

private:
    void addTreeRoutes();
    void addPlayerRoutes();
    void addLoginRoutes();
    void addOtherRoutes();
    void add(const char* method, const std::string& path, Handler handler)
    {
        m_routes[path][method] = std::move(handler);
    }
    void setUp(httplib::Server& server);
    /// False when the body was refused; the response says why.
    static bool readBody(const httplib::Request& request, httplib::Response& response,
                         const httplib::ContentReader& reader, std::string& body);
    void serve(const httplib::Request& request, const std::string& body,
               httplib::Response& response);
    HttpReply answer(const httplib::Request& request, const std::string& body,
                     httplib::Response& response, std::string* route);
    HttpReply command(const QString& name, const HttpCall& call);
    HttpReply loginAnswer(const CMReply<QVariant>& reply);
    /// Starts an event stream; the reply counts only when there is none.
    HttpReply startEvents(const HttpCall& call, httplib::Response& response);
    static bool writeEvents(EventClient& client, httplib::DataSink& sink,
                            std::chrono::steady_clock::time_point& lastWrite);

    const WebServerOptions m_options;
    PlayerControl& m_player;
    LoginControl& m_login;
    const OriginGuard m_guard;
    ReplyWaiter m_waiter;
    TreeApi m_tree;
    const HealthApi m_health;
    Metrics m_metrics;
    EventHub m_hub;
    std::map<std::string, std::map<std::string, Handler>> m_routes; ///< by path, then method
    HttpListener m_listener; ///< last: its threads use the others
};

void WebServer::Private::addTreeRoutes()
{
    const std::string base = apiBase;
    add("GET", base + "rows", [this](const HttpCall& call) { return m_tree.rows(call); });
    add("GET", base + "data", [this](const HttpCall& call) { return m_tree.data(call); });
    add("POST", base + "set", [this](const HttpCall& call) { return m_tree.set(call); });
}

void WebServer::Private::addPlayerRoutes()
{
    const std::string path = std::string(apiBase) + "player";
    add("GET", path, [this](const HttpCall&) { return HttpReply::json(m_player.status()); });
    for (const char* name :
         {"play", "pause", "resume", "stop", "next", "previous", "seek", "volume"}) {
        add("POST", path + "/" + name, [this, name](const HttpCall& call) {
            return command(QString::fromLatin1(name), call);
        });
    }
}

void WebServer::Private::addLoginRoutes()
{
    const std::string path = std::string(apiBase) + "login";
    add("GET", path, [this](const HttpCall&) { return HttpReply::json(m_login.status()); });
    add("POST", path, [this](const HttpCall&) { return loginAnswer(m_login.start()); });
    add("DELETE", path, [this](const HttpCall&) { return loginAnswer(m_login.logout()); });
}

void WebServer::Private::addOtherRoutes()
{
    add("GET", std::string(apiBase) + "session", [this](const HttpCall&) {
        return HttpReply::json(
            QJsonObject{{QStringLiteral("token"), QString::fromStdString(m_guard.sessionToken())},
                        {QStringLiteral("header"), QLatin1String(OriginGuard::sessionHeader())}});
    });
    add("GET", "/healthz", [this](const HttpCall&) { return m_health.health(); });
    add("GET", "/readyz", [this](const HttpCall&) { return m_health.readiness(); });
    add("GET", "/metrics", [this](const HttpCall&) {
        return HttpReply{
            200, "text/plain; version=0.0.4; charset=utf-8",
            m_metrics.text(m_hub.clients(), m_hub.dropped(), CMRoot().pendingRequests())};
    });
    add("GET", "/", [](const HttpCall&) {
        return HttpReply{200, "text/html; charset=utf-8", startPage};
    });
}

void WebServer::Private::setUp(httplib::Server& server)
{
    const auto plain = [this](const httplib::Request& request, httplib::Response& response) {
        serve(request, std::string(), response);
    };
    const auto withBody = [this](const httplib::Request& request, httplib::Response& response,
                                 const httplib::ContentReader& reader) {
        std::string body;
        if (readBody(request, response, reader, body))
            serve(request, body, response);
    };
    server.Get(".*", plain)
        .Options(".*", plain)
        .Post(".*", withBody)
        .Put(".*", withBody)
        .Patch(".*", withBody)
        .Delete(".*", withBody);
    server.set_payload_max_length(largestBody);
    server.set_keep_alive_max_count(INT_MAX); // said in a header; connections are not counted
    server.set_default_headers(defaultHeaders());
    // What the library refuses by itself: bodies and addresses above the caps, broken requests.
    server.set_error_handler([](const httplib::Request&, httplib::Response& response) {
        if (response.body.empty())
            send(HttpReply::problem(response.status, QStringLiteral("the request was refused")),
                 response);
    });
    server.set_exception_handler(
        [](const httplib::Request&, httplib::Response& response, std::exception_ptr) {
            KELO_LOG("Web", ERROR) << "A handler threw";
            send(HttpReply::problem(500, QStringLiteral("the streamer made a mistake")), response);
        });
}

bool WebServer::Private::readBody(const httplib::Request& request, httplib::Response& response,
                                  const httplib::ContentReader& reader, std::string& body)
{
    // RFC 9112 6.3: without either field there is no body; the library would wait for one.
    if (!request.has_header("Content-Length") && !request.has_header("Transfer-Encoding"))
        return true;
    if (request.is_multipart_form_data()) {
        reader([](const httplib::MultipartFormData&) { return true; },
               [](const char*, size_t) { return true; });
        send(HttpReply::problem(415, QStringLiteral("wanted a JSON body")), response);
        return false;
    }
    // On failure the library has set the status.
    return reader([&body](const char* bytes, size_t size) {
        body.append(bytes, size);
        return true;
    });
}

void WebServer::Private::serve(const httplib::Request& request, const std::string& body,
                               httplib::Response& response)
{
    const auto begin = std::chrono::steady_clock::now();
    std::string route = "other";
    const HttpReply reply = answer(request, body, response, &route);
    if (reply.status != 0)
        send(reply, response);
    const auto duration = std::chrono::steady_clock::now() - begin;
    m_metrics.count(route, response.status, duration);
    KELO_LOG("Web", DEBUG)
        << request.method.c_str() << " " << keloUrlForLog(QString::fromStdString(request.target))
        << ": " << response.status << ", "
        << qint64(std::chrono::duration_cast<std::chrono::milliseconds>(duration).count()) << " ms";
}

HttpReply WebServer::Private::answer(const httplib::Request& request, const std::string& body,
                                     httplib::Response& response, std::string* route)
{
    if (auto refusal = m_guard.check(request))
        return *refusal;
    const std::string events = std::string(apiBase) + "events";
    const auto found = m_routes.find(request.path);
    if (found == m_routes.end() && request.path != events)
        return HttpReply::problem(404, QStringLiteral("there is no such address"));
    *route = request.path;

    HttpCall call;
    auto query = HttpCall::parseQuery(request.target);
    if (!query)
        return HttpReply::badRequest(QStringLiteral("the query has a malformed escape"));
    call.query = *query;
    call.body = QByteArray::fromStdString(body);

    if (request.path == events && request.method == "GET")
        return startEvents(call, response);
    if (found != m_routes.end()) {
        const std::string method = request.method == "HEAD" ? "GET" : request.method;
        const auto handler = found->second.find(method);
        if (handler != found->second.end())
            return handler->second(call);
        for (const auto& other : found->second)
            response.headers.emplace("Allow", other.first);
    }
    return HttpReply::problem(405, QStringLiteral("this address does not take %1")
                                       .arg(QString::fromStdString(request.method)));
}

HttpReply WebServer::Private::command(const QString& name, const HttpCall& call)
{
    QString fault;
    const auto arguments = call.object(&fault);
    if (!arguments)
        return HttpReply::badRequest(fault);
    const CMReply<QVariant> reply = m_player.command(name, arguments->toVariant().toHash());
    m_waiter.wait(reply);
    if (reply.error().isSet())
        return HttpReply::error(reply.error());
    return HttpReply::json(m_player.status());
}

HttpReply WebServer::Private::loginAnswer(const CMReply<QVariant>& reply)
{
    m_waiter.wait(reply);
    if (reply.error().isSet())
        return HttpReply::error(reply.error());
    return HttpReply::json(m_login.status());
}

HttpReply WebServer::Private::startEvents(const HttpCall& call, httplib::Response& response)
{
    QList<CMPath> paths;
    const QStringList texts = call.parameters("path");
    for (const QString& text : texts) {
        QString fault;
        const auto path = HttpCall::readPath(text, &fault);
        if (!path)
            return HttpReply::badRequest(fault);
        paths.append(*path);
    }
    HttpReply refusal;
    const std::shared_ptr<EventClient> client = m_hub.open(paths, &refusal);
    if (!client)
        return refusal;
    response.status = 200;
    auto lastWrite = std::make_shared<std::chrono::steady_clock::time_point>();
    response.set_chunked_content_provider(
        "text/event-stream",
        [client, lastWrite](size_t, httplib::DataSink& sink) {
            return writeEvents(*client, sink, *lastWrite);
        },
        [this, client](bool) { m_hub.close(client); });
    refusal.status = 0;
    return refusal;
}

bool WebServer::Private::writeEvents(EventClient& client, httplib::DataSink& sink,
                                     std::chrono::steady_clock::time_point& lastWrite)
{
    const auto now = std::chrono::steady_clock::now();
    std::string text;
    if (lastWrite == std::chrono::steady_clock::time_point()) {
        text = "retry: 3000\n\n";
    } else {
        // Short steps, between which the server looks whether the client is still there.
        const EventClient::Next next = client.next(text, streamStep);
        if (next == EventClient::Next::End) {
            sink.done();
            return true;
        }
        if (next == EventClient::Next::Nothing) {
            if (now - lastWrite < heartbeat)
                return sink.is_writable();
            text = ": still here\n\n";
        }
    }
    lastWrite = now;
    return sink.write(text.data(), text.size());
}

bool WebServer::Private::start(QString* error)
{
    if (m_listener.start(m_options.address.toStdString(), m_options.port))
        return true;
    const int number = errno;
    *error = QStringLiteral("cannot listen on %1:%2: %3")
                 .arg(m_options.address)
                 .arg(m_options.port)
                 .arg(number != 0 ? QString::fromLocal8Bit(std::strerror(number))
                                  : QStringLiteral("no such address"));
    return false;
}

void WebServer::Private::stop()
{
    m_hub.stop();
    m_waiter.stop();
    m_listener.stop();
}

WebServer::WebServer(const WebServerOptions& options, PlayerControl& player, LoginControl& login)
    : d(std::make_unique<Private>(options, player, login))
{
}

WebServer::~WebServer()
{
    stop();
}

bool WebServer::start(QString* error)
{
    return d->start(error);
}

int WebServer::port() const
{
    return d->port();
}

void WebServer::stop()
{
    d->stop();
}
