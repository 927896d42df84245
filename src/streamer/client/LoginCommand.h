#pragma once

#include "client/CommandContext.h"

namespace cli {

/// `kelo login`: starts a login, shows where to confirm it and waits until it is confirmed, refused
/// or expired. Made for one run; runs on the main thread, with a second one that reads the events
/// while it lasts. The tokens stay with the streamer.
class LoginCommand
{
public:
    int run(const CommandContext& context) const;

    /// `kelo login --status`: a login that failed or ended makes it fail too.
    static int status(const CommandContext& context);
    /// `kelo logout`.
    static int logout(const CommandContext& context);

private:
    static void showPending(const CommandContext& context, const QJsonObject& pending);
};

} // namespace cli
