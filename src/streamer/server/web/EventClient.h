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

/// What a stream carries beside what every one does. A plain value.
struct EventWishes
{
    bool requests = false; ///< the module's requests
    bool logins = false;   ///< the logins of all services, not of the usual one alone
};

/// The queue of one event stream: filled by whoever has news, emptied by the connection that writes
/// the stream. Shared by both. A client that does not keep up is dropped, since a stream with holes
/// would lie about the rows.
class EventClient
{
public:
    /// `id` names the stream in other calls; `texts` are in the client's language.
    explicit EventClient(std::string id, const TextCatalogue* texts = nullptr,
                         EventWishes wishes = {})
        : m_id(std::move(id)), m_texts(texts), m_wishes(wishes)
    {
    }

    const std::string& id() const { return m_id; }
    const TextCatalogue* texts() const { return m_texts; }
    const EventWishes& wishes() const { return m_wishes; }
    /// Adds an event. Of a state (`state` is its name) only the latest waits: it replaces an older
    /// one that is the last in the queue.
    void push(const std::string& kind, const std::string& data, const std::string& state = {});
    /// Adds a state as it was found when the client came, unless a newer one was faster.
    void pushFirst(const std::string& kind, const std::string& data, const std::string& state);
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
        std::string state; ///< empty: it is none
    };

    /// With the lock held; false when nobody is to be woken.
    bool add(const Event& event);
    void wake();

    const std::string m_id;
    const TextCatalogue* const m_texts;
    const EventWishes m_wishes;
    OpenPaths m_paths;
    mutable std::mutex m_mutex;
    std::shared_ptr<const std::function<void()>> m_wake;
    std::deque<Event> m_events;
    std::set<std::string> m_states; ///< that were told so far
    bool m_isClosed = false;
    bool m_isDropped = false;
};
