<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>CMActivateNode</name>
    <message>
        <source>%1 does nothing yet</source>
        <translation>%1 n’a pas encore de fonction</translation>
    </message>
</context>
<context>
    <name>CMContainerNode</name>
    <message>
        <source>Bad rows request range</source>
        <translation>Plage de lignes non valide</translation>
    </message>
</context>
<context>
    <name>CMError</name>
    <message>
        <source>There is nothing at %1</source>
        <translation>Il n’y a rien à l’adresse %1</translation>
    </message>
</context>
<context>
    <name>CMError {anonymous}::noRowError()</name>
    <message>
        <source>Which row of the playlist is not said</source>
        <translation>La ligne de la playlist n’est pas précisée</translation>
    </message>
</context>
<context>
    <name>CMNodesWorker</name>
    <message>
        <source>%1 does not take this request</source>
        <translation>%1 n’accepte pas cette requête</translation>
    </message>
</context>
<context>
    <name>CMQueryNode</name>
    <message>
        <source>What to search for is missing: %1</source>
        <translation>Le texte à rechercher est absent : %1</translation>
    </message>
</context>
<context>
    <name>CMRoot</name>
    <message>
        <source>The module gave no answer</source>
        <translation>Le module n’a pas répondu</translation>
    </message>
    <message>
        <source>The service has stopped</source>
        <translation>Le service s’est arrêté</translation>
    </message>
    <message>
        <source>The service did not answer in time</source>
        <translation>Le service n’a pas répondu à temps</translation>
    </message>
    <message>
        <source>The first row comes after the last one</source>
        <translation>La première ligne vient après la dernière</translation>
    </message>
</context>
<context>
    <name>CMRowList TidalBrowserContextNode::artistRows(const QString&amp;) const</name>
    <message>
        <source>Track artists</source>
        <translation>Artistes du titre</translation>
    </message>
</context>
<context>
    <name>CMValueNode</name>
    <message>
        <source>What was sent to %1 is no value</source>
        <translation>Ce qui a été envoyé à %1 n’est pas une valeur</translation>
    </message>
    <message>
        <source>%1 wants a whole number</source>
        <translation>%1 attend un nombre entier</translation>
    </message>
    <message>
        <source>%1 wants a text</source>
        <translation>%1 attend un texte</translation>
    </message>
    <message>
        <source>%1 wants true or false</source>
        <translation>%1 attend vrai ou faux</translation>
    </message>
    <message>
        <source>%1 cannot be changed</source>
        <translation>%1 ne peut pas être modifié</translation>
    </message>
</context>
<context>
    <name>HttpReply</name>
    <message>
        <source>Bad request</source>
        <translation>Requête non valide</translation>
    </message>
    <message>
        <source>Forbidden</source>
        <translation>Interdit</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
    <message>
        <source>Method not allowed</source>
        <translation>Méthode non autorisée</translation>
    </message>
    <message>
        <source>Conflict</source>
        <translation>Conflit</translation>
    </message>
    <message>
        <source>Body too large</source>
        <translation>Contenu trop volumineux</translation>
    </message>
    <message>
        <source>Address too long</source>
        <translation>Adresse trop longue</translation>
    </message>
    <message>
        <source>Wrong content type</source>
        <translation>Type de contenu incorrect</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>Erreur interne</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Indisponible</translation>
    </message>
    <message>
        <source>No answer in time</source>
        <translation>Pas de réponse à temps</translation>
    </message>
</context>
<context>
    <name>LateAnswer</name>
    <message>
        <source>waiting for the music service, %1 s</source>
        <translation>en attente du service de musique, %1 s</translation>
    </message>
    <message>
        <source>waiting for the streamer, %1 s</source>
        <translation>en attente du streamer, %1 s</translation>
    </message>
