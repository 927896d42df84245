#pragma once
#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QStringList>

class MprisObject;

/// The interface of the program as a whole, which has no window to raise and is ended by whoever
/// started it. Child of its object, on the same thread. Names are those of MPRIS 2.2.
class MprisRoot : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ isFalse)
    Q_PROPERTY(bool CanRaise READ isFalse)
    Q_PROPERTY(bool HasTrackList READ isFalse)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none)
public:
    explicit MprisRoot(MprisObject& object);

    bool isFalse() const { return false; }
    QString identity() const { return QStringLiteral("kelo"); }
    QStringList none() const { return {}; }

public Q_SLOTS:
    void Raise(const QDBusMessage& call);
    void Quit(const QDBusMessage& call);

private:
    MprisObject& m_object;
};
