#pragma once
#include <kelo/CMReply.h>
#include <map>

/// Tells the server's calls when replies of the tree are finished, and ends all waiting when the
/// server stops. No thread waits meanwhile. Owned by the web server; any thread.
class ReplyWaiter
{
public:
    using Then = std::function<void()>;

    /// `run` runs what follows on one of the server's threads.
    explicit ReplyWaiter(std::function<void(Then)> run);

    /// Runs `then` once, later, when the reply is finished: by its service, its deadline, or
    /// stop().
    void whenFinished(const CMVoidReply& reply, Then then);
    /// Finishes what is waited for with an error, now and from now on.
    void stop();

private:
    /// Kept by the replies, too, one of which may finish while the server goes.
    struct State
    {
        std::function<void(Then)> run;
        std::mutex mutex;
        std::map<quint64, CMVoidReply> waiting;
        quint64 lastId = 0;
        bool isStopped = false;
    };
    const std::shared_ptr<State> m_state = std::make_shared<State>();
};
