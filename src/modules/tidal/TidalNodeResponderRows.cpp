#include "TidalListAnswer.h"
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/CMGlobal.h>
#include <kelo/CMListRowsNode.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloTidalConstants.h>
#include <limits>

int TidalNodeResponder::requestedCountOf(const CMGetRowsRequest& request)
{
    if (request.isNull())
        return 0;
    const qint64 count = qint64(request.to()) - request.from() + 1;
    return int(qBound<qint64>(0, count, std::numeric_limits<int>::max()));
}

void TidalNodeResponder::on_baseResponse_invoke(KeloUrl const&, HttpClientPrivate const& priv,
                                                int status, int, QByteArray const& output,
                                                HttpClientHeaders header)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    if (request.isNull()) {
        KELO_LOG("Tidal", WARN) << "Answer to a list that nobody waits for";
        return;
    }
    const int requestedCount = requestedCountOf(request);
    CMPath path = request.path();
    const CMGetRowsRequest secondary(priv.getCMRequestSec());
    if (path.isEmpty() && !secondary.isNull())
        path = secondary.path();
    const PathItemKind kind = requestPathType(path);
    const KeloTidalContextVariation::Enum variation = contextType(path);
    // A list without a body is a failure too.
    if (status != 200) {
        replyFailure(priv, status, output);
        return;
    }
    switch (kind) {
    case Tracks:
        replyTracks(priv, output, KeloError(), requestedCount, path, variation);
        break;
    case Albums:
        replyAlbums(priv, output, KeloError(), requestedCount, path, variation);
        break;
    case Artists:
        replyArtists(priv, output, KeloError(), requestedCount, path, variation);
        break;
    case Playlists: {
        const bool isSearch = path.splitBase().contains(QLatin1String("search"));
        const QString etag = isSearch ? QString() : header.value(QStringLiteral("ETag"));
        replyPlaylists(priv, output, KeloError(), requestedCount, path, etag, variation);
        break;
    }
    }
}

void TidalNodeResponder::replyFailure(const HttpClientPrivate& priv, int status,
                                      const QByteArray& body)
{
    const KeloTidalApiErrorResponse error(KeloJson::parse(body));
    const QString message = resolveError(error, status);
    noteRefusal(priv, status, error);
    priv.getCMRequest().reply().setError(
        CMError(QStringLiteral("TIDAL"), TrString(Language::ntr(message, "TIDAL"))));
}

TidalItemRows::Page TidalNodeResponder::page(const CMGetRowsRequest& request, const CMPath& path,
                                             KeloTidalContextVariation::Enum variation)
{
    const auto context = [this, variation](const QMap<QString, QString>& params) {
        return getContextRoles(params, variation);
    };
    return {request, path, context, m_worker->tidalSettings(), m_worker};
}

template <class ItemRows>
bool TidalNodeResponder::itemRows(const CMGetRowsRequest& request, const QByteArray& body,
                                  KeloError& error, int requestedCount, ItemRows& maker,
                                  QVariantList& rows, int& count)
{
    const TidalListAnswer answer(body, error);
    if (answer.total() == 0) {
        replyNoItems(request);
        return false;
    }
    rows.reserve(qMin(answer.size(), requestedCount));
    int length = 0;
    answer.forEachItem([&](const KeloJson& item, int position) {
        if (length++ < requestedCount)
            rows.append(QVariant(maker.row(typename ItemRows::Response::Item(item), position)));
    });
    if (requestedCount < length) {
        // The quote is deliberate: readers of logs rely on it.
        KELO_LOG("Tidal", TRACE) << "Truncating: requestedCount: " << requestedCount
                                 << "' rows.length: " << length;
    }
    count = exactRows(request, requestedCount, rows.size(), answer.total());
    return true;
}

