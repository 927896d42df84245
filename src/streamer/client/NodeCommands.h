#pragma once

#include "client/CommandContext.h"

namespace cli {

/// `kelo data`: prints a node's data roles, one per line. Made for one run, used on the main
/// thread.
struct DataCommand
{
    QString path;
    QString roles; ///< names with commas; empty: the streamer's usual ones

    int run(const CommandContext& context) const;
};

/// `kelo set`: sends a value to a node and prints what it replied. Made for one run, used on the
/// main thread.
struct SetCommand
{
    QString path;
    QString value = QStringLiteral("1"); ///< JSON of any kind, sent as it is written

    int run(const CommandContext& context) const;
};

} // namespace cli
