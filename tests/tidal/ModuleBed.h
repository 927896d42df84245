#pragma once
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <functional>
#include <kelo/CMRoot.h>
#include <kelo/CMValueNode.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/PlayLogicInterface.h>
#include <mutex>

/// The module, made through its entry on a thread of its own, and what it finds in the host:
/// settings, a login service that takes reports of refused tokens, a player that keeps what it is
/// given. The web service is its owner's. Any thread.
class ModuleBed : protected PlayLogicInterface
{
public:
    ModuleBed();
    ~ModuleBed() override;

    void start();
    void stop();
    TidalWorker* worker() const { return m_worker; }
    /// Runs a function on the module's thread and waits for it.
    void onWorker(const std::function<void(TidalHandler&)>& function);
    /// Returns when everything that was queued for the module has run.
    void settle();

    static KeloTidalSettings settings();
    void setSettings(const KeloTidalSettings& settings);
    void setService(const std::string& baseUrl);
    /// Publishes the login state, the token first.
    void setLoggedIn(bool loggedIn, const QString& token = QStringLiteral("token-1"));
    void setToken(const QString& token);
    void setLoginState(bool loggedIn);
    /// The tokens that the module has asked the login service to replace, since the last call.
    QStringList takeRefusedTokens();
    QList<KeloRoles> played() const;

    /// The roles that clients ask for in lists.
    static const QStringList& allRoles();

protected:
    QVariant play(const KeloRoles& item, int options) override;
    /// The module wants this token replaced.
    virtual void tokenRefused(const QString& token);

private:
    CMWorkerThread m_hostThread;
    CMWorkerThread m_moduleThread;
    TidalWorker* m_worker = nullptr;
    CMValueNode* m_settings = nullptr;
    CMValueNode* m_login = nullptr;
    CMValueNode* m_token = nullptr;
    int m_logins = 0;
    mutable std::mutex m_mutex;
    QStringList m_refusedTokens;
    QList<KeloRoles> m_played;
};
