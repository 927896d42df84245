<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CMActivateNode</name>
    <message>
        <source>%1 does nothing yet</source>
        <translation>%1 hat noch keine Funktion</translation>
    </message>
</context>
<context>
    <name>CMContainerNode</name>
    <message>
        <source>Bad rows request range</source>
        <translation>Ungültiger Zeilenbereich</translation>
    </message>
</context>
<context>
    <name>CMError</name>
    <message>
        <source>There is nothing at %1</source>
        <translation>Unter %1 gibt es nichts</translation>
    </message>
</context>
<context>
    <name>CMError {anonymous}::noRowError()</name>
    <message>
        <source>Which row of the playlist is not said</source>
        <translation>Es fehlt die Angabe, welche Zeile der Playlist gemeint ist</translation>
    </message>
</context>
<context>
    <name>CMNodesWorker</name>
    <message>
        <source>%1 does not take this request</source>
        <translation>%1 nimmt diese Anfrage nicht an</translation>
    </message>
</context>
<context>
    <name>CMQueryNode</name>
    <message>
        <source>What to search for is missing: %1</source>
        <translation>Der Suchbegriff fehlt: %1</translation>
    </message>
</context>
<context>
    <name>CMRoot</name>
    <message>
        <source>The module gave no answer</source>
        <translation>Das Modul hat nicht geantwortet</translation>
    </message>
    <message>
        <source>The service has stopped</source>
        <translation>Der Dienst wurde beendet</translation>
    </message>
    <message>
        <source>The service did not answer in time</source>
        <translation>Der Dienst hat nicht rechtzeitig geantwortet</translation>
    </message>
    <message>
        <source>The first row comes after the last one</source>
        <translation>Die erste Zeile liegt hinter der letzten</translation>
    </message>
</context>
<context>
    <name>CMRowList TidalBrowserContextNode::artistRows(const QString&amp;) const</name>
    <message>
        <source>Track artists</source>
        <translation>Interpreten des Titels</translation>
    </message>
</context>
<context>
    <name>CMValueNode</name>
    <message>
        <source>What was sent to %1 is no value</source>
        <translation>Was an %1 gesendet wurde, ist kein Wert</translation>
    </message>
    <message>
        <source>%1 wants a whole number</source>
        <translation>%1 braucht eine ganze Zahl</translation>
    </message>
    <message>
        <source>%1 wants a text</source>
        <translation>%1 braucht einen Text</translation>
    </message>
    <message>
        <source>%1 wants true or false</source>
        <translation>%1 braucht wahr oder falsch</translation>
    </message>
    <message>
        <source>%1 cannot be changed</source>
        <translation>%1 lässt sich nicht ändern</translation>
    </message>
</context>
<context>
    <name>HttpReply</name>
    <message>
        <source>Bad request</source>
        <translation>Ungültige Anfrage</translation>
    </message>
    <message>
        <source>Forbidden</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Method not allowed</source>
        <translation>Methode nicht erlaubt</translation>
    </message>
    <message>
        <source>Conflict</source>
        <translation>Konflikt</translation>
    </message>
    <message>
        <source>Body too large</source>
        <translation>Inhalt zu groß</translation>
    </message>
    <message>
        <source>Address too long</source>
        <translation>Adresse zu lang</translation>
    </message>
    <message>
        <source>Wrong content type</source>
        <translation>Falscher Inhaltstyp</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>Interner Fehler</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>No answer in time</source>
        <translation>Keine rechtzeitige Antwort</translation>
    </message>
