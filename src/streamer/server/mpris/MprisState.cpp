#include "MprisState.h"
#include "TrackTitle.h"
#include <cstdlib>
#include <QDBusObjectPath>

namespace {
/// Clocks and buffers disagree by less; who seeks by less does not hear it either.
constexpr qint64 jumpMs = 500;

/// What tells the item from another; empty without one.
QString trackOf(const PlayerStatus& status)
{
    if (status.item.path.isEmpty())
        return {};
    const QString place = status.list.isEmpty() ? status.item.title
                                                : status.list.toEncoded() + QLatin1Char('\n') +
                                                      QString::number(status.index);
    return status.item.path.toEncoded() + QLatin1Char('\n') + place;
}

QString loopStatusOf(const QString& repeat)
{
    return repeat == QLatin1String("one")   ? QStringLiteral("Track")
           : repeat == QLatin1String("all") ? QStringLiteral("Playlist")
                                            : QStringLiteral("None");
}

/// An item that is still being resolved counts as playing: what one may do with it is the same.
QString playbackStatusOf(PlayerStatus::State state)
{
    if (state == PlayerStatus::State::Paused)
        return QStringLiteral("Paused");
    return state == PlayerStatus::State::Stopped ? QStringLiteral("Stopped")
                                                 : QStringLiteral("Playing");
}
} // namespace

MprisState::Change MprisState::update(const PlayerStatus& status, qint64 nowMs)
{
    // Without it variants compare the addresses of their values.
    static const bool canCompare = QMetaType::registerEqualsComparator<QDBusObjectPath>();
    Q_UNUSED(canCompare)

    const QString track = trackOf(status);
    const bool isSameTrack = track == m_track;
    if (!isSameTrack) {
        m_track = track;
        ++m_trackNumber;
    }
    const bool hasItem = !track.isEmpty();
    const bool hasList = !status.list.isEmpty();
    const bool hasNext = hasList || status.queueRows > 0;
    const QVariantMap properties{
        {QStringLiteral("PlaybackStatus"), playbackStatusOf(status.state)},
        {QStringLiteral("Metadata"), metadataOf(status)},
        {QStringLiteral("Volume"), double(status.volume) / 100},
        {QStringLiteral("Shuffle"), status.isShuffled},
        {QStringLiteral("LoopStatus"), loopStatusOf(status.repeat)},
        {QStringLiteral("CanGoNext"), hasNext},
        {QStringLiteral("CanGoPrevious"), hasList},
        {QStringLiteral("CanPlay"), hasItem || hasNext},
        {QStringLiteral("CanPause"), hasItem},
        {QStringLiteral("CanSeek"), hasItem && status.state != PlayerStatus::State::Resolving},
    };
    Change change;
    for (auto it = properties.begin(); it != properties.end(); ++it)
        if (m_properties.value(it.key()) != it.value())
            change.properties.insert(it.key(), it.value());
    m_properties = properties;
    change.jumpUs = jumpOf(status, isSameTrack, nowMs);
    return change;
}

QString MprisState::trackId() const
{
    return m_track.isEmpty() ? QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack")
                             : QStringLiteral("/org/kelo/track/%1").arg(m_trackNumber);
}

QVariantMap MprisState::metadataOf(const PlayerStatus& status) const
{
    QVariantMap metadata{
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(trackId()))}};
    if (m_track.isEmpty())
        return metadata;
    const auto insert = [&metadata](const char* key, const QString& text) {
        if (!text.isEmpty())
            metadata.insert(QLatin1String(key), text);
    };
    const ShownItem& item = status.item;
    insert("xesam:title", titleWithoutArtist(item.title, item.artist));
    insert("xesam:album", item.album);
    insert("mpris:artUrl", item.icon);
    if (!item.artist.isEmpty())
        metadata.insert(QStringLiteral("xesam:artist"), QStringList{item.artist});
    if (item.durationMs > 0)
        metadata.insert(QStringLiteral("mpris:length"), item.durationMs * 1000);
    return metadata;
}

std::optional<qint64> MprisState::jumpOf(const PlayerStatus& status, bool isSameTrack, qint64 nowMs)
{
    const bool wasRunning = m_last.state == PlayerStatus::State::Playing;
    const qint64 expected = m_last.positionMs + (wasRunning ? nowMs - m_measuredMs : 0);
    m_last = status;
    m_measuredMs = nowMs;
    if (!isSameTrack || std::llabs(status.positionMs - expected) < jumpMs)
        return {};
    return status.positionMs * 1000;
}
