#include "CMWorkerThread.h"

#include "CMAbstractWorker.h"
#include "KeloLog.h"
#include "KeloLoopThread.h"

class CMWorkerThread::Private
{
public:
    KeloLoopThread thread;
    CMAbstractWorker* worker = nullptr; ///< lives on the thread; set while that runs
};

CMWorkerThread::CMWorkerThread() : d(new Private) {}

CMWorkerThread::~CMWorkerThread()
{
    stop();
}

CMAbstractWorker* CMWorkerThread::start(const char* name, const Factory& factory)
{
    stop();
    const auto setUp = [this, &factory] {
        std::unique_ptr<CMAbstractWorker> made(factory());
        if (made && CMRoot().addWorker(made.get()))
            d->worker = made.release();
    };
    d->thread.start(setUp, name);
    if (d->worker)
        return d->worker;
    d->thread.stop([] {});
    KELO_LOG("Host", ERROR) << "the worker " << name << " could not be started";
    return nullptr;
}

void CMWorkerThread::stop()
{
    if (!d->worker)
        return;
    CMRoot().removeWorker(d->worker);
    // In a turn of its own, after what is queued.
    d->thread.stop([this] { delete std::exchange(d->worker, nullptr); });
}