</context>
<context>
    <name>LateAnswer</name>
    <message>
        <source>waiting for the music service, %1 s</source>
        <translation>wartet auf den Musikdienst, %1 s</translation>
    </message>
    <message>
        <source>waiting for the streamer, %1 s</source>
        <translation>wartet auf den Streamer, %1 s</translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>No login code: %1.</source>
        <translation>Kein Anmeldecode: %1.</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>Die Anmeldung wurde abgelehnt.</translation>
    </message>
    <message>
        <source>The login failed: %1.</source>
        <translation>Die Anmeldung ist fehlgeschlagen: %1.</translation>
    </message>
    <message>
        <source>The code has expired. Start the login again.</source>
        <translation>Der Code ist abgelaufen. Bitte die Anmeldung neu starten.</translation>
    </message>
    <message>
        <source>The code has expired: %1.</source>
        <translation>Der Code ist abgelaufen: %1.</translation>
    </message>
    <message>
        <source>the login service is not reached</source>
        <translation>der Anmeldedienst ist nicht erreichbar</translation>
    </message>
    <message>
        <source>no secure connection to the login service</source>
        <translation>keine sichere Verbindung zum Anmeldedienst</translation>
    </message>
    <message>
        <source>the login service's certificate is not valid at the time that the streamer's clock shows</source>
        <translation>das Zertifikat des Anmeldedienstes gilt nicht zu der Zeit, die die Uhr des Streamers zeigt</translation>
    </message>
    <message>
        <source>the login service's answer is too large</source>
        <translation>die Antwort des Anmeldedienstes ist zu groß</translation>
    </message>
    <message>
        <source>the login service does not answer</source>
        <translation>der Anmeldedienst antwortet nicht</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes fast</source>
        <translation>%1, und die Uhr des Streamers geht %2 Minuten vor</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes slow</source>
        <translation>%1, und die Uhr des Streamers geht %2 Minuten nach</translation>
    </message>
    <message>
        <source>the login service's answer is not understood</source>
        <translation>die Antwort des Anmeldedienstes ist nicht verständlich</translation>
    </message>
    <message>
        <source>the login service answered with status %1</source>
        <translation>der Anmeldedienst hat mit dem Status %1 geantwortet</translation>
    </message>
    <message>
        <source>No client id is set for %1; see the settings.</source>
        <translation>Für %1 ist keine Client-ID festgelegt; siehe Einstellungen.</translation>
    </message>
    <message>
        <source>The login is not renewed yet: %1.</source>
        <translation>Die Anmeldung ist noch nicht erneuert: %1.</translation>
    </message>
    <message>
        <source>The login has ended: the service does not accept it any more. Log in again.</source>
        <translation>Die Anmeldung ist beendet: Der Dienst erkennt sie nicht mehr an. Bitte erneut anmelden.</translation>
    </message>
</context>
<context>
    <name>Modules</name>
    <message>
        <source>Modules</source>
        <translation>Module</translation>
    </message>
