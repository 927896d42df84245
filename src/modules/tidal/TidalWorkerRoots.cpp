// Genres, moods and featured groups that the service names.
#include "TidalBrowseNode.h"
#include "TidalHandler.h"
#include "TidalItemRows.h"
#include "TidalWorker.h"
#include <kelo/CMListRowsNode.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

namespace {
template <class Node>
Node* firstAt(const QList<Node*>& nodes, const CMPath& path)
{
    for (Node* node : nodes) {
        if (node->path() == path)
            return node;
    }
    return nullptr;
}

/// Whether the service's key of a root can stand in a path.
bool isUsable(const KeloTidalApiContentRoots& root)
{
    const QString key = root.path();
    if (key.contains(QLatin1Char('/')) || key.contains(QLatin1Char('?')) ||
        key == QLatin1String(".") || key == QLatin1String("..")) {
        KELO_LOG("Tidal", WARN) << "Skipping a content root, its path cannot be used: " << key;
        return false;
    }
    return !key.isEmpty();
}
} // namespace

void TidalWorker::addGenresNode(CMListRowsNode* node)
{
    m_genreNodes.append(node);
}

void TidalWorker::addMoodsNode(TidalBrowseNode* node)
{
    m_moodNodes.append(node);
}

CMListRowsNode* TidalWorker::getGenresNode(const CMPath& path) const
{
    return firstAt(m_genreNodes, path);
}

TidalBrowseNode* TidalWorker::getMoodsNode(const CMPath& path) const
{
    return firstAt(m_moodNodes, path);
}

void TidalWorker::on_tidalHandler_contentRootsFeatured(KeloTidalApiContentRootsResponse roots,
                                                       KeloTidalApiErrorResponse error)
{
    if (!error.isEmpty() || roots.isEmpty() || !isStaticStructureBuilt() ||
        m_handler->responder()->isOfEarlierLogin())
        return;
    m_featuredRoots = roots.root();
    // The Masters lists keep their titles.
    const QHash<QString, QList<TidalBrowseNode*>> lists = {
        {QStringLiteral("new"), {m_newPlaylists, m_newAlbums, m_newTracks}},
        {QStringLiteral("top"), {m_topAlbums, m_topTracks}},
        {QStringLiteral("recommended"),
         {m_recommendedAlbums, m_recommendedTracks, m_recommendedPlaylists}}};
    bool isChanged = false;
    for (const KeloTidalApiContentRoots& root : m_featuredRoots) {
        const QString name = root.name();
        if (name.isEmpty())
            continue;
        const QList<TidalBrowseNode*> named = lists.value(root.path());
        for (TidalBrowseNode* list : named) {
            isChanged = isChanged || list->title() != name;
            list->setTitle(name);
        }
    }
    if (isChanged)
        nodes()->subscribe()->rowsChanged(m_new->path(), CMSubscribe::RowsChangeReset(),
                                          m_new->rowsSize());
}

void TidalWorker::on_tidalHandler_contentRootsGenres(KeloTidalApiContentRootsResponse roots,
                                                     KeloTidalApiErrorResponse error)
{
    if (!error.isEmpty() || roots.isEmpty() || !isStaticStructureBuilt() ||
        m_genres->rowsSize() > 0 || m_handler->responder()->isOfEarlierLogin())
        return;
    const std::vector<KeloTidalApiContentRoots> genres = roots.root();
    for (const KeloTidalApiContentRoots& genre : genres) {
        if (isUsable(genre))
            addGenre(genre);
    }
    notifyTop(m_genres);
}

void TidalWorker::addGenre(const KeloTidalApiContentRoots& root)
{
    const CMPath path = m_genres->path() + QStringLiteral("/") + root.path();
    if (getGenresNode(path))
        return;
    const KeloTidalSettings settings = m_settingsItem->value().tidalSettings();
    CMListRowsNode* genre = CMListRowsNode::create(nodes(), path);
    genre->setTitle(root.name());
    TidalImageUrl icons(settings.imageUrl(), settings.imageSizeGenre());
    genre->setIcon(icons.of(root.image().toStdString()));
    const CMPath lists = addPrefix(KeloTidalRequest() + KeloTidalApiPathGenres() +
                                   QLatin1Char('/') + root.path() + QLatin1Char('/'));
    for (const QString& kind : {KeloTidalPlaylists(), KeloTidalAlbums(), KeloTidalTracks()}) {
        const CMPath context = kind == KeloTidalPlaylists()
                                   ? addPrefix(QStringLiteral("/trackOrderingcontext"))
                                   : CMPath();
        genre->rowsAppend(createPlayableList(lists + kind.toLower(), kind, context)->path());
    }
    addGenresNode(genre);
    genre->setPlayable(true);
    m_genres->rowsAppend(path);
}

void TidalWorker::on_tidalHandler_contentRootsMoods(KeloTidalApiContentRootsResponse roots,
                                                    KeloTidalApiErrorResponse error)
{
    if (!error.isEmpty() || roots.isEmpty() || !isStaticStructureBuilt() ||
        m_playlists->rowsSize() > 0 || m_handler->responder()->isOfEarlierLogin())
        return;
    const std::vector<KeloTidalApiContentRoots> moods = roots.root();
    for (const KeloTidalApiContentRoots& mood : moods) {
        if (isUsable(mood))
            addMood(mood);
    }
    notifyTop(m_playlists);
}

void TidalWorker::addMood(const KeloTidalApiContentRoots& root)
{
    const CMPath path = m_playlists->path() + KeloTidalRequest() + KeloTidalApiPathMoods() +
                        QStringLiteral("/") + root.path() + QStringLiteral("/playlists");
    if (getMoodsNode(path))
        return;
    const KeloTidalSettings settings = m_settingsItem->value().tidalSettings();
    TidalBrowseNode* mood =
        createPlayableList(path, root.name(), addPrefix(QStringLiteral("/trackOrderingcontext")));
    mood->setProperty("category", KeloTidalApiPathMoods());
    TidalImageUrl icons(settings.imageUrl(), settings.imageSizeMood());
    mood->setIcon(icons.of(root.image().toStdString()));
    addMoodsNode(mood);
    m_playlists->rowsAppend(path);
}

void TidalWorker::notifyTop(const CMListRowsNode* menu)
{
    if (menu->rowsSize() > 0)
        nodes()->subscribe()->rowsChanged(m_top->path(), CMSubscribe::RowsChangeReset(),
                                          m_top->rowsSize());
}