</context>
<context>
    <name>Login</name>
    <message>
        <source>No login code: %1.</source>
        <translation>Pas de code de connexion : %1.</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>La connexion a été refusée.</translation>
    </message>
    <message>
        <source>The login failed: %1.</source>
        <translation>La connexion a échoué : %1.</translation>
    </message>
    <message>
        <source>The code has expired. Start the login again.</source>
        <translation>Le code a expiré. Recommencez la connexion.</translation>
    </message>
    <message>
        <source>The code has expired: %1.</source>
        <translation>Le code a expiré : %1.</translation>
    </message>
    <message>
        <source>the login service is not reached</source>
        <translation>le service de connexion est injoignable</translation>
    </message>
    <message>
        <source>no secure connection to the login service</source>
        <translation>pas de liaison sécurisée avec le service de connexion</translation>
    </message>
    <message>
        <source>the login service's certificate is not valid at the time that the streamer's clock shows</source>
        <translation>le certificat du service de connexion n’est pas valable à l’heure indiquée par l’horloge du streamer</translation>
    </message>
    <message>
        <source>the login service's answer is too large</source>
        <translation>la réponse du service de connexion est trop volumineuse</translation>
    </message>
    <message>
        <source>the login service does not answer</source>
        <translation>le service de connexion ne répond pas</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes fast</source>
        <translation>%1, et l’horloge du streamer avance de %2 minutes</translation>
    </message>
    <message>
        <source>%1, and the streamer's clock is %2 minutes slow</source>
        <translation>%1, et l’horloge du streamer retarde de %2 minutes</translation>
    </message>
    <message>
        <source>the login service's answer is not understood</source>
        <translation>la réponse du service de connexion est incompréhensible</translation>
    </message>
    <message>
        <source>the login service answered with status %1</source>
        <translation>le service de connexion a répondu avec le statut %1</translation>
    </message>
    <message>
        <source>No client id is set for %1; see the settings.</source>
        <translation>Aucun identifiant client n’est défini pour %1 ; voir les réglages.</translation>
    </message>
    <message>
        <source>The login is not renewed yet: %1.</source>
        <translation>La connexion n’est pas encore renouvelée : %1.</translation>
    </message>
    <message>
        <source>The login has ended: the service does not accept it any more. Log in again.</source>
        <translation>La connexion est terminée : le service ne l’accepte plus. Reconnectez-vous.</translation>
    </message>
</context>
<context>
    <name>Modules</name>
    <message>
        <source>Modules</source>
        <translation>Modules</translation>
    </message>
