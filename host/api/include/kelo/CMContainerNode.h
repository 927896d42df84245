#pragma once
#include "CMUINode.h"
#include "KeloRowsRoles.h"
#include <functional>
#include <vector>

/// One stored row: a reference to a node, anywhere in the host tree, or a literal row.
struct KELO_EXPORT CMRow
{
    CMRow() = default;
    explicit CMRow(const CMPath& nodePath) : path(nodePath), isReference(true) {}
    explicit CMRow(const KeloRoles& literal) : roles(literal) {}

    CMPath path;
    KeloRoles roles;
    bool isReference = false;
};
using CMRowList = QList<CMRow>;

/// A run of rows made when asked for: how many there are, and a function that returns a slice of
/// them. The function runs on the thread that serves the request, without locks held.
struct KELO_EXPORT CMDynamicContent
{
    int count = 0;
    std::function<CMRowList(int offset, int count)> fetch;
};

/// A shown node with rows.
class KELO_EXPORT CMContainerNode : public CMUINode
{
    Q_OBJECT
public:
    using CMUINode::CMUINode;

    void setContainerType(KeloRolesContainerType::Enum type) { store(m_state.type, type); }
    /// Whether the rows can be played one after the other.
    void setPlayable(bool playable) { store(m_state.isPlayable, playable); }
    /// The node that searches below this one; an empty path for none.
    void setSearchPath(const CMPath& path) { show(m_state.searchPath, path); }
    /// Of a module's top node: how the addresses of its pictures begin, such as
    /// "https://img.example/covers/". No other pictures of the module are shown to a page.
    void setImageUrl(const QString& url) { store(m_state.imageUrl, url); }
    /// The node that submits a form; an empty path for none.
    void setAcceptPath(const CMPath& path) { store(m_state.acceptPath, path); }

    /// Answers a rows request from runs of rows that follow one another. `copyPathParams`: the
    /// request path's parameters are added to the path of every row that refers to a node.
    /// `rowsRoles` gives row types and, where set, the container's roles; else they are this node's
    /// data roles. A range below zero or upside down is answered with an error. Always returns
    /// true.
    bool respondGetRowsRequest(const CMGetRowsRequest& request,
                               const std::vector<CMDynamicContent>& contents, int rowsVersion,
                               const KeloRowsRoles& rowsRoles, bool copyPathParams);

protected:
    KeloRolesType::Enum rolesType() const override { return KeloRolesType::Container_; }
    void addDataRoles(KeloRoles& roles, const CMPath::Params& params) const override;
    /// The accept path for the parameters that the container was opened under; the base version
    /// returns the path as set.
    virtual CMPath acceptPathFor(const CMPath& acceptPath, const CMPath::Params&) const
    {
        return acceptPath;
    }

private:
    KeloRoles rowRoles(const CMRow& row, const CMPath::Params& params, bool copyPathParams) const;

    struct State
    {
        KeloRolesContainerType::Enum type = KeloRolesContainerType::None_;
        bool isPlayable = false;
        CMPath searchPath;
        CMPath acceptPath;
        QString imageUrl;
    } m_state;
};
