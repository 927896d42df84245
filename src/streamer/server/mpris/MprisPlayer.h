#pragma once
#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QVariantMap>

class MprisObject;

/// The interface of the player. Child of its object, on the same thread. Names, units and what a
/// call does at the edges are those of MPRIS 2.2; positions are microseconds.
class MprisPlayer : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    // Written out, since the generated one would promise notices of the position.
    // clang-format off
    Q_CLASSINFO("D-Bus Introspection", ""
"  <interface name='org.mpris.MediaPlayer2.Player'>\n"
"    <method name='Next'/>\n"
"    <method name='Previous'/>\n"
"    <method name='Pause'/>\n"
"    <method name='PlayPause'/>\n"
"    <method name='Stop'/>\n"
"    <method name='Play'/>\n"
"    <method name='Seek'><arg direction='in' name='Offset' type='x'/></method>\n"
"    <method name='SetPosition'>\n"
"      <arg direction='in' name='TrackId' type='o'/>\n"
"      <arg direction='in' name='Position' type='x'/>\n"
"    </method>\n"
"    <method name='OpenUri'><arg direction='in' name='Uri' type='s'/></method>\n"
"    <signal name='Seeked'><arg name='Position' type='x'/></signal>\n"
"    <property name='PlaybackStatus' type='s' access='read'/>\n"
"    <property name='LoopStatus' type='s' access='readwrite'/>\n"
"    <property name='Shuffle' type='b' access='readwrite'/>\n"
"    <property name='Rate' type='d' access='readwrite'/>\n"
"    <property name='MinimumRate' type='d' access='read'/>\n"
"    <property name='MaximumRate' type='d' access='read'/>\n"
"    <property name='Metadata' type='a{sv}' access='read'>\n"
"      <annotation name='org.qtproject.QtDBus.QtTypeName' value='QVariantMap'/>\n"
"    </property>\n"
"    <property name='Volume' type='d' access='readwrite'/>\n"
"    <property name='Position' type='x' access='read'>\n"
"      <annotation name='org.freedesktop.DBus.Property.EmitsChangedSignal' value='false'/>\n"
"    </property>\n"
"    <property name='CanGoNext' type='b' access='read'/>\n"
"    <property name='CanGoPrevious' type='b' access='read'/>\n"
"    <property name='CanPlay' type='b' access='read'/>\n"
"    <property name='CanPause' type='b' access='read'/>\n"
"    <property name='CanSeek' type='b' access='read'/>\n"
"    <property name='CanControl' type='b' access='read'>\n"
"      <annotation name='org.freedesktop.DBus.Property.EmitsChangedSignal' value='false'/>\n"
"    </property>\n"
"  </interface>\n")
    // clang-format on
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QString LoopStatus READ loopStatus WRITE setLoopStatus)
    Q_PROPERTY(bool Shuffle READ shuffle WRITE setShuffle)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPause)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl)
public:
    explicit MprisPlayer(MprisObject& object);

    QString playbackStatus() const { return value("PlaybackStatus").toString(); }
    QString loopStatus() const { return value("LoopStatus").toString(); }
    /// None, Track or Playlist; anything else is ignored.
    void setLoopStatus(const QString& status);
    bool shuffle() const { return value("Shuffle").toBool(); }
    void setShuffle(bool on);
    double rate() const { return 1; }
    /// The only rate is 1; 0 means a pause.
    void setRate(double rate);
    QVariantMap metadata() const { return value("Metadata").toMap(); }
    double volume() const { return value("Volume").toDouble(); }
    void setVolume(double volume);
    qlonglong position() const;
    bool canGoNext() const { return value("CanGoNext").toBool(); }
    bool canGoPrevious() const { return value("CanGoPrevious").toBool(); }
    bool canPlay() const { return value("CanPlay").toBool(); }
    bool canPause() const { return value("CanPause").toBool(); }
    bool canSeek() const { return value("CanSeek").toBool(); }
    bool canControl() const { return true; }

public Q_SLOTS:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath& track, qlonglong position);
    void OpenUri(const QString& uri, const QDBusMessage& call);

Q_SIGNALS:
    void Seeked(qlonglong position);

private:
    QVariant value(const char* name) const;
    qint64 length() const;
    void seekTo(qint64 positionUs);

    MprisObject& m_object;
};
