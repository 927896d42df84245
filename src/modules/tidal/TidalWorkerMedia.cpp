// The service's answers about one item, and the host's question for its media data.
#include "TidalHandler.h"
#include "TidalItemRows.h"
#include "TidalWorker.h"
#include <kelo/KeloJson.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloMimeTypes.h>
#include <kelo/KeloTidalConstants.h>

namespace {
CMError mediaError(const TrString& message)
{
    return CMError(QStringLiteral("Error"), message);
}

/// Whether an answer names another item than the one with the id.
bool isForeign(const QString& id, bool hasId, qint64 answered)
{
    bool isNumber = false;
    const qint64 asked = id.toLongLong(&isNumber);
    return hasId && (!isNumber || asked != answered);
}

CMSetDataRequest withResponse(const CMSetDataRequest& lookUp, const QVariant& response)
{
    const QVariantHash value{{KeloRoles::Value(), response}};
    return CMSetDataRequest(lookUp.path(), KeloRoles::Value(), value, CMVoidReply());
}

CMError serviceError(const KeloTidalApiErrorResponse& error, const TrString& fallback)
{
    const QString message = error.userMessage();
    return mediaError(message.isEmpty() ? fallback : TrString(message));
}
} // namespace

void TidalWorker::on_tidalHandler_track(KeloTidalApiTrackResponse response,
                                        KeloTidalApiErrorResponse error)
{
    // An attempt that has ended may still get answers: they are told by their request.
    const CMRequest& answered = m_handler->responder()->answeredRequest();
    if (!isTrackPending() || (!answered.isNull() && !(answered == m_trackRequest)))
        return;
    if (!error.isEmpty()) {
        failPlay(serviceError(error, KELO_TR("media data request failed")));
        return;
    }
    const QString id = findQueryValue(m_trackRequest.path(), QStringLiteral("trackId"));
    if (isForeign(id, response.contains(QStringLiteral("id")), response.id())) {
        failPlay(mediaError(KELO_TR("media data resolution incomplete")));
        return;
    }
    const QVariant value = QVariant::fromValue(response);
    m_trackRequest.reply().setValue(value);
    if (m_playState == PlayState::MediaPending && isPlayPending())
        on_internal_play(withResponse(m_trackRequest, value));
}

void TidalWorker::on_tidalHandler_streamUrl(KeloTidalApiStreamUrlResponse response,
                                            KeloTidalApiErrorResponse error,
                                            const CMSetDataRequest& request)
{
    if (!isMediaPending() || !(request == m_mediaRequest))
        return;
    if (!error.isEmpty()) {
        failPlay(serviceError(error, KELO_TR("media data request failed")));
        return;
    }
    const QString id = m_mediaRequest.path().splitBase().value(1);
    const bool hasId = response.contains(KeloTidalApiStreamUrlResponse::TrackId());
    if (isForeign(id, hasId, response.trackId())) {
        failPlay(mediaError(KELO_TR("media data resolution incomplete")));
        return;
    }
    const QVariant value = QVariant::fromValue(response);
    m_mediaRequest.reply().setValue(value);
    if (m_playState == PlayState::MediaPending && isPlayPending())
        on_internal_play(withResponse(m_mediaRequest, value));
}

void TidalWorker::completeMetaData(const KeloTidalApiTrackResponse& track)
{
    KeloMetaData metaData = m_mediaData.metaData();
    metaData.setAlbum(track.album().title());
    metaData.setArtist(track.artist().name());
    metaData.setServiceID(KeloService_Tidal_Id());
    m_mediaData.setMetaData(metaData);

    m_playItemRoles.setType(KeloRolesType::Audio_);
    m_playItemRoles.setTitle(track.title());
    const QString cover = track.album().cover();
    if (!cover.isEmpty())
        m_playItemRoles.setIcon(
            TidalImageUrl(m_settings.imageUrl(), m_settings.imageSize()).of(cover.toStdString()));
}

bool TidalWorker::completeResource(const KeloTidalApiStreamUrlResponse& stream)
{
    if (stream.manifestMimeType() != QStringLiteral("application/vnd.tidal.bts")) {
        KELO_LOG("Tidal", ERROR) << "Unsupported manifest type: " << stream.manifestMimeType();
        failPlay(mediaError(KELO_TR("unsupported manifest type")));
        return false;
    }
    const QByteArray text = QByteArray::fromBase64(stream.manifest().toLatin1());
    const KeloTidalApiManifest manifest(KeloJson::parse(text));
    const QString address = manifest.urls().value(0);
    // An address that is none would be asked for again for ever.
    if (address.isEmpty() || address.contains(KeloTidalPlayItemPrefix())) {
        KELO_LOG("Tidal", ERROR) << "Failed to parse manifest file: "
                                 << (manifest.isEmpty() ? stream.manifest()
                                                        : QStringLiteral("no address"));
        failPlay(mediaError(KELO_TR("invalid manifest")));
        return false;
    }
    KeloResource resource = m_mediaData.resources().value(0);
    resource.setUri(address);
    resource.setMimeType(manifest.mimeType());
    resource.setMaxIdleTime(m_settings.maxIdleTimeMs());
    m_mediaData.setResources({resource});
    return true;
}

void TidalWorker::on_media_get(const CMSetDataRequest& request)
{
    const QVariantHash item = request.value().toHash();
    if (!item.contains(KeloTidalPlayItem::Id())) {
        request.reply().setError(mediaError(KELO_TR("track id not set")));
        return;
    }
    QString reference = item.value(KeloTidalPlayItem::Id()).toString();
    if (!reference.contains(KeloTidalPlayItemPrefix()))
        reference.prepend(KeloTidalPlayItemPrefix());
    KeloMetaData metaData;
    metaData.setPrePlayPath(KeloTidalPlayMediaPath());
    metaData.setPrePlayData(reference);
    metaData.setServiceID(KeloService_Tidal_Id());
    KeloResource resource;
    resource.setMimeType(MimeTypes::Text::plain());
    KeloMediaData mediaData;
    mediaData.setMetaData(metaData);
    mediaData.setResources({resource});
    request.reply().setValue(mediaData.toVariant());
}
