// Genres, moods and featured groups that the service names.
#include "TidalBrowseNode.h"
#include "TidalHandler.h"
#include "TidalItemRows.h"
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

CMListRowsNode* TidalWorker::getGenresNode(const CMPath& path) const
{
    return firstAt(m_genreNodes, path);
}

TidalBrowseNode* TidalWorker::getMoodsNode(const CMPath& path) const
{
    return firstAt(m_moodNodes, path);
}

bool TidalWorker::hasRoots(const KeloTidalApiContentRootsResponse& roots,
                           const KeloTidalApiErrorResponse& error) const
{
    return m_tree && error.isEmpty() && !roots.isEmpty() &&
           !m_handler->responder()->isOfEarlierLogin();
}

void TidalWorker::on_tidalHandler_contentRootsFeatured(KeloTidalApiContentRootsResponse roots,
                                                       KeloTidalApiErrorResponse error)
{
    if (!hasRoots(roots, error))
        return;
    bool isChanged = false;
    for (const KeloTidalApiContentRoots& root : roots.root()) {
        const QString name = root.name();
        if (name.isEmpty())
            continue;
        for (TidalBrowseNode* list : m_tree->featured.value(root.path())) {
            isChanged = isChanged || list->title() != name;
            list->setTitle(name);
        }
    }
    if (isChanged)
        notifyReset(m_tree->newMenu);
}

void TidalWorker::on_tidalHandler_contentRootsGenres(KeloTidalApiContentRootsResponse roots,
                                                     KeloTidalApiErrorResponse error)
{
    if (hasRoots(roots, error))
        addRoots(m_tree->genres, roots, &TidalWorker::addGenre);
}

void TidalWorker::on_tidalHandler_contentRootsMoods(KeloTidalApiContentRootsResponse roots,
                                                    KeloTidalApiErrorResponse error)
{
    if (hasRoots(roots, error))
        addRoots(m_tree->playlists, roots, &TidalWorker::addMood);
}

void TidalWorker::addRoots(CMListRowsNode* menu, const KeloTidalApiContentRootsResponse& roots,
                           void (TidalWorker::*addRoot)(const KeloTidalApiContentRoots&))
{
    if (menu->rowsSize() > 0)
        return;
    for (const KeloTidalApiContentRoots& root : roots.root()) {
        if (isUsable(root))
            (this->*addRoot)(root);
    }
    if (menu->rowsSize() > 0)
        notifyReset(m_top);
}

void TidalWorker::addGenre(const KeloTidalApiContentRoots& root)
{
    const CMPath path = m_tree->genres->path() + QStringLiteral("/") + root.path();
    if (getGenresNode(path))
        return;
    const KeloTidalSettings settings = m_settingsItem->value().tidalSettings();
    CMListRowsNode* genre = CMListRowsNode::create(nodes(), path);
    genre->setTitle(root.name());
    genre->setIcon(TidalImageUrl(settings.imageUrl(), settings.imageSizeGenre())
                       .text(root.image().toStdString()));
    const CMPath lists = addPrefix(KeloTidalRequest() + KeloTidalApiPathGenres() +
                                   QLatin1Char('/') + root.path() + QLatin1Char('/'));
    for (const QString& kind : {KeloTidalPlaylists(), KeloTidalAlbums(), KeloTidalTracks()})
        genre->rowsAppend(m_tree->createPlayable(lists + kind.toLower(), kind, kind)->path());
    addGenresNode(genre);
    genre->setPlayable(true);
    m_tree->genres->rowsAppend(path);
}

void TidalWorker::addMood(const KeloTidalApiContentRoots& root)
{
    const CMPath path = m_tree->playlists->path() + KeloTidalRequest() + KeloTidalApiPathMoods() +
                        QStringLiteral("/") + root.path() + QStringLiteral("/playlists");
    if (getMoodsNode(path))
        return;
    const KeloTidalSettings settings = m_settingsItem->value().tidalSettings();
    TidalBrowseNode* mood = m_tree->createPlayable(path, root.name(), KeloTidalPlaylists());
    mood->setProperty("category", KeloTidalApiPathMoods());
    mood->setIcon(TidalImageUrl(settings.imageUrl(), settings.imageSizeMood())
                      .text(root.image().toStdString()));
    addMoodsNode(mood);
    m_tree->playlists->rowsAppend(path);
}

void TidalWorker::notifyReset(const CMListRowsNode* menu)
{
    nodes()->subscribe()->rowsChanged(menu->path(), CMSubscribe::RowsChangeReset(),
                                      menu->rowsSize());
}
