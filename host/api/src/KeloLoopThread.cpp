#include "KeloLoopThread.h"

#include "KeloPost.h"

#include <future>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

KeloLoopThread::~KeloLoopThread()
{
    if (isRunning())
        stop([] {});
}

void KeloLoopThread::start(std::function<void()> setUp, const char* name)
{
    std::promise<QEventLoop*> ready;
    std::future<QEventLoop*> started = ready.get_future();
    m_thread = std::thread([&ready, setUp = std::move(setUp)] {
        QEventLoop loop; // first, so that the thread has an event dispatcher
        setUp();
        ready.set_value(&loop);
        loop.exec();
        // What was dropped with deleteLater() goes before its thread does.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    });
    if (name)
        pthread_setname_np(m_thread.native_handle(), name);
    m_loop = started.get();
}

void KeloLoopThread::stop(std::function<void()> tearDown)
{
    post([loop = m_loop, tearDown = std::move(tearDown)] {
        tearDown();
        loop->quit();
    });
    m_thread.join();
    m_loop = nullptr;
}

bool KeloLoopThread::stop(std::function<void()> tearDown, std::chrono::milliseconds limit)
{
    const auto ended = std::make_shared<std::promise<void>>();
    const std::future<void> end = ended->get_future();
    post([loop = m_loop, tearDown = std::move(tearDown), ended] {
        tearDown();
        loop->quit();
        ended->set_value();
    });
    m_loop = nullptr;
    const bool isEnded = end.wait_for(limit) == std::future_status::ready;
    if (isEnded)
        m_thread.join();
    else
        m_thread.detach();
    return isEnded;
}

void KeloLoopThread::post(std::function<void()> function)
{
    keloPost(m_loop, std::move(function));
}
