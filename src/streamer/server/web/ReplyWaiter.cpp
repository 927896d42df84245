#include "ReplyWaiter.h"

#include "HttpReply.h"

#include <vector>

CMError ReplyWaiter::wait(const CMVoidReply& reply)
{
    if (reply.isNull())
        return {};
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_isStopped) {
            lock.unlock();
            end(reply);
            return reply.error();
        }
        m_waiting.insert(reply.data().get());
    }
    reply.waitForFinished(-1);
    std::lock_guard<std::mutex> lock(m_mutex);
    m_waiting.erase(m_waiting.find(reply.data().get()));
    return reply.error();
}

void ReplyWaiter::stop()
{
    std::vector<CMVoidReply> waiting;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopped = true;
        for (CMVoidReplyData* data : m_waiting)
            waiting.emplace_back(KeloShared<CMVoidReplyData>(data));
    }
    for (const CMVoidReply& reply : waiting)
        end(reply);
}

void ReplyWaiter::end(const CMVoidReply& reply)
{
    reply.giveUp(CMError(HttpReply::stoppingName(), QStringLiteral("The streamer is stopping.")));
}
