#include "CMContainerNode.h"

#include "CMGlobal.h"
#include "CMRoot.h"
#include "KeloLog.h"

#include <algorithm>

CMContainerNode::CMContainerNode(const CMPath& path) : CMUINode(path) {}

void CMContainerNode::setContainerType(KeloRolesContainerType::Enum type)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_containerType = type;
}

void CMContainerNode::setContainerType(int type)
{
    setContainerType(KeloRolesContainerType::Enum(type));
}

void CMContainerNode::setPlayable(bool playable)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_isPlayable = playable;
}

void CMContainerNode::setSearchPath(const CMPath& path)
{
    {
        std::lock_guard<std::mutex> lock(mutex());
        m_searchPath = path;
    }
    notifyDataChanged();
}

void CMContainerNode::setAcceptPath(const CMPath& path)
{
    std::lock_guard<std::mutex> lock(mutex());
    m_acceptPath = path;
}

KeloRolesType::Enum CMContainerNode::rolesType() const
{
    return KeloRolesType::Container_;
}

void CMContainerNode::addDataRoles(KeloRoles& roles, const CMPath::Params& params) const
{
    std::unique_lock<std::mutex> lock(mutex());
    const KeloRolesContainerType::Enum containerType = m_containerType;
    const bool isPlayable = m_isPlayable;
    const CMPath searchPath = m_searchPath;
    const CMPath acceptPath = m_acceptPath;
    lock.unlock();

    roles.setContainerType(containerType);
    roles.insert(KeloRoles::ContainerPlayable(), isPlayable);
    if (!searchPath.isEmpty())
        roles.insert(KeloRoles::SearchPath(), searchPath.toEncoded());
    if (!acceptPath.isEmpty())
        roles.insert(KeloRoles::AcceptPath(), acceptPathFor(acceptPath, params).toEncoded());
}

CMPath CMContainerNode::acceptPathFor(const CMPath& acceptPath, const CMPath::Params&) const
{
    return acceptPath;
}

KeloRoles CMContainerNode::rowRoles(const CMRow& row, const CMPath::Params& params,
                                    bool copyPathParams) const
{
    if (!row.isReference)
        return row.roles;
    CMPath target = row.path;
    if (copyPathParams)
        target.addParams(params);
    const CMNode* local = nodes() ? nodes()->find(target) : nullptr;
    KeloRoles roles = local ? local->getDataRoles(target.params()) : CMRoot().dataRoles(target);
    if (roles.isEmpty()) {
        KELO_LOG("Host", WARN) << "the row " << target << " of " << path() << " refers to nothing";
        roles.setPath(target);
        roles.setDisabled(true);
    }
    return roles;
}

bool CMContainerNode::respondGetRowsRequest(const CMGetRowsRequest& request,
                                            const std::vector<CMDynamicContent>& contents,
                                            int rowsVersion, const KeloRowsRoles& rowsRoles,
                                            bool copyPathParams)
{
    if (request.from() < 0 || request.to() < request.from()) {
        request.reply().setError(
            CMError(CMError::BadRequestName(),
                    TrString(TrCharData{"CMContainerNode", "Bad rows request range", nullptr})));
        return true;
    }
    const CMPath::Params& params = request.path().params();
    QVariantList rows;
    int start = 0; // row number at which the present run begins
    for (const CMDynamicContent& content : contents) {
        const int first = std::max(request.from() - start, 0);
        const int last = std::min(request.to() - start, content.count - 1);
        if (first <= last) {
            const CMRowList slice = content.fetch(first, last - first + 1);
            for (const CMRow& row : slice) {
                const KeloRoles roles = rowRoles(row, params, copyPathParams);
                rows.append(QVariant(CMGlobal::itemRolesToList(roles, request.roles())));
            }
        }
        start += content.count;
    }

    KeloRowsRoles answer = rowsRoles;
    if (answer.roles().isEmpty())
        answer.setRoles(getDataRoles(params));
    answer.setRows(rows);
    answer.setRowsCount(start);
    answer.setRowsVersion(rowsVersion);
    request.reply().setValue(answer);
    return true;
}
