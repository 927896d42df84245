<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>page</name>
    <message>
        <source>“%1” will be deleted from the service. This cannot be undone.</source>
        <translation>« %1 » sera supprimée du service. Cette action est irréversible.</translation>
    </message>
    <message>
        <source>Delete the playlist?</source>
        <translation>Supprimer la playlist ?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Done: %1</source>
        <translation>Fait : %1</translation>
    </message>
    <message>
        <source>The streamer cannot be reached.</source>
        <translation>Le streamer est injoignable.</translation>
    </message>
    <message>
        <source>The streamer answered with the status %1.</source>
        <translation>Le streamer a répondu avec le statut %1.</translation>
    </message>
    <message>
        <source>Log in to search.</source>
        <translation>Connectez-vous pour rechercher.</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Accueil</translation>
    </message>
    <message>
        <source>Now playing</source>
        <translation>En cours de lecture</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Move through the rows</source>
        <translation>Parcourir les lignes</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Open or play</source>
        <translation>Ouvrir ou lire</translation>
    </message>
    <message>
        <source>Menu of the row</source>
        <translation>Menu de la ligne</translation>
    </message>
    <message>
        <source>Favorite: the row, or what plays</source>
        <translation>Favori : la ligne, ou ce qui est joué</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Play or pause</source>
        <translation>Lecture ou pause</translation>
    </message>
    <message>
        <source>Next, previous</source>
        <translation>Suivant, précédent</translation>
    </message>
    <message>
        <source>10 seconds back, on</source>
        <translation>10 secondes en arrière, en avant</translation>
    </message>
    <message>
        <source>Less loud, louder</source>
        <translation>Moins fort, plus fort</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Couper le son</translation>
    </message>
    <message>
        <source>Shuffle, repeat</source>
        <translation>Aléatoire, répétition</translation>
    </message>
    <message>
        <source>Filter the rows</source>
        <translation>Filtrer les lignes</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
    </message>
    <message>
        <source>Select several rows</source>
        <translation>Sélectionner plusieurs lignes</translation>
    </message>
    <message>
        <source>Now playing and queue</source>
        <translation>Lecture en cours et file d’attente</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Developer’s drawer</source>
        <translation>Panneau du développeur</translation>
    </message>
    <message>
        <source>This help</source>
        <translation>Cette aide</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Radio</source>
        <translation>Radio</translation>
    </message>
    <message>
        <source>Read more</source>
        <translation>Lire la suite</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Unmute</source>
        <translation>Rétablir le son</translation>
    </message>
    <message>
        <source>Shuffle</source>
        <translation>Lecture aléatoire</translation>
    </message>
    <message>
        <source>Repeat: off</source>
        <translation>Répétition : non</translation>
    </message>
    <message>
        <source>Repeat: all</source>
        <translation>Répétition : tout</translation>
    </message>
    <message>
        <source>Repeat: this track</source>
        <translation>Répétition : ce titre</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>asked for %1</source>
        <translation>demandé : %1</translation>
    </message>
    <message>
        <source>%1, asked for %2</source>
        <translation>%1, demandé : %2</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>Nothing plays</source>
        <translation>Rien en lecture</translation>
    </message>
    <message>
        <source>Now playing: %1</source>
        <translation>En cours de lecture : %1</translation>
    </message>
    <message>
        <source>1 track</source>
        <translation>1 titre</translation>
    </message>
    <message>
        <source>%1 tracks</source>
        <translation>%1 titres</translation>
    </message>
    <message>
        <source>%1 albums</source>
        <translation>%1 albums</translation>
    </message>
    <message>
        <source>%1 artists</source>
        <translation>%1 artistes</translation>
    </message>
    <message>
        <source>%1 playlists</source>
        <translation>%1 playlists</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Lignes</translation>
    </message>
    <message>
        <source>Nothing is here.</source>
        <translation>Il n’y a rien ici.</translation>
    </message>
    <message>
        <source>Order</source>
        <translation>Tri</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>Copié : %1</translation>
    </message>
    <message>
        <source>Copy its path</source>
        <translation>Copier son chemin</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrer</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Notices</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>No notice yet. Change something, or let another client do it.</source>
        <translation>Aucune notification pour l’instant. Modifiez quelque chose, ici ou depuis un autre client.</translation>
    </message>
    <message>
        <source>Requests</source>
        <translation>Requêtes</translation>
    </message>
    <message>
        <source>The module has made no request yet.</source>
        <translation>Le module n’a encore fait aucune requête.</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>Appels</translation>
    </message>
    <message>
        <source>No call yet.</source>
        <translation>Aucun appel pour l’instant.</translation>
    </message>
    <message>
        <source>Raw reply</source>
        <translation>Réponse brute</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Ligne</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Réponse</translation>
    </message>
    <message>
        <source>Close the drawer</source>
        <translation>Fermer le panneau</translation>
    </message>
    <message>
        <source>The description of the HTTP API</source>
        <translation>La description de l’API HTTP</translation>
    </message>
    <message>
        <source>API</source>
        <translation>API</translation>
    </message>
    <message>
        <source>Move to a row: its path, roles and data stand here.</source>
        <translation>Placez-vous sur une ligne : son chemin, ses rôles et ses données s’affichent ici.</translation>
    </message>
    <message>
        <source>Read its data</source>
        <translation>Lire ses données</translation>
    </message>
    <message>
        <source>Roles</source>
        <translation>Rôles</translation>
    </message>
    <message>
        <source>%1, rows from %2, %3 in all, version %4, answered in %5</source>
        <translation>%1, lignes à partir de %2, %3 au total, version %4, réponse en %5</translation>
    </message>
    <message>
        <source>Answered in %1</source>
        <translation>Réponse en %1</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>échec</translation>
    </message>
    <message>
        <source>Copy as curl</source>
        <translation>Copier en curl</translation>
    </message>
    <message>
        <source>Copy as kelo</source>
        <translation>Copier en kelo</translation>
    </message>
    <message>
        <source>Added to “%1”</source>
        <translation>Ajouté à « %1 »</translation>
    </message>
    <message>
        <source>New playlist…</source>
        <translation>Nouvelle playlist…</translation>
    </message>
    <message>
        <source>Edit details…</source>
        <translation>Modifier les détails…</translation>
    </message>
    <message>
        <source>Edit playlist details…</source>
        <translation>Modifier les détails de la playlist…</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Enregistré</translation>
    </message>
    <message>
        <source>Move to position…</source>
        <translation>Déplacer à la position…</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Déplacer</translation>
    </message>
    <message>
        <source>Go to artist</source>
        <translation>Aller à l’artiste</translation>
    </message>
    <message>
        <source>Go to album</source>
        <translation>Aller à l’album</translation>
    </message>
    <message>
        <source>Delete playlist…</source>
        <translation>Supprimer la playlist…</translation>
    </message>
    <message>
        <source>Deleted</source>
        <translation>Supprimé</translation>
    </message>
    <message>
        <source>Remove from this playlist</source>
        <translation>Retirer de cette playlist</translation>
    </message>
    <message>
        <source>Removed from the playlist</source>
        <translation>Retiré de la playlist</translation>
    </message>
    <message>
        <source>Date added</source>
        <translation>Date d’ajout</translation>
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
        <source>Playlist order</source>
        <translation>Ordre de la playlist</translation>
    </message>
    <message>
        <source>Release date</source>
        <translation>Date de sortie</translation>
    </message>
    <message>
        <source>Low, AAC 96 kbit/s</source>
        <translation>Basse, AAC 96 kbit/s</translation>
    </message>
    <message>
        <source>High, AAC 320 kbit/s</source>
        <translation>Élevée, AAC 320 kbit/s</translation>
    </message>
    <message>
        <source>Lossless, FLAC 16 bit 44.1 kHz</source>
        <translation>Sans perte, FLAC 16 bits 44,1 kHz</translation>
    </message>
    <message>
        <source>Hi-Res, up to 24 bit 96 kHz</source>
        <translation>Hi-Res, jusqu’à 24 bits 96 kHz</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Introuvable</translation>
    </message>
    <message>
        <source>This did not work</source>
        <translation>Cela n’a pas fonctionné</translation>
    </message>
    <message>
        <source>There is nothing at this address.</source>
        <translation>Il n’y a rien à cette adresse.</translation>
    </message>
    <message>
        <source>The music service did not answer in time.</source>
        <translation>Le service de musique n’a pas répondu à temps.</translation>
    </message>
    <message>
        <source>The music service cannot be reached. Check the network of the streamer.</source>
        <translation>Le service de musique est injoignable. Vérifiez le réseau du streamer.</translation>
    </message>
    <message>
        <source>The music service has a problem (%1).</source>
        <translation>Le service de musique a un problème (%1).</translation>
    </message>
    <message>
        <source>The music service does not have this.</source>
        <translation>Le service de musique ne propose pas cela.</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Trying again in %1 s</source>
        <translation>Nouvel essai dans %1 s</translation>
    </message>
    <message>
        <source>Remove from favorites: %1</source>
        <translation>Retirer des favoris : %1</translation>
    </message>
    <message>
        <source>Add to favorites: %1</source>
        <translation>Ajouter aux favoris : %1</translation>
    </message>
    <message>
        <source>Remove from favorites</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Add to favorites</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Added to favorites</source>
        <translation>Ajouté aux favoris</translation>
    </message>
    <message>
        <source>Removed from favorites</source>
        <translation>Retiré des favoris</translation>
    </message>
    <message>
        <source>%1 added to favorites</source>
        <translation>%1 ajoutés aux favoris</translation>
    </message>
    <message>
        <source>%1 removed from favorites</source>
        <translation>%1 retirés des favoris</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>The service has refused this.</source>
        <translation>Le service a refusé.</translation>
    </message>
    <message>
        <source>%1 in the first %2 of %3</source>
        <translation>%1 parmi les %2 premiers sur %3</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Favorite albums</source>
        <translation>Albums favoris</translation>
    </message>
    <message>
        <source>Your playlists</source>
        <translation>Vos playlists</translation>
    </message>
    <message>
        <source>Favorite playlists</source>
        <translation>Playlists favorites</translation>
    </message>
    <message>
        <source>Just in</source>
        <translation>Nouveautés</translation>
    </message>
    <message>
        <source>Recommended</source>
        <translation>Recommandations</translation>
    </message>
    <message>
        <source>Recommended playlists</source>
        <translation>Playlists recommandées</translation>
    </message>
    <message>
        <source>Moods</source>
        <translation>Ambiances</translation>
    </message>
    <message>
        <source>Recently played</source>
        <translation>Écoutés récemment</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>To play music, connect the streamer to your account.</source>
        <translation>Pour écouter de la musique, associez le streamer à votre compte.</translation>
    </message>
    <message>
        <source>Skip to the rows</source>
        <translation>Aller aux lignes</translation>
    </message>
    <message>
        <source>The streamer does not answer. Trying again…</source>
        <translation>Le streamer ne répond pas. Nouvelle tentative…</translation>
    </message>
    <message>
        <source>Try now</source>
        <translation>Essayer maintenant</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Lecteur</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>Navigation principale</translation>
    </message>
    <message>
        <source>My Music</source>
        <translation>Ma musique</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>“%1” is not available.</source>
        <translation>« %1 » n’est pas disponible.</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>indisponible</translation>
    </message>
    <message>
        <source>Play %1</source>
        <translation>Lire %1</translation>
    </message>
    <message>
        <source>Menu of %1</source>
        <translation>Menu de %1</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>The code has expired.</source>
        <translation>Le code a expiré.</translation>
    </message>
    <message>
        <source>Take a new code and enter it within the time shown.</source>
        <translation>Demandez un nouveau code et saisissez-le dans le temps indiqué.</translation>
    </message>
    <message>
        <source>The login was refused.</source>
        <translation>La connexion a été refusée.</translation>
    </message>
    <message>
        <source>Try again, and confirm the login on the service’s page.</source>
        <translation>Réessayez et confirmez la connexion sur la page du service.</translation>
    </message>
    <message>
        <source>The service does not accept this streamer.</source>
        <translation>Le service n’accepte pas ce streamer.</translation>
    </message>
    <message>
        <source>Check client_id and client_secret in the section [tidal.oauth2] of the settings.</source>
        <translation>Vérifiez client_id et client_secret dans la section [tidal.oauth2] des réglages.</translation>
    </message>
    <message>
        <source>Check client id and secret in the section [module.%1] of the settings.</source>
        <translation>Vérifiez l’identifiant et le secret du client dans la section [module.%1] des réglages.</translation>
    </message>
    <message>
        <source>The clock of the streamer is wrong.</source>
        <translation>L’horloge du streamer n’est pas à l’heure.</translation>
    </message>
    <message>
        <source>Set its date and time, for example with “timedatectl set-ntp true”, then try again.</source>
        <translation>Réglez la date et l’heure, par exemple avec « timedatectl set-ntp true », puis réessayez.</translation>
    </message>
    <message>
        <source>The service cannot be reached.</source>
        <translation>Le service est injoignable.</translation>
    </message>
    <message>
        <source>Check the network cable or the wireless network of the streamer, then try again.</source>
        <translation>Vérifiez le câble réseau ou le Wi-Fi du streamer, puis réessayez.</translation>
    </message>
    <message>
        <source>The service has ended the login.</source>
        <translation>Le service a mis fin à la connexion.</translation>
    </message>
    <message>
        <source>Log in again.</source>
        <translation>Reconnectez-vous.</translation>
    </message>
    <message>
        <source>The service did not answer as it should.</source>
        <translation>Le service n’a pas répondu comme prévu.</translation>
    </message>
    <message>
        <source>Try again in a few minutes.</source>
        <translation>Réessayez dans quelques minutes.</translation>
    </message>
    <message>
        <source>Not logged in</source>
        <translation>Non connecté</translation>
    </message>
    <message>
        <source>Logged in as %1</source>
        <translation>Connecté en tant que %1</translation>
    </message>
    <message>
        <source>Logged in</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Account: %1</source>
        <translation>Compte : %1</translation>
    </message>
    <message>
        <source>Loading…</source>
        <translation>Chargement…</translation>
    </message>
    <message>
        <source>Asking the service…</source>
        <translation>Demande au service…</translation>
    </message>
    <message>
        <source>You are logged in</source>
        <translation>Vous êtes connecté</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Compte</translation>
    </message>
    <message>
        <source>To the music</source>
        <translation>Vers la musique</translation>
    </message>
    <message>
        <source>Log out</source>
        <translation>Se déconnecter</translation>
    </message>
    <message>
        <source>Log in to %1</source>
        <translation>Se connecter à %1</translation>
    </message>
    <message>
        <source>Get a code</source>
        <translation>Obtenir un code</translation>
    </message>
    <message>
        <source>On your phone or computer, open</source>
        <translation>Sur votre téléphone ou votre ordinateur, ouvrez</translation>
    </message>
    <message>
        <source>Enter this code:</source>
        <translation>Saisissez ce code :</translation>
    </message>
    <message>
        <source>Confirm. This page goes on by itself.</source>
        <translation>Confirmez. Cette page continuera d’elle-même.</translation>
    </message>
    <message>
        <source>QR code of the address</source>
        <translation>QR code de l’adresse</translation>
    </message>
    <message>
        <source>Or scan this with your phone.</source>
        <translation>Ou scannez ceci avec votre téléphone.</translation>
    </message>
    <message>
        <source>The code is good for</source>
        <translation>Le code est valable encore</translation>
    </message>
    <message>
        <source>Try again.</source>
        <translation>Réessayez.</translation>
    </message>
    <message>
        <source>Get a new code</source>
        <translation>Obtenir un nouveau code</translation>
    </message>
    <message>
        <source>Play next</source>
        <translation>Lire ensuite</translation>
    </message>
    <message>
        <source>Add to queue</source>
        <translation>Ajouter à la file d’attente</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 sélectionnés</translation>
    </message>
    <message>
        <source>Moved to the top</source>
        <translation>Déplacé en tête</translation>
    </message>
    <message>
        <source>Move to top</source>
        <translation>Déplacer en tête</translation>
    </message>
    <message>
        <source>Working…</source>
        <translation>Opération en cours…</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlist</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>Where you are</source>
        <translation>Emplacement actuel</translation>
    </message>
    <message>
        <source>Plays next: %1</source>
        <translation>À suivre : %1</translation>
    </message>
    <message>
        <source>Added to the queue: %1</source>
        <translation>Ajouté à la file d’attente : %1</translation>
    </message>
    <message>
        <source>Queue</source>
        <translation>File d’attente</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Playing from %1</source>
        <translation>Lecture depuis %1</translation>
    </message>
    <message>
        <source>Play an album, a playlist or a track: what follows stands here.</source>
        <translation>Lisez un album, une playlist ou un titre : la suite s’affiche ici.</translation>
    </message>
    <message>
        <source>Next in the queue</source>
        <translation>À suivre</translation>
    </message>
    <message>
        <source>Next from %1</source>
        <translation>Ensuite depuis %1</translation>
    </message>
    <message>
        <source>Next in the list</source>
        <translation>Ensuite dans la liste</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Retirer %1</translation>
    </message>
    <message>
        <source>Recent searches</source>
        <translation>Recherches récentes</translation>
    </message>
    <message>
        <source>Kinds</source>
        <translation>Types</translation>
    </message>
    <message>
        <source>Search: %1</source>
        <translation>Recherche : %1</translation>
    </message>
    <message>
        <source>Type what you look for: an artist, an album, a track, a playlist.</source>
        <translation>Saisissez ce que vous cherchez : un artiste, un album, un titre, une playlist.</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Tout</translation>
    </message>
    <message>
        <source>Best hit</source>
        <translation>Meilleur résultat</translation>
    </message>
    <message>
        <source>Nothing was found for “%1”.</source>
        <translation>Rien n’a été trouvé pour « %1 ».</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Selected rows</source>
        <translation>Lignes sélectionnées</translation>
    </message>
    <message>
        <source>Select nothing</source>
        <translation>Tout désélectionner</translation>
    </message>
    <message>
        <source>%1 added to the queue</source>
        <translation>%1 ajoutés à la file d’attente</translation>
    </message>
    <message>
        <source>As the browser</source>
        <translation>Comme le navigateur</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Comme le système</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>This page</source>
        <translation>Cette page</translation>
    </message>
    <message>
        <source>The streamer</source>
        <translation>Le streamer</translation>
    </message>
    <message>
        <source>kelo %1</source>
        <translation>kelo %1</translation>
    </message>
    <message>
        <source>Set in the settings file</source>
        <translation>Défini dans le fichier de réglages</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(vide)</translation>
    </message>
    <message>
        <source>Whole tracks, not previews</source>
        <translation>Titres entiers, pas d’extraits</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>All %1</source>
        <translation>Tout afficher (%1)</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>Waiting for the music service, %1 s</source>
        <translation>En attente du service de musique, %1 s</translation>
    </message>
    <message>
        <source>Waiting for the streamer, %1 s</source>
        <translation>En attente du streamer, %1 s</translation>
    </message>
    <message>
        <source>Where to search</source>
        <translation>Où chercher</translation>
    </message>
    <message>
        <source>Only %1 can be searched now.</source>
        <translation>Pour l’instant, seul %1 permet la recherche.</translation>
    </message>
    <message>
        <source>Search %1</source>
        <translation>Rechercher dans %1</translation>
    </message>
    <message>
        <source>There is nothing to search here.</source>
        <translation>Il n’y a rien à rechercher ici.</translation>
    </message>
</context>
</TS>
