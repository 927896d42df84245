#include "EventClient.h"

namespace {

constexpr size_t mostEvents = 256;

} // namespace

void EventClient::push(const std::string& kind, const std::string& data, bool isState)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    add(kind, data, isState);
}

void EventClient::pushFirst(const std::string& kind, const std::string& data)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_kinds.count(kind) == 0)
        add(kind, data, true);
}

void EventClient::add(const std::string& kind, const std::string& data, bool isState)
{
    if (m_isClosed)
        return;
    m_kinds.insert(kind);
    if (isState && !m_events.empty() && m_events.back().kind == kind) {
        m_events.back().data = data;
        return;
    }
    if (m_events.size() >= mostEvents) {
        m_isClosed = true;
        m_isDropped = true;
        m_events.clear();
    } else {
        m_events.push_back({kind, data});
    }
    m_changed.notify_one();
}

EventClient::Next EventClient::next(std::string& text, std::chrono::milliseconds patience)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, patience, [this] { return m_isClosed || !m_events.empty(); });
    if (m_isClosed)
        return Next::End;
    if (m_events.empty())
        return Next::Nothing;
    text = "event: " + m_events.front().kind + "\ndata: " + m_events.front().data + "\n\n";
    m_events.pop_front();
    return Next::Event;
}

void EventClient::close()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_isClosed = true;
    m_changed.notify_one();
}

bool EventClient::isDropped() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_isDropped;
}
