<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message>
        <source>MetalRenderer.Error.description</source>
        <extracomment>Error message shown run on a machine without metal</extracomment>
        <translation>Kein gültiges Metal-Gerät</translation>
    </message>
</context>
<context>
    <name>Information</name>
    <message>
        <source>Made by Fennick with Qt. Typefaces derived from Jura by Daniel Johnson and Quicksand by Andrew Paglinawan, under the SIL Open Font License.</source>
        <translation>Von Fennick mit Qt gemacht. Schriften nach Jura von Daniel Johnson und Quicksand von Andrew Paglinawan, unter der SIL Open Font License.</translation>
    </message>
</context>
<context>
    <name>driftwood::ConstantNameFormatter</name>
    <message>
        <source>Constant names must only contain A-Z, a-z, 0-9 and the characters _ and $</source>
        <extracomment>Error message shown when user-entered constant name contains invalid characters</extracomment>
        <translation>Namen von Konstanten dürfen nur A-Z, a-z, 0-9 und die Zeichen _ und $ enthalten</translation>
    </message>
</context>
<context>
    <name>driftwood::NumberFormatter</name>
    <message>
        <source>This is not a finite number</source>
        <extracomment>Error message shown when a number is wanted and the user has entered something else</extracomment>
        <translation>Das ist keine endliche Zahl</translation>
    </message>
</context>
<context>
    <name>driftwood::StyledSearchField</name>
    <message>
        <source>Clear the search</source>
        <extracomment>The button in a search field that takes the text away</extracomment>
        <translation>Suche löschen</translation>
    </message>
    <message>
        <source>Search</source>
        <extracomment>What a search field is called that has no other name</extracomment>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>driftwood::DriftSlider</name>
    <message>
        <source>Decrease %1</source>
        <extracomment>for screen readers: the buttons at the ends of a slider</extracomment>
        <translation>%1 verringern</translation>
    </message>
    <message>
        <source>Minimum %1</source>
        <translation>%1: Minimum</translation>
    </message>
    <message>
        <source>Increase %1</source>
        <translation>%1 erhöhen</translation>
    </message>
    <message>
        <source>Maximum %1</source>
        <translation>%1: Maximum</translation>
    </message>
</context>
<context>
    <name>driftwood::DriftSliderTrack</name>
    <message>
        <source>Mixed</source>
        <extracomment>for screen readers: the value of several objects that have different ones</extracomment>
        <translation>Gemischt</translation>
    </message>
</context>
<context>
    <name>driftwood::NoDividerSplitView</name>
    <message>
        <source>Divider</source>
        <extracomment>for screen readers: where two views of a split view meet</extracomment>
        <translation>Trennlinie</translation>
    </message>
</context>
<context>
    <name>fernhorn::LeftRightArrowButton</name>
    <message>
        <source>Left</source>
        <extracomment>Which way an arrow button points</extracomment>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <extracomment>Which way an arrow button points</extracomment>
        <translation>Rechts</translation>
    </message>
</context>
<context>
    <name>fernhorn::LogoButton</name>
    <message>
        <source>The maker&apos;s website</source>
        <translation>Website des Herstellers</translation>
    </message>
</context>
<context>
    <name>fernhorn::PluginHeaderView</name>
    <message>
        <source>%1 Available</source>
        <extracomment>A button that leads to an update; %1 is the version, such as 1.2.0</extracomment>
        <translation>%1 verfügbar</translation>
    </message>
</context>
<context>
    <name>larkvox::ContentView</name>
    <message>
        <source>%1 is now available as an Audio Unit.</source>
        <extracomment>%1 is the name of the product</extracomment>
        <translation>%1 ist jetzt als Audio Unit verfügbar.</translation>
    </message>
    <message>
        <source>Keep this app in your applications folder.</source>
        <translation>Lass diese App im Ordner „Programme“.</translation>
    </message>
    <message>
        <source>To use %1, insert it as</source>
        <extracomment>%1 is the name of the product; the sentence goes on with &quot;a plugin on an instrument track.&quot;</extracomment>
        <translation>Um %1 zu nutzen, füge es als</translation>
    </message>
    <message>
        <source>a plugin on an instrument track.</source>
        <translation>Plug-in auf einer Instrumentenspur ein.</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Fennick Website</source>
        <translation>Fennick-Website</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>the language of the help page: en, de or fr</extracomment>
        <translation>de</translation>
    </message>
