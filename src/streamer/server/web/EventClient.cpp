#include "EventClient.h"

namespace {

constexpr size_t mostEvents = 256;

} // namespace

void EventClient::push(const std::string& kind, const std::string& data, const std::string& state)
{
    bool isNew = false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        isNew = add({kind, data, state});
    }
    if (isNew)
        wake();
}

void EventClient::pushFirst(const std::string& kind, const std::string& data,
                            const std::string& state)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_states.count(state) == 0)
        add({kind, data, state});
}

bool EventClient::add(const Event& event)
{
    if (m_isClosed)
        return false;
    const bool isState = !event.state.empty();
    if (isState)
        m_states.insert(event.state);
    if (isState && !m_events.empty() && m_events.back().state == event.state) {
        m_events.back().data = event.data;
        return false;
    }
    if (m_events.size() >= mostEvents) {
        m_isClosed = true;
        m_isDropped = true;
        m_events.clear();
        return true;
    }
    m_events.push_back(event);
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
