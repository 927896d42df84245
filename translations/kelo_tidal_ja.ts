<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>CMActivateNode</name>
    <message>
        <source>%1 does nothing yet</source>
        <translation>%1 にはまだ機能がありません</translation>
    </message>
</context>
<context>
    <name>CMContainerNode</name>
    <message>
        <source>Bad rows request range</source>
        <translation>行の範囲が正しくありません</translation>
    </message>
</context>
<context>
    <name>CMError</name>
    <message>
        <source>There is nothing at %1</source>
        <translation>%1 には何もありません</translation>
    </message>
</context>
<context>
    <name>CMError {anonymous}::noRowError()</name>
    <message>
        <source>Which row of the playlist is not said</source>
        <translation>プレイリストの行が指定されていません</translation>
    </message>
</context>
<context>
    <name>CMNodesWorker</name>
    <message>
        <source>%1 does not take this request</source>
        <translation>%1 はこの要求を受け付けません</translation>
    </message>
</context>
<context>
    <name>CMQueryNode</name>
    <message>
        <source>What to search for is missing: %1</source>
        <translation>検索する語がありません: %1</translation>
    </message>
</context>
<context>
    <name>CMRoot</name>
    <message>
        <source>The module gave no answer</source>
        <translation>モジュールからの応答がありませんでした</translation>
    </message>
    <message>
        <source>The service has stopped</source>
        <translation>サービスが停止しました</translation>
    </message>
    <message>
        <source>The service did not answer in time</source>
        <translation>サービスから時間内に応答がありませんでした</translation>
    </message>
    <message>
        <source>The first row comes after the last one</source>
        <translation>最初の行が最後の行より後になっています</translation>
    </message>
</context>
<context>
    <name>CMRowList TidalBrowserContextNode::artistRows(const QString&amp;) const</name>
    <message>
        <source>Track artists</source>
        <translation>トラックのアーティスト</translation>
    </message>
</context>
<context>
    <name>CMValueNode</name>
    <message>
        <source>What was sent to %1 is no value</source>
        <translation>%1 に送られたものは値ではありません</translation>
    </message>
    <message>
        <source>%1 wants a whole number</source>
        <translation>%1 には整数が必要です</translation>
    </message>
    <message>
        <source>%1 wants a text</source>
        <translation>%1 にはテキストが必要です</translation>
    </message>
    <message>
        <source>%1 wants true or false</source>
        <translation>%1 には真か偽が必要です</translation>
    </message>
    <message>
        <source>%1 cannot be changed</source>
        <translation>%1 は変更できません</translation>
    </message>
</context>
<context>
    <name>HttpReply</name>
    <message>
        <source>Bad request</source>
        <translation>要求が正しくありません</translation>
    </message>
    <message>
        <source>Forbidden</source>
        <translation>許可されていません</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>Method not allowed</source>
        <translation>許可されていないメソッドです</translation>
    </message>
    <message>
        <source>Conflict</source>
        <translation>競合</translation>
    </message>
    <message>
        <source>Body too large</source>
        <translation>内容が大きすぎます</translation>
    </message>
    <message>
        <source>Address too long</source>
        <translation>アドレスが長すぎます</translation>
    </message>
    <message>
        <source>Wrong content type</source>
        <translation>内容の形式が正しくありません</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>内部エラー</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>利用できません</translation>
    </message>
    <message>
        <source>No answer in time</source>
        <translation>時間内に応答がありません</translation>
    </message>
