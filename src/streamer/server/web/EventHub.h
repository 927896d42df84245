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
class PlayerControl;

/// Hands news of the tree, its edits, the player, the login and the module's requests to the
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
                                      bool wantsRequests, HttpReply* refusal);
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
    /// `text` makes the event's data in a language; of a state only the latest counts.
    void broadcast(const std::string& kind, bool isState,
                   const std::function<std::string(const TextCatalogue*)>& text);

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
