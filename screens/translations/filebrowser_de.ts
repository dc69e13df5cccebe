<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Browser</name>
    <message>
        <source>Select an entry of this folder first.</source>
        <translation>Zuerst einen Eintrag dieses Ordners auswählen.</translation>
    </message>
    <message>
        <source>New name of &quot;%1&quot;</source>
        <translation>Neuer Name von „%1“</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot;?</source>
        <translation>„%1“ löschen?</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message numerus="yes">
        <source>Delete these %Ln entry(s)?</source>
        <translation>
            <numerusform>Diesen %Ln Eintrag löschen?</numerusform>
            <numerusform>Diese %Ln Einträge löschen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Only empty folders can be deleted.</source>
        <translation>Nur leere Ordner können gelöscht werden.</translation>
    </message>
    <message>
        <source>Could not be deleted.</source>
        <translation>Konnte nicht gelöscht werden.</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Nichts ist ausgewählt.</translation>
    </message>
    <message>
        <source>Mark what is to be copied first.</source>
        <translation>Zuerst markieren, was kopiert werden soll.</translation>
    </message>
    <message>
        <source>Nothing was copied to %1.</source>
        <translation>Nichts wurde auf %1 kopiert.</translation>
    </message>
    <message>
        <source>Needs %1, %2 are free on %3.</source>
        <translation>Braucht %1, auf %3 sind %2 frei.</translation>
    </message>
    <message>
        <source>What does not fit is left out.</source>
        <translation>Was nicht passt, wird ausgelassen.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copying %1 to %2 ...</source>
        <translation>%1 werden auf %2 kopiert ...</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) were not tried and stay marked.</source>
        <translation>
            <numerusform>%Ln Datei ist nicht an die Reihe gekommen und bleibt markiert.</numerusform>
            <numerusform>%Ln Dateien sind nicht an die Reihe gekommen und bleiben markiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Eject the stick before you pull it.</source>
        <translation>Den Stick vor dem Abziehen auswerfen.</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>Tree</source>
        <translation>Baum</translation>
    </message>
    <message>
        <source>Show only names with these words, parted by commas</source>
        <translation>Nur Namen mit diesen Wörtern zeigen, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Neue Datei</translation>
    </message>
    <message>
        <source>Name of the new file</source>
        <translation>Name der neuen Datei</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Name of the new folder</source>
        <translation>Name des neuen Ordners</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln entry(s) deleted</source>
        <translation>
            <numerusform>%1 von %Ln Eintrag gelöscht</numerusform>
            <numerusform>%1 von %Ln Einträgen gelöscht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) copied to %1</source>
        <translation>
            <numerusform>%Ln Datei auf %1 kopiert</numerusform>
            <numerusform>%Ln Dateien auf %1 kopiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln file(s) copied to %2</source>
        <translation>
            <numerusform>%1 von %Ln Datei auf %2 kopiert</numerusform>
            <numerusform>%1 von %Ln Dateien auf %2 kopiert</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FileList</name>
    <message>
        <source>This folder is empty</source>
        <translation>Dieser Ordner ist leer</translation>
    </message>
</context>
<context>
    <name>Keyboard</name>
    <message>
        <source>Shift</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Rück</translation>
    </message>
</context>
<context>
    <name>ListScreen</name>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Soil</source>
        <translation>Boden</translation>
    </message>
    <message>
        <source>Graphs</source>
        <translation>Grafiken</translation>
    </message>
    <message>
        <source>Configs</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Nothing selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) selected, %1</source>
        <translation>
            <numerusform>%Ln Datei ausgewählt, %1</numerusform>
            <numerusform>%Ln Dateien ausgewählt, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln folder(s) selected</source>
        <translation>
            <numerusform>%Ln Ordner ausgewählt</numerusform>
            <numerusform>%Ln Ordner ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2, %3</source>
        <translation>%1 und %2, %3</translation>
    </message>
</context>
<context>
    <name>MarkedBar</name>
    <message>
        <source>Select all</source>
        <translation>Alle wählen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Keine</translation>
    </message>
</context>
<context>
    <name>NameDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
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
        <translation>Kopieren auf %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln file(s), %2</source>
        <translation>
            <numerusform>%1 von %Ln Datei, %2</numerusform>
            <numerusform>%1 von %Ln Dateien, %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Question</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Refused</name>
    <message>
        <source>This machine is not an instrument</source>
        <translation>Diese Maschine ist kein Messgerät</translation>
    </message>
    <message>
        <source>Files are made, changed and copied as the account &quot;ostan&quot;, and this process can&apos;t become it. Start the viewer on a private instrument instead, with the command</source>
        <translation>Dateien werden mit dem Konto „ostan“ angelegt, geändert und kopiert, und dieser Prozess kann es nicht annehmen. Stattdessen das Programm auf einem privaten Messgerät starten, mit dem Befehl</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Noch einmal versuchen</translation>
    </message>
