#pragma once
#include "CMPath.h"
#include "CMSubscribe.h"
#include <memory>
#include <QObject>

class CMNode;

/// A worker's node tree: nodes by the base of their path. Owns the nodes, which live until the tree
/// is deleted. Nodes are added on the worker's thread; looking up is allowed on any.
class KELO_EXPORT CMNodes
{
public:
    CMNodes();
    ~CMNodes();
    CMNodes(const CMNodes&) = delete;
    CMNodes& operator=(const CMNodes&) = delete;

    /// Takes a node over. A second node at the same base is a programming error; it is refused with
    /// an ERROR log line and deleted with the tree.
    void add(CMNode* node);
    /// Takes over an object that lives as long as the tree and is no node.
    void own(QObject* object);

    /// The node at the path's base; null when there is none.
    CMNode* find(const CMPath& path) const;
    /// The node at the path's base or its nearest ancestor that is there.
    CMNode* findNearest(const CMPath& path) const;
    int size() const;

    CMSubscribe* subscribe() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
