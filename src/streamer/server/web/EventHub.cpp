#include "EventHub.h"

#include "JsonText.h"
#include "LoginApi.h"
#include "LoginControl.h"
#include "PlayerApi.h"
#include "PlayerControl.h"
#include "RandomToken.h"
#include "RequestsApi.h"

#include <kelo/CMRoot.h>
#include <kelo/HttpCallLog.h>

namespace {

constexpr size_t mostClients = 256;

std::string noticeText(const CMRowsNotice& notice)
{
    JsonText json;
    json.beginObject();
    json.field("path", notice.path.toEncoded());
    json.field("change", notice.change);
    json.field("count", notice.count);
    json.endObject();
    return json.text();
}

std::string editText(const CMEdit& edit, const TextCatalogue* texts)
{
    JsonText json(texts);
    json.beginObject();
    json.field("path", edit.path.toEncoded());
    json.field("action", edit.action);
    if (!edit.item.isEmpty())
        json.field("item", edit.item.toEncoded());
    json.field("reply", edit.reply);
    json.endObject();
    return json.text();
}

const std::string playerState = "player";

std::string stateOf(const QString& service)
{
    return "login " + service.toStdString();
}

} // namespace

EventHub::EventHub(PlayerControl& player, LoginControl& login) : m_player(player), m_login(login)
{
    m_playerListener = player.addListener([this](const PlayerStatus& status) {
        broadcast("player", playerState,
                  [&](auto* texts) { return PlayerApi::text(status, texts); });
    });
    m_loginListener = login.addListener([this](const LoginState& state) { tellLogin(state); });
    m_requestObserver = HttpCallLog::instance().addObserver(
        [this](const HttpCallRecord& record) { tellRequest(record); });
    m_editWatch = CMRoot().watchEdits([this](const CMEdit& edit) {
        broadcast("acted", {}, [&](auto* texts) { return editText(edit, texts); });
    });
}

EventHub::~EventHub()
{
    CMRoot().unwatch(m_editWatch);
    HttpCallLog::instance().removeObserver(m_requestObserver);
    m_player.removeListener(m_playerListener);
    m_login.removeListener(m_loginListener);
    stop();
}

std::shared_ptr<EventClient> EventHub::open(const QList<CMPath>& paths, const TextCatalogue* texts,
                                            EventWishes wishes, HttpReply* refusal)
{
    auto client = std::make_shared<EventClient>(randomToken(), texts, wishes);
    client->push("stream", "{\"id\":\"" + client->id() + "\"}");
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_isStopped || m_clients.size() >= mostClients) {
            *refusal = HttpReply::problem(
                503, m_isStopped
                         ? QStringLiteral("The streamer is stopping.")
                         : QStringLiteral("There are %1 event streams already.").arg(mostClients));
            return nullptr;
        }
        m_clients.emplace(client->id(), client);
    }
    // From here on news reach the client, so that none is between them and the present states.
    client->pushFirst("player", PlayerApi::text(m_player.status(), texts), playerState);
    const QString usual = m_login.usual();
    for (const QString& service : m_login.services()) {
        if (service == usual || wishes.logins)
            client->pushFirst("login", LoginApi::text({service, m_login.status(service)}, texts),
                              stateOf(service));
    }
    const OpenPaths::Change change = setPaths(client, paths);
    if (change.refused.isEmpty())
        return client;
    *refusal = HttpReply::error(
        CMError(CMError::NotFoundName(),
                QStringLiteral("Nothing stands at %1.").arg(change.refused.first())));
    close(client);
    return nullptr;
}

OpenPaths::Change EventHub::setPaths(const std::shared_ptr<EventClient>& client,
                                     const QList<CMPath>& paths)
{
    // Weak, because the client owns the paths that own the listener.
    const std::weak_ptr<EventClient> weak = client;
    return client->paths().replace(paths, [weak](const CMRowsNotice& notice) {
        if (const auto target = weak.lock())
            target->push("rows", noticeText(notice));
    });
}

std::optional<OpenPaths::Change> EventHub::setPaths(const std::string& stream,
                                                    const QList<CMPath>& paths)
{
    std::shared_ptr<EventClient> client;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_clients.find(stream);
        if (found == m_clients.end())
            return std::nullopt;
        client = found->second;
    }
    return setPaths(client, paths);
}

void EventHub::close(const std::shared_ptr<EventClient>& client)
{
    if (client->isDropped())
        ++m_dropped;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_clients.erase(client->id());
    }
    client->paths().close();
}

void EventHub::stop()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopped = true;
    for (const auto& client : m_clients)
        client.second->close();
}

int EventHub::clients() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_clients.size());
}

void EventHub::broadcast(const std::string& kind, const std::string& state, const MakeText& text,
                         const IsFor& isFor)
{
    std::map<const TextCatalogue*, std::string> byLanguage;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& client : m_clients) {
        if (isFor && !isFor(client.second->wishes()))
            continue;
        const TextCatalogue* texts = client.second->texts();
        std::string& data = byLanguage[texts];
        if (data.empty())
            data = text(texts);
        client.second->push(kind, data, state);
    }
}

/// Who knows one login alone hears of no other.
void EventHub::tellLogin(const LoginState& state)
{
    const bool isUsual = state.service == m_login.usual();
    broadcast(
        "login", stateOf(state.service), [&](auto* texts) { return LoginApi::text(state, texts); },
        [isUsual](const EventWishes& wishes) { return isUsual || wishes.logins; });
}

void EventHub::tellRequest(const HttpCallRecord& record)
{
    std::string data;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const auto& client : m_clients) {
        if (!client.second->wishes().requests)
            continue;
        if (data.empty())
            data = RequestsApi::text(record);
        client.second->push("request", data);
    }
}
