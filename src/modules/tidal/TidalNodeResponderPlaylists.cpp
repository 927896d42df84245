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

void TidalNodeResponder::replyPlaylistRows(const TidalItemRows::Page& page, int requestedCount,
                                           const QString& etag, const PlaylistList& playlists,
                                           int total)
{
    TidalPlaylistRows maker(page, etag);
    const int shown = qMin(requestedCount, int(playlists.size()));
    QVariantList rows;
    rows.reserve(shown);
    for (int i = 0; i < shown; ++i)
        rows.append(QVariant(maker.row(playlists[std::size_t(i)], page.request.from() + i)));
    if (shown < requestedCount)
        logMissingPlaylist();
    replyRows(page.request, rows, total);
}

void TidalNodeResponder::replyChooser(const TidalItemRows::Page& page, const QString& etag,
                                      const PlaylistList& playlists, int total)
{
    const CMGetRowsRequest& request = page.request;
    const bool isPlaylistContext = page.path.contains(QStringLiteral("myPlaylist"));
    const CMPath actionPath(m_worker->addToPlaylistNode(isPlaylistContext)->path().base(),
                            page.path.params());
    TidalPlaylistRows maker(page, etag, actionPath);
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
            rows.append(QVariant(maker.row(playlists[position], int(index))));
        }
    }
    const qint64 count = total > 0 ? qint64(total) + leadRows : leadRows + 1;
    replyRows(request, rows, int(qMin<qint64>(count, std::numeric_limits<int>::max())));
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
    const QVariantList row =
        getVariantRole(request.roles(), rowPath, QString(), QStringLiteral("1"),
                       isCreate ? KeloRolesType::Container() : KeloRolesType::Header(), false,
                       QVariant(), QString(), KeloRolesAudioType::None(), KeloMediaData(),
                       QString(), KeloRolesContainerType::None());
    return titled(row, request.roles(), title);
}
