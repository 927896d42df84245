// The static part of the tree: menus, lists, search, context menus and forms.
#include "TidalBrowseNode.h"
#include "TidalContextNode.h"
#include "TidalEditNode.h"
#include "TidalNewPlaylistForm.h"
#include "TidalOrderingNode.h"
#include "TidalWorker.h"
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/CMQueryNode.h>
#include <kelo/KeloTidalConstants.h>

namespace {
/// All titles of the tree are translated in the context of the function that builds it.
const char* const treeContext = "bool TidalWorker::buildStaticStructure()";

TrString treeText(const char* text)
{
    return TrString(TrCharData{treeContext, text, nullptr});
}

KeloRoles headerRow(const char* text)
{
    KeloRoles roles;
    roles.setType(KeloRolesType::Header_);
    roles.setTitle(Language::ntr(text, treeContext));
    return roles;
}

QString subpathOf(const QString& kind)
{
    return QStringLiteral("/") + kind.toLower();
}
} // namespace

bool TidalWorker::buildStaticStructure()
{
    if (isStaticStructureBuilt())
        return true;
    buildContext();
    buildSearch();
    buildTopMenus();
    buildMyMusic();
    buildDiscoveryAndRising();
    buildNew();
    buildPlaylistContexts();
    buildForms();
    resetTopNode();
    return true;
}

void TidalWorker::buildContext()
{
    m_browserContext = TidalBrowserContextNode::create(this, addPrefix(QStringLiteral("/context")));
    m_contextNodes[KeloTidalContextVariation::Browse] = m_browserContext;
    m_addToPlaylist = createAddToPlaylist(m_browserContext->path());
}

CMActivateNode* TidalWorker::createAddToPlaylist(const CMPath& contextPath)
{
    CMActivateNode* node = CMActivateNode::create(
        nodes(), contextPath + KeloTidalAddToPlaylists(), this,
        SLOT(on_addToPlaylist_invoke(CMSetDataRequest)), Qt::QueuedConnection);
    node->setBusyText(treeText("Busy, adding to playlist."));
    return node;
}

void TidalWorker::buildSearch()
{
    m_searchContainer =
        CMListRowsNode::create(nodes(), addPrefix(QStringLiteral("searchContainer")));
    m_searchContainer->setTitle(treeText("Search track, album, artist and playlist"));
    m_searchContainer->setContainerType(KeloRolesContainerType::Search_);

    m_search = CMQueryNode::create(nodes(), addPrefix(QStringLiteral("/search")));
    m_search->setTitle(treeText("Search"));
    m_search->setQuery(QStringLiteral("query"));
    m_searchContainer->rowsAppend(m_search->path());

    m_searchChoice = CMListRowsNode::create(nodes(), m_search->path() + QStringLiteral("/choose"));
    m_searchChoice->setTitle(treeText("Search"));
    m_searchChoice->setCopyPathParams(true);
    m_search->setQueryPath(m_searchChoice->path());

    const CMPath requests = m_searchChoice->path() + KeloTidalRequest();
    const auto addList = [&](const QString& subpath, const TrString& title) {
        m_searchChoice->rowsAppend(createList(requests + subpath, title)->path());
    };
    addList(QStringLiteral("/albums"), treeText("Albums"));
    addList(QStringLiteral("/tracks"), treeText("Tracks"));
    addList(QStringLiteral("/artists"), treeText("Artists"));
    addList(QStringLiteral("/playlists"), treeText("Playlists"));
}

CMListRowsNode* TidalWorker::createMenu(const QString& subpath, const TrString& title)
{
    CMListRowsNode* menu = CMListRowsNode::create(nodes(), addPrefix(subpath));
    menu->setTitle(title);
    menu->setPlayable(true);
    return menu;
}

