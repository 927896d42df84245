#include "client/SearchLists.h"

#include "client/CommandContext.h"
#include "client/DisplayText.h"
#include "client/PathText.h"

namespace cli {

namespace {

constexpr int rowsOfEach = 10;

/// How far \p title is from what was typed; 0 is the same.
int rank(const QString& title, const QString& text)
{
    const QString folded = title.toCaseFolded();
    const QString wanted = text.toCaseFolded().simplified();
    if (folded == wanted || folded.startsWith(wanted + " - ")) // a track's ends with artists
        return 0;
    return folded.startsWith(wanted) ? 1 : folded.contains(wanted) ? 2 : 3;
}

} // namespace

QStringList searchKinds()
{
    return {"albums", "tracks", "artists", "playlists"};
}

/// Top node -> its search container -> the query row -> the lists, one per kind, told apart by the
/// last segment of their paths since titles are translated.
QMap<QString, QString> searchLists(TreeWalk& walk, const QString& text)
{
    const QString container = textIn(objectIn(walk.page(topPath(), 0, 0), "roles"), "SearchPath");
    if (container.isEmpty())
        walk.refuse("search is not offered now; it needs a login (kelo login)");
    PathText query = PathText::parse(textIn(rowsIn(walk.page(container, 0, 0)).value(0), "Path"));
    if (query.base.isEmpty())
        walk.refuse(QStringLiteral("the search node at %1 has no query row").arg(shown(container)));
    query.parameters.insert("query", text);
    QMap<QString, QString> lists;
    for (const QJsonObject& row : rowsIn(walk.page(query.encoded()))) {
        PathText list = PathText::parse(textIn(row, "Path"));
        list.parameters.insert("query", text);
        const QString kind = list.base.section('/', -1);
        if (searchKinds().contains(kind))
            lists.insert(kind, list.encoded());
    }
    if (lists.isEmpty())
        walk.refuse(QStringLiteral("the search at %1 has no lists").arg(shown(query.encoded())));
    return lists;
}

QString searchList(ApiClient& api, const QString& searchPath, const QString& text)
{
    TreeWalk walk(api);
    QJsonObject question = walk.data(searchPath);
    if (!question.contains("QueryPath"))
        question = walk.data(textIn(rowsIn(walk.page(searchPath, 0, 0)).value(0), "Path"));
    PathText list = PathText::parse(textIn(question, "QueryPath"));
    if (!walk.isDone() || list.base.isEmpty())
        return QString();
    list.parameters.insert(textIn(question, "Query"), text);
    return list.encoded();
}

ListedRow bestHit(TreeWalk& walk, const QString& text, const QString& kind)
{
    const QMap<QString, QString> lists = searchLists(walk, text);
    ListedRow best;
    int least = 4;
    for (const QString& one : QStringList{"artists", "tracks", "albums", "playlists"}) {
        if (!lists.contains(one) || (!kind.isEmpty() && one != kind))
            continue;
        Listing listing;
        listing.add(walk.page(lists.value(one), 0, rowsOfEach - 1));
        for (const ListedRow& row : qAsConst(listing.rows)) {
            int far = rank(row.title, text);
            if (one == "artists" && far > 0 && kind.isEmpty())
                far = 3; // what else sounds like an artist's name is more often meant
            if (!row.path.isEmpty() && far < least) {
                least = far;
                best = row;
            }
        }
    }
    if (best.path.isEmpty())
        walk.refuse(QStringLiteral("nothing found for \"%1\"").arg(shown(text)));
    return best;
}

} // namespace cli
