#pragma once
#include "TidalTree.h"
#include <kelo/CMNodesWorker.h>
#include <kelo/CMValueItem.h>
#include <kelo/KeloMediaData.h>
#include <kelo/KeloTidalApi.h>
#include <kelo/KeloTidalTypes.h>
#include <QSet>

class CMValueNode;
class KeloActionReply;
class PlayLogicInterface;
class TidalHandler;

/// How far the session of the logged-in user is set up.
struct UserConfigState
{
    enum Enum {
        NotConfigured = 0,       ///< no session; the start
        SessionPending = 1,      ///< the session request has been sent
        SubscriptionPending = 2, ///< the subscription request has been sent
        Configured = 3           ///< requests are served
    };
};

/// Root object of the TIDAL module: takes the host's requests, holds them back until the session of
/// the user stands, keeps the static part of the tree, and brings items to the player. Owned by the
/// host; it and everything it creates live on the thread that made it, and its state is touched
/// there alone, save for what is said to be read on any thread. It sends nothing to the service
/// itself: that is the handler's, and what the answers look like in rows is the responder's.
class TidalWorker : public CMNodesWorker
{
    Q_OBJECT
public:
    /// Blocks until the host's OAuth2 service has taken the service's registration and published
    /// its login state.
    explicit TidalWorker(const QVariantHash& settings);
    ~TidalWorker() override;

    /// Any thread. Requests on context menus are served on the caller's thread, set-data and rows
    /// requests in a later turn of the worker's event loop, data requests at once on the worker's
    /// thread.
    void getDataRequest(const CMGetDataRequest& request) override;
    void setDataRequest(const CMSetDataRequest& request) override;
    void getRowsRequest(const CMGetRowsRequest& request) override;

    TidalHandler* getHandler() const { return m_handler; }
    /// The menu of browsed items; null until the static tree is built.
    TidalBrowserContextNode* getBrowserNode() const
    {
        return m_tree ? m_tree->browserContext : nullptr;
    }
    /// The menu that the rows of a variation carry; null for an unknown variation and until the
    /// static tree is built. Any thread.
    TidalBaseContextNode* contextNode(KeloTidalContextVariation::Enum variation) const
    {
        return m_tree ? m_tree->contextNode(variation) : nullptr;
    }
    /// The action under "/context" or under "/playlistcontext" that adds an item to a playlist.
    CMActivateNode* addToPlaylistNode(bool isPlaylistContext) const
    {
        return isPlaylistContext ? m_tree->addToPlaylistInPlaylist : m_tree->addToPlaylist;
    }
    TidalPlaylistForm* newPlaylistForm() const { return m_tree->newPlaylistForm; }
    CMListRowsNode* myMusicNode() const { return m_tree->myMusic; }
    /// Where the artists' pages stand. Any thread.
    CMPath artistsPath() const;
    /// Where single albums stand. Any thread.
    CMPath albumsPath() const;
    /// Where the host's OAuth2 service publishes the login state of this service.
    static CMPath loginPath();

    /// The settings as they were at the start, with the present country code and API address.
    const KeloTidalSettings& tidalSettings() const { return m_settings; }
    /// How the lists of My Music, and the tracks of playlists, are ordered.
    KeloTidalBrowseSetting& myMusicSetting() { return m_myMusicSetting; }
    KeloTidalBrowseSetting& playlistTracksSetting() { return m_playlistTracksSetting; }
    /// The list of the user's playlists, or of the tracks of one, that was shown last; it is
    /// reloaded after an edit.
    const CMPath& playlistPath() const { return m_playlistPath; }
    void setPlaylistPath(const CMPath& path) { m_playlistPath = path; }
    /// The path that a client opened or closed last, menus and the create form aside.
    const CMPath& currentPath() const { return m_open.current; }

    /// Number of the newest set-up of the session. Grows with each, and when the user logs out, so
    /// that what is asked for on behalf of one login is told from what the next one asks for.
    int setUpNumber() const { return m_session.number; }
    /// Whether a login or logout has been published that the worker has not dealt with yet: then
    /// the account and the access token may be of two logins.
    bool isLoginChanging() const { return m_oauthItem && m_oauthItem->isAhead(); }
    /// What a request is answered with that the end of its login has overtaken.
    static CMError loggedOutError();
    bool isUserConfigured() const { return m_session.state == UserConfigState::Configured; }
    bool isUserConfiguring() const
    {
        return m_session.state != UserConfigState::NotConfigured && !isUserConfigured();
    }
    /// Builds what is missing of the static tree; false when it cannot be built.
    bool buildStaticStructure();

