#pragma once
#include "TidalItemRows.h"
#include <kelo/CMPath.h>
#include <kelo/CMRequest.h>
#include <kelo/HttpClientHeaders.h>
#include <kelo/HttpClientPrivate.h>
#include <kelo/KeloJson.h>
#include <kelo/KeloMediaData.h>
#include <kelo/KeloTidalApi.h>
#include <kelo/KeloTidalTypes.h>
#include <kelo/KeloUrl.h>
#include <QMap>
#include <QObject>

class TidalHandler;
class TidalWorker;

/// Receives every HTTP answer of the service and turns it into rows, a value or an error for the
/// request that waits for it, or hands it to the worker by a signal. A member of the handler, which
/// is also its parent; lives on the worker's thread. Of its own it asks for nothing: it sends only
/// the next request of an edit that takes several, through the handler.
class TidalNodeResponder : public QObject
{
    Q_OBJECT
public:
    /// What the items of a list are.
    enum PathItemKind { Tracks = 0, Albums = 1, Playlists = 2, Artists = 3 };

    TidalNodeResponder(const QString& name, TidalHandler* handler);
    ~TidalNodeResponder() override;

    /// Number of rows that a list is reported to have, given the rows asked for, the rows that
    /// came, and the service's total.
    int exactRows(CMGetRowsRequest const& request, int requestedCount, int receivedCount,
                  int total);
    /// The message for a failed answer. The service's own message is logged only.
    QString resolveError(KeloTidalApiErrorResponse error, int status);
    /// Answers with the one row "No items found".
    void replyNoItems(CMGetRowsRequest const& request);
    KeloTidalRequestType::Enum getRequestType(CMPath const& path);
    PathItemKind requestPathType(CMPath const& path);
    KeloTidalContextVariation::Enum contextType(CMPath const& path);
    /// Context roles for an item's parameters; an invalid value where there is no context node.
    QVariant getContextRoles(QMap<QString, QString> const& params,
                             KeloTidalContextVariation::Enum variation);
    /// One row, as long as `roles`.
    QVariantList getVariantRole(QStringList const& roles, CMPath const& path, QString const& title,
                                QString const& id, QString const& type, bool disabled,
                                QVariant const& context, QString const& description,
                                QString const& audioType, KeloMediaData const& mediaData,
                                QString const& icon, QString containerType);

    void replyTracks(HttpClientPrivate const& priv, QByteArray const& body, KeloError error,
                     int requestedCount, CMPath const& path,
                     KeloTidalContextVariation::Enum variation);
    void replyAlbums(HttpClientPrivate const& priv, QByteArray const& body, KeloError error,
                     int requestedCount, CMPath const& path,
                     KeloTidalContextVariation::Enum variation);
    void replyArtists(HttpClientPrivate const& priv, QByteArray const& body, KeloError error,
                      int requestedCount, CMPath const& path,
                      KeloTidalContextVariation::Enum variation);
    void replyPlaylists(HttpClientPrivate const& priv, QByteArray const& body, KeloError error,
                        int requestedCount, CMPath const& path, QString etag,
                        KeloTidalContextVariation::Enum variation);

    /// Keeps an artist's radio, and answers with the rows asked for. A radio that is not asked for
    /// from its first row on is not kept.
    void replyRadioTracks(HttpClientPrivate const& priv, QByteArray const& body, KeloError error,
                          int requestedCount, CMPath const& path,
                          KeloTidalContextVariation::Enum variation);

    /// Answers with the menu of an artist's page. An empty address stands for the path's.
    void createArtistContent(CMGetRowsRequest const& request, QString const& artistId,
                             QString const& artistUrl);
    /// Answers from the radio that is kept. False: it is another artist's, the service is to be
    /// asked.
    bool tryResponseRadio(CMGetRowsRequest const& request, QString const& artistId);

    /// Empties the radio that is kept.
    void forgetRadio();

    /// Request of the tree whose answer is being handed to the worker; null at other times.
    const CMRequest& answeredRequest() const { return m_answered.getCMRequest(); }
    /// The second of its requests; null when there is none.
    const CMRequest& answeredSecondary() const { return m_answered.getCMRequestSec(); }
    /// Whether the answer that is being handed to the worker is to what an earlier login asked for.
    bool isOfEarlierLogin() const;

public Q_SLOTS:
    // Answers of the service: address, waiting requests, HTTP status, why the answer did not
    // arrive, body, headers.
    void on_response_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status, int code,
                            QByteArray const& output, HttpClientHeaders header);
    void on_baseResponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                                int code, QByteArray const& output, HttpClientHeaders header);
    // Answers about an artist; a failure without a status in its body is left to the host.
    void on_artistResponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                                  int code, QByteArray const& output, HttpClientHeaders header);
    void on_artistContentResponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv,
                                         int status, int code, QByteArray const& output,
                                         HttpClientHeaders header);
    void on_artistBioResponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                                     int code, QByteArray const& output, HttpClientHeaders header);
    void on_newPlaylist_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                               int code, QByteArray const& output, HttpClientHeaders header);
    void on_updatePlaylist_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                                  int code, QByteArray const& output, HttpClientHeaders header);
    void on_movePlaylistTrack_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                                     int code, QByteArray const& output, HttpClientHeaders header);
    /// The playlist as it is before an edit: sends the edit.
    void on_playlistRepeatReponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv,
                                         int status, int code, QByteArray const& output,
                                         HttpClientHeaders header);
    /// The tracks of what is to be added to a playlist: begins the edit that adds them.
    void on_addToPlaylistResponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv,
                                         int status, int code, QByteArray const& output,
                                         HttpClientHeaders header);
    void on_isFavoriteReponse_invoke(KeloUrl const& url, HttpClientPrivate const& priv, int status,
                                     int code, QByteArray const& output, HttpClientHeaders header);

