#include "EventHub.h"

#include "JsonText.h"
#include "LoginControl.h"
#include "PlayerControl.h"

#include <kelo/CMRoot.h>

namespace {

constexpr size_t mostClients = 32;
constexpr int mostPaths = 64;

std::string noticeText(const CMRowsNotice& notice)
{
    JsonText json;
    json.beginObject();
    json.key(QStringLiteral("path"));
    json.string(notice.path.toEncoded());
    json.key(QStringLiteral("change"));
    json.value(notice.change);
    json.key(QStringLiteral("count"));
    json.number(notice.count);
    json.endObject();
    return json.text();
}

} // namespace

EventHub::EventHub(PlayerControl& player, LoginControl& login) : m_player(player), m_login(login)
{
    m_playerListener = player.addListener(
        [this](const QJsonObject& status) { broadcast("player", JsonText::fromObject(status)); });
    m_loginListener = login.addListener(
        [this](const QJsonObject& status) { broadcast("login", JsonText::fromObject(status)); });
}

EventHub::~EventHub()
{
    m_player.removeListener(m_playerListener);
    m_login.removeListener(m_loginListener);
    stop();
}

std::shared_ptr<EventClient> EventHub::open(const QList<CMPath>& paths, HttpReply* refusal)
{
    if (paths.size() > mostPaths) {
        *refusal = HttpReply::badRequest(
            QStringLiteral("path: more than %1 in one stream").arg(mostPaths));
        return nullptr;
    }
    auto client = std::make_shared<EventClient>();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_isStopped || m_clients.size() >= mostClients) {
            *refusal = HttpReply::problem(
                503, m_isStopped
                         ? QStringLiteral("The streamer is stopping.")
                         : QStringLiteral("There are %1 event streams already.").arg(mostClients));
            return nullptr;
        }
        m_clients.insert(client);
    }
    for (const CMPath& path : paths) {
        if (openRows(client, path))
            continue;
        *refusal = HttpReply::error(
            CMError(CMError::NotFoundName(),
                    QStringLiteral("Nothing stands at %1.").arg(path.toEncoded())));
        close(client);
        return nullptr;
    }
    return client;
}

bool EventHub::openRows(const std::shared_ptr<EventClient>& client, const CMPath& path)
{
    // A listener may run once more after its path was closed, hence the weak pointer.
    const std::weak_ptr<EventClient> weak = client;
    const quint64 id = CMRoot().openRows(path, [weak](const CMRowsNotice& notice) {
        if (const auto target = weak.lock())
            target->push("rows", noticeText(notice), false);
    });
    if (id == 0)
        return false;
    client->rows.push_back(id);
    return true;
}

void EventHub::closeRows(EventClient& client)
{
    for (const auto id : client.rows)
        CMRoot().closeRows(id);
    client.rows.clear();
}

void EventHub::close(const std::shared_ptr<EventClient>& client)
{
    closeRows(*client);
    if (client->isDropped())
        ++m_dropped;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_clients.erase(client);
}

void EventHub::stop()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopped = true;
    for (const auto& client : m_clients)
        client->close();
}

int EventHub::clients() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_clients.size());
}

void EventHub::broadcast(const std::string& kind, const std::string& data)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& client : m_clients)
        client->push(kind, data, true);
}
