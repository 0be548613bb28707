<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ArchiveCheck</name>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation>Il n’y a pas de fichier «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder, not an archive.</source>
        <translation>«&#xa0;%1&#xa0;» est un dossier, pas une archive.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; can&apos;t be read.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas être lu.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is empty.</source>
        <translation>«&#xa0;%1&#xa0;» est vide.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no zip archive, so it can&apos;t hold issues.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une archive ZIP et ne peut donc pas contenir de sujets.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is cut off: its end is missing. Fetch it again.</source>
        <translation>«&#xa0;%1&#xa0;» est tronqué&#xa0;: la fin manque. Récupérez-le à nouveau.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; doesn&apos;t say its version, so it may hold more than is shown.</source>
        <translation>«&#xa0;%1&#xa0;» n’indique pas sa version et peut donc contenir plus que ce qui est affiché.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is of version %2, which is read only in part: comments, viewpoints and more may be missing.</source>
        <translation>«&#xa0;%1&#xa0;» est de version %2, qui n’est lue qu’en partie&#xa0;: des commentaires, des vues et d’autres données peuvent manquer.</translation>
    </message>
    <message>
        <source>Topics that could not be read: %1. A save of this archive would lose them.</source>
        <translation>Sujets qui n’ont pas pu être lus&#xa0;: %1. Enregistrer cette archive les ferait perdre.</translation>
    </message>
    <message>
        <source>The file bcf.version in the archive is damaged, so nothing was read.</source>
        <translation>Le fichier bcf.version de l’archive est endommagé, rien n’a donc été lu.</translation>
    </message>
    <message>
        <source>The version &quot;%1&quot; can&apos;t be saved.</source>
        <translation>La version «&#xa0;%1&#xa0;» ne peut pas être enregistrée.</translation>
    </message>
    <message>
        <source>Topic &quot;%1&quot;: %2</source>
        <translation>Sujet «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>it has no guid</source>
        <translation>il n’a pas de GUID</translation>
    </message>
    <message>
        <source>it has no title</source>
        <translation>il n’a pas de titre</translation>
    </message>
    <message>
        <source>it has no creation author</source>
        <translation>il n’a pas d’auteur</translation>
    </message>
    <message>
        <source>it has no creation date, or none that can be read</source>
        <translation>il n’a pas de date de création lisible</translation>
    </message>
    <message>
        <source>viewpoint %1 %2</source>
        <translation>la vue %1 %2</translation>
    </message>
    <message>
        <source>none of its viewpoint files is named viewpoint.bcfv</source>
        <translation>aucun de ses fichiers de vue ne s’appelle viewpoint.bcfv</translation>
    </message>
    <message>
        <source>none of its images is named snapshot.png</source>
        <translation>aucune de ses images ne s’appelle snapshot.png</translation>
    </message>
    <message>
        <source>has no guid</source>
        <translation>n’a pas de GUID</translation>
    </message>
    <message>
        <source>has an orthogonal camera of scale 0</source>
        <translation>a une caméra orthogonale d’échelle 0</translation>
    </message>
    <message>
        <source>lacks its image &quot;%1&quot;</source>
        <translation>n’a pas son image «&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>ArchiveEditor</name>
    <message>
        <source>Change Topic</source>
        <translation>Modifier le sujet</translation>
    </message>
    <message>
        <source>New Topic</source>
        <translation>Nouveau sujet</translation>
    </message>
    <message>
        <source>Delete Topic</source>
        <translation>Supprimer le sujet</translation>
    </message>
    <message>
        <source>Add Comment</source>
        <translation>Ajouter un commentaire</translation>
    </message>
    <message>
        <source>Edit Comment</source>
        <translation>Modifier le commentaire</translation>
    </message>
    <message>
        <source>Delete Comment</source>
        <translation>Supprimer le commentaire</translation>
    </message>
</context>
<context>
    <name>ArchiveLoader</name>
    <message>
        <source>The file &quot;%1&quot; can&apos;t be moved to &quot;%2&quot;</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» ne peut pas être déplacé vers «&#xa0;%2&#xa0;»</translation>
    </message>
