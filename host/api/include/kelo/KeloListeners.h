#pragma once
#include "KeloExport.h"
#include <algorithm>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <QtGlobal>
#include <thread>
#include <vector>

/// The next number of a listener; each is given once in the process.
KELO_EXPORT quint64 keloNextListenerId();

/// Who is told of something: a registry of functions. Owned by what it tells of; every operation
/// may be called from any thread. No lock is held while a listener runs; two threads that notify at
/// the same time may be inside the same listener.
template <class... Arguments>
class KeloListeners
{
public:
    using Listener = std::function<void(const Arguments&...)>;

    /// Returns a number for remove(), which no other registry gives.
    quint64 add(Listener listener)
    {
        auto entry = std::make_shared<Entry>();
        entry->listener = std::move(listener);
        const quint64 id = keloNextListenerId();
        std::lock_guard<std::mutex> lock(m_mutex);
        m_entries.emplace(id, std::move(entry));
        return id;
    }

    /// After the return the listener does not run any more; from within the listener itself it
    /// returns at once. The caller holds no lock that the listener takes. A number that is not
    /// known changes nothing.
    void remove(quint64 id)
    {
        std::shared_ptr<Entry> entry; // released after the lock
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto found = m_entries.find(id);
        if (found == m_entries.end())
            return;
        entry = found->second;
        entry->isRemoved = true;
        m_entries.erase(found);
        const auto isOwn = [own = std::this_thread::get_id()](std::thread::id thread) {
            return thread == own;
        };
        m_left.wait(
            lock, [&] { return std::all_of(entry->running.begin(), entry->running.end(), isOwn); });
    }

    /// Calls every listener. One that is added meanwhile is not told, one that is removed no more.
    void notify(const Arguments&... arguments)
    {
        Entries entries; // released after the lock
        std::unique_lock<std::mutex> lock(m_mutex);
        entries.reserve(m_entries.size());
        for (const auto& entry : m_entries)
            entries.push_back(entry.second);
        tell(entries, lock, arguments...);
    }

    /// Calls the listeners of these numbers, those that are known, as notify() does.
    void notifyOnly(const std::vector<quint64>& ids, const Arguments&... arguments)
    {
        Entries entries; // released after the lock
        std::unique_lock<std::mutex> lock(m_mutex);
        entries.reserve(ids.size());
        for (const quint64 id : ids) {
            const auto found = m_entries.find(id);
            if (found != m_entries.end())
                entries.push_back(found->second);
        }
        tell(entries, lock, arguments...);
    }

private:
    struct Entry
    {
        Listener listener;
        std::vector<std::thread::id> running; ///< threads that are inside the listener
        bool isRemoved = false;
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;

    void tell(const Entries& entries, std::unique_lock<std::mutex>& lock,
              const Arguments&... arguments)
    {
        for (const auto& entry : entries) {
            if (entry->isRemoved)
                continue;
            entry->running.push_back(std::this_thread::get_id());
            lock.unlock();
            entry->listener(arguments...);
            lock.lock();
            auto& running = entry->running;
            running.erase(std::find(running.begin(), running.end(), std::this_thread::get_id()));
            m_left.notify_all();
        }
    }

    std::mutex m_mutex;             ///< guards all below, and the entries but for their listeners
    std::condition_variable m_left; ///< a thread has come out of a listener
    std::map<quint64, std::shared_ptr<Entry>> m_entries;
};
