#include "TidalActionReply.h"
#include "TidalBrowseNode.h"
#include "TidalNodeResponder.h"
#include "TidalWorker.h"
#include <kelo/CMGlobal.h>
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
    priv.getCMRequest().reply().setError(tidalError(TrString(Language::ntr(message, "TIDAL"))));
}

TidalItemRows::Page TidalNodeResponder::page(const QStringList& roles, const CMPath& path,
                                             KeloTidalContextVariation::Enum variation)
{
    return {roles,   path, path, getContextRoles({}, variation).toHash(), m_worker->tidalSettings(),
            m_worker};
}

KeloJson TidalNodeResponder::parsed(const QByteArray& body, KeloError& error)
{
    const KeloJson answer = KeloJson::parse(body, &error);
    if (error.isSet())
        KELO_LOG("Tidal", WARN) << "Failed to parse list: " << error.message();
    return answer;
}

void TidalNodeResponder::replyItems(const CMGetRowsRequest& request, const KeloTidalApiPage& list,
                                    int requestedCount, TidalItemRows&& maker, bool isTotalTrue)
{
    const int total = list.totalNumberOfItems();
    if (total == 0) {
        replyNoItems(request);
        return;
    }
    const std::vector<KeloJson> items = list.entries();
    maker.reserve(qBound(0, requestedCount, int(items.size())));
    int length = 0;
    qint64 number = request.from();
    for (const KeloJson& item : items) {
        if (!item.isObject())
            KELO_LOG("Tidal", WARN)
                << "Skipping item " << number - request.from() << ", it is not an object";
        else if (length++ < requestedCount)
            maker.row(item, number);
        ++number;
    }
    if (requestedCount < length) {
        // The quote is deliberate: readers of logs rely on it.
        KELO_LOG("Tidal", TRACE) << "Truncating: requestedCount: " << requestedCount
                                 << "' rows.length: " << length;
    }
    const KeloShared<KeloRowBlock> rows = maker.take();
    int count = isTotalTrue ? total : exactRows(request, requestedCount, rows->size(), total);
    const QVariantList stored = storedRows(request, rows->size(), count);
    KeloRowsRoles answer;
    if (stored.isEmpty())
        answer.setBlock(rows);
    else
        answer.setRows(rows->toList() + stored);
    replyRows(request, answer, count);
}

void TidalNodeResponder::replyTracks(HttpClientPrivate const& priv, QByteArray const& body,
                                     KeloError error, int requestedCount, CMPath const& path,
                                     KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    replyItems(request, KeloTidalApiPage(parsed(body, error)), requestedCount,
               TidalTrackRows(page(request.roles(), path, variation)), false);
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
                                      KeloTidalApiPage(KeloJson::parse(body)).totalNumberOfItems());
}

void TidalNodeResponder::replyAlbums(HttpClientPrivate const& priv, QByteArray const& body,
                                     KeloError error, int requestedCount, CMPath const& path,
                                     KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    replyItems(request, KeloTidalApiPage(parsed(body, error)), requestedCount,
               TidalAlbumRows(page(request.roles(), path, variation)), false);
}

void TidalNodeResponder::replyArtists(HttpClientPrivate const& priv, QByteArray const& body,
                                      KeloError error, int requestedCount, CMPath const& path,
                                      KeloTidalContextVariation::Enum variation)
{
    const CMGetRowsRequest request = priv.getCMGetRowsRequest();
    replyItems(request, KeloTidalApiPage(parsed(body, error)), requestedCount,
               TidalArtistRows(page(request.roles(), path, variation)), false);
}

QVariantList TidalNodeResponder::storedRows(const CMGetRowsRequest& request, int shown, int& count)
{
    QVariantList rows;
    const CMPath& path = request.path();
    auto* list = qobject_cast<TidalBrowseNode*>(m_worker->nodes()->find(path));
    const bool isListItself = path.param(QStringLiteral("artistId")).isEmpty() &&
                              path.param(QStringLiteral("contentId")).isEmpty();
    // They stand behind the last row of the service, so they count once that row is known.
    if (!list || !isListItself || qint64(request.from()) + shown < count)
        return rows;
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
    return rows;
}

void TidalNodeResponder::replyRows(const CMGetRowsRequest& request, KeloRowsRoles answer, int count)
{
    answer.setRowsCount(count);
    answer.setRowsVersion(qMax(0, request.rowsVersion()));
    request.reply().setValue(answer);
}