</context>
<context>
    <name>larkvox::LarkvoxApp</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen&#xa0;…</translation>
    </message>
</context>
<context>
    <name>larkvox::UnopenedPage</name>
    <message>
        <source>This page couldn’t be opened</source>
        <translation>Diese Seite konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>No program on this computer opens it. This is its address:</source>
        <translation>Kein Programm auf diesem Computer öffnet sie. Dies ist ihre Adresse:</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Copy Address</source>
        <translation>Adresse kopieren</translation>
    </message>
</context>
<context>
    <name>platform::AboutPanel</name>
    <message>
        <source>About %1</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>Version %1 (%2)</source>
        <extracomment>%1 is the version, %2 the build number</extracomment>
        <translation>Version %1 (%2)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>platform::WindowScene</name>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>updates::MessageDialog</name>
    <message>
        <source>Check automatically once a day</source>
        <translation>Einmal am Tag selbst suchen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>Open Website</source>
        <translation>Website öffnen</translation>
    </message>
</context>
<context>
    <name>updates::OfferDialog</name>
    <message>
        <source>%1 %2 is available; you have %3.</source>
        <extracomment>%1 is the name of the program, %2 the new version, %3 the one that runs</extracomment>
        <translation>%1 %2 ist verfügbar, du hast %3.</translation>
    </message>
    <message>
        <source>It closes a dangerous gap: install it soon.</source>
        <translation>Die neue Version schließt eine gefährliche Lücke: Installiere sie bald.</translation>
    </message>
    <message>
        <source>It was installed here before but didn’t start, so the previous version was brought back.</source>
        <translation>Diese Version war hier schon installiert, startete aber nicht; darum wurde die vorige zurückgeholt.</translation>
    </message>
    <message>
        <source>An important update is available</source>
        <translation>Ein wichtiges Update ist verfügbar</translation>
    </message>
    <message>
        <source>A new version is available</source>
        <translation>Eine neue Version ist verfügbar</translation>
    </message>
    <message>
        <source>Loading the release notes…</source>
        <translation>Die Neuerungen werden geladen&#xa0;…</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>Zu dieser Version gibt es keine Beschreibung.</translation>
    </message>
    <message>
        <source>All release notes are on this page.</source>
        <extracomment>a link behind the beginning of the release notes</extracomment>
        <translation>Alle Neuerungen stehen auf dieser Seite.</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Version überspringen</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
    </message>
    <message>
        <source>Install Update</source>
        <translation>Update installieren</translation>
    </message>
</context>
<context>
    <name>updates::PermissionDialog</name>
    <message>
        <source>Check for updates automatically?</source>
        <translation>Automatisch nach Updates suchen?</translation>
    </message>
    <message>
        <source>%1 can look for a new version once a day and tell you. Nothing is installed without asking, and nothing about you or this computer is sent. You can also check at any time from the menu.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 kann einmal am Tag nach einer neuen Version suchen und dir Bescheid geben. Nichts wird ungefragt installiert, und nichts über dich oder diesen Computer wird gesendet. Du kannst auch jederzeit über das Menü suchen.</translation>
    </message>
    <message>
        <source>Don’t Check</source>
        <translation>Nicht suchen</translation>
    </message>
    <message>
        <source>Check Automatically</source>
        <translation>Automatisch suchen</translation>
    </message>
