#pragma once

#include "client/CommandContext.h"

#include <QJsonObject>

namespace cli {

/// `kelo watch`: keeps paths open and prints each change notice as one line. Waits for
/// a streamer that goes away. Made for one run, used on the main thread. It reads no rows.
struct WatchCommand
{
    QStringList paths; ///< empty: topPath()

    int run(const CommandContext& context) const;

    /// "close", "reset", or the changed roles with commas; fit for a terminal.
    static QString changeText(const QJsonValue& change);
};

} // namespace cli
