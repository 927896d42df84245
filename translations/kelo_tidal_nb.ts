<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nb" sourcelanguage="en">
<context>
    <name>CMActivateNode</name>
    <message>
        <source>%1 does nothing yet</source>
        <translation>%1 gjør ingenting ennå</translation>
    </message>
</context>
<context>
    <name>CMContainerNode</name>
    <message>
        <source>Bad rows request range</source>
        <translation>Ugyldig radområde</translation>
    </message>
</context>
<context>
    <name>CMError</name>
    <message>
        <source>There is nothing at %1</source>
        <translation>Det finnes ingenting på %1</translation>
    </message>
</context>
<context>
    <name>CMError {anonymous}::noRowError()</name>
    <message>
        <source>Which row of the playlist is not said</source>
        <translation>Det mangler hvilken rad i spillelisten det gjelder</translation>
    </message>
</context>
<context>
    <name>CMNodesWorker</name>
    <message>
        <source>%1 does not take this request</source>
        <translation>%1 tar ikke imot denne forespørselen</translation>
    </message>
</context>
<context>
    <name>CMQueryNode</name>
    <message>
        <source>What to search for is missing: %1</source>
        <translation>Søketeksten mangler: %1</translation>
    </message>
</context>
<context>
    <name>CMRoot</name>
    <message>
        <source>The module gave no answer</source>
        <translation>Modulen ga ikke noe svar</translation>
    </message>
    <message>
        <source>The service has stopped</source>
        <translation>Tjenesten har stoppet</translation>
    </message>
    <message>
        <source>The service did not answer in time</source>
        <translation>Tjenesten svarte ikke i tide</translation>
    </message>
    <message>
        <source>The first row comes after the last one</source>
        <translation>Den første raden kommer etter den siste</translation>
    </message>
</context>
<context>
    <name>CMRowList TidalBrowserContextNode::artistRows(const QString&amp;) const</name>
    <message>
        <source>Track artists</source>
        <translation>Artister på sporet</translation>
    </message>
</context>
<context>
    <name>CMValueNode</name>
    <message>
        <source>What was sent to %1 is no value</source>
        <translation>Det som ble sendt til %1, er ingen verdi</translation>
    </message>
    <message>
        <source>%1 wants a whole number</source>
        <translation>%1 krever et heltall</translation>
    </message>
    <message>
        <source>%1 wants a text</source>
        <translation>%1 krever en tekst</translation>
    </message>
    <message>
        <source>%1 wants true or false</source>
        <translation>%1 krever sant eller usant</translation>
    </message>
    <message>
        <source>%1 cannot be changed</source>
        <translation>%1 kan ikke endres</translation>
    </message>
</context>
<context>
    <name>HttpReply</name>
    <message>
        <source>Bad request</source>
        <translation>Ugyldig forespørsel</translation>
    </message>
    <message>
        <source>Forbidden</source>
        <translation>Ikke tillatt</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Ikke funnet</translation>
    </message>
    <message>
        <source>Method not allowed</source>
        <translation>Metoden er ikke tillatt</translation>
    </message>
    <message>
        <source>Conflict</source>
        <translation>Konflikt</translation>
    </message>
    <message>
        <source>Body too large</source>
        <translation>Innholdet er for stort</translation>
    </message>
    <message>
        <source>Address too long</source>
        <translation>Adressen er for lang</translation>
    </message>
    <message>
        <source>Wrong content type</source>
        <translation>Feil innholdstype</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>Intern feil</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Feil</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Ikke tilgjengelig</translation>
    </message>
    <message>
        <source>No answer in time</source>
        <translation>Ikke svar i tide</translation>
    </message>
