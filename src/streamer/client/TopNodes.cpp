#include "client/TopNodes.h"

#include "client/CommandContext.h"

namespace cli {

QList<TopNode> topNodes(ApiClient& api)
{
    constexpr int mostModules = 50;
    QList<TopNode> nodes;
    const ApiReply reply = api.rows("/", 0, mostModules - 1, "Path,Title,Disabled,SearchPath");
    for (const QJsonObject& row : rowsIn(reply.document)) {
        const TopNode node{textIn(row, "Path"), textIn(row, "Title"), textIn(row, "SearchPath")};
        if (!node.path.isEmpty() && !row.value("Disabled").toBool())
            nodes.append(node);
    }
    return nodes.isEmpty() ? QList<TopNode>{{topPath(), "the service", QString()}} : nodes;
}

QString beginPath(ApiClient& api)
{
    const QList<TopNode> nodes = topNodes(api);
    return nodes.size() == 1 ? nodes.first().path : "/";
}

} // namespace cli
