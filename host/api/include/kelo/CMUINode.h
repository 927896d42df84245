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
    explicit CMUINode(const CMPath& path);

    void setTitle(const TrString& title);
    /// The title in the present language.
    QString title() const;
    void setIcon(const QString& url);
    void setDisabled(bool disabled);
    /// The node whose rows are the context menu of this node's row. It need not exist yet.
    void setContextPath(const CMPath& path);
    void setMediaData(const KeloMediaData& mediaData);
    void setDescription(const TrString& description);

    /// Answers with getDataRoles() for the path's parameters, in the order of the roles asked for;
    /// "not found" for a path that is not its own.
    bool getDataRequest(const CMGetDataRequest& request) override;
    KeloRoles getDataRoles(const CMPath::Params& params) const override;

protected:
    /// The type that rows of this node carry.
    virtual KeloRolesType::Enum rolesType() const;
    /// Adds roles of a deriving class; called without the mutex held.
    virtual void addDataRoles(KeloRoles& roles, const CMPath::Params& params) const;
    /// Tells watchers of the data roles.
    void notifyDataChanged();

private:
    TrString m_title;
    TrString m_description;
    QString m_icon;
    bool m_isDisabled = false;
    CMPath m_contextPath;
    KeloMediaData m_mediaData;
};
