#include "TidalHandler.h"
#include <kelo/CMAbstractWorker.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloValue.h>

namespace {
bool usePostPaywall()
{
    const QVariant value = CMAbstractWorker::getValue(CMRoot(), KeloTidalUsePostPaywallPath());
    return KeloValue(KeloHash(value.toHash())).bool_();
}
} // namespace

bool TidalHandler::retrieveSession()
{
    if (!checkAccessToken())
        return false;
    sendGet(KeloTidalApiPathSessions(), Query(), answerSlot,
            syntheticRequest(KeloTidalApiPathSessions()));
    return true;
}

bool TidalHandler::subscribe()
{
    if (!checkAccessToken())
        return false;
    sendGet(userPath(KeloTidalApiPathSubscription()), Query(), answerSlot,
            syntheticRequest(KeloTidalApiPathSubscription()));
    return true;
}

bool TidalHandler::track(CMSetDataRequest const& request, QString const& trackId)
{
    if (!checkSession(request))
        return false;
    if (trackId.isEmpty()) {
        request.reply().setError(CMError(QStringLiteral("TIDAL"), KELO_TR("Missing track ID")));
        return false;
    }
    const QString path = pathOf(request, {QStringLiteral("tracks"), trackId});
    sendGet(path, countryQuery(), answerSlot, request);
    return !path.isEmpty();
}

bool TidalHandler::streamUrl(QString const& trackId, CMSetDataRequest const& request,
                             KeloTidalSoundQualities::Enum quality, bool offline)
{
    if (!checkSession(request))
        return false;
    const QString path = pathOf(request, {QStringLiteral("tracks"), trackId});
    if (path.isEmpty())
        return false;
    const auto highest = m_account.highestSoundQuality().soundQuality();
    const auto effective = int(highest) < int(quality) ? highest : quality;
    const Query options = {
        {QStringLiteral("playbackmode"),
         offline ? QStringLiteral("OFFLINE") : QStringLiteral("STREAM")},
        {QStringLiteral("assetpresentation"), QStringLiteral("FULL")},
        {QStringLiteral("audioquality"), KeloTidalSoundQualities::toString(effective)}};
    const QString& suffix = usePostPaywall() ? KeloTidalApiPathPlaybackInfoPostPaywall()
                                             : KeloTidalApiPathPlaybackInfoPrePaywall();
    sendGet(path + suffix, countryQuery() + options, answerSlot, request);
    return true;
}

void TidalHandler::setAccountSoundQuality(KeloTidalSoundQualities::Enum quality)
{
    KeloTidalSoundQuality record;
    record.setSoundQuality(quality);
    m_account.setHighestSoundQuality(record);
}
