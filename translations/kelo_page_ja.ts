<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>page</name>
    <message>
        <source>“%1” will be deleted from the service. This cannot be undone.</source>
        <translation>「%1」をサービスから削除します。この操作は取り消せません。</translation>
    </message>
    <message>
        <source>Delete the playlist?</source>
        <translation>プレイリストを削除しますか？</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>完了: %1</translation>
    </message>
    <message>
        <source>The streamer cannot be reached.</source>
        <translation>ストリーマーに接続できません。</translation>
    </message>
    <message>
        <source>The streamer answered with the status %1.</source>
        <translation>ストリーマーがステータス %1 を返しました。</translation>
    </message>
    <message>
        <source>Log in to search.</source>
        <translation>検索するにはログインしてください。</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>ホーム</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>再生中</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Move through the rows</source>
        <translation>行を移動</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Open or play</source>
        <translation>開く、または再生</translation>
    </message>
    <message>
        <source>Menu of the row</source>
        <translation>行のメニュー</translation>
    </message>
    <message>
        <source>Favorite: the row, or what plays</source>
        <translation>お気に入り: その行、または再生中の曲</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>再生／一時停止</translation>
    </message>
    <message>
        <source>Next, previous</source>
        <translation>次へ、前へ</translation>
    </message>
    <message>
        <source>10 seconds back, on</source>
        <translation>10秒戻る、進む</translation>
    </message>
    <message>
        <source>Less loud, louder</source>
        <translation>音量を下げる、上げる</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>ミュート</translation>
    </message>
    <message>
        <source>Shuffle, repeat</source>
        <translation>シャッフル、リピート</translation>
    </message>
    <message>
        <source>Filter the rows</source>
        <translation>行を絞り込む</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Select several rows</source>
        <translation>複数の行を選択</translation>
    </message>
    <message>
        <source>Now playing and queue</source>
        <translation>再生中の曲とキュー</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Developer’s drawer</source>
        <translation>開発者パネル</translation>
    </message>
    <message>
        <source>This help</source>
        <translation>このヘルプ</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>キー操作</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>ラジオ</translation>
    </message>
    <message>
        <source>Read more</source>
        <translation>続きを読む</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>再生位置</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1／%2</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>ミュート解除</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>シャッフル</translation>
    </message>
    <message>
        <source>Repeat: off</source>
        <translation>リピート：オフ</translation>
    </message>
    <message>
        <source>Repeat: all</source>
        <translation>リピート：すべて</translation>
    </message>
    <message>
        <source>Repeat: this track</source>
        <translation>リピート：この曲</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>asked for %1</source>
        <translation>要求: %1</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <translation>%1（要求: %2）</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>前へ</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Nothing plays</source>
        <translation>再生していません</translation>
    </message>
    <message>
        <source>Now playing: %1</source>
        <translation>再生中: %1</translation>
    </message>
    <message>
        <source>1 track</source>
        <translation>1曲</translation>
    </message>
    <message>
        <source>%1 tracks</source>
        <translation>%1曲</translation>
    </message>
    <message>
        <source>%1 albums</source>
        <translation>アルバム %1 枚</translation>
    </message>
    <message>
        <source>%1 artists</source>
        <translation>アーティスト %1 組</translation>
    </message>
    <message>
        <source>%1 playlists</source>
        <translation>プレイリスト %1 件</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>一覧</translation>
    </message>
    <message>
        <source>Nothing is here.</source>
        <translation>ここには何もありません。</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>並べ替え</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>コピーしました: %1</translation>
    </message>
    <message>
        <source>Copy its path</source>
        <translation>パスをコピー</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>絞り込み</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>No notice yet. Change something, or let another client do it.</source>
        <translation>まだ通知はありません。ここか別のクライアントで何かを変更してください。</translation>
    </message>
    <message>
        <source>Requests</source>
        <translation>要求</translation>
    </message>
    <message>
        <source>The module has made no request yet.</source>
        <translation>モジュールはまだ要求を送っていません。</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>呼び出し</translation>
    </message>
    <message>
        <source>No call yet.</source>
        <translation>まだ呼び出しはありません。</translation>
    </message>
    <message>
        <source>Raw reply</source>
        <translation>応答の原文</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>応答</translation>
    </message>
    <message>
        <source>Close the drawer</source>
        <translation>パネルを閉じる</translation>
    </message>
    <message>
        <source>The description of the HTTP API</source>
        <translation>HTTP API の説明</translation>
    </message>
    <message>
        <source>API</source>
        <translation>API</translation>
    </message>
    <message>
        <source>Move to a row: its path, roles and data stand here.</source>
        <translation>行に移動すると、そのパス、ロール、データがここに表示されます。</translation>
    </message>
    <message>
        <source>Read its data</source>
        <translation>データを読み取る</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>ロール</translation>
    </message>
    <message>
        <source>%1, rows from %2, %3 in all, version %4, answered in %5</source>
        <translation>%1、%2行目から、全%3行、バージョン%4、応答時間 %5</translation>
    </message>
    <message>
        <source>Answered in %1</source>
        <translation>応答時間 %1</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>Copy as curl</source>
        <translation>curl としてコピー</translation>
    </message>
    <message>
        <source>Copy as kelo</source>
        <translation>kelo としてコピー</translation>
    </message>
    <message>
        <source>Added to “%1”</source>
        <translation>「%1」に追加しました</translation>
    </message>
    <message>
        <source>New playlist…</source>
        <translation>新しいプレイリスト…</translation>
    </message>
    <message>
        <source>Edit details…</source>
        <translation>詳細を編集…</translation>
    </message>
    <message>
        <source>Edit playlist details…</source>
        <translation>プレイリストの詳細を編集…</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>保存しました</translation>
    </message>
    <message>
        <source>Move to position…</source>
        <translation>位置を指定して移動…</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Go to artist</source>
        <translation>アーティストを表示</translation>
    </message>
    <message>
        <source>Go to album</source>
        <translation>アルバムを表示</translation>
    </message>
    <message>
        <source>Delete playlist…</source>
        <translation>プレイリストを削除…</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>削除しました</translation>
    </message>
    <message>
        <source>Remove from this playlist</source>
        <translation>このプレイリストから削除</translation>
    </message>
    <message>
        <source>Removed from the playlist</source>
        <translation>プレイリストから削除しました</translation>
    </message>
    <message>
        <source>Date added</source>
        <translation>追加日</translation>
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
        <source>Playlist order</source>
        <translation>プレイリストの順</translation>
    </message>
    <message>
        <source>Release date</source>
        <translation>発売日</translation>
    </message>
    <message>
        <source>Low, AAC 96 kbit/s</source>
        <translation>低、AAC 96 kbit/s</translation>
    </message>
    <message>
        <source>High, AAC 320 kbit/s</source>
        <translation>高、AAC 320 kbit/s</translation>
    </message>
    <message>
        <source>Lossless, FLAC 16 bit 44.1 kHz</source>
        <translation>ロスレス、FLAC 16 bit 44.1 kHz</translation>
    </message>
    <message>
        <source>Hi-Res, up to 24 bit 96 kHz</source>
        <translation>ハイレゾ、最大 24 bit 96 kHz</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>見つかりません</translation>
    </message>
    <message>
        <source>This did not work</source>
        <translation>うまくいきませんでした</translation>
    </message>
    <message>
        <source>There is nothing at this address.</source>
        <translation>このアドレスには何もありません。</translation>
    </message>
    <message>
        <source>The music service did not answer in time.</source>
        <translation>音楽サービスが時間内に応答しませんでした。</translation>
    </message>
    <message>
        <source>The music service cannot be reached. Check the network of the streamer.</source>
        <translation>音楽サービスに接続できません。ストリーマーのネットワークを確認してください。</translation>
    </message>
    <message>
        <source>The music service has a problem (%1).</source>
        <translation>音楽サービスに問題があります（%1）。</translation>
    </message>
    <message>
        <source>The music service does not have this.</source>
        <translation>音楽サービスにはこれがありません。</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>ログイン</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>もう一度試す</translation>
    </message>
    <message>
        <source>Trying again in %1 s</source>
        <translation>%1 秒後に再試行します</translation>
    </message>
    <message>
        <source>Remove from favorites: %1</source>
        <translation>お気に入りから削除: %1</translation>
    </message>
    <message>
        <source>Add to favorites: %1</source>
        <translation>お気に入りに追加: %1</translation>
    </message>
    <message>
        <source>Remove from favorites</source>
        <translation>お気に入りから削除</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>お気に入りに追加</translation>
    </message>
    <message>
        <source>Added to favorites</source>
        <translation>お気に入りに追加しました</translation>
    </message>
    <message>
        <source>Removed from favorites</source>
        <translation>お気に入りから削除しました</translation>
    </message>
    <message>
        <source>%1 added to favorites</source>
        <translation>%1 件をお気に入りに追加しました</translation>
    </message>
    <message>
        <source>%1 removed from favorites</source>
        <translation>%1 件をお気に入りから削除しました</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>The service has refused this.</source>
        <translation>サービスに拒否されました。</translation>
    </message>
    <message>
        <source>%1 in the first %2 of %3</source>
        <translation>最初の %2 / %3 件中 %1 件</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Favorite albums</source>
        <translation>お気に入りのアルバム</translation>
    </message>
    <message>
        <source>Your playlists</source>
        <translation>自分のプレイリスト</translation>
    </message>
    <message>
        <source>Favorite playlists</source>
        <translation>お気に入りのプレイリスト</translation>
    </message>
    <message>
        <source>Just in</source>
        <translation>新着</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>おすすめ</translation>
    </message>
    <message>
        <source>Recommended playlists</source>
        <translation>おすすめのプレイリスト</translation>
    </message>
    <message>
        <source>Moods</source>
        <translation>ムード</translation>
    </message>
    <message>
        <source>Recently played</source>
        <translation>最近再生した項目</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>続きを聴く</translation>
    </message>
    <message>
        <source>To play music, connect the streamer to your account.</source>
        <translation>音楽を再生するには、ストリーマーをアカウントに接続してください。</translation>
    </message>
    <message>
        <source>Skip to the rows</source>
        <translation>一覧へ移動</translation>
    </message>
    <message>
        <source>The streamer does not answer. Trying again…</source>
        <translation>ストリーマーが応答しません。再試行しています…</translation>
    </message>
    <message>
        <source>Try now</source>
        <translation>今すぐ試す</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>音楽</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>プレーヤー</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>メイン</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>マイミュージック</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>再生中</translation>
    </message>
    <message>
        <source>“%1” is not available.</source>
        <translation>「%1」は利用できません。</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>利用不可</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>%1 を再生</translation>
    </message>
    <message>
        <source>Menu of %1</source>
        <translation>%1 のメニュー</translation>
    </message>
    <message>
        <source>On</source>
        <translation>オン</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message>
        <source>The code has expired.</source>
        <translation>コードの有効期限が切れました。</translation>
    </message>
    <message>
        <source>Take a new code and enter it within the time shown.</source>
        <translation>新しいコードを取得し、表示された時間内に入力してください。</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>ログインが拒否されました。</translation>
    </message>
    <message>
        <source>Try again, and confirm the login on the service’s page.</source>
        <translation>もう一度試し、サービスのページでログインを承認してください。</translation>
    </message>
    <message>
        <source>The service does not accept this streamer.</source>
        <translation>サービスがこのストリーマーを受け付けません。</translation>
    </message>
    <message>
        <source>Check client_id and client_secret in the section [tidal.oauth2] of the settings.</source>
        <translation>設定の [tidal.oauth2] セクションの client_id と client_secret を確認してください。</translation>
    </message>
    <message>
        <source>Check client id and secret in the section [module.%1] of the settings.</source>
        <translation>設定の [module.%1] セクションのクライアントIDとクライアントシークレットを確認してください。</translation>
    </message>
    <message>
        <source>The clock of the streamer is wrong.</source>
        <translation>ストリーマーの時計がずれています。</translation>
    </message>
    <message>
        <source>Set its date and time, for example with “timedatectl set-ntp true”, then try again.</source>
        <translation>「timedatectl set-ntp true」などで日付と時刻を合わせてから、もう一度試してください。</translation>
    </message>
    <message>
        <source>The service cannot be reached.</source>
        <translation>サービスに接続できません。</translation>
    </message>
    <message>
        <source>Check the network cable or the wireless network of the streamer, then try again.</source>
        <translation>ストリーマーのネットワークケーブルまたはWi-Fiを確認してから、もう一度試してください。</translation>
    </message>
    <message>
        <source>The service has ended the login.</source>
        <translation>サービスによってログインが終了されました。</translation>
    </message>
    <message>
        <source>Log in again.</source>
        <translation>もう一度ログインしてください。</translation>
    </message>
    <message>
        <source>The service did not answer as it should.</source>
        <translation>サービスから正しい応答がありませんでした。</translation>
    </message>
    <message>
        <source>Try again in a few minutes.</source>
        <translation>数分後にもう一度試してください。</translation>
    </message>
    <message>
        <source>Not logged in</source>
        <translation>ログインしていません</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>%1 としてログイン中</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>ログイン中</translation>
    </message>
    <message>
        <source>Account: %1</source>
        <translation>アカウント：%1</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>読み込み中…</translation>
    </message>
    <message>
        <source>Asking the service…</source>
        <translation>サービスに問い合わせています…</translation>
    </message>
    <message>
        <source>You are logged in</source>
        <translation>ログインしました</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>アカウント</translation>
    </message>
    <message>
        <source>To the music</source>
        <translation>音楽へ</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>ログアウト</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>%1にログイン</translation>
    </message>
    <message>
        <source>Get a code</source>
        <translation>コードを取得</translation>
    </message>
    <message>
        <source>On your phone or computer, open</source>
        <translation>スマートフォンまたはパソコンで次のページを開きます:</translation>
    </message>
    <message>
        <source>Enter this code:</source>
        <translation>次のコードを入力します:</translation>
    </message>
    <message>
        <source>Confirm. This page goes on by itself.</source>
        <translation>承認すると、このページは自動的に進みます。</translation>
    </message>
    <message>
        <source>QR code of the address</source>
        <translation>アドレスのQRコード</translation>
    </message>
    <message>
        <source>Or scan this with your phone.</source>
        <translation>またはスマートフォンでこれを読み取ります。</translation>
    </message>
    <message>
        <source>The code is good for</source>
        <translation>コードの残り有効時間</translation>
    </message>
    <message>
        <source>Try again.</source>
        <translation>もう一度試してください。</translation>
    </message>
    <message>
        <source>Get a new code</source>
        <translation>新しいコードを取得</translation>
    </message>
    <message>
        <source>Play next</source>
        <translation>次に再生</translation>
    </message>
    <message>
        <source>Add to queue</source>
        <translation>キューに追加</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>選択</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 件を選択中</translation>
    </message>
    <message>
        <source>Moved to the top</source>
        <translation>先頭に移動しました</translation>
    </message>
    <message>
        <source>Move to top</source>
        <translation>先頭に移動</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>処理中…</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>プレイリスト</translation>
    </message>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Where you are</source>
        <translation>現在の場所</translation>
    </message>
    <message>
        <source>Plays next: %1</source>
        <translation>次に再生：%1</translation>
    </message>
    <message>
        <source>Added to the queue: %1</source>
        <translation>キューに追加しました：%1</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>キュー</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Playing from %1</source>
        <translation>再生中：%1</translation>
    </message>
    <message>
        <source>Play an album, a playlist or a track: what follows stands here.</source>
        <translation>アルバム、プレイリスト、トラックを再生すると、次の曲がここに表示されます。</translation>
    </message>
    <message>
        <source>Next in the queue</source>
        <translation>次に再生する曲</translation>
    </message>
    <message>
        <source>Next from %1</source>
        <translation>次の曲：%1</translation>
    </message>
    <message>
        <source>Next in the list</source>
        <translation>リストの次の曲</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1を削除</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>最近の検索</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>種類</translation>
    </message>
    <message>
        <source>Search: %1</source>
        <translation>検索: %1</translation>
    </message>
    <message>
        <source>Type what you look for: an artist, an album, a track, a playlist.</source>
        <translation>探しているアーティスト、アルバム、トラック、プレイリストを入力してください。</translation>
    </message>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Best hit</source>
        <translation>トップの結果</translation>
    </message>
    <message>
        <source>Nothing was found for “%1”.</source>
        <translation>「%1」は見つかりませんでした。</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>トラック</translation>
    </message>
    <message>
        <source>Selected rows</source>
        <translation>選択した行</translation>
    </message>
    <message>
        <source>Select nothing</source>
        <translation>選択を解除</translation>
    </message>
    <message>
        <source>%1 added to the queue</source>
        <translation>%1 件を再生待ちに追加しました</translation>
    </message>
    <message>
        <source>As the browser</source>
        <translation>ブラウザーに合わせる</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>システムに合わせる</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>ダーク</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>配色</translation>
    </message>
    <message>
        <source>This page</source>
        <translation>このページ</translation>
    </message>
    <message>
        <source>The streamer</source>
        <translation>ストリーマー</translation>
    </message>
    <message>
        <source>kelo %1</source>
        <translation>kelo %1</translation>
    </message>
    <message>
        <source>Set in the settings file</source>
        <translation>設定ファイルで指定された項目</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>（空）</translation>
    </message>
    <message>
        <source>Whole tracks, not previews</source>
        <translation>試聴ではなく全曲</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>All %1</source>
        <translation>すべて表示（%1）</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1分</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1時間%2分</translation>
    </message>
    <message>
        <source>Waiting for the music service, %1 s</source>
        <translation>音楽サービスの応答を待っています（%1 秒）</translation>
    </message>
    <message>
        <source>Waiting for the streamer, %1 s</source>
        <translation>ストリーマーの応答を待っています（%1 秒）</translation>
    </message>
    <message>
        <source>Where to search</source>
        <translation>検索先</translation>
    </message>
    <message>
        <source>Only %1 can be searched now.</source>
        <translation>現在検索できるのは%1だけです。</translation>
    </message>
    <message>
        <source>Search %1</source>
        <translation>%1を検索</translation>
    </message>
    <message>
        <source>There is nothing to search here.</source>
        <translation>ここには検索できるものがありません。</translation>
    </message>
</context>
</TS>
