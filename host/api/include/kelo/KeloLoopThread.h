#pragma once
#include "KeloExport.h"
#include <chrono>
#include <functional>
#include <thread>

class QEventLoop;

/// A thread with an event loop. Owned by who has objects that live on it; for a worker of the tree
/// there is CMWorkerThread.
class KELO_EXPORT KeloLoopThread
{
public:
    KeloLoopThread() = default;
    ~KeloLoopThread();
    KeloLoopThread(const KeloLoopThread&) = delete;
    KeloLoopThread& operator=(const KeloLoopThread&) = delete;

    /// Starts the thread and runs `setUp` on it; returns when that has returned. A debugger shows
    /// the name, of at most 15 characters.
    void start(std::function<void()> setUp, const char* name = nullptr);
    /// Runs `tearDown` on the thread, then ends it. Returns when it has ended.
    void stop(std::function<void()> tearDown);
    /// As stop(), but a thread that has not come to its end within the limit is left behind: it
    /// runs `tearDown` and ends when it comes back. False then.
    bool stop(std::function<void()> tearDown, std::chrono::milliseconds limit);
    /// Runs a function on the thread in a later turn of its loop. Between start() and stop().
    void post(std::function<void()> function);
    bool isRunning() const { return m_thread.joinable(); }

private:
    std::thread m_thread;
    QEventLoop* m_loop = nullptr; ///< lives on the thread; null while that does not run
};
