#include "CMUINode.h"

#include "CMGlobal.h"

bool CMUINode::getDataRequest(const CMGetDataRequest& request)
{
    if (!isOwnPath(request.path()))
        return replyNotFound(request);
    const KeloRoles roles = getDataRoles(request.path().params());
    request.reply().setValue(CMGlobal::itemRolesToList(roles, request.roles()));
    return true;
}

KeloRoles CMUINode::getDataRoles(const CMPath::Params& params) const
{
    const State state = locked(m_state);
    KeloRoles roles;
    roles.reserve(10);
    roles.setPath(params.isEmpty() ? path() : CMPath(path().base(), params));
    roles.setType(rolesType());
    if (!state.title.isEmpty())
        roles.setTitle(state.title);
    if (!state.description.isEmpty())
        roles.setDescription(state.description);
    if (!state.icon.isEmpty())
        roles.setIcon(state.icon);
    if (state.isDisabled)
        roles.setDisabled(true);
    if (!state.mediaData.isEmpty())
        roles.setMediaData(state.mediaData);
    if (!state.contextPath.isEmpty()) {
        // The menu's own roles; its path alone while the node is not there.
        const auto* menu =
            nodes() ? qobject_cast<CMUINode*>(nodes()->find(state.contextPath)) : nullptr;
        KeloRoles context =
            menu && menu != this ? menu->getDataRoles(state.contextPath.params()) : KeloRoles();
        context.setPath(state.contextPath);
        roles.setContext(context.toVariant());
    }
    addDataRoles(roles, params);
    return roles;
}

void CMUINode::notifyDataChanged()
{
    if (CMSubscribe* subscription = subscribe())
        subscription->dataChanged(path());
}
