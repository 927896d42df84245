#pragma once
#include "OpenPaths.h"

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>

class TextCatalogue;

/// The queue of one event stream: filled by whoever has news, emptied by the connection that writes
/// the stream. Shared by both. A client that does not keep up is dropped, since a stream with holes
/// would lie about the rows.
class EventClient
{
public:
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
    /// Takes all events in their wire form.
    std::string take();
    /// No more events; the stream is to end.
    void close();
    bool isClosed() const;
    bool isDropped() const;

    /// The callback runs on any thread, with no lock held, when there is something to take or the
    /// client is closed.
    void setWake(std::function<void()> wake);

    OpenPaths& paths() { return m_paths; }

private:
    struct Event
    {
        std::string kind;
        std::string data;
    };

    /// With the lock held; false when nobody is to be woken.
    bool add(const std::string& kind, const std::string& data, bool isState);
    void wake();

    const std::string m_id;
    const TextCatalogue* const m_texts;
    const bool m_wantsRequests;
    OpenPaths m_paths;
    mutable std::mutex m_mutex;
    std::shared_ptr<const std::function<void()>> m_wake;
    std::deque<Event> m_events;
    std::set<std::string> m_kinds; ///< of all events so far
    bool m_isClosed = false;
    bool m_isDropped = false;
};
