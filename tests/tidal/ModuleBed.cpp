#include "ModuleBed.h"
#include <future>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloTidalConstants.h>

extern "C" void* worker_create(const char* name, void* settings);

namespace {
class Host : public CMNodesWorker
{
public:
    Host() : CMNodesWorker(QVariantHash(), "host") {}
    QStringList prefixes() const override { return {"/oauth2", "/settings"}; }
};

/// Takes what is sent to it, on the sender's thread.
class TakingNode : public CMNode
{
public:
    using Take = std::function<void(const QString&)>;
    TakingNode(CMNodes* nodes, const CMPath& path, Take take)
        : CMNode(path), m_take(std::move(take))
    {
        setNodes(nodes);
    }
    bool setDataRequest(const CMSetDataRequest& request) override
    {
        m_take(request.value().toString());
        request.reply().setValue(QVariant());
        return true;
    }

private:
    const Take m_take;
};

CMPath loginPath(const QString& subPath = QString())
{
    CMPath path = KeloOAuth2ServicePath();
    path.appendSubpath(KeloTidalName());
    if (!subPath.isEmpty())
        path.appendSubpath(subPath);
    return path;
}
} // namespace

ModuleBed::ModuleBed()
{
    m_hostThread.start("host", [this] {
        auto* host = new Host;
        CMNodes* nodes = host->nodes();
        m_settings = CMValueNode::create(nodes, KeloTidalSettingsPath());
        m_login = CMValueNode::create(nodes, loginPath());
        m_token = CMValueNode::create(nodes, loginPath(KeloOAuth2AccessTokenSubPath()));
        new TakingNode(nodes, KeloOAuth2AddServicePath(), [](const QString&) {});
        new TakingNode(nodes, loginPath(KeloOAuth2RefreshSubPath()),
                       [this](const QString& token) { tokenRefused(token); });
        KeloTidalSoundQuality quality;
        quality.setSoundQuality(KeloTidalSoundQualities::HI_RES_);
        KeloValue value;
        value.setTidalSoundQuality(quality);
        CMValueNode::create(nodes, KeloTidalSoundQualityPath())->setValue(value);
        value.setBool(true);
        CMValueNode::create(nodes, KeloTidalUsePostPaywallPath())->setValue(value);
        return host;
    });
    setInstance(KeloPlayerPath(), this);
    KeloTidalSettings settings;
    settings.setCountryCode("NO");
    settings.setImageUrl("http://images/");
    settings.setImageSize("320x320");
    settings.setImageSizeArtist("160x160");
    settings.setImageSizePlaylist("480x320");
    settings.setImageSizeGenre("160");
    settings.setImageSizeMood("342x342");
    settings.setMaxIdleTimeMs(30000);
    setSettings(settings);
    setLoggedIn(false);
}

ModuleBed::~ModuleBed()
{
    stop();
    setInstance(KeloPlayerPath(), nullptr);
}

void ModuleBed::start()
{
    m_worker = static_cast<TidalWorker*>(m_moduleThread.start("tidal", [] {
        QVariantHash settings;
        return static_cast<TidalWorker*>(worker_create(nullptr, &settings));
    }));
}

void ModuleBed::stop()
{
    m_moduleThread.stop();
    m_worker = nullptr;
}

void ModuleBed::onWorker(const std::function<void(TidalHandler&)>& function)
{
    std::promise<void> done;
    keloPost(m_worker, [&] {
        function(*m_worker->getHandler());
        done.set_value();
    });
    done.get_future().wait();
}

void ModuleBed::settle()
{
    onWorker([](TidalHandler&) {});
}

KeloTidalSettings ModuleBed::settings()
{
    return CMRoot().value(KeloTidalSettingsPath()).tidalSettings();
}

void ModuleBed::setSettings(const KeloTidalSettings& settings)
{
    KeloValue value;
    value.setTidalSettings(settings);
    m_settings->setValue(value);
}

void ModuleBed::setService(const std::string& baseUrl)
{
    KeloTidalSettings changed = settings();
    changed.setApiUrl(QString::fromStdString(baseUrl + "/v1"));
    setSettings(changed);
}

void ModuleBed::setLoggedIn(bool loggedIn, const QString& token)
{
    if (loggedIn)
        setToken(token);
    setLoginState(loggedIn);
}

void ModuleBed::setToken(const QString& token)
{
    m_token->setValue(KeloValue::fromVariant(token));
}

void ModuleBed::setLoginState(bool loggedIn)
{
    KeloOAuth2Info info;
    info.setLoggedIn(loggedIn);
    if (loggedIn)
        info.setLoginNumber(++m_logins);
    KeloValue value;
    value.setOauth2Info(info);
    m_login->setValue(value);
}

void ModuleBed::tokenRefused(const QString& token)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_refusedTokens.append(token);
}

QStringList ModuleBed::takeRefusedTokens()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_refusedTokens, {});
}

QVariant ModuleBed::play(const KeloRoles& item, int)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_played.append(item);
    return "playing";
}

QList<KeloRoles> ModuleBed::played() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_played;
}

const QStringList& ModuleBed::allRoles()
{
    static const QStringList roles = {
        KeloRoles::Path(),        KeloRoles::Type(),          KeloRoles::Title(),
        KeloRoles::Disabled(),    KeloRoles::MediaData(),     KeloRoles::Icon(),
        KeloRoles::Id(),          KeloRoles::AudioType(),     KeloRoles::Context(),
        KeloRoles::Description(), KeloRoles::ContainerType(), KeloRoles::ContainerPlayable()};
    return roles;
}