</context>
<context>
    <name>LateAnswer</name>
    <message>
        <source>waiting for the music service, %1 s</source>
        <translation>音楽サービスの応答を待っています（%1 秒）</translation>
    </message>
    <message>
        <source>waiting for the streamer, %1 s</source>
        <translation>ストリーマーの応答を待っています（%1 秒）</translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>No login code: %1.</source>
        <translation>ログインコードを取得できません: %1。</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>ログインが拒否されました。</translation>
    </message>
    <message>
        <source>The login failed: %1.</source>
        <translation>ログインできませんでした: %1。</translation>
    </message>
    <message>
        <source>The code has expired. Start the login again.</source>
        <translation>コードの有効期限が切れました。もう一度ログインしてください。</translation>
    </message>
    <message>
        <source>The code has expired: %1.</source>
        <translation>コードの有効期限が切れました: %1。</translation>
    </message>
    <message>
        <source>the login service is not reached</source>
        <translation>ログインサービスに接続できません</translation>
    </message>
    <message>
        <source>no secure connection to the login service</source>
        <translation>ログインサービスに安全に接続できません</translation>
    </message>
    <message>
        <source>the login service's certificate is not valid at the time that the streamer's clock shows</source>
        <translation>ストリーマーの時計の時刻では、ログインサービスの証明書が有効ではありません</translation>
    </message>
    <message>
        <source>the login service's answer is too large</source>
        <translation>ログインサービスの応答が大きすぎます</translation>
    </message>
    <message>
        <source>the login service does not answer</source>
        <translation>ログインサービスが応答しません</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes fast</source>
        <translation>%1。ストリーマーの時計が%2分進んでいます</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes slow</source>
        <translation>%1。ストリーマーの時計が%2分遅れています</translation>
    </message>
    <message>
        <source>the login service's answer is not understood</source>
        <translation>ログインサービスの応答を解釈できません</translation>
    </message>
    <message>
        <source>the login service answered with status %1</source>
        <translation>ログインサービスがステータス %1 を返しました</translation>
    </message>
    <message>
        <source>No client id is set for %1; see the settings.</source>
        <translation>%1のクライアントIDが設定されていません。設定を確認してください。</translation>
    </message>
    <message>
        <source>The login is not renewed yet: %1.</source>
        <translation>ログインはまだ更新されていません: %1。</translation>
    </message>
    <message>
        <source>The login has ended: the service does not accept it any more. Log in again.</source>
        <translation>ログインが終了しました。サービスがこのログインを受け付けなくなりました。もう一度ログインしてください。</translation>
    </message>
</context>
<context>
    <name>Modules</name>
    <message>
        <source>Modules</source>
        <translation>モジュール</translation>
    </message>
