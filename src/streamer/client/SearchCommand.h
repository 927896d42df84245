#pragma once

#include "client/CommandContext.h"

#include <QMap>

namespace cli {

/// `kelo search`: finds the search lists by walking the tree from the service's top node, puts the
/// text into them and prints their rows. Made for one run, used on the main thread.
struct SearchCommand
{
    QString text;
    QString kind; ///< one of kinds(); empty: the first rows of all four

    int run(const CommandContext& context) const;

    static QStringList kinds();

private:
    /// Kind -> encoded path of its list for the text.
    using Lists = QMap<QString, QString>;

    [[nodiscard]] ApiReply findLists(ApiClient& api, Lists& lists) const;
    int printOne(const CommandContext& context, const QString& path) const;
    int printAll(const CommandContext& context, const Lists& lists) const;
};

} // namespace cli
