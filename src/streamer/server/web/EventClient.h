#pragma once
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

/// The queue of one event stream: filled by whoever has news, emptied by the thread that writes the
/// stream. Shared by both. A client that does not keep up is dropped, since a stream with holes
/// would lie about the rows.
class EventClient
{
public:
    /// What next() found.
    enum class Next { Event, Nothing, End };

    /// Adds an event. Of a state (`isState`) only the latest waits: it replaces an older one of the
    /// same kind that is the last in the queue.
    void push(const std::string& kind, const std::string& data, bool isState);
    /// Takes the next event in its wire form, waiting for it up to the time.
    Next next(std::string& text, std::chrono::milliseconds patience);
    /// No more events; next() ends the stream.
    void close();
    bool isDropped() const;

    /// Numbers of the open rows paths; set once, before the stream starts.
    std::vector<unsigned long long> rows;

private:
    struct Event
    {
        std::string kind;
        std::string data;
    };

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Event> m_events;
    bool m_isClosed = false;
    bool m_isDropped = false;
};
