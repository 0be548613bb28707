<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BCFLib::BCFModel</name>
    <message>
        <source>File &quot;%1&quot; changed or could not be read to its end</source>
        <translation>Die Datei „%1“ hat sich geändert oder konnte nicht zu Ende gelesen werden</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; unpacks to more than an archive may hold</source>
        <translation>Die Datei „%1“ entpackt sich zu mehr, als ein Archiv enthalten darf</translation>
    </message>
    <message>
        <source>Not enough memory to load file &quot;%1&quot;</source>
        <translation>Der Speicher reicht nicht, um die Datei „%1“ zu laden</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; doesn&apos;t exist in bcfzip</source>
        <translation>Die Datei „%1“ fehlt im BCF-Archiv oder ist nicht lesbar</translation>
    </message>
    <message>
        <source>Can&apos;t write in cache path &quot;%1&quot;</source>
        <translation>In den Zwischenspeicher „%1“ kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Invalid bcf version for &quot;%1&quot; file</source>
        <translation>Die Datei „%1“ hat keine gültige BCF-Version</translation>
    </message>
    <message>
        <source>&quot;%1&quot; file have no topics in it</source>
        <translation>Die Datei „%1“ enthält keine Themen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Invalid file &quot;%1&quot; because of topic &quot;%2&quot;</source>
        <translation>Die Datei „%1“ ist wegen des Themas „%2“ ungültig</translation>
    </message>
</context>
</TS>