</context>
<context>
    <name>OAuth2Worker::OAuth2Worker(const QString&amp;, std::unique_ptr&lt;TokenEndpoint&gt;, std::unique_ptr&lt;Clock&gt;)</name>
    <message>
        <source>Logins</source>
        <translation>Anmeldungen</translation>
    </message>
    <message>
        <source>Add a login service</source>
        <translation>Anmeldedienst hinzufügen</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>no sound device, playing silently</source>
        <translation>kein Audiogerät, Wiedergabe ohne Ton</translation>
    </message>
    <message>
        <source>the address holds no audio</source>
        <translation>unter der Adresse gibt es keine Audiodaten</translation>
    </message>
    <message>
        <source>the address was refused (%1)</source>
        <translation>die Adresse wurde abgelehnt (%1)</translation>
    </message>
    <message>
        <source>nothing stands at the address (%1)</source>
        <translation>unter der Adresse gibt es nichts (%1)</translation>
    </message>
    <message>
        <source>the audio cannot be decoded: %1</source>
        <translation>die Audiodaten lassen sich nicht decodieren: %1</translation>
    </message>
    <message>
        <source>the sound device cannot be used: %1</source>
        <translation>das Audiogerät lässt sich nicht verwenden: %1</translation>
    </message>
    <message>
        <source>the audio did not arrive: the connection failed or broke off</source>
        <translation>die Audiodaten sind nicht angekommen: Die Verbindung kam nicht zustande oder brach ab</translation>
    </message>
    <message>
        <source>the audio did not arrive: %1</source>
        <translation>die Audiodaten sind nicht angekommen: %1</translation>
    </message>
    <message>
        <source>asked for the item of %1, the module handed over one of %2</source>
        <translation>das Modul sollte den Titel von %1 übergeben und übergab einen von %2</translation>
    </message>
    <message>
        <source>the player ends</source>
        <translation>der Player wird beendet</translation>
    </message>
    <message>
        <source>superseded by another command</source>
        <translation>durch einen anderen Befehl ersetzt</translation>
    </message>
    <message>
        <source>nothing is playing</source>
        <translation>es läuft keine Wiedergabe</translation>
    </message>
    <message>
        <source>there is nothing to play</source>
        <translation>es gibt nichts abzuspielen</translation>
    </message>
    <message>
        <source>%1 broke off: %2</source>
        <translation>%1 brach ab: %2</translation>
    </message>
    <message>
        <source>skipped: %1: %2</source>
        <translation>übersprungen: %1: %2</translation>
    </message>
    <message>
        <source>skipped: %1 cannot be played</source>
        <translation>übersprungen: %1 lässt sich nicht abspielen</translation>
    </message>
    <message>
        <source>%1 cannot be played</source>
        <translation>%1 lässt sich nicht abspielen</translation>
    </message>
    <message>
        <source>the list does not go on: %1</source>
        <translation>die Liste geht nicht weiter: %1</translation>
    </message>
    <message>
        <source>nothing in this list can be played</source>
        <translation>in dieser Liste lässt sich nichts abspielen</translation>
    </message>
    <message>
        <source>no such row</source>
        <translation>diese Zeile gibt es nicht</translation>
    </message>
    <message>
        <source>the service gave no address</source>
        <translation>der Dienst hat keine Adresse genannt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>stopped after %1 items in a row that cannot be played: %2</source>
        <translation>nach %1 nicht abspielbaren Titeln in Folge angehalten: %2</translation>
    </message>
    <message>
        <source>the audio output did not start within %1 seconds and was made anew</source>
        <translation>die Audioausgabe ist nicht innerhalb von %1 Sekunden angelaufen und wurde neu aufgebaut</translation>
    </message>
    <message>
        <source>the queue has changed; look at it again</source>
        <translation>die Warteschlange hat sich geändert; bitte neu ansehen</translation>
    </message>
    <message>
        <source>the queue has %1 rows, none at this position</source>
        <translation>die Warteschlange hat %1 Einträge, keinen an dieser Stelle</translation>
    </message>
    <message>
        <source>the queue is full: it holds %1 rows</source>
        <translation>die Warteschlange ist voll: sie fasst %1 Einträge</translation>
    </message>
    <message>
        <source>too much is being added at once</source>
        <translation>es wird zu viel auf einmal hinzugefügt</translation>
    </message>
    <message>
        <source>the queue is not kept: %1 was written by a later version</source>
        <translation>die Warteschlange wird nicht gespeichert: %1 stammt von einer späteren Version</translation>
    </message>
    <message>
        <source>the kept queue cannot be read; it was put aside as %1</source>
        <translation>die gespeicherte Warteschlange ist nicht lesbar; sie liegt jetzt als %1 beiseite</translation>
    </message>
    <message>
        <source>the queue is not kept: %1: %2</source>
        <translation>die Warteschlange wird nicht gespeichert: %1: %2</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::chooserLeadRow(const CMGetRowsRequest&amp;, const CMPath&amp;, int)</name>
    <message>
        <source>Create playlist</source>
        <translation>Playlist erstellen</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>Meine Playlists</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::noItemsRow(const QStringList&amp;)</name>
    <message>
        <source>No items found</source>
        <translation>Keine Einträge gefunden</translation>
    </message>
</context>
<context>
    <name>SettingsWorker::SettingsWorker(const Settings&amp;, QObject*)</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>TIDAL</name>
    <message>
        <source>Title</source>
        <comment>Playlist title</comment>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>Playlist description</comment>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Create</source>
        <comment>Playlist create</comment>
        <translation>Erstellen</translation>
    </message>
    <message>
        <source>Update</source>
        <comment>Playlist update</comment>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Bad request</source>
        <translation>Ungültige Anfrage</translation>
    </message>
    <message>
        <source>Unauthorized</source>
        <translation>Nicht berechtigt</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Unexpected error</source>
        <translation>Unerwarteter Fehler</translation>
    </message>
    <message>
        <source>Service Unavailable: Back-end server is at capacity</source>
        <translation>Dienst nicht verfügbar: Der Server ist ausgelastet</translation>
    </message>
    <message>
        <source>unknown Error</source>
        <translation>Unbekannter Fehler</translation>
    </message>
    <message>
        <source>Error, failed to parse error message</source>
        <translation>Die Fehlermeldung ließ sich nicht lesen</translation>
    </message>
    <message>
        <source>Non existing track index</source>
        <translation>Diese Titelposition gibt es nicht</translation>
    </message>
