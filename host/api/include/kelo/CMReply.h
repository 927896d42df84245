#pragma once
#include "CMError.h"
#include "KeloShared.h"
#include <condition_variable>
#include <functional>
#include <mutex>
#include <QObject>
#include <QPointer>
#include <vector>

template <class T>
class CMReply;

/// Shared state of one answer. It is finished once: the first answer wins, later ones change
/// nothing and are logged, and in test builds a second answer of the service side is an assertion.
/// Its handles are the way to it.
class KELO_EXPORT CMVoidReplyData : public KeloSharedData
{
public:
    ~CMVoidReplyData() override;

private:
    friend class CMVoidReply;
    template <class>
    friend class CMReply;

    struct Watcher
    {
        QPointer<QObject>
            receiver; ///< null pointer with isAnyThread set: run on the finishing thread
        bool isAnyThread = false;
        Qt::ConnectionType type = Qt::AutoConnection;
        std::function<void()> callback;
    };

    /// Runs `store` under the lock when this is the first answer, then wakes and notifies.
    bool finish(const std::function<void()>& store, bool isByHost = false);
    static void run(const Watcher& watcher);

    mutable std::mutex m_mutex;
    mutable std::condition_variable m_done;
    bool m_isFinished = false;
    bool m_isByHost = false; ///< see CMVoidReply::giveUp()
    CMError m_error;
    std::vector<Watcher> m_watchers; ///< emptied when the reply finishes
};

/// Typed shared state of one answer.
template <class T>
class CMReplyData : public CMVoidReplyData
{
    friend class CMReply<T>;
    T m_value{};
};

/// Handle to the answer of a request, whatever its value's type. An empty handle (default
/// constructed) belongs to a request that nobody waits for: answering it does nothing. All
/// operations may be called from any thread; watchers run without a lock held.
class KELO_EXPORT CMVoidReply
{
public:
    CMVoidReply() = default;
    explicit CMVoidReply(const KeloShared<CMVoidReplyData>& data) : m_data(data) {}
    /// A handle that keeps `holder` as long as it is there; see CMRequest::servingSide().
    CMVoidReply(const KeloShared<CMVoidReplyData>& data, const KeloShared<KeloSharedData>& holder)
        : m_data(data), m_holder(holder)
    {
    }

    bool isNull() const { return !m_data; }
    /// Finishes with an error; the first answer wins.
    void setError(const CMError& error) const;
    /// Finishes with an error in the host's name: a deadline, a worker that stopped, a client that
    /// went away. False when it was finished already. An answer that comes later is no fault.
    bool giveUp(const CMError& error) const;
    /// The error; not set while unfinished and after a value.
    CMError error() const;
    bool isFinished() const;
    /// Blocks until finished; negative: no limit. Never runs an event loop. False on time-out.
    bool waitForFinished(int timeoutMs) const;
    /// Calls back once when the reply is finished, or soon when it is already: on the receiver's
    /// thread, directly when that is the finishing thread and the type is not queued. Not called
    /// when the receiver is gone. With a null receiver, or a direct connection, it runs on the
    /// finishing thread; with a null one before anybody who waits is woken.
    void addWatcher(QObject* receiver, std::function<void()> callback,
                    Qt::ConnectionType type = Qt::AutoConnection) const;

    const KeloShared<CMVoidReplyData>& data() const { return m_data; }

private:
    KeloShared<CMVoidReplyData> m_data;
    KeloShared<KeloSharedData> m_holder; ///< the serving side; null for the requester's handles
};

/// Handle to an answer that carries a value of type T.
template <class T>
class CMReply : public CMVoidReply
{
public:
    /// An empty handle.
    CMReply() = default;
    /// The typed handle of a reply; empty when its value is of another type.
    explicit CMReply(const CMVoidReply& reply)
        : CMVoidReply(dynamic_cast<CMReplyData<T>*>(reply.data().get()) ? reply : CMVoidReply())
    {
    }
    /// A fresh, unfinished reply.
    static CMReply create()
    {
        return CMReply(CMVoidReply(KeloShared<CMVoidReplyData>(new CMReplyData<T>)));
    }

    /// Finishes with a value; the first answer wins.
    void setValue(const T& value) const
    {
        if (auto* typed = typedData())
            typed->finish([&] { typed->m_value = value; });
    }
    /// The value; a default one while unfinished and after an error.
    T value() const
    {
        auto* typed = typedData();
        if (!typed)
            return T();
        std::lock_guard<std::mutex> lock(typed->m_mutex);
        return typed->m_value;
    }

private:
    CMReplyData<T>* typedData() const { return static_cast<CMReplyData<T>*>(data().get()); }
};

Q_DECLARE_METATYPE(CMVoidReply)
