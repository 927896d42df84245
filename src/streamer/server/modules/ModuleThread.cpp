#include "ModuleThread.h"

#include <condition_variable>
#include <kelo/CMAbstractWorker.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloPost.h>
#include <kelo/KeloThrown.h>
#include <mutex>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

namespace {

constexpr std::chrono::milliseconds pollInterval{100};
const QString loopName = QStringLiteral("its event loop");

/// Of a module's thread, while its event loop runs.
struct Current
{
    QString* thrown = nullptr; ///< what an event threw, as the end of a sentence
    QEventLoop* loop = nullptr;
};
thread_local Current current;

} // namespace

struct ModuleThread::Run
{
    Load load;
    ModuleChoice choice;
    Ended ended;

    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    bool isLoaded = false;  ///< its entry is known
    bool isDone = false;    ///< the worker stands, or `problem` says why not
    bool isGivenUp = false; ///< nobody waits for the worker any more
    QString problem;
    bool isRemoved = false;             ///< quit() has taken the worker out of the tree
    CMAbstractWorker* worker = nullptr; ///< while it is published; lives on the thread
    CMAbstractWorker* left = nullptr;   ///< the worker, when the loop has ended by itself
    QEventLoop* loop = nullptr;         ///< until it has ended; lives on the thread
    QString prefix;
    QString thrown; ///< by an event; of the thread alone

    std::unique_ptr<CMAbstractWorker> make(QString* reason)
    {
        std::unique_ptr<CMAbstractWorker> made;
        const KeloWorkerCreate create = load(reason);
        if (!create)
            return made;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            isLoaded = true;
        }
        const QByteArray name = choice.name.toUtf8();
        QVariantHash settings = choice.settings;
        *reason = keloThrownBy(QStringLiteral("its worker_create"), [&] {
            made.reset(static_cast<CMAbstractWorker*>(create(name.constData(), &settings)));
        });
        if (!made && reason->isEmpty())
            *reason = QStringLiteral("its worker_create gave no worker");
        return made;
    }

    /// Why the worker cannot have its place in the tree, as the end of a sentence; empty when it
    /// stands there.
    QString place(CMAbstractWorker* made)
    {
        const QStringList prefixes = made->prefixes();
        if (prefixes.value(0).isEmpty())
            return QStringLiteral("it serves no paths");
        for (const QString& one : prefixes) {
            if (!ModuleSettings::isPrefix(one))
                return QStringLiteral("it stands at \"%1\", which is no path of one segment")
                    .arg(one);
        }
        if (!CMRoot().addWorker(made))
            return QStringLiteral("the prefix %1 is taken")
                .arg(prefixes.join(QStringLiteral(" or ")));
        prefix = prefixes.first();
        return QString();
    }

    /// False when the worker is not wanted, or cannot have its place.
    bool publish(CMAbstractWorker* made, QEventLoop* madeLoop, const QString& reason)
    {
        std::lock_guard<std::mutex> lock(mutex);
        if (isGivenUp)
            return false;
        problem = reason;
        const QString thrown = keloThrownBy(QStringLiteral("its worker"), [&] {
            if (problem.isEmpty())
                problem = place(made);
        });
        if (!thrown.isEmpty())
            problem = thrown;
        if (problem.isEmpty()) {
            worker = made;
            loop = madeLoop;
        }
        isDone = true;
        changed.notify_all();
        return problem.isEmpty();
    }

    /// The loop has ended. True when it did so by itself; the worker is out of the tree in any
    /// case.
    bool end()
    {
        std::unique_lock<std::mutex> lock(mutex);
        loop = nullptr;
        CMAbstractWorker* const published = std::exchange(worker, nullptr);
        if (!published) {
            changed.wait(lock, [this] { return isRemoved; });
            return false;
        }
        left = published;
        lock.unlock();
        CMRoot().removeWorker(published);
        return true;
    }

    void waitForQuit()
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return isRemoved; });
    }

    /// Takes the worker out of the tree, unless the loop has ended already, and ends that.
    void quit()
    {
        std::unique_lock<std::mutex> lock(mutex);
        CMAbstractWorker* const published = std::exchange(worker, nullptr);
        lock.unlock();
        if (published)
            CMRoot().removeWorker(published);
        lock.lock();
        isRemoved = true;
        changed.notify_all();
        if (loop) // behind what is queued
            keloPost(loop, [loop = loop] { loop->quit(); });
    }
};

bool ModuleThread::isCurrent()
{
    return current.loop;
}

bool ModuleThread::handle(const std::function<void()>& event)
{
    const auto [thrown, loop] = current;
    if (thrown->isEmpty())
        *thrown = keloThrownBy(loopName, event);
    if (!thrown->isEmpty())
        loop->quit();
    return true;
}

void ModuleThread::work(const std::shared_ptr<Run>& run)
{
    QEventLoop loop; // first, so that the thread has an event dispatcher
    QString reason;
    std::unique_ptr<CMAbstractWorker> worker = run->make(&reason);
    if (!run->publish(worker.get(), &loop, reason))
        return;
    current = {&run->thrown, &loop};
    reason = keloThrownBy(loopName, [&] { loop.exec(); });
    current = {};
    if (!run->thrown.isEmpty())
        reason = run->thrown;
    if (run->end()) {
        run->ended(reason.isEmpty() ? QStringLiteral("its event loop ended") : reason);
        run->waitForQuit(); // others may have got the worker from the tree just before
    }
    worker.reset();
    // What was dropped with deleteLater() goes before its thread does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString ModuleThread::start(Load load, const ModuleChoice& choice, std::chrono::milliseconds limit,
                            const IsWanted& isWanted, Ended ended)
{
    m_run = std::make_shared<Run>();
    m_run->load = std::move(load);
    m_run->choice = choice;
    m_run->ended = std::move(ended);
    m_thread = std::thread([run = m_run] { work(run); });
    pthread_setname_np(m_thread.native_handle(), choice.name.toUtf8().left(15).constData());

    const auto end = std::chrono::steady_clock::now() + limit;
    std::unique_lock<std::mutex> lock(m_run->mutex);
    while (!m_run->isDone && std::chrono::steady_clock::now() < end && isWanted())
        m_run->changed.wait_for(lock, pollInterval, [this] { return m_run->isDone; });
    m_run->isGivenUp = !m_run->isDone;
    const QString problem = m_run->problem;
    const QString step = m_run->isLoaded ? QStringLiteral("its worker_create")
                                         : QStringLiteral("its own first code");
    lock.unlock();
    if (m_run->isGivenUp) {
        m_thread.detach();
        m_isLeftBehind = true;
        if (!isWanted())
            return step + QStringLiteral(" is not waited for any longer");
        return step + QStringLiteral(" has not returned within %1 s")
                          .arg(std::chrono::duration<double>(limit).count());
    }
    if (!problem.isEmpty())
        m_thread.join();
    return problem;
}

void ModuleThread::dropQueued()
{
    std::lock_guard<std::mutex> lock(m_run->mutex);
    if (m_run->left)
        QCoreApplication::removePostedEvents(m_run->left);
}

QString ModuleThread::prefix() const
{
    std::lock_guard<std::mutex> lock(m_run->mutex);
    return m_run->prefix;
}

void ModuleThread::stop()
{
    if (!m_thread.joinable())
        return;
    m_run->quit();
    m_thread.join();
}
