#pragma once
#include "PlayItem.h"

/// Keeps volume and queue in a file of the state folder over restarts. Owned by the player's engine
/// and used on its thread alone. Writes are atomic; a file that cannot be read counts as none.
class PlayerStore
{
public:
    struct Kept
    {
        int volume = 100;
        PlayItem item; ///< where the queue stood; its row holds what is shown, not the address
    };

    /// An empty folder keeps nothing.
    explicit PlayerStore(const QString& stateDir);

    Kept load() const;
    /// Writes when something has changed since the last time. A failure is logged.
    void save(const Kept& kept);

private:
    QString m_file; ///< empty: nothing is kept
    QByteArray m_written;
};
