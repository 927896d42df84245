<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nb" sourcelanguage="en">
<context>
    <name>page</name>
    <message>
        <source>“%1” will be deleted from the service. This cannot be undone.</source>
        <translation>«%1» blir slettet fra tjenesten. Dette kan ikke angres.</translation>
    </message>
    <message>
        <source>Delete the playlist?</source>
        <translation>Slette spillelisten?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Slett</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Utført: %1</translation>
    </message>
    <message>
        <source>The streamer cannot be reached.</source>
        <translation>Får ikke kontakt med streameren.</translation>
    </message>
    <message>
        <source>The streamer answered with the status %1.</source>
        <translation>Streameren svarte med status %1.</translation>
    </message>
    <message>
        <source>Log in to search.</source>
        <translation>Logg inn for å søke.</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Hjem</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>Spilles nå</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Innstillinger</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Søk</translation>
    </message>
    <message>
        <source>Move through the rows</source>
        <translation>Gå gjennom radene</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Open or play</source>
        <translation>Åpne eller spill av</translation>
    </message>
    <message>
        <source>Menu of the row</source>
        <translation>Radens meny</translation>
    </message>
    <message>
        <source>Favorite: the row, or what plays</source>
        <translation>Favoritt: raden, eller det som spilles</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Mellomrom</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Spill av eller sett på pause</translation>
    </message>
    <message>
        <source>Next, previous</source>
        <translation>Neste, forrige</translation>
    </message>
    <message>
        <source>10 seconds back, on</source>
        <translation>10 sekunder tilbake, fram</translation>
    </message>
    <message>
        <source>Less loud, louder</source>
        <translation>Lavere, høyere</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Demp</translation>
    </message>
    <message>
        <source>Shuffle, repeat</source>
        <translation>Tilfeldig, gjenta</translation>
    </message>
    <message>
        <source>Filter the rows</source>
        <translation>Filtrer radene</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Skift</translation>
    </message>
    <message>
        <source>Select several rows</source>
        <translation>Velg flere rader</translation>
    </message>
    <message>
        <source>Now playing and queue</source>
        <translation>Spilles nå og kø</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Tilbaketast</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Tilbake</translation>
    </message>
    <message>
        <source>Developer’s drawer</source>
        <translation>Utviklerpanel</translation>
    </message>
    <message>
        <source>This help</source>
        <translation>Denne hjelpen</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Hurtigtaster</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Spill av</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>Read more</source>
        <translation>Les mer</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posisjon</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 av %2</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volum</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Lyd på</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Tilfeldig rekkefølge</translation>
    </message>
    <message>
        <source>Repeat: off</source>
        <translation>Gjenta: av</translation>
    </message>
    <message>
        <source>Repeat: all</source>
        <translation>Gjenta: alt</translation>
    </message>
    <message>
        <source>Repeat: this track</source>
        <translation>Gjenta: dette sporet</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>asked for %1</source>
        <translation>ønsket: %1</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <translation>%1, ønsket: %2</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Forrige</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Neste</translation>
    </message>
    <message>
        <source>Nothing plays</source>
        <translation>Ingenting spilles</translation>
    </message>
    <message>
        <source>Now playing: %1</source>
        <translation>Spilles nå: %1</translation>
    </message>
    <message>
        <source>1 track</source>
        <translation>1 spor</translation>
    </message>
    <message>
        <source>%1 tracks</source>
        <translation>%1 spor</translation>
    </message>
    <message>
        <source>%1 albums</source>
        <translation>%1 album</translation>
    </message>
    <message>
        <source>%1 artists</source>
        <translation>%1 artister</translation>
    </message>
    <message>
        <source>%1 playlists</source>
        <translation>%1 spillelister</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Rader</translation>
    </message>
    <message>
        <source>Nothing is here.</source>
        <translation>Her er det tomt.</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Sortering</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Lukk</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>Kopiert: %1</translation>
    </message>
    <message>
        <source>Copy its path</source>
        <translation>Kopier stien</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Tøm</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Meldinger</translation>
    </message>
    <message>
        <source>No notice yet. Change something, or let another client do it.</source>
        <translation>Ingen meldinger ennå. Endre noe her eller fra en annen klient.</translation>
    </message>
    <message>
        <source>Requests</source>
        <translation>Forespørsler</translation>
    </message>
    <message>
        <source>The module has made no request yet.</source>
        <translation>Modulen har ikke sendt noen forespørsler ennå.</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>Kall</translation>
    </message>
    <message>
        <source>No call yet.</source>
        <translation>Ingen kall ennå.</translation>
    </message>
    <message>
        <source>Raw reply</source>
        <translation>Rått svar</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Rad</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Svar</translation>
    </message>
    <message>
        <source>Close the drawer</source>
        <translation>Lukk panelet</translation>
    </message>
    <message>
        <source>The description of the HTTP API</source>
        <translation>Beskrivelsen av HTTP-API-et</translation>
    </message>
    <message>
        <source>API</source>
        <translation>API</translation>
    </message>
    <message>
        <source>Move to a row: its path, roles and data stand here.</source>
        <translation>Gå til en rad: sti, roller og data vises her.</translation>
    </message>
    <message>
        <source>Read its data</source>
        <translation>Les dataene</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>Roller</translation>
    </message>
    <message>
        <source>%1, rows from %2, %3 in all, version %4, answered in %5</source>
        <translation>%1, rader fra %2, %3 i alt, versjon %4, besvart på %5</translation>
    </message>
    <message>
        <source>Answered in %1</source>
        <translation>Besvart på %1</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>mislyktes</translation>
    </message>
    <message>
        <source>Copy as curl</source>
        <translation>Kopier som curl</translation>
    </message>
    <message>
        <source>Copy as kelo</source>
        <translation>Kopier som kelo</translation>
    </message>
    <message>
        <source>Added to “%1”</source>
        <translation>Lagt til i «%1»</translation>
    </message>
    <message>
        <source>New playlist…</source>
        <translation>Ny spilleliste…</translation>
    </message>
    <message>
        <source>Edit details…</source>
        <translation>Rediger detaljer…</translation>
    </message>
    <message>
        <source>Edit playlist details…</source>
        <translation>Rediger spillelistens detaljer…</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Lagret</translation>
    </message>
    <message>
        <source>Move to position…</source>
        <translation>Flytt til plass…</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Flytt</translation>
    </message>
    <message>
        <source>Go to artist</source>
        <translation>Gå til artist</translation>
    </message>
    <message>
        <source>Go to album</source>
        <translation>Gå til album</translation>
    </message>
    <message>
        <source>Delete playlist…</source>
        <translation>Slett spilleliste…</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Slettet</translation>
    </message>
    <message>
        <source>Remove from this playlist</source>
        <translation>Fjern fra denne spillelisten</translation>
    </message>
    <message>
        <source>Removed from the playlist</source>
        <translation>Fjernet fra spillelisten</translation>
    </message>
    <message>
        <source>Date added</source>
        <translation>Dato lagt til</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Lengde</translation>
    </message>
    <message>
        <source>Playlist order</source>
        <translation>Spillelistens rekkefølge</translation>
    </message>
    <message>
        <source>Release date</source>
        <translation>Utgivelsesdato</translation>
    </message>
    <message>
        <source>Low, AAC 96 kbit/s</source>
        <translation>Lav, AAC 96 kbit/s</translation>
    </message>
    <message>
        <source>High, AAC 320 kbit/s</source>
        <translation>Høy, AAC 320 kbit/s</translation>
    </message>
    <message>
        <source>Lossless, FLAC 16 bit 44.1 kHz</source>
        <translation>Tapsfri, FLAC 16 bit 44,1 kHz</translation>
    </message>
    <message>
        <source>Hi-Res, up to 24 bit 96 kHz</source>
        <translation>Hi-Res, inntil 24 bit 96 kHz</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Ikke funnet</translation>
    </message>
    <message>
        <source>This did not work</source>
        <translation>Dette gikk ikke</translation>
    </message>
    <message>
        <source>There is nothing at this address.</source>
        <translation>Det finnes ikke noe på denne adressen.</translation>
    </message>
    <message>
        <source>The music service did not answer in time.</source>
        <translation>Musikktjenesten svarte ikke i tide.</translation>
    </message>
    <message>
        <source>The music service cannot be reached. Check the network of the streamer.</source>
        <translation>Musikktjenesten kan ikke nås. Sjekk streamerens nettverk.</translation>
    </message>
    <message>
        <source>The music service has a problem (%1).</source>
        <translation>Musikktjenesten har et problem (%1).</translation>
    </message>
    <message>
        <source>The music service does not have this.</source>
        <translation>Musikktjenesten har ikke dette.</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>Logg inn</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Prøv igjen</translation>
    </message>
    <message>
        <source>Trying again in %1 s</source>
        <translation>Prøver igjen om %1 s</translation>
    </message>
    <message>
        <source>Remove from favorites: %1</source>
        <translation>Fjern fra favoritter: %1</translation>
    </message>
    <message>
        <source>Add to favorites: %1</source>
        <translation>Legg til i favoritter: %1</translation>
    </message>
    <message>
        <source>Remove from favorites</source>
        <translation>Fjern fra favoritter</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Legg til i favoritter</translation>
    </message>
    <message>
        <source>Added to favorites</source>
        <translation>Lagt til i favoritter</translation>
    </message>
    <message>
        <source>Removed from favorites</source>
        <translation>Fjernet fra favoritter</translation>
    </message>
    <message>
        <source>%1 added to favorites</source>
        <translation>%1 lagt til i favoritter</translation>
    </message>
    <message>
        <source>%1 removed from favorites</source>
        <translation>%1 fjernet fra favoritter</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Angre</translation>
    </message>
    <message>
        <source>The service has refused this.</source>
        <translation>Tjenesten avviste dette.</translation>
    </message>
    <message>
        <source>%1 in the first %2 of %3</source>
        <translation>%1 i de første %2 av %3</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Lagre</translation>
    </message>
    <message>
        <source>Favorite albums</source>
        <translation>Favorittalbum</translation>
    </message>
    <message>
        <source>Your playlists</source>
        <translation>Dine spillelister</translation>
    </message>
    <message>
        <source>Favorite playlists</source>
        <translation>Favorittspillelister</translation>
    </message>
    <message>
        <source>Just in</source>
        <translation>Nytt</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Anbefalt</translation>
    </message>
    <message>
        <source>Recommended playlists</source>
        <translation>Anbefalte spillelister</translation>
    </message>
    <message>
        <source>Moods</source>
        <translation>Stemninger</translation>
    </message>
    <message>
        <source>Recently played</source>
        <translation>Nylig spilt</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortsett</translation>
    </message>
    <message>
        <source>To play music, connect the streamer to your account.</source>
        <translation>Koble streameren til kontoen din for å spille musikk.</translation>
    </message>
    <message>
        <source>Skip to the rows</source>
        <translation>Hopp til radene</translation>
    </message>
    <message>
        <source>The streamer does not answer. Trying again…</source>
        <translation>Streameren svarer ikke. Prøver igjen …</translation>
    </message>
    <message>
        <source>Try now</source>
        <translation>Prøv nå</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musikk</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Spiller</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>Hovedområder</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>Min musikk</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Spilles</translation>
    </message>
    <message>
        <source>“%1” is not available.</source>
        <translation>«%1» er ikke tilgjengelig.</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>ikke tilgjengelig</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Spill av %1</translation>
    </message>
    <message>
        <source>Menu of %1</source>
        <translation>Meny for %1</translation>
    </message>
    <message>
        <source>On</source>
        <translation>På</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Av</translation>
    </message>
    <message>
        <source>The code has expired.</source>
        <translation>Koden er utløpt.</translation>
    </message>
    <message>
        <source>Take a new code and enter it within the time shown.</source>
        <translation>Hent en ny kode og skriv den inn innen tiden som vises.</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>Innloggingen ble avvist.</translation>
    </message>
    <message>
        <source>Try again, and confirm the login on the service’s page.</source>
        <translation>Prøv igjen, og bekreft innloggingen på tjenestens side.</translation>
    </message>
    <message>
        <source>The service does not accept this streamer.</source>
        <translation>Tjenesten godtar ikke denne streameren.</translation>
    </message>
    <message>
        <source>Check client_id and client_secret in the section [tidal.oauth2] of the settings.</source>
        <translation>Kontroller client_id og client_secret i delen [tidal.oauth2] i innstillingene.</translation>
    </message>
    <message>
        <source>Check client id and secret in the section [module.%1] of the settings.</source>
        <translation>Kontroller klient-ID og klienthemmelighet i delen [module.%1] i innstillingene.</translation>
    </message>
    <message>
        <source>The clock of the streamer is wrong.</source>
        <translation>Klokken i streameren går feil.</translation>
    </message>
    <message>
        <source>Set its date and time, for example with “timedatectl set-ntp true”, then try again.</source>
        <translation>Still dato og klokkeslett, for eksempel med «timedatectl set-ntp true», og prøv igjen.</translation>
    </message>
    <message>
        <source>The service cannot be reached.</source>
        <translation>Får ikke kontakt med tjenesten.</translation>
    </message>
    <message>
        <source>Check the network cable or the wireless network of the streamer, then try again.</source>
        <translation>Kontroller nettverkskabelen eller Wi-Fi på streameren, og prøv igjen.</translation>
    </message>
    <message>
        <source>The service has ended the login.</source>
        <translation>Tjenesten har avsluttet innloggingen.</translation>
    </message>
    <message>
        <source>Log in again.</source>
        <translation>Logg inn på nytt.</translation>
    </message>
    <message>
        <source>The service did not answer as it should.</source>
        <translation>Tjenesten svarte ikke som ventet.</translation>
    </message>
    <message>
        <source>Try again in a few minutes.</source>
        <translation>Prøv igjen om noen minutter.</translation>
    </message>
    <message>
        <source>Not logged in</source>
        <translation>Ikke logget inn</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>Logget inn som %1</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Logget inn</translation>
    </message>
    <message>
        <source>Account: %1</source>
        <translation>Konto: %1</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>Laster …</translation>
    </message>
    <message>
        <source>Asking the service…</source>
        <translation>Spør tjenesten …</translation>
    </message>
    <message>
        <source>You are logged in</source>
        <translation>Du er logget inn</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>To the music</source>
        <translation>Til musikken</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>Logg ut</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>Logg inn på %1</translation>
    </message>
    <message>
        <source>Get a code</source>
        <translation>Hent en kode</translation>
    </message>
    <message>
        <source>On your phone or computer, open</source>
        <translation>Åpne dette på telefonen eller datamaskinen:</translation>
    </message>
    <message>
        <source>Enter this code:</source>
        <translation>Skriv inn denne koden:</translation>
    </message>
    <message>
        <source>Confirm. This page goes on by itself.</source>
        <translation>Bekreft. Denne siden går videre av seg selv.</translation>
    </message>
    <message>
        <source>QR code of the address</source>
        <translation>QR-kode for adressen</translation>
    </message>
    <message>
        <source>Or scan this with your phone.</source>
        <translation>Eller skann denne med telefonen.</translation>
    </message>
    <message>
        <source>The code is good for</source>
        <translation>Koden gjelder i</translation>
    </message>
    <message>
        <source>Try again.</source>
        <translation>Prøv igjen.</translation>
    </message>
    <message>
        <source>Get a new code</source>
        <translation>Hent en ny kode</translation>
    </message>
    <message>
        <source>Play next</source>
        <translation>Spill som neste</translation>
    </message>
    <message>
        <source>Add to queue</source>
        <translation>Legg til i køen</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Åpne</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Velg</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 valgt</translation>
    </message>
    <message>
        <source>Moved to the top</source>
        <translation>Flyttet øverst</translation>
    </message>
    <message>
        <source>Move to top</source>
        <translation>Flytt øverst</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>Arbeider …</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Spilleliste</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mer</translation>
    </message>
    <message>
        <source>Where you are</source>
        <translation>Her er du</translation>
    </message>
    <message>
        <source>Plays next: %1</source>
        <translation>Spilles som neste: %1</translation>
    </message>
    <message>
        <source>Added to the queue: %1</source>
        <translation>Lagt til i køen: %1</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>Kø</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Playing from %1</source>
        <translation>Spiller fra %1</translation>
    </message>
    <message>
        <source>Play an album, a playlist or a track: what follows stands here.</source>
        <translation>Spill av et album, en spilleliste eller et spor: Her vises det som kommer.</translation>
    </message>
    <message>
        <source>Next in the queue</source>
        <translation>Neste i køen</translation>
    </message>
    <message>
        <source>Next from %1</source>
        <translation>Neste fra %1</translation>
    </message>
    <message>
        <source>Next in the list</source>
        <translation>Neste i listen</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Fjern %1</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>Siste søk</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>Typer</translation>
    </message>
    <message>
        <source>Search: %1</source>
        <translation>Søk: %1</translation>
    </message>
    <message>
        <source>Type what you look for: an artist, an album, a track, a playlist.</source>
        <translation>Skriv det du leter etter: artist, album, spor eller spilleliste.</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Best hit</source>
        <translation>Beste treff</translation>
    </message>
    <message>
        <source>Nothing was found for “%1”.</source>
        <translation>Ingenting ble funnet for «%1».</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Spor</translation>
    </message>
    <message>
        <source>Selected rows</source>
        <translation>Valgte rader</translation>
    </message>
    <message>
        <source>Select nothing</source>
        <translation>Velg ingenting</translation>
    </message>
    <message>
        <source>%1 added to the queue</source>
        <translation>%1 lagt til i køen</translation>
    </message>
    <message>
        <source>As the browser</source>
        <translation>Som nettleseren</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Som systemet</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Lyst</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Mørkt</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Språk</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farger</translation>
    </message>
    <message>
        <source>This page</source>
        <translation>Denne siden</translation>
    </message>
    <message>
        <source>The streamer</source>
        <translation>Streameren</translation>
    </message>
    <message>
        <source>kelo %1</source>
        <translation>kelo %1</translation>
    </message>
    <message>
        <source>Set in the settings file</source>
        <translation>Angitt i innstillingsfilen</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(tom)</translation>
    </message>
    <message>
        <source>Whole tracks, not previews</source>
        <translation>Hele spor, ikke smakebiter</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Fremover</translation>
    </message>
    <message>
        <source>All %1</source>
        <translation>Alle %1</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 t %2 min</translation>
    </message>
    <message>
        <source>Waiting for the music service, %1 s</source>
        <translation>Venter på musikktjenesten, %1 s</translation>
    </message>
    <message>
        <source>Waiting for the streamer, %1 s</source>
        <translation>Venter på streameren, %1 s</translation>
    </message>
    <message>
        <source>Where to search</source>
        <translation>Hvor det søkes</translation>
    </message>
    <message>
        <source>Only %1 can be searched now.</source>
        <translation>Nå kan du bare søke i %1.</translation>
    </message>
    <message>
        <source>Search %1</source>
        <translation>Søk i %1</translation>
    </message>
    <message>
        <source>There is nothing to search here.</source>
        <translation>Her er det ingenting å søke i.</translation>
    </message>
</context>
</TS>
