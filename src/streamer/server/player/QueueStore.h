#pragma once
#include "PlayQueue.h"
#include "StateFile.h"
#include <kelo/TrString.h>

/// Keeps the play queue in a file of the state folder over restarts. Owned by the player's engine
/// and used on its thread alone.
class QueueStore
{
public:
    struct Kept
    {
        std::optional<PlayQueue> queue; ///< nothing where none is kept
        TrString note;                  ///< what people should know of the file
    };

    /// An empty folder keeps nothing.
    explicit QueueStore(const QString& stateDir);

    /// For the start. No version of this queue was given out before, whatever `nowMs`, the time
    /// since 1970, says.
    Kept load(qint64 nowMs);
    /// Writes when something has changed since the last time. The first failure of a row is told to
    /// people; empty when there is nothing to tell.
    [[nodiscard]] TrString save(const PlayQueue& queue);

private:
    TrString notKept() const;

    StateFile m_file;
    QByteArray m_digest; ///< of what is in the file; empty before the first write
};
