#pragma once

#include "client/CommandContext.h"

namespace cli {

/// `kelo rows`: prints a page of rows and, when told to follow, prints it again after each change.
/// Made for one run, used on the main thread.
struct RowsCommand
{
    QString path;
    int from = 0;
    int to = 49;
    QString roles; ///< names with commas; empty: the streamer's usual ones
    bool isFollowing = false;

    int run(const CommandContext& context) const;

    /// Asks for one page. Also how other commands read rows.
    static ApiReply fetch(ApiClient& api, const QString& path, int from, int to,
                          const QString& roles = QString());

private:
    /// Reads the page, and gives what to print of it: the document, or lines for people.
    ApiReply read(const CommandContext& context, QStringList& lines) const;
    /// Adds the values to a page that shows settings or choices; as it was when they cannot be had.
    QJsonObject withValues(ApiClient& api, QJsonObject page) const;
    int follow(const CommandContext& context) const;
};

} // namespace cli
