#include "TidalContextNode.h"

#include "TidalBrowseNode.h"
#include "TidalEditNode.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>

TidalBaseContextNode::TidalBaseContextNode(TidalWorker* worker, const CMPath& path)
    : TidalNode(path)
{
    KELO_LOG("Tidal", DEBUG) << "TidalBaseContextNode: path: " << path;
    setContainerType(KeloRolesContainerType::List_);
    setMediaData(tidalMediaData());
    setCopyPathParams(true);
    m_favoritesNode =
        TidalAddRemoveFavouritesNode::create(worker, path + QStringLiteral("/favorites"));
    m_favoritesNode->setTitle(KELO_TR("Favorite"));
    rowsAppend(m_favoritesNode->path());
}

QVariant TidalBaseContextNode::getContextRoles(const QMap<QString, QString>& params)
{
    std::call_once(m_rolesOnce, [this] { m_roles = getDataRoles(CMPath::Params()).toHash(); });
    QVariantHash roles = m_roles;
    roles[KeloRoles::Path()] = CMPath(path().base(), params).toEncoded();
    return roles;
}

void TidalBaseContextNode::setFavorite(bool favorite)
{
    m_favoritesNode->setFavorite(favorite);
}

TidalBrowserContextNode::TidalBrowserContextNode(TidalWorker* worker, const CMPath& path)
    : TidalNode(worker, path), m_worker(worker)
{
    const CMPath listPath = path + KeloTidalAddToPlaylists() + KeloTidalRequest() +
                            QStringLiteral("/created") + KeloTidalApiPathUsers() +
                            QStringLiteral("/") + KeloTidalPlaylists().toLower();
    TidalBrowseNode* list = TidalBrowseNode::create(worker, listPath);
    list->setContainerType(KeloRolesContainerType::List_);
    list->setTitle(KELO_TR("Add to playlist"));
    rowsAppend(list->path());
    m_playlistPath = list->path();
}

KeloRoles TidalBrowserContextNode::artistRoles(const CMPath& path, const KeloRolesType::Enum& type,
                                               const TrString& title, const QString& id) const
{
    QVariant context = KeloHash().toVariant();
    TidalBaseContextNode* menu = m_worker->contextNode(KeloTidalContextVariation::Base);
    if (!id.isEmpty() && menu)
        context = menu->getContextRoles(
            {{QStringLiteral("id"), id}, {QStringLiteral("type"), KeloTidalArtists()}});
    KeloRoles roles;
    roles.setPath(path);
    roles.setType(type);
    roles.setTitle(title);
    roles.setContext(context);
    return roles;
}

CMRowList TidalBrowserContextNode::artistRows(const QString& artists) const
{
    CMRowList rows;
    if (artists.isEmpty())
        return rows;
    const TrString heading = KELO_TR("Track artists");
    rows.append(CMRow(artistRoles(CMPath(), KeloRolesType::Header_, heading, QString())));
    const QStringList entries = artists.split(QLatin1Char(','));
    for (const QString& entry : entries) {
        // The first piece alone is the name, so a name is cut at its first "_"; deliberate.
        const QStringList pieces = entry.split(QLatin1Char('_'));
        CMPath path = m_worker->artistsPath();
        path.addParam(QStringLiteral("artistId"), pieces.last());
        rows.append(
            CMRow(artistRoles(path, KeloRolesType::Container_, pieces.first(), pieces.last())));
    }
    return rows;
}

bool TidalBrowserContextNode::getRowsRequest(const CMGetRowsRequest& request)
{
    if (!isOwnPath(request.path())) {
        request.reply().setValue(KeloRowsRoles());
        return false;
    }
    // The version first: rows that change in between are then newer than said, and asked for again.
    const int version = subscribe()->rowsVersion(request.path());
    const CMRowList all = rows() + artistRows(request.path().param(QStringLiteral("artists")));
    const CMDynamicContent content{all.size(),
                                   [all](int offset, int count) { return all.mid(offset, count); }};
    return respondGetRowsRequest(request, {content}, version, rowsRoles(), true);
}