</context>
<context>
    <name>ArchiveSaver</name>
    <message>
        <source>A viewpoint of topic &quot;%1&quot; lacks its image &quot;%2&quot;.</source>
        <translation>Une vue du sujet «&#xa0;%1&#xa0;» n’a pas son image «&#xa0;%2&#xa0;».</translation>
    </message>
    <message>
        <source>The file &quot;%2&quot; of topic &quot;%1&quot; can&apos;t be read.</source>
        <translation>Le fichier «&#xa0;%2&#xa0;» du sujet «&#xa0;%1&#xa0;» ne peut pas être lu.</translation>
    </message>
    <message>
        <source>Writing to the folder &quot;%1&quot; failed. Its disk has room for %2.</source>
        <translation>L’écriture dans le dossier «&#xa0;%1&#xa0;» a échoué. Il reste %2 sur le disque.</translation>
    </message>
    <message>
        <source>There is a folder of that name.</source>
        <translation>Il existe un dossier de ce nom.</translation>
    </message>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>Il n’y a pas de dossier «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Nothing can be written to the folder &quot;%1&quot;.</source>
        <translation>Rien ne peut être écrit dans le dossier «&#xa0;%1&#xa0;».</translation>
    </message>
</context>
<context>
    <name>AttachmentListModel</name>
    <message>
        <source>Model file outside the archive</source>
        <translation>Fichier de modèle hors de l’archive</translation>
    </message>
    <message>
        <source>Model file in the archive</source>
        <translation>Fichier de modèle dans l’archive</translation>
    </message>
    <message>
        <source>IFC project %1</source>
        <translation>Projet IFC %1</translation>
    </message>
    <message>
        <source>IFC structure %1</source>
        <translation>Structure IFC %1</translation>
    </message>
    <message>
        <source>Document outside the archive</source>
        <translation>Document hors de l’archive</translation>
    </message>
    <message>
        <source>Document in the archive</source>
        <translation>Document dans l’archive</translation>
    </message>
    <message>
        <source>Snippet outside the archive</source>
        <translation>Extrait hors de l’archive</translation>
    </message>
    <message>
        <source>Snippet in the archive</source>
        <translation>Extrait dans l’archive</translation>
    </message>
    <message>
        <source>Related topic</source>
        <translation>Sujet lié</translation>
    </message>
    <message>
        <source>Related topic that is not in this archive</source>
        <translation>Sujet lié absent de cette archive</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Lien</translation>
    </message>
</context>
<context>
    <name>CommentPanel</name>
    <message>
        <source>&amp;Add Comment</source>
        <translation>A&amp;jouter</translation>
    </message>
    <message>
        <source>&amp;Reply</source>
        <translation>&amp;Répondre</translation>
    </message>
    <message>
        <source>Edit &amp;Comment</source>
        <translation>Modifier le &amp;commentaire</translation>
    </message>
    <message>
        <source>Delete Co&amp;mment</source>
        <translation>Supprimer le co&amp;mmentaire</translation>
    </message>
    <message>
        <source>Write a comment</source>
        <translation>Écrire un commentaire</translation>
    </message>
    <message>
        <source>Co&amp;mments</source>
        <translation>Co&amp;mmentaires</translation>
    </message>
    <message>
        <source>A&amp;s</source>
        <translation>Aut&amp;eur</translation>
    </message>
    <message>
        <source>Your name</source>
        <translation>Votre nom</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>at %1
towards %2, up %3</source>
        <translation>en %1
vers %2, haut %3</translation>
    </message>
    <message>
        <source>%1 hidden, all others shown</source>
        <translation>%1 masqués, tous les autres visibles</translation>
    </message>
    <message>
        <source>%1 shown, all others hidden</source>
        <translation>%1 visibles, tous les autres masqués</translation>
    </message>
    <message>
        <source>%1 selected, %2 coloured</source>
        <translation>%1 sélectionnés, %2 colorés</translation>
    </message>
    <message>
        <source>%1 listed, of them
