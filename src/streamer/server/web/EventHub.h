#pragma once
#include "EventClient.h"
#include "HttpReply.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>

class HttpCallRecord;
class LoginControl;
struct LoginState;
class PlayerControl;

/// Hands news of the tree, its edits, the player, the logins and the module's requests to the
/// clients that follow them. Owned by the web server; any thread. It neither reads nor writes
/// connections.
class EventHub
{
public:
    static constexpr int mostPaths = 256; ///< of one stream, which many views may share

    EventHub(PlayerControl& player, LoginControl& login);
    ~EventHub();

    /// A new client with these rows paths open, which gets its own name and the present states;
    /// null with the reason in `refusal` when there are too many clients or paths, or nobody serves
    /// a path.
    std::shared_ptr<EventClient> open(const QList<CMPath>& paths, const TextCatalogue* texts,
                                      EventWishes wishes, HttpReply* refusal);
    /// Opens other paths for a living stream; nothing when there is no such one.
    std::optional<OpenPaths::Change> setPaths(const std::string& stream,
                                              const QList<CMPath>& paths);
    /// Ends a client's paths; its stream is over.
    void close(const std::shared_ptr<EventClient>& client);
    /// Ends all streams; open() refuses from now on.
    void stop();

    int clients() const;
    /// Clients that were dropped because they did not keep up.
    int dropped() const { return m_dropped; }

private:
    using MakeText = std::function<std::string(const TextCatalogue*)>;
    using IsFor = std::function<bool(const EventWishes&)>;

    /// Tells those whom `isFor` names, or all. `state` as for EventClient::push(); `text` makes the
    /// event's data in a language.
    void broadcast(const std::string& kind, const std::string& state, const MakeText& text,
                   const IsFor& isFor = nullptr);
    void tellLogin(const LoginState& state);
    void tellRequest(const HttpCallRecord& record);
    static OpenPaths::Change setPaths(const std::shared_ptr<EventClient>& client,
                                      const QList<CMPath>& paths);

    PlayerControl& m_player;
    LoginControl& m_login;
    quint64 m_playerListener;
    quint64 m_loginListener;
    quint64 m_requestObserver;
    quint64 m_editWatch;
    mutable std::mutex m_mutex;
    /// By their names; guarded by the mutex, as the next.
    std::map<std::string, std::shared_ptr<EventClient>> m_clients;
    bool m_isStopped = false;
    std::atomic<int> m_dropped{0};
};
