#pragma once
#include "PlayItem.h"
#include "StateFile.h"

/// Keeps volume, queue and position in a file of the state folder over restarts. Owned by the
/// player's engine and used on its thread alone.
///
/// The queue is written to a new file that takes the old one's place when it is on disk. Volume and
/// position, which change all the time, stand at the head in a fixed width and are written in
/// place: one write of a few bytes that the system brings to the disk when it sees fit. That costs
/// flash memory one block per half minute or so, and nothing is ever torn. Only a cut of power
/// loses the position of the last seconds.
class PlayerStore
{
public:
    struct Kept
    {
        int volume = 100;
        PlayItem item; ///< where the queue stood; its row holds what is shown, not the address
        qint64 positionMs = 0; ///< in the item
    };

    /// An empty folder keeps nothing.
    explicit PlayerStore(const QString& stateDir);

    /// For the start. Of a later version's file the volume alone.
    Kept load();
    /// Writes when something has changed since the last time.
    void save(const Kept& kept);

private:
    /// False when there is no file any more.
    bool writeHead(const QByteArray& head) const;

    StateFile m_file;
    QByteArray m_head; ///< volume and position in the file
    QByteArray m_rest; ///< what stands behind; empty before the first write
};
