#include "MprisState.h"
#include "TrackTitle.h"
#include <cstdlib>
#include <QDBusObjectPath>

namespace {
/// Clocks and buffers disagree by less; who seeks by less does not hear it either.
constexpr qint64 jumpMs = 500;

QString textOf(const QJsonObject& status, const char* key)
{
    return status.value(QLatin1String(key)).toString();
}

qint64 numberOf(const QJsonObject& status, const char* key)
{
    return status.value(QLatin1String(key)).toVariant().toLongLong();
}

QString trackOf(const QJsonObject& status)
{
    const QString path = textOf(status, "path");
    if (path.isEmpty())
        return {};
    const QString list = textOf(status, "list");
    const QString place =
        list.isEmpty() ? textOf(status, "title")
                       : list + QLatin1Char('\n') + QString::number(numberOf(status, "index"));
    return path + QLatin1Char('\n') + place;
}

/// An item that is still being resolved counts as playing: what one may do with it is the same.
QString playbackStatusOf(const QString& state)
{
    if (state == QLatin1String("paused"))
        return QStringLiteral("Paused");
    return state == QLatin1String("stopped") ? QStringLiteral("Stopped")
                                             : QStringLiteral("Playing");
}
} // namespace

MprisState::Change MprisState::update(const QJsonObject& status, qint64 nowMs)
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
    const QString state = textOf(status, "state");
    const bool hasItem = !track.isEmpty();
    const bool hasList = !textOf(status, "list").isEmpty();
    const QVariantMap properties{
        {QStringLiteral("PlaybackStatus"), playbackStatusOf(state)},
        {QStringLiteral("Metadata"), metadataOf(status)},
        {QStringLiteral("Volume"), double(numberOf(status, "volume")) / 100},
        {QStringLiteral("CanGoNext"), hasList},
        {QStringLiteral("CanGoPrevious"), hasList},
        {QStringLiteral("CanPlay"), hasItem},
        {QStringLiteral("CanPause"), hasItem},
        {QStringLiteral("CanSeek"), hasItem && state != QLatin1String("resolving")},
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

QVariantMap MprisState::metadataOf(const QJsonObject& status) const
{
    QVariantMap metadata{
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(trackId()))}};
    if (m_track.isEmpty())
        return metadata;
    const auto insert = [&metadata](const char* key, const QString& text) {
        if (!text.isEmpty())
            metadata.insert(QLatin1String(key), text);
    };
    const QString artist = textOf(status, "artist");
    insert("xesam:title", titleWithoutArtist(textOf(status, "title"), artist));
    insert("xesam:album", textOf(status, "album"));
    insert("mpris:artUrl", textOf(status, "icon"));
    if (!artist.isEmpty())
        metadata.insert(QStringLiteral("xesam:artist"), QStringList{artist});
    const qint64 durationMs = numberOf(status, "durationMs");
    if (durationMs > 0)
        metadata.insert(QStringLiteral("mpris:length"), durationMs * 1000);
    return metadata;
}

std::optional<qint64> MprisState::jumpOf(const QJsonObject& status, bool isSameTrack, qint64 nowMs)
{
    const qint64 position = numberOf(status, "positionMs");
    const qint64 expected = m_positionMs + (m_isRunning ? nowMs - m_measuredMs : 0);
    m_isRunning = textOf(status, "state") == QLatin1String("playing");
    m_positionMs = position;
    m_measuredMs = nowMs;
    if (!isSameTrack || std::llabs(position - expected) < jumpMs)
        return {};
    return position * 1000;
}
