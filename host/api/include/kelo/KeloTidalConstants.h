#pragma once
#include "CMPath.h"
#include "KeloExport.h"
#include "KeloNames.h"

// Paths and words of the TIDAL service, shared by the module, the program and the tests. What
// begins with "/" and is a QString is a piece of a path; what is a CMPath stands in the host tree
// as it is.

#define KELO_TIDAL_WORD(function, text)                                                            \
    inline const QString& function()                                                               \
    {                                                                                              \
        static const QString word = QStringLiteral(text);                                          \
        return word;                                                                               \
    }

KELO_TIDAL_WORD(KeloService_Tidal_Id, "tidal") ///< identifier of the service
KELO_TIDAL_WORD(KeloTidalName, "tidal")        ///< its name at the OAuth2 service

KELO_TIDAL_WORD(KeloTidalRequest, "/req") ///< marks paths that a service request answers
KELO_TIDAL_WORD(KeloTidalContextIdentifier, "context") ///< in the base of every context menu's path
KELO_TIDAL_WORD(KeloTidalRootPathMyMusic, "myMusic")

// Paths of the service's web API; the synthetic requests that carry an answer home use them too.
KELO_TIDAL_WORD(KeloTidalApiPathSessions, "/sessions")
KELO_TIDAL_WORD(KeloTidalApiPathSubscription, "/subscription")
KELO_TIDAL_WORD(KeloTidalApiPathUsers, "/users")
KELO_TIDAL_WORD(KeloTidalApiPathFavorites, "/favorites")
KELO_TIDAL_WORD(KeloTidalApiPathTracks, "/tracks")
KELO_TIDAL_WORD(KeloTidalApiPathFeatured, "/featured")
KELO_TIDAL_WORD(KeloTidalApiPathMoods, "/moods")
KELO_TIDAL_WORD(KeloTidalApiPathGenres, "/genres")
KELO_TIDAL_WORD(KeloTidalApiPathMaster, "/master")
KELO_TIDAL_WORD(KeloTidalApiPathDiscovery, "/discovery")
KELO_TIDAL_WORD(KeloTidalApiPathRising, "/rising")
KELO_TIDAL_WORD(KeloTidalApiPathPlaybackInfoPostPaywall, "/playbackinfopostpaywall")
KELO_TIDAL_WORD(KeloTidalApiPathPlaybackInfoPrePaywall, "/playbackinfoprepaywall")

// Kinds of items. In paths they stand in lower case.
KELO_TIDAL_WORD(KeloTidalPlaylists, "Playlists")
KELO_TIDAL_WORD(KeloTidalAlbums, "Albums")
KELO_TIDAL_WORD(KeloTidalArtists, "Artists")
KELO_TIDAL_WORD(KeloTidalTracks, "Tracks")

// Entries of an artist's page, by the service's words.
KELO_TIDAL_WORD(KeloTidalArtistTracks, "toptracks")
KELO_TIDAL_WORD(KeloTidalArtistAlbums, "albums")
KELO_TIDAL_WORD(KeloTidalArtistPlaylistsCreated, "playlistscreatedby")
KELO_TIDAL_WORD(KeloTidalArtistSimilar, "similar")
KELO_TIDAL_WORD(KeloTidalArtistRadio, "radio")
KELO_TIDAL_WORD(KeloTidalArtistBio, "bio")

// Actions and forms.
KELO_TIDAL_WORD(KeloTidalAddToPlaylists, "/addToPlaylists")
KELO_TIDAL_WORD(KeloTidalRemoveFromPlaylists, "/removeFromPlaylists")
KELO_TIDAL_WORD(KeloTidalMoveTrack, "/moveTrack")
KELO_TIDAL_WORD(KeloTidalCreatePlaylist, "/createPlaylist")
KELO_TIDAL_WORD(KeloTidalUpdatePlaylists, "/updatePlaylists")

// Playing.
KELO_TIDAL_WORD(KeloTidalPrePlayPath, "/prePlay")
KELO_TIDAL_WORD(KeloTidalPlayItemPrefix,
                "tidalitem://") ///< leads a track id that is not an address yet

#undef KELO_TIDAL_WORD

/// A reference to a track, by its id: the value of a play or look-up request.
struct KELO_EXPORT KeloTidalPlayItem
{
    KELO_NAME(Id, "id")
};

/// Base of synthetic requests: empty.
KELO_EXPORT CMPath KeloTidalPrefixPath();
KELO_EXPORT CMPath KeloTidalPlayIdPath();
KELO_EXPORT CMPath KeloTidalGetMediaPath();
KELO_EXPORT CMPath KeloTidalPlayMediaPath();
KELO_EXPORT CMPath KeloTidalMessagePath();
KELO_EXPORT CMPath KeloTidalMyPlaylistsPath();

/// The TIDAL settings value, and the values below it.
KELO_EXPORT CMPath KeloTidalSettingsPath();
KELO_EXPORT CMPath KeloTidalSoundQualityPath();
KELO_EXPORT CMPath KeloTidalUsePostPaywallPath();
KELO_EXPORT CMPath KeloTidalDeviceCodeUrlPath();
KELO_EXPORT CMPath KeloTidalAuthorizationServiceUrlPath();
KELO_EXPORT CMPath KeloTidalTokenServiceUrlPath();
KELO_EXPORT CMPath KeloTidalClientIdPath();
KELO_EXPORT CMPath KeloTidalClientSecretPath();
KELO_EXPORT CMPath KeloTidalScope();

/// Where the host's player stands.
KELO_EXPORT CMPath KeloPlayerPath();
