#pragma once

#include "client/CommandContext.h"

namespace cli {

/// Reads events with \p paths open, for a command that goes on until it is interrupted. A streamer
/// that goes away is waited for: the person is told, it is tried again and again, and \p onOpen is
/// called anew when it is back, since everything may have changed by then. A streamer that is not
/// there at the start, or refuses, ends it. Ends when \p onEvent returns false. \p more says what
/// else is wanted of the stream.
[[nodiscard]] ApiReply follow(const CommandContext& context, const QStringList& paths,
                              const std::function<void()>& onOpen,
                              const std::function<bool(const ServerEvent&)>& onEvent,
                              const Query& more = {});

/// What a notice says has changed: "close", "reset", or the changed roles with commas; fit for a
/// terminal.
QString changeText(const QJsonValue& change);

} // namespace cli
