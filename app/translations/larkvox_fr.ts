<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <message>
        <source>MetalRenderer.Error.description</source>
        <extracomment>Error message shown run on a machine without metal</extracomment>
        <translation>Aucun appareil Metal valide</translation>
    </message>
</context>
<context>
    <name>Information</name>
    <message>
        <source>Made by Fennick with Qt. Typefaces derived from Jura by Daniel Johnson and Quicksand by Andrew Paglinawan, under the SIL Open Font License.</source>
        <translation>Créé par Fennick avec Qt. Caractères dérivés de Jura par Daniel Johnson et de Quicksand par Andrew Paglinawan, sous licence SIL Open Font License.</translation>
    </message>
</context>
<context>
    <name>driftwood::ConstantNameFormatter</name>
    <message>
        <source>Constant names must only contain A-Z, a-z, 0-9 and the characters _ and $</source>
        <extracomment>Error message shown when user-entered constant name contains invalid characters</extracomment>
        <translation>Les noms de constantes ne peuvent contenir que A-Z, a-z, 0-9 et les caractères _ et $</translation>
    </message>
</context>
<context>
    <name>driftwood::NumberFormatter</name>
    <message>
        <source>This is not a finite number</source>
        <extracomment>Error message shown when a number is wanted and the user has entered something else</extracomment>
        <translation>Ce n’est pas un nombre fini</translation>
    </message>
</context>
<context>
    <name>driftwood::StyledSearchField</name>
    <message>
        <source>Clear the search</source>
        <extracomment>The button in a search field that takes the text away</extracomment>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>Search</source>
        <extracomment>What a search field is called that has no other name</extracomment>
        <translation>Rechercher</translation>
    </message>
</context>
<context>
    <name>driftwood::DriftSlider</name>
    <message>
        <source>Decrease %1</source>
        <extracomment>for screen readers: the buttons at the ends of a slider</extracomment>
        <translation>Diminuer %1</translation>
    </message>
    <message>
        <source>Minimum %1</source>
        <translation>%1 : minimum</translation>
    </message>
    <message>
        <source>Increase %1</source>
        <translation>Augmenter %1</translation>
    </message>
    <message>
        <source>Maximum %1</source>
        <translation>%1 : maximum</translation>
    </message>
</context>
<context>
    <name>driftwood::DriftSliderTrack</name>
    <message>
        <source>Mixed</source>
        <extracomment>for screen readers: the value of several objects that have different ones</extracomment>
        <translation>Valeurs mixtes</translation>
    </message>
</context>
<context>
    <name>driftwood::NoDividerSplitView</name>
    <message>
        <source>Divider</source>
        <extracomment>for screen readers: where two views of a split view meet</extracomment>
        <translation>Séparateur</translation>
    </message>
</context>
<context>
    <name>fernhorn::LeftRightArrowButton</name>
    <message>
        <source>Left</source>
        <extracomment>Which way an arrow button points</extracomment>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Right</source>
        <extracomment>Which way an arrow button points</extracomment>
        <translation>Droite</translation>
    </message>
</context>
<context>
    <name>fernhorn::LogoButton</name>
    <message>
        <source>The maker&apos;s website</source>
        <translation>Site web du fabricant</translation>
    </message>
</context>
<context>
    <name>fernhorn::PluginHeaderView</name>
    <message>
        <source>%1 Available</source>
        <extracomment>A button that leads to an update; %1 is the version, such as 1.2.0</extracomment>
        <translation>%1 disponible</translation>
    </message>
</context>
<context>
    <name>larkvox::ContentView</name>
    <message>
        <source>%1 is now available as an Audio Unit.</source>
        <extracomment>%1 is the name of the product</extracomment>
        <translation>%1 est maintenant disponible en Audio Unit.</translation>
    </message>
    <message>
        <source>Keep this app in your applications folder.</source>
        <translation>Gardez cette app dans le dossier Applications.</translation>
    </message>
    <message>
        <source>To use %1, insert it as</source>
        <extracomment>%1 is the name of the product; the sentence goes on with &quot;a plugin on an instrument track.&quot;</extracomment>
        <translation>Pour utiliser %1, insérez-le comme</translation>
    </message>
    <message>
        <source>a plugin on an instrument track.</source>
        <translation>plug-in sur une piste d’instrument.</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Fennick Website</source>
        <translation>Site web de Fennick</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>the language of the help page: en, de or fr</extracomment>
        <translation>fr</translation>
    </message>
