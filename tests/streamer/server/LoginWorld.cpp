#include "LoginWorld.h"

#include <kelo/CMRoot.h>
#include <QCoreApplication>

QString FakeEndpoint::Post::field(const char* name) const
{
    for (const auto& [key, value] : form) {
        if (key == QLatin1String(name))
            return value;
    }
    return QString();
}

void FakeEndpoint::answer(const TokenReply& reply)
{
    const Post post = posts.front();
    posts.pop_front();
    post.done(reply);
}

LoginWorld::LoginWorld(const QString& folder, qint64 startS)
    : store(folder.isEmpty() ? ownFolder.path() + "/oauth2" : folder), clock(startS * 1000)
{
    const CMPath path("/oauth2/services/tidal");
    m_watches.push_back(CMRoot().watchValue(
        path, [this](const KeloValue& value, const KeloValue&) { onState(value.oauth2Info()); }));
    m_watches.push_back(CMRoot().watchValue(
        path + "/accessToken",
        [this](const KeloValue& value, const KeloValue&) { log << "token " + value.string_(); }));
    service = std::make_unique<OAuth2Service>(info(), &nodes, store, endpoint, clock, nullptr);
}

LoginWorld::~LoginWorld()
{
    for (const quint64 watch : m_watches)
        CMRoot().unwatch(watch);
}

KeloOAuth2ServiceInfo LoginWorld::info()
{
    KeloOAuth2ServiceInfo info;
    info.setServiceName("tidal");
    info.setDisplayName("Tidal");
    info.setClientId("client");
    info.setClientSecret("hidden");
    info.setTokenUrl("https://auth.example.invalid/token");
    info.setDeviceCodeUrl("https://auth.example.invalid/device");
    info.setScope("r_usr w_usr");
    return info;
}

void LoginWorld::onState(const KeloOAuth2Info& info)
{
    QString text = info.loggedIn() ? "logged in" : "logged out";
    if (info.isPending())
        text += QString(", code %1 at %2").arg(info.userCode(), info.verificationUri());
    if (!info.problem().isEmpty())
        text += QString(": %1 [%2]").arg(info.problem().source(), info.reason());
    log << text;
}

CMReply<QVariant> LoginWorld::send(const QString& segment, const QVariant& value)
{
    CMPath path("/oauth2/services/tidal");
    if (!segment.isEmpty())
        path.appendSubpath(segment);
    const CMSetDataRequest request(path, KeloRoles::Value(), value);
    nodes.find(path)->setDataRequest(request);
    QCoreApplication::sendPostedEvents();
    return request.reply();
}

void LoginWorld::answer(const TokenReply& reply)
{
    const QString grant = endpoint.posts.front().field("grant_type");
    const QString kind = grant.isEmpty() ? "code"
                         : grant == QLatin1String("refresh_token")
                             ? "refresh " + endpoint.posts.front().field("refresh_token")
                             : "poll";
    log << QString("%1 s: %2").arg(clock.steadyMs() / 1000).arg(kind);
    endpoint.answer(reply);
}

void LoginWorld::logIn(const QByteArray& tokens)
{
    send(QString());
    answer(200, deviceAnswer);
    clock.step();
    answer(200, tokens);
    log.clear();
}

KeloOAuth2Info LoginWorld::state() const
{
    return nodes.find(CMPath("/oauth2/services/tidal"))->nodeValue().oauth2Info();
}
