#pragma once
#include "QueueEntry.h"
#include <functional>
#include <kelo/CMReply.h>
#include <optional>
#include <QObject>

/// Has modules complete queue entries: sends the row to its pre-play path and waits for the item
/// that the module hands over through the play interface. Owned by the player's engine, lives on
/// the player's thread. A module completes one item at a time, so a newer wish waits until the
/// earlier attempt is answered, whose outcome is dropped then.
class ItemResolver : public QObject
{
    Q_OBJECT
public:
    /// Gets the completed item, or an error that is set.
    using Done = std::function<void(const CMError& error, const KeloRoles& item)>;

    /// Asks for an entry, to start at a position. Supersedes an earlier wish. `done` runs in a
    /// later turn of the event loop.
    void resolve(const QueueEntry& entry, qint64 offsetMs, Done done);
    /// Drops the wish; its `done` does not run.
    void cancel();
    /// Tells the resolver of an item that a module handed over; false when somebody else asked for
    /// it.
    bool take(const KeloRoles& item);

private:
    struct Attempt
    {
        CMPath path; ///< of the play request; the completed item carries it
        QString role;
        QVariant value;
        Done done;
        bool isSuperseded = false;
        std::optional<KeloRoles> item;
    };

    void send();
    void onAnswered(const CMError& error);

    std::optional<Attempt> m_waiting; ///< the wish while an earlier attempt is unanswered
    std::optional<Attempt> m_sent;    ///< the attempt that a module works on
    QList<CMPath> m_abandoned;        ///< attempts that ran out of time; their items may still come
};
