#pragma once
#include "ScheduledService.h"
#include <array>
#include <deque>
#include <functional>
#include <kelo/CMNodesWorker.h>
#include <kelo/PlayLogicInterface.h>

/// What the module finds in the host tree: settings and a login, which the schedule sets. It renews
/// a token that the module reports when it has expired.
class ScheduledHost : public CMNodesWorker
{
    Q_OBJECT
public:
    explicit ScheduledHost(ScheduledService& service);
    QStringList prefixes() const override;

    /// Any thread; as the login service publishes them.
    void setToken(const std::string& token);
    /// Publishes the token that is issued, if any, before another one is: a login service gives one
    /// after the other.
    void giveToken(const std::function<std::string()>& issue);
    void setLoggedIn(bool isLoggedIn);
    void setSettings(const QString& apiUrl, const QString& country);

private:
    void setValue(const CMPath& path, const KeloValue& value);

    std::mutex m_giving;
};

/// A player that looks whether what it gets belongs together, and answers with the track's id.
class ScheduledPlayer : public PlayLogicInterface
{
public:
    explicit ScheduledPlayer(ScheduledService& service);
    ~ScheduledPlayer() override;
    QVariant play(const KeloRoles& item, int options) override;

private:
    ScheduledService& m_service;
};

/// The threads of the clients.
class ScheduledClients
{
public:
    static constexpr int count = 8;
    ScheduledClients();
    ~ScheduledClients();

    /// Has a client run something, behind what it runs already.
    void run(int client, std::function<void()> function);
    /// Returns when the clients have run everything.
    void wait();

private:
    void work(int client);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::array<std::deque<std::function<void()>>, count> m_queues; ///< the first one runs
    bool m_isStopping = false;
    std::array<std::thread, count> m_threads;
};
