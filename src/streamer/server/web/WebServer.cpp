#include "web/WebServer.h"

#include "EventsApi.h"
#include "EventStream.h"
#include "HealthApi.h"
#include "HttpListener.h"
#include "ImageApi.h"
#include "LoginApi.h"
#include "Metrics.h"
#include "OriginGuard.h"
#include "PlayerApi.h"
#include "RequestsApi.h"
#include "texts/TextCatalogues.h"
#include "TextsApi.h"
#include "TreeApi.h"
#include "WebAssets.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>

namespace {

constexpr size_t largestBody = 1024 * 1024;

const httplib::Headers& defaultHeaders()
{
    static const httplib::Headers headers{
        {"Cache-Control", "no-store"},
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self'; "
         "img-src 'self' data:; manifest-src 'self'; base-uri 'none'; form-action 'none'; "
         "frame-ancestors 'none'"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Referrer-Policy", "no-referrer"},
        {"X-Content-Type-Options", "nosniff"},
        {"X-Frame-Options", "DENY"}};
    return headers;
}

/// One step of an event stream; false when the client is gone.
bool write(EventStream& stream, httplib::DataSink& sink)
{
    std::string text;
    switch (stream.next(text)) {
    case EventClient::Next::Event:
        return sink.write(text.data(), text.size());
    case EventClient::Next::Nothing:
        return sink.is_writable();
    case EventClient::Next::End:
        sink.done();
        break;
    }
    return true;
}

void send(const HttpReply& reply, httplib::Response& response)
{
    response.status = reply.status;
    for (const auto& [name, value] : reply.headers)
        response.headers.erase(name);
    for (const auto& field : reply.headers)
        response.headers.insert(field);
    if (reply.stream) {
        response.set_chunked_content_provider(
            "text/event-stream", [stream = reply.stream](size_t, httplib::DataSink& sink) {
                return write(*stream, sink);
            });
    } else if (reply.status != 304) {
        response.set_content(reply.body, reply.contentType);
    }
}

} // namespace

struct WebServer::Private
{
    Private(const WebServerOptions& options, PlayerControl& player, LoginControl& login)
        : m_options(options), m_guard(options.address, options.hostNames),
          m_assets(options.webDirectory), m_tree(m_waiter), m_player(player, m_waiter),
          m_login(login, m_waiter), m_health(options.moduleFile), m_hub(player, login),
          m_events(m_hub), m_images(options.imageUrl)
    {
        m_tree.addRoutes(m_routes);
        m_player.addRoutes(m_routes);
        m_login.addRoutes(m_routes);
        m_events.addRoutes(m_routes);
        TextsApi::addRoutes(m_routes);
        m_images.addRoutes(m_routes);
        RequestsApi::addRoutes(m_routes);
        addOwnRoutes();
        setUp(m_listener.server());
    }

    void addOwnRoutes();
    void setUp(httplib::Server& server);
    /// False when the body was refused; the response says why.
    static bool readBody(const httplib::Request& request, httplib::Response& response,
                         const httplib::ContentReader& reader, std::string& body);
    void serve(const httplib::Request& request, const std::string& body,
               httplib::Response& response);
    HttpReply answer(const httplib::Request& request, const std::string& body, std::string* route);
    HttpReply answerAsset(const httplib::Request& request, std::string* route) const;

    const WebServerOptions m_options;
    const OriginGuard m_guard;
    const WebAssets m_assets;
    const TextCatalogues m_texts;
    ReplyWaiter m_waiter;
    TreeApi m_tree;
    PlayerApi m_player;
    LoginApi m_login;
    const HealthApi m_health;
    Metrics m_metrics;
    EventHub m_hub;
    EventsApi m_events;
    ImageApi m_images;
    RouteTable m_routes;
    HttpListener m_listener; ///< last: its threads use the others
};

void WebServer::Private::addOwnRoutes()
{
    m_routes.add("GET", "/api/v1/session", [this](const HttpCall&) {
        return HttpReply::json(
            QJsonObject{{QStringLiteral("token"), QString::fromStdString(m_guard.sessionToken())},
                        {QStringLiteral("header"), QLatin1String(OriginGuard::sessionHeader())}});
    });
    m_routes.add("GET", "/healthz", [this](const HttpCall&) { return m_health.health(); });
    m_routes.add("GET", "/readyz",
                 [this](const HttpCall& call) { return m_health.readiness(*call.texts); });
    m_routes.add("GET", "/metrics", [this](const HttpCall&) {
        return HttpReply{
            200, "text/plain; version=0.0.4; charset=utf-8",
            m_metrics.text(m_hub.clients(), m_hub.dropped(), CMRoot().pendingRequests())};
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
    send(answer(request, body, &route), response);
    const auto duration = std::chrono::steady_clock::now() - begin;
    m_metrics.count(route, response.status, duration);
    KELO_LOG("Web", DEBUG)
        << request.method.c_str() << " " << keloUrlForLog(QString::fromStdString(request.target))
        << ": " << response.status << ", "
        << qint64(std::chrono::duration_cast<std::chrono::milliseconds>(duration).count()) << " ms";
}

HttpReply WebServer::Private::answer(const httplib::Request& request, const std::string& body,
                                     std::string* route)
{
    if (auto refusal = m_guard.check(request))
        return *refusal;
    if (!m_routes.hasPath(request.path))
        return answerAsset(request, route);
    *route = request.path;

    auto query = HttpCall::parseQuery(request.target);
    if (!query)
        return HttpReply::badRequest(QStringLiteral("the query has a malformed escape"));
    HttpCall call;
    call.query = std::move(*query);
    call.body = QByteArray::fromStdString(body);
    call.ifNoneMatch = request.get_header_value("If-None-Match");
    call.texts =
        &m_texts.choose(call.parameter("language").value_or(QString()),
                        QString::fromStdString(request.get_header_value("Accept-Language")));
    HttpReply reply = m_routes.find(request.method, request.path)(call);
    reply.translate(*call.texts);
    reply.headers.emplace_back("Content-Language", call.texts->language().toStdString());
    reply.headers.emplace_back("Vary", "Accept-Language");
    return reply;
}

HttpReply WebServer::Private::answerAsset(const httplib::Request& request, std::string* route) const
{
    auto reply = m_assets.find(request.path, request.get_header_value("If-None-Match"));
    if (!reply)
        return HttpReply::problem(404, QStringLiteral("there is no such address"));
    *route = "page";
    if (request.method == "GET" || request.method == "HEAD")
        return std::move(*reply);
    HttpReply refusal = HttpReply::wrongMethod(request.method);
    refusal.headers.emplace_back("Allow", "GET");
    return refusal;
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
    const WebServerOptions& options = d->m_options;
    if (d->m_listener.start(options.address.toStdString(), options.port))
        return true;
    const int number = errno;
    *error = QStringLiteral("cannot listen on %1:%2: %3")
                 .arg(options.address)
                 .arg(options.port)
                 .arg(number != 0 ? QString::fromLocal8Bit(std::strerror(number))
                                  : QStringLiteral("no such address"));
    return false;
}

std::vector<std::string> WebServer::routes() const
{
    return d->m_routes.list();
}

int WebServer::port() const
{
    return d->m_listener.port();
}

void WebServer::stop()
{
    d->m_hub.stop();
    d->m_waiter.stop();
    d->m_images.stop();
    d->m_listener.stop();
}
