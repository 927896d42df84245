#pragma once
#include <kelo/CMReply.h>
#include <set>

/// Lets the server's threads wait for replies of the tree, and ends all waiting when the server
/// stops. Owned by the web server; any thread.
class ReplyWaiter
{
public:
    /// Blocks until the reply is finished: by its service, its deadline, or stop(). Returns its
    /// error.
    CMError wait(const CMVoidReply& reply);
    /// Finishes what is waited for with an error, now and from now on.
    void stop();

private:
    static void end(const CMVoidReply& reply);

    std::mutex m_mutex;
    std::multiset<CMVoidReplyData*> m_waiting; ///< kept alive by the threads that wait
    bool m_isStopped = false;
};