    /// A parameter of a path; empty when there is none.
    static QString findQueryValue(const CMPath& path, const QString& name)
    {
        return path.param(name);
    }
    /// The playlist that an edit is about, by the path of its request.
    static QString playlistIdOf(const CMPath& path);
    /// Where the tracks of one of the user's playlists are listed.
    static CMPath tracksPath(const QString& playlistId);
    /// Answers an edit, and tells all clients of it; one without an action has changed nothing.
    void finishEdit(const CMSetDataRequest& request, const QString& action, const CMPath& item,
                    const KeloActionReply& reply);
    /// Where a single album, artist or playlist stands; empty for a track.
    CMPath itemPath(const QString& kind, const QString& id) const;
    /// Tells clients that rows under a path changed.
    void changeRowsSubscribe(const CMPath& path, QStringList changes, int count)
    {
        nodes()->subscribe()->rowsChanged(path, changes, count, -1);
    }

    void addGenresNode(CMListRowsNode* node) { m_genreNodes.append(node); }
    void addMoodsNode(TidalBrowseNode* node) { m_moodNodes.append(node); }
    /// The first genre or mood node at the path; null when there is none.
    CMListRowsNode* getGenresNode(const CMPath& path) const;
    TidalBrowseNode* getMoodsNode(const CMPath& path) const;

public Q_SLOTS:
    void on_getData_invoke(const CMGetDataRequest& request);
    void on_setData_invoke(const CMSetDataRequest& request);
    void on_getRows_invoke(const CMGetRowsRequest& request);

    /// New values of the host tree.
    void on_internal_settingsChanged(KeloValue value);
    void on_serviceOAuth_changed(const KeloValue& newValue, const KeloValue& oldValue);
    /// A client opened, or the last one closed, a rows path.
    void on_tidal_path_enter(const CMPath& path);
    void on_tidal_path_leave(const CMPath& path);

    /// Play requests of the host.
    void on_media_play(const CMSetDataRequest& request);
    void on_tidalId_play(const CMSetDataRequest& request);
    void on_media_get(const CMSetDataRequest& request);
    /// Runs the step of the present play state; an answer stands in the request's value under
    /// KeloRoles::Value().
    void on_internal_play(const CMSetDataRequest& request);
    void on_internal_track(const CMSetDataRequest& request);
    void on_internal_media(CMSetDataRequest mediaRequest, CMSetDataRequest playRequest);

    /// Answers of the service, as the responder hands them on.
    void on_tidalHandler_sessionsFinished(KeloTidalApiSessionsResponse session,
                                          KeloTidalApiErrorResponse error);
    void on_tidalHandler_subscriptionFinished(KeloTidalApiSubscriptionResponse subscription,
                                              KeloTidalApiErrorResponse error);
    void on_tidalHandler_track(KeloTidalApiTrackResponse response, KeloTidalApiErrorResponse error);
    void on_tidalHandler_streamUrl(KeloTidalApiStreamUrlResponse response,
                                   KeloTidalApiErrorResponse error,
                                   const CMSetDataRequest& request);
    void on_tidalHandler_contentRootsFeatured(KeloTidalApiContentRootsResponse roots,
                                              KeloTidalApiErrorResponse error);
    void on_tidalHandler_contentRootsGenres(KeloTidalApiContentRootsResponse roots,
                                            KeloTidalApiErrorResponse error);
    void on_tidalHandler_contentRootsMoods(KeloTidalApiContentRootsResponse roots,
                                           KeloTidalApiErrorResponse error);
    void on_tidalHandler_finishedPlaylists(CMSetDataRequest request,
                                           KeloTidalContextVariation::Enum variation,
                                           KeloTidalApiErrorResponse error, QVariant value,
                                           QString playlistId,
                                           KeloTidalRequestType::Enum requestType);
    void on_tidalHandler_finishedFavorites(CMSetDataRequest request,
                                           KeloTidalContextVariation::Enum variation,
                                           KeloTidalApiErrorResponse error);
    void on_newPlaylist_invoke(const CMSetDataRequest& request, const QString& playlistId,
                               const QString& etag);
    void on_updatePlaylist_invoke(const CMSetDataRequest& request);
    void on_movePlaylistTrack_invoke(const CMSetDataRequest& request);

    /// Actions of the context menus.
    void on_addToPlaylist_invoke(const CMSetDataRequest& request);
    void on_removeFromPlaylist_invoke(const CMSetDataRequest& request);
    void on_move_activation(const CMSetDataRequest& request);

private:
    /// The set-up of the user's session, and the requests that wait for it.
    struct Session
    {
        int state = UserConfigState::NotConfigured;
        int number = 0;             ///< see setUpNumber()
        QList<CMRequest> postponed; ///< in order of arrival; filled while a set-up runs
    };

    /// What clients have open.
    struct OpenPaths
    {
        QSet<CMPath> entered; ///< rows paths
        CMPath current;       ///< see currentPath()

        /// A path has been opened or closed, and becomes current if it can.
        void note(const CMPath& path);
    };

    enum class PlayState { Idle = 0, RequestMedia = 1, MediaPending = 2, MediaReady = 3 };

