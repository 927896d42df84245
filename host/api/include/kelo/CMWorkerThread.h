#pragma once
#include "KeloLoopThread.h"

class CMAbstractWorker;

/// A thread with an event loop that one worker lives on. Made and stopped by the program.
class KELO_EXPORT CMWorkerThread
{
public:
    using Factory = std::function<CMAbstractWorker*()>;

    CMWorkerThread() = default;
    /// Stops.
    ~CMWorkerThread() { stop(); }

    /// Starts the thread, makes the worker on it, and adds it to the root once the factory has
    /// returned. Blocks until then. Returns the worker, owned here; null when the factory gave none
    /// or the root refused it.
    CMAbstractWorker* start(const char* name, const Factory& factory);
    /// Removes the worker from the root, deletes it on its thread and ends the thread.
    void stop();

private:
    KeloLoopThread m_thread;
    CMAbstractWorker* m_worker = nullptr; ///< lives on the thread; set while that runs
};
