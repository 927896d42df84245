#pragma once
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace httplib {
class Server;
}

/// A web service on loopback that answers what the test says. Which script a request gets is told
/// by the longest text that its path contains. Threads of its own; every member may be called on
/// any.
class ScriptedService
{
public:
    struct Answer
    {
        int status = 200;
        std::string body;
    };

    ScriptedService();
    /// Held requests are let go.
    ~ScriptedService();

    std::string baseUrl() const;
    /// The answers of one kind of request, one after the other; the last one repeats.
    void script(const std::string& pathPart, std::vector<Answer> answers);
    /// Requests of that kind wait from now on.
    void hold(const std::string& pathPart);
    /// Lets one of those go that came since hold(), counted from 0, or will come.
    void releaseOne(const std::string& pathPart, int which);
    /// Ends the hold.
    void releaseAll(const std::string& pathPart);

    /// Waits for requests whose target contains a text; false when they do not come in time.
    bool waitForRequests(const std::string& targetPart, int count);
    int requestCount(const std::string& targetPart) const;
    /// The newest target, path and query, that contains a text.
    std::string lastRequest(const std::string& targetPart) const;

private:
    struct Script
    {
        std::vector<Answer> answers;
        std::size_t arrived = 0;
        std::size_t heldFrom = 0;
        std::set<std::size_t> released; ///< numbers of those that need not wait
        bool isHeld = false;
    };
    Answer answerFor(const std::string& path, const std::string& target);

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, Script> m_scripts;
    std::vector<std::string> m_targets;
    bool m_isStopping = false;
    std::unique_ptr<httplib::Server> m_server;
    int m_port = 0;
    std::thread m_thread;
};
