#include "ScheduledHost.h"
#include <kelo/CMValueNode.h>
#include <kelo/KeloOAuth2.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloTidalTypes.h>

namespace {
CMPath loginPath(const QString& segment = QString())
{
    CMPath path = KeloOAuth2ServicePath();
    path.appendSubpath(KeloTidalName());
    if (!segment.isEmpty())
        path.appendSubpath(segment);
    return path;
}

/// Takes a value and hands its text on, on the caller's thread.
class TakingNode : public CMNode
{
public:
    TakingNode(CMNodes* nodes, const CMPath& path, std::function<void(const QString&)> take)
        : CMNode(path), m_take(std::move(take))
    {
        setNodes(nodes);
    }
    bool setDataRequest(const CMSetDataRequest& request) override
    {
        m_take(KeloValue::fromVariant(request.value()).string_());
        request.reply().setValue(QVariant());
        return true;
    }

private:
    std::function<void(const QString&)> m_take;
};
} // namespace

ScheduledHost::ScheduledHost(ScheduledService& service)
    : CMNodesWorker(QVariantHash(), QStringLiteral("host"))
{
    new TakingNode(nodes(), KeloOAuth2AddServicePath(), [](const QString&) {});
    new TakingNode(nodes(), loginPath(KeloOAuth2RefreshSubPath()), [&](const QString& token) {
        giveToken([&] { return service.tokenReported(token.toStdString()); });
    });
    KeloTidalSoundQuality quality;
    quality.setSoundQuality(KeloTidalSoundQualities::HI_RES_);
    KeloValue value;
    value.setTidalSoundQuality(quality);
    setValue(KeloTidalSoundQualityPath(), value);
    setToken(std::string());
    setLoggedIn(false);
}

QStringList ScheduledHost::prefixes() const
{
    return {QStringLiteral("/oauth2"), QStringLiteral("/settings")};
}

void ScheduledHost::setValue(const CMPath& path, const KeloValue& value)
{
    auto* node = qobject_cast<CMValueNode*>(nodes()->find(path));
    if (!node)
        node = CMValueNode::create(nodes(), path);
    node->setValue(value);
}

void ScheduledHost::giveToken(const std::function<std::string()>& issue)
{
    std::lock_guard<std::mutex> lock(m_giving);
    if (const std::string token = issue(); !token.empty())
        setToken(token);
}

void ScheduledHost::setToken(const std::string& token)
{
    KeloValue value;
    value.setString(QString::fromStdString(token));
    setValue(loginPath(KeloOAuth2AccessTokenSubPath()), value);
}

void ScheduledHost::setLoggedIn(bool isLoggedIn)
{
    KeloOAuth2Info info;
    info.setLoggedIn(isLoggedIn);
    KeloValue value;
    value.setOauth2Info(info);
    setValue(loginPath(), value);
}

void ScheduledHost::setSettings(const QString& apiUrl, const QString& country)
{
    KeloTidalSettings settings;
    settings.setApiUrl(apiUrl);
    settings.setCountryCode(country);
    KeloValue value;
    value.setTidalSettings(settings);
    setValue(KeloTidalSettingsPath(), value);
}

ScheduledPlayer::ScheduledPlayer(ScheduledService& service) : m_service(service)
{
    setInstance(KeloPlayerPath(), this);
}

ScheduledPlayer::~ScheduledPlayer()
{
    setInstance(KeloPlayerPath(), nullptr);
}

QVariant ScheduledPlayer::play(const KeloRoles& item, int)
{
    const QString address = item.mediaData().resources().value(0).uri();
    const QString title = item.value(KeloRoles::Title()).toString();
    if (address.section(QLatin1Char('/'), -1) != title)
        m_service.setWrong("played " + address.toStdString() + " as " + title.toStdString());
    return title.section(QLatin1Char('|'), 1);
}

ScheduledClients::ScheduledClients()
{
    for (int client = 0; client < count; ++client)
        m_threads[std::size_t(client)] = std::thread([this, client] { work(client); });
}

ScheduledClients::~ScheduledClients()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void ScheduledClients::run(int client, std::function<void()> function)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_queues[std::size_t(client)].push_back(std::move(function));
    }
    m_changed.notify_all();
}

void ScheduledClients::wait()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] {
        return std::all_of(m_queues.begin(), m_queues.end(),
                           [](const auto& queue) { return queue.empty(); });
    });
}

void ScheduledClients::work(int client)
{
    auto& queue = m_queues[std::size_t(client)];
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [&] { return m_isStopping || !queue.empty(); });
        if (m_isStopping)
            return;
        const std::function<void()> function = queue.front();
        lock.unlock();
        function();
        lock.lock();
        queue.pop_front();
        m_changed.notify_all();
    }
}
