#include "CMUINode.h"

#include "CMGlobal.h"

CMUINode::CMUINode(const CMPath& path) : CMNode(path) {}

void CMUINode::setTitle(const TrString& title)
{
    {
        std::lock_guard<std::mutex> lock(mutex());
        m_title = title;
    }
    notifyDataChanged();
}

QString CMUINode::title() const
{
    std::unique_lock<std::mutex> lock(mutex());
    const TrString title = m_title;
    lock.unlock();
    return title.toString();
}

void CMUINode::setIcon(const QString& url)
{
    {
        std::lock_guard<std::mutex> lock(mutex());
        m_icon = url;
    }
    notifyDataChanged();
}

void CMUINode::setDisabled(bool disabled)
{
    {
        std::lock_guard<std::mutex> lock(mutex());
        m_isDisabled = disabled;
    }
    notifyDataChanged();
}

void CMUINode::setContextPath(const CMPath& path)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_contextPath = path;
}

void CMUINode::setMediaData(const KeloMediaData& mediaData)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_mediaData = mediaData;
}

void CMUINode::setDescription(const TrString& description)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_description = description;
}

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
    std::unique_lock<std::mutex> lock(mutex());
    const TrString title = m_title;
    const TrString description = m_description;
    const QString icon = m_icon;
    const bool isDisabled = m_isDisabled;
    const CMPath contextPath = m_contextPath;
    const KeloMediaData mediaData = m_mediaData;
    lock.unlock();

    KeloRoles roles;
    roles.reserve(10);
    roles.setPath(params.isEmpty() ? path() : CMPath(path().base(), params));
    roles.setType(rolesType());
    if (!title.isEmpty())
        roles.setTitle(title);
    if (!description.isEmpty())
        roles.setDescription(description);
    if (!icon.isEmpty())
        roles.setIcon(icon);
    if (isDisabled)
        roles.setDisabled(true);
    if (!mediaData.isEmpty())
        roles.setMediaData(mediaData);
    if (!contextPath.isEmpty()) {
        // The menu's own roles; its path alone while the node is not there.
        const auto* menu = nodes() ? qobject_cast<CMUINode*>(nodes()->find(contextPath)) : nullptr;
        KeloRoles context =
            menu && menu != this ? menu->getDataRoles(contextPath.params()) : KeloRoles();
        context.setPath(contextPath);
        roles.setContext(context.toVariant());
    }
    addDataRoles(roles, params);
    return roles;
}

KeloRolesType::Enum CMUINode::rolesType() const
{
    return KeloRolesType::Text_;
}

void CMUINode::addDataRoles(KeloRoles&, const CMPath::Params&) const {}

void CMUINode::notifyDataChanged()
{
    if (CMSubscribe* subscription = subscribe())
        subscription->dataChanged(path());
}
