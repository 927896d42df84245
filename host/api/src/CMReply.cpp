#include "CMReply.h"

#include "KeloLog.h"
#include "KeloPost.h"

#include <algorithm>
#include <chrono>
#include <QThread>

CMVoidReplyData::~CMVoidReplyData() = default;

bool CMVoidReplyData::isFinished() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_finished;
}

CMError CMVoidReplyData::error() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_error;
}

bool CMVoidReplyData::waitForFinished(int timeoutMs) const
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto isDone = [this] { return m_finished; };
    if (timeoutMs < 0) {
        m_done.wait(lock, isDone);
        return true;
    }
    return m_done.wait_for(lock, std::chrono::milliseconds(timeoutMs), isDone);
}

bool CMVoidReplyData::finishWithError(const CMError& error, Origin origin)
{
    return finish([&] { m_error = error; }, origin);
}

bool CMVoidReplyData::finish(const std::function<void()>& store, Origin origin)
{
    std::vector<Watcher> watchers;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_finished) {
            const bool isLate = m_origin == Origin::Host || origin == Origin::Host;
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
        m_finished = true;
        m_origin = origin;
        watchers.swap(m_watchers);
    }
    // Who is woken finds the hooks' work done.
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
    if (watcher.isAnyThread) {
        watcher.callback();
    } else if (QObject* receiver = watcher.receiver.data()) {
        if (watcher.type == Qt::DirectConnection)
            watcher.callback();
        else if (watcher.type == Qt::QueuedConnection)
            keloPost(receiver, watcher.callback);
        else
            keloPostOrCall(receiver, watcher.callback);
    }
}

void CMVoidReplyData::addWatcher(QObject* receiver, std::function<void()> callback,
                                 Qt::ConnectionType type)
{
    Watcher watcher;
    watcher.receiver = receiver;
    watcher.isAnyThread = !receiver;
    watcher.type = type;
    watcher.callback = std::move(callback);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_finished) {
            m_watchers.push_back(std::move(watcher));
            return;
        }
    }
    run(watcher);
}

void CMVoidReplyData::addHook(std::function<void()> hook)
{
    Watcher watcher;
    watcher.isAnyThread = true;
    watcher.callback = std::move(hook);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_finished) {
            m_watchers.insert(m_watchers.begin(), std::move(watcher));
            return;
        }
    }
    run(watcher);
}

void CMVoidReply::setError(const CMError& error) const
{
    if (m_data)
        m_data->finishWithError(error, CMVoidReplyData::Origin::Service);
}

CMError CMVoidReply::error() const
{
    return m_data ? m_data->error() : CMError();
}

bool CMVoidReply::isFinished() const
{
    return m_data && m_data->isFinished();
}

bool CMVoidReply::waitForFinished(int timeoutMs) const
{
    return !m_data || m_data->waitForFinished(timeoutMs);
}

void CMVoidReply::addWatcher(QObject* receiver, std::function<void()> callback,
                             Qt::ConnectionType type) const
{
    if (m_data)
        m_data->addWatcher(receiver, std::move(callback), type);
}
