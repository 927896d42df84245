// Playing one item: what is missing of it is looked up, then the player gets it.
#include "TidalActionReply.h"
#include "TidalHandler.h"
#include "TidalNode.h"
#include <kelo/PlayLogicInterface.h>
#include <QRegularExpression>

namespace {
QString trackReference(const QString& id)
{
    return id.contains(KeloTidalPlayItemPrefix()) ? id : KeloTidalPlayItemPrefix() + id;
}

QString lastSegment(const CMPath& path)
{
    return path.base().section(QLatin1Char('/'), -1, -1, QString::SectionSkipEmpty);
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
    static const QRegularExpression unreserved(QStringLiteral("\\A[0-9A-Za-z_-]*\\z"));
    return unreserved.match(id).hasMatch();
}

/// The id of the track that the first resource refers to; empty when there is none.
QString trackIdOf(const KeloMediaData& mediaData)
{
    QString id = mediaData.resources().value(0).uri();
    id.remove(KeloTidalPlayItemPrefix());
    return isPlainId(id) ? id : QString();
}
} // namespace

bool TidalWorker::PlayAttempt::isPending(const CMSetDataRequest& request)
{
    return !request.isNull() && !request.reply().isFinished();
}

bool TidalWorker::PlayAttempt::isMediaMetaData() const
{
    const KeloMetaData metaData = mediaData.metaData();
    return metaData.contains(KeloMetaData::Album()) && metaData.contains(KeloMetaData::Artist()) &&
           metaData.contains(KeloMetaData::ServiceID());
}

bool TidalWorker::PlayAttempt::isMediaResource() const
{
    const QString uri = mediaData.resources().value(0).uri();
    return !uri.isEmpty() && !uri.contains(KeloTidalPlayItemPrefix());
}

void TidalWorker::failPlay(const TrString& message)
{
    const PlayAttempt failed = std::exchange(m_play, PlayAttempt());
    for (const CMSetDataRequest& request :
         {failed.request, failed.trackRequest, failed.mediaRequest}) {
        if (PlayAttempt::isPending(request))
            request.reply().setError(playError(message));
    }
}

bool TidalWorker::refuseBusy(const CMSetDataRequest& request) const
{
    if (!m_play.isPlayPending())
        return false;
    request.reply().setError(playError(KELO_TR("droping play request, busy")));
    return true;
}

void TidalWorker::beginPlay(const CMSetDataRequest& request, const KeloMediaData& mediaData)
{
    // An attempt that the host gave up may have left look-ups behind.
    failPlay(KELO_TR("media data request failed"));
    m_play.request = request;
    m_play.state = PlayState::RequestMedia;
    m_play.itemRoles = itemRolesOf(request.value());
    m_play.mediaData = mediaData;
    m_play.trackId = trackIdOf(mediaData);
    on_internal_play(request);
}

