// The service's answers about one item, and the host's question for its media data.
#include "TidalActionReply.h"
#include "TidalHandler.h"
#include "TidalItemRows.h"
#include "TidalNode.h"
#include <kelo/KeloJson.h>
#include <kelo/KeloLog.h>
#include <kelo/KeloMimeTypes.h>

namespace {
/// Whether an answer names another item than the one with the id.
bool isForeign(const QString& id, bool hasId, qint64 answered)
{
    bool isNumber = false;
    const qint64 asked = id.toLongLong(&isNumber);
    return hasId && (!isNumber || asked != answered);
}
} // namespace

void TidalWorker::finishLookUp(const CMSetDataRequest& lookUp, const QVariant& response,
                               bool isForeign, const KeloTidalApiErrorResponse& error)
{
    if (!error.isEmpty()) {
        const QString message = error.userMessage();
        failPlay(message.isEmpty() ? KELO_TR("media data request failed") : TrString(message));
        return;
    }
    if (isForeign) {
        failPlay(KELO_TR("media data resolution incomplete"));
        return;
    }
    lookUp.reply().setValue(response);
    if (m_play.state == PlayState::MediaPending && m_play.isPlayPending())
        on_internal_play(CMSetDataRequest(lookUp.path(), KeloRoles::Value(),
                                          QVariantHash{{KeloRoles::Value(), response}},
                                          CMVoidReply()));
}

void TidalWorker::on_tidalHandler_track(KeloTidalApiTrackResponse response,
                                        KeloTidalApiErrorResponse error)
{
    // An attempt that has ended may still get answers: they are told by their request.
    const CMRequest& answered = m_handler->responder()->answeredRequest();
    const CMSetDataRequest lookUp = m_play.trackRequest;
    if (!m_play.isTrackPending() || (!answered.isNull() && !(answered == lookUp)))
        return;
    const QString id = lookUp.path().param(QStringLiteral("trackId"));
    finishLookUp(lookUp, QVariant::fromValue(response),
                 isForeign(id, response.contains(QStringLiteral("id")), response.id()), error);
}

void TidalWorker::on_tidalHandler_streamUrl(KeloTidalApiStreamUrlResponse response,
                                            KeloTidalApiErrorResponse error,
                                            const CMSetDataRequest& request)
{
    if (!m_play.isMediaPending() || !(request == m_play.mediaRequest))
        return;
    const QString id = request.path().splitBase().value(1);
    const bool hasId = response.contains(KeloTidalApiStreamUrlResponse::TrackId());
    finishLookUp(request, QVariant::fromValue(response), isForeign(id, hasId, response.trackId()),
                 error);
}

void TidalWorker::completeMetaData(const KeloTidalApiTrackResponse& track)
{
    KeloMetaData metaData = m_play.mediaData.metaData();
    metaData.setAlbum(track.album().title());
    metaData.setArtist(track.artist().name());
    metaData.setServiceID(KeloService_Tidal_Id());
    m_play.mediaData.setMetaData(metaData);

    m_play.itemRoles.setType(KeloRolesType::Audio_);
    m_play.itemRoles.setTitle(track.title());
    const QString cover = track.album().cover();
    if (!cover.isEmpty())
        m_play.itemRoles.setIcon(
            TidalImageUrl(m_settings.imageUrl(), m_settings.imageSize()).text(cover.toStdString()));
}

bool TidalWorker::completeResource(const KeloTidalApiStreamUrlResponse& stream)
{
    if (stream.manifestMimeType() != QStringLiteral("application/vnd.tidal.bts")) {
        KELO_LOG("Tidal", ERROR) << "Unsupported manifest type: " << stream.manifestMimeType();
        failPlay(KELO_TR("unsupported manifest type"));
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
        failPlay(KELO_TR("invalid manifest"));
        return false;
    }
    KeloResource resource = m_play.mediaData.resources().value(0);
    resource.setUri(address);
    resource.setMimeType(manifest.mimeType());
    resource.setMaxIdleTime(m_settings.maxIdleTimeMs());
    m_play.mediaData.setResources({resource});
    return true;
}

void TidalWorker::on_media_get(const CMSetDataRequest& request)
{
    const QString reference = playItemReference(request);
    if (reference.isEmpty())
        return;
    KeloMediaData mediaData = tidalMediaData();
    KeloMetaData metaData = mediaData.metaData();
    metaData.setPrePlayPath(KeloTidalPlayMediaPath());
    metaData.setPrePlayData(reference);
    mediaData.setMetaData(metaData);
    KeloResource resource;
    resource.setMimeType(MimeTypes::Text::plain());
    mediaData.setResources({resource});
    request.reply().setValue(mediaData.toVariant());
}
