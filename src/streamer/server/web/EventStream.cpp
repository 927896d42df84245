#include "EventStream.h"

#include "JsonText.h"

namespace {

constexpr std::chrono::seconds heartbeat{15};
constexpr std::chrono::seconds longestStep{1};

} // namespace

EventStream::EventStream(EventHub& hub, std::shared_ptr<EventClient> client)
    : m_hub(hub), m_client(std::move(client))
{
}

EventStream::~EventStream()
{
    m_hub.close(m_client);
}

EventClient::Next EventStream::next(std::string& text)
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_hasBegun) {
        text = "retry: 3000\n\n";
        m_lastLook = now;
    } else if (!tellsLateAnswer(text)) {
        const EventClient::Next next = m_client->next(text, longestStep);
        if (next == EventClient::Next::Nothing && now - m_lastWrite >= heartbeat)
            text = ": still here\n\n";
        else if (next != EventClient::Next::Event)
            return next;
    }
    m_hasBegun = true;
    m_lastWrite = now;
    return EventClient::Next::Event;
}

bool EventStream::tellsLateAnswer(std::string& text)
{
    const auto now = std::chrono::steady_clock::now();
    if (now - m_lastLook < longestStep)
        return false;
    m_lastLook = now;
    const LateAnswer late = LateAnswer::now();
    if (late == m_late)
        return false;
    m_late = late;
    JsonText json;
    json.beginObject();
    if (late.isSet()) {
        json.field("for", late.from);
        json.field("seconds", late.seconds());
    }
    json.endObject();
    text = "event: waiting\ndata: " + json.text() + "\n\n";
    return true;
}
