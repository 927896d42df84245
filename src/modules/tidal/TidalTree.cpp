#include "TidalTree.h"

#include "TidalBrowseNode.h"
#include "TidalContextNode.h"
#include "TidalEditNode.h"
#include "TidalNewPlaylistForm.h"
#include "TidalOrderingNode.h"
#include <kelo/CMQueryNode.h>

namespace {
/// All titles of the tree are translated in the context of the function that has it built.
const char* const treeContext = "bool TidalWorker::buildStaticStructure()";

TrString treeText(const char* text)
{
    return TrString(TrCharData{treeContext, text, nullptr});
}

QString subpathOf(const QString& kind)
{
    return QLatin1Char('/') + kind.toLower();
}
} // namespace

TidalTree::TidalTree(TidalWorker* worker) : m_worker(worker)
{
    browserContext =
        TidalBrowserContextNode::create(worker, worker->addPrefix(QStringLiteral("/context")));
    addToPlaylist = createAddToPlaylist(browserContext->path());
    buildSearch();
    buildTopMenus();
    buildMyMusic();
    for (const QString& kind : {KeloTidalPlaylists(), KeloTidalAlbums(), KeloTidalTracks()})
        buildNew(kind);
    buildPlaylistContexts();

    // These answer for single playlists, albums and artists.
    const CMPath requests = worker->addPrefix(KeloTidalRequest());
    for (const QString& kind : {KeloTidalPlaylists(), KeloTidalAlbums(), KeloTidalArtists()})
        TidalBrowseNode::create(worker, requests + subpathOf(kind));
    TidalTrackOrderingContextNode::create(
        worker, worker->addPrefix(QStringLiteral("/trackOrderingcontext")));
    TidalOrderingContextNode::create(worker, worker->addPrefix(QStringLiteral("/orderingcontext")));
}

TidalBaseContextNode* TidalTree::contextNode(KeloTidalContextVariation::Enum variation) const
{
    const std::size_t index = std::size_t(variation);
    return index < m_contexts.size() ? m_contexts[index] : nullptr;
}

CMActivateNode* TidalTree::createAddToPlaylist(const CMPath& contextPath) const
{
    CMActivateNode* node = CMActivateNode::create(
        m_worker->nodes(), contextPath + KeloTidalAddToPlaylists(), m_worker,
        SLOT(on_addToPlaylist_invoke(CMSetDataRequest)), Qt::QueuedConnection);
    node->setBusyText(treeText("Busy, adding to playlist."));
    return node;
}

void TidalTree::buildSearch()
{
    CMNodes* nodes = m_worker->nodes();
    searchContainer =
        CMListRowsNode::create(nodes, m_worker->addPrefix(QStringLiteral("searchContainer")));
    searchContainer->setTitle(treeText("Search track, album, artist and playlist"));
    searchContainer->setContainerType(KeloRolesContainerType::Search_);

    CMQueryNode* search =
        CMQueryNode::create(nodes, m_worker->addPrefix(QStringLiteral("/search")));
    search->setTitle(treeText("Search"));
    search->setQuery(QStringLiteral("query"));
    searchContainer->rowsAppend(search->path());

    CMListRowsNode* choice =
        CMListRowsNode::create(nodes, search->path() + QStringLiteral("/choose"));
    choice->setTitle(treeText("Search"));
    choice->setCopyPathParams(true);
    search->setQueryPath(choice->path());

    const auto addList = [&](const QString& subpath, const TrString& title) {
        TidalBrowseNode* list =
            TidalBrowseNode::create(m_worker, choice->path() + KeloTidalRequest() + subpath);
        list->setTitle(title);
        choice->rowsAppend(list->path());
    };
    addList(QStringLiteral("/albums"), treeText("Albums"));
    addList(QStringLiteral("/tracks"), treeText("Tracks"));
    addList(QStringLiteral("/artists"), treeText("Artists"));
    addList(QStringLiteral("/playlists"), treeText("Playlists"));
}

CMListRowsNode* TidalTree::createMenu(const QString& subpath, const TrString& title) const
{
    CMListRowsNode* menu = CMListRowsNode::create(m_worker->nodes(), m_worker->addPrefix(subpath));
    menu->setTitle(title);
    menu->setPlayable(true);
    return menu;
}

CMListRowsNode* TidalTree::createReleases(const QString& subpath, const TrString& title,
                                          const QString& api) const
{
    CMListRowsNode* menu = createMenu(subpath, title);
    const CMPath base = menu->path() + KeloTidalRequest() + api + QStringLiteral("/new");
    for (const auto& [kind, text] : {std::pair(KeloTidalTracks(), treeText("Tracks")),
                                     std::pair(KeloTidalAlbums(), treeText("Albums"))})
        menu->rowsAppend(createPlayable(base + subpathOf(kind), text, kind)->path());
    return menu;
}

void TidalTree::buildTopMenus()
{
    genres = createMenu(QStringLiteral("/genres"), treeText("Genres"));
    playlists = createMenu(subpathOf(KeloTidalPlaylists()), treeText("Playlists"));
    myMusic = createMenu(QLatin1Char('/') + KeloTidalRootPathMyMusic(), treeText("My Music"));
    newMenu = createMenu(QStringLiteral("/new"), treeText("New"));
    topMenus = {newMenu,
                createReleases(QStringLiteral("/tidalRising"), treeText("TIDAL Rising"),
                               KeloTidalApiPathRising()),
                createReleases(QStringLiteral("/tidalDiscovery"), treeText("TIDAL Discovery"),
                               KeloTidalApiPathDiscovery()),
                playlists,
                genres,
                myMusic};
}

