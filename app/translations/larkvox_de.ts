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
</context>
<context>
    <name>platform::SPUStandardUpdaterController</name>
    <message>
        <source>This version can&apos;t update itself.</source>
        <translation>Diese Version kann sich nicht selbst aktualisieren.</translation>
    </message>
    <message>
        <source>The newest version is on %1.</source>
        <translation>Die neueste Version findest du auf %1.</translation>
    </message>
    <message>
        <source>Open Website</source>
        <translation>Website öffnen</translation>
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
</TS>
