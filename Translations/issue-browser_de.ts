<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ArchiveCheck</name>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation>Es gibt keine Datei „%1“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder, not an archive.</source>
        <translation>„%1“ ist ein Ordner, kein Archiv.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can&apos;t be read.</source>
        <translation>„%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is empty.</source>
        <translation>„%1“ ist leer.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no zip archive, so it can&apos;t hold issues.</source>
        <translation>„%1“ ist kein ZIP-Archiv und kann daher keine Themen enthalten.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is cut off: its end is missing. Fetch it again.</source>
        <translation>„%1“ ist abgeschnitten: Das Ende fehlt. Holen Sie die Datei erneut.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; doesn&apos;t say its version, so it may hold more than is shown.</source>
        <translation>„%1“ nennt keine Version und kann daher mehr enthalten, als gezeigt wird.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is of version %2, which is read only in part: comments, viewpoints and more may be missing.</source>
        <translation>„%1“ hat die Version %2, die nur zum Teil gelesen wird: Kommentare, Ansichten und anderes können fehlen.</translation>
    </message>
    <message>
        <source>Topics that could not be read: %1. A save of this archive would lose them.</source>
        <translation>Themen, die nicht gelesen werden konnten: %1. Beim Speichern dieses Archivs gingen sie verloren.</translation>
    </message>
    <message>
        <source>The file bcf.version in the archive is damaged, so nothing was read.</source>
        <translation>Die Datei bcf.version im Archiv ist beschädigt, daher wurde nichts gelesen.</translation>
    </message>
    <message>
        <source>The version &quot;%1&quot; can&apos;t be saved.</source>
        <translation>Die Version „%1“ kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Topic &quot;%1&quot;: %2</source>
        <translation>Thema „%1“: %2</translation>
    </message>
    <message>
        <source>it has no guid</source>
        <translation>es hat keine GUID</translation>
    </message>
    <message>
        <source>it has no title</source>
        <translation>es hat keinen Titel</translation>
    </message>
    <message>
        <source>it has no creation author</source>
        <translation>es hat keinen Verfasser</translation>
    </message>
    <message>
        <source>it has no creation date, or none that can be read</source>
        <translation>es hat kein lesbares Erstellungsdatum</translation>
    </message>
    <message>
        <source>viewpoint %1 %2</source>
        <translation>Ansicht %1 %2</translation>
    </message>
    <message>
        <source>none of its viewpoint files is named viewpoint.bcfv</source>
        <translation>keine seiner Ansichtsdateien heißt viewpoint.bcfv</translation>
    </message>
    <message>
        <source>none of its images is named snapshot.png</source>
        <translation>keines seiner Bilder heißt snapshot.png</translation>
    </message>
    <message>
        <source>has no guid</source>
        <translation>hat keine GUID</translation>
    </message>
    <message>
        <source>has an orthogonal camera of scale 0</source>
        <translation>hat eine orthogonale Kamera mit dem Maßstab 0</translation>
    </message>
    <message>
        <source>lacks its image &quot;%1&quot;</source>
        <translation>ist ohne ihr Bild „%1“</translation>
    </message>
</context>
<context>
    <name>ArchiveEditor</name>
    <message>
        <source>Change Topic</source>
        <translation>Thema ändern</translation>
    </message>
    <message>
        <source>New Topic</source>
        <translation>Neues Thema</translation>
    </message>
    <message>
        <source>Delete Topic</source>
        <translation>Thema löschen</translation>
    </message>
    <message>
        <source>Add Comment</source>
        <translation>Kommentar hinzufügen</translation>
    </message>
    <message>
        <source>Edit Comment</source>
        <translation>Kommentar bearbeiten</translation>
    </message>
    <message>
        <source>Delete Comment</source>
        <translation>Kommentar löschen</translation>
    </message>
</context>
<context>
    <name>ArchiveLoader</name>
    <message>
        <source>The file &quot;%1&quot; can&apos;t be moved to &quot;%2&quot;</source>
        <translation>Die Datei „%1“ kann nicht nach „%2“ verschoben werden</translation>
    </message>
