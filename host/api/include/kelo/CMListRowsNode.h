#pragma once
#include "CMContainerNode.h"

/// A container with a stored list of rows. Rows change on the worker's thread; every change bumps
/// the version of the rows and tells clients that have them open.
class KELO_EXPORT CMListRowsNode : public CMContainerNode
{
    Q_OBJECT
public:
    explicit CMListRowsNode(const CMPath& path);
    static CMListRowsNode* create(CMNodes* nodes, const CMPath& path);

    /// Appends a row that refers to a node, which need not exist yet.
    void rowsAppend(const CMPath& nodePath);
    /// Appends a literal row.
    void rowsAppend(const KeloRoles& row);
    void rowsClear();
    /// A copy of the stored rows.
    CMRowList rows() const;
    int rowsSize() const;
    void setRowsRoles(const KeloRowsRoles& rowsRoles);
    KeloRowsRoles rowsRoles() const;
    /// Whether the request path's parameters are copied onto the paths of the rows.
    void setCopyPathParams(bool copy);

    /// Answers from the list; "not found" for a path that is not its own.
    bool getRowsRequest(const CMGetRowsRequest& request) override;

private:
    void append(const CMRow& row);

    CMRowList m_rows;
    KeloRowsRoles m_rowsRoles;
    bool m_isCopyingPathParams = false;
};
