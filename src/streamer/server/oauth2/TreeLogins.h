#pragma once
#include "LoginControl.h"
#include "TreeLogin.h"

#include <kelo/KeloListeners.h>
#include <memory>
#include <vector>

/// The logins as the web API wants them: one for each row of KeloOAuth2ServicePath(), also of a
/// service that a module registers later. Owned by serve; every operation may be called from any
/// thread.
class TreeLogins : public LoginControl
{
public:
    /// Made behind the modules. Watches are told in their order: a client that hears of a login
    /// asks after the module knows. For the same reason a module watches its login before it
    /// registers the service.
    TreeLogins();
    ~TreeLogins() override;

    QStringList services() const override;
    KeloOAuth2Info status(const QString& service) const override;
    CMReply<QVariant> start(const QString& service) override;
    CMReply<QVariant> logout(const QString& service) override;
    quint64 addListener(Listener listener) override;
    void removeListener(quint64 id) override;

private:
    struct Entry
    {
        QString service;
        std::unique_ptr<TreeLogin> login;
    };
    using Entries = std::vector<Entry>;

    /// Takes over the services that are not known yet.
    void look();
    /// With the mutex.
    Entries::const_iterator entryOf(const QString& service) const;
    /// Null for one that is not known.
    TreeLogin* find(const QString& service) const;

    KeloListeners<LoginState> m_listeners;
    mutable std::mutex m_mutex;
    Entries m_logins; ///< only grows; guarded by the mutex
    quint64 m_rows = 0;
};
