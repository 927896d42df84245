#pragma once
#include "LoginControl.h"

#include <kelo/CMPath.h>
#include <kelo/KeloListeners.h>
#include <mutex>

/// The login of one service as the web API wants it, read from and driven through the content tree.
/// Owned by serve; every operation may be called from any thread.
class TreeLogin : public LoginControl
{
public:
    explicit TreeLogin(const QString& serviceName);
    ~TreeLogin() override;

    KeloOAuth2Info status() const override;
    CMReply<QVariant> start() override;
    CMReply<QVariant> logout() override;
    quint64 addListener(Listener listener) override;
    void removeListener(quint64 id) override;

private:
    void onValue(const KeloOAuth2Info& info);

    CMPath m_path;
    quint64 m_watch = 0;
    mutable std::mutex m_mutex;
    KeloOAuth2Info m_info;      ///< the latest; guarded by the mutex
    qint64 m_publishedAtMs = 0; ///< steady time of m_info; guarded by the mutex
    KeloListeners<KeloOAuth2Info> m_listeners;
};