void TidalWorker::buildTopMenus()
{
    m_genres = createMenu(QStringLiteral("/genres"), treeText("Genres"));
    m_playlists = createMenu(subpathOf(KeloTidalPlaylists()), treeText("Playlists"));
    m_myMusic = createMenu(QStringLiteral("/") + KeloTidalRootPathMyMusic(), treeText("My Music"));
    m_discovery = createMenu(QStringLiteral("/tidalDiscovery"), treeText("TIDAL Discovery"));
    m_rising = createMenu(QStringLiteral("/tidalRising"), treeText("TIDAL Rising"));
    m_new = createMenu(QStringLiteral("/new"), treeText("New"));
}

TidalBrowseNode* TidalWorker::createList(const CMPath& path, const TrString& title)
{
    TidalBrowseNode* list = TidalBrowseNode::create(this, path);
    list->setTitle(title);
    return list;
}

TidalBrowseNode* TidalWorker::createPlayableList(const CMPath& path, const TrString& title,
                                                 const CMPath& contextPath)
{
    TidalBrowseNode* list = createList(path, title);
    list->setPlayable(true);
    if (!contextPath.isEmpty())
        list->setContextPath(contextPath);
    return list;
}

void TidalWorker::buildMyMusic()
{
    const CMPath requests = m_myMusic->path() + KeloTidalRequest();
    const CMPath favorites = requests + KeloTidalApiPathFavorites() + KeloTidalApiPathUsers();
    const CMPath context = addPrefix(QStringLiteral("/orderingcontext"));
    const auto addList = [&](const CMPath& path, const TrString& title) {
        TidalBrowseNode* list = createPlayableList(path, title, context);
        m_myMusic->rowsAppend(list->path());
        return list;
    };
    addList(favorites + subpathOf(KeloTidalPlaylists()), treeText("Favorited playlists"));
    addList(requests + QStringLiteral("/created") + KeloTidalApiPathUsers() +
                subpathOf(KeloTidalPlaylists()),
            treeText("My playlists"));
    m_favoriteArtists = addList(favorites + subpathOf(KeloTidalArtists()), treeText("Artists"));
    addList(favorites + subpathOf(KeloTidalAlbums()), treeText("Albums"));
    addList(favorites + subpathOf(KeloTidalTracks()), treeText("Tracks"));

    CMActivateNode* www =
        CMActivateNode::create(nodes(), m_favoriteArtists->path() + QStringLiteral("/www"), nullptr,
                               nullptr, Qt::QueuedConnection);
    www->setTitle(treeText("Www"));
    m_favoriteArtists->rowsAppend(www->path());
}

void TidalWorker::buildDiscoveryAndRising()
{
    const auto fill = [this](CMListRowsNode* menu, const QString& api) {
        const CMPath base = menu->path() + KeloTidalRequest() + api + QStringLiteral("/new");
        menu->rowsAppend(
            createPlayableList(base + subpathOf(KeloTidalTracks()), treeText("Tracks"), CMPath())
                ->path());
        menu->rowsAppend(
            createPlayableList(base + subpathOf(KeloTidalAlbums()), treeText("Albums"), CMPath())
                ->path());
    };
    fill(m_discovery, KeloTidalApiPathDiscovery());
    fill(m_rising, KeloTidalApiPathRising());
}

TidalBrowseNode* TidalWorker::createFeatured(const QString& api, const QString& group,
                                             const QString& kind, const TrString& title)
{
    const CMPath context = kind == KeloTidalPlaylists()
                               ? addPrefix(QStringLiteral("/trackOrderingcontext"))
                               : CMPath();
    TidalBrowseNode* list = createPlayableList(
        addPrefix(KeloTidalRequest() + api + group + kind.toLower()), title, context);
    list->setProperty("category", KeloTidalApiPathFeatured());
    m_new->rowsAppend(list->path());
    return list;
}

