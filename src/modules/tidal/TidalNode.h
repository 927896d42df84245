#pragma once
#include "TidalWorker.h"
#include <kelo/KeloTidalConstants.h>

/// Gives a node class of the module the function by which all of them are made. The node has a
/// constructor of the same parameters; it is owned by the worker's tree.
template <class Node, class Base>
class TidalNode : public Base
{
public:
    using Base::Base;

    static Node* create(TidalWorker* worker, const CMPath& path)
    {
        Q_ASSERT_X(worker, Q_FUNC_INFO, "worker");
        auto* node = new Node(worker, path);
        node->setNodes(worker->nodes());
        return node;
    }
};

/// Media data that say only that the item is this service's.
inline KeloMediaData tidalMediaData()
{
    KeloMetaData metaData;
    metaData.setServiceID(KeloService_Tidal_Id());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    return mediaData;
}

/// A literal row with no more than a type and a title.
inline KeloRoles tidalRow(KeloRolesType::Enum type, const TrString& title)
{
    KeloRoles row;
    row.setType(type);
    row.setTitle(title);
    return row;
}
