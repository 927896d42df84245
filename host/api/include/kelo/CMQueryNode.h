#pragma once
#include "CMUINode.h"

/// A shown node that takes a text to search for. A client adds the text as the query parameter to
/// the query path and asks for that path's rows; a rows request on this node that carries the
/// parameter is answered by the node at the query path.
class KELO_EXPORT CMQueryNode : public CMUINode
{
    Q_OBJECT
public:
    using CMUINode::CMUINode;
    static CMQueryNode* create(CMNodes* nodes, const CMPath& path);

    /// Name of the parameter that carries the user's text.
    void setQuery(const QString& parameter) { store(m_state.parameter, parameter); }
    /// The node that answers the search.
    void setQueryPath(const CMPath& path) { store(m_state.path, path); }

    bool getRowsRequest(const CMGetRowsRequest& request) override;

protected:
    KeloRolesType::Enum rolesType() const override { return KeloRolesType::Container_; }
    void addDataRoles(KeloRoles& roles, const CMPath::Params& params) const override;

private:
    struct State
    {
        QString parameter;
        CMPath path;
    } m_state;
};
