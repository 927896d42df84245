#pragma once

#include "client/CommandContext.h"

#include <optional>

namespace cli {

/// The commands that tell the player something and print what it does then: play, pause, resume,
/// stop, next, previous, seek, volume. Made for one run, used on the main thread.
struct PlayerCommand
{
    QString action;         ///< the last segment of the call's path
    QByteArray body = "{}"; ///< what goes with it, JSON

    int run(const CommandContext& context) const;

    /// \p path may be a row's path, a list's, or a track id.
    static PlayerCommand play(const QString& path);
    static PlayerCommand volume(int percent);
};

/// `kelo seek`: to a place in the track, or on and back from where it is. Made for one run, used on
/// the main thread.
struct SeekCommand
{
    QString place;

    int run(const CommandContext& context) const;

    /// Reads "90", "1:30", "1:02:03", fractions of the last part allowed, with "+" or "-" in front
    /// when \p isRelative. Milliseconds; nothing when the text is no such time.
    static std::optional<qint64> parse(const QString& text, bool& isRelative);
};

/// `kelo status`: what the player does, once or until interrupted. Made for one run, used on the
/// main thread.
struct StatusCommand
{
    bool isFollowing = false;

    int run(const CommandContext& context) const;

private:
    int follow(const CommandContext& context) const;
};

} // namespace cli