</context>
<context>
    <name>LateAnswer</name>
    <message>
        <source>waiting for the music service, %1 s</source>
        <translation>venter på musikktjenesten, %1 s</translation>
    </message>
    <message>
        <source>waiting for the streamer, %1 s</source>
        <translation>venter på streameren, %1 s</translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>No login code: %1.</source>
        <translation>Ingen innloggingskode: %1.</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>Innloggingen ble avvist.</translation>
    </message>
    <message>
        <source>The login failed: %1.</source>
        <translation>Innloggingen mislyktes: %1.</translation>
    </message>
    <message>
        <source>The code has expired. Start the login again.</source>
        <translation>Koden er utløpt. Start innloggingen på nytt.</translation>
    </message>
    <message>
        <source>The code has expired: %1.</source>
        <translation>Koden er utløpt: %1.</translation>
    </message>
    <message>
        <source>the login service is not reached</source>
        <translation>får ikke kontakt med innloggingstjenesten</translation>
    </message>
    <message>
        <source>no secure connection to the login service</source>
        <translation>ingen sikker forbindelse til innloggingstjenesten</translation>
    </message>
    <message>
        <source>the login service's certificate is not valid at the time that the streamer's clock shows</source>
        <translation>sertifikatet til innloggingstjenesten er ikke gyldig på tidspunktet som klokken i streameren viser</translation>
    </message>
    <message>
        <source>the login service's answer is too large</source>
        <translation>svaret fra innloggingstjenesten er for stort</translation>
    </message>
    <message>
        <source>the login service does not answer</source>
        <translation>innloggingstjenesten svarer ikke</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes fast</source>
        <translation>%1, og klokken i streameren går %2 minutter for fort</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes slow</source>
        <translation>%1, og klokken i streameren går %2 minutter for sakte</translation>
    </message>
    <message>
        <source>the login service's answer is not understood</source>
        <translation>svaret fra innloggingstjenesten kan ikke tolkes</translation>
    </message>
    <message>
        <source>the login service answered with status %1</source>
        <translation>innloggingstjenesten svarte med status %1</translation>
    </message>
    <message>
        <source>No client id is set for %1; see the settings.</source>
        <translation>Ingen klient-ID er angitt for %1; se innstillingene.</translation>
    </message>
    <message>
        <source>The login is not renewed yet: %1.</source>
        <translation>Innloggingen er ikke fornyet ennå: %1.</translation>
    </message>
    <message>
        <source>The login has ended: the service does not accept it any more. Log in again.</source>
        <translation>Innloggingen er avsluttet: Tjenesten godtar den ikke lenger. Logg inn på nytt.</translation>
    </message>
</context>
<context>
    <name>Modules</name>
    <message>
        <source>Modules</source>
        <translation>Moduler</translation>
    </message>
