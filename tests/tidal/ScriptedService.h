#pragma once
#include "host/ScriptedServer.h"
#include <condition_variable>
#include <map>
#include <set>

/// A web service on loopback that answers what the test says. Which script a request gets is told
/// by the longest text that its path contains; one without a script, or without a token, is
/// refused. Threads of its own; every member may be called on any.
class ScriptedService
{
public:
    struct Answer
    {
        int status = 200;
        std::string body = {};
        std::string etag = {};
    };

    /// Held requests are let go.
    ~ScriptedService();

    std::string baseUrl() const { return m_server.url(""); }
    /// The answers of one kind of request, one after the other; the last one repeats.
    void script(const std::string& pathPart, std::vector<Answer> answers);
    /// Requests of that kind wait from now on.
    void hold(const std::string& pathPart);
    /// Lets one of those go that came since hold(), counted from 0, or will come.
    void releaseOne(const std::string& pathPart, int which);
    /// Ends the hold.
    void releaseAll(const std::string& pathPart);

    /// Waits for requests whose line contains a text; false when they do not come in time.
    bool waitForRequests(const std::string& part, int count) const;
    int requestCount(const std::string& part) const { return int(requests(part).size()); }
    /// The lines that contain a text: "POST /path?query [tag] body", from behind "/v1" on.
    std::vector<std::string> requests(const std::string& part = "") const;

private:
    struct Script
    {
        std::vector<Answer> answers;
        std::size_t arrived = 0;
        std::size_t heldFrom = 0;
        std::set<std::size_t> released; ///< numbers of those that need not wait
        bool isHeld = false;
    };
    ScriptedServer::Answer respond(const std::string& request);
    Answer answerFor(const std::string& path, const std::string& line);
    std::vector<std::string> linesWith(const std::string& part) const;

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    std::map<std::string, Script> m_scripts;
    std::vector<std::string> m_lines;
    bool m_isStopping = false;
    ScriptedServer m_server{[this](const std::string& request) { return respond(request); }};
};
