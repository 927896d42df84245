#pragma once
#include "QueueEntry.h"
#include <functional>
#include <kelo/CMReply.h>
#include <optional>
#include <QObject>

/// Has modules complete queue entries: sends the row to its pre-play path and waits for the item
/// that the module hands over through the play interface. Owned by the player's engine, lives on
/// the player's thread. A module completes one item at a time, so a newer wish waits until the
/// earlier attempt is answered, whose outcome is dropped then. What else comes from that module
/// meanwhile is kept until then: only the answer tells whether it was meant for the attempt.
class ItemResolver : public QObject
{
    Q_OBJECT
public:
    /// Gets the completed item, or an error that is set.
    using Done = std::function<void(const CMError& error, const KeloRoles& item)>;

    /// Gets an item that somebody else asked for.
    using HandOver = std::function<void(const KeloRoles& item)>;

    explicit ItemResolver(HandOver handOver) : m_handOver(std::move(handOver)) {}

    /// Asks for an entry, to start at a position. Supersedes an earlier wish. `done` runs in a
    /// later turn of the event loop.
    void resolve(const QueueEntry& entry, qint64 offsetMs, Done done);
    /// Drops the wish; its `done` does not run.
    void cancel();
    /// An item that a module handed over, for an attempt or for somebody else.
    void take(const KeloRoles& item);

private:
    struct Attempt
    {
        CMPath path; ///< of the play request; the completed item carries it
        QString role;
        QVariant value;
        Done done;
        bool isSuperseded = false;
        std::optional<KeloRoles> item;
        std::optional<KeloRoles> other; ///< the module's latest item under another path
    };

    void send();
    void onAnswered(const CMError& error);
    /// The items of that path may still come; nobody waits for them.
    void abandon(const CMPath& path);

    HandOver m_handOver;
    std::optional<Attempt> m_waiting; ///< the wish while an earlier attempt is unanswered
    std::optional<Attempt> m_sent;    ///< the attempt that a module works on
    QList<CMPath> m_abandoned;        ///< attempts that ended without their items, latest last
};