%2 selected, %3 coloured, %4 hidden</source>
        <translation>%1 listés, dont
%2 sélectionnés, %3 colorés, %4 masqués</translation>
    </message>
    <message>
        <source>
… and %1 more characters</source>
        <translation>
… et %1 caractères de plus</translation>
    </message>
    <message>
        <source>View %1</source>
        <translation>Vue %1</translation>
    </message>
    <message>
        <source>Perspective, %1°, %2</source>
        <translation>Perspective, %1°, %2</translation>
    </message>
    <message>
        <source>Orthogonal, %1 m high, %2</source>
        <translation>Orthogonale, %1 m de haut, %2</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucune</translation>
    </message>
    <message>
        <source>Lines: %1, clipping planes: %2, bitmaps: %3</source>
        <translation>Lignes&#xa0;: %1, plans de coupe&#xa0;: %2, images&#xa0;: %3</translation>
    </message>
</context>
<context>
    <name>ElementTableModel</name>
    <message>
        <source>selected</source>
        <translation>sélectionné</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>masqué</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>visible</translation>
    </message>
    <message>
        <source>coloured</source>
        <translation>coloré</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Rôle</translation>
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
        <translation>Archives BCF (*.bcf *.bcfzip);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Open an archive or drop one here</source>
        <translation>Ouvrez une archive ou déposez-la ici</translation>
    </message>
    <message>
        <source>Issue Browser</source>
        <translation>Issue Browser</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Enregistrer &amp;sous…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>&amp;Find Topics</source>
        <translation>&amp;Chercher des sujets</translation>
    </message>
    <message>
        <source>&amp;New Topic</source>
        <translation>&amp;Nouveau sujet</translation>
    </message>
    <message>
        <source>Edit &amp;Title</source>
        <translation>Modifier le &amp;titre</translation>
    </message>
    <message>
        <source>&amp;Delete Topic</source>
        <translation>&amp;Supprimer le sujet</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Open Archive</source>
        <translation>Ouvrir une archive</translation>
    </message>
    <message>
        <source>Save Archive As</source>
        <translation>Enregistrer l’archive sous</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Modifications non enregistrées</translation>
    </message>
    <message>
        <source>New topic</source>
        <translation>Nouveau sujet</translation>
    </message>
    <message>
        <source>Something is missing in this archive, so it can be neither changed nor saved:</source>
        <translation>Il manque quelque chose dans cette archive, elle ne peut donc être ni modifiée ni enregistrée&#xa0;:</translation>
    </message>
    <message>
        <source>What is shown can be saved under another name.</source>
        <translation>Ce qui est affiché peut être enregistré sous un autre nom.</translation>
    </message>
    <message>
        <source>The file holds more than is shown, which would be lost. Choose another name.</source>
        <translation>Le fichier contient plus que ce qui est affiché, et cela serait perdu. Choisissez un autre nom.</translation>
    </message>
    <message>
        <source>… and %1 more</source>
        <translation>… et %1 de plus</translation>
    </message>
    <message>
        <source>There are no topics in this archive.</source>
        <translation>Cette archive ne contient aucun sujet.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>The archive can&apos;t be saved as &quot;%1&quot;.</source>
        <translation>L’archive ne peut pas être enregistrée sous «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Saving: %1 written</source>
        <translation>Enregistrement&#xa0;: %1 écrits</translation>
    </message>
    <message>
        <source>What you have written is not added yet. Add it as a comment and save?</source>
        <translation>Ce que vous avez écrit n’est pas encore ajouté. L’ajouter comme commentaire et enregistrer&#xa0;?</translation>
    </message>
    <message>
        <source>There are changes that are not saved. Save them?</source>
        <translation>Il y a des modifications non enregistrées. Les enregistrer&#xa0;?</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Ouverts &amp;récemment</translation>
    </message>
    <message>
        <source>None yet</source>
        <translation>Aucun pour l’instant</translation>
    </message>