    /// Bringing one item to the player.
    struct PlayAttempt
    {
        PlayState state = PlayState::Idle;
        CMSetDataRequest request;      ///< null when nothing has been asked to play
        CMSetDataRequest mediaRequest; ///< the look-up of the stream; the last one asked
        CMSetDataRequest trackRequest; ///< the look-up of the track; the last one asked
        QString trackId;               ///< of the play request; empty when it names none
        KeloMediaData mediaData;       ///< of the play request, completed by the look-ups
        KeloRoles itemRoles;           ///< what the player is told beside the media data

        static bool isPending(const CMSetDataRequest& request);
        bool isPlayPending() const { return isPending(request); }
        bool isMediaPending() const { return isPending(mediaRequest); }
        bool isTrackPending() const { return isPending(trackRequest); }
        bool isMediaMetaData() const;
        bool isMediaResource() const;
        bool isMediaReady() const { return isMediaMetaData() && isMediaResource(); }
    };

    /// Sends the service's data to the host's OAuth2 service and waits until it has taken them.
    void registerService();

    /// Whether a request is to be served now; if not it has been answered, served or postponed.
    bool configure(const CMRequest& request);
    /// Takes the set-up of the session one step further.
    void configureUser();
    /// Begins the next set-up, or ends it, when requests wait for one that nobody has begun.
    void resumeSetUp();
    /// Whether the answer that the responder is handing on is to what the newest set-up asked for,
    /// and that set-up waits for it. Any other answer is dropped here.
    bool isExpectedAnswer(UserConfigState::Enum state);
    /// Ends the set-up: answers what was postponed with an error.
    void failSetUp(const TrString& message);
    void finishPosponedRequests(const CMError& error);
    void returnToRequest(CMRequest request);
    bool isLoggedIn() const;
    void resetTopNode();
    void updateUIStructure();
    /// Appends a request to the postponed ones, or refuses it when there are too many.
    void postpone(const CMRequest& request);

    /// Tells clients of the tracks that were added to a playlist, once it has been read anew.
    void notifyAdded(const QString& playlistId, const QString& trackIds);
    /// Tells clients which rows of a playlist's tracks are gone: those that showed these places.
    void notifyRemoved(const QString& playlistId, const QString& places);
    /// A playlist was to be deleted: tells clients of its tracks if it is gone, and forgets them.
    void notifyDeleted(const QString& playlistId, bool isGone);

    /// Whether an answer names roots that are to be taken.
    bool hasRoots(const KeloTidalApiContentRootsResponse& roots,
                  const KeloTidalApiErrorResponse& error) const;
    /// Fills a menu that is empty with an entry for each root, and tells clients of the top node.
    void addRoots(CMListRowsNode* menu, const KeloTidalApiContentRootsResponse& roots,
                  void (TidalWorker::*addRoot)(const KeloTidalApiContentRoots&));
    /// A menu entry for a genre or a mood, unless there is one.
    void addGenre(const KeloTidalApiContentRoots& root);
    void addMood(const KeloTidalApiContentRoots& root);
    /// Tells clients that a menu is to be read anew.
    void notifyReset(const CMListRowsNode* menu);

    /// Whether an item is on its way to the player; then a request to play another is refused.
    bool refuseBusy(const CMSetDataRequest& request) const;
    /// Reference of the play item that a request carries; empty, with an error on the request,
    /// where it names none.
    static QString playItemReference(const CMSetDataRequest& request);
    /// Makes a request the play request, forgets everything of the attempt before it, and starts.
    void beginPlay(const CMSetDataRequest& request, const KeloMediaData& mediaData);
    /// The one way in which an attempt fails; look-ups under way are answered with the error, too.
    void failPlay(const TrString& message);
    void onPrePlay(const CMSetDataRequest& request);
    void onStatePlayRequestMedia(const CMSetDataRequest& request);
    void onStatePlayRequestMediaPending(const CMSetDataRequest& request);
    void onStatePlayRequestMediaReady();
    /// Ends a look-up with the service's answer, which is wrong when it is of another item.
    void finishLookUp(const CMSetDataRequest& lookUp, const QVariant& response, bool isForeign,
                      const KeloTidalApiErrorResponse& error);
    void completeMetaData(const KeloTidalApiTrackResponse& track);
    /// False when the manifest was refused and the attempt has ended.
    bool completeResource(const KeloTidalApiStreamUrlResponse& stream);

    TidalHandler* m_handler = nullptr; ///< a child
    CMValueItem* m_settingsItem = nullptr;
    CMValueItem* m_oauthItem = nullptr;
    PlayLogicInterface* m_player = nullptr; ///< outlives the worker
    KeloTidalSettings m_settings;
    KeloTidalBrowseSetting m_myMusicSetting;
    KeloTidalBrowseSetting m_playlistTracksSetting;

    CMListRowsNode* m_top = nullptr;
    CMValueNode* m_subscription = nullptr;   ///< of the login that is set up; empty while none is
    std::unique_ptr<const TidalTree> m_tree; ///< null until the static tree is built
    QList<CMListRowsNode*> m_genreNodes;
    QList<TidalBrowseNode*> m_moodNodes;

    Session m_session;
    OpenPaths m_open;
    CMPath m_playlistPath;
    PlayAttempt m_play;
};
