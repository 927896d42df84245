#include "TreeFixture.h"

#include "TidalWorker.h"
#include <future>
#include <kelo/CMListRowsNode.h>
#include <kelo/KeloPost.h>

extern "C" void* worker_create(const char* name, void* settings);

namespace {
constexpr int patienceMs = 20000;

/// Takes what is sent to it, on the sender's thread.
class TakingNode : public CMNode
{
public:
    using Take = std::function<void(const QVariant&)>;
    TakingNode(CMNodes* nodes, const CMPath& path, Take take)
        : CMNode(path), m_take(std::move(take))
    {
        setNodes(nodes);
    }
    bool setDataRequest(const CMSetDataRequest& request) override
    {
        m_take(request.value());
        request.reply().setValue(QVariant());
        return true;
    }

private:
    const Take m_take;
};

CMNodesWorker* makeWorker(const QString& prefix)
{
    return new CMNodesWorker({{QStringLiteral("prefix"), prefix}}, prefix.mid(1));
}

CMPath loginPath()
{
    CMPath path = KeloOAuth2ServicePath();
    path.appendSubpath(KeloTidalName());
    return path;
}
} // namespace

QT_BEGIN_NAMESPACE
void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

void PrintTo(const QStringList& texts, std::ostream* stream)
{
    *stream << texts.join(QStringLiteral(" | ")).toStdString();
}
QT_END_NAMESPACE

RecordingPlayer::RecordingPlayer()
{
    setInstance(KeloPlayerPath(), this);
}

RecordingPlayer::~RecordingPlayer()
{
    setInstance(KeloPlayerPath(), nullptr);
}

QVariant RecordingPlayer::play(const KeloRoles& item, int)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_played.append(item);
    return QStringLiteral("playing");
}

QList<KeloRoles> RecordingPlayer::played() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_played;
}

TreeFixture::TreeFixture()
{
    m_service.script("/sessions", {{200, R"({"sessionId":"s","countryCode":"NO","userId":4005})"}});
    m_service.script("/subscription", {{200, R"({"highestSoundQuality":"LOSSLESS"})"}});

    m_settingsThread.start("settings", [this] {
        CMNodesWorker* made = makeWorker(QStringLiteral("/settings"));
        m_settings = CMValueNode::create(made->nodes(), KeloTidalSettingsPath());
        KeloValue text;
        text.setString(QStringLiteral("text"));
        for (const CMPath& path :
             {KeloTidalDeviceCodeUrlPath(), KeloTidalAuthorizationServiceUrlPath(),
              KeloTidalTokenServiceUrlPath(), KeloTidalClientIdPath(), KeloTidalClientSecretPath(),
              KeloTidalScope()})
            CMValueNode::create(made->nodes(), path)->setValue(text);
        KeloTidalSoundQuality quality;
        quality.setSoundQuality(KeloTidalSoundQualities::HI_RES_);
        KeloValue value;
        value.setTidalSoundQuality(quality);
        CMValueNode::create(made->nodes(), KeloTidalSoundQualityPath())->setValue(value);
        value.setBool(true);
        CMValueNode::create(made->nodes(), KeloTidalUsePostPaywallPath())->setValue(value);
        return made;
    });
    m_oauthThread.start("oauth2", [this] {
        CMNodesWorker* made = makeWorker(QStringLiteral("/oauth2"));
        m_login = CMValueNode::create(made->nodes(), loginPath());
        m_login->setTitle(QStringLiteral("Tidal"));
        CMPath tokenPath = loginPath();
        tokenPath.appendSubpath(KeloOAuth2AccessTokenSubPath());
        m_token = CMValueNode::create(made->nodes(), tokenPath);
        m_token->setSecret(true);
        new TakingNode(made->nodes(), KeloOAuth2AddServicePath(), [](const QVariant&) {});
        CMPath refreshPath = loginPath();
        refreshPath.appendSubpath(KeloOAuth2RefreshSubPath());
        new TakingNode(made->nodes(), refreshPath, [this](const QVariant& token) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_refusedTokens.append(token.toString());
        });
        return made;
    });
    KeloTidalSettings settings;
    settings.setApiUrl(QString::fromStdString(m_service.baseUrl()) + QStringLiteral("/v1"));
    settings.setCountryCode(QStringLiteral("NO"));
    settings.setImageUrl(QStringLiteral("http://images/"));
    settings.setImageSize(QStringLiteral("320x320"));
    settings.setMaxIdleTimeMs(30000);
    setSettings(settings);
    setLoggedIn(false);
}

