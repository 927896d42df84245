#include "CMContainerNode.h"

#include "CMGlobal.h"
#include "CMRoot.h"
#include "KeloLog.h"

#include <algorithm>

void CMContainerNode::addDataRoles(KeloRoles& roles, const CMPath::Params& params) const
{
    const State state = locked(m_state);
    roles.setContainerType(state.type);
    roles.insert(KeloRoles::ContainerPlayable(), state.isPlayable);
    if (!state.searchPath.isEmpty())
        roles.insert(KeloRoles::SearchPath(), state.searchPath.toEncoded());
    if (!state.imageUrl.isEmpty())
        roles.insert(KeloRoles::ImageUrl(), state.imageUrl);
    if (!state.acceptPath.isEmpty())
        roles.insert(KeloRoles::AcceptPath(), acceptPathFor(state.acceptPath, params).toEncoded());
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
