#include "HttpSessions.h"

#include "HttpSession.h"

#include <algorithm>

void HttpSessions::add(const std::shared_ptr<HttpSession>& session, size_t most)
{
    std::shared_ptr<HttpSession> oldest;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_entries.size() >= most) {
            const auto idle = std::find_if(m_entries.begin(), m_entries.end(),
                                           [](const Entry& entry) { return entry.isIdle; });
            oldest = idle == m_entries.end() ? session : idle->session;
        }
        m_places[session.get()] = m_entries.insert(m_entries.end(), {session, true});
    }
    if (oldest)
        oldest->close();
}

void HttpSessions::remove(const HttpSession* session)
{
    std::shared_ptr<HttpSession> kept; // its end takes no lock
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto place = m_places.find(session);
    if (place == m_places.end())
        return;
    kept = place->second->session;
    m_entries.erase(place->second);
    m_places.erase(place);
    m_changed.notify_all();
}

bool HttpSessions::setIdle(const HttpSession* session, bool isIdle)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto place = m_places.find(session);
    if (place == m_places.end() || (m_isStopping && isIdle))
        return false;
    place->second->isIdle = isIdle;
    m_entries.splice(m_entries.end(), m_entries, place->second);
    return true;
}

void HttpSessions::stop()
{
    std::vector<std::shared_ptr<HttpSession>> idle;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
        for (const Entry& entry : m_entries) {
            if (entry.isIdle)
                idle.push_back(entry.session);
        }
    }
    for (const auto& session : idle)
        session->close();
}

void HttpSessions::closeAll()
{
    std::list<Entry> entries;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        entries = m_entries;
    }
    for (const Entry& entry : entries)
        entry.session->close();
}

bool HttpSessions::waitUntilEmpty(std::chrono::milliseconds patience)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, patience, [this] { return m_entries.empty(); });
}
