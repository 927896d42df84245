#pragma once
#include "EventHub.h"
#include "LateAnswer.h"

/// One event stream as it is written: takes a client's events, adds what is waited for when an
/// answer is late, and keeps the connection alive between them. Made by EventsApi; belongs to the
/// thread that writes the stream. Its end closes the client.
class EventStream
{
public:
    EventStream(EventHub& hub, std::shared_ptr<EventClient> client);
    ~EventStream();
    EventStream(const EventStream&) = delete;
    EventStream& operator=(const EventStream&) = delete;

    /// Waits up to a second for an event, or something else to write.
    EventClient::Next next(std::string& text);

private:
    /// Whether another thing is waited for than the client knows of; looks once a second.
    bool tellsLateAnswer(std::string& text);

    EventHub& m_hub;
    const std::shared_ptr<EventClient> m_client;
    std::chrono::steady_clock::time_point m_lastWrite;
    std::chrono::steady_clock::time_point m_lastLook;
    LateAnswer m_late; ///< as the client knows it
    bool m_hasBegun = false;
};
