#pragma once
#include "LoginControl.h"

#include <deque>
#include <functional>
#include <kelo/CMPath.h>
#include <kelo/KeloListeners.h>
#include <mutex>

/// The login of one service as the web API wants it, read from and driven through the content tree.
/// Owned by serve; every operation may be called from any thread.
class TreeLogin : public LoginControl
{
public:
    /// A module says at `subscription` which login it has set up, and what that one subscribes to.
    TreeLogin(const QString& serviceName, const CMPath& subscription);
    ~TreeLogin() override;

    KeloOAuth2Info status() const override;
    CMReply<QVariant> start() override;
    CMReply<QVariant> logout() override;
    quint64 addListener(Listener listener) override;
    void removeListener(quint64 id) override;

private:
    /// Takes a change over, and tells the listeners of each, one after the other.
    void take(const std::function<void()>& change);
    /// The state with what is known of this very login. With the mutex.
    KeloOAuth2Info present() const;

    CMPath m_path;
    quint64 m_watch = 0;
    quint64 m_subscriptionWatch = 0;
    mutable std::mutex m_mutex;
    KeloOAuth2Info m_info;               ///< the latest; guarded by the mutex
    KeloOAuth2Info m_setUp;              ///< a login, this or an earlier one; guarded by the mutex
    qint64 m_publishedAtMs = 0;          ///< steady time of m_info; guarded by the mutex
    std::deque<KeloOAuth2Info> m_untold; ///< while a thread tells; guarded by the mutex
    bool m_isTelling = false;            ///< guarded by the mutex
    KeloListeners<KeloOAuth2Info> m_listeners;
};
