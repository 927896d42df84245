#include "CMReply.h"

#include "KeloLog.h"
#include "KeloPost.h"

#include <algorithm>
#include <chrono>
#include <QThread>

CMVoidReplyData::~CMVoidReplyData() = default;

bool CMVoidReplyData::finish(const std::function<void()>& store, bool isByHost)
{
    std::vector<Watcher> watchers;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_isFinished) {
            const bool isLate = m_isByHost || isByHost;
            KELO_LOG("Host", DEBUG) << (isLate ? "late answer dropped" : "second answer dropped");
            // An answer after the host gave up is late; a second one of the service is a fault.
            Q_ASSERT_X(isLate, "CMReply", "a request was answered twice");
#ifdef KELO_TEST_BUILD
            if (!isLate)
                qFatal("a request was answered twice");
#endif
            return false;
        }
        store();
        m_isFinished = true;
        m_isByHost = isByHost;
        watchers.swap(m_watchers);
    }
    // Who is woken finds the work of those that run here done.
    const auto firstWatcher =
        std::stable_partition(watchers.begin(), watchers.end(),
                              [](const Watcher& watcher) { return watcher.isAnyThread; });
    std::for_each(watchers.begin(), firstWatcher, run);
    m_done.notify_all();
    std::for_each(firstWatcher, watchers.end(), run);
    return true;
}

void CMVoidReplyData::run(const Watcher& watcher)
{
    if (watcher.isAnyThread)
        return watcher.callback();
    QObject* receiver = watcher.receiver.data();
    if (!receiver)
        return;
    const bool isHere = receiver->thread() == QThread::currentThread();
    if (watcher.type == Qt::DirectConnection || (watcher.type != Qt::QueuedConnection && isHere))
        watcher.callback();
    else
        keloPost(receiver, watcher.callback);
}

void CMVoidReply::setError(const CMError& error) const
{
    if (m_data)
        m_data->finish([&] { m_data->m_error = error; });
}

bool CMVoidReply::giveUp(const CMError& error) const
{
    return m_data && m_data->finish([&] { m_data->m_error = error; }, true);
}

CMError CMVoidReply::error() const
{
    if (!m_data)
        return CMError();
    std::lock_guard<std::mutex> lock(m_data->m_mutex);
    return m_data->m_error;
}

bool CMVoidReply::isFinished() const
{
    if (!m_data)
        return false;
    std::lock_guard<std::mutex> lock(m_data->m_mutex);
    return m_data->m_isFinished;
}

bool CMVoidReply::waitForFinished(int timeoutMs) const
{
    if (!m_data)
        return true;
    std::unique_lock<std::mutex> lock(m_data->m_mutex);
    const auto isDone = [this] { return m_data->m_isFinished; };
    if (timeoutMs < 0) {
        m_data->m_done.wait(lock, isDone);
        return true;
    }
    return m_data->m_done.wait_for(lock, std::chrono::milliseconds(timeoutMs), isDone);
}

void CMVoidReply::addWatcher(QObject* receiver, std::function<void()> callback,
                             Qt::ConnectionType type) const
{
    if (!m_data)
        return;
    CMVoidReplyData::Watcher watcher{receiver, !receiver, type, std::move(callback)};
    {
        std::lock_guard<std::mutex> lock(m_data->m_mutex);
        if (!m_data->m_isFinished) {
            m_data->m_watchers.push_back(std::move(watcher));
            return;
        }
    }
    CMVoidReplyData::run(watcher);
}
