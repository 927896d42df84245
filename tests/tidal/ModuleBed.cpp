#include "ModuleWorld.h"
#include <future>
#include <kelo/CMValueNode.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloTidalConstants.h>
#include <QFile>
#include <QJsonDocument>

namespace {
constexpr int patienceMs = 20000;

/// Takes any value.
class AcceptingNode : public CMNode
{
public:
    using CMNode::CMNode;
    bool setDataRequest(const CMSetDataRequest& request) override
    {
        request.reply().setValue(QVariant());
        return true;
    }
};

KeloValue text(const QString& text)
{
    KeloValue value;
    value.setString(text);
    return value;
}

KeloValue settingsValue(const QString& apiUrl)
{
    KeloTidalSettings settings;
    settings.setApiUrl(apiUrl);
    settings.setCountryCode(QStringLiteral("NO"));
    settings.setImageUrl(QStringLiteral("http://images"));
    settings.setImageSize(QStringLiteral("320x320"));
    settings.setImageSizeArtist(QStringLiteral("160x160"));
    settings.setImageSizePlaylist(QStringLiteral("480x320"));
    KeloValue value;
    value.setTidalSettings(settings);
    return value;
}

CMPath loginPath()
{
    CMPath path = KeloOAuth2ServicePath();
    path.appendSubpath(KeloTidalName());
    return path;
}
} // namespace

HostValues::HostValues(const QString& apiUrl, const QString& token)
    : CMNodesWorker(QVariantHash(), QStringLiteral("hostValues"))
{
    (new AcceptingNode(KeloOAuth2AddServicePath()))->setNodes(nodes());
    KeloOAuth2Info info;
    info.setLoggedIn(true);
    KeloValue login;
    login.setOauth2Info(info);
    CMPath tokenPath = loginPath();
    tokenPath.appendSubpath(KeloOAuth2AccessTokenSubPath());
    KeloValue postPaywall;
    postPaywall.setBool(true);
    setValue(loginPath(), login);
    setValue(tokenPath, text(token));
    setValue(KeloTidalSettingsPath(), settingsValue(apiUrl));
    setValue(KeloTidalUsePostPaywallPath(), postPaywall);
}

QStringList HostValues::prefixes() const
{
    return {QStringLiteral("/oauth2"), QStringLiteral("/settings")};
}

void HostValues::setValue(const CMPath& path, const KeloValue& value)
{
    auto* node = qobject_cast<CMValueNode*>(nodes()->find(path));
    if (!node)
        node = CMValueNode::create(nodes(), path);
    node->setValue(value);
}

ModuleWorld::ModuleWorld() : m_sim(kelosim::SimOptions())
{
    std::string error;
    if (!m_sim.start(&error))
        qFatal("%s", error.c_str());
    const QString apiUrl = QString::fromStdString(m_sim.baseUrl()) + QStringLiteral("/v1");
    const QString token = QString::fromStdString(m_sim.issueToken());
    m_host = qobject_cast<HostValues*>(
        m_hostThread.start("host", [&] { return new HostValues(apiUrl, token); }));
    m_worker = qobject_cast<TidalWorker*>(
        m_workerThread.start("tidal", [] { return new TidalWorker(QVariantHash()); }));
    // The first request sets the session up, so that the tests see their own requests alone.
    rows(m_worker->addPrefix(QString()), 0, 1, {});
}

ModuleWorld::~ModuleWorld()
{
    m_workerThread.stop();
    m_hostThread.stop();
}

void ModuleWorld::onWorker(const std::function<void()>& function)
{
    auto done = std::make_shared<std::promise<void>>();
    keloPost(m_worker, [&function, done] {
        function();
        done->set_value();
    });
    done->get_future().wait();
}

CMGetRowsRequest ModuleWorld::rows(const CMPath& path, int from, int to, const QStringList& roles)
{
    const CMGetRowsRequest request(path, from, to, roles);
    CMRoot().request(request);
    request.reply().waitForFinished(patienceMs);
    return request;
}

QJsonObject ModuleWorld::sent(const QString& path, const std::function<void(TidalHandler&)>& send)
{
    m_sim.reset();
    onWorker([&] { send(*m_worker->getHandler()); });
    m_sim.waitForRequests(path.toStdString(), 1, patienceMs);
    const auto log = QJsonDocument::fromJson(QByteArray::fromStdString(m_sim.log())).array();
    for (const QJsonValue& entry : log) {
        if (entry.toObject().value(QLatin1String("path")).toString().endsWith(path))
            return entry.toObject();
    }
    return QJsonObject();
}

CMGetRowsRequest ModuleWorld::answered(const CMPath& path, int from, int to,
                                       const QStringList& roles, int status, const QByteArray& body,
                                       const QString& etag)
{
    const CMGetRowsRequest request(path, from, to, roles);
    HttpClientHeaders headers;
    if (!etag.isEmpty())
        headers.insert(QStringLiteral("etag"), etag);
    onWorker([&] {
        const HttpClientPrivate priv{HttpClientPrivate::Data(request)};
        m_worker->getHandler()->responder()->on_baseResponse_invoke(KeloUrl(), priv, status, 0,
                                                                    body, headers);
    });
    return request;
}

const QStringList& ModuleWorld::allRoles()
{
    static const QStringList roles = {
        KeloRoles::Path(),        KeloRoles::Type(),          KeloRoles::Title(),
        KeloRoles::Disabled(),    KeloRoles::MediaData(),     KeloRoles::Icon(),
        KeloRoles::Id(),          KeloRoles::AudioType(),     KeloRoles::Context(),
        KeloRoles::Description(), KeloRoles::ContainerType(), KeloRoles::ContainerPlayable()};
    return roles;
}

QString queryText(const QJsonObject& request)
{
    QStringList items;
    const QJsonArray pairs = request.value(QLatin1String("query")).toArray();
    for (const QJsonValue& pair : pairs)
        items << pair.toArray().at(0).toString() + QLatin1Char('=') +
                     pair.toArray().at(1).toString();
    return items.join(QLatin1Char('&'));
}
