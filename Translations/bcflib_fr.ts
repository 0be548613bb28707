<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>BCFLib::BCFModel</name>
    <message>
        <source>File &quot;%1&quot; changed or could not be read to its end</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» a changé ou n’a pas pu être lu jusqu’à la fin</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; unpacks to more than an archive may hold</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» se décompresse en plus de données qu’une archive ne peut contenir</translation>
    </message>
    <message>
        <source>Not enough memory to load file &quot;%1&quot;</source>
        <translation>Mémoire insuffisante pour charger le fichier «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; doesn&apos;t exist in bcfzip</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» est absent de l’archive BCF ou illisible</translation>
    </message>
    <message>
        <source>Can&apos;t write in cache path &quot;%1&quot;</source>
        <translation>Impossible d’écrire dans le dossier de cache «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Invalid bcf version for &quot;%1&quot; file</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» n’a pas de version BCF valide</translation>
    </message>
    <message>
        <source>&quot;%1&quot; file have no topics in it</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» ne contient aucun sujet</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Invalid file &quot;%1&quot; because of topic &quot;%2&quot;</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» n’est pas valide à cause du sujet «&#xa0;%2&#xa0;»</translation>
    </message>
</context>
</TS>
