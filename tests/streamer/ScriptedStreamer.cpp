#include "streamer/ScriptedStreamer.h"

#include <algorithm>
#include <sstream>

void ScriptedStreamer::answer(const std::string& call, Answer answer)
{
    const std::lock_guard lock(m_mutex);
    m_answers[call] = std::move(answer);
}

void ScriptedStreamer::answerAfter(const std::string& earlier, const std::string& call,
                                   Answer answer)
{
    const std::lock_guard lock(m_mutex);
    answer.after = earlier;
    m_laterAnswers[call] = std::move(answer);
}

void ScriptedStreamer::forget()
{
    const std::lock_guard lock(m_mutex);
    m_calls.clear();
    m_laterAnswers.clear();
}

bool ScriptedStreamer::hasArrived(const std::string& start) const
{
    return std::any_of(m_calls.begin(), m_calls.end(),
                       [&](const std::string& call) { return call.rfind(start, 0) == 0; });
}

const ScriptedStreamer::Answer* ScriptedStreamer::find(const std::string& call) const
{
    const auto later = m_laterAnswers.find(call);
    if (later != m_laterAnswers.end() && hasArrived(later->second.after))
        return &later->second;
    const auto found = m_answers.find(call);
    return found == m_answers.end() ? nullptr : &found->second;
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
    const Answer* found = find(call);
    if (!found)
        return {ScriptedServer::whole(R"({"title":"Not found","detail":"no such node"})",
                                      "Content-Type: application/problem+json\r\n",
                                      "404 Not Found")};
    return {ScriptedServer::whole(found->body, "Content-Type: " + found->type + "\r\n",
                                  std::to_string(found->status) + " Scripted")};
}

ScriptedStreamer::Run ScriptedStreamer::run(std::vector<std::string> arguments,
                                            cli::Terminal::Properties terminal)
{
    std::ostringstream out;
    std::ostringstream err;
    arguments.insert(arguments.begin(), {"--server", address()});
    cli::CommandLine commandLine({out, err, terminal, nullptr, nullptr});
    const int status = commandLine.run(std::move(arguments));
    return {status, out.str(), err.str()};
}