TreeFixture::~TreeFixture()
{
    stop();
}

void TreeFixture::TearDown()
{
    stop();
    EXPECT_EQ(CMRoot().pendingRequests(), 0);
    CMRoot().setDeadlines(CMDeadlines());
}

void TreeFixture::start()
{
    m_worker = static_cast<TidalWorker*>(m_tidalThread.start("tidal", [] {
        QVariantHash settings;
        return static_cast<TidalWorker*>(worker_create(nullptr, &settings));
    }));
    ASSERT_NE(m_worker, nullptr);
}

void TreeFixture::stop()
{
    m_tidalThread.stop();
    m_worker = nullptr;
}

void TreeFixture::setLoggedIn(bool loggedIn, const QString& token)
{
    KeloValue value;
    value.setString(token);
    if (loggedIn)
        m_token->setValue(value);
    KeloOAuth2Info info;
    info.setLoggedIn(loggedIn);
    info.setDisplayName(QStringLiteral("Tidal"));
    value.setOauth2Info(info);
    m_login->setValue(value);
}

QStringList TreeFixture::takeRefusedTokens()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_refusedTokens, {});
}

void TreeFixture::setSettings(const KeloTidalSettings& settings)
{
    KeloValue value;
    value.setTidalSettings(settings);
    m_settings->setValue(value);
}

KeloTidalSettings TreeFixture::settings() const
{
    return m_settings->value().tidalSettings();
}

void TreeFixture::startConfigured()
{
    start();
    setLoggedIn(true);
    settle();
    ASSERT_EQ(errorOf(askRows(QStringLiteral("/tidal"))), QString());
}

CMGetRowsRequest TreeFixture::askRows(const QString& path, int from, int to,
                                      const QStringList& roles)
{
    const CMGetRowsRequest request(CMPath::fromEncoded(path), from, to, roles);
    CMRoot().request(request);
    return request;
}

CMSetDataRequest TreeFixture::set(const QString& path, const QVariant& value, const QString& role)
{
    const CMSetDataRequest request(CMPath::fromEncoded(path), role, value);
    CMRoot().request(request);
    return request;
}

CMGetDataRequest TreeFixture::askData(const QString& path, const QStringList& roles)
{
    const CMGetDataRequest request(CMPath::fromEncoded(path), roles);
    CMRoot().request(request);
    return request;
}

bool TreeFixture::wait(const CMVoidReply& reply)
{
    const bool isFinished = reply.waitForFinished(patienceMs);
    EXPECT_TRUE(isFinished) << "no answer";
    return isFinished;
}

QString TreeFixture::errorOf(const CMRequest& request)
{
    if (!wait(request.reply()))
        return QStringLiteral("no answer");
    return request.reply().error().message();
}

QList<QVariantHash> TreeFixture::rowsOf(const CMGetRowsRequest& answered)
{
    QList<QVariantHash> result;
    wait(answered.reply());
    EXPECT_EQ(answered.reply().error().message(), QString());
    const QVariantList rows = answered.reply().value().rows().toList();
    for (const QVariant& row : rows) {
        const QVariantList values = row.toList();
        EXPECT_EQ(values.size(), answered.roles().size());
        QVariantHash roles;
        for (int i = 0; i < values.size(); ++i)
            roles.insert(answered.roles().at(i), values.at(i));
        result.append(roles);
    }
    return result;
}

QStringList TreeFixture::column(const QString& path, const QString& role)
{
    QStringList result;
    const QList<QVariantHash> rows = rowsOf(askRows(path));
    for (const QVariantHash& row : rows)
        result.append(row.value(role).toString());
    return result;
}

QStringList TreeFixture::itemRoles()
{
    return {KeloRoles::Path(), KeloRoles::Type(), KeloRoles::Title(), KeloRoles::Context(),
            KeloRoles::Value()};
}

void TreeFixture::onWorker(const std::function<void()>& function)
{
    std::promise<void> done;
    keloPost(m_worker, [&] {
        function();
        done.set_value();
    });
    done.get_future().wait();
}

void TreeFixture::settle()
{
    onWorker([] {});
}
