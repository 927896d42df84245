#include "ScriptedService.h"

#include <algorithm>
#include <chrono>
#include <httplib.h>

namespace {
constexpr auto patience = std::chrono::seconds(20);

std::string lineOf(const httplib::Request& request)
{
    std::string line = request.method + " " + request.target.substr(3);
    if (request.has_header("If-None-Match"))
        line += " [" + request.get_header_value("If-None-Match") + "]";
    return request.body.empty() ? line : line + " " + request.body;
}
} // namespace

ScriptedService::ScriptedService() : m_server(new httplib::Server)
{
    m_server->new_task_queue = [] { return new httplib::ThreadPool(32); };
    m_server->set_tcp_nodelay(true);
    const auto handler = [this](const httplib::Request& request, httplib::Response& response) {
        const bool hasToken = request.get_header_value("Authorization").rfind("Bearer ", 0) == 0;
        const Answer answer = answerFor(hasToken ? request.path : "", lineOf(request));
        response.status = answer.status;
        if (!answer.etag.empty())
            response.set_header("eTaG", answer.etag);
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
    return m_changed.wait_for(lock, patience,
                              [&] { return linesWith(part).size() >= std::size_t(count); });
}

std::vector<std::string> ScriptedService::requests(const std::string& part) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return linesWith(part);
}
