#include "WebWorld.h"

#include <gtest/gtest.h>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMValueNode.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// Refuses what no service list would take.
class LongList : public CMListRowsNode
{
public:
    using CMListRowsNode::CMListRowsNode;
    bool getRowsRequest(const CMGetRowsRequest& request) override
    {
        if (request.to() - request.from() >= 50)
            return false;
        return CMListRowsNode::getRowsRequest(request);
    }
};

KeloRoles richRow()
{
    KeloRoles menu;
    menu.setPath(CMPath("/web/small", {{"id", "1"}}));
    KeloRoles row;
    row.setPath(CMPath("/web/a b", {{"q", "x&y=z"}}));
    row.setType(KeloRolesType::Audio_);
    row.setTitle("Line\nbreak \u2028 \U0001F3B5");
    row.setContext(menu.toVariant());
    return row;
}

} // namespace

CMReply<QVariant> FakePlayer::command(const QString& name, const QVariantHash& arguments)
{
    auto reply = CMReply<QVariant>::create();
    const QString path = arguments.value("path").toString();
    if (name == QLatin1String("seek") && !arguments.contains("positionMs"))
        reply.setError(CMError(CMError::BadRequestName(), QString("positionMs: missing")));
    else if (path == QLatin1String("wait"))
        waiting.set_value();
    else if (name == QLatin1String("play") && path.isEmpty())
        reply.setError(CMError("TIDAL", QString("Asset is not ready")));
    else
        reply.setValue(QVariant());
    return reply;
}

KeloOAuth2Info FakeLogin::status(const QString& service) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_infos.value(service);
}

void FakeLogin::tell(const QString& service, const KeloOAuth2Info& info)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_infos[service] = info;
    }
    notify({service, info});
}

CMReply<QVariant> FakeLogin::finish(const QString& service, bool loggedIn)
{
    KeloOAuth2Info info;
    info.setLoggedIn(loggedIn);
    tell(service, info);
    auto reply = CMReply<QVariant>::create();
    reply.setValue(QVariant());
    return reply;
}

WebWorker::WebWorker() : CMNodesWorker({}, "web")
{
    auto* list = new LongList(addPrefix("list"));
    list->setNodes(nodes());
    list->setTitle(TrString("Long list"));
    for (int i = 0; i < 120; ++i) {
        KeloRoles row;
        row.setTitle(QString::number(i));
        CMPath path = list->path();
        path.addParam("id", QString::number(i));
        if (i % 2)
            path.addParam("trackId", "7");
        row.setPath(path);
        list->rowsAppend(row);
    }
    CMListRowsNode::create(nodes(), addPrefix("small"))->rowsAppend(richRow());
    CMValueNode::create(nodes(), addPrefix("value"))->setTitle(TrString("Value"));
    const auto action = [this](const char* name, const char* slot) {
        CMActivateNode::create(nodes(), addPrefix(QString::fromLatin1(name)), this, slot,
                               Qt::QueuedConnection);
    };
    action("echo", SLOT(on_echo(CMSetDataRequest)));
    action("fail", SLOT(on_fail(CMSetDataRequest)));
    action("hold", SLOT(on_hold(CMSetDataRequest)));
}

void WebWorker::on_echo(CMSetDataRequest request)
{
    request.reply().setValue(request.value());
}

void WebWorker::on_fail(CMSetDataRequest request)
{
    request.reply().setError(CMError("TIDAL", QString("Oh"), QString("It failed")));
}

void WebWorker::on_hold(CMSetDataRequest request)
{
    m_held.push_back(request);
}

WebWorld::WebWorld(const WebServerOptions& options)
    : worker(static_cast<WebWorker*>(thread.start("web", [] { return new WebWorker; }))),
      server(options, player, login)
{
    QString error;
    if (!server.start(&error))
        ADD_FAILURE() << error.toStdString();
}

WebWorld::~WebWorld()
{
    server.stop();
}

WebWorld::Answer WebWorld::call(httplib::Request request) const
{
    httplib::Client client("127.0.0.1", server.port());
    client.set_url_encode(false);
    const auto result = client.send(request);
    Answer answer;
    if (!result)
        return answer;
    answer.status = result->status;
    answer.headers = result->headers;
    answer.body = result->body;
    answer.json = QJsonDocument::fromJson(QByteArray::fromStdString(result->body)).object();
    return answer;
}

std::string WebWorld::Answer::header(const std::string& name) const
{
    std::string values;
    const auto [begin, end] = headers.equal_range(name);
    for (auto field = begin; field != end; ++field)
        values += (values.empty() ? "" : " | ") + field->second;
    return values;
}

WebWorld::Answer WebWorld::get(const std::string& target, const httplib::Headers& headers) const
{
    httplib::Request request;
    request.method = "GET";
    request.path = target;
    request.headers = headers;
    return call(request);
}

WebWorld::Answer WebWorld::post(const std::string& target, const std::string& body,
                                const httplib::Headers& headers) const
{
    httplib::Request request;
    request.method = "POST";
    request.path = target;
    request.headers = headers;
    request.body = body;
    return call(request);
}

int WebWorld::connectTo(const std::string& bytes) const
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(uint16_t(server.port()));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool isSent =
        ::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
        ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == ssize_t(bytes.size());
    EXPECT_TRUE(isSent);
    return socket;
}

std::string WebWorld::statusOf(const std::string& bytes) const
{
    const int socket = connectTo(bytes);
    char answer[13] = {};
    (void)!::recv(socket, answer, 12, MSG_WAITALL);
    ::close(socket);
    return std::string(answer).substr(std::min<size_t>(9, std::string(answer).size()));
}
