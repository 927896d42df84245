#pragma once

#include "client/CommandContext.h"

#include <QJsonArray>
#include <QSet>

namespace cli {

/// `kelo tree`: the tree as an indented outline, found by reading rows. Made for one run, used on
/// the main thread. Each container is read once, at most rowsPerLevel rows of it.
class TreeCommand
{
public:
    static constexpr int rowsPerLevel = 50;

    TreeCommand(QString path, int depth) : m_path(std::move(path)), m_depth(depth) {}

    int run(const CommandContext& context);

private:
    /// Prints the rows of \p page and of the containers in it, down to \p depth more levels; with
    /// \p isJson nothing is printed. Gives the rows with what stands below each under "rows".
    QJsonArray descend(const CommandContext& context, const QJsonObject& page, int depth,
                       int level);
    QJsonObject visit(const CommandContext& context, const QJsonObject& row, int depth, int level);
    void note(const CommandContext& context, int level, const QString& text) const;

    const QString m_path;
    const int m_depth;
    QSet<QString> m_read; ///< paths whose rows stand in the outline already
};

} // namespace cli
