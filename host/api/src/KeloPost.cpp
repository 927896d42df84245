#include "KeloPost.h"

#include "KeloShared.h"

namespace {
/// A function on its way to another thread. The shared handle pairs the sender's writes with the
/// receiver's reads, however the event queue in between is locked.
class PostedCall
{
public:
    explicit PostedCall(std::function<void()> function) : m_call(new Call(std::move(function))) {}
    void operator()() const
    {
        // A handle of its own: the sender may be the one who drops the call after it has run.
        const KeloShared<Call> call = m_call;
        call->function();
    }

private:
    struct Call : public KeloSharedData
    {
        explicit Call(std::function<void()> f) : function(std::move(f)) {}
        const std::function<void()> function;
    };
    KeloShared<Call> m_call;
};
} // namespace

void keloPost(QObject* receiver, std::function<void()> function)
{
    QMetaObject::invokeMethod(receiver, PostedCall(std::move(function)), Qt::QueuedConnection);
}