</context>
<context>
    <name>ArchiveSaver</name>
    <message>
        <source>A viewpoint of topic &quot;%1&quot; lacks its image &quot;%2&quot;.</source>
        <translation>Einer Ansicht des Themas „%1“ fehlt das Bild „%2“.</translation>
    </message>
    <message>
        <source>The file &quot;%2&quot; of topic &quot;%1&quot; can&apos;t be read.</source>
        <translation>Die Datei „%2“ des Themas „%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Writing to the folder &quot;%1&quot; failed. Its disk has room for %2.</source>
        <translation>In den Ordner „%1“ konnte nicht geschrieben werden. Auf dem Datenträger sind %2 frei.</translation>
    </message>
    <message>
        <source>There is a folder of that name.</source>
        <translation>Es gibt einen Ordner dieses Namens.</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>Es gibt keinen Ordner „%1“.</translation>
    </message>
    <message>
        <source>Nothing can be written to the folder &quot;%1&quot;.</source>
        <translation>In den Ordner „%1“ kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>AttachmentListModel</name>
    <message>
        <source>Model file outside the archive</source>
        <translation>Modelldatei außerhalb des Archivs</translation>
    </message>
    <message>
        <source>Model file in the archive</source>
        <translation>Modelldatei im Archiv</translation>
    </message>
    <message>
        <source>IFC project %1</source>
        <translation>IFC-Projekt %1</translation>
    </message>
    <message>
        <source>IFC structure %1</source>
        <translation>IFC-Struktur %1</translation>
    </message>
    <message>
        <source>Document outside the archive</source>
        <translation>Dokument außerhalb des Archivs</translation>
    </message>
    <message>
        <source>Document in the archive</source>
        <translation>Dokument im Archiv</translation>
    </message>
    <message>
        <source>Snippet outside the archive</source>
        <translation>Snippet außerhalb des Archivs</translation>
    </message>
    <message>
        <source>Snippet in the archive</source>
        <translation>Snippet im Archiv</translation>
    </message>
    <message>
        <source>Related topic</source>
        <translation>Verwandtes Thema</translation>
    </message>
    <message>
        <source>Related topic that is not in this archive</source>
        <translation>Verwandtes Thema, das nicht in diesem Archiv ist</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Verweis</translation>
    </message>
</context>
<context>
    <name>CommentPanel</name>
    <message>
        <source>&amp;Add Comment</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Reply</source>
        <translation>Ant&amp;worten</translation>
    </message>
    <message>
        <source>Edit &amp;Comment</source>
        <translation>Kommentar &amp;bearbeiten</translation>
    </message>
    <message>
        <source>Delete Co&amp;mment</source>
        <translation>Kommentar &amp;löschen</translation>
    </message>
    <message>
        <source>Write a comment</source>
        <translation>Kommentar schreiben</translation>
    </message>
    <message>
        <source>Co&amp;mments</source>
        <translation>Ko&amp;mmentare</translation>
    </message>
    <message>
        <source>A&amp;s</source>
        <translation>Al&amp;s</translation>
    </message>
    <message>
        <source>Your name</source>
        <translation>Ihr Name</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>at %1
towards %2, up %3</source>
        <translation>bei %1
in Richtung %2, oben %3</translation>
    </message>
    <message>
        <source>%1 hidden, all others shown</source>
        <translation>%1 ausgeblendet, alle anderen sichtbar</translation>
    </message>
    <message>
        <source>%1 shown, all others hidden</source>
        <translation>%1 sichtbar, alle anderen ausgeblendet</translation>
    </message>
    <message>
        <source>%1 selected, %2 coloured</source>
        <translation>%1 ausgewählt, %2 eingefärbt</translation>
    </message>
    <message>
        <source>%1 listed, of them
%2 selected, %3 coloured, %4 hidden</source>
        <translation>%1 aufgeführt, davon
%2 ausgewählt, %3 eingefärbt, %4 ausgeblendet</translation>
    </message>
    <message>
        <source>
… and %1 more characters</source>
        <translation>
… und %1 weitere Zeichen</translation>
    </message>
    <message>
        <source>View %1</source>
        <translation>Ansicht %1</translation>
    </message>
    <message>
        <source>Perspective, %1°, %2</source>
        <translation>Perspektive, %1°, %2</translation>
    </message>
    <message>
        <source>Orthogonal, %1 m high, %2</source>
        <translation>Orthogonal, %1 m hoch, %2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Lines: %1, clipping planes: %2, bitmaps: %3</source>
        <translation>Linien: %1, Schnittebenen: %2, Bilder: %3</translation>
    </message>
</context>
<context>
    <name>ElementTableModel</name>
    <message>
        <source>selected</source>
        <translation>ausgewählt</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>ausgeblendet</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>sichtbar</translation>
    </message>
    <message>
        <source>coloured</source>
        <translation>eingefärbt</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Verwendung</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>BCF %1</source>
        <translation>BCF %1</translation>
    </message>
    <message>
        <source>BCF archives (*.bcf *.bcfzip);;All files (*)</source>
        <translation>BCF-Archive (*.bcf *.bcfzip);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open an archive or drop one here</source>
        <translation>Ein Archiv öffnen oder hier ablegen</translation>
    </message>
    <message>
        <source>Issue Browser</source>
        <translation>Issue Browser</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Find Topics</source>
        <translation>Themen &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;New Topic</source>
        <translation>&amp;Neues Thema</translation>
    </message>
    <message>
        <source>Edit &amp;Title</source>
        <translation>&amp;Titel bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Delete Topic</source>
        <translation>Thema &amp;löschen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Open Archive</source>
        <translation>Archiv öffnen</translation>
    </message>
    <message>
        <source>Save Archive As</source>
        <translation>Archiv speichern unter</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>New topic</source>
        <translation>Neues Thema</translation>
    </message>
    <message>
        <source>Something is missing in this archive, so it can be neither changed nor saved:</source>
        <translation>In diesem Archiv fehlt etwas, daher kann es weder geändert noch gespeichert werden:</translation>
    </message>
    <message>
        <source>What is shown can be saved under another name.</source>
        <translation>Was gezeigt wird, kann unter einem anderen Namen gespeichert werden.</translation>
    </message>
    <message>
        <source>The file holds more than is shown, which would be lost. Choose another name.</source>
        <translation>Die Datei enthält mehr als gezeigt wird, und das ginge verloren. Wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>… and %1 more</source>
        <translation>… und %1 weitere</translation>
    </message>
    <message>
        <source>There are no topics in this archive.</source>
        <translation>Dieses Archiv enthält keine Themen.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>The archive can&apos;t be saved as &quot;%1&quot;.</source>
        <translation>Das Archiv kann nicht als „%1“ gespeichert werden.</translation>
    </message>
    <message>
        <source>Saving: %1 written</source>
        <translation>Speichern: %1 geschrieben</translation>
    </message>
    <message>
        <source>What you have written is not added yet. Add it as a comment and save?</source>
        <translation>Was Sie geschrieben haben, ist noch nicht hinzugefügt. Als Kommentar hinzufügen und speichern?</translation>
    </message>
    <message>
        <source>There are changes that are not saved. Save them?</source>
        <translation>Es gibt Änderungen, die nicht gespeichert sind. Speichern?</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Noch keine</translation>
    </message>
