#pragma once
#include <array>
#include <kelo/KeloTidalTypes.h>
#include <kelo/TrString.h>
#include <QHash>
#include <QList>

class CMActivateNode;
class CMListRowsNode;
class CMPath;
class TidalBaseContextNode;
class TidalBrowseNode;
class TidalBrowserContextNode;
class TidalMoveTrackNode;
class TidalPlaylistForm;
class TidalWorker;

/// The static part of the module's tree: menus, lists, search, context menus and forms, as far as
/// others ask for them. Made by the worker, on its thread, before requests come; it does not change
/// from then on and is read on any thread. The nodes are owned by the worker's tree. What the
/// service names (genres, moods) is added to the menus by the worker.
class TidalTree
{
public:
    explicit TidalTree(TidalWorker* worker);

    /// The menu that the rows of a variation carry; null for an unknown one.
    TidalBaseContextNode* contextNode(KeloTidalContextVariation::Enum variation) const;
    /// A list that can be played. `kind` says what is in it: a list of playlists carries the menu
    /// that orders their tracks.
    TidalBrowseNode* createPlayable(const CMPath& path, const TrString& title,
                                    const QString& kind) const;

    TidalBrowserContextNode* browserContext;
    TidalBrowserContextNode* playlistContext;
    CMActivateNode* addToPlaylist; ///< under the menu of browsed items
    CMActivateNode* addToPlaylistInPlaylist;
    TidalMoveTrackNode* moveTrack;
    TidalPlaylistForm* newPlaylistForm;
    TidalPlaylistForm* updatePlaylistForm;
    CMListRowsNode* searchContainer;
    CMListRowsNode* genres;
    CMListRowsNode* playlists;
    CMListRowsNode* myMusic;
    CMListRowsNode* newMenu;
    QList<CMListRowsNode*> topMenus; ///< as the top node lists them
    /// The lists that take the service's name of their group: "new", "recommended", "top".
    QHash<QString, QList<TidalBrowseNode*>> featured;

private:
    void buildSearch();
    void buildTopMenus();
    void buildMyMusic();
    void buildNew(const QString& kind);
    void buildPlaylistContexts();
    CMActivateNode* createAddToPlaylist(const CMPath& contextPath) const;
    CMListRowsNode* createMenu(const QString& subpath, const TrString& title) const;
    /// A menu of the newest tracks and albums below an address of the service.
    CMListRowsNode* createReleases(const QString& subpath, const TrString& title,
                                   const QString& api) const;

    TidalWorker* m_worker;
    std::array<TidalBaseContextNode*, 4> m_contexts; ///< by variation
};