</context>
<context>
    <name>larkvox::LarkvoxApp</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher les mises à jour…</translation>
    </message>
</context>
<context>
    <name>larkvox::UnopenedPage</name>
    <message>
        <source>This page couldn’t be opened</source>
        <translation>Impossible d’ouvrir cette page</translation>
    </message>
    <message>
        <source>No program on this computer opens it. This is its address:</source>
        <translation>Aucun programme de cet ordinateur ne l’ouvre. Voici son adresse&#xa0;:</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Copy Address</source>
        <translation>Copier l’adresse</translation>
    </message>
</context>
<context>
    <name>platform::AboutPanel</name>
    <message>
        <source>About %1</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>Version %1 (%2)</source>
        <extracomment>%1 is the version, %2 the build number</extracomment>
        <translation>Version %1 (%2)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>platform::WindowScene</name>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>updates::MessageDialog</name>
    <message>
        <source>Check automatically once a day</source>
        <translation>Vérifier automatiquement une fois par jour</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Open Website</source>
        <translation>Ouvrir le site web</translation>
    </message>
</context>
<context>
    <name>updates::OfferDialog</name>
    <message>
        <source>%1 %2 is available; you have %3.</source>
        <extracomment>%1 is the name of the program, %2 the new version, %3 the one that runs</extracomment>
        <translation>%1 %2 est disponible, vous avez %3.</translation>
    </message>
    <message>
        <source>It closes a dangerous gap: install it soon.</source>
        <translation>Elle corrige une faille dangereuse&#xa0;: installez-la vite.</translation>
    </message>
    <message>
        <source>It was installed here before but didn’t start, so the previous version was brought back.</source>
        <translation>Elle a déjà été installée ici mais n’a pas démarré&#xa0;; la version précédente a donc été rétablie.</translation>
    </message>
    <message>
        <source>An important update is available</source>
        <translation>Une mise à jour importante est disponible</translation>
    </message>
    <message>
        <source>A new version is available</source>
        <translation>Une nouvelle version est disponible</translation>
    </message>
    <message>
        <source>Loading the release notes…</source>
        <translation>Chargement des notes de version…</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>Il n’y a pas de notes de version.</translation>
    </message>
    <message>
        <source>All release notes are on this page.</source>
        <extracomment>a link behind the beginning of the release notes</extracomment>
        <translation>Toutes les notes de version sont sur cette page.</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Ignorer cette version</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Me le rappeler plus tard</translation>
    </message>
    <message>
        <source>Install Update</source>
        <translation>Installer</translation>
    </message>
</context>
<context>
    <name>updates::PermissionDialog</name>
    <message>
        <source>Check for updates automatically?</source>
        <translation>Rechercher les mises à jour automatiquement&#xa0;?</translation>
    </message>
    <message>
        <source>%1 can look for a new version once a day and tell you. Nothing is installed without asking, and nothing about you or this computer is sent. You can also check at any time from the menu.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 peut rechercher une nouvelle version une fois par jour et vous prévenir. Rien n’est installé sans votre accord, et rien n’est transmis sur vous ou cet ordinateur. Vous pouvez aussi la rechercher à tout moment depuis le menu.</translation>
    </message>
    <message>
        <source>Don’t Check</source>
        <translation>Ne pas rechercher</translation>
    </message>
    <message>
        <source>Check Automatically</source>
        <translation>Rechercher automatiquement</translation>
    </message>
