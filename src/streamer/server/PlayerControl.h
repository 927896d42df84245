#pragma once
#include "PlayerStatus.h"
#include <functional>
#include <kelo/CMReply.h>
#include <QVariantHash>

class KeptRows;

/// What the web API asks of the player. Every operation may be called from any thread.
class PlayerControl
{
public:
    using Listener = std::function<void(const PlayerStatus& status)>;

    virtual ~PlayerControl() = default;

    static QString staleName() { return QStringLiteral("Stale"); }

    /// The player's state now: while it plays, the position runs on.
    virtual PlayerStatus status() const = 0;
    /// Runs a command: "play" {path}, "pause", "resume", "stop", "next", "previous",
    /// "seek" {positionMs}, "volume" {percent}, "shuffle" {on}, "repeat" {mode}, "queue" {action,
    /// ...} as the web API takes it, "queueRows" {from, to}. Answered when it has taken effect;
    /// "play" when the item plays or has failed; those to the queue with what it is then. An
    /// argument that is missing or wrong is a CMError::BadRequestName() error, a version of the
    /// queue that is not the present one a staleName() error.
    virtual CMReply<QVariant> command(const QString& name, const QVariantHash& arguments) = 0;
    /// The listener is called on any thread at every change of the status (and about once a second
    /// while playing). Returns a number for removeListener(), after whose return it does not run.
    virtual quint64 addListener(Listener listener) = 0;
    virtual void removeListener(quint64 id) = 0;
    /// Where clients' reads leave the rows that may be played next.
    virtual KeptRows& keptRows() = 0;
};
