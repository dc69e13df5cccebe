<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Browser</name>
    <message>
        <source>Select an entry of this folder first.</source>
        <translation>Sélectionnez d&apos;abord une entrée de ce dossier.</translation>
    </message>
    <message>
        <source>New name of &quot;%1&quot;</source>
        <translation>Nouveau nom de « %1 »</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;?</source>
        <translation>Supprimer « %1 » ?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message numerus="yes">
        <source>Delete these %Ln entry(s)?</source>
        <translation>
            <numerusform>Supprimer cette %Ln entrée ?</numerusform>
            <numerusform>Supprimer ces %Ln entrées ?</numerusform>
        </translation>
    </message>
    <message>
        <source>Only empty folders can be deleted.</source>
        <translation>Seuls les dossiers vides peuvent être supprimés.</translation>
    </message>
    <message>
        <source>Could not be deleted.</source>
        <translation>N&apos;a pas pu être supprimé.</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Rien n&apos;est sélectionné.</translation>
    </message>
    <message>
        <source>Mark what is to be copied first.</source>
        <translation>Cochez d&apos;abord ce qui doit être copié.</translation>
    </message>
    <message>
        <source>Nothing was copied to %1.</source>
        <translation>Rien n&apos;a été copié sur %1.</translation>
    </message>
    <message>
        <source>Needs %1, %2 are free on %3.</source>
        <translation>Il faut %1, %2 sont libres sur %3.</translation>
    </message>
    <message>
        <source>What does not fit is left out.</source>
        <translation>Ce qui n&apos;y tient pas est omis.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Copying %1 to %2 ...</source>
        <translation>Copie de %1 sur %2 ...</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Copie arrêtée.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) were not tried and stay marked.</source>
        <translation>
            <numerusform>%Ln fichier n&apos;a pas été traité et reste coché.</numerusform>
            <numerusform>%Ln fichiers n&apos;ont pas été traités et restent cochés.</numerusform>
        </translation>
    </message>
    <message>
        <source>Eject the stick before you pull it.</source>
        <translation>Éjectez la clé avant de la retirer.</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Tree</source>
        <translation>Arbre</translation>
    </message>
    <message>
        <source>Show only names with these words, parted by commas</source>
        <translation>N&apos;afficher que les noms avec ces mots, séparés par des virgules</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Nouveau fichier</translation>
    </message>
    <message>
        <source>Name of the new file</source>
        <translation>Nom du nouveau fichier</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>Name of the new folder</source>
        <translation>Nom du nouveau dossier</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln entry(s) deleted</source>
        <translation>
            <numerusform>%1 entrée sur %Ln supprimée</numerusform>
            <numerusform>Entrées supprimées : %1 sur %Ln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) copied to %1</source>
        <translation>
            <numerusform>%Ln fichier copié sur %1</numerusform>
            <numerusform>%Ln fichiers copiés sur %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln file(s) copied to %2</source>
        <translation>
            <numerusform>%1 fichier sur %Ln copié sur %2</numerusform>
            <numerusform>Fichiers copiés sur %2 : %1 sur %Ln</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>This folder is empty</source>
        <translation>Ce dossier est vide</translation>
    </message>
</context>
<context>
    <name>Keyboard</name>
    <message>
        <source>Shift</source>
        <translation>Maj.</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Effacer</translation>
    </message>
</context>
<context>
    <name>ListScreen</name>
    <message>
        <source>Logs</source>
        <translation>Journaux</translation>
    </message>
    <message>
        <source>Soil</source>
        <translation>Sol</translation>
    </message>
    <message>
        <source>Graphs</source>
        <translation>Courbes</translation>
    </message>
    <message>
        <source>Configs</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>Programmes</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>Rien de choisi</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) selected, %1</source>
        <translation>
            <numerusform>%Ln fichier choisi, %1</numerusform>
            <numerusform>%Ln fichiers choisis, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln folder(s) selected</source>
        <translation>
            <numerusform>%Ln dossier choisi</numerusform>
            <numerusform>%Ln dossiers choisis</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2, %3</source>
        <translation>%1 et %2, %3</translation>
    </message>
</context>
<context>
    <name>MarkedBar</name>
    <message>
        <source>Select all</source>
        <translation>Tout choisir</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Aucun</translation>
    </message>
