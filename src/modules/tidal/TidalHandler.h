#pragma once
#include "TidalNodeResponder.h"
#include <kelo/CMRequest.h>
#include <kelo/CMValueItem.h>
#include <kelo/HttpClientHeaders.h>
#include <kelo/HttpClientPrivate.h>
#include <kelo/KeloTidalTypes.h>
#include <QList>
#include <QObject>
#include <QPair>
#include <QString>

class HttpClient;
class HttpClientOptions;
class TidalWorker;

/// Client of the service's web API: every operation becomes one HTTP request, whose answer goes to
/// the responder together with the request of the content tree that it serves. Owned by the worker,
/// used on the worker's thread alone. It does not read answers and keeps no state between requests
/// but the account; the access token is read afresh for each of them.
class TidalHandler : public QObject
{
    Q_OBJECT
public:
    using Query = QList<QPair<QString, QString>>;

    TidalHandler(TidalWorker* worker, QString const& apiUrl, QString const& countryCode);

    TidalWorker* getWorker() const { return m_worker; }
    TidalNodeResponder* responder() { return &m_responder; }
    void setApiUrl(QString const& apiUrl) { m_apiUrl = apiUrl; }
    void setCountryCode(QString const& countryCode) { m_account.setCountryCode(countryCode); }
    /// Forgets the account, its country code included.
    void resetAccount();
    void setAccount(QString const& sessionId, QString const& countryCode, qint64 userId);
    KeloTidalAccount getAccount() const { return m_account; }
    void setAccountSoundQuality(KeloTidalSoundQualities::Enum quality);
    /// Asks the host's OAuth2 service for another token, because the service refused the present
    /// one. Does not wait; requests take up the new token as soon as it is published.
    /// Nothing when the refused call did not carry the token that was sent last.
    void reportRefusedToken(const HttpClientPrivate& refused);
    /// Whether a call was sent before the newest set-up of the session began, or before the logout.
    bool isOfEarlierLogin(const HttpClientPrivate& call) const;

    /// The three ways to send. The address is the API's base URL followed by the path as it is; the
    /// member is a method of the receiver with the signature of the responder's answer slots. They
    /// return the HTTP client's handle of the call.
    void* get(QString path, QList<QPair<QString, QString>>& query, QObject* receiver,
              char const* member, HttpClientPrivate const& userData, int timeoutMs,
              int readSizeLimit);
    void* post(QString path, QList<QPair<QString, QString>>& query, QString& body,
               QObject* receiver, char const* member, HttpClientPrivate const& userData,
               int timeoutMs, HttpClientHeaders const& headers, int readSizeLimit);
    void* deleteCall(QString path, QList<QPair<QString, QString>>& query, QObject* receiver,
                     char const* member, HttpClientPrivate const& userData, int timeoutMs,
                     HttpClientHeaders const& headers, int readSizeLimit);

    // Catalogue. A request that cannot be sent is answered at once.

    /// A list below one of the catalogue's roots: "/type/id/list".
    void baseRequest(CMGetRowsRequest const& request, QString const& type, QString const& id,
                     QString const& list);
    void getAlbumTracks(CMGetRowsRequest const& request, QString const& albumId);
    /// `type` names what is searched for: "albums", "tracks", "artists", "playlists".
    void search(CMGetRowsRequest const& request, QString const& query, QString const& type);
    void getArtist(CMGetRowsRequest request, QString const& artistId);
    void getArtistContent(CMGetRowsRequest request, QString const& artistId, QString const& content,
                          QString const& filter);
    void getArtistBio(CMSetDataRequest request, QString const& artistId);
    /// `marker` says that rows were added before ("/addToPlaylists=3"), so that the answer tells
    /// clients; empty when none were. The service does not see it.
    void getPlaylistTracks(CMGetRowsRequest const& request, QString const& playlistId,
                           KeloTidalBrowseSetting const& setting, QString marker);
    /// The user's own lists. `group` is "favorites", or anything else for what the user made.
    void getMyMusic(CMGetRowsRequest const& request, QString const& type, QString const& group,
                    KeloTidalBrowseSetting* setting);
    /// The roots of a kind: "featured", "moods", "genres". Ends in a signal of the responder; an
    /// unknown kind and a missing token are only logged.
    void getContentRoots(QString const& type);

    // Changes of the user's library. A request that cannot be sent is answered at once; the others
    // by the responder and the worker, in the end.