</context>
<context>
    <name>SnapshotView</name>
    <message>
        <source>&amp;Enlarge</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>&amp;Save Image As…</source>
        <translation>Bild &amp;speichern unter…</translation>
    </message>
    <message>
        <source>This image can&apos;t be shown</source>
        <translation>Dieses Bild kann nicht angezeigt werden</translation>
    </message>
    <message>
        <source>No snapshot</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>Double click to enlarge</source>
        <translation>Doppelklick vergrößert</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Bild speichern unter</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The image can&apos;t be saved as &quot;%1&quot;</source>
        <translation>Das Bild kann nicht als „%1“ gespeichert werden</translation>
    </message>
</context>
<context>
    <name>TopicArea</name>
    <message>
        <source>Nothing matches</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>Search topics and comments</source>
        <translation>Themen und Kommentare durchsuchen</translation>
    </message>
    <message>
        <source>Any status</source>
        <translation>Jeder Status</translation>
    </message>
    <message>
        <source>No status</source>
        <translation>Ohne Status</translation>
    </message>
    <message>
        <source>Anyone</source>
        <translation>Alle Personen</translation>
    </message>
    <message>
        <source>Nobody assigned</source>
        <translation>Niemandem zugewiesen</translation>
    </message>
    <message>
        <source>1 topic</source>
        <translation>1 Thema</translation>
    </message>
    <message>
        <source>%1 topics</source>
        <translation>%1 Themen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>TopicPages</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Top&amp;ic</source>
        <translation>Th&amp;ema</translation>
    </message>
    <message>
        <source>Lin&amp;ks and Files (%1)</source>
        <translation>Lin&amp;ks und Dateien (%1)</translation>
    </message>
</context>
<context>
    <name>TopicPanel</name>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titel</translation>
    </message>
    <message>
        <source>Stat&amp;us</source>
        <translation>Stat&amp;us</translation>
    </message>
    <message>
        <source>T&amp;ype</source>
        <translation>T&amp;yp</translation>
    </message>
    <message>
        <source>&amp;Priority</source>
        <translation>&amp;Priorität</translation>
    </message>
    <message>
        <source>Assi&amp;gned to</source>
        <translation>Zu&amp;gewiesen</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>&amp;Labels</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
</context>
<context>
    <name>TopicTableModel</name>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>Priorität</translation>
    </message>
    <message>
        <source>Assigned to</source>
        <translation>Zugewiesen</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>Kommentare</translation>
    </message>
</context>
<context>
    <name>ViewpointChooser</name>
    <message>
        <source>The view that the comment speaks of</source>
        <translation>Die Ansicht, von der der Kommentar handelt</translation>
    </message>
    <message>
        <source>No view</source>
        <translation>Keine Ansicht</translation>
    </message>
</context>
<context>
    <name>ViewpointPanel</name>
    <message>
        <source>Snaps&amp;hot</source>
        <translation>B&amp;ild</translation>
    </message>
    <message>
        <source>Eleme&amp;nts</source>
        <translation>Eleme&amp;nte</translation>
    </message>
    <message>
        <source>&amp;Camera</source>
        <translation>K&amp;amera</translation>
    </message>
    <message>
        <source>&amp;Viewpoints</source>
        <translation>Ansi&amp;chten</translation>
    </message>
    <message>
        <source>&amp;Copy GUIDs</source>
        <translation>GUIDs &amp;kopieren</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation>Geometrie</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Issue Browser</source>
        <translation>Issue Browser</translation>
    </message>
    <message>
        <source>Shows and edits archives of the BIM Collaboration Format.</source>
        <translation>Zeigt und bearbeitet Archive des BIM Collaboration Format.</translation>
    </message>
    <message>
        <source>The archive to open.</source>
        <translation>Das Archiv, das geöffnet werden soll.</translation>
    </message>
</context>
</TS>
