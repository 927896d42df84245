#pragma once

#include "settings/ListenAddress.h"
#include "settings/Secret.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What the streamer can be told, one struct per section of the settings file, with the defaults.
/// Plain values: made once at start by loadSettings(), then only read, on any thread. They are
/// checked when loaded; these structs check nothing.

struct ServerSettings
{
    ListenAddress listen;
    QStringList hostNames; ///< further names under which clients reach it
    QString webDirectory;  ///< where the page's files are read from; empty: the built-in ones
};

struct LogSettings
{
    QString level = "info"; ///< trace, debug, info, warn or error
    QString file;           ///< empty: stderr
};

/// How long a request that came from outside may stay unanswered, in seconds.
struct DeadlineSettings
{
    double rowsSeconds = 120;
    double dataSeconds = 120;
    double setSeconds = 180;
    double moduleSeconds = 20; ///< of a module, until it stands
};

struct PlayerSettings
{
    QString output = "auto"; ///< auto, null or a GStreamer sink description
    bool mpris = true;       ///< offered on the session bus, where there is one
};

/// The modules that are served, and what is theirs.
struct ModuleSettings
{
    QStringList files;                     ///< empty: those that are installed
    QHash<QString, QVariantHash> sections; ///< by the module's name; as they stand in the file

    /// Whether a module may stand there: "/radio", one segment of letters, digits, - and _.
    static bool isPrefix(const QString& path);
};

struct OAuth2Settings
{
    QString deviceCodeUrl = "https://auth.tidal.com/v1/oauth2/device_authorization";
    QString authorizationUrl = "https://login.tidal.com/authorize";
    QString tokenUrl = "https://auth.tidal.com/v1/oauth2/token";
    QString clientId;
    Secret clientSecret;
    QString clientSecretFile; ///< where clientSecret was read from, when it came from a file
    QString scope = "r_usr w_usr w_sub";
};

struct TidalSettings
{
    QString apiUrl = "https://api.tidal.com/v1"; ///< without a closing slash
    QString countryCode = "NO";
    QString imageUrl = "https://resources.tidal.com/images/"; ///< with one
    QString imageSize = "320x320";
    QString imageSizeArtist = "320x320";
    QString imageSizePlaylist = "480x320";
    QString imageSizeGenre = "460x306";
    QString imageSizeMood = "342x342";
    int maxIdleTimeMs = 30000;
    QString soundQuality = "LOSSLESS"; ///< LOW, HIGH, LOSSLESS or HI_RES
    bool usePostPaywall = true;
    OAuth2Settings oauth2;
};

struct Settings
{
    ServerSettings server;
    LogSettings log;
    DeadlineSettings deadlines;
    PlayerSettings player;
    ModuleSettings modules;
    TidalSettings tidal;
};
