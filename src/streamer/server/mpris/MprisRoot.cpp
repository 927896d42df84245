#include "MprisRoot.h"
#include "MprisObject.h"

MprisRoot::MprisRoot(MprisObject& object) : QDBusAbstractAdaptor(&object), m_object(object) {}

void MprisRoot::Raise(const QDBusMessage& call)
{
    m_object.refuse(call, QStringLiteral("there is no window"));
}

void MprisRoot::Quit(const QDBusMessage& call)
{
    m_object.refuse(call, QStringLiteral("the streamer is ended by whoever started it"));
}
