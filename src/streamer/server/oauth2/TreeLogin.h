#pragma once
#include <deque>
#include <functional>
#include <kelo/CMPath.h>
#include <kelo/CMReply.h>
#include <kelo/KeloOAuth2.h>
#include <mutex>

/// The login to one service, read from and driven through the content tree. What the login itself
/// does not know, the subscription, a module tells at /NAME/subscription, by the name of the
/// service: the login that it has set up, and what that one subscribes to. Owned by TreeLogins;
/// every operation may be called from any thread.
class TreeLogin
{
public:
    using Listener = std::function<void(const KeloOAuth2Info& status)>;

    /// `listener` hears each later state in its order, on any thread, without locks held.
    TreeLogin(const QString& service, Listener listener);
    /// The listener does not run any more after it.
    ~TreeLogin();

    /// As LoginControl's.
    KeloOAuth2Info status() const;
    CMReply<QVariant> start();
    CMReply<QVariant> logout();
    /// Tells the present state.
    void tell();

private:
    /// Takes a change over, and tells of it.
    void take(const std::function<void()>& change);
    /// Tells the present state behind those that are told already. With the mutex.
    void tell(std::unique_lock<std::mutex>& lock);
    /// The state with what is known of this very login. With the mutex.
    KeloOAuth2Info present() const;

    CMPath m_path;
    const Listener m_listener;
    quint64 m_watch = 0;
    quint64 m_subscriptionWatch = 0;
    mutable std::mutex m_mutex;
    KeloOAuth2Info m_info;               ///< the latest; guarded by the mutex
    KeloOAuth2Info m_setUp;              ///< a login, this or an earlier one; guarded by the mutex
    qint64 m_publishedAtMs = 0;          ///< steady time of m_info; guarded by the mutex
    std::deque<KeloOAuth2Info> m_untold; ///< while a thread tells; guarded by the mutex
    bool m_isTelling = false;            ///< guarded by the mutex
};