</context>
<context>
    <name>updates::ProgressDialog</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <extracomment>sizes such as &quot;1.2 MB&quot;</extracomment>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1, %2/s</source>
        <extracomment>%1 is the progress such as &quot;1 MB of 2 MB&quot;, %2 a size</extracomment>
        <translation>%1, %2/s</translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation>Recherche de mises à jour…</translation>
    </message>
    <message>
        <source>Downloading %1 %2…</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>Téléchargement de %1 %2…</translation>
    </message>
    <message>
        <source>Preparing %1 %2…</source>
        <translation>Préparation de %1 %2…</translation>
    </message>
    <message>
        <source>Unpacking</source>
        <translation>Décompression</translation>
    </message>
    <message>
        <source>Checking who made it</source>
        <translation>Vérification de l’origine</translation>
    </message>
    <message>
        <source>%1 %2 is ready</source>
        <translation>%1 %2 est prêt</translation>
    </message>
    <message>
        <source>To install it, %1 quits and starts again.</source>
        <translation>Pour l’installer, %1 quitte puis redémarre.</translation>
    </message>
    <message>
        <source>Installing %1 %2…</source>
        <translation>Installation de %1 %2…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Me le rappeler plus tard</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>Installer et redémarrer</translation>
    </message>
</context>
<context>
    <name>updates::ReleaseNotesView</name>
    <message>
        <source>Release notes</source>
        <translation>Notes de version</translation>
    </message>
</context>
<context>
    <name>updates::UpdateDialog</name>
    <message>
        <source>%1 Update</source>
        <extracomment>the title of a window; %1 is the name of the program</extracomment>
        <translation>Mise à jour de %1</translation>
    </message>
