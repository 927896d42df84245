#pragma once
#include <condition_variable>
#include <deque>
#include <functional>
#include <httplib.h>
#include <mutex>
#include <thread>
#include <vector>

/// The threads that serve connections, for the HTTP library, which owns it and adds tasks on its
/// accepting thread. As many as the system gives, unlike the library's own pool, which ends the
/// program when one is missing; without any, connections are served where they are accepted.
class ServingThreads : public httplib::TaskQueue
{
public:
    explicit ServingThreads(std::size_t wanted);
    ~ServingThreads() override;

    void enqueue(std::function<void()> task) override;
    /// Returns when the tasks that are queued have run. May be called twice.
    void shutdown() override;

private:
    void work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_tasks;
    bool m_isStopping = false;
    std::vector<std::thread> m_threads;
};