</context>
<context>
    <name>OAuth2Worker::OAuth2Worker(const QString&amp;, std::unique_ptr&lt;TokenEndpoint&gt;, std::unique_ptr&lt;Clock&gt;)</name>
    <message>
        <source>Logins</source>
        <translation>Connexions</translation>
    </message>
    <message>
        <source>Add a login service</source>
        <translation>Ajouter un service de connexion</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>no sound device, playing silently</source>
        <translation>pas de périphérique audio, lecture sans son</translation>
    </message>
    <message>
        <source>the address holds no audio</source>
        <translation>l’adresse ne contient pas d’audio</translation>
    </message>
    <message>
        <source>the address was refused (%1)</source>
        <translation>l’adresse a été refusée (%1)</translation>
    </message>
    <message>
        <source>nothing stands at the address (%1)</source>
        <translation>il n’y a rien à cette adresse (%1)</translation>
    </message>
    <message>
        <source>the audio cannot be decoded: %1</source>
        <translation>l’audio ne peut pas être décodé : %1</translation>
    </message>
    <message>
        <source>the sound device cannot be used: %1</source>
        <translation>le périphérique audio est inutilisable : %1</translation>
    </message>
    <message>
        <source>the audio did not arrive: the connection failed or broke off</source>
        <translation>l’audio n’est pas arrivé : la connexion a échoué ou a été interrompue</translation>
    </message>
    <message>
        <source>the audio did not arrive: %1</source>
        <translation>l’audio n’est pas arrivé : %1</translation>
    </message>
    <message>
        <source>asked for the item of %1, the module handed over one of %2</source>
        <translation>demandé l’élément de %1, le module a remis celui de %2</translation>
    </message>
    <message>
        <source>the player ends</source>
        <translation>le lecteur s’arrête</translation>
    </message>
    <message>
        <source>superseded by another command</source>
        <translation>remplacé par une autre commande</translation>
    </message>
    <message>
        <source>nothing is playing</source>
        <translation>rien n’est en cours de lecture</translation>
    </message>
    <message>
        <source>there is nothing to play</source>
        <translation>il n’y a rien à lire</translation>
    </message>
    <message>
        <source>%1 broke off: %2</source>
        <translation>%1 s’est interrompu : %2</translation>
    </message>
    <message>
        <source>skipped: %1: %2</source>
        <translation>ignoré : %1 : %2</translation>
    </message>
    <message>
        <source>skipped: %1 cannot be played</source>
        <translation>ignoré : %1 ne peut pas être lu</translation>
    </message>
    <message>
        <source>%1 cannot be played</source>
        <translation>%1 ne peut pas être lu</translation>
    </message>
    <message>
        <source>the list does not go on: %1</source>
        <translation>la liste s’interrompt : %1</translation>
    </message>
    <message>
        <source>nothing in this list can be played</source>
        <translation>rien dans cette liste ne peut être lu</translation>
    </message>
    <message>
        <source>no such row</source>
        <translation>cette ligne n’existe pas</translation>
    </message>
    <message>
        <source>the service gave no address</source>
        <translation>le service n’a pas donné d’adresse</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>stopped after %1 items in a row that cannot be played: %2</source>
        <translation>arrêté après %1 éléments de suite impossibles à lire : %2</translation>
    </message>
    <message>
        <source>the audio output did not start within %1 seconds and was made anew</source>
        <translation>la sortie audio n’a pas démarré en %1 secondes et a été recréée</translation>
    </message>
    <message>
        <source>the queue has changed; look at it again</source>
        <translation>la file d’attente a changé ; consultez-la à nouveau</translation>
    </message>
    <message>
        <source>the queue has %1 rows, none at this position</source>
        <translation>la file d’attente a %1 entrées, aucune à cette position</translation>
    </message>
    <message>
        <source>the queue is full: it holds %1 rows</source>
        <translation>la file d’attente est pleine : elle contient %1 entrées</translation>
    </message>
    <message>
        <source>too much is being added at once</source>
        <translation>trop d’ajouts à la fois</translation>
    </message>
    <message>
        <source>the queue is not kept: %1 was written by a later version</source>
        <translation>la file d’attente n’est pas conservée : %1 provient d’une version ultérieure</translation>
    </message>
    <message>
        <source>the kept queue cannot be read; it was put aside as %1</source>
        <translation>la file d’attente enregistrée est illisible ; elle a été mise de côté sous %1</translation>
    </message>
    <message>
        <source>the queue is not kept: %1: %2</source>
        <translation>la file d’attente n’est pas conservée : %1 : %2</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::chooserLeadRow(const CMGetRowsRequest&amp;, const CMPath&amp;, int)</name>
    <message>
        <source>Create playlist</source>
        <translation>Créer une playlist</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>Mes playlists</translation>
    </message>
</context>
<context>
    <name>QVariantList TidalNodeResponder::noItemsRow(const QStringList&amp;)</name>
    <message>
        <source>No items found</source>
        <translation>Aucun élément trouvé</translation>
    </message>
</context>
<context>
    <name>SettingsWorker::SettingsWorker(const Settings&amp;, QObject*)</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
</context>
<context>
    <name>TIDAL</name>
    <message>
        <source>Title</source>
        <comment>Playlist title</comment>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>Playlist description</comment>
        <translation>Description</translation>
    </message>
    <message>
        <source>Create</source>
        <comment>Playlist create</comment>
        <translation>Créer</translation>
    </message>
    <message>
        <source>Update</source>
        <comment>Playlist update</comment>
        <translation>Mettre à jour</translation>
    </message>
    <message>
        <source>Bad request</source>
        <translation>Requête non valide</translation>
    </message>
    <message>
        <source>Unauthorized</source>
        <translation>Non autorisé</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
    <message>
        <source>Unexpected error</source>
        <translation>Erreur inattendue</translation>
    </message>
    <message>
        <source>Service Unavailable: Back-end server is at capacity</source>
        <translation>Service indisponible : le serveur est saturé</translation>
    </message>
    <message>
        <source>unknown Error</source>
        <translation>Erreur inconnue</translation>
    </message>
    <message>
        <source>Error, failed to parse error message</source>
        <translation>Le message d’erreur est illisible</translation>
    </message>
    <message>
        <source>Non existing track index</source>
        <translation>Cette position de titre n’existe pas</translation>
    </message>