</context>
<context>
    <name>OAuth2Worker::OAuth2Worker(const QString&amp;, std::unique_ptr&lt;TokenEndpoint&gt;, std::unique_ptr&lt;Clock&gt;)</name>
    <message>
        <source>Logins</source>
        <translation>ログイン</translation>
    </message>
    <message>
        <source>Add a login service</source>
        <translation>ログインサービスを追加</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>no sound device, playing silently</source>
        <translation>オーディオ機器がないため、音を出さずに再生しています</translation>
    </message>
    <message>
        <source>the address holds no audio</source>
        <translation>アドレスに音声がありません</translation>
    </message>
    <message>
        <source>the address was refused (%1)</source>
        <translation>アドレスが拒否されました（%1）</translation>
    </message>
    <message>
        <source>nothing stands at the address (%1)</source>
        <translation>アドレスに何もありません（%1）</translation>
    </message>
    <message>
        <source>the audio cannot be decoded: %1</source>
        <translation>音声をデコードできません: %1</translation>
    </message>
    <message>
        <source>the sound device cannot be used: %1</source>
        <translation>オーディオ機器を使用できません: %1</translation>
    </message>
    <message>
        <source>the audio did not arrive: the connection failed or broke off</source>
        <translation>音声を受信できませんでした: 接続できないか、接続が切れました</translation>
    </message>
    <message>
        <source>the audio did not arrive: %1</source>
        <translation>音声を受信できませんでした: %1</translation>
    </message>
    <message>
        <source>asked for the item of %1, the module handed over one of %2</source>
        <translation>%1の項目を求めましたが、モジュールは%2の項目を渡しました</translation>
    </message>
    <message>
        <source>the player ends</source>
        <translation>プレーヤーを終了します</translation>
    </message>
    <message>
        <source>superseded by another command</source>
        <translation>別の操作に置き換えられました</translation>
    </message>
    <message>
        <source>nothing is playing</source>
        <translation>再生していません</translation>
    </message>
    <message>
        <source>there is nothing to play</source>
        <translation>再生するものがありません</translation>
    </message>
    <message>
        <source>%1 broke off: %2</source>
        <translation>%1の再生が途切れました: %2</translation>
    </message>
    <message>
        <source>skipped: %1: %2</source>
        <translation>スキップしました: %1: %2</translation>
    </message>
    <message>
        <source>skipped: %1 cannot be played</source>
        <translation>スキップしました: %1 は再生できません</translation>
    </message>
    <message>
        <source>%1 cannot be played</source>
        <translation>%1 は再生できません</translation>
    </message>
    <message>
        <source>the list does not go on: %1</source>
        <translation>リストを続けられません: %1</translation>
    </message>
    <message>
        <source>nothing in this list can be played</source>
        <translation>このリストには再生できるものがありません</translation>
    </message>
    <message>
        <source>no such row</source>
        <translation>その行はありません</translation>
    </message>
    <message>
        <source>the service gave no address</source>
        <translation>サービスからアドレスが返されませんでした</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>stopped after %1 items in a row that cannot be played: %2</source>
        <translation>再生できない項目が%1件続いたため停止しました: %2</translation>
    </message>
    <message>
        <source>the audio output did not start within %1 seconds and was made anew</source>
        <translation>オーディオ出力が%1秒以内に開始しなかったため、作り直しました</translation>
    </message>
    <message>
        <source>the queue has changed; look at it again</source>
        <translation>再生キューが変更されました。もう一度確認してください</translation>
    </message>
    <message>
        <source>the queue has %1 rows, none at this position</source>
        <translation>再生キューは %1 件で、この位置には何もありません</translation>
    </message>
    <message>
        <source>the queue is full: it holds %1 rows</source>
        <translation>再生キューがいっぱいです（上限 %1 件）</translation>
    </message>
    <message>
        <source>too much is being added at once</source>
        <translation>一度に追加する数が多すぎます</translation>
    </message>
    <message>
        <source>the queue is not kept: %1 was written by a later version</source>
        <translation>再生キューは保存されません: %1 は新しいバージョンで書かれています</translation>
    </message>
    <message>
        <source>the kept queue cannot be read; it was put aside as %1</source>
        <translation>保存された再生キューを読み込めません。%1 として退避しました</translation>
    </message>
    <message>
        <source>the queue is not kept: %1: %2</source>
        <translation>再生キューは保存されません: %1: %2</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::chooserLeadRow(const CMGetRowsRequest&amp;, const CMPath&amp;, int)</name>
    <message>
        <source>Create playlist</source>
        <translation>プレイリストを作成</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>マイプレイリスト</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::noItemsRow(const QStringList&amp;)</name>
    <message>
        <source>No items found</source>
        <translation>項目が見つかりません</translation>
    </message>
</context>
<context>
    <name>SettingsWorker::SettingsWorker(const Settings&amp;, QObject*)</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>TIDAL</name>
    <message>
        <source>Title</source>
        <comment>Playlist title</comment>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>Playlist description</comment>
        <translation>説明</translation>
    </message>
    <message>
        <source>Create</source>
        <comment>Playlist create</comment>
        <translation>作成</translation>
    </message>
    <message>
        <source>Update</source>
        <comment>Playlist update</comment>
        <translation>更新</translation>
    </message>
    <message>
        <source>Bad request</source>
        <translation>要求が正しくありません</translation>
    </message>
    <message>
        <source>Unauthorized</source>
        <translation>認証されていません</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>Unexpected error</source>
        <translation>予期しないエラー</translation>
    </message>
    <message>
        <source>Service Unavailable: Back-end server is at capacity</source>
        <translation>サービスを利用できません。サーバーが混み合っています</translation>
    </message>
    <message>
        <source>unknown Error</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>Error, failed to parse error message</source>
        <translation>エラーメッセージを読み取れませんでした</translation>
    </message>
    <message>
        <source>Non existing track index</source>
        <translation>その位置にトラックはありません</translation>
    </message>
