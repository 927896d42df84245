#include "EventClient.h"

namespace {

constexpr size_t mostEvents = 256;

} // namespace

void EventClient::push(const std::string& kind, const std::string& data, bool isState)
{
    bool isNew = false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        isNew = add(kind, data, isState);
    }
    if (isNew)
        wake();
}

void EventClient::pushFirst(const std::string& kind, const std::string& data)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_kinds.count(kind) == 0)
        add(kind, data, true);
}

bool EventClient::add(const std::string& kind, const std::string& data, bool isState)
{
    if (m_isClosed)
        return false;
    m_kinds.insert(kind);
    if (isState && !m_events.empty() && m_events.back().kind == kind) {
        m_events.back().data = data;
        return false;
    }
    if (m_events.size() >= mostEvents) {
        m_isClosed = true;
        m_isDropped = true;
        m_events.clear();
        return true;
    }
    m_events.push_back({kind, data});
    return m_events.size() == 1;
}

std::string EventClient::take()
{
    std::string text;
    std::lock_guard<std::mutex> lock(m_mutex);
    for (const Event& event : m_events)
        text += "event: " + event.kind + "\ndata: " + event.data + "\n\n";
    m_events.clear();
    return text;
}

void EventClient::close()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isClosed = true;
        m_events.clear();
    }
    wake();
}

bool EventClient::isClosed() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_isClosed;
}

void EventClient::setWake(std::function<void()> wake)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_wake = std::make_shared<const std::function<void()>>(std::move(wake));
}

void EventClient::wake()
{
    std::shared_ptr<const std::function<void()>> wake;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        wake = m_wake;
    }
    if (wake)
        (*wake)();
}

bool EventClient::isDropped() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_isDropped;
}