</context>
<context>
    <name>SnapshotView</name>
    <message>
        <source>&amp;Enlarge</source>
        <translation>A&amp;grandir</translation>
    </message>
    <message>
        <source>&amp;Save Image As…</source>
        <translation>Enregistrer l’image &amp;sous…</translation>
    </message>
    <message>
        <source>This image can&apos;t be shown</source>
        <translation>Cette image ne peut pas être affichée</translation>
    </message>
    <message>
        <source>No snapshot</source>
        <translation>Pas d’image</translation>
    </message>
    <message>
        <source>Double click to enlarge</source>
        <translation>Double-cliquer pour agrandir</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Enregistrer l’image sous</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>The image can&apos;t be saved as &quot;%1&quot;</source>
        <translation>L’image ne peut pas être enregistrée sous «&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>TopicArea</name>
    <message>
        <source>Nothing matches</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>Search topics and comments</source>
        <translation>Chercher dans les sujets et commentaires</translation>
    </message>
    <message>
        <source>Any status</source>
        <translation>Tout statut</translation>
    </message>
    <message>
        <source>No status</source>
        <translation>Sans statut</translation>
    </message>
    <message>
        <source>Anyone</source>
        <translation>Tout le monde</translation>
    </message>
    <message>
        <source>Nobody assigned</source>
        <translation>Non assigné</translation>
    </message>
    <message>
        <source>1 topic</source>
        <translation>1 sujet</translation>
    </message>
    <message>
        <source>%1 topics</source>
        <translation>%1 sujets</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
</context>
<context>
    <name>TopicPages</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Top&amp;ic</source>
        <translation>&amp;Sujet</translation>
    </message>
    <message>
        <source>Lin&amp;ks and Files (%1)</source>
        <translation>L&amp;iens et fichiers (%1)</translation>
    </message>
</context>
<context>
    <name>TopicPanel</name>
    <message>
        <source>&amp;Title</source>
        <translation>&amp;Titre</translation>
    </message>
    <message>
        <source>Stat&amp;us</source>
        <translation>Stat&amp;ut</translation>
    </message>
    <message>
        <source>T&amp;ype</source>
        <translation>T&amp;ype</translation>
    </message>
    <message>
        <source>&amp;Priority</source>
        <translation>&amp;Priorité</translation>
    </message>
    <message>
        <source>Assi&amp;gned to</source>
        <translation>Assi&amp;gné à</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>Éti&amp;quettes</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>Créé</translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>Modifié</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Description</translation>
    </message>
</context>
<context>
    <name>TopicTableModel</name>
    <message>
        <source>No.</source>
        <translation>N°</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Statut</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Priority</source>
        <translation>Priorité</translation>
    </message>
    <message>
        <source>Assigned to</source>
        <translation>Assigné à</translation>
    </message>
    <message>
        <source>Created</source>
        <translation>Créé</translation>
    </message>
    <message>
        <source>Comments</source>
        <translation>Commentaires</translation>
    </message>
</context>
<context>
    <name>ViewpointChooser</name>
    <message>
        <source>The view that the comment speaks of</source>
        <translation>La vue dont parle le commentaire</translation>
    </message>
    <message>
        <source>No view</source>
        <translation>Aucune vue</translation>
    </message>
</context>
<context>
    <name>ViewpointPanel</name>
    <message>
        <source>Snaps&amp;hot</source>
        <translation>Im&amp;age</translation>
    </message>
    <message>
        <source>Eleme&amp;nts</source>
        <translation>Éléme&amp;nts</translation>
    </message>
    <message>
        <source>&amp;Camera</source>
        <translation>&amp;Caméra</translation>
    </message>
    <message>
        <source>&amp;Viewpoints</source>
        <translation>&amp;Vues</translation>
    </message>
    <message>
        <source>&amp;Copy GUIDs</source>
        <translation>&amp;Copier les GUID</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>GUID</source>
        <translation>GUID</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Caméra</translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation>Géométrie</translation>
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
        <translation>Affiche et modifie des archives au format BIM Collaboration Format.</translation>
    </message>
    <message>
        <source>The archive to open.</source>
        <translation>L’archive à ouvrir.</translation>
    </message>
</context>
</TS>
