#pragma once
#include "PlayQueue.h"

/// Keeps the play queue in a file of the state folder over restarts. Owned by the player's engine
/// and used on its thread alone. A file that is none is put aside, so that nothing is lost that
/// somebody may want to look at.
class QueueStore
{
public:
    struct Kept
    {
        std::optional<PlayQueue> queue; ///< nothing where none is kept
        QString putAside;               ///< name of the file that could not be read
    };

    /// An empty folder keeps nothing.
    explicit QueueStore(const QString& stateDir);

    /// For the start. No version of this queue was given out before, whatever `nowMs`, the time
    /// since 1970, says.
    Kept load(qint64 nowMs) const;
    /// Writes when something has changed since the last time. A failure is logged.
    void save(const PlayQueue& queue);

private:
    QString m_file;      ///< empty: nothing is kept
    QByteArray m_digest; ///< of what is in the file; empty before the first write
};
