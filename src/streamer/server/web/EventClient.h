#pragma once
#include "OpenPaths.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <string>

class TextCatalogue;

/// The queue of one event stream: filled by whoever has news, emptied by the thread that writes the
/// stream. Shared by both. A client that does not keep up is dropped, since a stream with holes
/// would lie about the rows.
class EventClient
{
public:
    /// What next() found: an event to write, nothing in time, or the end of the stream.
    enum class Next { Event, Nothing, End };

    /// `id` names the stream in other calls; `texts` are in the client's language; `wantsRequests`:
    /// it gets the module's requests, too.
    explicit EventClient(std::string id, const TextCatalogue* texts = nullptr,
                         bool wantsRequests = false)
        : m_id(std::move(id)), m_texts(texts), m_wantsRequests(wantsRequests)
    {
    }

    const std::string& id() const { return m_id; }
    const TextCatalogue* texts() const { return m_texts; }
    bool wantsRequests() const { return m_wantsRequests; }
    /// Adds an event. Of a state (`isState`) only the latest waits: it replaces an older one of the
    /// same kind that is the last in the queue.
    void push(const std::string& kind, const std::string& data, bool isState);
    /// Adds a state as it was found when the client came, unless a newer one was faster.
    void pushFirst(const std::string& kind, const std::string& data);
    /// Takes the next event in its wire form, waiting for it up to the time.
    Next next(std::string& text, std::chrono::milliseconds patience);
    /// No more events; next() ends the stream.
    void close();
    bool isDropped() const;

    OpenPaths& paths() { return m_paths; }

private:
    struct Event
    {
        std::string kind;
        std::string data;
    };

    void add(const std::string& kind, const std::string& data, bool isState);

    const std::string m_id;
    const TextCatalogue* const m_texts;
    const bool m_wantsRequests;
    OpenPaths m_paths;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Event> m_events;
    std::set<std::string> m_kinds; ///< of all events so far
    bool m_isClosed = false;
    bool m_isDropped = false;
};
