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
</context>
<context>
    <name>platform::SPUStandardUpdaterController</name>
    <message>
        <source>This version can&apos;t update itself.</source>
        <translation>Cette version ne peut pas se mettre à jour elle-même.</translation>
    </message>
    <message>
        <source>The newest version is on %1.</source>
        <translation>La dernière version se trouve sur %1.</translation>
    </message>
    <message>
        <source>Open Website</source>
        <translation>Ouvrir le site web</translation>
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
</TS>
