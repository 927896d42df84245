#include "KeloPost.h"

#include <atomic>
#include <memory>
#include <QThread>

namespace
{
/// A function on its way to another thread. The flag pairs the sender's writes with the receiver's
/// reads, however the event queue in between is locked.
class PostedCall
{
public:
    explicit PostedCall(std::function<void()> function)
        : m_call(std::make_shared<Call>(std::move(function)))
    {
        m_call->isReady.store(true, std::memory_order_release);
    }
    void operator()() const
    {
        if (m_call->isReady.load(std::memory_order_acquire))
            m_call->function();
    }

private:
    struct Call
    {
        explicit Call(std::function<void()> f) : function(std::move(f)) {}
        std::function<void()> function;
        std::atomic<bool> isReady{false};
    };
    std::shared_ptr<Call> m_call;
};
}

void keloPost(QObject* receiver, std::function<void()> function)
{
    QMetaObject::invokeMethod(receiver, PostedCall(std::move(function)), Qt::QueuedConnection);
}

void keloPostOrCall(QObject* receiver, std::function<void()> function)
{
    if (receiver->thread() == QThread::currentThread())
        function();
    else
        keloPost(receiver, std::move(function));
}