Q_SIGNALS:
    void sessionsFinished(KeloTidalApiSessionsResponse response, KeloTidalApiErrorResponse error);
    void subscriptionFinished(KeloTidalApiSubscriptionResponse response,
                              KeloTidalApiErrorResponse error);
    void streamUrlFinished(KeloTidalApiStreamUrlResponse response, KeloTidalApiErrorResponse error,
                           CMSetDataRequest request);
    void trackFinished(KeloTidalApiTrackResponse response, KeloTidalApiErrorResponse error);
    void contentRootsFinishedMoods(KeloTidalApiContentRootsResponse response,
                                   KeloTidalApiErrorResponse error);
    void contentRootsFinishedGenres(KeloTidalApiContentRootsResponse response,
                                    KeloTidalApiErrorResponse error);
    void contentRootsFinishedFeatured(KeloTidalApiContentRootsResponse response,
                                      KeloTidalApiErrorResponse error);
    void addRemovePlaylistFinished(CMSetDataRequest request,
                                   KeloTidalContextVariation::Enum variation,
                                   KeloTidalApiErrorResponse error, QVariant value, QString segment,
                                   KeloTidalRequestType::Enum type);
    void addRemoveFavoritesFinished(CMSetDataRequest request,
                                    KeloTidalContextVariation::Enum variation,
                                    KeloTidalApiErrorResponse error);
    void newPlaylistFinished(CMSetDataRequest request, QString uuid, QString etag);
    void updatePlaylistFinished(CMSetDataRequest request);
    void movePlaylistTrackFinished(CMSetDataRequest request);

private:
    /// The radio of an artist, as the service gave it.
    struct Radio
    {
        QString artistId;
        CMPath path; ///< the list that it stands in
        std::vector<KeloTidalApiTrackResponse> tracks;
        int size() const { return int(tracks.size()); }
    };

    void connectWorker();
    /// Hands an answer to the worker by the signal of its kind.
    void emitFinished(KeloTidalRequestType::Enum type, const CMPath& path,
                      const HttpClientPrivate& priv, const KeloJson& answer,
                      const KeloTidalApiErrorResponse& error);
    void emitPlaylistFinished(KeloTidalRequestType::Enum type, const CMPath& path,
                              const HttpClientPrivate& priv,
                              const KeloTidalApiErrorResponse& error);
    /// Has another token asked for, when a failed answer says that the call's is no longer good.
    void noteRefusal(const HttpClientPrivate& priv, int status,
                     const KeloTidalApiErrorResponse& error);
    /// Ends an edit that takes several requests, when the login has ended in which it began: the
    /// next one would be another account's.
    bool endsWithLogin(const HttpClientPrivate& priv);
    /// What the service says about a change that it refuses.
    CMError editRefusal(const HttpClientPrivate& priv, int status, const QByteArray& body);
    /// Answers with the message of a failed answer.
    void replyFailure(const HttpClientPrivate& priv, int status, const QByteArray& body);
    /// Whether an answer about an artist is a failure, or nobody waits for it; a failure is
    /// answered as above, but a body that tells no status leaves the reply to the host.
    bool isArtistFailure(const HttpClientPrivate& priv, int status, const QByteArray& body);
    static int requestedCountOf(const CMGetRowsRequest& request);
    QVariantList noItemsRow(const QStringList& roles);
    /// A row that the service knows nothing of. Clients get its title in their languages.
    QVariantList ownRow(const QStringList& roles, const CMPath& path, const QString& type,
                        const TrString& title, const QString& id = QString(),
                        const QVariant& context = QVariant(),
                        const QString& description = QString());
    TidalItemRows::Page page(const QStringList& roles, const CMPath& path,
                             KeloTidalContextVariation::Enum variation);
    /// The JSON of a list's body; nothing, with the reason in `error` and a WARN line, where it
    /// does not parse.
    static KeloJson parsed(const QByteArray& body, KeloError& error);
    /// Answers with the items of a list. How far the list reaches says the service's total, or
    /// exactRows() where the total may promise too much.
    void replyItems(const CMGetRowsRequest& request, const KeloTidalApiPage& list,
                    int requestedCount, TidalItemRows&& maker, bool isTotalTrue);
    /// Rows that a list of the tree has of its own, behind the service's, of which `shown` are
    /// answered with; the list's count grows by them.
    QVariantList storedRows(const CMGetRowsRequest& request, int shown, int& count);
    /// Answers with the playlists of a context menu, to choose one from, behind two lead rows.
    void replyChooser(const CMGetRowsRequest& request, TidalItemRows::Page page,
                      const QString& etag, const KeloTidalApiPlaylistsResponse& list);
    QVariantList chooserLeadRow(const CMGetRowsRequest& request, const CMPath& path, int index);
    void replyRows(const CMGetRowsRequest& request, KeloRowsRoles answer, int count);
    /// Rows of a radio's tracks from one on, for the rows of the request from its first on.
    KeloRowsRoles radioRows(const CMGetRowsRequest& request, const Radio& radio, int first,
                            int count);
    /// Tells clients of rows that an edit has added to the list, when the marker says so.
    void notifyAdded(const HttpClientPrivate& priv, const QByteArray& body, const CMPath& path);

    TidalHandler* m_handler;
    TidalWorker* m_worker;
    HttpClientPrivate m_answered; ///< of the answer that is being handed to the worker
    Radio m_radio;                ///< the one that is kept; no tracks when none is
};
