#pragma once
#include <functional>
#include <kelo/CMValueNode.h>

/// The node at which a service's login state stands; a value sent to it starts a login. Owned by
/// its tree; requests reach it on any thread and are handed to the receiver's.
class OAuth2LoginNode : public CMValueNode
{
    Q_OBJECT
public:
    /// Runs on the receiver's thread, in a later turn, and sees to the answer.
    using Activate = std::function<void(const CMSetDataRequest&)>;

    OAuth2LoginNode(const CMPath& path, QObject* receiver, Activate activate);

    bool setDataRequest(const CMSetDataRequest& request) override;

protected:
    KeloRolesType::Enum rolesType() const override { return KeloRolesType::Action_; }

private:
    QObject* const m_receiver;
    const Activate m_activate;
};
