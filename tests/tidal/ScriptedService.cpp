#include "ScriptedService.h"

#include <algorithm>
#include <chrono>
#include <httplib.h>

namespace {
constexpr auto patience = std::chrono::seconds(20);
}

ScriptedService::ScriptedService() : m_server(new httplib::Server)
{
    m_server->new_task_queue = [] { return new httplib::ThreadPool(32); };
    const auto handler = [this](const httplib::Request& request, httplib::Response& response) {
        const Answer answer = answerFor(request.path, request.target);
        response.status = answer.status;
        response.set_content(answer.body, "application/json");
    };
    m_server->Get(".*", handler).Post(".*", handler).Delete(".*", handler);
    m_port = m_server->bind_to_any_port("127.0.0.1");
    m_thread = std::thread([this] { m_server->listen_after_bind(); });
    while (!m_server->is_running())
        std::this_thread::yield();
}

ScriptedService::~ScriptedService()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
    m_server->stop();
    m_thread.join();
}

std::string ScriptedService::baseUrl() const
{
    return "http://127.0.0.1:" + std::to_string(m_port);
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
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        Script& script = m_scripts[pathPart];
        script.released.insert(script.heldFrom + std::size_t(which));
    }
    m_changed.notify_all();
}

void ScriptedService::releaseAll(const std::string& pathPart)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_scripts[pathPart].isHeld = false;
    }
    m_changed.notify_all();
}

ScriptedService::Answer ScriptedService::answerFor(const std::string& path,
                                                   const std::string& target)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_targets.push_back(target);
    m_changed.notify_all();
    Script* script = nullptr;
    std::size_t length = 0;
    for (auto& [part, candidate] : m_scripts) {
        if (path.find(part) != std::string::npos && part.size() >= length) {
            script = &candidate;
            length = part.size();
        }
    }
    if (!script)
        return Answer{404, "{}"};
    const std::size_t number = script->arrived++;
    m_changed.wait(lock, [&] {
        return m_isStopping || !script->isHeld || script->released.count(number) > 0;
    });
    if (script->answers.empty())
        return Answer{404, "{}"};
    return script->answers[std::min(number, script->answers.size() - 1)];
}

bool ScriptedService::waitForRequests(const std::string& targetPart, int count)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, patience, [&] {
        return std::count_if(m_targets.begin(), m_targets.end(), [&](const std::string& target) {
                   return target.find(targetPart) != std::string::npos;
               }) >= count;
    });
}

int ScriptedService::requestCount(const std::string& targetPart) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(std::count_if(m_targets.begin(), m_targets.end(), [&](const std::string& target) {
        return target.find(targetPart) != std::string::npos;
    }));
}

std::string ScriptedService::lastRequest(const std::string& targetPart) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto found =
        std::find_if(m_targets.rbegin(), m_targets.rend(), [&](const std::string& target) {
            return target.find(targetPart) != std::string::npos;
        });
    return found == m_targets.rend() ? std::string() : *found;
}