</context>
<context>
    <name>updates::ProgressDialog</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <extracomment>sizes such as &quot;1.2 MB&quot;</extracomment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1, %2/s</source>
        <extracomment>%1 is the progress such as &quot;1 MB of 2 MB&quot;, %2 a size</extracomment>
        <translation>%1, %2/s</translation>
    </message>
    <message>
        <source>Checking for updates…</source>
        <translation>Es wird nach Updates gesucht&#xa0;…</translation>
    </message>
    <message>
        <source>Downloading %1 %2…</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 wird geladen&#xa0;…</translation>
    </message>
    <message>
        <source>Preparing %1 %2…</source>
        <translation>%1 %2 wird vorbereitet&#xa0;…</translation>
    </message>
    <message>
        <source>Unpacking</source>
        <translation>Wird entpackt</translation>
    </message>
    <message>
        <source>Checking who made it</source>
        <translation>Die Herkunft wird geprüft</translation>
    </message>
    <message>
        <source>%1 %2 is ready</source>
        <translation>%1 %2 ist bereit</translation>
    </message>
    <message>
        <source>To install it, %1 quits and starts again.</source>
        <translation>Zum Installieren wird %1 beendet und neu gestartet.</translation>
    </message>
    <message>
        <source>Installing %1 %2…</source>
        <translation>%1 %2 wird installiert&#xa0;…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>Installieren und neu starten</translation>
    </message>
</context>
<context>
    <name>updates::ReleaseNotesView</name>
    <message>
        <source>Release notes</source>
        <translation>Neuerungen</translation>
    </message>
</context>
<context>
    <name>updates::UpdateDialog</name>
    <message>
        <source>%1 Update</source>
        <extracomment>the title of a window; %1 is the name of the program</extracomment>
        <translation>%1-Update</translation>
    </message>
