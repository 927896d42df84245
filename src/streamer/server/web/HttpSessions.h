#pragma once
#include <chrono>
#include <condition_variable>
#include <list>
#include <map>
#include <memory>
#include <mutex>

class HttpSession;

/// The open connections of a server, in the order in which they fell idle. Any thread.
class HttpSessions
{
public:
    /// Adds an idle connection; of more than `most` the longest idle one is closed.
    void add(const std::shared_ptr<HttpSession>& session, size_t most);
    void remove(const HttpSession* session);
    /// The connection waits for its next request, or has one. False when it is to end instead.
    bool setIdle(const HttpSession* session, bool isIdle);
    /// Closes those that are idle, now and from now on.
    void stop();
    void closeAll();
    bool waitUntilEmpty(std::chrono::milliseconds patience);

private:
    struct Entry
    {
        std::shared_ptr<HttpSession> session;
        bool isIdle;
    };

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::list<Entry> m_entries; ///< who fell idle first stands first
    std::map<const HttpSession*, std::list<Entry>::iterator> m_places;
    bool m_isStopping = false;
};
