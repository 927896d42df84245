#include "streamer/ScriptedStreamer.h"

#include <sstream>

ScriptedStreamer::ScriptedStreamer()
{
    const auto handler = [this](const httplib::Request& request, httplib::Response& response) {
        respond(request, response);
    };
    m_server.Get(".*", handler).Post(".*", handler).Delete(".*", handler);
    m_server.set_keep_alive_timeout(1);
    m_server.set_tcp_nodelay(true);
    m_port = m_server.bind_to_any_port("127.0.0.1");
    m_thread = std::thread([this] { m_server.listen_after_bind(); });
    // Answered once the server runs; stopping it earlier would do nothing.
    httplib::Client(address()).Get("/");
    m_calls.clear();
}

ScriptedStreamer::~ScriptedStreamer()
{
    m_server.stop();
    m_thread.join();
}

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

void ScriptedStreamer::respond(const httplib::Request& request, httplib::Response& response)
{
    const std::string call = request.method + ' ' + request.target;
    const std::lock_guard lock(m_mutex);
    m_calls.push_back(request.body.empty() ? call : call + ' ' + request.body);
    m_arrived.notify_all();
    const Answer* found = find(call);
    if (!found) {
        response.status = 404;
        response.set_content(R"({"title":"Not found","detail":"no such node"})",
                             "application/problem+json");
        return;
    }
    const Answer answer = *found;
    response.status = answer.status;
    if (answer.type != "text/event-stream") {
        response.set_content(answer.body, answer.type.c_str());
        return;
    }
    response.set_chunked_content_provider(
        answer.type.c_str(), [this, answer](size_t, httplib::DataSink& sink) {
            sink.write(answer.first.data(), answer.first.size());
            std::unique_lock wait(m_mutex);
            m_arrived.wait(wait, [&] { return answer.after.empty() || hasArrived(answer.after); });
            sink.write(answer.body.data(), answer.body.size());
            sink.done();
            return true;
        });
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