</context>
<context>
    <name>SortBar</name>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
</context>
<context>
    <name>StickCard</name>
    <message>
        <source>Slot %1</source>
        <translation>Platz %1</translation>
    </message>
    <message>
        <source>%1 free</source>
        <translation>%1 frei</translation>
    </message>
    <message>
        <source>No USB stick</source>
        <translation>Kein USB-Stick</translation>
    </message>
    <message>
        <source>Copy here</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Eject</source>
        <translation>Auswerfen</translation>
    </message>
</context>
<context>
    <name>Sticks</name>
    <message>
        <source>Wait, do not remove</source>
        <translation>Warten, nicht abziehen</translation>
    </message>
    <message>
        <source>Still in use, try again</source>
        <translation>Noch in Gebrauch</translation>
    </message>
    <message>
        <source>Safe to remove</source>
        <translation>Jetzt abziehen</translation>
    </message>
</context>
<context>
    <name>TreeScreen</name>
    <message>
        <source>Logs</source>
        <translation>Protokolle</translation>
    </message>
    <message>
        <source>Soil</source>
        <translation>Boden</translation>
    </message>
    <message>
        <source>Configs</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Only: %1</source>
        <translation>Nur: %1</translation>
    </message>
    <message>
        <source>Search ...</source>
        <translation>Suchen ...</translation>
    </message>
    <message>
        <source>This folder is empty</source>
        <translation>Dieser Ordner ist leer</translation>
    </message>
    <message>
        <source>Checked: %1</source>
        <translation>Markiert: %1</translation>
    </message>
</context>
<context>
    <name>words</name>
    <message numerus="yes">
        <source>%Ln byte(s)</source>
        <translation>
            <numerusform>%Ln Byte</numerusform>
            <numerusform>%Ln Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>KB</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>GB</source>
        <translation>GB</translation>
    </message>
    <message>
        <source>TB</source>
        <translation>TB</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln second(s) left</source>
        <translation>
            <numerusform>Noch etwa %Ln Sekunde</numerusform>
            <numerusform>Noch etwa %Ln Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minute(s) left</source>
        <translation>
            <numerusform>Noch etwa %Ln Minute</numerusform>
            <numerusform>Noch etwa %Ln Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hour(s) left</source>
        <translation>
            <numerusform>Noch etwa %Ln Stunde</numerusform>
            <numerusform>Noch etwa %Ln Stunden</numerusform>
        </translation>
    </message>
    <message>
        <source>A folder: only files are copied</source>
        <translation>Ein Ordner: nur Dateien werden kopiert</translation>
    </message>
    <message>
        <source>There already, left as it was</source>
        <translation>Schon vorhanden, so gelassen</translation>
    </message>
    <message>
        <source>The stick is full</source>
        <translation>Der Stick ist voll</translation>
    </message>
    <message>
        <source>The stick is write-protected</source>
        <translation>Der Stick ist schreibgeschützt</translation>
    </message>
    <message>
        <source>The stick is gone</source>
        <translation>Der Stick ist nicht mehr da</translation>
    </message>
    <message>
        <source>No longer in its folder</source>
        <translation>Nicht mehr in seinem Ordner</translation>
    </message>
    <message>
        <source>Could not be written</source>
        <translation>Konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>A name needs at least one character.</source>
        <translation>Ein Name braucht mindestens ein Zeichen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name for a file or folder.</source>
        <translation>„%1“ kann keine Datei und kein Ordner heißen.</translation>
    </message>
    <message>
        <source>A name can&apos;t contain &quot;/&quot;.</source>
        <translation>Ein Name kann kein „/“ enthalten.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; exists already.</source>
        <translation>„%1“ gibt es schon.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be made.</source>
        <translation>„%1“ konnte nicht angelegt werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be renamed.</source>
        <translation>„%1“ konnte nicht umbenannt werden.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s)</source>
        <translation>
            <numerusform>%Ln Datei</numerusform>
            <numerusform>%Ln Dateien</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln folder(s)</source>
        <translation>
            <numerusform>%Ln Ordner</numerusform>
            <numerusform>%Ln Ordner</numerusform>
        </translation>
    </message>
</context>
</TS>
