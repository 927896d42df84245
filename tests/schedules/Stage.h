#pragma once
#include "Schedule.h"
#include "ScheduledHost.h"
#include <atomic>
#include <kelo/CMWorkerThread.h>
#include <memory>

class TidalWorker;

/// Plays schedules: the host, the service and the clients, which outlast a schedule, and the worker
/// that is made for each. Used on the thread that made it.
class Stage
{
public:
    Stage();
    ~Stage();

    /// What went wrong; empty when nothing did.
    std::string play(const Schedule& schedule);
    /// What the stage is doing, for when it does not come back. Any thread.
    const char* phase() const { return m_phase; }

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

    void startWorker();
    void stopWorker();
    void play(const Step& step);
    void login(int account);
    void logout();
    void setSettings(int number);
    void ask(const Ask& ask, int number);
    void settle();
    int callsUnderWay();
    std::string verdict(bool isCalm);
    std::string verdict(const Asked& asked, bool isCalm) const;
    std::string rowsVerdict(const Asked& asked, bool isCalm) const;
    /// Whether a text starts with the name of an account that was logged in meanwhile.
    bool isOfLogin(const Asked& asked, const QString& text) const;
    static std::string playVerdict(const Asked& asked);

    ScheduledService m_service;
    CMWorkerThread m_hostThread;
    ScheduledHost* m_host;
    ScheduledPlayer m_player;
    ScheduledClients m_clients;
    CMWorkerThread m_workerThread;
    TidalWorker* m_worker = nullptr;

    std::vector<int> m_logins;        ///< accounts, in the order of their logins
    std::atomic<int> m_loginBegun{0}; ///< logins of which something has been published
    std::atomic<int> m_loginDone{0};  ///< logins that have been published whole
    bool m_isLoggedIn = false;
    int m_settings = 0;
    std::mutex m_mutex; ///< guards the next
    std::vector<Asked> m_asked;
    std::atomic<const char*> m_phase{""};
};
