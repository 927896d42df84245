<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>page</name>
    <message>
        <source>“%1” will be deleted from the service. This cannot be undone.</source>
        <translation>„%1“ wird beim Dienst gelöscht. Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Delete the playlist?</source>
        <translation>Playlist löschen?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Erledigt: %1</translation>
    </message>
    <message>
        <source>The streamer cannot be reached.</source>
        <translation>Der Streamer ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The streamer answered with the status %1.</source>
        <translation>Der Streamer hat mit dem Status %1 geantwortet.</translation>
    </message>
    <message>
        <source>Log in to search.</source>
        <translation>Zum Suchen bitte anmelden.</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>Aktuelle Wiedergabe</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Move through the rows</source>
        <translation>Durch die Zeilen gehen</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabetaste</translation>
    </message>
    <message>
        <source>Open or play</source>
        <translation>Öffnen oder abspielen</translation>
    </message>
    <message>
        <source>Menu of the row</source>
        <translation>Menü der Zeile</translation>
    </message>
    <message>
        <source>Favorite: the row, or what plays</source>
        <translation>Favorit: die Zeile oder was spielt</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Next, previous</source>
        <translation>Nächster, vorheriger</translation>
    </message>
    <message>
        <source>10 seconds back, on</source>
        <translation>10 Sekunden zurück, vor</translation>
    </message>
    <message>
        <source>Less loud, louder</source>
        <translation>Leiser, lauter</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Shuffle, repeat</source>
        <translation>Zufall, Wiederholen</translation>
    </message>
    <message>
        <source>Filter the rows</source>
        <translation>Zeilen filtern</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Select several rows</source>
        <translation>Mehrere Zeilen auswählen</translation>
    </message>
    <message>
        <source>Now playing and queue</source>
        <translation>Wiedergabe und Warteschlange</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Developer’s drawer</source>
        <translation>Entwicklerbereich</translation>
    </message>
    <message>
        <source>This help</source>
        <translation>Diese Hilfe</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>Read more</source>
        <translation>Weiterlesen</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Ton an</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Zufällige Reihenfolge</translation>
    </message>
    <message>
        <source>Repeat: off</source>
        <translation>Wiederholen: aus</translation>
    </message>
    <message>
        <source>Repeat: all</source>
        <translation>Wiederholen: alles</translation>
    </message>
    <message>
        <source>Repeat: this track</source>
        <translation>Wiederholen: dieser Titel</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>asked for %1</source>
        <translation>angefordert: %1</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <translation>%1, angefordert: %2</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Vorheriger Titel</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächster Titel</translation>
    </message>
    <message>
        <source>Nothing plays</source>
        <translation>Keine Wiedergabe</translation>
    </message>
    <message>
        <source>Now playing: %1</source>
        <translation>Aktuelle Wiedergabe: %1</translation>
    </message>
    <message>
        <source>1 track</source>
        <translation>1 Titel</translation>
    </message>
    <message>
        <source>%1 tracks</source>
        <translation>%1 Titel</translation>
    </message>
    <message>
        <source>%1 albums</source>
        <translation>%1 Alben</translation>
    </message>
    <message>
        <source>%1 artists</source>
        <translation>%1 Künstler</translation>
    </message>
    <message>
        <source>%1 playlists</source>
        <translation>%1 Playlists</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Nothing is here.</source>
        <translation>Hier ist nichts.</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Sortierung</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>Kopiert: %1</translation>
    </message>
    <message>
        <source>Copy its path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>No notice yet. Change something, or let another client do it.</source>
        <translation>Noch keine Meldung. Hier oder in einem anderen Client etwas ändern.</translation>
    </message>
    <message>
        <source>Requests</source>
        <translation>Anfragen</translation>
    </message>
    <message>
        <source>The module has made no request yet.</source>
        <translation>Das Modul hat noch keine Anfrage gestellt.</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>Aufrufe</translation>
    </message>
    <message>
        <source>No call yet.</source>
        <translation>Noch kein Aufruf.</translation>
    </message>
    <message>
        <source>Raw reply</source>
        <translation>Rohe Antwort</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>Close the drawer</source>
        <translation>Entwicklerbereich schließen</translation>
    </message>
    <message>
        <source>The description of the HTTP API</source>
        <translation>Die Beschreibung der HTTP-API</translation>
    </message>
    <message>
        <source>API</source>
        <translation>API</translation>
    </message>
    <message>
        <source>Move to a row: its path, roles and data stand here.</source>
        <translation>Zu einer Zeile gehen: Hier stehen dann ihr Pfad, ihre Rollen und Daten.</translation>
    </message>
    <message>
        <source>Read its data</source>
        <translation>Daten lesen</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>%1, rows from %2, %3 in all, version %4, answered in %5</source>
        <translation>%1, Zeilen ab %2, %3 insgesamt, Version %4, beantwortet in %5</translation>
    </message>
    <message>
        <source>Answered in %1</source>
        <translation>Beantwortet in %1</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>Copy as curl</source>
        <translation>Als curl kopieren</translation>
    </message>
    <message>
        <source>Copy as kelo</source>
        <translation>Als kelo kopieren</translation>
    </message>
    <message>
        <source>Added to “%1”</source>
        <translation>Zu „%1“ hinzugefügt</translation>
    </message>
    <message>
        <source>New playlist…</source>
        <translation>Neue Playlist…</translation>
    </message>
    <message>
        <source>Edit details…</source>
        <translation>Angaben bearbeiten…</translation>
    </message>
    <message>
        <source>Edit playlist details…</source>
        <translation>Angaben der Playlist bearbeiten…</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Move to position…</source>
        <translation>An Stelle verschieben…</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Go to artist</source>
        <translation>Zum Künstler</translation>
    </message>
    <message>
        <source>Go to album</source>
        <translation>Zum Album</translation>
    </message>
    <message>
        <source>Delete playlist…</source>
        <translation>Playlist löschen…</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>Remove from this playlist</source>
        <translation>Aus dieser Playlist entfernen</translation>
    </message>
    <message>
        <source>Removed from the playlist</source>
        <translation>Aus der Playlist entfernt</translation>
    </message>
    <message>
        <source>Date added</source>
        <translation>Hinzugefügt am</translation>
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
        <source>Playlist order</source>
        <translation>Reihenfolge der Playlist</translation>
    </message>
    <message>
        <source>Release date</source>
        <translation>Erscheinungsdatum</translation>
    </message>
    <message>
        <source>Low, AAC 96 kbit/s</source>
        <translation>Niedrig, AAC 96 kbit/s</translation>
    </message>
    <message>
        <source>High, AAC 320 kbit/s</source>
        <translation>Hoch, AAC 320 kbit/s</translation>
    </message>
    <message>
        <source>Lossless, FLAC 16 bit 44.1 kHz</source>
        <translation>Verlustfrei, FLAC 16 Bit 44,1 kHz</translation>
    </message>
    <message>
        <source>Hi-Res, up to 24 bit 96 kHz</source>
        <translation>Hi-Res, bis 24 Bit 96 kHz</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>This did not work</source>
        <translation>Das hat nicht geklappt</translation>
    </message>
    <message>
        <source>There is nothing at this address.</source>
        <translation>Unter dieser Adresse ist nichts.</translation>
    </message>
    <message>
        <source>The music service did not answer in time.</source>
        <translation>Der Musikdienst hat nicht rechtzeitig geantwortet.</translation>
    </message>
    <message>
        <source>The music service cannot be reached. Check the network of the streamer.</source>
        <translation>Der Musikdienst ist nicht erreichbar. Prüfen Sie das Netzwerk des Streamers.</translation>
    </message>
    <message>
        <source>The music service has a problem (%1).</source>
        <translation>Der Musikdienst hat ein Problem (%1).</translation>
    </message>
    <message>
        <source>The music service does not have this.</source>
        <translation>Das gibt es beim Musikdienst nicht.</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Trying again in %1 s</source>
        <translation>Neuer Versuch in %1 s</translation>
    </message>
    <message>
        <source>Remove from favorites: %1</source>
        <translation>Aus den Favoriten entfernen: %1</translation>
    </message>
    <message>
        <source>Add to favorites: %1</source>
        <translation>Zu den Favoriten hinzufügen: %1</translation>
    </message>
    <message>
        <source>Remove from favorites</source>
        <translation>Aus den Favoriten entfernen</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Zu den Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>Added to favorites</source>
        <translation>Zu den Favoriten hinzugefügt</translation>
    </message>
    <message>
        <source>Removed from favorites</source>
        <translation>Aus den Favoriten entfernt</translation>
    </message>
    <message>
        <source>%1 added to favorites</source>
        <translation>%1 zu den Favoriten hinzugefügt</translation>
    </message>
    <message>
        <source>%1 removed from favorites</source>
        <translation>%1 aus den Favoriten entfernt</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>The service has refused this.</source>
        <translation>Der Dienst hat das abgelehnt.</translation>
    </message>
    <message>
        <source>%1 in the first %2 of %3</source>
        <translation>%1 in den ersten %2 von %3</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Favorite albums</source>
        <translation>Lieblingsalben</translation>
    </message>
    <message>
        <source>Your playlists</source>
        <translation>Eigene Playlists</translation>
    </message>
    <message>
        <source>Favorite playlists</source>
        <translation>Lieblingsplaylists</translation>
    </message>
    <message>
        <source>Just in</source>
        <translation>Neu eingetroffen</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Empfohlen</translation>
    </message>
    <message>
        <source>Recommended playlists</source>
        <translation>Empfohlene Playlists</translation>
    </message>
    <message>
        <source>Moods</source>
        <translation>Stimmungen</translation>
    </message>
    <message>
        <source>Recently played</source>
        <translation>Zuletzt gehört</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiterhören</translation>
    </message>
    <message>
        <source>To play music, connect the streamer to your account.</source>
        <translation>Um Musik zu hören, den Streamer mit dem eigenen Konto verbinden.</translation>
    </message>
    <message>
        <source>Skip to the rows</source>
        <translation>Zu den Zeilen springen</translation>
    </message>
    <message>
        <source>The streamer does not answer. Trying again…</source>
        <translation>Der Streamer antwortet nicht. Neuer Versuch …</translation>
    </message>
    <message>
        <source>Try now</source>
        <translation>Jetzt versuchen</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Player</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>Hauptbereiche</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>Meine Musik</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>“%1” is not available.</source>
        <translation>„%1“ ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>%1 abspielen</translation>
    </message>
    <message>
        <source>Menu of %1</source>
        <translation>Menü von %1</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>The code has expired.</source>
        <translation>Der Code ist abgelaufen.</translation>
    </message>
    <message>
        <source>Take a new code and enter it within the time shown.</source>
        <translation>Einen neuen Code anfordern und innerhalb der angezeigten Zeit eingeben.</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>Die Anmeldung wurde abgelehnt.</translation>
    </message>
    <message>
        <source>Try again, and confirm the login on the service’s page.</source>
        <translation>Erneut versuchen und die Anmeldung auf der Seite des Dienstes bestätigen.</translation>
    </message>
    <message>
        <source>The service does not accept this streamer.</source>
        <translation>Der Dienst akzeptiert diesen Streamer nicht.</translation>
    </message>
    <message>
        <source>Check client_id and client_secret in the section [tidal.oauth2] of the settings.</source>
        <translation>client_id und client_secret im Abschnitt [tidal.oauth2] der Einstellungen prüfen.</translation>
    </message>
    <message>
        <source>Check client id and secret in the section [module.%1] of the settings.</source>
        <translation>Client-ID und Client-Secret im Abschnitt [module.%1] der Einstellungen prüfen.</translation>
    </message>
    <message>
        <source>The clock of the streamer is wrong.</source>
        <translation>Die Uhr des Streamers geht falsch.</translation>
    </message>
    <message>
        <source>Set its date and time, for example with “timedatectl set-ntp true”, then try again.</source>
        <translation>Datum und Uhrzeit stellen, zum Beispiel mit „timedatectl set-ntp true“, dann erneut versuchen.</translation>
    </message>
    <message>
        <source>The service cannot be reached.</source>
        <translation>Der Dienst ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>Check the network cable or the wireless network of the streamer, then try again.</source>
        <translation>Netzwerkkabel oder WLAN des Streamers prüfen, dann erneut versuchen.</translation>
    </message>
    <message>
        <source>The service has ended the login.</source>
        <translation>Der Dienst hat die Anmeldung beendet.</translation>
    </message>
    <message>
        <source>Log in again.</source>
        <translation>Bitte erneut anmelden.</translation>
    </message>
    <message>
        <source>The service did not answer as it should.</source>
        <translation>Der Dienst hat nicht wie erwartet geantwortet.</translation>
    </message>
    <message>
        <source>Try again in a few minutes.</source>
        <translation>In einigen Minuten erneut versuchen.</translation>
    </message>
    <message>
        <source>Not logged in</source>
        <translation>Nicht angemeldet</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>Angemeldet als %1</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Angemeldet</translation>
    </message>
    <message>
        <source>Account: %1</source>
        <translation>Konto: %1</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>Wird geladen …</translation>
    </message>
    <message>
        <source>Asking the service…</source>
        <translation>Der Dienst wird gefragt …</translation>
    </message>
    <message>
        <source>You are logged in</source>
        <translation>Angemeldet</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>To the music</source>
        <translation>Zur Musik</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>Abmelden</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>Bei %1 anmelden</translation>
    </message>
    <message>
        <source>Get a code</source>
        <translation>Code anfordern</translation>
    </message>
    <message>
        <source>On your phone or computer, open</source>
        <translation>Auf dem Handy oder Computer öffnen:</translation>
    </message>
    <message>
        <source>Enter this code:</source>
        <translation>Diesen Code eingeben:</translation>
    </message>
    <message>
        <source>Confirm. This page goes on by itself.</source>
        <translation>Bestätigen. Diese Seite geht dann von selbst weiter.</translation>
    </message>
    <message>
        <source>QR code of the address</source>
        <translation>QR-Code der Adresse</translation>
    </message>
    <message>
        <source>Or scan this with your phone.</source>
        <translation>Oder diesen Code mit dem Handy scannen.</translation>
    </message>
    <message>
        <source>The code is good for</source>
        <translation>Der Code gilt noch</translation>
    </message>
    <message>
        <source>Try again.</source>
        <translation>Bitte erneut versuchen.</translation>
    </message>
    <message>
        <source>Get a new code</source>
        <translation>Neuen Code anfordern</translation>
    </message>
    <message>
        <source>Play next</source>
        <translation>Als Nächstes spielen</translation>
    </message>
    <message>
        <source>Add to queue</source>
        <translation>Zur Warteschlange hinzufügen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>Moved to the top</source>
        <translation>An den Anfang verschoben</translation>
    </message>
    <message>
        <source>Move to top</source>
        <translation>An den Anfang</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>Bitte warten …</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlist</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Where you are</source>
        <translation>Aktueller Ort</translation>
    </message>
    <message>
        <source>Plays next: %1</source>
        <translation>Spielt als Nächstes: %1</translation>
    </message>
    <message>
        <source>Added to the queue: %1</source>
        <translation>In die Warteschlange gestellt: %1</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>Warteschlange</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Playing from %1</source>
        <translation>Spielt aus %1</translation>
    </message>
    <message>
        <source>Play an album, a playlist or a track: what follows stands here.</source>
        <translation>Ein Album, eine Playlist oder einen Titel abspielen: Hier steht, was folgt.</translation>
    </message>
    <message>
        <source>Next in the queue</source>
        <translation>Als Nächstes</translation>
    </message>
    <message>
        <source>Next from %1</source>
        <translation>Danach aus %1</translation>
    </message>
    <message>
        <source>Next in the list</source>
        <translation>Danach in der Liste</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>Letzte Suchen</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>Arten</translation>
    </message>
    <message>
        <source>Search: %1</source>
        <translation>Suche: %1</translation>
    </message>
    <message>
        <source>Type what you look for: an artist, an album, a track, a playlist.</source>
        <translation>Suchbegriff eingeben: Interpret, Album, Titel oder Playlist.</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Best hit</source>
        <translation>Bester Treffer</translation>
    </message>
    <message>
        <source>Nothing was found for “%1”.</source>
        <translation>Für „%1“ wurde nichts gefunden.</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Selected rows</source>
        <translation>Ausgewählte Zeilen</translation>
    </message>
    <message>
        <source>Select nothing</source>
        <translation>Auswahl aufheben</translation>
    </message>
    <message>
        <source>%1 added to the queue</source>
        <translation>%1 zur Warteschlange hinzugefügt</translation>
    </message>
    <message>
        <source>As the browser</source>
        <translation>Wie im Browser</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie im System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>This page</source>
        <translation>Diese Seite</translation>
    </message>
    <message>
        <source>The streamer</source>
        <translation>Der Streamer</translation>
    </message>
    <message>
        <source>kelo %1</source>
        <translation>kelo %1</translation>
    </message>
    <message>
        <source>Set in the settings file</source>
        <translation>In der Einstellungsdatei festgelegt</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>Whole tracks, not previews</source>
        <translation>Ganze Titel statt Hörproben</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>All %1</source>
        <translation>Alle %1</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 Min.</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 Std. %2 Min.</translation>
    </message>
    <message>
        <source>Waiting for the music service, %1 s</source>
        <translation>Warten auf den Musikdienst, %1 s</translation>
    </message>
    <message>
        <source>Waiting for the streamer, %1 s</source>
        <translation>Warten auf den Streamer, %1 s</translation>
    </message>
    <message>
        <source>Where to search</source>
        <translation>Wo gesucht wird</translation>
    </message>
    <message>
        <source>Only %1 can be searched now.</source>
        <translation>Zurzeit kann nur %1 durchsucht werden.</translation>
    </message>
    <message>
        <source>Search %1</source>
        <translation>%1 durchsuchen</translation>
    </message>
    <message>
        <source>There is nothing to search here.</source>
        <translation>Hier gibt es nichts zu durchsuchen.</translation>
    </message>
</context>
</TS>
