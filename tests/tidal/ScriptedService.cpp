#include "ScriptedService.h"

#include <algorithm>
#include <chrono>

namespace {
/// What stands between a text and the end of its line.
std::string behind(const std::string& request, const std::string& text)
{
    const std::size_t at = request.find(text);
    if (at == std::string::npos)
        return {};
    const std::size_t begin = at + text.size();
    return request.substr(begin, request.find("\r\n", begin) - begin);
}
} // namespace

ScriptedService::~ScriptedService()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isStopping = true;
    m_changed.notify_all();
}

void ScriptedService::script(const std::string& pathPart, std::vector<Answer> answers)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Script& script = m_scripts[pathPart];
    script.answers = std::move(answers);
    script.arrived = 0;
}

void ScriptedService::hold(const std::string& pathPart)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Script& script = m_scripts[pathPart];
    script.isHeld = true;
    script.heldFrom = script.arrived;
    script.released.clear();
}

void ScriptedService::releaseOne(const std::string& pathPart, int which)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Script& script = m_scripts[pathPart];
    script.released.insert(script.heldFrom + std::size_t(which));
    m_changed.notify_all();
}

void ScriptedService::releaseAll(const std::string& pathPart)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_scripts[pathPart].isHeld = false;
    m_changed.notify_all();
}

ScriptedServer::Answer ScriptedService::respond(const std::string& request)
{
    const std::string method = request.substr(0, request.find(' '));
    std::string target = behind(request, method + " /v1");
    target.resize(target.find(" HTTP/"));
    const std::string tag = behind(request, "If-None-Match: ");
    const std::string body = request.substr(request.find("\r\n\r\n") + 4);
    const bool hasToken = !behind(request, "Authorization: Bearer ").empty();
    const Answer answer = answerFor(hasToken ? target.substr(0, target.find('?')) : "",
                                    method + ' ' + target + (tag.empty() ? "" : " [" + tag + ']') +
                                        (body.empty() ? "" : ' ' + body));
    return {ScriptedServer::whole(answer.body,
                                  answer.etag.empty() ? "" : "eTaG: " + answer.etag + "\r\n",
                                  std::to_string(answer.status) + " Scripted")};
}

ScriptedService::Answer ScriptedService::answerFor(const std::string& path, const std::string& line)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_lines.push_back(line);
    m_changed.notify_all();
    Script* script = nullptr;
    std::size_t length = 0;
    for (auto& [part, candidate] : m_scripts) {
        if (path.find(part) != std::string::npos && part.size() >= length) {
            script = &candidate;
            length = part.size();
        }
    }
    const Answer refusal{404, "{}"};
    if (!script)
        return refusal;
    const std::size_t number = script->arrived++;
    m_changed.wait(lock, [&] {
        return m_isStopping || !script->isHeld || script->released.count(number) > 0;
    });
    const std::size_t last = script->answers.size() - 1;
    return script->answers.empty() ? refusal : script->answers[std::min(number, last)];
}

std::vector<std::string> ScriptedService::linesWith(const std::string& part) const
{
    std::vector<std::string> lines;
    std::copy_if(m_lines.begin(), m_lines.end(), std::back_inserter(lines),
                 [&](const std::string& line) { return line.find(part) != std::string::npos; });
    return lines;
}

bool ScriptedService::waitForRequests(const std::string& part, int count) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::seconds(20),
                              [&] { return linesWith(part).size() >= std::size_t(count); });
}

std::vector<std::string> ScriptedService::requests(const std::string& part) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return linesWith(part);
}
