#include "client/ApiClient.h"

#include "client/DisplayText.h"
#include "client/JsonText.h"

#include <httplib.h>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

namespace cli {

namespace {

constexpr time_t connectSeconds = 5;
/// Above every deadline of the streamer, which answers for itself when one passes.
constexpr time_t answerSeconds = 600;
/// Event streams are silent for as long as nothing happens.
constexpr time_t silenceSeconds = 7 * 24 * 60 * 60;

/// The tag of the language that the user reads messages in, "de-DE" of "de_DE.UTF-8" (POSIX, 8.2);
/// empty where none is chosen.
std::string userLanguage()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString locale = qEnvironmentVariable(name);
        if (locale.isEmpty())
            continue;
        static const QRegularExpression form("\\A([A-Za-z]{2,3})(?:_([A-Za-z]{2}))?(?:[.@].*)?\\z");
        const QRegularExpressionMatch match = form.match(locale);
        const QString territory = match.captured(2);
        return (match.captured(1) + (territory.isEmpty() ? territory : '-' + territory))
            .toStdString();
    }
    return {};
}

std::unique_ptr<httplib::Client> makeClient(const QString& server, time_t readSeconds)
{
    auto client = std::make_unique<httplib::Client>(server.toStdString());
    client->set_connection_timeout(connectSeconds);
    client->set_read_timeout(readSeconds);
    client->set_write_timeout(connectSeconds);
    client->set_keep_alive(true);
    client->set_tcp_nodelay(true);
    client->set_default_headers({{"Accept-Language", "en"}}); // as the commands' own words are
    return client;
}

/// What nodes of the tree say is for the user's language.
httplib::Headers languageFor(const QString& path)
{
    static const QStringList ofTree{"rows", "row", "data", "set"};
    const std::string language = ofTree.contains(path) ? userLanguage() : std::string();
    return language.empty() ? httplib::Headers() : httplib::Headers{{"Accept-Language", language}};
}

std::string target(const QString& path, const Query& query)
{
    QByteArray result = "/api/v1/" + path.toLatin1();
    char separator = '?';
    for (const auto& [key, value] : query) {
        result += separator + QUrl::toPercentEncoding(key) + '=' + QUrl::toPercentEncoding(value);
        separator = '&';
    }
    return result.toStdString();
}

ApiReply unreachable(const QString& server, httplib::Error error)
{
    ApiReply reply;
    if (error == httplib::Error::Read || error == httplib::Error::Write)
        reply.message = QStringLiteral("the streamer at %1 broke off").arg(server);
    else
        reply.message =
            QStringLiteral("no streamer reachable at %1 (start one with: kelo serve)").arg(server);
    return reply;
}

/// The text of a problem document (RFC 9457, section 3), or of whatever else came.
QString problemText(int status, const QJsonObject& problem)
{
    const QString detail = textIn(problem, "detail");
    const QString title = textIn(problem, "title");
    if (!detail.isEmpty() || !title.isEmpty())
        return shown(detail.isEmpty() ? title : detail);
    return QStringLiteral("the streamer answered with status %1").arg(status);
}

ApiReply makeReply(int status, const QByteArray& body, bool wantsJson)
{
    ApiReply reply;
    reply.body = body;
    const QJsonDocument document = QJsonDocument::fromJson(body);
    reply.document = document.object();
    const bool isSuccess = status >= 200 && status < 300;
    reply.outcome = isSuccess ? ApiReply::Outcome::Done : ApiReply::Outcome::Refused;
    if (!isSuccess) {
        reply.message = problemText(status, reply.document);
    } else if (wantsJson && !document.isObject() && !body.trimmed().isEmpty()) {
        reply.outcome = ApiReply::Outcome::Refused;
        reply.message = "the answer is no JSON document; is this a streamer?";
    }
    return reply;
}

ApiReply fromResult(const QString& server, const httplib::Result& result, bool wantsJson = true)
{
    if (!result)
        return unreachable(server, result.error());
    return makeReply(result->status, QByteArray::fromStdString(result->body), wantsJson);
}

} // namespace

ApiReply ApiReply::refusal(const QString& message)
{
    ApiReply reply;
    reply.outcome = Outcome::Refused;
    reply.message = message;
    return reply;
}

ApiClient::ApiClient(const QString& server)
    : m_server(server.endsWith('/') ? server.chopped(1) : server),
      m_client(makeClient(m_server, answerSeconds))
{
}

ApiClient::~ApiClient() = default;

bool ApiClient::isServerAddress(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty() &&
           (url.path().isEmpty() || url.path() == "/") && !url.hasQuery() && !url.hasFragment() &&
           (url.scheme() == "http" || url.scheme() == "https");
}

void ApiClient::limitSilence(std::chrono::seconds limit)
{
    m_client->set_read_timeout(limit);
}

ApiReply ApiClient::get(const QString& path, const Query& query)
{
    return fromResult(m_server, m_client->Get(target(path, query), languageFor(path)));
}

ApiReply ApiClient::rows(const QString& path, int from, int to, const QString& roles)
{
    Query query{{"path", path}, {"from", QString::number(from)}, {"to", QString::number(to)}};
    if (!roles.isEmpty())
        query.append({"roles", roles});
    return get("rows", query);
}

ApiReply ApiClient::set(const QString& path, const QByteArray& value, const QString& role)
{
    const QByteArray what = role.isEmpty() ? QByteArray() : ",\"role\":" + json(role);
    return post("set", "{\"path\":" + json(path) + what + ",\"value\":" + value + '}');
}

ApiReply ApiClient::post(const QString& path, const QByteArray& body, const Query& query)
{
    return fromResult(m_server, m_client->Post(target(path, query), languageFor(path),
                                               body.toStdString(), "application/json"));
}

ApiReply ApiClient::remove(const QString& path, const Query& query)
{
    return fromResult(m_server, m_client->Delete(target(path, query), languageFor(path)));
}

ApiReply ApiClient::probe(const QString& path)
{
    return fromResult(m_server, m_client->Get(path.toStdString()), false);
}

ApiReply ApiClient::events(const QStringList& paths, const std::function<void()>& onOpen,
                           std::function<bool(const ServerEvent&)> onEvent, const Query& more)
{
    Query query;
    for (const QString& path : paths)
        query.append({"path", path});
    query += more;

    EventParser parser(std::move(onEvent));
    int status = 0;
    bool isEnough = false;
    QByteArray refusal;
    const httplib::Headers headers = {{"Accept", "text/event-stream"}};
    const auto onResponse = [&](const httplib::Response& response) {
        status = response.status;
        if (status == 200 && onOpen)
            onOpen();
        return true;
    };
    const auto onContent = [&](const char* bytes, size_t size) {
        constexpr int longestRefusal = 64 * 1024;
        if (status != 200) {
            refusal.append(bytes, static_cast<int>(size));
            return refusal.size() < longestRefusal;
        }
        isEnough = !parser.feed(bytes, size);
        return !isEnough;
    };
    const auto result = makeClient(m_server, silenceSeconds)
                            ->Get(target("events", query), headers, onResponse, onContent);
    if (isEnough)
        return makeReply(200, {}, false);
    if (!result)
        return unreachable(m_server, result.error());
    return makeReply(status, refusal, false);
}

} // namespace cli