    void createNewPlaylist(CMSetDataRequest const& request, QString const& title,
                           QString const& description);
    void updatePlaylist(CMSetDataRequest const& request, QString const& title,
                        QString const& description, QString const& playlistId);
    /// The next four change the playlist only while it has this tag.
    void removePlaylist(CMSetDataRequest const& request, QString const& playlistId,
                        QString const& etag);
    /// `trackIds` as the body is to carry them; a negative index appends.
    void addToPlaylist(CMSetDataRequest const& request, QString const& playlistId,
                       QString const& trackIds, QString const& etag, int toIndex);
    void removeFromPlaylist(CMSetDataRequest const& request, QString const& playlistId,
                            QString const& indices, QString const& etag);
    void moveTrack(CMSetDataRequest const& request, QString const& index, QString const& toIndex,
                   QString const& playlistId, QString const& etag);
    /// Begins an edit, or begins it anew: reads the playlist, whose answer sends the edit that the
    /// request's path names. The argument is what the edit is about, invalid for a deletion.
    void loopPlaylistManipulation(CMSetDataRequest const& request, QString const& playlistId,
                                  QVariant const& argument);
    /// Reads the tracks of an item that is to be added to a playlist.
    void getTracksForPlaylists(CMSetDataRequest const& request, QString const& kind,
                               QString const& id);

    // Login and playback. False when nothing was sent.

    /// Ends in the responder's sessionsFinished().
    bool retrieveSession();
    /// Ends in the responder's subscriptionFinished().
    bool subscribe();
    /// Ends in the responder's trackFinished().
    bool track(CMSetDataRequest const& request, QString const& trackId);
    /// Ends in the responder's streamUrlFinished(). Never asks for more than the subscription
    /// allows.
    bool streamUrl(QString const& trackId, CMSetDataRequest const& request,
                   KeloTidalSoundQualities::Enum quality, bool offline);

public Q_SLOTS:
    // Favorites. A kind is KeloTidalAlbums() or one of its like; another one is answered with an
    // error.

    /// Asks whether an item is one; `prepared` carries the values to answer with.
    void on_isFavorite_invoke(CMGetDataRequest const& request, CMSetDataRequest const& prepared,
                              QString const& kind);
    void on_addToFavorites_invoke(CMSetDataRequest const& request, QString const& kind,
                                  QString const& id);
    void on_removeFromFavorites_invoke(CMSetDataRequest const& request, QString const& kind,
                                       QString const& id);

private:
    /// Slot of the responder that takes what is told by its request.
    static constexpr const char* answerSlot = "on_response_invoke";

    QString accessToken() const { return m_accessToken->value().string_(); }
    /// False, with a WARN line and where there is a request an error on it, without a token.
    bool checkAccessToken(const CMRequest& request = CMRequest());
    /// As checkAccessToken(), for what is sent in a later turn than its request came in: false also
    /// when the login has ended meanwhile.
    bool checkSession(const CMRequest& request);
    /// As checkAccessToken(), for what is the user's: false also while nobody's account is known.
    bool checkUser(const CMRequest& request, const QString& domain);
    /// As checkUser(), for favorites: false also when nothing of this kind can be one.
    bool checkFavorite(const CMRequest& request, const QString& domain, const QString& kind);
    /// Options of a call that is authorized and knows by which token.
    HttpClientOptions requestOptions(HttpClientPrivate userData, int timeoutMs, int readSizeLimit,
                                     HttpClientHeaders headers = HttpClientHeaders());
    Query countryQuery() const;
    /// Path of something of the user's: "/users/" user id and the sub-path.
    QString userPath(const QString& subPath) const;
    /// Path of these segments, whatever stands in them: none of them becomes two, or none. Empty,
    /// with an error on the request, where one cannot be a segment.
    static QString pathOf(const CMRequest& request, std::initializer_list<QString> segments);
    /// The same of something of the user's.
    QString userPathOf(const CMRequest& request, std::initializer_list<QString> segments) const;
    /// These send with the limits of this service, answered at the responder, for one request or
    /// two. Nothing is sent where there is no path.
    void sendGet(const QString& path, Query query, const char* member,
                 const HttpClientPrivate::Data& requests);
    void sendPost(const QString& path, Query query, QString body, const char* member,
                  const HttpClientPrivate::Data& requests,
                  const HttpClientHeaders& headers = HttpClientHeaders());
    void sendDelete(const QString& path, const HttpClientPrivate::Data& requests,
                    const HttpClientHeaders& headers = HttpClientHeaders());
    /// A request that nobody waits for, by whose path the responder knows what was asked.
    static CMGetRowsRequest syntheticRequest(const QString& apiPath);

    TidalWorker* m_worker;
    HttpClient* m_httpClient;
    QString m_apiUrl;
    KeloTidalAccount m_account;
    // A call's tag says by which token, in which set-up of the session it was sent.
    QString m_checkedToken; ///< found good by a check; the call that follows carries it
    QString m_sentToken;    ///< what was sent last
    int m_sentSetUp = 0;    ///< the set-up in which that was
    int m_sentTag = 0;      ///< grows with each other token, and each other set-up
    int m_firstTagOfToken = 1;
    int m_firstTagOfSetUp = 0;
    CMValueItem* m_accessToken; ///< always the OAuth2 service's present token
    TidalNodeResponder m_responder;
};
