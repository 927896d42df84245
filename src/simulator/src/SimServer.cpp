#include "kelosim/SimServer.h"

#include "Audio.h"
#include "Catalogue.h"
#include "Faults.h"
#include "HttpServer.h"
#include "Images.h"
#include "Library.h"
#include "LinkPage.h"
#include "OAuth2.h"
#include "RequestLog.h"
#include "WebApi.h"

#include <rapidjson/document.h>

namespace kelosim {

namespace {

// "127.0.0.1:8099" into its parts. Only loopback addresses: this service hands out tokens to
// whoever asks.
bool readAddress(const std::string& text, std::string* host, int* port, std::string* error)
{
    const std::size_t colon = text.rfind(':');
    const std::string digits = colon == std::string::npos ? "" : text.substr(colon + 1);
    const std::int64_t number = toNumber(digits).value_or(-1);
    *host = text.substr(0, colon);
    if (number < 0 || number > 65535) {
        *error = "'" + text + "' is no address of the form 127.0.0.1:PORT";
        return false;
    }
    *port = static_cast<int>(number);
    if (*host == "localhost")
        *host = "127.0.0.1";
    if (startsWith(*host, "127."))
        return true;
    *error = "'" + text + "' is not a loopback address; the simulated service answers on 127.0.0.1";
    return false;
}

// The value of a control request, sent as JSON object or as form.
std::string bodyValue(const std::string& body, const char* key)
{
    rapidjson::Document document;
    document.Parse(body.data(), body.size());
    if (!document.HasParseError() && document.IsObject() && document.HasMember(key) &&
        document[key].IsString())
        return document[key].GetString();
    return textKey(parsePairs(body), key);
}

int approvals(const SimOptions& options)
{
    if (options.autoApproveLogin)
        return OAuth2::approveAll;
    return options.autoApproveFirstLogin ? 1 : 0;
}

HttpResponse done()
{
    return HttpResponse::json(200, "{}");
}

} // namespace

class SimServer::Private
{
public:
    explicit Private(SimOptions given)
        : options(std::move(given)), catalogue(options.seed), library(catalogue),
          oauth2(faults, approvals(options)), linkPage(oauth2), audio(catalogue, faults),
          images(catalogue), api(catalogue, library, faults, oauth2, audio),
          server([this](const HttpRequest& request) { return handle(request); })
    {
    }

    std::string addFault(const std::string& line)
    {
        const std::string problem = faults.add(line);
        if (problem.empty() && startsWith(line, "token-expired"))
            oauth2.expireTokens();
        return problem;
    }

    void reset()
    {
        library.reset();
        faults.clear();
        log.clear();
    }

    HttpResponse handle(const HttpRequest& request);
    HttpResponse dispatch(const HttpRequest& request, const std::string& top);
    HttpResponse control(const HttpRequest& request);
    HttpResponse controlFaults(const HttpRequest& request);

