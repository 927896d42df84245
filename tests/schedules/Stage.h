#pragma once
#include "Schedule.h"
#include "tidal/ModuleBed.h"
#include <array>
#include <atomic>
#include <kelo/KeloLoopThread.h>

/// Plays schedules: the host, the service and the clients, which outlast a schedule, and the worker
/// that is made for each. The host renews a token that the module reports when it has expired; its
/// player looks whether what it gets belongs together. Used on the thread that made it.
class Stage : private ModuleBed
{
public:
    Stage();

    /// What went wrong; empty when nothing did.
    std::string play(const Schedule& schedule);

private:
    /// What is known about the answer of a request; outlives the schedule if need be.
    struct Outcome
    {
        std::atomic<int> answers{0};
        std::atomic<int> lastLogin{0}; ///< number of the latest login when the answer came
    };
    struct Asked
    {
        CMRequest request;
        const Ask* ask;
        int number;
        int firstLogin; ///< number of the latest login when it was made
        std::shared_ptr<Outcome> outcome;
    };

    /// Answers with the track's id.
    QVariant play(const KeloRoles& item, int options) override;
    void tokenRefused(const QString& token) override;
    /// Publishes the token that is issued, if any, before another one is: a login service gives one
    /// after the other.
    void giveToken(const std::function<std::string()>& issue);
    void stopWorker();
    void play(const Step& step);
    void login(int account);
    void logout();
    void setSettings(int number);
    void ask(const Ask& ask, int number);
    /// Returns when the clients have asked for everything.
    void waitForClients();
    /// Returns when nothing moves but what is held.
    void settle();
    int callsUnderWay();
    std::string verdict(bool isCalm);
    std::string verdict(const Asked& asked, bool isCalm) const;
    std::string rowsVerdict(const Asked& asked, bool isCalm) const;
    /// Whether a text starts with the name of an account that was logged in meanwhile.
    bool isOfLogin(const Asked& asked, const QString& text) const;
    static std::string playVerdict(const Asked& asked);

    ScheduledService m_service;
    std::mutex m_giving;
    std::array<KeloLoopThread, Schedule::mostClients> m_clients;
    std::set<int> m_busyClients;      ///< that may not have asked for everything yet
    std::vector<int> m_logins;        ///< accounts, in the order of their logins
    std::atomic<int> m_loginBegun{0}; ///< logins of which something has been published
    std::atomic<int> m_loginDone{0};  ///< logins that have been published whole
    bool m_isLoggedIn = false;
    std::mutex m_mutex; ///< guards the next
    std::vector<Asked> m_asked;
};