</context>
<context>
    <name>updates::UpdateMessages</name>
    <message>
        <source>The update was refused</source>
        <translation>Das Update wurde abgelehnt</translation>
    </message>
    <message>
        <source>The update couldn’t be installed</source>
        <translation>Das Update konnte nicht installiert werden</translation>
    </message>
    <message>
        <source>Another window is updating</source>
        <translation>Ein anderes Fenster aktualisiert gerade</translation>
    </message>
    <message>
        <source>The update is installed already</source>
        <translation>Das Update ist schon installiert</translation>
    </message>
    <message>
        <source>%1 couldn’t be relaunched</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 konnte nicht neu gestartet werden</translation>
    </message>
    <message>
        <source>%1 couldn’t look for updates</source>
        <translation>%1 konnte nicht nach Updates suchen</translation>
    </message>
    <message>
        <source>%1 couldn’t get the update</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 konnte das Update nicht holen</translation>
    </message>
    <message>
        <source>The server %1 wasn’t found. Check your internet connection, then try again.</source>
        <extracomment>%1 is the name of a server</extracomment>
        <translation>Der Server %1 wurde nicht gefunden. Prüfe deine Internetverbindung und versuche es erneut.</translation>
    </message>
    <message>
        <source>The update server doesn’t answer. It may be down for a short time, or a firewall may be in the way. Try again later.</source>
        <translation>Der Update-Server antwortet nicht. Vielleicht ist er kurz ausgefallen, oder eine Firewall ist im Weg. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The proxy of your network didn’t let the connection through. Check the proxy settings of your system.</source>
        <translation>Der Proxy deines Netzwerks hat die Verbindung nicht durchgelassen. Prüfe die Proxy-Einstellungen deines Systems.</translation>
    </message>
    <message>
        <source>The server %1 couldn’t prove that it is the real one. Somebody may be listening in, or this network wants you to sign in first. Try another network.</source>
        <extracomment>%1 is the name of a server</extracomment>
        <translation>Der Server %1 konnte nicht beweisen, dass er der echte ist. Vielleicht hört jemand mit, oder dieses Netzwerk verlangt erst eine Anmeldung. Versuche es in einem anderen Netzwerk.</translation>
    </message>
    <message>
        <source>The certificate of the server %1 has expired, so it isn’t trusted. Its owner has to renew it. Try again in a few days.</source>
        <extracomment>%1 is the name of a server</extracomment>
        <translation>Das Zertifikat des Servers %1 ist abgelaufen, darum wird ihm nicht vertraut. Sein Betreiber muss es erneuern. Versuche es in ein paar Tagen erneut.</translation>
    </message>
    <message>
        <source>This computer’s clock says %1, which looks wrong, so no secure connection is possible. Set the date and time, then try again.</source>
        <extracomment>%1 is a date</extracomment>
        <translation>Die Uhr dieses Computers zeigt den %1, und das scheint falsch zu sein; so ist keine sichere Verbindung möglich. Stelle Datum und Uhrzeit ein und versuche es erneut.</translation>
    </message>
    <message>
        <source>The server wanted to answer over a connection that isn’t encrypted. That was refused. Try again later, or get the new version from the website.</source>
        <translation>Der Server wollte über eine unverschlüsselte Verbindung antworten. Das wurde abgelehnt. Versuche es später erneut, oder hole die neue Version von der Website.</translation>
    </message>
    <message>
        <source>The server sent the request from place to place without an end. Try again later.</source>
        <translation>Der Server hat die Anfrage endlos weitergeschickt. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The update server reported the error %1. Try again later.</source>
        <extracomment>%1 is a number, the status of an HTTP answer</extracomment>
        <translation>Der Update-Server meldete den Fehler %1. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>What was looked for isn’t on the update server at the moment. Try again later, or get the new version from the website.</source>
        <translation>Das Gesuchte ist im Moment nicht auf dem Update-Server. Versuche es später erneut, oder hole die neue Version von der Website.</translation>
    </message>
    <message>
        <source>This network answered with a page of its own. It may want you to sign in: open any website in your browser, then try again.</source>
        <translation>Dieses Netzwerk hat mit einer eigenen Seite geantwortet. Vielleicht verlangt es eine Anmeldung: Öffne eine beliebige Website im Browser und versuche es dann erneut.</translation>
    </message>
    <message>
        <source>The connection is too slow, or it stalled. Try again with a better one.</source>
        <translation>Die Verbindung ist zu langsam oder hängt. Versuche es mit einer besseren erneut.</translation>
    </message>
    <message>
        <source>The connection was lost again and again. Try again later; nothing was changed.</source>
        <translation>Die Verbindung brach immer wieder ab. Versuche es später erneut; nichts wurde verändert.</translation>
    </message>
    <message>
        <source>This copy of %1 was built without the maker’s key, so it can’t tell a genuine list of updates from a forged one. Get the new version from the website.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Diese Kopie von %1 wurde ohne den Schlüssel des Herstellers gebaut und kann eine echte Liste der Updates nicht von einer gefälschten unterscheiden. Hole die neue Version von der Website.</translation>
    </message>
    <message>
        <source>The list of updates isn’t signed by the maker of %1, or was changed on its way, so it wasn’t read. Try again later, on another network if you can.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Die Liste der Updates ist nicht vom Hersteller von %1 signiert oder wurde unterwegs verändert und deshalb nicht gelesen. Versuche es später erneut, wenn möglich in einem anderen Netz.</translation>
    </message>
    <message>
        <source>The server sent an older list of updates than it did before. It wasn’t used. Try again later, on another network if you can.</source>
        <translation>Der Server hat eine ältere Liste der Updates geschickt als beim letzten Mal. Sie wurde nicht verwendet. Versuche es später erneut, wenn möglich in einem anderen Netz.</translation>
    </message>
    <message>
        <source>The list of updates is out of date: the maker of %1 hasn’t renewed it, or somebody keeps newer ones from you. Check that this computer’s date is right, try another network, or look on the website.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Die Liste der Updates ist nicht mehr aktuell: Der Hersteller von %1 hat sie nicht erneuert, oder jemand enthält dir neuere vor. Prüfe, ob das Datum dieses Computers stimmt, versuche es in einem anderen Netz oder sieh auf der Website nach.</translation>
    </message>
    <message>
        <source>The list of updates on the server is far larger than it can be, so it wasn’t read. Try again later.</source>
        <translation>Die Liste der Updates auf dem Server ist viel größer, als sie sein kann, und wurde nicht gelesen. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The list of updates on the server is damaged. Try again later.</source>
        <translation>Die Liste der Updates auf dem Server ist beschädigt. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The list of updates on the server contains something that doesn’t belong there, so it wasn’t read. Try again later.</source>
        <translation>Die Liste der Updates auf dem Server enthält etwas, das nicht hineingehört, und wurde nicht gelesen. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The download doesn’t have the size that was announced. It was thrown away. Try again later.</source>
        <translation>Der Download hat nicht die angekündigte Größe. Er wurde verworfen. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The update isn’t signed, so nobody can tell who made it. It was thrown away. Get the new version from the website.</source>
        <translation>Das Update ist nicht signiert, niemand weiß also, von wem es stammt. Es wurde verworfen. Hole die neue Version von der Website.</translation>
    </message>
    <message>
        <source>The update isn’t signed by the maker of %1, or was changed on its way. It was thrown away. Try again later, on another network if you can.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Das Update ist nicht vom Hersteller von %1 signiert oder wurde unterwegs verändert. Es wurde verworfen. Versuche es später erneut, möglichst in einem anderen Netzwerk.</translation>
    </message>
    <message>
        <source>The update is damaged and can’t be unpacked. It was thrown away. Try again later.</source>
        <translation>Das Update ist beschädigt und lässt sich nicht entpacken. Es wurde verworfen. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The update contains files that have no place in it. It was thrown away. Please tell the maker.</source>
        <translation>Das Update enthält Dateien, die darin nichts zu suchen haben. Es wurde verworfen. Bitte sag dem Hersteller Bescheid.</translation>
    </message>
    <message>
        <source>The update is for another kind of computer. It was thrown away. Get the right one from the website.</source>
        <translation>Das Update ist für eine andere Art von Computer. Es wurde verworfen. Hole das richtige von der Website.</translation>
    </message>
    <message>
        <source>The update isn’t the version that was announced. It was thrown away. Try again later.</source>
        <translation>Das Update ist nicht die angekündigte Version. Es wurde verworfen. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>The update isn’t newer than what is, or once was, installed here. It was thrown away.</source>
        <translation>Das Update ist nicht neuer als das, was hier installiert ist oder einmal war. Es wurde verworfen.</translation>
    </message>
    <message>
        <source>There isn’t enough memory for the download. Close other programs, then try again.</source>
        <translation>Für den Download reicht der Arbeitsspeicher nicht. Schließe andere Programme und versuche es erneut.</translation>
    </message>
    <message>
        <source>The disk is full. Make room, then try again. Your version is unchanged.</source>
        <translation>Das Laufwerk ist voll. Schaffe Platz und versuche es erneut. Deine Version ist unverändert.</translation>
    </message>
    <message>
        <source>You aren’t allowed to change the folder of %1. Ask whoever installed it, or move it to a folder of your own.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Du darfst den Ordner von %1 nicht ändern. Frage, wer es installiert hat, oder verschiebe es in einen eigenen Ordner.</translation>
    </message>
    <message>
        <source>%1 is in a place that can only be read. Move it to a folder of your own, then try again.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>%1 liegt an einem Ort, der nur gelesen werden kann. Verschiebe es in einen eigenen Ordner und versuche es erneut.</translation>
    </message>
    <message>
        <source>The disk reported an error. Your version is unchanged. Check the disk before you try again.</source>
        <translation>Das Laufwerk meldete einen Fehler. Deine Version ist unverändert. Prüfe das Laufwerk, bevor du es erneut versuchst.</translation>
    </message>
    <message>
        <source>An update is being installed by another window of %1. Wait until it is done.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Ein anderes Fenster von %1 installiert gerade ein Update. Warte, bis es fertig ist.</translation>
    </message>
    <message>
        <source>Another window of %1 has installed this update already. Quit the program and start it again to use it.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Ein anderes Fenster von %1 hat dieses Update schon installiert. Beende das Programm und starte es neu, um es zu nutzen.</translation>
    </message>
    <message>
        <source>This copy of %1 isn’t complete: the part that installs updates is missing. Get the new version from the website.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Diese Kopie von %1 ist unvollständig: Der Teil, der Updates installiert, fehlt. Hole die neue Version von der Website.</translation>
    </message>
    <message>
        <source>The installation was interrupted. Your version is unchanged. Try again.</source>
        <translation>Die Installation wurde unterbrochen. Deine Version ist unverändert. Versuche es erneut.</translation>
    </message>
    <message>
        <source>The update is installed. Quit %1 and start it again to use it.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Das Update ist installiert. Beende %1 und starte es neu, um es zu nutzen.</translation>
    </message>
    <message>
        <source>The list of updates has nothing for %1 on this kind of computer.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Die Liste der Updates enthält nichts für %1 auf dieser Art von Computer.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but it isn’t signed, so nobody can tell who made it. Try again later.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 ist angekündigt, aber nicht signiert, niemand weiß also, von wem es stammt. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but not at an address with a secure connection. Try again later.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 ist angekündigt, aber nicht an einer Adresse mit sicherer Verbindung. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>%1 %2 is announced with a size that can’t be right. Try again later.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 ist mit einer Größe angekündigt, die nicht stimmen kann. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but a newer version was installed here before. It isn’t replaced by an older one.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 ist angekündigt, aber hier war schon eine neuere Version installiert. Sie wird nicht durch eine ältere ersetzt.</translation>
    </message>
    <message>
        <source>%1 %2 is announced, but not for this computer yet. Try again in a few days.</source>
        <extracomment>%1 is the name of the program, %2 a version</extracomment>
        <translation>%1 %2 ist angekündigt, aber noch nicht für diesen Computer. Versuche es in ein paar Tagen erneut.</translation>
    </message>
    <message>
        <source>%1 %2 is available. This copy comes from the package “%3” and is updated together with your system.</source>
        <extracomment>%1 is the name of the program, %2 the new version, %3 the name of a package</extracomment>
        <translation>%1 %2 ist verfügbar. Diese Kopie stammt aus dem Paket „%3“ und wird zusammen mit deinem System aktualisiert.</translation>
    </message>
    <message>
        <source>%1 %2 is available. This copy is the Flatpak “%3” and is updated by Flatpak or your software center.</source>
        <extracomment>%1 is the name of the program, %2 the new version, %3 the name of a Flatpak</extracomment>
        <translation>%1 %2 ist verfügbar. Diese Kopie ist das Flatpak „%3“ und wird von Flatpak oder deiner Softwareverwaltung aktualisiert.</translation>
    </message>
    <message>
        <source>%1 %2 is available. You can’t change the folder of this copy: whoever installed it looks after its updates.</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 ist verfügbar. Du darfst den Ordner dieser Kopie nicht ändern: Um ihre Updates kümmert sich, wer sie installiert hat.</translation>
    </message>
    <message>
        <source>%1 %2 is available. The folder of this copy was moved or removed while it ran: quit it, and start it from where it is now.</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 ist verfügbar. Der Ordner dieser Kopie wurde verschoben oder entfernt, während sie lief: Beende sie und starte sie dort, wo sie jetzt ist.</translation>
    </message>
    <message>
        <source>%1 %2 is available. This copy was built from its sources and can’t update itself: whoever built it looks after it.</source>
        <extracomment>%1 is the name of the program, %2 the new version</extracomment>
        <translation>%1 %2 ist verfügbar. Diese Kopie wurde aus ihren Quellen gebaut und kann sich nicht selbst aktualisieren: Um sie kümmert sich, wer sie gebaut hat.</translation>
    </message>
    <message>
        <source>You’re up to date</source>
        <translation>Alles auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version.</source>
        <extracomment>%1 is the name of the program, %2 its version</extracomment>
        <translation>%1 %2 ist die neueste Version.</translation>
    </message>
    <message>
        <source>There is no update for this computer</source>
        <translation>Für diesen Computer gibt es kein Update</translation>
    </message>
    <message>
        <source>A new version is available</source>
        <translation>Eine neue Version ist verfügbar</translation>
    </message>
    <message>
        <source>The update is far larger than it can be. It was thrown away. Please tell the maker.</source>
        <translation>Das Update ist viel größer, als es sein kann. Es wurde verworfen. Bitte sag dem Hersteller Bescheid.</translation>
    </message>
    <message>
        <source>What was downloaded isn’t %1 but another program. It was thrown away. Try again later.</source>
        <extracomment>%1 is the name of the program</extracomment>
        <translation>Geladen wurde nicht %1, sondern ein anderes Programm. Es wurde verworfen. Versuche es später erneut.</translation>
    </message>
    <message>
        <source>%1 %2 needs a newer system: Linux %3 or later. Update your system first.</source>
        <extracomment>%1 is the name of the program, %2 a version of it, %3 one of the system’s kernel</extracomment>
        <translation>%1 %2 braucht ein neueres System: Linux %3 oder neuer. Aktualisiere zuerst dein System.</translation>
    </message>
</context>
</TS>
