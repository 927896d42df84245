#include "KeloTidalConstants.h"

#define KELO_TIDAL_PATH(function, base)                                                            \
    CMPath function()                                                                              \
    {                                                                                              \
        static const CMPath path(QStringLiteral(base));                                            \
        return path;                                                                               \
    }

KELO_TIDAL_PATH(KeloTidalPrefixPath, "")
KELO_TIDAL_PATH(KeloTidalPlayIdPath, "/tidal/playId")
KELO_TIDAL_PATH(KeloTidalGetMediaPath, "/tidal/getMedia")
KELO_TIDAL_PATH(KeloTidalPlayMediaPath, "/tidal/playMedia")
KELO_TIDAL_PATH(KeloTidalMessagePath, "/tidal/message")
KELO_TIDAL_PATH(KeloTidalMyPlaylistsPath, "/tidal/myMusic/req/created/users/playlists")

KELO_TIDAL_PATH(KeloTidalSettingsPath, "/settings/tidal")
KELO_TIDAL_PATH(KeloTidalSoundQualityPath, "/settings/tidal/soundQuality")
KELO_TIDAL_PATH(KeloTidalUsePostPaywallPath, "/settings/tidal/usePostPaywall")
KELO_TIDAL_PATH(KeloTidalDeviceCodeUrlPath, "/settings/tidal/oauth2/deviceCodeUrl")
KELO_TIDAL_PATH(KeloTidalAuthorizationServiceUrlPath, "/settings/tidal/oauth2/authorizationUrl")
KELO_TIDAL_PATH(KeloTidalTokenServiceUrlPath, "/settings/tidal/oauth2/tokenUrl")
KELO_TIDAL_PATH(KeloTidalClientIdPath, "/settings/tidal/oauth2/clientId")
KELO_TIDAL_PATH(KeloTidalClientSecretPath, "/settings/tidal/oauth2/clientSecret")
KELO_TIDAL_PATH(KeloTidalScope, "/settings/tidal/oauth2/scope")

KELO_TIDAL_PATH(KeloPlayerPath, "/player")