</context>
<context>
    <name>OAuth2Worker::OAuth2Worker(const QString&amp;, std::unique_ptr&lt;TokenEndpoint&gt;, std::unique_ptr&lt;Clock&gt;)</name>
    <message>
        <source>Logins</source>
        <translation>Innlogginger</translation>
    </message>
    <message>
        <source>Add a login service</source>
        <translation>Legg til en innloggingstjeneste</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>no sound device, playing silently</source>
        <translation>ingen lydenhet, spiller uten lyd</translation>
    </message>
    <message>
        <source>the address holds no audio</source>
        <translation>adressen inneholder ingen lyd</translation>
    </message>
    <message>
        <source>the address was refused (%1)</source>
        <translation>adressen ble avvist (%1)</translation>
    </message>
    <message>
        <source>nothing stands at the address (%1)</source>
        <translation>det finnes ingenting på adressen (%1)</translation>
    </message>
    <message>
        <source>the audio cannot be decoded: %1</source>
        <translation>lyden kan ikke dekodes: %1</translation>
    </message>
    <message>
        <source>the sound device cannot be used: %1</source>
        <translation>lydenheten kan ikke brukes: %1</translation>
    </message>
    <message>
        <source>the audio did not arrive: the connection failed or broke off</source>
        <translation>lyden kom ikke fram: forbindelsen mislyktes eller ble brutt</translation>
    </message>
    <message>
        <source>the audio did not arrive: %1</source>
        <translation>lyden kom ikke fram: %1</translation>
    </message>
    <message>
        <source>asked for the item of %1, the module handed over one of %2</source>
        <translation>ba om elementet til %1, modulen leverte et til %2</translation>
    </message>
    <message>
        <source>the player ends</source>
        <translation>spilleren avsluttes</translation>
    </message>
    <message>
        <source>superseded by another command</source>
        <translation>erstattet av en annen kommando</translation>
    </message>
    <message>
        <source>nothing is playing</source>
        <translation>ingenting spilles av</translation>
    </message>
    <message>
        <source>there is nothing to play</source>
        <translation>det er ingenting å spille av</translation>
    </message>
    <message>
        <source>%1 broke off: %2</source>
        <translation>%1 ble avbrutt: %2</translation>
    </message>
    <message>
        <source>skipped: %1: %2</source>
        <translation>hoppet over: %1: %2</translation>
    </message>
    <message>
        <source>skipped: %1 cannot be played</source>
        <translation>hoppet over: %1 kan ikke spilles av</translation>
    </message>
    <message>
        <source>%1 cannot be played</source>
        <translation>%1 kan ikke spilles av</translation>
    </message>
    <message>
        <source>the list does not go on: %1</source>
        <translation>listen går ikke videre: %1</translation>
    </message>
    <message>
        <source>nothing in this list can be played</source>
        <translation>ingenting i denne listen kan spilles av</translation>
    </message>
    <message>
        <source>no such row</source>
        <translation>raden finnes ikke</translation>
    </message>
    <message>
        <source>the service gave no address</source>
        <translation>tjenesten oppga ingen adresse</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>stopped after %1 items in a row that cannot be played: %2</source>
        <translation>stoppet etter %1 elementer på rad som ikke kan spilles av: %2</translation>
    </message>
    <message>
        <source>the audio output did not start within %1 seconds and was made anew</source>
        <translation>lydutgangen startet ikke innen %1 sekunder og ble satt opp på nytt</translation>
    </message>
    <message>
        <source>the queue has changed; look at it again</source>
        <translation>køen er endret; se på den på nytt</translation>
    </message>
    <message>
        <source>the queue has %1 rows, none at this position</source>
        <translation>køen har %1 oppføringer, ingen på denne plassen</translation>
    </message>
    <message>
        <source>the queue is full: it holds %1 rows</source>
        <translation>køen er full: den rommer %1 oppføringer</translation>
    </message>
    <message>
        <source>too much is being added at once</source>
        <translation>for mye legges til på en gang</translation>
    </message>
    <message>
        <source>the queue is not kept: %1 was written by a later version</source>
        <translation>køen blir ikke lagret: %1 er fra en senere versjon</translation>
    </message>
    <message>
        <source>the kept queue cannot be read; it was put aside as %1</source>
        <translation>den lagrede køen kan ikke leses; den er lagt til side som %1</translation>
    </message>
    <message>
        <source>the queue is not kept: %1: %2</source>
        <translation>køen blir ikke lagret: %1: %2</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::chooserLeadRow(const CMGetRowsRequest&amp;, const CMPath&amp;, int)</name>
    <message>
        <source>Create playlist</source>
        <translation>Opprett spilleliste</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>Mine spillelister</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::noItemsRow(const QStringList&amp;)</name>
    <message>
        <source>No items found</source>
        <translation>Ingen treff</translation>
    </message>
</context>
<context>
    <name>SettingsWorker::SettingsWorker(const Settings&amp;, QObject*)</name>
    <message>
        <source>Settings</source>
        <translation>Innstillinger</translation>
    </message>
</context>
<context>
    <name>TIDAL</name>
    <message>
        <source>Title</source>
        <comment>Playlist title</comment>
        <translation>Tittel</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>Playlist description</comment>
        <translation>Beskrivelse</translation>
    </message>
    <message>
        <source>Create</source>
        <comment>Playlist create</comment>
        <translation>Opprett</translation>
    </message>
    <message>
        <source>Update</source>
        <comment>Playlist update</comment>
        <translation>Oppdater</translation>
    </message>
    <message>
        <source>Bad request</source>
        <translation>Ugyldig forespørsel</translation>
    </message>
    <message>
        <source>Unauthorized</source>
        <translation>Ikke autorisert</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Ikke funnet</translation>
    </message>
    <message>
        <source>Unexpected error</source>
        <translation>Uventet feil</translation>
    </message>
    <message>
        <source>Service Unavailable: Back-end server is at capacity</source>
        <translation>Tjenesten er utilgjengelig: serveren er overbelastet</translation>
    </message>
    <message>
        <source>unknown Error</source>
        <translation>Ukjent feil</translation>
    </message>
    <message>
        <source>Error, failed to parse error message</source>
        <translation>Feilmeldingen kunne ikke leses</translation>
    </message>
    <message>
        <source>Non existing track index</source>
        <translation>Sporposisjonen finnes ikke</translation>
    </message>