</context>
<context>
    <name>TidalBaseContextNode::TidalBaseContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Favorite</source>
        <translation>Favori</translation>
    </message>
</context>
<context>
    <name>TidalBrowserContextNode::TidalBrowserContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Add to playlist</source>
        <translation>Ajouter à une playlist</translation>
    </message>
</context>
<context>
    <name>TidalMoveTrackNode::TidalMoveTrackNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Row number</source>
        <translation>Numéro de ligne</translation>
    </message>
    <message>
        <source>Move to row</source>
        <translation>Déplacer vers cette ligne</translation>
    </message>
</context>
<context>
    <name>TidalOrderingContextNode::TidalOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>My Music browsing</source>
        <translation>Parcourir Ma musique</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Tri</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Artist - Not for my playlists and artists</source>
        <translation>Artiste – sauf mes playlists et artistes</translation>
    </message>
    <message>
        <source>Album - Only my tracks</source>
        <translation>Album – mes titres uniquement</translation>
    </message>
    <message>
        <source>Length - Only my tracks</source>
        <translation>Durée – mes titres uniquement</translation>
    </message>
    <message>
        <source>Release Date - Only my albums</source>
        <translation>Date de sortie – mes albums uniquement</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>Sens du tri</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Décroissant</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Croissant</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Toutes</translation>
    </message>
    <message>
        <source>Private</source>
        <translation>Privées</translation>
    </message>
    <message>
        <source>Public</source>
        <translation>Publiques</translation>
    </message>
</context>
<context>
    <name>TidalPlaylistForm::TidalPlaylistForm(const CMPath&amp;, TidalWorker*)</name>
    <message>
        <source>Create new playlist</source>
        <translation>Créer une nouvelle playlist</translation>
    </message>
    <message>
        <source>Update playlist</source>
        <translation>Modifier la playlist</translation>
    </message>
</context>
<context>
    <name>TidalTrackOrderingContextNode::TidalTrackOrderingContextNode(TidalWorker*, const CMPath&amp;)</name>
    <message>
        <source>Playlist tracks ordering</source>
        <translation>Tri des titres de la playlist</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Tri</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Order direction</source>
        <translation>Sens du tri</translation>
    </message>
    <message>
        <source>Descending</source>
        <translation>Décroissant</translation>
    </message>
    <message>
        <source>Ascending</source>
        <translation>Croissant</translation>
    </message>
