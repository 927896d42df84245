#pragma once
#include "CMPath.h"
#include "CMSubscribe.h"
#include <memory>
#include <QHash>
#include <QObject>
#include <shared_mutex>
#include <vector>

class CMNode;

/// A worker's node tree: nodes by the base of their path. Owns the nodes, which live until the tree
/// is deleted. Nodes are added on the worker's thread; looking up is allowed on any.
class KELO_EXPORT CMNodes
{
public:
    CMNodes() = default;
    ~CMNodes();
    CMNodes(const CMNodes&) = delete;
    CMNodes& operator=(const CMNodes&) = delete;

    /// Takes a node over. A second node at the same base is a programming error; it is refused with
    /// an ERROR log line and deleted with the tree.
    void add(CMNode* node);
    /// Takes over an object that lives as long as the tree and is no node.
    void own(QObject* object) { m_owned.emplace_back(object); }

    /// The node at the path's base; null when there is none.
    CMNode* find(const CMPath& path) const;
    /// The node at the path's base or its nearest ancestor that is there.
    CMNode* findNearest(const CMPath& path) const;
    int size() const;

    CMSubscribe* subscribe() const { return &m_subscribe; }

private:
    mutable CMSubscribe m_subscribe;
    mutable std::shared_mutex m_mutex; ///< guards the nodes by base
    QHash<QString, CMNode*> m_byBase;
    std::vector<std::unique_ptr<QObject>> m_owned; ///< in the order of coming; worker's thread
};
