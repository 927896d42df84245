#include "settings/Secret.h"

QString Secret::masked() const
{
    return m_text.isEmpty() ? QString() : "***";
}

QDebug operator<<(QDebug debug, const Secret& secret)
{
    QDebugStateSaver saver(debug);
    debug.nospace().noquote() << secret.masked();
    return debug;
}
