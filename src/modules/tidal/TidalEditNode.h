#pragma once
#include <atomic>
#include <kelo/CMActivateNode.h>
#include <kelo/CMListRowsNode.h>

class CMValueNode;
class TidalWorker;

/// "Favorite" in a context menu: makes the menu's item a favourite, or none any more. Owned by the
/// worker's tree; its slots run on the worker's thread. Whether the item is a favorite it knows
/// only from the last time that its data were asked for: one flag for all items of the menu.
class TidalAddRemoveFavouritesNode : public CMActivateNode
{
    Q_OBJECT
public:
    static TidalAddRemoveFavouritesNode* create(TidalWorker* worker, const CMPath& path);
    ~TidalAddRemoveFavouritesNode() override;

    void setFavorite(bool favorite) { m_isFavorite = favorite; }
    bool isFavorite() const { return m_isFavorite; }
    /// Asks the service, which lets the title say what activating the node does.
    bool getDataRequest(const CMGetDataRequest& request) override;

public Q_SLOTS:
    void on_node_invoke(const CMSetDataRequest& request);

private:
    TidalAddRemoveFavouritesNode(TidalWorker* worker, const CMPath& path);

    TidalWorker* m_worker;
    std::atomic<bool> m_isFavorite{false}; ///< of the item that the service was last asked about
};

/// "Move to index" in the menu of a playlist's track: a row number to fill in, and the action that
/// moves the track there. Owned by the worker's tree.
class TidalMoveTrackNode : public CMListRowsNode
{
    Q_OBJECT
public:
    static TidalMoveTrackNode* create(TidalWorker* worker, const CMPath& path);
    ~TidalMoveTrackNode() override;

    /// The row number that was filled in last, in decimal.
    QString getRowNum() const;
    /// Answers a move that the service has carried out, and closes the menu.
    void movePlaylistTrackFinish(const CMSetDataRequest& request);

private:
    TidalMoveTrackNode(TidalWorker* worker, const CMPath& path);

    TidalWorker* m_worker;
    CMValueNode* m_rowNumNode = nullptr;
    CMActivateNode* m_moveNode = nullptr;
};
