#pragma once
#include "PlayerStatus.h"
#include <optional>
#include <QVariantMap>

/// The player's status as properties of org.mpris.MediaPlayer2.Player, but for those that never
/// change and the position, which runs on by itself. A value type.
class MprisState
{
public:
    struct Change
    {
        QVariantMap properties;       ///< those that have another value now
        std::optional<qint64> jumpUs; ///< the position, when it moved other than by playing
    };

    /// Takes a status that was measured at a time of some steady clock.
    Change update(const PlayerStatus& status, qint64 nowMs);
    const QVariantMap& properties() const { return m_properties; }
    /// The present item's name on the bus; each one gets another.
    QString trackId() const;

private:
    QVariantMap metadataOf(const PlayerStatus& status) const;
    std::optional<qint64> jumpOf(const PlayerStatus& status, bool isSameTrack, qint64 nowMs);

    QVariantMap m_properties;
    QString m_track; ///< what tells the item from another; empty without one
    quint64 m_trackNumber = 0;
    PlayerStatus m_last;
    qint64 m_measuredMs = 0; ///< when that was so
};
