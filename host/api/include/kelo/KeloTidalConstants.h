#pragma once
#include "CMPath.h"
#include "KeloNames.h"

// Paths and words of the TIDAL service, shared by the module, the program and the tests. What
// begins with "/" and is a QString is a piece of a path; what is a CMPath stands in the host tree
// as it is.

KELO_WORD(KeloService_Tidal_Id, "tidal") ///< identifier of the service
KELO_WORD(KeloTidalName, "tidal")        ///< its name at the OAuth2 service

KELO_WORD(KeloTidalRequest, "/req")              ///< marks paths that a service request answers
KELO_WORD(KeloTidalContextIdentifier, "context") ///< in the base of every context menu's path
KELO_WORD(KeloTidalRootPathMyMusic, "myMusic")

// Paths of the service's web API; the synthetic requests that carry an answer home use them too.
KELO_WORD(KeloTidalApiPathSessions, "/sessions")
KELO_WORD(KeloTidalApiPathSubscription, "/subscription")
KELO_WORD(KeloTidalApiPathUsers, "/users")
KELO_WORD(KeloTidalApiPathFavorites, "/favorites")
KELO_WORD(KeloTidalApiPathTracks, "/tracks")
KELO_WORD(KeloTidalApiPathFeatured, "/featured")
KELO_WORD(KeloTidalApiPathMoods, "/moods")
KELO_WORD(KeloTidalApiPathGenres, "/genres")
KELO_WORD(KeloTidalApiPathMaster, "/master")
KELO_WORD(KeloTidalApiPathDiscovery, "/discovery")
KELO_WORD(KeloTidalApiPathRising, "/rising")
KELO_WORD(KeloTidalApiPathPlaybackInfoPostPaywall, "/playbackinfopostpaywall")
KELO_WORD(KeloTidalApiPathPlaybackInfoPrePaywall, "/playbackinfoprepaywall")

// Kinds of items. In paths they stand in lower case.
KELO_WORD(KeloTidalPlaylists, "Playlists")
KELO_WORD(KeloTidalAlbums, "Albums")
KELO_WORD(KeloTidalArtists, "Artists")
KELO_WORD(KeloTidalTracks, "Tracks")

// Entries of an artist's page, by the service's words.
KELO_WORD(KeloTidalArtistTracks, "toptracks")
KELO_WORD(KeloTidalArtistAlbums, "albums")
KELO_WORD(KeloTidalArtistPlaylistsCreated, "playlistscreatedby")
KELO_WORD(KeloTidalArtistSimilar, "similar")
KELO_WORD(KeloTidalArtistRadio, "radio")
KELO_WORD(KeloTidalArtistBio, "bio")

// Actions and forms.
KELO_WORD(KeloTidalAddToPlaylists, "/addToPlaylists")
KELO_WORD(KeloTidalRemoveFromPlaylists, "/removeFromPlaylists")
KELO_WORD(KeloTidalMoveTrack, "/moveTrack")
KELO_WORD(KeloTidalCreatePlaylist, "/createPlaylist")
KELO_WORD(KeloTidalUpdatePlaylists, "/updatePlaylists")

// Playing.
KELO_WORD(KeloTidalPrePlayPath, "/prePlay")
/// Leads a track id that is not an address yet.
KELO_WORD(KeloTidalPlayItemPrefix, "tidalitem://")

/// A reference to a track, by its id: the value of a play or look-up request.
struct KELO_EXPORT KeloTidalPlayItem
{
    KELO_NAME(Id, "id")
};

/// Base of synthetic requests: empty.
KELO_PATH(KeloTidalPrefixPath, "")
KELO_PATH(KeloTidalPlayIdPath, "/tidal/playId")
KELO_PATH(KeloTidalGetMediaPath, "/tidal/getMedia")
KELO_PATH(KeloTidalPlayMediaPath, "/tidal/playMedia")
KELO_PATH(KeloTidalMessagePath, "/tidal/message")
/// The login that the session was set up for, as a KeloOAuth2Info with its subscription.
KELO_PATH(KeloTidalSubscriptionPath, "/tidal/subscription")
KELO_PATH(KeloTidalMyPlaylistsPath, "/tidal/myMusic/req/created/users/playlists")

/// The TIDAL settings value, and the values below it.
KELO_PATH(KeloTidalSettingsPath, "/settings/tidal")
KELO_PATH(KeloTidalSoundQualityPath, "/settings/tidal/soundQuality")
KELO_PATH(KeloTidalUsePostPaywallPath, "/settings/tidal/usePostPaywall")
KELO_PATH(KeloTidalDeviceCodeUrlPath, "/settings/tidal/oauth2/deviceCodeUrl")
KELO_PATH(KeloTidalAuthorizationServiceUrlPath, "/settings/tidal/oauth2/authorizationUrl")
KELO_PATH(KeloTidalTokenServiceUrlPath, "/settings/tidal/oauth2/tokenUrl")
KELO_PATH(KeloTidalClientIdPath, "/settings/tidal/oauth2/clientId")
KELO_PATH(KeloTidalClientSecretPath, "/settings/tidal/oauth2/clientSecret")
KELO_PATH(KeloTidalScope, "/settings/tidal/oauth2/scope")

/// Where the host's player stands.
KELO_PATH(KeloPlayerPath, "/player")
