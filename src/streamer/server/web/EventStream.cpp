#include "EventStream.h"

#include "JsonText.h"

namespace {

constexpr std::chrono::seconds heartbeat{15};

} // namespace

EventStream::EventStream(EventHub& hub, std::shared_ptr<EventClient> client)
    : m_hub(hub), m_client(std::move(client))
{
}

EventStream::~EventStream()
{
    m_hub.close(m_client);
}

std::string EventStream::take()
{
    const auto now = std::chrono::steady_clock::now();
    std::string text = m_hasBegun ? lateAnswer() : "retry: 3000\n\n";
    text += m_client->take();
    if (text.empty() && now - m_lastWrite >= heartbeat)
        text = ": still here\n\n";
    if (!text.empty())
        m_lastWrite = now;
    m_hasBegun = true;
    return text;
}

std::string EventStream::lateAnswer()
{
    const LateAnswer late = LateAnswer::now();
    if (late == m_late)
        return {};
    m_late = late;
    JsonText json;
    json.beginObject();
    if (late.isSet()) {
        json.field("for", late.from);
        json.field("seconds", late.seconds());
    }
    json.endObject();
    return "event: waiting\ndata: " + json.text() + "\n\n";
}
