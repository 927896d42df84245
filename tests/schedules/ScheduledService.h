#pragma once
#include "host/ScriptedServer.h"
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

/// A user of the service. Their number stands in everything that the service answers them.
struct Account
{
    int number;
    int userId() const { return 1001 + number; }
    std::string country() const { return std::string(2, char('A' + number)); }
    /// The best quality of the subscription; another one for each account.
    const char* quality() const;
    static constexpr int count = 4;
};

/// How often a service of a schedule misbehaves, in hundredths of the requests.
struct ServiceMood
{
    std::uint64_t seed = 0;
    unsigned holds = 0;
    unsigned faults = 0;
};

/// The music service of a schedule, on loopback: it tells accounts by their tokens, checks that
/// everything else in a request is of the same account, and answers when the schedule says so. What
/// becomes of a request is drawn from the schedule's seed, its address and how often it has come.
/// Threads of its own; every member may be called on any.
class ScheduledService
{
public:
    std::string baseUrl() const { return m_server.url(""); }
    /// Begins a schedule: nothing is held, nothing has been refused, nothing is wrong.
    void begin(const ServiceMood& mood);
    /// From now on the requests are answered at once, as they should be.
    void behave();

    /// Makes a token for an account, whose earlier ones are refused from now on.
    std::string issueToken(int account);
    /// Refuses the latest token.
    void expireToken();
    /// To be told which token the module wants replaced. Another one when it is the latest and has
    /// expired; else empty.
    std::string tokenReported(const std::string& token);
    /// The worker that got the answers is gone.
    void forgetRefusals();
    /// Whether the module has been refused the latest token and has not said so.
    bool isReportOwed() const;

    /// Answers one of the held requests, any for a pick, or closes its connection.
    void release(unsigned pick, bool isDropped = false);
    int heldCount() const;

    /// Counts what happens: requests that come, connections that end, and what others say.
    std::uint64_t events() const { return m_events; }
    void happened();
    /// False when nothing more happens for a while.
    bool waitForEvent(std::uint64_t seen) const;

    /// The first thing that was wrong about a request; empty while there is none.
    std::string wrong() const;
    void setWrong(const std::string& text);

private:
    /// The mutex is held.
    std::string makeToken(int account);
    /// What the answer is to be.
    enum Fate { Good, Dropped, Refused, Failed, FailedBare, OtherId, Broken, StaleTag };
    struct Request
    {
        std::string method, path, query, token;
        int account = -1;
        Fate fate = Good;
        int fd = -1;
    };
    struct Answer
    {
        int status = 200;
        std::string body;
    };
    using Key = std::pair<std::string, int>; ///< address, and how often it has come before

    ScriptedServer::Answer take(const std::string& text, int fd);
    void ended(int fd);
    void check(const Request& request);
    void answer(const Request& request);
    Answer answerTo(const Request& request);
    Answer refusal(const Request& request);
    static std::string goodBody(const Request& request);
    static std::string listBody(const Request& request, const std::string& owner);

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    std::map<Key, Request> m_held;
    std::map<std::string, int> m_seen;   ///< by address
    std::map<std::string, int> m_tokens; ///< the account of each
    std::map<int, std::string> m_good;   ///< the token of each account that is not refused
    std::string m_lastToken;
    std::set<std::pair<int, std::string>> m_read; ///< playlists, by the account that has read them
    std::set<std::string> m_refused;              ///< tokens that an answer has refused
    std::set<std::string> m_owed;                 ///< those of them that the module has to report
    ServiceMood m_mood;
    std::atomic<std::uint64_t> m_events{0}; ///< grows with the mutex held
    std::string m_wrong;
    ScriptedServer m_server{[this](const std::string& text, int fd) { return take(text, fd); },
                            [this](int fd) { ended(fd); }};
};