</context>
<context>
    <name>TidalBaseContextNode::TidalBaseContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Favorite</source>
        <translation>Favoritt</translation>
    </message>
</context>
<context>
    <name>TidalBrowserContextNode::TidalBrowserContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Add to playlist</source>
        <translation>Legg til i spilleliste</translation>
    </message>
</context>
<context>
    <name>TidalMoveTrackNode::TidalMoveTrackNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Row number</source>
        <translation>Radnummer</translation>
    </message>
    <message>
        <source>Move to row</source>
        <translation>Flytt til raden</translation>
    </message>
</context>
<context>
    <name>TidalOrderingContextNode::TidalOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>My Music browsing</source>
        <translation>Bla i Min musikk</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Sortering</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Dato</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Navn</translation>
    </message>
    <message>
        <source>Artist - Not for my playlists and artists</source>
        <translation>Artist – ikke for mine spillelister og artister</translation>
    </message>
    <message>
        <source>Album - Only my tracks</source>
        <translation>Album – bare mine spor</translation>
    </message>
    <message>
        <source>Length - Only my tracks</source>
        <translation>Lengde – bare mine spor</translation>
    </message>
    <message>
        <source>Release Date - Only my albums</source>
        <translation>Utgivelsesdato – bare mine album</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>Sorteringsretning</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Synkende</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Stigende</translation>
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
        <translation>Private</translation>
    </message>
    <message>
        <source>Public</source>
        <translation>Offentlige</translation>
    </message>
</context>
<context>
    <name>TidalPlaylistForm::TidalPlaylistForm(const CMPath&amp;, TidalWorker*)</name>
    <message>
        <source>Create new playlist</source>
        <translation>Opprett ny spilleliste</translation>
    </message>
    <message>
        <source>Update playlist</source>
        <translation>Oppdater spilleliste</translation>
    </message>
</context>
<context>
    <name>TidalTrackOrderingContextNode::TidalTrackOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Playlist tracks ordering</source>
        <translation>Sortering av spor i spillelister</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Sortering</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Dato</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Navn</translation>
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
        <source>Index</source>
        <translation>Plassering</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>Sorteringsretning</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Synkende</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Stigende</translation>
    </message>