void TidalWorker::buildNew()
{
    const QString& featured = KeloTidalApiPathFeatured();
    const QString& master = KeloTidalApiPathMaster();
    const QString fresh = QStringLiteral("/new/");
    const QString recommended = QStringLiteral("/recommended/");
    const QString top = QStringLiteral("/top/");

    const QString& playlists = KeloTidalPlaylists();
    m_new->rowsAppend(headerRow("Playlists"));
    m_newPlaylists = createFeatured(featured, fresh, playlists, treeText("New"));
    m_recommendedPlaylists =
        createFeatured(featured, recommended, playlists, treeText("Recommended"));
    createFeatured(master, recommended, playlists, treeText("Masters"));

    const QString& albums = KeloTidalAlbums();
    m_new->rowsAppend(headerRow("Albums"));
    m_newAlbums = createFeatured(featured, fresh, albums, treeText("New"));
    m_recommendedAlbums = createFeatured(featured, recommended, albums, treeText("Recommended"));
    m_topAlbums = createFeatured(featured, top, albums, treeText("Top 20"));
    createFeatured(master, recommended, albums, treeText("Masters"));

    const QString& tracks = KeloTidalTracks();
    m_new->rowsAppend(headerRow("Tracks"));
    m_newTracks = createFeatured(featured, fresh, tracks, treeText("New"));
    m_recommendedTracks = createFeatured(featured, recommended, tracks, treeText("Recommended"));
    m_topTracks = createFeatured(featured, top, tracks, treeText("Top 20"));
}

void TidalWorker::buildPlaylistContexts()
{
    const CMPath updateForm = addPrefix(KeloTidalUpdatePlaylists());
    m_playlistContext =
        TidalBrowserContextNode::create(this, addPrefix(QStringLiteral("/playlistcontext")));
    m_contextNodes[KeloTidalContextVariation::Playlist] = m_playlistContext;
    CMActivateNode* remove = CMActivateNode::create(
        nodes(), m_playlistContext->path() + KeloTidalRemoveFromPlaylists(), this,
        SLOT(on_removeFromPlaylist_invoke(CMSetDataRequest)), Qt::QueuedConnection);
    remove->setTitle(treeText("remove"));
    remove->setBusyText(treeText("Busy, removing from playlist."));
    m_addToPlaylistInPlaylist = createAddToPlaylist(m_playlistContext->path());
    m_playlistContext->rowsAppend(remove->path());
    m_playlistContext->rowsAppend(updateForm);

    // These answer for single playlists, albums and artists.
    const CMPath requests = addPrefix(KeloTidalRequest());
    TidalBrowseNode::create(this, requests + subpathOf(KeloTidalPlaylists()));
    TidalBrowseNode::create(this, requests + subpathOf(KeloTidalAlbums()));
    TidalBrowseNode::create(this, artistsPath());

    TidalTrackOrderingContextNode::create(this, addPrefix(QStringLiteral("/trackOrderingcontext")));
    TidalOrderingContextNode::create(this, addPrefix(QStringLiteral("/orderingcontext")));
    m_contextNodes[KeloTidalContextVariation::Base] =
        TidalBaseContextNode::create(this, addPrefix(QStringLiteral("/basecontext")));

    TidalBrowserContextNode* tracks = TidalBrowserContextNode::create(
        this, addPrefix(QStringLiteral("/myPlaylistTrackscontext")));
    m_contextNodes[KeloTidalContextVariation::PlaylistTracks] = tracks;
    m_moveTrack = TidalMoveTrackNode::create(this, tracks->path() + KeloTidalMoveTrack());
    m_moveTrack->setTitle(treeText("Move to index"));
    tracks->rowsAppend(remove->path());
    tracks->rowsAppend(updateForm);
    tracks->rowsAppend(m_moveTrack->path());
}

void TidalWorker::buildForms()
{
    m_newPlaylistForm = TidalPlaylistForm::create(this, addPrefix(KeloTidalCreatePlaylist()));
    m_myMusic->rowsAppend(m_newPlaylistForm->path());
    m_updatePlaylistForm = TidalPlaylistForm::create(this, addPrefix(KeloTidalUpdatePlaylists()));
}
