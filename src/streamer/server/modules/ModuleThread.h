#pragma once
#include "ModuleChoice.h"

#include <chrono>
#include <functional>
#include <kelo/KeloModule.h>
#include <memory>
#include <thread>

/// The thread of one module: loads it, makes its worker, publishes that and runs its event loop.
/// What the module throws ends this thread alone. Owned by Modules, used on its thread.
class ModuleThread
{
public:
    /// Gives the module's entry, on its thread: loading it runs its first code. Null with the end
    /// of a sentence in `error`.
    using Load = std::function<KeloWorkerCreate(QString* error)>;
    /// Told on the module's thread when that has come to an end by itself, with the reason.
    using Ended = std::function<void(const QString& reason)>;
    /// Whether to wait any longer; asked now and then.
    using IsWanted = std::function<bool()>;

    ModuleThread() = default;
    ~ModuleThread() { stop(); }
    ModuleThread(const ModuleThread&) = delete;
    ModuleThread& operator=(const ModuleThread&) = delete;

    /// Loads and calls the entry on a new thread and waits until the worker is published. Why it is
    /// not, as the end of a sentence; empty when it is. A thread that has not come back within the
    /// limit is left behind, and nothing of it is published later.
    QString start(Load load, const ModuleChoice& choice, std::chrono::milliseconds limit,
                  const IsWanted& isWanted, Ended ended);
    /// The first of the worker's own prefixes.
    QString prefix() const;
    /// Drops what is queued for a worker whose event loop has ended by itself. It lives until
    /// stop(), as other threads may still hold it.
    void dropQueued();
    /// Removes the worker from the tree, deletes it on its thread and ends that.
    void stop();
    /// Whether a thread is left behind, which uses the program's memory until the process ends.
    bool isLeftBehind() const { return m_isLeftBehind; }

    /// Whether the calling thread is a module's whose event loop runs.
    static bool isCurrent();
    /// Handles an event of such a thread; what is thrown ends its loop. Nothing is handled then any
    /// more. True.
    static bool handle(const std::function<void()>& event);

private:
    struct Run;
    static void work(const std::shared_ptr<Run>& run);

    std::shared_ptr<Run> m_run; ///< shared with the thread, which may outlive this
    std::thread m_thread;
    bool m_isLeftBehind = false;
};