</context>
<context>
    <name>TidalBaseContextNode::TidalBaseContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Favorite</source>
        <translation>お気に入り</translation>
    </message>
</context>
<context>
    <name>TidalBrowserContextNode::TidalBrowserContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Add to playlist</source>
        <translation>プレイリストに追加</translation>
    </message>
</context>
<context>
    <name>TidalMoveTrackNode::TidalMoveTrackNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Row number</source>
        <translation>行番号</translation>
    </message>
    <message>
        <source>Move to row</source>
        <translation>この行へ移動</translation>
    </message>
</context>
<context>
    <name>TidalOrderingContextNode::TidalOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>My Music browsing</source>
        <translation>マイミュージックの表示</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>並べ替え</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Artist - Not for my playlists and artists</source>
        <translation>アーティスト（プレイリストとアーティストを除く）</translation>
    </message>
    <message>
        <source>Album - Only my tracks</source>
        <translation>アルバム（マイトラックのみ）</translation>
    </message>
    <message>
        <source>Length - Only my tracks</source>
        <translation>長さ（マイトラックのみ）</translation>
    </message>
    <message>
        <source>Release Date - Only my albums</source>
        <translation>リリース日（マイアルバムのみ）</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>並び順</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降順</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>昇順</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Private</source>
        <translation>非公開</translation>
    </message>
    <message>
        <source>Public</source>
        <translation>公開</translation>
    </message>
</context>
<context>
    <name>TidalPlaylistForm::TidalPlaylistForm(const CMPath&amp;, TidalWorker*)</name>
    <message>
        <source>Create new playlist</source>
        <translation>新しいプレイリストを作成</translation>
    </message>
    <message>
        <source>Update playlist</source>
        <translation>プレイリストを編集</translation>
    </message>
</context>
<context>
    <name>TidalTrackOrderingContextNode::TidalTrackOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Playlist tracks ordering</source>
        <translation>プレイリスト内の並べ替え</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>並べ替え</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日付</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>アーティスト</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>長さ</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>リスト順</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>並び順</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>降順</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>昇順</translation>
    </message>
