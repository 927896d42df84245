#pragma once

#include "client/Listing.h"

namespace cli {

/// What the commands of one user remember from one run to the next, in files that only the user can
/// read: what each terminal listed last, and the volume before a mute. A value; where a file cannot
/// be read or written, nothing is remembered and nothing said.
class UserState
{
public:
    /// Remembers nothing.
    UserState() = default;
    /// \p terminal names the terminal; empty: no listing is kept.
    UserState(const QString& folder, const QString& terminal);
    /// The folder and the terminal of this process.
    static UserState ofProcess();

    /// What this terminal listed last of the streamer at \p server; nothing when that was another.
    std::optional<Listing> listing(const QString& server) const;
    void keep(const Listing& listing) const;

    /// The volume that the streamer at \p server had before it was muted here; 0: it was not.
    int volumeBefore(const QString& server) const;
    /// 0 forgets it.
    void keepVolumeBefore(const QString& server, int percent) const;

private:
    QByteArray read(const QString& name) const;
    void write(const QString& name, const QByteArray& content) const;
    /// Removes the listings of terminals that were used long ago.
    void prune() const;

    QString m_folder;
    QString m_terminal;
};

} // namespace cli
