#pragma once
#include "TidalNode.h"
#include <atomic>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>

class CMValueNode;

/// "Favorite" in a context menu: makes the menu's item a favourite, or none any more. Owned by the
/// worker's tree; its slots run on the worker's thread. Whether the item is a favorite it knows
/// only from the last time that its data were asked for: one flag for all items of the menu. A
/// request with the role KeloRoles::Favorite() says itself what the item is to be.
class TidalAddRemoveFavouritesNode : public TidalNode<TidalAddRemoveFavouritesNode, CMActivateNode>
{
    Q_OBJECT
public:
    TidalAddRemoveFavouritesNode(TidalWorker* worker, const CMPath& path);

    void setFavorite(bool favorite) { m_isFavorite = favorite; }
    /// Asks the service, which lets the title say what activating the node does.
    bool getDataRequest(const CMGetDataRequest& request) override;

public Q_SLOTS:
    void on_node_invoke(const CMSetDataRequest& request);

private:
    TidalWorker* m_worker;
    std::atomic<bool> m_isFavorite{false}; ///< of the item that the service was last asked about
};

/// "Move to index" in the menu of a playlist's track: a row number to fill in, and the action that
/// moves the track there. Owned by the worker's tree.
class TidalMoveTrackNode : public TidalNode<TidalMoveTrackNode, CMListRowsNode>
{
    Q_OBJECT
public:
    TidalMoveTrackNode(TidalWorker* worker, const CMPath& path);

    /// The row number that was filled in last, in decimal.
    QString getRowNum() const;
    /// Answers a move that the service has carried out, and closes the menu.
    void movePlaylistTrackFinish(const CMSetDataRequest& request);

private:
    TidalWorker* m_worker;
    CMValueNode* m_rowNumNode;
};