void TidalWorker::on_media_play(const CMSetDataRequest& request)
{
    if (refuseBusy(request))
        return;
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

QString TidalWorker::playItemReference(const CMSetDataRequest& request)
{
    const QVariantHash item = request.value().toHash();
    if (item.contains(KeloTidalPlayItem::Id()))
        return trackReference(item.value(KeloTidalPlayItem::Id()).toString());
    request.reply().setError(playError(KELO_TR("track id not set")));
    return QString();
}

void TidalWorker::on_tidalId_play(const CMSetDataRequest& request)
{
    const QString reference = playItemReference(request);
    if (reference.isEmpty() || refuseBusy(request))
        return;
    KeloResource resource;
    resource.setUri(reference);
    KeloMediaData mediaData = tidalMediaData();
    mediaData.setResources({resource});
    beginPlay(request, mediaData);
}

void TidalWorker::onPrePlay(const CMSetDataRequest& request)
{
    if (refuseBusy(request))
        return;
    KeloMediaData mediaData = mediaDataOf(request.value());
    KeloMetaData metaData = mediaData.metaData();
    metaData.setStartTime(metaData.prePlayTimeOffset());
    QList<KeloResource> resources = mediaData.resources();
    KeloResource resource = resources.isEmpty() ? KeloResource() : resources.takeFirst();
    // Without an id the pre-play path itself is the request's.
    const QString last = lastSegment(request.path());
    const bool hasId = QLatin1Char('/') + last != KeloTidalPrePlayPath();
    resource.setUri(KeloTidalPlayItemPrefix() + (hasId ? last : QString()));
    resources.prepend(resource);
    mediaData.setMetaData(metaData);
    mediaData.setResources(resources);
    beginPlay(request, mediaData);
}

void TidalWorker::on_internal_play(const CMSetDataRequest& request)
{
    switch (m_play.state) {
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
    const QString id = m_play.trackId;
    const bool needsTrack = !m_play.isMediaMetaData() && !responseOf(request).isValid();
    if (id.isEmpty() && (needsTrack || !m_play.isMediaResource())) {
        failPlay(KELO_TR("invalid play request data"));
        return;
    }
    if (needsTrack) {
        m_play.state = PlayState::MediaPending;
        CMPath path = KeloTidalPrefixPath() + KeloTidalApiPathTracks();
        path.addParam(QStringLiteral("trackId"), id);
        on_internal_track(CMSetDataRequest(path, KeloRoles::Value(), QVariant()));
        if (m_play.state != PlayState::MediaPending)
            return;
    }
    if (m_play.isMediaResource())
        return;
    m_play.state = PlayState::MediaPending;
    const CMPath path = KeloTidalPrefixPath() + KeloTidalPrePlayPath() + QStringLiteral("/") + id;
    on_internal_media(CMSetDataRequest(path, KeloRoles::Value(), QVariant()), m_play.request);
}

void TidalWorker::on_internal_track(const CMSetDataRequest& request)
{
    if (m_play.isTrackPending()) {
        request.reply().setError(playError(KELO_TR("another track request pending")));
        return;
    }
    m_play.trackRequest = request;
    if (!m_handler->track(request, request.path().param(QStringLiteral("trackId"))))
        failPlay(KELO_TR("media data request failed"));
}

void TidalWorker::on_internal_media(CMSetDataRequest mediaRequest, CMSetDataRequest)
{
    if (m_play.isMediaPending()) {
        mediaRequest.reply().setError(playError(KELO_TR("another media request pending")));
        return;
    }
    m_play.mediaRequest = mediaRequest;
    const QVariant value = CMAbstractWorker::getValue(CMRoot(), KeloTidalSoundQualityPath());
    const KeloTidalSoundQuality quality = KeloValue(KeloHash(value.toHash())).tidalSoundQuality();
    if (!m_handler->streamUrl(lastSegment(mediaRequest.path()), mediaRequest,
                              quality.soundQuality(), false))
        failPlay(KELO_TR("media data request failed"));
}

void TidalWorker::onStatePlayRequestMediaPending(const CMSetDataRequest& request)
{
    const QVariant response = responseOf(request);
    const auto track = response.value<KeloTidalApiTrackResponse>();
    const auto stream = response.value<KeloTidalApiStreamUrlResponse>();
    const QString& status = KeloTidalApiErrorResponse::Status();
    if (response.value<KeloTidalApiErrorResponse>().contains(status) || track.contains(status) ||
        stream.contains(status)) {
        failPlay(KELO_TR("media data request failed"));
        return;
    }
    if (track.contains(KeloTidalApiTrackResponse::Artist()) &&
        track.contains(KeloTidalApiTrackResponse::Album())) {
        completeMetaData(track);
    } else if (stream.contains(KeloTidalApiStreamUrlResponse::TrackId())) {
        if (!completeResource(stream))
            return;
    } else {
        failPlay(KELO_TR("media data resolution incomplete"));
        return;
    }
    m_play.state = m_play.isMediaReady() ? PlayState::MediaReady : PlayState::RequestMedia;
    on_internal_play(CMSetDataRequest());
}

void TidalWorker::onStatePlayRequestMediaReady()
{
    if (!m_play.isMediaReady() || !m_player) {
        failPlay(KELO_TR("internal play loop failed"));
        return;
    }
    KeloRoles item = m_play.itemRoles;
    item.setMediaData(m_play.mediaData);
    item.setPath(m_play.request.path());
    const QVariant result = m_player->play(item, 0);
    if (m_play.isPlayPending())
        CMReply<QVariant>(m_play.request.reply()).setValue(result);
    m_play = PlayAttempt();
}
