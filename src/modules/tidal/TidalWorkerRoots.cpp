// Genres, moods and featured groups that the service names.
#include "TidalBrowseNode.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>

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

void logNotShown(const char* kind)
{
    KELO_LOG("Tidal", DEBUG) << "The content roots " << kind << " are not shown yet";
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

void TidalWorker::on_tidalHandler_contentRootsFeatured(KeloTidalApiContentRootsResponse,
                                                       KeloTidalApiErrorResponse)
{
    logNotShown("featured");
}

void TidalWorker::on_tidalHandler_contentRootsGenres(KeloTidalApiContentRootsResponse,
                                                     KeloTidalApiErrorResponse)
{
    logNotShown("genres");
}

void TidalWorker::on_tidalHandler_contentRootsMoods(KeloTidalApiContentRootsResponse,
                                                    KeloTidalApiErrorResponse)
{
    logNotShown("moods");
}