</context>
<context>
    <name>TidalWorker::TidalWorker(const QVariantHash&amp;)</name>
    <message>
        <source>Info message</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Successful</source>
        <translation>Opération réussie</translation>
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
        <translation>Le jeton d’accès n’est pas défini</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkFavorite(const CMRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>This cannot be a favorite</source>
        <translation>Cet élément ne peut pas devenir un favori</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::checkUser(const CMRequest&amp;, const QString&amp;)</name>
    <message>
        <source>User not logged in. Cannot get favorites</source>
        <translation>Vous n’êtes pas connecté. Favoris inaccessibles</translation>
    </message>
</context>
<context>
    <name>bool TidalHandler::track(const CMSetDataRequest&amp;, const QString&amp;)</name>
    <message>
        <source>Missing track ID</source>
        <translation>Identifiant du titre absent</translation>
    </message>
</context>
<context>
    <name>bool TidalNodeResponder::endsWithLogin(const HttpClientPrivate&amp;)</name>
    <message>
        <source>User was logged out</source>
        <translation>L’utilisateur a été déconnecté</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::buildStaticStructure()</name>
    <message>
        <source>Busy, adding to playlist.</source>
        <translation>Ajout à la playlist…</translation>
    </message>
    <message>
        <source>Search track, album, artist and playlist</source>
        <translation>Rechercher titre, album, artiste ou playlist</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Albums</translation>
    </message>
    <message>
        <source>Tracks</source>
        <translation>Titres</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Artistes</translation>
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
        <translation>Ma musique</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Nouveautés</translation>
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
        <translation>Playlists favorites</translation>
    </message>
    <message>
        <source>My playlists</source>
        <translation>Mes playlists</translation>
    </message>
    <message>
        <source>Www</source>
        <translation>Web</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Recommandations</translation>
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
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Busy, removing from playlist.</source>
        <translation>Suppression de la playlist…</translation>
    </message>
    <message>
        <source>Move to index</source>
        <translation>Déplacer vers une position</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::completeResource(const KeloTidalApiStreamUrlResponse&amp;)</name>
    <message>
        <source>unsupported manifest type</source>
        <translation>Type de manifeste non pris en charge</translation>
    </message>
    <message>
        <source>invalid manifest</source>
        <translation>Manifeste non valide</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::configure(const CMRequest&amp;)</name>
    <message>
        <source>Failed to initialize TIDAL UI</source>
        <translation>Échec de l’initialisation de l’interface TIDAL</translation>
    </message>
    <message>
        <source>Not logged into TIDAL!</source>
        <translation>Vous n’êtes pas connecté à TIDAL !</translation>
    </message>
    <message>
        <source>TIDAL in invalid state!</source>
        <translation>TIDAL est dans un état non valide !</translation>
    </message>
</context>
<context>
    <name>bool TidalWorker::refuseBusy(const CMSetDataRequest&amp;) const</name>
    <message>
        <source>droping play request, busy</source>
        <translation>Occupé : la demande de lecture est abandonnée</translation>
    </message>
</context>
<context>
    <name>static QString TidalHandler::pathOf(const CMRequest&amp;, std::initializer_list&lt;QString&gt;)</name>
    <message>
        <source>What this is about is not said</source>
        <translation>L’élément concerné n’est pas précisé</translation>
    </message>
    <message>
        <source>%1 is no identifier</source>
        <translation>%1 n’est pas un identifiant</translation>
    </message>
</context>
<context>
    <name>static QString TidalWorker::playItemReference(const CMSetDataRequest&amp;)</name>
    <message>
        <source>track id not set</source>
        <translation>Identifiant du titre non défini</translation>
    </message>
</context>
<context>
    <name>virtual CMReply&lt;QVariant&gt; Player::command(const QString&amp;, const QVariantHash&amp;)</name>
    <message>
        <source>the player is not running</source>
        <translation>le lecteur ne fonctionne pas</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalBrowseNode::getRowsRequest(const CMGetRowsRequest&amp;)</name>
    <message>
        <source>Bad rows request range</source>
        <translation>Plage de lignes non valide</translation>
    </message>
</context>
<context>
    <name>virtual bool TidalFilterEnumNode::setDataRequest(const CMSetDataRequest&amp;)</name>
    <message>
        <source>What was sent is no text to choose</source>
        <translation>Ce qui a été envoyé n’est pas un choix possible</translation>
    </message>
</context>
<context>
    <name>void ItemResolver::onAnswered(const CMError&amp;)</name>
    <message>
        <source>the service handed no item over</source>
        <translation>le service n’a transmis aucun élément</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::addNodes(CMNodes*)</name>
    <message>
        <source>Access token</source>
        <translation>Jeton d’accès</translation>
    </message>
    <message>
        <source>Log out of %1</source>
        <translation>Se déconnecter de %1</translation>
    </message>
    <message>
        <source>Renew the access token</source>
        <translation>Renouveler le jeton d’accès</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>Se connecter à %1</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::on_logout(CMSetDataRequest)</name>
    <message>
        <source>The login was cancelled.</source>
        <translation>La connexion a été annulée.</translation>
    </message>
</context>
<context>
    <name>void OAuth2Service::setInfo(const KeloOAuth2ServiceInfo&amp;)</name>
    <message>
        <source>The login service has changed.</source>
        <translation>Le service de connexion a changé.</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addOAuth2(const OAuth2Settings&amp;)</name>
    <message>
        <source>Device code address</source>
        <translation>Adresse des codes d’appareil</translation>
    </message>
    <message>
        <source>Authorization address</source>
        <translation>Adresse d’autorisation</translation>
    </message>
    <message>
        <source>Token address</source>
        <translation>Adresse des jetons</translation>
    </message>
    <message>
        <source>Client id</source>
        <translation>Identifiant client</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Autorisations</translation>
    </message>
    <message>
        <source>Client secret</source>
        <translation>Secret client</translation>
    </message>
</context>
<context>
    <name>void SettingsWorker::addSoundQuality(const QString&amp;)</name>
    <message>
        <source>Sound quality</source>
        <translation>Qualité sonore</translation>
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
        <translation>Titres entiers</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::baseRequest(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>TIDAL application country Code is empty. Maybe you are not logged in.</source>
        <translation>Le code pays de l’application TIDAL est vide. Vous n’êtes peut-être pas connecté.</translation>
    </message>
</context>
<context>
    <name>void TidalHandler::getMyMusic(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;, KeloTidalBrowseSetting*)</name>
    <message>
        <source>Missing user Id. Cannot get favorites</source>
        <translation>Identifiant utilisateur absent. Impossible d’obtenir les favoris</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::createArtistContent(const CMGetRowsRequest&amp;, const QString&amp;, const QString&amp;)</name>
    <message>
        <source>Top tracks</source>
        <translation>Titres populaires</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Albums</translation>
    </message>
    <message>
        <source>EPs and singles</source>
        <translation>EP et singles</translation>
    </message>
    <message>
        <source>Other albums</source>
        <translation>Autres albums</translation>
    </message>
    <message>
        <source>Created playlists</source>
        <translation>Playlists créées</translation>
    </message>
    <message>
        <source>Bio</source>
        <translation>Biographie</translation>
    </message>
    <message>
        <source>Similar artists</source>
        <translation>Artistes similaires</translation>
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
        <translation>Biographie de l’artiste</translation>
    </message>
</context>
<context>
    <name>void TidalNodeResponder::on_isFavoriteReponse_invoke(const KeloUrl&amp;, const HttpClientPrivate&amp;, int, int, const QByteArray&amp;, HttpClientHeaders)</name>
    <message>
        <source>Remove from favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::beginPlay(const CMSetDataRequest&amp;, const KeloMediaData&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Impossible d’obtenir les données du média</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::configureUser()</name>
    <message>
        <source>User was logged out</source>
        <translation>L’utilisateur a été déconnecté</translation>
    </message>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>Échec de l’initialisation de TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::finishLookUp(const CMSetDataRequest&amp;, const QVariant&amp;, bool, const KeloTidalApiErrorResponse&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Impossible d’obtenir les données du média</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>Données du média incomplètes</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMedia(const CMSetDataRequest&amp;)</name>
    <message>
        <source>invalid play request data</source>
        <translation>Données de la demande de lecture non valides</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaPending(const CMSetDataRequest&amp;)</name>
    <message>
        <source>media data request failed</source>
        <translation>Impossible d’obtenir les données du média</translation>
    </message>
    <message>
        <source>media data resolution incomplete</source>
        <translation>Données du média incomplètes</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::onStatePlayRequestMediaReady()</name>
    <message>
        <source>internal play loop failed</source>
        <translation>Erreur interne de lecture</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_media(CMSetDataRequest, CMSetDataRequest)</name>
    <message>
        <source>another media request pending</source>
        <translation>Une autre demande de média est en cours</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>Impossible d’obtenir les données du média</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_internal_track(const CMSetDataRequest&amp;)</name>
    <message>
        <source>another track request pending</source>
        <translation>Une autre demande de titre est en cours</translation>
    </message>
    <message>
        <source>media data request failed</source>
        <translation>Impossible d’obtenir les données du média</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_media_play(const CMSetDataRequest&amp;)</name>
    <message>
        <source>prePlayData not set</source>
        <translation>prePlayData n’est pas défini</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_move_activation(const CMSetDataRequest&amp;)</name>
    <message>
        <source>The rows of a playlist are counted from 0</source>
        <translation>Les lignes d’une playlist se comptent à partir de 0</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_sessionsFinished(KeloTidalApiSessionsResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>Échec de l’initialisation de TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::on_tidalHandler_subscriptionFinished(KeloTidalApiSubscriptionResponse, KeloTidalApiErrorResponse)</name>
    <message>
        <source>Failed to initialize TIDAL</source>
        <translation>Échec de l’initialisation de TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::postpone(const CMRequest&amp;)</name>
    <message>
        <source>Too many requests are waiting for TIDAL</source>
        <translation>Trop de requêtes attendent TIDAL</translation>
    </message>
</context>
<context>
    <name>void TidalWorker::resetTopNode()</name>
    <message>
        <source>Please login to continue</source>
        <translation>Connectez-vous pour continuer</translation>
    </message>
</context>
</TS>
