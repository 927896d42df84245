#include "CMWorkerThread.h"

#include "CMAbstractWorker.h"
#include "KeloLog.h"

CMAbstractWorker* CMWorkerThread::start(const char* name, const Factory& factory)
{
    stop();
    const auto setUp = [this, &factory] {
        std::unique_ptr<CMAbstractWorker> made(factory());
        if (made && CMRoot().addWorker(made.get()))
            m_worker = made.release();
    };
    m_thread.start(setUp, name);
    if (m_worker)
        return m_worker;
    m_thread.stop([] {});
    KELO_LOG("Host", ERROR) << "the worker " << name << " could not be started";
    return nullptr;
}

void CMWorkerThread::stop()
{
    if (!m_worker)
        return;
    CMRoot().removeWorker(m_worker);
    // In a turn of its own, after what is queued.
    m_thread.stop([this] { delete std::exchange(m_worker, nullptr); });
}
