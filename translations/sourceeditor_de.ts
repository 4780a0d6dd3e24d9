<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BaseAction</name>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>Alle schließen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Page Setup</source>
        <translation>Seite einrichten</translation>
    </message>
    <message>
        <source>Print Preview</source>
        <translation>Druckvorschau</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>Rückwärts suchen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Find in Files...</source>
        <translation>In Dateien suchen...</translation>
    </message>
    <message>
        <source>Go To</source>
        <translation>Gehe zu</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Reset Zoom</source>
        <translation>Originalgröße</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Stop Search</source>
        <translation>Suche anhalten</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Optionen</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>Source Editor</source>
        <translation>Source Editor</translation>
    </message>
    <message>
        <source>Can't find %s, application exit.</source>
        <translation>%s wurde nicht gefunden, die Anwendung wird beendet.</translation>
    </message>
    <message>
        <source>&amp;%1 %2</source>
        <translation>&amp;%1 %2</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
</context>
<context>
    <name>MenuActionMan</name>
    <message>
        <source>Default Action</source>
        <translation>Standardaktion</translation>
    </message>
    <message>
        <source>%1 &gt; %2</source>
        <translation>%1 &gt; %2</translation>
    </message>
    <message>
        <source>Print document that has focus</source>
        <translation>Das Dokument mit dem Fokus drucken</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>Ctrl+X</source>
        <translation>Ctrl+X</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>Pastes the text stored in the clipboard</source>
        <translation>Fügt den Text aus der Zwischenablage ein</translation>
    </message>
    <message>
        <source>Ctrl+Shift+F</source>
        <translation>Ctrl+Shift+F</translation>
    </message>
    <message>
        <source>Status Bar</source>
        <translation>Statusleiste</translation>
    </message>
    <message>
        <source>Option...</source>
        <translation>Optionen...</translation>
    </message>
</context>
<context>
    <name>OptDlg</name>
    <message>
        <source>&amp;Default</source>
        <translation>&amp;Standard</translation>
    </message>
</context>
<context>
    <name>QMdiSubWindow</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ResultWindow</name>
    <message>
        <source>C&amp;lear All</source>
        <translation>Alles &amp;leeren</translation>
    </message>
    <message>
        <source>Stop Search</source>
        <translation>Suche anhalten</translation>
    </message>
</context>
<context>
    <name>UserPrompt</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Reload from Disk</source>
        <translation>Von der Festplatte &amp;neu laden</translation>
    </message>
    <message>
        <source>&amp;Keep My Text</source>
        <translation>Meinen Text &amp;behalten</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>&amp;Überschreiben</translation>
    </message>
    <message>
        <source>Save as &amp;UTF-8</source>
        <translation>Als &amp;UTF-8 speichern</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
</context>
<context>
    <name>koru::sedgui</name>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>%1 kann nicht gespeichert werden: %2</translation>
    </message>
    <message>
        <source>the original could not be read to keep a copy (%1)</source>
        <translation>das Original konnte nicht gelesen werden, um eine Kopie aufzubewahren (%1)</translation>
    </message>
    <message>
        <source>%1; the file could not be restored, its previous content is in %2</source>
        <translation>%1; die Datei konnte nicht wiederhergestellt werden, ihr vorheriger Inhalt steht in %2</translation>
    </message>
    <message>
        <source>%1; the file could not be restored</source>
        <translation>%1; die Datei konnte nicht wiederhergestellt werden</translation>
    </message>
    <message>
        <source>The byte 0x%1 on line %2 is not valid UTF-8 and cannot be saved in %3.</source>
        <translation>Das Byte 0x%1 in Zeile %2 ist kein gültiges UTF-8 und kann nicht in %3 gespeichert werden.</translation>
    </message>
    <message>
        <source>%1 on line %2 cannot be saved in %3.</source>
        <translation>%1 in Zeile %2 kann nicht in %3 gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::FileReader</name>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>it is %1</source>
        <translation>es ist %1</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::InfoBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::PosixFile</name>
    <message>
        <source>a directory</source>
        <translation>ein Ordner</translation>
    </message>
    <message>
        <source>a FIFO (named pipe)</source>
        <translation>ein FIFO (benannte Pipe)</translation>
    </message>
    <message>
        <source>a device</source>
        <translation>ein Gerät</translation>
    </message>
    <message>
        <source>a socket</source>
        <translation>ein Socket</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::SafeSaver</name>
    <message>
        <source>it is %1</source>
        <translation>es ist %1</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::TextFileCodec</name>
    <message>
        <source>Not valid UTF-8: the bytes are kept as they are.</source>
        <translation>Kein gültiges UTF-8: die Bytes bleiben unverändert.</translation>
    </message>
    <message>
        <source>The file starts with a %1 byte order mark but is not valid %1: the bytes are kept as they are.</source>
        <translation>Die Datei beginnt mit einer %1-Bytereihenfolgemarke, ist aber kein gültiges %1: die Bytes bleiben unverändert.</translation>
    </message>
    <message>
        <source>Not valid UTF-8: opened as %1.</source>
        <translation>Kein gültiges UTF-8: als %1 geöffnet.</translation>
    </message>
    <message>
        <source>Unknown encoding: %1</source>
        <translation>Unbekannte Kodierung: %1</translation>
    </message>
    <message>
        <source>The file is not valid %1: it was left as it is.</source>
        <translation>Die Datei ist kein gültiges %1: sie wurde unverändert gelassen.</translation>
    </message>
</context>
</TS>
