#include "ReplyWaiter.h"

#include "HttpReply.h"

namespace {

void giveUp(const CMVoidReply& reply)
{
    reply.giveUp(CMError(HttpReply::stoppingName(), QStringLiteral("The streamer is stopping.")));
}

} // namespace

ReplyWaiter::ReplyWaiter(std::function<void(Then)> run)
{
    m_state->run = std::move(run);
}

void ReplyWaiter::whenFinished(const CMVoidReply& reply, Then then)
{
    if (reply.isNull()) {
        m_state->run(std::move(then));
        return;
    }
    quint64 id = 0;
    bool isStopped = false;
    {
        std::lock_guard<std::mutex> lock(m_state->mutex);
        id = ++m_state->lastId;
        m_state->waiting.emplace(id, reply);
        isStopped = m_state->isStopped;
    }
    reply.addWatcher(nullptr, [state = m_state, id, then = std::move(then)] {
        {
            std::lock_guard<std::mutex> lock(state->mutex);
            state->waiting.erase(id);
        }
        state->run(then);
    });
    if (isStopped)
        giveUp(reply);
}

void ReplyWaiter::stop()
{
    std::map<quint64, CMVoidReply> waiting;
    {
        std::lock_guard<std::mutex> lock(m_state->mutex);
        m_state->isStopped = true;
        waiting = m_state->waiting;
    }
    for (const auto& [id, reply] : waiting)
        giveUp(reply);
}
