#pragma once
#include <kelo/CMError.h>
#include <kelo/KeloActionReply.h>

/// An error of the content, and one of playing an item.
inline CMError tidalError(const TrString& message)
{
    return CMError(QStringLiteral("TIDAL"), message);
}
inline CMError playError(const TrString& message)
{
    return CMError(QStringLiteral("Error"), message);
}

/// The reply of a finished action: clients are to reload the rows at the paths, in that order. An
/// empty path stands for no list.
inline KeloActionReply tidalActionReply(const QList<CMPath>& paths)
{
    QList<KeloEvent> events;
    events.reserve(paths.size());
    for (const CMPath& path : paths) {
        if (path.isEmpty())
            continue;
        events.append(KeloEvent(KeloEventRowsType::Reload_, path));
    }
    KeloActionReply reply;
    reply.setXclass(QStringLiteral("KeloActionReply"));
    reply.setEvents(events);
    return reply;
}
