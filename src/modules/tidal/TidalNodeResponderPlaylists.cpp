#include "TidalNewPlaylistForm.h"
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>
#include <limits>

namespace {
/// Rows of a chooser that stand ahead of the playlists: "Create playlist" and a header.
constexpr int leadRows = 2;

void logMissingPlaylist()
{
    KELO_LOG("Tidal", ERROR) << "secondInd >= rowsCount, wrong usage of limit in request ?";
}
} // namespace

void TidalNodeResponder::replyPlaylists(HttpClientPrivate const& priv, QByteArray const& body,
                                        KeloError error, int requestedCount, CMPath const& path,
                                        QString etag, KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    const KeloTidalApiPlaylistsResponse list(parsed(body, error));
    TidalItemRows::Page shown = page(request.roles(), path, variation);
    if (path.contains(KeloTidalContextIdentifier())) {
        replyChooser(request, shown, etag, list);
        return;
    }
    if (variation == KeloTidalContextVariation::Playlist)
        m_worker->setPlaylistPath(path);
    shown.itemPath.addParam(QStringLiteral("ETag"), etag);
    replyItems(request, list, requestedCount, TidalPlaylistRows(shown, false), true);
    if (list.totalNumberOfItems() > 0 && int(list.items().size()) < requestedCount)
        logMissingPlaylist();
}

void TidalNodeResponder::replyChooser(const CMGetRowsRequest& request, TidalItemRows::Page page,
                                      const QString& etag,
                                      const KeloTidalApiPlaylistsResponse& list)
{
    const bool isPlaylistContext = page.path.contains(QStringLiteral("myPlaylist"));
    page.itemPath.setBase(m_worker->addToPlaylistNode(isPlaylistContext)->path().base());
    page.itemPath.addParam(QStringLiteral("ETag"), etag);
    TidalPlaylistRows maker(page, true);
    const auto playlists = list.items();
    const int total = list.totalNumberOfItems();
    // The answer begins with the playlist of the first row that shows one.
    const int firstShown = qMax(request.from(), leadRows);
    QVariantList rows;
    for (qint64 index = request.from(); index <= request.to(); ++index) {
        const auto position = std::size_t(index - firstShown);
        if (index < leadRows) {
            rows.append(QVariant(chooserLeadRow(request, page.path, int(index))));
        } else if (total == 0) {
            if (index == leadRows)
                rows.append(QVariant(noItemsRow(request.roles())));
            break;
        } else if (position >= playlists.size()) {
            logMissingPlaylist();
            break;
        } else {
            maker.row(playlists[position].json(), index);
        }
    }
    rows += maker.take()->toList();
    const qint64 count = total > 0 ? qint64(total) + leadRows : leadRows + 1;
    KeloRowsRoles answer;
    answer.setRows(rows);
    replyRows(request, answer, int(qMin<qint64>(count, std::numeric_limits<int>::max())));
}

QVariantList TidalNodeResponder::chooserLeadRow(const CMGetRowsRequest& request, const CMPath& path,
                                                int index)
{
    const bool isCreate = index == 0;
    CMPath rowPath = m_worker->addPrefix(QStringLiteral("/header"));
    if (isCreate) {
        rowPath = m_worker->newPlaylistForm()->path();
        rowPath.addParams(path.params());
    }
    const TrString title = isCreate ? KELO_TR("Create playlist") : KELO_TR("My playlists");
    return ownRow(request.roles(), rowPath,
                  isCreate ? KeloRolesType::Container() : KeloRolesType::Header(), title,
                  QStringLiteral("1"));
}
