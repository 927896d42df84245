#pragma once
#include "TidalNode.h"
#include <kelo/CMListRowsNode.h>
#include <kelo/CMValueNode.h>

/// One setting of a menu that orders lists: a text, one of those that stand at the node's path +
/// "/Enums". A choice goes into the worker's browse settings, which the next list is asked for
/// with. Owned by the worker's tree; choices are taken on the worker's thread. It does not check
/// that a text is one of the choices, and reloads no list.
class TidalFilterEnumNode : public TidalNode<TidalFilterEnumNode, CMValueNode>
{
    Q_OBJECT
public:
    TidalFilterEnumNode(TidalWorker* worker, const CMPath& path) : TidalNode(path), m_worker(worker)
    {
    }

    /// Whether it orders the tracks of playlists instead of the lists of My Music.
    void setIsTracks(bool isTracks) { m_isTracks = isTracks; }
    /// The setting that a path names by its last component; none of the three for any other path.
    static KeloTidalOrderingType::Enum getOrderingType(const CMPath& path);
    /// Takes a text as the choice; an error for what is no text.
    bool setDataRequest(const CMSetDataRequest& request) override;

public Q_SLOTS:
    /// Stores a choice, answers the request and closes the choices that clients have open.
    void on_handleBrowseSetting(KeloTidalOrderingType::Enum type, QString value,
                                KeloTidalBrowseSetting* setting, const CMSetDataRequest& request);

private:
    TidalWorker* m_worker;
    bool m_isTracks = false; ///< set before the tree knows the node's menu
};

/// Menu of how the lists of My Music are ordered and filtered. Owned by the worker's tree.
class TidalOrderingContextNode : public TidalNode<TidalOrderingContextNode, CMListRowsNode>
{
    Q_OBJECT
public:
    TidalOrderingContextNode(TidalWorker* worker, const CMPath& path);
};

/// Menu of how the tracks of playlists are ordered. Owned by the worker's tree.
class TidalTrackOrderingContextNode
    : public TidalNode<TidalTrackOrderingContextNode, CMListRowsNode>
{
    Q_OBJECT
public:
    TidalTrackOrderingContextNode(TidalWorker* worker, const CMPath& path);
};
