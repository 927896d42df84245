#pragma once
#include "AudioOutput.h"
#include "PlayerStatus.h"
#include "QueueEntry.h"

/// An item of the player: its entry in the queue and, once a module has completed it, its address.
/// A value type.
struct PlayItem : ShownItem
{
    QueueEntry entry;
    QString uri; ///< empty until the item is completed
    qint64 startMs = 0;
    qint64 maxIdleMs = 0;   ///< longest pause after which the address is good; 0 when not said
    bool isRetry = false;   ///< an earlier address of the item failed
    bool isSkipped = false; ///< passed over when it fails before it starts; else its command fails

    /// What is known before a module has completed the entry.
    static PlayItem ofEntry(const QueueEntry& entry);
    /// The item that a module completed for an entry.
    static PlayItem completed(const KeloRoles& item, const QueueEntry& entry);

    OutputItem forOutput() const { return {uri, startMs, durationMs}; }
    /// The title, or what else names the item.
    QString name() const;
};
