#pragma once
#include "EventHub.h"
#include "LateAnswer.h"

/// One event stream as it is written: takes a client's events, adds what is waited for when an
/// answer is late, and keeps the connection alive between them. Made by EventsApi; belongs to the
/// connection that writes it, whose end closes the client.
class EventStream
{
public:
    EventStream(EventHub& hub, std::shared_ptr<EventClient> client);
    ~EventStream();
    EventStream(const EventStream&) = delete;
    EventStream& operator=(const EventStream&) = delete;

    /// What is to be written now; empty when there is nothing. To be asked once a second, and when
    /// woken.
    std::string take();
    bool isOver() const { return m_client->isClosed(); }
    /// The callback runs on any thread when there is something to take, or the stream is over.
    void setWake(std::function<void()> wake) { m_client->setWake(std::move(wake)); }

private:
    /// The event that tells of another thing that is waited for than the client knows of.
    std::string lateAnswer();

    EventHub& m_hub;
    const std::shared_ptr<EventClient> m_client;
    std::chrono::steady_clock::time_point m_lastWrite;
    LateAnswer m_late;       ///< as the client knows it
    bool m_hasBegun = false; ///< something was written
};
