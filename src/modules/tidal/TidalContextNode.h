#pragma once
#include "TidalNode.h"
#include <kelo/CMListRowsNode.h>
#include <mutex>
#include <QMap>

class TidalAddRemoveFavouritesNode;

/// Context menu of an item: its rows act on the item whose parameters (id, type, ...) the menu was
/// opened with. Owned by the worker's tree. Made on the worker's thread; its rows are asked for on
/// any thread. It acts on nothing itself: its rows are nodes that do.
class TidalBaseContextNode : public TidalNode<TidalBaseContextNode, CMListRowsNode>
{
    Q_OBJECT
public:
    TidalBaseContextNode(TidalWorker* worker, const CMPath& path);

    /// The node's data roles for an item's parameters, as a hash: what the item's row carries as
    /// its context. Any thread. What does not depend on the parameters is made once, so the node
    /// must not be changed after the first call.
    QVariant getContextRoles(const QMap<QString, QString>& params);
    /// Tells the menu's first row whether the item is a favourite.
    void setFavorite(bool favorite);

private:
    TidalAddRemoveFavouritesNode* m_favoritesNode = nullptr; ///< the first row
    std::once_flag m_rolesOnce;
    QVariantHash m_roles; ///< data roles without parameters, from the first getContextRoles() on
};

/// The menu of albums, playlists and tracks: has a list of the user's playlists to add the item to,
/// and the artists of the item as its last rows.
class TidalBrowserContextNode : public TidalNode<TidalBrowserContextNode, TidalBaseContextNode>
{
    Q_OBJECT
public:
    TidalBrowserContextNode(TidalWorker* worker, const CMPath& path);

    /// Path of the list of playlists to add the item to.
    CMPath getPlaylistPath() const { return m_playlistPath; }
    /// A row of the artists section; with an id it carries the menu of an artist.
    KeloRoles artistRoles(const CMPath& path, const KeloRolesType::Enum& type,
                          const TrString& title, const QString& id) const;
    /// Answers with the stored rows and, after them, the artists that the parameter "artists"
    /// names.
    bool getRowsRequest(const CMGetRowsRequest& request) override;

private:
    CMRowList artistRows(const QString& artists) const;

    TidalWorker* m_worker;
    CMPath m_playlistPath;
};

/// The same menu for My Music; not used by the tree as it is.
class TidalMyMusicContextNode : public TidalNode<TidalMyMusicContextNode, TidalBrowserContextNode>
{
    Q_OBJECT
public:
    using TidalNode::TidalNode;
};
