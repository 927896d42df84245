#include "client/TreePaths.h"

#include "client/CommandContext.h"
#include "client/DisplayText.h"
#include "client/TreeWalk.h"

namespace cli {

namespace {

constexpr int rowsPerList = 50;
/// Lists that a search through the upper levels reads at most.
constexpr int mostLists = 12;

QVector<Completion::Candidate> keepStarting(const QVector<Completion::Candidate>& all,
                                            const QString& prefix)
{
    QVector<Completion::Candidate> result;
    std::copy_if(all.begin(), all.end(), std::back_inserter(result),
                 [&prefix](const auto& candidate) { return candidate.text.startsWith(prefix); });
    return result;
}

} // namespace

QVector<Completion::Candidate> TreePaths::startingWith(const QString& prefix)
{
    const Candidates tops{
        {topPath(), "the service"}, {"/settings", "settings"}, {"/oauth2/services", "logins"}};
    const Candidates found = keepStarting(tops, prefix);
    const bool isTop = found.size() == 1 && found.first().text == prefix;
    if (!found.isEmpty() && !isTop)
        return found;

    const QString path = prefix.endsWith('/') ? prefix.chopped(1) : prefix;
    const int end = qMax(prefix.lastIndexOf('/'), prefix.indexOf('?'));
    const Candidates beside =
        end > 0 ? keepStarting(rowsOf(prefix.left(end)), prefix) : Candidates();
    const bool isWhole = isTop || (beside.size() == 1 && beside.first().text == path);
    if (!beside.isEmpty() && !isWhole)
        return beside;
    const Candidates below = rowsOf(path);
    const Candidates longer = keepStarting(below, prefix);
    if (!longer.isEmpty())
        return longer;
    if (isWhole)
        return isTop ? found : beside;
    return prefix.endsWith('/') && !below.isEmpty() ? below : searched(prefix);
}

/// Level by level from the top on, through nodes without parameters: those are menus of the tree,
/// the others what the service holds.
QVector<Completion::Candidate> TreePaths::searched(const QString& prefix)
{
    const QString settings = "/settings";
    QStringList lists{prefix.startsWith(settings) ? settings : topPath()};
    Candidates found;
    for (int i = 0; i < lists.size() && i < mostLists; ++i) {
        for (const auto& row : rowsOf(lists.at(i))) {
            if (row.text.contains('?') || lists.contains(row.text))
                continue;
            lists.append(row.text);
            if (row.text.startsWith(prefix))
                found.append(row);
        }
    }
    return found;
}

QVector<Completion::Candidate> TreePaths::rowsOf(const QString& list)
{
    Candidates result;
    const ApiReply reply = m_api.rows(list, 0, rowsPerList - 1, "Title,Path");
    for (const QJsonObject& row : rowsIn(reply.document)) {
        const QString path = shown(textIn(row, "Path"));
        if (!path.isEmpty())
            result.append({path, shown(textIn(row, "Title"))});
    }
    return result;
}

QVector<Completion::Candidate> TreePaths::playlists()
{
    Candidates result;
    TreeWalk walk(m_api);
    for (const QJsonObject& row : rowsIn(walk.page(walk.ownPlaylists()))) {
        if (isContainer(row) && !textIn(row, "Id").isEmpty())
            result.append({shown(textIn(row, "Id")), shown(textIn(row, "Title"))});
    }
    return result;
}

} // namespace cli
