#pragma once
#include "CMContainerNode.h"

/// A container with a stored list of rows. Rows change on the worker's thread; every change bumps
/// the version of the rows and tells clients that have them open.
class KELO_EXPORT CMListRowsNode : public CMContainerNode
{
    Q_OBJECT
public:
    using CMContainerNode::CMContainerNode;
    static CMListRowsNode* create(CMNodes* nodes, const CMPath& path);

    /// Appends a row that refers to a node, which need not exist yet.
    void rowsAppend(const CMPath& nodePath) { append(CMRow(nodePath)); }
    /// Appends a literal row.
    void rowsAppend(const KeloRoles& row) { append(CMRow(row)); }
    void rowsClear();
    /// A copy of the stored rows.
    CMRowList rows() const { return locked(m_state.rows); }
    int rowsSize() const { return rows().size(); }
    void setRowsRoles(const KeloRowsRoles& roles) { store(m_state.roles, roles); }
    KeloRowsRoles rowsRoles() const { return locked(m_state.roles); }
    /// Whether the request path's parameters are copied onto the paths of the rows.
    void setCopyPathParams(bool copy) { store(m_state.isCopyingPathParams, copy); }

    /// Answers from the list; "not found" for a path that is not its own.
    bool getRowsRequest(const CMGetRowsRequest& request) override;

private:
    void append(const CMRow& row);
    void notifyRowsChanged(int count);

    struct State
    {
        CMRowList rows;
        KeloRowsRoles roles;
        bool isCopyingPathParams = false;
    } m_state;
};