    const SimOptions options;
    std::string host; // "127.0.0.1:PORT", set by start() before the first request
    const Catalogue catalogue;
    Library library;
    Faults faults;
    RequestLog log;
    OAuth2 oauth2;
    LinkPage linkPage;
    Audio audio;
    Images images;
    WebApi api;
    HttpServer server; // last: its threads end before anything they use
};

HttpResponse SimServer::Private::handle(const HttpRequest& request)
{
    const std::vector<std::string> segments = request.segments();
    const std::string top = segments.empty() ? "" : segments.front();
    if (top == "sim")
        return control(request);
    log.add(request);
    auto instead = faults.instead(request);
    HttpResponse response = instead ? std::move(*instead) : dispatch(request, top);
    faults.onTheWay(request, response);
    response.headers.emplace_back("Date", httpDate(nowMs() + faults.dateShiftMs(request)));
    if (top == "v1")
        response.transport.delayMs += options.latencyMs;
    return response;
}

HttpResponse SimServer::Private::dispatch(const HttpRequest& request, const std::string& top)
{
    if (startsWith(request.path, "/v1/oauth2/")) {
        if (request.method != "POST")
            return methodNotAllowed();
        if (request.path == "/v1/oauth2/device_authorization")
            return oauth2.deviceAuthorization(request, host);
        return request.path == "/v1/oauth2/token" ? oauth2.token(request) : notFound("Resource");
    }
    if (top == "v1")
        return api.handle(request, "http://" + host);
    if (top == "images")
        return images.serve(request);
    if (top == "audio")
        return audio.serve(request);
    if (top == "link")
        return linkPage.handle(request);
    return HttpResponse::html(404, "<html><body>Not found</body></html>");
}

HttpResponse SimServer::Private::control(const HttpRequest& request)
{
    const std::string& path = request.path;
    const bool post = request.method == "POST";
    if (path == "/sim/log" && request.method == "GET")
        return HttpResponse::json(200, log.json());
    if (path == "/sim/faults")
        return controlFaults(request);
    if (path == "/sim/reset" && post) {
        reset();
        return done();
    }
    if (path == "/sim/token" && post)
        return HttpResponse::json(200, JsonWriter()
                                           .beginObject()
                                           .field("access_token", oauth2.issueToken())
                                           .endObject()
                                           .take());
    if (post && (path == "/sim/login/approve" || path == "/sim/login/deny")) {
        const std::string code = bodyValue(request.body, "userCode");
        if (!oauth2.decide(code, path == "/sim/login/approve"))
            return notFound("User code [" + code + "]");
        return done();
    }
    return notFound("Control");
}

// Plain text, one fault a line. All or none are put in force.
HttpResponse SimServer::Private::controlFaults(const HttpRequest& request)
{
    if (request.method == "DELETE") {
        faults.clear();
        return done();
    }
    if (request.method != "POST")
        return methodNotAllowed();
    Faults trial;
    std::vector<std::string> lines;
    for (std::string line : split(request.body, '\n')) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.find_first_not_of(' ') == std::string::npos)
            continue;
        const std::string problem = trial.add(line);
        if (!problem.empty())
            return apiError(400, 0, problem);
        lines.push_back(line);
    }
    for (const std::string& line : lines)
        addFault(line);
    return done();
}

SimServer::SimServer(SimOptions options) : m_d(std::make_unique<Private>(std::move(options))) {}

SimServer::~SimServer()
{
    stop();
}

bool SimServer::start(std::string* error)
{
    std::string unwanted;
    std::string& problem = error ? *error : unwanted;
    std::string host;
    int port = 0;
    if (!readAddress(m_d->options.listen, &host, &port, &problem))
        return false;
    for (const std::string& line : m_d->options.faults) {
        problem = addFault(line);
        if (!problem.empty())
            return false;
    }
    return m_d->server.start(
        host, port, [&](int bound) { m_d->host = host + ":" + std::to_string(bound); }, &problem);
}

void SimServer::stop()
{
    m_d->server.stop();
}
int SimServer::port() const
{
    return m_d->server.port();
}
std::string SimServer::baseUrl() const
{
    return "http://" + m_d->host;
}
std::string SimServer::addFault(const std::string& line)
{
    return m_d->addFault(line);
}
void SimServer::clearFaults()
{
    m_d->faults.clear();
}
void SimServer::reset()
{
    m_d->reset();
}
std::string SimServer::log() const
{
    return m_d->log.json();
}

bool SimServer::waitForRequests(const std::string& pathPrefix, int count, int timeoutMs) const
{
    return m_d->log.waitFor(pathPrefix, count, timeoutMs);
}

std::string SimServer::issueToken()
{
    return m_d->oauth2.issueToken();
}
void SimServer::expireTokens()
{
    m_d->oauth2.expireTokens();
}
std::string SimServer::tracksBody(int count) const
{
    return m_d->api.tracksBody(count);
}
std::string SimServer::faultHelp()
{
    return Faults::help();
}

} // namespace kelosim