</context>
<context>
    <name>TidalBaseContextNode::TidalBaseContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
</context>
<context>
    <name>TidalBrowserContextNode::TidalBrowserContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Add to playlist</source>
        <translation>Zu Playlist hinzufügen</translation>
    </message>
</context>
<context>
    <name>TidalMoveTrackNode::TidalMoveTrackNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Row number</source>
        <translation>Zeilennummer</translation>
    </message>
    <message>
        <source>Move to row</source>
        <translation>In diese Zeile verschieben</translation>
    </message>
</context>
<context>
    <name>TidalOrderingContextNode::TidalOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>My Music browsing</source>
        <translation>Meine Musik durchsuchen</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Sortierung</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Artist - Not for my playlists and artists</source>
        <translation>Interpret – nicht für meine Playlists und Interpreten</translation>
    </message>
    <message>
        <source>Album - Only my tracks</source>
        <translation>Album – nur für meine Titel</translation>
    </message>
    <message>
        <source>Length - Only my tracks</source>
        <translation>Länge – nur für meine Titel</translation>
    </message>
    <message>
        <source>Release Date - Only my albums</source>
        <translation>Erscheinungsdatum – nur für meine Alben</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>Sortierrichtung</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Absteigend</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Aufsteigend</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Private</source>
        <translation>Privat</translation>
    </message>
    <message>
        <source>Public</source>
        <translation>Öffentlich</translation>
    </message>
</context>
<context>
    <name>TidalPlaylistForm::TidalPlaylistForm(const CMPath&amp;, TidalWorker*)</name>
    <message>
        <source>Create new playlist</source>
        <translation>Neue Playlist erstellen</translation>
    </message>
    <message>
        <source>Update playlist</source>
        <translation>Playlist bearbeiten</translation>
    </message>
</context>
<context>
    <name>TidalTrackOrderingContextNode::TidalTrackOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Playlist tracks ordering</source>
        <translation>Sortierung der Playlist-Titel</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Sortierung</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>Sortierrichtung</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Absteigend</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Aufsteigend</translation>
    </message>