</context>
<context>
    <name>NameDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Outcome</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Progress</name>
    <message>
        <source>Copying to %1</source>
        <translation>Copie sur %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln file(s), %2</source>
        <translation>
            <numerusform>%1 fichier sur %Ln, %2</numerusform>
            <numerusform>Fichiers : %1 sur %Ln, %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Question</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>Refused</name>
    <message>
        <source>This machine is not an instrument</source>
        <translation>Cette machine n&apos;est pas un appareil de mesure</translation>
    </message>
    <message>
        <source>Files are made, changed and copied as the account &quot;ostan&quot;, and this process can&apos;t become it. Start the viewer on a private instrument instead, with the command</source>
        <translation>Les fichiers sont créés, modifiés et copiés avec le compte « ostan », que ce processus ne peut pas prendre. Lancez plutôt le programme sur un appareil privé, avec la commande</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>SortBar</name>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
</context>
<context>
    <name>StickCard</name>
    <message>
        <source>Slot %1</source>
        <translation>Port %1</translation>
    </message>
    <message>
        <source>%1 free</source>
        <translation>%1 libres</translation>
    </message>
    <message>
        <source>No USB stick</source>
        <translation>Pas de clé USB</translation>
    </message>
    <message>
        <source>Copy here</source>
        <translation>Copier ici</translation>
    </message>
    <message>
        <source>Eject</source>
        <translation>Éjecter</translation>
    </message>
</context>
<context>
    <name>Sticks</name>
    <message>
        <source>Wait, do not remove</source>
        <translation>Attendez, ne retirez pas</translation>
    </message>
    <message>
        <source>Still in use, try again</source>
        <translation>Encore utilisée, réessayez</translation>
    </message>
    <message>
        <source>Safe to remove</source>
        <translation>Peut être retirée</translation>
    </message>
</context>
<context>
    <name>TreeScreen</name>
    <message>
        <source>Logs</source>
        <translation>Journaux</translation>
    </message>
    <message>
        <source>Soil</source>
        <translation>Sol</translation>
    </message>
    <message>
        <source>Configs</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Only: %1</source>
        <translation>Filtre : %1</translation>
    </message>
    <message>
        <source>Search ...</source>
        <translation>Chercher ...</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Ce dossier est vide</translation>
    </message>
    <message>
        <source>Checked: %1</source>
        <translation>Cochés : %1</translation>
    </message>
</context>
<context>
    <name>words</name>
    <message numerus="yes">
        <source>%Ln byte(s)</source>
        <translation>
            <numerusform>%Ln octet</numerusform>
            <numerusform>%Ln octets</numerusform>
        </translation>
    </message>
    <message>
        <source>KB</source>
        <translation>Ko</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>Go</translation>
    </message>
    <message>
        <source>TB</source>
        <translation>To</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln second(s) left</source>
        <translation>
            <numerusform>Encore %Ln seconde environ</numerusform>
            <numerusform>Encore %Ln secondes environ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minute(s) left</source>
        <translation>
            <numerusform>Encore %Ln minute environ</numerusform>
            <numerusform>Encore %Ln minutes environ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hour(s) left</source>
        <translation>
            <numerusform>Encore %Ln heure environ</numerusform>
            <numerusform>Encore %Ln heures environ</numerusform>
        </translation>
    </message>
    <message>
        <source>A folder: only files are copied</source>
        <translation>Un dossier : seuls les fichiers sont copiés</translation>
    </message>
    <message>
        <source>There already, left as it was</source>
        <translation>Déjà là, laissé tel quel</translation>
    </message>
    <message>
        <source>The stick is full</source>
        <translation>La clé est pleine</translation>
    </message>
    <message>
        <source>The stick is write-protected</source>
        <translation>La clé est protégée en écriture</translation>
    </message>
    <message>
        <source>The stick is gone</source>
        <translation>La clé n&apos;est plus là</translation>
    </message>
    <message>
        <source>No longer in its folder</source>
        <translation>N&apos;est plus dans son dossier</translation>
    </message>
    <message>
        <source>Could not be written</source>
        <translation>N&apos;a pas pu être écrit</translation>
    </message>
    <message>
        <source>A name needs at least one character.</source>
        <translation>Un nom a besoin d&apos;un caractère au moins.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name for a file or folder.</source>
        <translation>« %1 » n&apos;est pas un nom de fichier ou de dossier.</translation>
    </message>
    <message>
        <source>A name can&apos;t contain &quot;/&quot;.</source>
        <translation>Un nom ne peut pas contenir « / ».</translation>
    </message>
    <message>
        <source>&quot;%1&quot; exists already.</source>
        <translation>« %1 » existe déjà.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made.</source>
        <translation>« %1 » n&apos;a pas pu être créé.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be renamed.</source>
        <translation>« %1 » n&apos;a pas pu être renommé.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s)</source>
        <translation>
            <numerusform>%Ln fichier</numerusform>
            <numerusform>%Ln fichiers</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln folder(s)</source>
        <translation>
            <numerusform>%Ln dossier</numerusform>
            <numerusform>%Ln dossiers</numerusform>
        </translation>
    </message>
</context>
</TS>
