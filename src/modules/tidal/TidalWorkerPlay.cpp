// Playing one item: what is missing of it is looked up, then the player gets it.
#include "TidalHandler.h"
#include "TidalWorker.h"
#include <kelo/KeloTidalConstants.h>
#include <kelo/PlayLogicInterface.h>

namespace {
CMError playError(const TrString& message)
{
    return CMError(QStringLiteral("Error"), message);
}

bool isPending(const CMSetDataRequest& request)
{
    return !request.isNull() && !request.reply().isFinished();
}

QString trackReference(const QString& id)
{
    return id.contains(KeloTidalPlayItemPrefix()) ? id : KeloTidalPlayItemPrefix() + id;
}

QVariant responseOf(const CMSetDataRequest& request)
{
    return request.isNull() ? QVariant() : request.value().toHash().value(KeloRoles::Value());
}

/// The media data that a play request brings: bare, as a value, or inside the roles of a row.
KeloMediaData mediaDataOf(const QVariant& value)
{
    const KeloValue hash(value.toHash());
    if (hash.contains(KeloRoles::MediaData()))
        return KeloRoles(hash).mediaData();
    const KeloMediaData typed = hash.mediaData();
    return typed.isEmpty() ? KeloMediaData(hash) : typed;
}

/// What the roles of a row say about the item beside its media data; nothing for another value.
KeloRoles itemRolesOf(const QVariant& value)
{
    const KeloHash row(value.toHash());
    KeloRoles item;
    if (!row.contains(KeloRoles::MediaData()))
        return item;
    for (const QString& role : {KeloRoles::Title(), KeloRoles::Icon(), KeloRoles::Type()}) {
        if (row.contains(role))
            item.insert(role, row.value(role));
    }
    return item;
}

/// Whether a text can stand in the path of a service request as it is (RFC 3986 2.3).
bool isPlainId(const QString& id)
{
    const auto isUnreserved = [](QChar c) {
        return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
               (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
               (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || c == QLatin1Char('-') ||
               c == QLatin1Char('_');
    };
    return std::all_of(id.begin(), id.end(), isUnreserved);
}

/// The id of the track that the first resource refers to; empty when there is none.
QString trackIdOf(const KeloMediaData& mediaData)
{
    QString id = mediaData.resources().value(0).uri();
    id.remove(KeloTidalPlayItemPrefix());
    return isPlainId(id) ? id : QString();
}
} // namespace

bool TidalWorker::isPlayPending() const
{
    return isPending(m_playRequest);
}

bool TidalWorker::isMediaPending() const
{
    return isPending(m_mediaRequest);
}

bool TidalWorker::isTrackPending() const
{
    return isPending(m_trackRequest);
}

bool TidalWorker::isMediaMetaData() const
{
    const KeloMetaData metaData = m_mediaData.metaData();
    return m_mediaData.hasMetaData() && metaData.contains(KeloMetaData::Album()) &&
           metaData.contains(KeloMetaData::Artist()) &&
           metaData.contains(KeloMetaData::ServiceID());
}

bool TidalWorker::isMediaResource() const
{
    const QList<KeloResource> resources = m_mediaData.resources();
    if (resources.isEmpty() || !resources.first().contains(KeloResource::Uri()))
        return false;
    const QString uri = resources.first().uri();
    return !uri.isEmpty() && !uri.contains(KeloTidalPlayItemPrefix());
}

bool TidalWorker::isMediaReady() const
{
    return isMediaMetaData() && isMediaResource();
}

void TidalWorker::resetPlay(const CMError& error)
{
    m_playState = PlayState::Idle;
    m_mediaData.clear();
    m_playItemRoles.clear();
    m_playTrackId.clear();
    m_playRequest = CMSetDataRequest();
    if (isTrackPending())
        m_trackRequest.reply().setError(error);
    if (isMediaPending())
        m_mediaRequest.reply().setError(error);
    m_trackRequest = CMSetDataRequest();
    m_mediaRequest = CMSetDataRequest();
}

void TidalWorker::failPlay(const CMError& error)
{
    if (isPlayPending())
        m_playRequest.reply().setError(error);
    resetPlay(error);
}

void TidalWorker::beginPlay(const CMSetDataRequest& request, const KeloMediaData& mediaData)
{
    // An attempt that the host gave up may have left look-ups behind.
    resetPlay(playError(KELO_TR("media data request failed")));
    m_playRequest = request;
    m_playState = PlayState::RequestMedia;
    m_playItemRoles = itemRolesOf(request.value());
    m_mediaData = mediaData;
    m_playTrackId = trackIdOf(mediaData);
    on_internal_play(request);
}

void TidalWorker::on_media_play(const CMSetDataRequest& request)
{
    if (isPlayPending()) {
        request.reply().setError(playError(KELO_TR("droping play request, busy")));
        return;
    }
    const KeloMediaData incoming = mediaDataOf(request.value());
    KeloMetaData metaData = incoming.metaData();
    if (metaData.prePlayData().isEmpty()) {
        request.reply().setError(playError(KELO_TR("prePlayData not set")));
        return;
    }
    metaData.setAllowSeekTime(true);
    metaData.setStartTime(metaData.prePlayTimeOffset());
    KeloResource resource = incoming.resources().value(0);
    resource.setUri(trackReference(metaData.prePlayData()));
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({resource});
    beginPlay(request, mediaData);
}

void TidalWorker::on_tidalId_play(const CMSetDataRequest& request)
{
    const QVariantHash item = request.value().toHash();
    if (!item.contains(KeloTidalPlayItem::Id())) {
        request.reply().setError(playError(KELO_TR("track id not set")));
        return;
    }
    if (isPlayPending()) {
        request.reply().setError(playError(KELO_TR("droping play request, busy")));
        return;
    }
    KeloMetaData metaData;
    metaData.setServiceID(KeloService_Tidal_Id());
    KeloResource resource;
    resource.setUri(trackReference(item.value(KeloTidalPlayItem::Id()).toString()));
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({resource});
    beginPlay(request, mediaData);
}

void TidalWorker::onPrePlay(const CMSetDataRequest& request)
{
    if (isPlayPending()) {
        request.reply().setError(playError(KELO_TR("droping play request, busy")));
        return;
    }
    KeloMediaData mediaData = mediaDataOf(request.value());
    KeloMetaData metaData = mediaData.metaData();
    metaData.setStartTime(metaData.prePlayTimeOffset());
    QList<KeloResource> resources = mediaData.resources();
    KeloResource resource = resources.isEmpty() ? KeloResource() : resources.takeFirst();
    // Without an id the pre-play path itself is the request's.
    const QStringList segments = request.path().splitBase();
    const QString last = segments.isEmpty() ? QString() : segments.last();
    const bool hasId = QStringLiteral("/") + last != KeloTidalPrePlayPath();
    resource.setUri(KeloTidalPlayItemPrefix() + (hasId ? last : QString()));
    resources.prepend(resource);
    mediaData.setMetaData(metaData);
    mediaData.setResources(resources);
    beginPlay(request, mediaData);
}

void TidalWorker::on_internal_play(const CMSetDataRequest& request)
{
    switch (m_playState) {
    case PlayState::Idle:
        break;
    case PlayState::RequestMedia:
        onStatePlayRequestMedia(request);
        break;
    case PlayState::MediaPending:
        onStatePlayRequestMediaPending(request);
        break;
    case PlayState::MediaReady:
        onStatePlayRequestMediaReady();
        break;
    }
}

void TidalWorker::onStatePlayRequestMedia(const CMSetDataRequest& request)
{
    const QString id = m_playTrackId;
    if (!isMediaMetaData() && !responseOf(request).isValid()) {
        if (id.isEmpty()) {
            failPlay(playError(KELO_TR("invalid play request data")));
            return;
        }
        m_playState = PlayState::MediaPending;
        CMPath path = KeloTidalPrefixPath() + KeloTidalApiPathTracks();
        path.addParam(QStringLiteral("trackId"), id);
        on_internal_track(CMSetDataRequest(path, KeloRoles::Value(), QVariant()));
        if (m_playState != PlayState::MediaPending)
            return;
    }
    if (isMediaResource())
        return;
    if (id.isEmpty()) {
        failPlay(playError(KELO_TR("invalid play request data")));
        return;
    }
    m_playState = PlayState::MediaPending;
    const CMPath path = KeloTidalPrefixPath() + KeloTidalPrePlayPath() + QStringLiteral("/") + id;
    on_internal_media(CMSetDataRequest(path, KeloRoles::Value(), QVariant()), m_playRequest);
}

void TidalWorker::on_internal_track(const CMSetDataRequest& request)
{
    if (isTrackPending()) {
        request.reply().setError(playError(KELO_TR("another track request pending")));
        return;
    }
    m_trackRequest = request;
    if (!m_handler->track(request, findQueryValue(request.path(), QStringLiteral("trackId"))))
        failPlay(playError(KELO_TR("media data request failed")));
}

void TidalWorker::on_internal_media(CMSetDataRequest mediaRequest, CMSetDataRequest playRequest)
{
    Q_UNUSED(playRequest)
    if (isMediaPending()) {
        mediaRequest.reply().setError(playError(KELO_TR("another media request pending")));
        return;
    }
    m_mediaRequest = mediaRequest;
    const QVariant value = CMAbstractWorker::getValue(CMRoot(), KeloTidalSoundQualityPath());
    const KeloTidalSoundQuality quality = KeloValue(KeloHash(value.toHash())).tidalSoundQuality();
    const QStringList segments = mediaRequest.path().splitBase();
    const QString id = segments.isEmpty() ? QString() : segments.last();
    if (!m_handler->streamUrl(id, mediaRequest, quality.soundQuality(), false))
        failPlay(playError(KELO_TR("media data request failed")));
}

void TidalWorker::onStatePlayRequestMediaPending(const CMSetDataRequest& request)
{
    const QVariant response = responseOf(request);
    const auto track = response.value<KeloTidalApiTrackResponse>();
    const auto stream = response.value<KeloTidalApiStreamUrlResponse>();
    const QString& status = KeloTidalApiErrorResponse::Status();
    if (response.value<KeloTidalApiErrorResponse>().contains(status) || track.contains(status) ||
        stream.contains(status)) {
        failPlay(playError(KELO_TR("media data request failed")));
        return;
    }
    if (track.contains(KeloTidalApiTrackResponse::Artist()) &&
        track.contains(KeloTidalApiTrackResponse::Album())) {
        completeMetaData(track);
    } else if (stream.contains(KeloTidalApiStreamUrlResponse::TrackId())) {
        if (!completeResource(stream))
            return;
    } else {
        failPlay(playError(KELO_TR("media data resolution incomplete")));
        return;
    }
    m_playState = isMediaReady() ? PlayState::MediaReady : PlayState::RequestMedia;
    on_internal_play(CMSetDataRequest());
}

void TidalWorker::onStatePlayRequestMediaReady()
{
    if (!isMediaReady() || !m_player) {
        failPlay(playError(KELO_TR("internal play loop failed")));
        return;
    }
    KeloRoles item = m_playItemRoles;
    item.setMediaData(m_mediaData);
    item.setPath(m_playRequest.path());
    const QVariant result = m_player->play(item, 0);
    if (isPlayPending())
        CMReply<QVariant>(m_playRequest.reply()).setValue(result);
    resetPlay(CMError());
}
