#include "CMWorkerThread.h"

#include "CMAbstractWorker.h"
#include "KeloLog.h"
#include "KeloPost.h"

#include <condition_variable>
#include <mutex>
#include <QEventLoop>
#include <thread>

class CMWorkerThread::Private
{
public:
    enum class Phase { Idle, Starting, Running, Failed };

    std::thread thread;
    std::mutex mutex;
    std::condition_variable changed;
    Phase phase = Phase::Idle;
    CMAbstractWorker* worker = nullptr;
    QEventLoop* loop = nullptr; ///< on the thread's stack; set while running

    void run(const Factory& factory)
    {
        QEventLoop eventLoop;
        std::unique_ptr<CMAbstractWorker> made(factory());
        const bool isAdded = made && CMRoot().addWorker(made.get());
        {
            std::lock_guard<std::mutex> lock(mutex);
            phase = isAdded ? Phase::Running : Phase::Failed;
            worker = isAdded ? made.get() : nullptr;
            loop = &eventLoop;
            changed.notify_all();
        }
        if (isAdded)
            eventLoop.exec();
    }
};

CMWorkerThread::CMWorkerThread() : d(new Private) {}

CMWorkerThread::~CMWorkerThread()
{
    stop();
}

CMAbstractWorker* CMWorkerThread::start(const char* name, const Factory& factory)
{
    stop();
    std::unique_lock<std::mutex> lock(d->mutex);
    d->phase = Private::Phase::Starting;
    d->thread = std::thread([this, factory] { d->run(factory); });
    pthread_setname_np(d->thread.native_handle(), name);
    d->changed.wait(lock, [this] { return d->phase != Private::Phase::Starting; });
    if (d->phase == Private::Phase::Running)
        return d->worker;
    lock.unlock();
    d->thread.join();
    d->phase = Private::Phase::Idle;
    KELO_LOG("Host", ERROR) << "the worker " << name << " could not be started";
    return nullptr;
}

void CMWorkerThread::stop()
{
    if (!d->thread.joinable())
        return;
    CMRoot().removeWorker(d->worker);
    // The loop quits in a turn of its own, after what is queued; then the worker goes, on its
    // thread.
    keloPost(d->worker, [this] { d->loop->quit(); });
    d->thread.join();
    d->worker = nullptr;
    d->loop = nullptr;
    d->phase = Private::Phase::Idle;
}