</context>
<context>
    <name>updates::UpdateMessages</name>
    <message>
        <source>The update was refused</source>
        <translation>La mise à jour a été refusée</translation>
    </message>
    <message>
        <source>The update couldn’t be installed</source>
        <translation>La mise à jour n’a pas pu être installée</translation>
    </message>
    <message>
        <source>Another window is updating</source>
        <translation>Une autre fenêtre effectue la mise à jour</translation>
    </message>
    <message>
        <source>The update is installed already</source>
        <translation>La mise à jour est déjà installée</translation>
    </message>
    <message>
        <source>%1 couldn’t be relaunched</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 n’a pas pu être redémarré</translation>
    </message>
    <message>
        <source>%1 couldn’t look for updates</source>
        <translation>%1 n’a pas pu rechercher de mises à jour</translation>
    </message>
    <message>
        <source>%1 couldn’t get the update</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 n’a pas pu obtenir la mise à jour</translation>
    </message>
    <message>
        <source>The server %1 wasn’t found. Check your internet connection, then try again.</source>
        <extracomment>%1 is the name of a server</extracomment>
        <translation>Le serveur %1 est introuvable. Vérifiez votre connexion à Internet, puis réessayez.</translation>
    </message>
    <message>
        <source>The update server doesn’t answer. It may be down for a short time, or a firewall may be in the way. Try again later.</source>
        <translation>Le serveur de mises à jour ne répond pas. Il est peut-être brièvement hors service, ou un pare-feu fait obstacle. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The proxy of your network didn’t let the connection through. Check the proxy settings of your system.</source>
        <translation>Le proxy de votre réseau n’a pas laissé passer la connexion. Vérifiez les réglages de proxy de votre système.</translation>
    </message>
    <message>
        <source>The server %1 couldn’t prove that it is the real one. Somebody may be listening in, or this network wants you to sign in first. Try another network.</source>
        <extracomment>%1 is the name of a server</extracomment>
        <translation>Le serveur %1 n’a pas pu prouver son identité. Quelqu’un écoute peut-être, ou ce réseau demande d’abord une connexion. Essayez un autre réseau.</translation>
    </message>
    <message>
        <source>The certificate of the server %1 has expired, so it isn’t trusted. Its owner has to renew it. Try again in a few days.</source>
        <extracomment>%1 is the name of a server</extracomment>
        <translation>Le certificat du serveur %1 a expiré, il n’est donc plus digne de confiance. Son propriétaire doit le renouveler. Réessayez dans quelques jours.</translation>
    </message>
    <message>
        <source>This computer’s clock says %1, which looks wrong, so no secure connection is possible. Set the date and time, then try again.</source>
        <extracomment>%1 is a date</extracomment>
        <translation>L’horloge de cet ordinateur indique le %1, ce qui semble faux&#xa0;; aucune connexion sûre n’est possible ainsi. Réglez la date et l’heure, puis réessayez.</translation>
    </message>
    <message>
        <source>The server wanted to answer over a connection that isn’t encrypted. That was refused. Try again later, or get the new version from the website.</source>
        <translation>Le serveur voulait répondre par une connexion non chiffrée. Cela a été refusé. Réessayez plus tard, ou téléchargez la nouvelle version sur le site web.</translation>
    </message>
    <message>
        <source>The server sent the request from place to place without an end. Try again later.</source>
        <translation>Le serveur a renvoyé la demande d’adresse en adresse sans fin. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The update server reported the error %1. Try again later.</source>
        <extracomment>%1 is a number, the status of an HTTP answer</extracomment>
        <translation>Le serveur de mises à jour a signalé l’erreur %1. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>What was looked for isn’t on the update server at the moment. Try again later, or get the new version from the website.</source>
        <translation>Ce qui était recherché n’est pas sur le serveur de mises à jour en ce moment. Réessayez plus tard, ou téléchargez la nouvelle version sur le site web.</translation>
    </message>
    <message>
        <source>This network answered with a page of its own. It may want you to sign in: open any website in your browser, then try again.</source>
        <translation>Ce réseau a répondu par une page à lui. Il vous demande peut-être de vous connecter&#xa0;: ouvrez un site quelconque dans votre navigateur, puis réessayez.</translation>
    </message>
    <message>
        <source>The connection is too slow, or it stalled. Try again with a better one.</source>
        <translation>La connexion est trop lente, ou elle s’est figée. Réessayez avec une meilleure.</translation>
    </message>
    <message>
        <source>The connection was lost again and again. Try again later; nothing was changed.</source>
        <translation>La connexion s’est interrompue à plusieurs reprises. Réessayez plus tard&#xa0;; rien n’a été modifié.</translation>
    </message>
    <message>
        <source>This copy of %1 was built without the maker’s key, so it can’t tell a genuine list of updates from a forged one. Get the new version from the website.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Cette copie de %1 a été compilée sans la clé de l’éditeur : elle ne peut pas distinguer une vraie liste des mises à jour d’une fausse. Téléchargez la nouvelle version depuis le site web.</translation>
    </message>
    <message>
        <source>The list of updates isn’t signed by the maker of %1, or was changed on its way, so it wasn’t read. Try again later, on another network if you can.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>La liste des mises à jour n’est pas signée par l’éditeur de %1, ou a été modifiée en chemin : elle n’a donc pas été lue. Réessayez plus tard, si possible sur un autre réseau.</translation>
    </message>
    <message>
        <source>The server sent an older list of updates than it did before. It wasn’t used. Try again later, on another network if you can.</source>
        <translation>Le serveur a envoyé une liste des mises à jour plus ancienne que la dernière fois. Elle n’a pas été utilisée. Réessayez plus tard, si possible sur un autre réseau.</translation>
    </message>
    <message>
        <source>The list of updates is out of date: the maker of %1 hasn’t renewed it, or somebody keeps newer ones from you. Check that this computer’s date is right, try another network, or look on the website.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>La liste des mises à jour n’est plus valable : l’éditeur de %1 ne l’a pas renouvelée, ou quelqu’un vous cache les plus récentes. Vérifiez la date de cet ordinateur, essayez un autre réseau ou consultez le site web.</translation>
    </message>
    <message>
        <source>The list of updates on the server is far larger than it can be, so it wasn’t read. Try again later.</source>
        <translation>La liste des mises à jour sur le serveur est beaucoup trop grande, elle n’a donc pas été lue. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The list of updates on the server is damaged. Try again later.</source>
        <translation>La liste des mises à jour sur le serveur est endommagée. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The list of updates on the server contains something that doesn’t belong there, so it wasn’t read. Try again later.</source>
        <translation>La liste des mises à jour sur le serveur contient un élément qui n’y a pas sa place, elle n’a donc pas été lue. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The download doesn’t have the size that was announced. It was thrown away. Try again later.</source>
        <translation>Le téléchargement n’a pas la taille annoncée. Il a été supprimé. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The update isn’t signed, so nobody can tell who made it. It was thrown away. Get the new version from the website.</source>
        <translation>La mise à jour n’est pas signée, personne ne peut donc dire qui l’a faite. Elle a été supprimée. Téléchargez la nouvelle version sur le site web.</translation>
    </message>
    <message>
        <source>The update isn’t signed by the maker of %1, or was changed on its way. It was thrown away. Try again later, on another network if you can.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>La mise à jour n’est pas signée par l’éditeur de %1, ou a été modifiée en chemin. Elle a été supprimée. Réessayez plus tard, si possible sur un autre réseau.</translation>
    </message>
    <message>
        <source>The update is damaged and can’t be unpacked. It was thrown away. Try again later.</source>
        <translation>La mise à jour est endommagée et ne peut pas être décompressée. Elle a été supprimée. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The update contains files that have no place in it. It was thrown away. Please tell the maker.</source>
        <translation>La mise à jour contient des fichiers qui n’y ont pas leur place. Elle a été supprimée. Veuillez prévenir l’éditeur.</translation>
    </message>
    <message>
        <source>The update is for another kind of computer. It was thrown away. Get the right one from the website.</source>
        <translation>La mise à jour est destinée à un autre type d’ordinateur. Elle a été supprimée. Téléchargez la bonne sur le site web.</translation>
    </message>
    <message>
        <source>The update isn’t the version that was announced. It was thrown away. Try again later.</source>
        <translation>La mise à jour n’est pas la version annoncée. Elle a été supprimée. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The update isn’t newer than what is, or once was, installed here. It was thrown away.</source>
        <translation>La mise à jour n’est pas plus récente que ce qui est ou a été installé ici. Elle a été supprimée.</translation>
    </message>
    <message>
        <source>There isn’t enough memory for the download. Close other programs, then try again.</source>
        <translation>La mémoire ne suffit pas pour le téléchargement. Fermez d’autres programmes, puis réessayez.</translation>
    </message>
    <message>
        <source>The disk is full. Make room, then try again. Your version is unchanged.</source>
        <translation>Le disque est plein. Faites de la place, puis réessayez. Votre version est inchangée.</translation>
    </message>
    <message>
        <source>You aren’t allowed to change the folder of %1. Ask whoever installed it, or move it to a folder of your own.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Vous n’avez pas le droit de modifier le dossier de %1. Demandez à la personne qui l’a installé, ou déplacez-le dans un dossier à vous.</translation>
    </message>
    <message>
        <source>%1 is in a place that can only be read. Move it to a folder of your own, then try again.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 se trouve à un emplacement en lecture seule. Déplacez-le dans un dossier à vous, puis réessayez.</translation>
    </message>
    <message>
        <source>The disk reported an error. Your version is unchanged. Check the disk before you try again.</source>
        <translation>Le disque a signalé une erreur. Votre version est inchangée. Vérifiez le disque avant de réessayer.</translation>
    </message>
    <message>
        <source>An update is being installed by another window of %1. Wait until it is done.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Une autre fenêtre de %1 installe une mise à jour. Attendez qu’elle ait fini.</translation>
    </message>
    <message>
        <source>Another window of %1 has installed this update already. Quit the program and start it again to use it.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Une autre fenêtre de %1 a déjà installé cette mise à jour. Quittez le programme et redémarrez-le pour l’utiliser.</translation>
    </message>
    <message>
        <source>This copy of %1 isn’t complete: the part that installs updates is missing. Get the new version from the website.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Cette copie de %1 est incomplète&#xa0;: il manque la partie qui installe les mises à jour. Téléchargez la nouvelle version sur le site web.</translation>
    </message>
    <message>
        <source>The installation was interrupted. Your version is unchanged. Try again.</source>
        <translation>L’installation a été interrompue. Votre version est inchangée. Réessayez.</translation>
    </message>
    <message>
        <source>The update is installed. Quit %1 and start it again to use it.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>La mise à jour est installée. Quittez %1 et redémarrez-le pour l’utiliser.</translation>
    </message>
    <message>
        <source>The list of updates has nothing for %1 on this kind of computer.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>La liste des mises à jour ne contient rien pour %1 sur ce type d’ordinateur.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but it isn’t signed, so nobody can tell who made it. Try again later.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 est annoncé, mais n’est pas signé&#xa0;: personne ne peut dire qui l’a fait. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but not at an address with a secure connection. Try again later.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 est annoncé, mais pas à une adresse à connexion sécurisée. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>%1 %2 is announced with a size that can’t be right. Try again later.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 est annoncé avec une taille qui ne peut pas être juste. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but a newer version was installed here before. It isn’t replaced by an older one.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 est annoncé, mais une version plus récente a déjà été installée ici. Elle n’est pas remplacée par une plus ancienne.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but not for this computer yet. Try again in a few days.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 est annoncé, mais pas encore pour cet ordinateur. Réessayez dans quelques jours.</translation>
    </message>
    <message>
        <source>%1 %2 is available. This copy comes from the package “%3” and is updated together with your system.</source>
        <extracomment>%1 is the name of the program, %2 the new version, %3 the name of a package</extracomment>
        <translation>%1 %2 est disponible. Cette copie provient du paquet «&#xa0;%3&#xa0;» et est mise à jour avec votre système.</translation>
    </message>
    <message>
        <source>%1 %2 is available. This copy is the Flatpak “%3” and is updated by Flatpak or your software center.</source>
        <extracomment>%1 is the name of the program, %2 the new version, %3 the name of a Flatpak</extracomment>
        <translation>%1 %2 est disponible. Cette copie est le Flatpak «&#xa0;%3&#xa0;» et est mise à jour par Flatpak ou votre logithèque.</translation>
    </message>
    <message>
        <source>%1 %2 is available. You can’t change the folder of this copy: whoever installed it looks after its updates.</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 est disponible. Vous ne pouvez pas modifier le dossier de cette copie&#xa0;: la personne qui l’a installée s’occupe de ses mises à jour.</translation>
    </message>
    <message>
        <source>%1 %2 is available. The folder of this copy was moved or removed while it ran: quit it, and start it from where it is now.</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 est disponible. Le dossier de cette copie a été déplacé ou supprimé pendant qu’elle s’exécutait : quittez-la, puis lancez-la depuis son nouvel emplacement.</translation>
    </message>
    <message>
        <source>%1 %2 is available. This copy was built from its sources and can’t update itself: whoever built it looks after it.</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 est disponible. Cette copie a été compilée depuis ses sources et ne peut pas se mettre à jour elle-même&#xa0;: la personne qui l’a compilée s’en occupe.</translation>
    </message>
    <message>
        <source>You’re up to date</source>
        <translation>Vous êtes à jour</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version.</source>
        <extracomment>%1 is the name of the program, %2 its version</extracomment>
        <translation>%1 %2 est la version la plus récente.</translation>
    </message>
    <message>
        <source>There is no update for this computer</source>
        <translation>Il n’y a pas de mise à jour pour cet ordinateur</translation>
    </message>
    <message>
        <source>A new version is available</source>
        <translation>Une nouvelle version est disponible</translation>
    </message>
    <message>
        <source>The update is far larger than it can be. It was thrown away. Please tell the maker.</source>
        <translation>La mise à jour est beaucoup trop grande. Elle a été supprimée. Veuillez prévenir l’éditeur.</translation>
    </message>
    <message>
        <source>What was downloaded isn’t %1 but another program. It was thrown away. Try again later.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Ce qui a été téléchargé n’est pas %1 mais un autre programme. Il a été supprimé. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>%1 %2 needs a newer system: Linux %3 or later. Update your system first.</source>
        <extracomment>%1 is the name of the program, %2 a version of it, %3 one of the system’s kernel</extracomment>
        <translation>%1 %2 demande un système plus récent&#xa0;: Linux %3 ou ultérieur. Mettez d’abord votre système à jour.</translation>
    </message>
</context>
</TS>
