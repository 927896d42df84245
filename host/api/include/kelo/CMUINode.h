#pragma once
#include "CMNode.h"
#include "KeloRoles.h"
#include "TrString.h"

/// A node that is shown: it has a title, perhaps an icon, a context menu, media. Setters may be
/// called at any time on the worker's thread; readers of other threads see old or new, whole.
class KELO_EXPORT CMUINode : public CMNode
{
    Q_OBJECT
public:
    using CMNode::CMNode;

    void setTitle(const TrString& title) { show(m_state.title, title); }
    /// The title in the present language.
    QString title() const { return locked(m_state.title).toString(); }
    void setIcon(const QString& url) { show(m_state.icon, url); }
    void setDisabled(bool disabled) { show(m_state.isDisabled, disabled); }
    /// The node whose rows are the context menu of this node's row. It need not exist yet.
    void setContextPath(const CMPath& path) { store(m_state.contextPath, path); }
    void setMediaData(const KeloMediaData& mediaData) { store(m_state.mediaData, mediaData); }
    void setDescription(const TrString& description) { store(m_state.description, description); }

    /// Answers with getDataRoles() for the path's parameters, in the order of the roles asked for;
    /// "not found" for a path that is not its own.
    bool getDataRequest(const CMGetDataRequest& request) override;
    KeloRoles getDataRoles(const CMPath::Params& params) const override;

protected:
    /// The type that rows of this node carry.
    virtual KeloRolesType::Enum rolesType() const { return KeloRolesType::Text_; }
    /// Adds roles of a deriving class; called without the mutex held.
    virtual void addDataRoles(KeloRoles&, const CMPath::Params&) const {}
    /// Tells watchers of the data roles.
    void notifyDataChanged();
    /// As store(), and tells watchers.
    template <class State>
    void show(State& state, const State& value)
    {
        store(state, value);
        notifyDataChanged();
    }

private:
    struct State
    {
        TrString title;
        TrString description;
        QString icon;
        bool isDisabled = false;
        CMPath contextPath;
        KeloMediaData mediaData;
    } m_state;
};
