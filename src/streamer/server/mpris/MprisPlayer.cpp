#include "MprisPlayer.h"
#include "MprisObject.h"
#include <algorithm>
#include <cmath>

MprisPlayer::MprisPlayer(MprisObject& object) : QDBusAbstractAdaptor(&object), m_object(object) {}

QVariant MprisPlayer::value(const char* name) const
{
    return m_object.state().properties().value(QLatin1String(name));
}

qint64 MprisPlayer::length() const
{
    return metadata().value(QStringLiteral("mpris:length")).toLongLong();
}

void MprisPlayer::setLoopStatus(const QString& status)
{
    static const QHash<QString, QString> modes{{QStringLiteral("None"), QStringLiteral("off")},
                                               {QStringLiteral("Track"), QStringLiteral("one")},
                                               {QStringLiteral("Playlist"), QStringLiteral("all")}};
    if (modes.contains(status))
        m_object.command(QStringLiteral("repeat"), {{QStringLiteral("mode"), modes.value(status)}});
}

void MprisPlayer::setShuffle(bool on)
{
    m_object.command(QStringLiteral("shuffle"), {{QStringLiteral("on"), on}});
}

void MprisPlayer::setRate(double rate)
{
    if (rate == 0)
        Pause();
}

void MprisPlayer::setVolume(double volume)
{
    if (std::isnan(volume))
        return;
    const int percent = int(std::lround(qBound(0.0, volume, 1.0) * 100));
    m_object.command(QStringLiteral("volume"), {{QStringLiteral("percent"), percent}});
}

qlonglong MprisPlayer::position() const
{
    return m_object.positionUs();
}

void MprisPlayer::Next()
{
    if (canGoNext())
        m_object.command(QStringLiteral("next"));
}

void MprisPlayer::Previous()
{
    if (canGoPrevious())
        m_object.command(QStringLiteral("previous"));
}

void MprisPlayer::Pause()
{
    if (playbackStatus() == QLatin1String("Playing"))
        m_object.command(QStringLiteral("pause"));
}

void MprisPlayer::PlayPause()
{
    if (playbackStatus() == QLatin1String("Playing"))
        Pause();
    else
        Play();
}

void MprisPlayer::Stop()
{
    m_object.command(QStringLiteral("stop"));
}

void MprisPlayer::Play()
{
    if (canPlay())
        m_object.command(QStringLiteral("resume"));
}

void MprisPlayer::Seek(qlonglong offset)
{
    const qint64 position = m_object.positionUs();
    const qint64 wanted = offset < 0 ? std::max<qint64>(-position, offset) + position
                                     : position + std::min<qint64>(offset, INT64_MAX - position);
    if (length() > 0 && wanted > length())
        Next();
    else
        seekTo(wanted);
}

void MprisPlayer::SetPosition(const QDBusObjectPath& track, qlonglong position)
{
    const bool isInside = position >= 0 && (length() == 0 || position <= length());
    if (track.path() == m_object.state().trackId() && isInside)
        seekTo(position);
}

void MprisPlayer::seekTo(qint64 positionUs)
{
    if (canSeek())
        m_object.command(QStringLiteral("seek"),
                         {{QStringLiteral("positionMs"), positionUs / 1000}});
}

void MprisPlayer::OpenUri(const QString&, const QDBusMessage& call)
{
    m_object.refuse(call, QStringLiteral("nothing is played by its address"));
}
