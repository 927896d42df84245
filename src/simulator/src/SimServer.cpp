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
    *port = int(number);
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

} // namespace

class SimServer::Private
{
public:
    explicit Private(SimOptions given)
        : options(std::move(given)), catalogue(options.seed), library(catalogue),
          oauth2(faults, options.approvals), linkPage(oauth2), audio(catalogue, faults),
          images(catalogue), api(catalogue, library, faults, oauth2, audio),
          server([this](const HttpRequest& request) { return handle(request); })
    {
    }

    std::string address() const { return "http://" + host + ":" + std::to_string(server.port()); }
    std::string addFault(const std::string& line);
    void reset();
    HttpResponse handle(const HttpRequest& request);
    HttpResponse dispatch(const HttpRequest& request, const std::string& top);
    HttpResponse control(const HttpRequest& request);
    HttpResponse addFaults(const std::string& lines);

    const SimOptions options;
    std::string host; // set by start() before the first request
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
    const std::string top = request.segments.empty() ? "" : request.segments.front();
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
            return oauth2.deviceAuthorization(request, address());
        return request.path == "/v1/oauth2/token" ? oauth2.token(request) : notFound("Resource");
    }
    if (top == "v1")
        return api.handle(request, address());
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
    std::string call = request.method + " ";
    for (std::size_t i = 1; i < request.segments.size(); ++i) // behind "/sim"
        call += "/" + request.segments[i];
    if (call == "GET /log")
        return HttpResponse::json(200, log.json());
    if (call == "POST /faults")
        return addFaults(request.body);
    if (call == "POST /token")
        return HttpResponse::json(200, "{\"access_token\":\"" + oauth2.issueToken() + "\"}");
    if (call == "DELETE /faults") {
        faults.clear();
    } else if (call == "POST /reset") {
        reset();
    } else if (call == "POST /login/approve" || call == "POST /login/deny") {
        const std::string code = bodyValue(request.body, "userCode");
        if (!oauth2.decide(code, call == "POST /login/approve"))
            return notFound("User code [" + code + "]");
    } else {
        return call.find(" /faults") == std::string::npos ? notFound("Control")
                                                          : methodNotAllowed();
    }
    return HttpResponse::json(200, "{}");
}

HttpResponse SimServer::Private::addFaults(const std::string& lines)
{
    std::vector<std::string> wanted;
    for (std::string line : split(lines, '\n')) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.find_first_not_of(' ') == std::string::npos)
            continue;
        const std::string problem = Faults().add(line); // all or none are put in force
        if (!problem.empty())
            return apiError(400, 0, problem);
        wanted.push_back(line);
    }
    for (const std::string& line : wanted)
        addFault(line);
    return HttpResponse::json(200, "{}");
}

std::string SimServer::Private::addFault(const std::string& line)
{
    const std::string problem = faults.add(line);
    if (problem.empty() && startsWith(line, "token-expired"))
        oauth2.expireTokens();
    return problem;
}

void SimServer::Private::reset()
{
    library.reset();
    faults.clear();
    log.clear();
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
    int port = 0;
    if (!readAddress(m_d->options.listen, &m_d->host, &port, &problem))
        return false;
    for (const std::string& line : m_d->options.faults) {
        problem = addFault(line);
        if (!problem.empty())
            return false;
    }
    return m_d->server.start(m_d->host, port, &problem);
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
    return m_d->address();
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
