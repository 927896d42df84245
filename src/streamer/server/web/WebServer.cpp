#include "web/WebServer.h"

#include "EventsApi.h"
#include "EventStream.h"
#include "Gzip.h"
#include "HealthApi.h"
#include "HttpServer.h"
#include "ImageApi.h"
#include "LoginApi.h"
#include "Metrics.h"
#include "OriginGuard.h"
#include "PlayerApi.h"
#include "PlayerControl.h"
#include "RequestsApi.h"
#include "texts/TextCatalogues.h"
#include "TextsApi.h"
#include "TreeApi.h"
#include "WebAssets.h"

#include <kelo/CMRoot.h>
#include <kelo/KeloLog.h>

namespace {

const HttpServer::Fields& commonFields()
{
    static const HttpServer::Fields fields{
        {"Cache-Control", "no-store"},
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self'; "
         "img-src 'self' data:; manifest-src 'self'; base-uri 'none'; form-action 'none'; "
         "frame-ancestors 'none'"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Referrer-Policy", "no-referrer"},
        {"X-Content-Type-Options", "nosniff"},
        {"X-Frame-Options", "DENY"}};
    return fields;
}

bool takesGzip(const HttpRequest& request)
{
    return QString::fromStdString(request.field("Accept-Encoding"))
        .contains(QLatin1String("gzip"), Qt::CaseInsensitive);
}

/// Of a kind that a form sends (RFC 7578), which says what a page from anywhere may send.
bool isForm(const HttpRequest& request)
{
    return QString::fromStdString(request.field("Content-Type"))
        .startsWith(QLatin1String("multipart/form-data"), Qt::CaseInsensitive);
}

/// At a low level: an answer is made while somebody waits for it.
void compress(HttpReply& reply)
{
    constexpr size_t leastSize = 1024;
    constexpr int level = 1;
    const bool isText = reply.contentType.rfind("image/", 0) != 0 || reply.isAsset;
    if (reply.stream || reply.body.size() < leastSize || !isText)
        return;
    auto packed = gzip(reply.body, level);
    if (!packed)
        return;
    reply.body = std::move(*packed);
    reply.headers.emplace_back("Content-Encoding", "gzip");
}

} // namespace

struct WebServer::Private
{
    Private(const WebServerOptions& options, PlayerControl& player, LoginControl& login)
        : m_options(options), m_guard(options.address, options.hostNames),
          m_assets(options.webDirectory), m_tree(m_waiter, player.keptRows()),
          m_player(player, m_waiter), m_login(login, m_waiter), m_health(options.modules),
          m_hub(player, login), m_events(m_hub), m_images(options.imageUrl, options.imageUrls)
    {
        m_tree.addRoutes(m_routes);
        m_player.addRoutes(m_routes);
        m_login.addRoutes(m_routes);
        m_events.addRoutes(m_routes);
        TextsApi::addRoutes(m_routes);
        m_images.addRoutes(m_routes);
        RequestsApi::addRoutes(m_routes);
        addOwnRoutes();
    }

    void addOwnRoutes();
    /// Takes a request: answers it now or later, counts it and logs it.
    void serve(const HttpRequest& request, const HttpAnswer& answer);
    void call(const HttpRequest& request, const HttpAnswer& answer);
    HttpReply answerAsset(const HttpRequest& request) const;

    const WebServerOptions m_options;
    const OriginGuard m_guard;
    const WebAssets m_assets;
    const TextCatalogues m_texts;
    HttpServer m_server{
        [this](const HttpRequest& request, const HttpAnswer& answer) { serve(request, answer); },
        commonFields(), HttpServer::Limits()};
    ReplyWaiter m_waiter{m_server.runner()};
    TreeApi m_tree;
    PlayerApi m_player;
    LoginApi m_login;
    const HealthApi m_health;
    Metrics m_metrics;
    EventHub m_hub;
    EventsApi m_events;
    ImageApi m_images;
    RouteTable m_routes;
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

void WebServer::Private::serve(const HttpRequest& request, const HttpAnswer& answer)
{
    const auto begin = std::chrono::steady_clock::now();
    const bool isKnown = m_routes.hasPath(request.path);
    const bool isCompressible = !request.isFromThisMachine && takesGzip(request);
    const auto finish =
        [this, begin, isKnown, isCompressible, answer, method = request.method,
         target = request.target, path = request.path](HttpReply reply) {
            if (isCompressible)
                compress(reply);
            const std::string route = isKnown ? path : reply.isAsset ? "page" : "other";
            const auto duration = std::chrono::steady_clock::now() - begin;
            m_metrics.count(route, reply.status, duration);
            KELO_LOG("Web", DEBUG)
                << method.c_str() << " "
                << [&] { return keloUrlForLog(QString::fromStdString(target)); } << ": "
                << reply.status << ", "
                << qint64(std::chrono::duration_cast<std::chrono::milliseconds>(duration).count())
                << " ms";
            answer(std::move(reply));
        };
    if (auto refusal = m_guard.check(request))
        finish(std::move(*refusal));
    else if (!isKnown)
        finish(answerAsset(request));
    else
        call(request, finish);
}

void WebServer::Private::call(const HttpRequest& request, const HttpAnswer& answer)
{
    if (isForm(request))
        return answer(HttpReply::problem(415, QStringLiteral("wanted a JSON body")));
    auto query = HttpCall::parseQuery(request.target);
    if (!query)
        return answer(HttpReply::badRequest(QStringLiteral("the query has a malformed escape")));
    HttpCall call;
    call.query = std::move(*query);
    call.body = QByteArray::fromStdString(request.body);
    call.ifNoneMatch = request.field("If-None-Match");
    const TextCatalogue& texts =
        m_texts.choose(call.parameter("language").value_or(QString()),
                       QString::fromStdString(request.field("Accept-Language")));
    call.texts = &texts;
    m_routes.find(request.method, request.path)(call, [&texts, answer](HttpReply reply) {
        reply.translate(texts);
        reply.headers.emplace_back("Content-Language", texts.language().toStdString());
        reply.headers.emplace_back("Vary", "Accept-Language");
        answer(std::move(reply));
    });
}

HttpReply WebServer::Private::answerAsset(const HttpRequest& request) const
{
    const TextCatalogue& texts =
        m_texts.choose(QString(), QString::fromStdString(request.field("Accept-Language")));
    auto reply = m_assets.find(request.path, request.field("If-None-Match"), texts);
    if (!reply)
        return HttpReply::problem(404, QStringLiteral("there is no such address"));
    reply->isAsset = true;
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
    std::string reason;
    if (d->m_server.start(options.address.toStdString(), options.port, &reason))
        return true;
    *error = QStringLiteral("cannot listen on %1:%2: %3")
                 .arg(options.address)
                 .arg(options.port)
                 .arg(QString::fromStdString(reason));
    return false;
}

std::vector<std::string> WebServer::routes() const
{
    return d->m_routes.list();
}

int WebServer::port() const
{
    return d->m_server.port();
}

std::function<void(std::function<void()>)> WebServer::runner() const
{
    return d->m_server.runner();
}

void WebServer::stop()
{
    d->m_hub.stop();
    d->m_waiter.stop();
    d->m_images.stop();
    d->m_server.stop();
}