</context>
<context>
    <name>TidalWorker::TidalWorker(const QVariantHash&amp;)</name>
    <message>
        <source>Info message</source>
        <translation>Melding</translation>
    </message>
    <message>
        <source>Successful</source>
        <translation>Utført</translation>
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
        <translation>Tilgangstoken mangler</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkFavorite(const CMRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>This cannot be a favorite</source>
        <translation>Dette kan ikke være en favoritt</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkUser(const CMRequest&amp;, const QString&amp;)</name>
    <message>
        <source>User not logged in. Cannot get favorites</source>
        <translation>Du er ikke logget inn. Favorittene er ikke tilgjengelige</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::track(const CMSetDataRequest&amp;, const QString&amp;)</name>
    <message>
        <source>Missing track ID</source>
        <translation>Spor-ID mangler</translation>
    </message>
</context>
<context>
    <name>bool TidalNodeResponder::endsWithLogin(const HttpClientPrivate&amp;)</name>
    <message>
        <source>User was logged out</source>
        <translation>Brukeren ble logget ut</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::buildStaticStructure()</name>
    <message>
        <source>Busy, adding to playlist.</source>
        <translation>Legger til i spillelisten …</translation>
    </message>
    <message>
        <source>Search track, album, artist and playlist</source>
        <translation>Søk etter spor, album, artist og spilleliste</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Søk</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Spor</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Artister</translation>
    </message>
    <message>
        <source>Playlists</source>
        <translation>Spillelister</translation>
    </message>
    <message>
        <source>Genres</source>
        <translation>Sjangre</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>Min musikk</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nytt</translation>
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
        <translation>Favorittspillelister</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>Mine spillelister</translation>
    </message>
    <message>
        <source>Www</source>
        <translation>Nett</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Anbefalt</translation>
    </message>
    <message>
        <source>Top 20</source>
        <translation>Topp 20</translation>
    </message>
    <message>
        <source>Masters</source>
        <translation>Masters</translation>
    </message>
    <message>
        <source>remove</source>
        <translation>Fjern</translation>
    </message>
    <message>
        <source>Busy, removing from playlist.</source>
        <translation>Fjerner fra spillelisten …</translation>
    </message>
    <message>
        <source>Move to index</source>
        <translation>Flytt til plassering</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::completeResource(const KeloTidalApiStreamUrlResponse&amp;)</name>
    <message>
        <source>unsupported manifest type</source>
        <translation>Manifesttypen støttes ikke</translation>
    </message>
    <message>
        <source>invalid manifest</source>
        <translation>Ugyldig manifest</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::configure(const CMRequest&amp;)</name>
    <message>
        <source>Failed to initialize TIDAL UI</source>
        <translation>Kunne ikke starte TIDAL-grensesnittet</translation>
    </message>
    <message>
        <source>Not logged into TIDAL!</source>
        <translation>Ikke logget inn på TIDAL!</translation>
    </message>
    <message>
        <source>TIDAL in invalid state!</source>
        <translation>TIDAL er i en ugyldig tilstand!</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::refuseBusy(const CMSetDataRequest&amp;) const</name>
    <message>
        <source>droping play request, busy</source>
        <translation>Opptatt: avspillingsforespørselen forkastes</translation>
    </message>
</context>
<context>
    <name>static QString TidalHandler::pathOf(const CMRequest&amp;, std::initializer_list&lt;QString&gt;)</name>
    <message>
        <source>What this is about is not said</source>
        <translation>Det er ikke sagt hva det gjelder</translation>
    </message>
    <message>
        <source>%1 is no identifier</source>
        <translation>%1 er ingen identifikator</translation>
    </message>
</context>
<context>
    <name>static QString TidalWorker::playItemReference(const CMSetDataRequest&amp;)</name>
    <message>
        <source>track id not set</source>
        <translation>Spor-ID er ikke angitt</translation>
    </message>
</context>
<context>
    <name>virtual CMReply&lt;QVariant&gt; Player::command(const QString&amp;, const QVariantHash&amp;)</name>
    <message>
        <source>the player is not running</source>
        <translation>spilleren kjører ikke</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalBrowseNode::getRowsRequest(const CMGetRowsRequest&amp;)</name>
    <message>
        <source>Bad rows request range</source>
        <translation>Ugyldig radområde</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalFilterEnumNode::setDataRequest(const CMSetDataRequest&amp;)</name>
    <message>
        <source>What was sent is no text to choose</source>
        <translation>Det som ble sendt, er ikke et mulig valg</translation>
    </message>
</context>
<context>
    <name>void ItemResolver::onAnswered(const CMError&amp;)</name>
    <message>
        <source>the service handed no item over</source>
        <translation>tjenesten leverte ikke noe element</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::addNodes(CMNodes*)</name>
    <message>
        <source>Access token</source>
        <translation>Tilgangstoken</translation>
    </message>
    <message>
        <source>Log out of %1</source>
        <translation>Logg ut av %1</translation>
    </message>
    <message>
        <source>Renew the access token</source>
        <translation>Forny tilgangstokenet</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>Logg inn på %1</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::on_logout(CMSetDataRequest)</name>
    <message>
        <source>The login was cancelled.</source>
        <translation>Innloggingen ble avbrutt.</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::setInfo(const KeloOAuth2ServiceInfo&amp;)</name>
    <message>
        <source>The login service has changed.</source>
        <translation>Innloggingstjenesten er endret.</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addOAuth2(const OAuth2Settings&amp;)</name>
    <message>
        <source>Device code address</source>
        <translation>Adresse for enhetskoder</translation>
    </message>
    <message>
        <source>Authorization address</source>
        <translation>Autorisasjonsadresse</translation>
    </message>
    <message>
        <source>Token address</source>
        <translation>Tokenadresse</translation>
    </message>
    <message>
        <source>Client id</source>
        <translation>Klient-ID</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Tilganger</translation>
    </message>
    <message>
        <source>Client secret</source>
        <translation>Klienthemmelighet</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addSoundQuality(const QString&amp;)</name>
    <message>
        <source>Sound quality</source>
        <translation>Lydkvalitet</translation>
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
        <translation>Hele spor</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::baseRequest(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>TIDAL application country Code is empty. Maybe you are not logged in.</source>
        <translation>Landkoden for TIDAL er tom. Kanskje er du ikke logget inn.</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::getMyMusic(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, KeloTidalBrowseSetting*)</name>
    <message>
        <source>Missing user Id. Cannot get favorites</source>
        <translation>Bruker-ID mangler. Kan ikke hente favoritter</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::createArtistContent(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>Top tracks</source>
        <translation>Populære spor</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>EPs and singles</source>
        <translation>EP-er og singler</translation>
    </message>
    <message>
        <source>Other albums</source>
        <translation>Andre album</translation>
    </message>
    <message>
        <source>Created playlists</source>
        <translation>Opprettede spillelister</translation>
    </message>
    <message>
        <source>Bio</source>
        <translation>Biografi</translation>
    </message>
    <message>
        <source>Similar artists</source>
        <translation>Lignende artister</translation>
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
        <translation>Artistbiografi</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::on_isFavoriteReponse_invoke(const KeloUrl&amp;, const HttpClientPrivate&amp;, int, int, const QByteArray&amp;, HttpClientHeaders)</name>
    <message>
        <source>Remove from favorites</source>
        <translation>Fjern fra favoritter</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Legg til i favoritter</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::beginPlay(const CMSetDataRequest&amp;, const KeloMediaData&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Kunne ikke hente mediedata</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::configureUser()</name>
    <message>
        <source>User was logged out</source>
        <translation>Brukeren ble logget ut</translation>
    </message>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>Kunne ikke starte TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::finishLookUp(const CMSetDataRequest&amp;, const QVariant&amp;, bool, const KeloTidalApiErrorResponse&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Kunne ikke hente mediedata</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>Mediedataene er ufullstendige</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMedia(const CMSetDataRequest&amp;)</name>
    <message>
        <source>invalid play request data</source>
        <translation>Ugyldige data i avspillingsforespørselen</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaPending(const CMSetDataRequest&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Kunne ikke hente mediedata</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>Mediedataene er ufullstendige</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaReady()</name>
    <message>
        <source>internal play loop failed</source>
        <translation>Intern feil i avspillingen</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_media(CMSetDataRequest, CMSetDataRequest)</name>
    <message>
        <source>another media request pending</source>
        <translation>En annen medieforespørsel pågår</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>Kunne ikke hente mediedata</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_track(const CMSetDataRequest&amp;)</name>
    <message>
        <source>another track request pending</source>
        <translation>En annen sporforespørsel pågår</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>Kunne ikke hente mediedata</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_media_play(const CMSetDataRequest&amp;)</name>
    <message>
        <source>prePlayData not set</source>
        <translation>prePlayData er ikke angitt</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_move_activation(const CMSetDataRequest&amp;)</name>
    <message>
        <source>The rows of a playlist are counted from 0</source>
        <translation>Radene i en spilleliste telles fra 0</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_sessionsFinished(KeloTidalApiSessionsResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>Kunne ikke starte TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_subscriptionFinished(KeloTidalApiSubscriptionResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>Kunne ikke starte TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::postpone(const CMRequest&amp;)</name>
    <message>
        <source>Too many requests are waiting for TIDAL</source>
        <translation>For mange forespørsler venter på TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::resetTopNode()</name>
    <message>
        <source>Please login to continue</source>
        <translation>Logg inn for å fortsette</translation>
    </message>
</context>
</TS>
