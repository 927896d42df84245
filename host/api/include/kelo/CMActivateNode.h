#pragma once
#include "CMSlot.h"
#include "CMUINode.h"
#include <atomic>

/// A shown node that does something when a value is sent to it: it invokes a slot with the request,
/// and the slot sees to the answer.
class KELO_EXPORT CMActivateNode : public CMUINode
{
    Q_OBJECT
public:
    using CMUINode::CMUINode;
    /// The slot is in Qt's coded form and takes a CMSetDataRequest. Without receiver and slot the
    /// node is shown, and answers an activation with an error.
    static CMActivateNode* create(CMNodes* nodes, const CMPath& path, QObject* receiver,
                                  const char* slot, Qt::ConnectionType type);

    void setInvoke(QObject* receiver, const char* slot, Qt::ConnectionType type)
    {
        store(m_state.slot, CMSlot(receiver, slot, type));
    }
    /// Only requests of this role activate the node; empty: any role does.
    void setActivateRole(const QString& role) { store(m_state.role, role); }
    /// Shown (role BusyText) while an invoked slot has not answered.
    void setBusyText(const TrString& text) { store(m_state.busyText, text); }

    bool setDataRequest(const CMSetDataRequest& request) override;

protected:
    KeloRolesType::Enum rolesType() const override { return KeloRolesType::Action_; }
    void addDataRoles(KeloRoles& roles, const CMPath::Params& params) const override;

private:
    struct State
    {
        CMSlot slot;
        QString role; ///< see setActivateRole()
        TrString busyText;
    } m_state;
    std::atomic<int> m_running{0}; ///< invocations that have not been answered
};