void TidalNodeResponder::replyTracks(HttpClientPrivate const& priv, QByteArray const& body,
                                     KeloError error, int requestedCount, CMPath const& path,
                                     KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    TidalTrackRows maker(page(request, path, variation));
    QVariantList rows;
    int count = 0;
    if (itemRows(request, body, error, requestedCount, maker, rows, count))
        replyRows(request, rows, count);
    notifyAdded(priv, body, path);
}

void TidalNodeResponder::notifyAdded(const HttpClientPrivate& priv, const QByteArray& body,
                                     const CMPath& path)
{
    const CMSetDataRequest secondary(priv.getCMRequestSec());
    const QString prefix = KeloTidalAddToPlaylists() + QLatin1Char('=');
    const QString marker = secondary.isNull() ? QString() : secondary.value().toString();
    if (marker.startsWith(prefix))
        m_worker->changeRowsSubscribe(path, {QLatin1Char('+') + marker.mid(prefix.size())},
                                      TidalListAnswer::totalOf(KeloJson::parse(body)));
}

void TidalNodeResponder::replyAlbums(HttpClientPrivate const& priv, QByteArray const& body,
                                     KeloError error, int requestedCount, CMPath const& path,
                                     KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    TidalAlbumRows maker(page(request, path, variation));
    QVariantList rows;
    int count = 0;
    if (itemRows(request, body, error, requestedCount, maker, rows, count))
        replyRows(request, rows, count);
}

void TidalNodeResponder::replyArtists(HttpClientPrivate const& priv, QByteArray const& body,
                                      KeloError error, int requestedCount, CMPath const& path,
                                      KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    TidalArtistRows maker(page(request, path, variation));
    QVariantList rows;
    int count = 0;
    if (!itemRows(request, body, error, requestedCount, maker, rows, count))
        return;
    addStoredRows(request, rows, count);
    replyRows(request, rows, count);
}

void TidalNodeResponder::addStoredRows(const CMGetRowsRequest& request, QVariantList& rows,
                                       int& count)
{
    const CMPath& path = request.path();
    auto* list = qobject_cast<CMListRowsNode*>(m_worker->nodes()->find(path));
    const bool isListItself = path.param(QStringLiteral("artistId")).isEmpty() &&
                              path.param(QStringLiteral("contentId")).isEmpty();
    // They stand behind the last row of the service, so they count once that row is known.
    if (!list || !isListItself || qint64(request.from()) + rows.size() < count)
        return;
    for (const CMRow& stored : list->rows()) {
        const int index = count++;
        if (index < request.from() || index > request.to())
            continue;
        KeloRoles roles = stored.roles;
        if (stored.isReference) {
            const CMNode* node = m_worker->nodes()->find(stored.path);
            roles = node ? node->getDataRoles(stored.path.params()) : KeloRoles();
        }
        rows.append(QVariant(CMGlobal::itemRolesToList(roles, request.roles())));
    }
}

void TidalNodeResponder::replyRows(const CMGetRowsRequest& request, const QVariantList& rows,
                                   int count)
{
    KeloRowsRoles answer;
    answer.setRowsCount(count);
    answer.setRows(rows);
    answer.setRowsVersion(qMax(0, request.rowsVersion()));
    request.reply().setValue(answer);
}

void TidalNodeResponder::replyPlaylists(HttpClientPrivate const& priv, QByteArray const& body,
                                        KeloError error, int requestedCount, CMPath const& path,
                                        QString etag, KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    const TidalListAnswer answer(body, error);
    const int total = answer.total();
    const bool isChooser = path.contains(KeloTidalContextIdentifier());
    if (!isChooser && variation == KeloTidalContextVariation::Playlist)
        m_worker->setPlaylistPath(path);
    if (!isChooser && total == 0) {
        replyNoItems(request);
        return;
    }
    PlaylistList playlists;
    answer.forEachItem([&](const KeloJson& item, int) { playlists.emplace_back(item); });
    if (isChooser)
        replyChooser(page(request, path, variation), etag, playlists, total);
    else
        replyPlaylistRows(page(request, path, variation), requestedCount, etag, playlists, total);
}
