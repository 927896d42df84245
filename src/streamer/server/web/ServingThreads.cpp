#include "ServingThreads.h"

#include <kelo/KeloLog.h>
#include <system_error>

ServingThreads::ServingThreads(std::size_t wanted)
{
    m_threads.reserve(wanted);
    try {
        while (m_threads.size() < wanted)
            m_threads.emplace_back([this] { work(); });
    } catch (const std::system_error& error) {
        KELO_LOG("Web", ERROR) << "Clients are served by " << int(m_threads.size())
                               << " threads alone: " << error.what();
    }
}

ServingThreads::~ServingThreads()
{
    shutdown();
}

void ServingThreads::enqueue(std::function<void()> task)
{
    if (m_threads.empty()) {
        task();
        return;
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_changed.notify_one();
}

void ServingThreads::shutdown()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
    m_threads.clear();
}

void ServingThreads::work()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_isStopping || !m_tasks.empty(); });
        if (m_tasks.empty())
            return;
        const std::function<void()> task = std::move(m_tasks.front());
        m_tasks.pop_front();
        lock.unlock();
        task();
        lock.lock();
    }
}
