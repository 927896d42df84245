#include "streamer/ScriptedStreamer.h"

#include <sstream>

void ScriptedStreamer::answer(const std::string& call, Answer answer)
{
    const std::lock_guard lock(m_mutex);
    m_answers[call] = std::move(answer);
}

std::vector<std::string> ScriptedStreamer::calls()
{
    const std::lock_guard lock(m_mutex);
    return m_calls;
}

ScriptedServer::Answer ScriptedStreamer::respond(const std::string& request)
{
    const std::string call = request.substr(0, request.find(" HTTP/"));
    const std::string body = request.substr(request.find("\r\n\r\n") + 4);
    const std::lock_guard lock(m_mutex);
    m_calls.push_back(body.empty() ? call : call + ' ' + body);
    const auto found = m_answers.find(call);
    if (found == m_answers.end())
        return {ScriptedServer::whole(R"({"title":"Not found","detail":"no such node"})",
                                      "Content-Type: application/problem+json\r\n",
                                      "404 Not Found")};
    const Answer& answer = found->second;
    return {ScriptedServer::whole(answer.body, "Content-Type: " + answer.type + "\r\n",
                                  std::to_string(answer.status) + " Scripted")};
}

ScriptedStreamer::Run ScriptedStreamer::run(std::vector<std::string> arguments,
                                            cli::Terminal::Properties terminal)
{
    std::ostringstream out;
    std::ostringstream err;
    arguments.insert(arguments.begin(), {"--server", address()});
    cli::CommandLine commandLine({out, err, terminal, nullptr, nullptr, nullptr, nullptr, state});
    const int status = commandLine.run(std::move(arguments));
    return {status, out.str(), err.str()};
}
