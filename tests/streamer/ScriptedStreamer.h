#pragma once

#include "client/CommandLine.h"
#include "host/ScriptedServer.h"

#include <map>
#include <mutex>

/// A streamer that answers from a script, on loopback with a port of its own. A test adds answers,
/// runs commands against it and looks at what arrived. Unknown calls get a 404 problem.
class ScriptedStreamer
{
public:
    struct Answer
    {
        int status;
        std::string body;
        std::string type = "application/json";
    };
    struct Run
    {
        int status;
        std::string out;
        std::string err;
    };

    /// \p call is the method and the target as it stands on the wire; calls() shows them the same.
    void answer(const std::string& call, Answer answer);
    /// "METHOD target", with a blank and the body where there is one, in order of arrival.
    std::vector<std::string> calls();
    std::string address() const { return m_server.url(""); }

    /// Runs a command line against this streamer.
    Run run(std::vector<std::string> arguments, cli::Terminal::Properties terminal = {});

    cli::UserState state; ///< what the runs remember

private:
    ScriptedServer::Answer respond(const std::string& request);

    std::mutex m_mutex; ///< guards all below
    std::map<std::string, Answer> m_answers;
    std::vector<std::string> m_calls;
    ScriptedServer m_server{[this](const std::string& request) { return respond(request); }};
};