TidalBrowseNode* TidalTree::createPlayable(const CMPath& path, const TrString& title,
                                           const QString& kind) const
{
    TidalBrowseNode* list = TidalBrowseNode::create(m_worker, path);
    list->setTitle(title);
    list->setPlayable(true);
    if (kind == KeloTidalPlaylists())
        list->setContextPath(m_worker->addPrefix(QStringLiteral("/trackOrderingcontext")));
    return list;
}

void TidalTree::buildMyMusic()
{
    const CMPath requests = myMusic->path() + KeloTidalRequest();
    const CMPath favorites = requests + KeloTidalApiPathFavorites() + KeloTidalApiPathUsers();
    const CMPath created = requests + QStringLiteral("/created") + KeloTidalApiPathUsers();
    const auto addList = [&](const CMPath& group, const QString& kind, const TrString& title) {
        TidalBrowseNode* list = createPlayable(group + subpathOf(kind), title, kind);
        list->setContextPath(m_worker->addPrefix(QStringLiteral("/orderingcontext")));
        myMusic->rowsAppend(list->path());
        return list;
    };
    addList(favorites, KeloTidalPlaylists(), treeText("Favorited playlists"));
    addList(created, KeloTidalPlaylists(), treeText("My playlists"));
    TidalBrowseNode* artists = addList(favorites, KeloTidalArtists(), treeText("Artists"));
    addList(favorites, KeloTidalAlbums(), treeText("Albums"));
    addList(favorites, KeloTidalTracks(), treeText("Tracks"));

    CMActivateNode* www =
        CMActivateNode::create(m_worker->nodes(), artists->path() + QStringLiteral("/www"), nullptr,
                               nullptr, Qt::QueuedConnection);
    www->setTitle(treeText("Www"));
    artists->rowsAppend(www->path());

    newPlaylistForm =
        TidalPlaylistForm::create(m_worker, m_worker->addPrefix(KeloTidalCreatePlaylist()));
    myMusic->rowsAppend(newPlaylistForm->path());
}

void TidalTree::buildNew(const QString& kind)
{
    // The kinds' names are titles of lists, too, and so in the catalogues.
    newMenu->rowsAppend(tidalRow(KeloRolesType::Header_, Language::ntr(kind, treeContext)));
    const auto addList = [&](const QString& api, const QString& group, const TrString& title) {
        TidalBrowseNode* list = createPlayable(
            m_worker->addPrefix(KeloTidalRequest() + api + QLatin1Char('/') + group) +
                subpathOf(kind),
            title, kind);
        list->setProperty("category", KeloTidalApiPathFeatured());
        newMenu->rowsAppend(list->path());
        return list;
    };
    const auto addFeatured = [&](const QString& group, const TrString& title) {
        featured[group].append(addList(KeloTidalApiPathFeatured(), group, title));
    };
    addFeatured(QStringLiteral("new"), treeText("New"));
    addFeatured(QStringLiteral("recommended"), treeText("Recommended"));
    if (kind != KeloTidalPlaylists())
        addFeatured(QStringLiteral("top"), treeText("Top 20"));
    if (kind != KeloTidalTracks())
        addList(KeloTidalApiPathMaster(), QStringLiteral("recommended"), treeText("Masters"));
}

void TidalTree::buildPlaylistContexts()
{
    const auto prefixed = [this](const char* subpath) {
        return m_worker->addPrefix(QLatin1String(subpath));
    };
    playlistContext = TidalBrowserContextNode::create(m_worker, prefixed("/playlistcontext"));
    addToPlaylistInPlaylist = createAddToPlaylist(playlistContext->path());
    auto* tracks = TidalBrowserContextNode::create(m_worker, prefixed("/myPlaylistTrackscontext"));
    m_contexts = {browserContext, tracks, playlistContext,
                  TidalBaseContextNode::create(m_worker, prefixed("/basecontext"))};

    CMActivateNode* remove = CMActivateNode::create(
        m_worker->nodes(), playlistContext->path() + KeloTidalRemoveFromPlaylists(), m_worker,
        SLOT(on_removeFromPlaylist_invoke(CMSetDataRequest)), Qt::QueuedConnection);
    remove->setTitle(treeText("remove"));
    remove->setBusyText(treeText("Busy, removing from playlist."));
    updatePlaylistForm =
        TidalPlaylistForm::create(m_worker, m_worker->addPrefix(KeloTidalUpdatePlaylists()));
    for (TidalBrowserContextNode* menu : {playlistContext, tracks}) {
        menu->rowsAppend(remove->path());
        menu->rowsAppend(updatePlaylistForm->path());
    }
    moveTrack = TidalMoveTrackNode::create(m_worker, tracks->path() + KeloTidalMoveTrack());
    moveTrack->setTitle(treeText("Move to index"));
    tracks->rowsAppend(moveTrack->path());
}
