#include "client/TreePaths.h"

#include "client/CommandContext.h"
#include "client/DisplayText.h"
#include "client/TopNodes.h"
#include "client/TreeWalk.h"

namespace cli {

namespace {

using Candidates = Completion::Candidates;

constexpr int rowsPerList = 50;
const char* const playlistRoles = "Type,Path,Title,Id,Description,Summary,Duration";
/// Lists that a search through the upper levels reads at most.
constexpr int mostLists = 12;

/// What tells a playlist from the next, beside its title.
QString describe(const QJsonObject& row)
{
    QStringList parts{shown(textIn(row, "Description")), shown(textIn(row, "Summary"))};
    const qint64 duration = row.value("Duration").toVariant().toLongLong();
    if (duration > 0)
        parts.append(clockTime(duration));
    parts.removeAll({});
    return parts.join(", ");
}

Candidates rowsOf(ApiClient& api, const QString& list)
{
    Candidates result;
    const ApiReply reply = api.rows(list, 0, rowsPerList - 1, "Title,Path");
    for (const QJsonObject& row : rowsIn(reply.document)) {
        const QString path = shown(textIn(row, "Path"));
        if (!path.isEmpty())
            result.append({path, shown(textIn(row, "Title"))});
    }
    return result;
}

/// Level by level from the top on, through nodes without parameters: those are menus of the tree,
/// the others what the service holds.
Candidates searched(ApiClient& api, const QString& prefix)
{
    const QString settings = "/settings";
    QStringList lists;
    if (prefix.startsWith(settings))
        lists.append(settings);
    for (const TopNode& node : lists.isEmpty() ? topNodes(api) : QList<TopNode>())
        lists.append(node.path);
    Candidates found;
    for (int i = 0; i < lists.size() && i < mostLists; ++i) {
        for (const auto& row : rowsOf(api, lists.at(i))) {
            if (row.text.contains('?') || lists.contains(row.text))
                continue;
            lists.append(row.text);
            if (row.text.startsWith(prefix))
                found.append(row);
        }
    }
    return found;
}

} // namespace

Completion::Candidates treePaths(const QString& server, const QString& prefix)
{
    ApiClient api(server);
    Candidates tops{{"/settings", "settings"}, {"/oauth2/services", "logins"}};
    for (const TopNode& node : topNodes(api))
        tops.append({node.path, shown(node.title)});
    const Candidates found = keepStarting(tops, prefix);
    const bool isTop = found.size() == 1 && found.first().text == prefix;
    if (!found.isEmpty() && !isTop)
        return found;

    const QString path = prefix.endsWith('/') ? prefix.chopped(1) : prefix;
    const int end = qMax(prefix.lastIndexOf('/'), prefix.indexOf('?'));
    const Candidates beside =
        end > 0 ? keepStarting(rowsOf(api, prefix.left(end)), prefix) : Candidates();
    const bool isWhole = isTop || (beside.size() == 1 && beside.first().text == path);
    if (!beside.isEmpty() && !isWhole)
        return beside;
    const Candidates below = rowsOf(api, path);
    const Candidates longer = keepStarting(below, prefix);
    if (!longer.isEmpty())
        return longer;
    if (isWhole)
        return isTop ? found : beside;
    return prefix.endsWith('/') && !below.isEmpty() ? below : searched(api, prefix);
}

Completion::Candidates playlistNames(const QString& server, const QString& prefix)
{
    ApiClient api(server);
    TreeWalk walk(api);
    const QString list = walk.ownPlaylists();
    const QJsonObject page =
        walk.isDone() ? api.rows(list, 0, rowsPerList - 1, playlistRoles).document : QJsonObject();
    Listing titles;
    titles.add(page);
    Candidates result;
    for (const QJsonObject& row : rowsIn(page)) {
        const QString title = shown(textIn(row, "Title"));
        const QString id = shown(textIn(row, "Id"));
        if (!isOfType(row, "Container") || id.isEmpty())
            continue;
        const bool isUnique = titles.called(textIn(row, "Title")).size() == 1;
        if (isUnique)
            result.append({title, describe(row)});
        if (!isUnique || (!prefix.isEmpty() && !title.startsWith(prefix)))
            result.append({id, title});
    }
    return result;
}

Completion::Candidates loginServices(const QString& server)
{
    Candidates result;
    const QJsonArray logins = ApiClient(server).get("logins").document.value("logins").toArray();
    for (const QJsonValue& login : logins)
        result.append({shown(textIn(login.toObject(), "service")),
                       shown(textIn(login.toObject(), "displayName"))});
    return result;
}

} // namespace cli