</context>
<context>
    <name>TidalWorker::TidalWorker(const QVariantHash&amp;)</name>
    <message>
        <source>Info message</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Successful</source>
        <translation>Erfolgreich</translation>
    </message>
    <message>
        <source>Subscription</source>
        <translation>Abonnement</translation>
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
        <translation>Kein Zugriffstoken vorhanden</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkFavorite(const CMRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>This cannot be a favorite</source>
        <translation>Das kann kein Favorit werden</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkUser(const CMRequest&amp;, const QString&amp;)</name>
    <message>
        <source>User not logged in. Cannot get favorites</source>
        <translation>Nicht angemeldet. Die Favoriten sind nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::track(const CMSetDataRequest&amp;, const QString&amp;)</name>
    <message>
        <source>Missing track ID</source>
        <translation>Die Titel-ID fehlt</translation>
    </message>
</context>
<context>
    <name>bool TidalNodeResponder::endsWithLogin(const HttpClientPrivate&amp;)</name>
    <message>
        <source>User was logged out</source>
        <translation>Die Anmeldung wurde beendet</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::buildStaticStructure()</name>
    <message>
        <source>Busy, adding to playlist.</source>
        <translation>Wird zur Playlist hinzugefügt …</translation>
    </message>
    <message>
        <source>Search track, album, artist and playlist</source>
        <translation>Titel, Alben, Interpreten und Playlists suchen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Interpreten</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Genres</source>
        <translation>Genres</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>Meine Musik</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
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
        <translation>Favorisierte Playlists</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>Meine Playlists</translation>
    </message>
    <message>
        <source>Www</source>
        <translation>Web</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>Top 20</source>
        <translation>Top 20</translation>
    </message>
    <message>
        <source>Masters</source>
        <translation>Masters</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Busy, removing from playlist.</source>
        <translation>Wird aus der Playlist entfernt …</translation>
    </message>
    <message>
        <source>Move to index</source>
        <translation>An Position verschieben</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::completeResource(const KeloTidalApiStreamUrlResponse&amp;)</name>
    <message>
        <source>unsupported manifest type</source>
        <translation>Nicht unterstützter Manifesttyp</translation>
    </message>
    <message>
        <source>invalid manifest</source>
        <translation>Ungültiges Manifest</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::configure(const CMRequest&amp;)</name>
    <message>
        <source>Failed to initialize TIDAL UI</source>
        <translation>Die TIDAL-Oberfläche konnte nicht eingerichtet werden</translation>
    </message>
    <message>
        <source>Not logged into TIDAL!</source>
        <translation>Nicht bei TIDAL angemeldet!</translation>
    </message>
    <message>
        <source>TIDAL in invalid state!</source>
        <translation>TIDAL ist in einem ungültigen Zustand!</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::refuseBusy(const CMSetDataRequest&amp;) const</name>
    <message>
        <source>droping play request, busy</source>
        <translation>Beschäftigt: Die Wiedergabeanfrage wird verworfen</translation>
    </message>
</context>
<context>
    <name>static QString TidalHandler::pathOf(const CMRequest&amp;, std::initializer_list&lt;QString&gt;)</name>
    <message>
        <source>What this is about is not said</source>
        <translation>Es fehlt die Angabe, worum es geht</translation>
    </message>
    <message>
        <source>%1 is no identifier</source>
        <translation>%1 ist keine Kennung</translation>
    </message>
</context>
<context>
    <name>static QString TidalWorker::playItemReference(const CMSetDataRequest&amp;)</name>
    <message>
        <source>track id not set</source>
        <translation>Keine Titel-ID angegeben</translation>
    </message>
</context>
<context>
    <name>virtual CMReply&lt;QVariant&gt; Player::command(const QString&amp;, const QVariantHash&amp;)</name>
    <message>
        <source>the player is not running</source>
        <translation>der Player läuft nicht</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalBrowseNode::getRowsRequest(const CMGetRowsRequest&amp;)</name>
    <message>
        <source>Bad rows request range</source>
        <translation>Ungültiger Zeilenbereich</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalFilterEnumNode::setDataRequest(const CMSetDataRequest&amp;)</name>
    <message>
        <source>What was sent is no text to choose</source>
        <translation>Was gesendet wurde, ist keine der Optionen</translation>
    </message>
</context>
<context>
    <name>void ItemResolver::onAnswered(const CMError&amp;)</name>
    <message>
        <source>the service handed no item over</source>
        <translation>der Dienst hat keinen Titel übergeben</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::addNodes(CMNodes*)</name>
    <message>
        <source>Access token</source>
        <translation>Zugriffstoken</translation>
    </message>
    <message>
        <source>Log out of %1</source>
        <translation>Von %1 abmelden</translation>
    </message>
    <message>
        <source>Renew the access token</source>
        <translation>Zugriffstoken erneuern</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>Bei %1 anmelden</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::on_logout(CMSetDataRequest)</name>
    <message>
        <source>The login was cancelled.</source>
        <translation>Die Anmeldung wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::setInfo(const KeloOAuth2ServiceInfo&amp;)</name>
    <message>
        <source>The login service has changed.</source>
        <translation>Der Anmeldedienst hat sich geändert.</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addOAuth2(const OAuth2Settings&amp;)</name>
    <message>
        <source>Device code address</source>
        <translation>Adresse für Gerätecodes</translation>
    </message>
    <message>
        <source>Authorization address</source>
        <translation>Autorisierungsadresse</translation>
    </message>
    <message>
        <source>Token address</source>
        <translation>Token-Adresse</translation>
    </message>
    <message>
        <source>Client id</source>
        <translation>Client-ID</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Berechtigungen</translation>
    </message>
    <message>
        <source>Client secret</source>
        <translation>Client-Geheimnis</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addSoundQuality(const QString&amp;)</name>
    <message>
        <source>Sound quality</source>
        <translation>Klangqualität</translation>
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
        <translation>Ganze Titel</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::baseRequest(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>TIDAL application country Code is empty. Maybe you are not logged in.</source>
        <translation>Der Ländercode der TIDAL-Anwendung ist leer. Vielleicht ist niemand angemeldet.</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::getMyMusic(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, KeloTidalBrowseSetting*)</name>
    <message>
        <source>Missing user Id. Cannot get favorites</source>
        <translation>Die Benutzer-ID fehlt. Die Favoriten lassen sich nicht abrufen</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::createArtistContent(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>Top tracks</source>
        <translation>Top-Titel</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>EPs and singles</source>
        <translation>EPs und Singles</translation>
    </message>
    <message>
        <source>Other albums</source>
        <translation>Weitere Alben</translation>
    </message>
    <message>
        <source>Created playlists</source>
        <translation>Erstellte Playlists</translation>
    </message>
    <message>
        <source>Bio</source>
        <translation>Biografie</translation>
    </message>
    <message>
        <source>Similar artists</source>
        <translation>Ähnliche Interpreten</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::on_artistBioResponse_invoke(const KeloUrl&amp;, const HttpClientPrivate&amp;, int, int, const QByteArray&amp;, HttpClientHeaders)</name>
    <message>
        <source>Artist bio</source>
        <translation>Biografie</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::on_isFavoriteReponse_invoke(const KeloUrl&amp;, const HttpClientPrivate&amp;, int, int, const QByteArray&amp;, HttpClientHeaders)</name>
    <message>
        <source>Remove from favorites</source>
        <translation>Aus Favoriten entfernen</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::beginPlay(const CMSetDataRequest&amp;, const KeloMediaData&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Die Abspieldaten konnten nicht abgerufen werden</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::configureUser()</name>
    <message>
        <source>User was logged out</source>
        <translation>Die Anmeldung wurde beendet</translation>
    </message>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>TIDAL konnte nicht gestartet werden</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::finishLookUp(const CMSetDataRequest&amp;, const QVariant&amp;, bool, const KeloTidalApiErrorResponse&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Die Abspieldaten konnten nicht abgerufen werden</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>Die Abspieldaten sind unvollständig</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMedia(const CMSetDataRequest&amp;)</name>
    <message>
        <source>invalid play request data</source>
        <translation>Ungültige Daten in der Wiedergabeanfrage</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaPending(const CMSetDataRequest&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Die Abspieldaten konnten nicht abgerufen werden</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>Die Abspieldaten sind unvollständig</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaReady()</name>
    <message>
        <source>internal play loop failed</source>
        <translation>Interner Fehler bei der Wiedergabe</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_media(CMSetDataRequest, CMSetDataRequest)</name>
    <message>
        <source>another media request pending</source>
        <translation>Eine andere Medienanfrage läuft noch</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>Die Abspieldaten konnten nicht abgerufen werden</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_track(const CMSetDataRequest&amp;)</name>
    <message>
        <source>another track request pending</source>
        <translation>Eine andere Titelanfrage läuft noch</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>Die Abspieldaten konnten nicht abgerufen werden</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_media_play(const CMSetDataRequest&amp;)</name>
    <message>
        <source>prePlayData not set</source>
        <translation>prePlayData fehlt</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_move_activation(const CMSetDataRequest&amp;)</name>
    <message>
        <source>The rows of a playlist are counted from 0</source>
        <translation>Die Zeilen einer Playlist werden ab 0 gezählt</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_sessionsFinished(KeloTidalApiSessionsResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>TIDAL konnte nicht gestartet werden</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_subscriptionFinished(KeloTidalApiSubscriptionResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>TIDAL konnte nicht gestartet werden</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::postpone(const CMRequest&amp;)</name>
    <message>
        <source>Too many requests are waiting for TIDAL</source>
        <translation>Zu viele Anfragen warten auf TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::resetTopNode()</name>
    <message>
        <source>Please login to continue</source>
        <translation>Zum Fortfahren bitte anmelden</translation>
    </message>
</context>
</TS>
