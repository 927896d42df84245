#pragma once

#include "client/CommandContext.h"
#include "client/StatusView.h"

namespace cli {

/// Tells the player something and prints what it does then. \p action is the last segment of the
/// call's path, \p body what goes with it, JSON.
int tellPlayer(const CommandContext& context, const QString& action, const QByteArray& body = "{}");

/// Prints a line of what the player does now.
int showPlayer(const CommandContext& context,
               const std::function<QString(const StatusView&)>& line);

} // namespace cli