</context>
<context>
    <name>TidalWorker::TidalWorker(const QVariantHash&amp;)</name>
    <message>
        <source>Info message</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>Successful</source>
        <translation>完了しました</translation>
    </message>
    <message>
        <source>Subscription</source>
        <translation>契約プラン</translation>
    </message>
    <message>
        <source>TIDAL</source>
        <translation>TIDAL</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkAccessToken(const CMRequest&amp;)</name>
    <message>
        <source>Access token is not set</source>
        <translation>アクセストークンが設定されていません</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkFavorite(const CMRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>This cannot be a favorite</source>
        <translation>これはお気に入りに追加できません</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkUser(const CMRequest&amp;, const QString&amp;)</name>
    <message>
        <source>User not logged in. Cannot get favorites</source>
        <translation>ログインしていないため、お気に入りを利用できません</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::track(const CMSetDataRequest&amp;, const QString&amp;)</name>
    <message>
        <source>Missing track ID</source>
        <translation>トラックIDがありません</translation>
    </message>
</context>
<context>
    <name>bool TidalNodeResponder::endsWithLogin(const HttpClientPrivate&amp;)</name>
    <message>
        <source>User was logged out</source>
        <translation>ログアウトされました</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::buildStaticStructure()</name>
    <message>
        <source>Busy, adding to playlist.</source>
        <translation>プレイリストに追加しています…</translation>
    </message>
    <message>
        <source>Search track, album, artist and playlist</source>
        <translation>トラック、アルバム、アーティスト、プレイリストを検索</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>トラック</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>アーティスト</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>プレイリスト</translation>
    </message>
    <message>
        <source>Genres</source>
        <translation>ジャンル</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>マイミュージック</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新着</translation>
    </message>
    <message>
        <source>TIDAL Rising</source>
        <translation>TIDAL Rising</translation>
    </message>
    <message>
        <source>TIDAL Discovery</source>
        <translation>TIDAL Discovery</translation>
    </message>
    <message>
        <source>Favorited playlists</source>
        <translation>お気に入りのプレイリスト</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>マイプレイリスト</translation>
    </message>
    <message>
        <source>Www</source>
        <translation>Web</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>おすすめ</translation>
    </message>
    <message>
        <source>Top 20</source>
        <translation>トップ20</translation>
    </message>
    <message>
        <source>Masters</source>
        <translation>Masters</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Busy, removing from playlist.</source>
        <translation>プレイリストから削除しています…</translation>
    </message>
    <message>
        <source>Move to index</source>
        <translation>位置を変更</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::completeResource(const KeloTidalApiStreamUrlResponse&amp;)</name>
    <message>
        <source>unsupported manifest type</source>
        <translation>対応していないマニフェスト形式です</translation>
    </message>
    <message>
        <source>invalid manifest</source>
        <translation>マニフェストが正しくありません</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::configure(const CMRequest&amp;)</name>
    <message>
        <source>Failed to initialize TIDAL UI</source>
        <translation>TIDALの画面を初期化できませんでした</translation>
    </message>
    <message>
        <source>Not logged into TIDAL!</source>
        <translation>TIDALにログインしていません</translation>
    </message>
    <message>
        <source>TIDAL in invalid state!</source>
        <translation>TIDALの状態が正しくありません</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::refuseBusy(const CMSetDataRequest&amp;) const</name>
    <message>
        <source>droping play request, busy</source>
        <translation>処理中のため、再生要求を破棄しました</translation>
    </message>
</context>
<context>
    <name>static QString TidalHandler::pathOf(const CMRequest&amp;, std::initializer_list&lt;QString&gt;)</name>
    <message>
        <source>What this is about is not said</source>
        <translation>対象が指定されていません</translation>
    </message>
    <message>
        <source>%1 is no identifier</source>
        <translation>%1 は識別子ではありません</translation>
    </message>
</context>
<context>
    <name>static QString TidalWorker::playItemReference(const CMSetDataRequest&amp;)</name>
    <message>
        <source>track id not set</source>
        <translation>トラックIDが指定されていません</translation>
    </message>
</context>
<context>
    <name>virtual CMReply&lt;QVariant&gt; Player::command(const QString&amp;, const QVariantHash&amp;)</name>
    <message>
        <source>the player is not running</source>
        <translation>プレーヤーが動作していません</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalBrowseNode::getRowsRequest(const CMGetRowsRequest&amp;)</name>
    <message>
        <source>Bad rows request range</source>
        <translation>行の範囲が正しくありません</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalFilterEnumNode::setDataRequest(const CMSetDataRequest&amp;)</name>
    <message>
        <source>What was sent is no text to choose</source>
        <translation>送られたものは選択肢ではありません</translation>
    </message>
</context>
<context>
    <name>void ItemResolver::onAnswered(const CMError&amp;)</name>
    <message>
        <source>the service handed no item over</source>
        <translation>サービスから項目が渡されませんでした</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::addNodes(CMNodes*)</name>
    <message>
        <source>Access token</source>
        <translation>アクセストークン</translation>
    </message>
    <message>
        <source>Log out of %1</source>
        <translation>%1からログアウト</translation>
    </message>
    <message>
        <source>Renew the access token</source>
        <translation>アクセストークンを更新</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>%1にログイン</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::on_logout(CMSetDataRequest)</name>
    <message>
        <source>The login was cancelled.</source>
        <translation>ログインがキャンセルされました。</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::setInfo(const KeloOAuth2ServiceInfo&amp;)</name>
    <message>
        <source>The login service has changed.</source>
        <translation>ログインサービスが変更されました。</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addOAuth2(const OAuth2Settings&amp;)</name>
    <message>
        <source>Device code address</source>
        <translation>デバイスコードのアドレス</translation>
    </message>
    <message>
        <source>Authorization address</source>
        <translation>認可アドレス</translation>
    </message>
    <message>
        <source>Token address</source>
        <translation>トークンのアドレス</translation>
    </message>
    <message>
        <source>Client id</source>
        <translation>クライアントID</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>スコープ</translation>
    </message>
    <message>
        <source>Client secret</source>
        <translation>クライアントシークレット</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addSoundQuality(const QString&amp;)</name>
    <message>
        <source>Sound quality</source>
        <translation>音質</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addTidal(const TidalSettings&amp;)</name>
    <message>
        <source>TIDAL</source>
        <translation>TIDAL</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addUsePostPaywall(bool)</name>
    <message>
        <source>Whole tracks</source>
        <translation>トラック全体を再生</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::baseRequest(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>TIDAL application country Code is empty. Maybe you are not logged in.</source>
        <translation>TIDALの国コードが空です。ログインしていない可能性があります。</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::getMyMusic(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, KeloTidalBrowseSetting*)</name>
    <message>
        <source>Missing user Id. Cannot get favorites</source>
        <translation>ユーザーIDがないため、お気に入りを取得できません</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::createArtistContent(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>Top tracks</source>
        <translation>人気トラック</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>EPs and singles</source>
        <translation>EPとシングル</translation>
    </message>
    <message>
        <source>Other albums</source>
        <translation>その他のアルバム</translation>
    </message>
    <message>
        <source>Created playlists</source>
        <translation>作成したプレイリスト</translation>
    </message>
    <message>
        <source>Bio</source>
        <translation>バイオグラフィー</translation>
    </message>
    <message>
        <source>Similar artists</source>
        <translation>似ているアーティスト</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>ラジオ</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::on_artistBioResponse_invoke(const KeloUrl&amp;, const HttpClientPrivate&amp;, int, int, const QByteArray&amp;, HttpClientHeaders)</name>
    <message>
        <source>Artist bio</source>
        <translation>アーティストのバイオグラフィー</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::on_isFavoriteReponse_invoke(const KeloUrl&amp;, const HttpClientPrivate&amp;, int, int, const QByteArray&amp;, HttpClientHeaders)</name>
    <message>
        <source>Remove from favorites</source>
        <translation>お気に入りから削除</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>お気に入りに追加</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::beginPlay(const CMSetDataRequest&amp;, const KeloMediaData&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>メディア情報を取得できませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::configureUser()</name>
    <message>
        <source>User was logged out</source>
        <translation>ログアウトされました</translation>
    </message>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>TIDALを初期化できませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::finishLookUp(const CMSetDataRequest&amp;, const QVariant&amp;, bool, const KeloTidalApiErrorResponse&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>メディア情報を取得できませんでした</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>メディア情報が揃いませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMedia(const CMSetDataRequest&amp;)</name>
    <message>
        <source>invalid play request data</source>
        <translation>再生要求のデータが正しくありません</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaPending(const CMSetDataRequest&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>メディア情報を取得できませんでした</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>メディア情報が揃いませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaReady()</name>
    <message>
        <source>internal play loop failed</source>
        <translation>再生処理の内部エラー</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_media(CMSetDataRequest, CMSetDataRequest)</name>
    <message>
        <source>another media request pending</source>
        <translation>別のメディア要求を処理中です</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>メディア情報を取得できませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_track(const CMSetDataRequest&amp;)</name>
    <message>
        <source>another track request pending</source>
        <translation>別のトラック要求を処理中です</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>メディア情報を取得できませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_media_play(const CMSetDataRequest&amp;)</name>
    <message>
        <source>prePlayData not set</source>
        <translation>prePlayDataが設定されていません</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_move_activation(const CMSetDataRequest&amp;)</name>
    <message>
        <source>The rows of a playlist are counted from 0</source>
        <translation>プレイリストの行は 0 から数えます</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_sessionsFinished(KeloTidalApiSessionsResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>TIDALを初期化できませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_subscriptionFinished(KeloTidalApiSubscriptionResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>TIDALを初期化できませんでした</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::postpone(const CMRequest&amp;)</name>
    <message>
        <source>Too many requests are waiting for TIDAL</source>
        <translation>TIDALを待つ要求が多すぎます</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::resetTopNode()</name>
    <message>
        <source>Please login to continue</source>
        <translation>続けるにはログインしてください</translation>
    </message>
</context>
</TS>
