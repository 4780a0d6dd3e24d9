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
    <name>FindInFiles</name>
    <message>
        <source>Find in Files</source>
        <translation>In Dateien suchen</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>Searching: %1 files searched, %2 hits</source>
        <translation>Suche: %1 Dateien durchsucht, %2 Treffer</translation>
    </message>
    <message>
        <source>... %1 more hits not shown</source>
        <translation>... %1 weitere Treffer nicht angezeigt</translation>
    </message>
    <message>
        <source>regular expression</source>
        <translation>regulärer Ausdruck</translation>
    </message>
    <message>
        <source>match case</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>any case</source>
        <translation>Groß-/Kleinschreibung egal</translation>
    </message>
    <message>
        <source>whole words</source>
        <translation>ganze Wörter</translation>
    </message>
    <message>
        <source>files %1</source>
        <translation>Dateien %1</translation>
    </message>
    <message>
        <source>Searching for "%1" in %2 (%3)</source>
        <translation>Suche nach „%1“ in %2 (%3)</translation>
    </message>
    <message>
        <source>1 hit</source>
        <translation>1 Treffer</translation>
    </message>
    <message>
        <source>%1 hits</source>
        <translation>%1 Treffer</translation>
    </message>
    <message>
        <source> in 1 file</source>
        <translation> in 1 Datei</translation>
    </message>
    <message>
        <source> in %1 files</source>
        <translation> in %1 Dateien</translation>
    </message>
    <message>
        <source> (%1 files searched</source>
        <translation> (%1 Dateien durchsucht</translation>
    </message>
    <message>
        <source>, %1 binary skipped</source>
        <translation>, %1 binäre übersprungen</translation>
    </message>
    <message>
        <source>, %1 could not be read</source>
        <translation>, %1 nicht lesbar</translation>
    </message>
    <message>
        <source>, %1 changed while searched</source>
        <translation>, %1 während der Suche geändert</translation>
    </message>
    <message>
        <source>, %1 deleted while searched</source>
        <translation>, %1 während der Suche gelöscht</translation>
    </message>
    <message>
        <source>Changed by another program while it was searched, hits may be incomplete: %1</source>
        <translation>Während der Suche von einem anderen Programm geändert, Treffer können unvollständig sein: %1</translation>
    </message>
    <message>
        <source>Deleted while it was searched: %1</source>
        <translation>Während der Suche gelöscht: %1</translation>
    </message>
    <message>
        <source>; search stopped</source>
        <translation>; Suche angehalten</translation>
    </message>
    <message>
        <source>Next Search Hit</source>
        <translation>Nächster Suchtreffer</translation>
    </message>
    <message>
        <source>Previous Search Hit</source>
        <translation>Vorheriger Suchtreffer</translation>
    </message>
    <message>
        <source>No search hits</source>
        <translation>Keine Suchtreffer</translation>
    </message>
    <message>
        <source>%1 is no longer open</source>
        <translation>%1 ist nicht mehr geöffnet</translation>
    </message>
    <message>
        <source>Finding the changes...</source>
        <translation>Änderungen werden gesucht...</translation>
    </message>
    <message>
        <source>Finding the changes: %1 files read, %2 changes</source>
        <translation>Änderungen werden gesucht: %1 Dateien gelesen, %2 Änderungen</translation>
    </message>
    <message>
        <source>Replacing...</source>
        <translation>Ersetzen...</translation>
    </message>
    <message>
        <source>; replace stopped</source>
        <translation>; Ersetzen angehalten</translation>
    </message>
    <message>
        <source>Replacing "%1" with "%2" in %3</source>
        <translation>Ersetze „%1“ durch „%2“ in %3</translation>
    </message>
    <message>
        <source>Nothing to replace: no match</source>
        <translation>Nichts zu ersetzen: kein Treffer</translation>
    </message>
    <message>
        <source>Replace cancelled: nothing was changed</source>
        <translation>Ersetzen abgebrochen: Nichts wurde geändert</translation>
    </message>
    <message>
        <source>Changed since the preview, left as it is: %1</source>
        <translation>Seit der Vorschau geändert, unverändert gelassen: %1</translation>
    </message>
    <message>
        <source>Not replaced: %1</source>
        <translation>Nicht ersetzt: %1</translation>
    </message>
    <message>
        <source>the open documents</source>
        <translation>den geöffneten Dokumenten</translation>
    </message>
    <message>
        <source>1 replacement</source>
        <translation>1 Ersetzung</translation>
    </message>
    <message>
        <source>%1 replacements</source>
        <translation>%1 Ersetzungen</translation>
    </message>
    <message>
        <source>; %1 skipped, changed since the preview</source>
        <translation>; %1 übersprungen, seit der Vorschau geändert</translation>
    </message>
    <message>
        <source>; %1 failed</source>
        <translation>; %1 fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>FindInFilesDialog</name>
    <message>
        <source>Find in Files</source>
        <translation>In Dateien suchen</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>All files, or globs such as *.cpp; *.h</source>
        <translation>Alle Dateien, oder Muster wie *.cpp; *.h</translation>
    </message>
    <message>
        <source>Fi&amp;nd what:</source>
        <translation>Such&amp;begriff:</translation>
    </message>
    <message>
        <source>In &amp;folder:</source>
        <translation>In &amp;Ordner:</translation>
    </message>
    <message>
        <source>&amp;Include files:</source>
        <translation>Dateien e&amp;inschließen:</translation>
    </message>
    <message>
        <source>E&amp;xclude:</source>
        <translation>&amp;Ausschließen:</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>Groß-/&amp;Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>&amp;Whole words</source>
        <translation>&amp;Ganze Wörter</translation>
    </message>
    <message>
        <source>Regular e&amp;xpression</source>
        <translation>Regulärer A&amp;usdruck</translation>
    </message>
    <message>
        <source>Search &amp;hidden files</source>
        <translation>&amp;Versteckte Dateien durchsuchen</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>S&amp;toppen</translation>
    </message>
    <message>
        <source>Find in Folder</source>
        <translation>Im Ordner suchen</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Der Ordner %1 existiert nicht.</translation>
    </message>
    <message>
        <source>Respect .&amp;gitignore</source>
        <translation>.gitignore bea&amp;chten</translation>
    </message>
    <message>
        <source>In a git working tree, skip the files and folders that git ignores</source>
        <translation>In einem Git-Arbeitsverzeichnis die Dateien und Ordner überspringen, die Git ignoriert</translation>
    </message>
    <message>
        <source>With a regular expression, \1 to \9 name its groups</source>
        <translation>Bei einem regulären Ausdruck benennen \1 bis \9 seine Gruppen</translation>
    </message>
    <message>
        <source>Re&amp;place with:</source>
        <translation>&amp;Ersetzen durch:</translation>
    </message>
    <message>
        <source>Only &amp;open documents</source>
        <translation>Nur geöffnete Dokume&amp;nte</translation>
    </message>
    <message>
        <source>Search the documents open in the editor as they are now, unsaved changes included, instead of the folder's files</source>
        <translation>Die im Editor geöffneten Dokumente so durchsuchen, wie sie jetzt sind, ungespeicherte Änderungen eingeschlossen, statt der Dateien des Ordners</translation>
    </message>
    <message>
        <source>R&amp;eplace...</source>
        <translation>Erset&amp;zen...</translation>
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
    <name>ReplacePlanner</name>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>ReplaceRunner</name>
    <message>
        <source>%1: the document cannot be changed</source>
        <translation>%1: Das Dokument kann nicht geändert werden</translation>
    </message>
</context>
<context>
    <name>ReplacePreview</name>
    <message>
        <source>Replace in Files</source>
        <translation>In Dateien ersetzen</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>in 1 file</source>
        <translation>in 1 Datei</translation>
    </message>
    <message>
        <source>in %1 files</source>
        <translation>in %1 Dateien</translation>
    </message>
    <message>
        <source>%1 %2; uncheck what must stay as it is.</source>
        <translation>%1 %2; nehmen Sie das Häkchen weg, wo nichts geändert werden soll.</translation>
    </message>
</context>
<context>
    <name>ReplacePreviewModel</name>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>After the replace</source>
        <translation>Nach dem Ersetzen</translation>
    </message>
    <message>
        <source>%1 (open: changed in the editor, not saved)</source>
        <translation>%1 (geöffnet: wird im Editor geändert, nicht gespeichert)</translation>
    </message>
    <message>
        <source>1 change</source>
        <translation>1 Änderung</translation>
    </message>
    <message>
        <source>%1 changes</source>
        <translation>%1 Änderungen</translation>
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
    <name>TextMatcher</name>
    <message>
        <source>Enter the text to search for.</source>
        <translation>Geben Sie den zu suchenden Text ein.</translation>
    </message>
    <message>
        <source>The search text must be a single line.</source>
        <translation>Der Suchtext muss aus einer einzigen Zeile bestehen.</translation>
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
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>&amp;Keep in Editor</source>
        <translation>&amp;Im Editor behalten</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
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
    <name>koru::sedgui::ColourScheme</name>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>High contrast light</source>
        <translation>Hoher Kontrast, hell</translation>
    </message>
    <message>
        <source>High contrast dark</source>
        <translation>Hoher Kontrast, dunkel</translation>
    </message>
    <message>
        <source>Automatic (follows the desktop)</source>
        <translation>Automatisch (wie die Arbeitsumgebung)</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::DocumentJournal</name>
    <message>
        <source>Your unsaved changes cannot be kept for recovery after a crash. %1</source>
        <translation>Ihre ungespeicherten Änderungen können nicht für eine Wiederherstellung nach einem Absturz aufbewahrt werden. %1</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::CloseBatch</name>
    <message>
        <source>Close Document</source>
        <translation>Dokument schließen</translation>
    </message>
    <message>
        <source>Save the changes to %1 before closing?</source>
        <translation>Die Änderungen an %1 vor dem Schließen speichern?</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::DocumentPrinter</name>
    <message>
        <source>Page %1</source>
        <translation>Seite %1</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::EditorActions</name>
    <message>
        <source>Toggle &amp;Comment</source>
        <translation>&amp;Kommentar umschalten</translation>
    </message>
    <message>
        <source>Ctrl+/</source>
        <translation>Ctrl+/</translation>
    </message>
    <message>
        <source>&amp;Duplicate Line</source>
        <translation>Zeile &amp;duplizieren</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Move Line &amp;Up</source>
        <translation>Zeile nach &amp;oben</translation>
    </message>
    <message>
        <source>Alt+Up</source>
        <translation>Alt+Up</translation>
    </message>
    <message>
        <source>Move Line Do&amp;wn</source>
        <translation>Zeile nach &amp;unten</translation>
    </message>
    <message>
        <source>Alt+Down</source>
        <translation>Alt+Down</translation>
    </message>
    <message>
        <source>U&amp;pper Case</source>
        <translation>&amp;Großbuchstaben</translation>
    </message>
    <message>
        <source>Ctrl+Shift+U</source>
        <translation>Ctrl+Shift+U</translation>
    </message>
    <message>
        <source>&amp;Lower Case</source>
        <translation>K&amp;leinbuchstaben</translation>
    </message>
    <message>
        <source>Ctrl+U</source>
        <translation>Ctrl+U</translation>
    </message>
    <message>
        <source>&amp;Indent</source>
        <translation>&amp;Einrücken</translation>
    </message>
    <message>
        <source>Ctrl+]</source>
        <translation>Ctrl+]</translation>
    </message>
    <message>
        <source>U&amp;nindent</source>
        <translation>&amp;Ausrücken</translation>
    </message>
    <message>
        <source>Ctrl+[</source>
        <translation>Ctrl+[</translation>
    </message>
    <message>
        <source>Line &amp;Numbers</source>
        <translation>&amp;Zeilennummern</translation>
    </message>
    <message>
        <source>&amp;Word Wrap</source>
        <translation>Zeilen&amp;umbruch</translation>
    </message>
    <message>
        <source>Alt+Z</source>
        <translation>Alt+Z</translation>
    </message>
    <message>
        <source>Show W&amp;hitespace</source>
        <translation>&amp;Leerraum anzeigen</translation>
    </message>
    <message>
        <source>Show Line &amp;Endings</source>
        <translation>Zeilen&amp;enden anzeigen</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Ctrl++</source>
        <translation>Ctrl++</translation>
    </message>
    <message>
        <source>Ctrl+=</source>
        <translation>Ctrl+=</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Ctrl+-</source>
        <translation>Ctrl+-</translation>
    </message>
    <message>
        <source>&amp;Reset Zoom</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>Ctrl+0</source>
        <translation>Ctrl+0</translation>
    </message>
    <message>
        <source>&amp;Fold All</source>
        <translation>Alles einkla&amp;ppen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+[</source>
        <translation>Ctrl+Shift+[</translation>
    </message>
    <message>
        <source>&amp;Unfold All</source>
        <translation>Alles &amp;ausklappen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+]</source>
        <translation>Ctrl+Shift+]</translation>
    </message>
    <message>
        <source>En&amp;coding</source>
        <translation>&amp;Kodierung</translation>
    </message>
    <message>
        <source>&amp;Line Endings</source>
        <translation>Zeilene&amp;nden</translation>
    </message>
    <message>
        <source>&amp;Syntax</source>
        <translation>&amp;Syntax</translation>
    </message>
    <message>
        <source>Save with Encoding</source>
        <translation>Mit Kodierung speichern</translation>
    </message>
    <message>
        <source>The document cannot be saved in %1: %2
It keeps the encoding %3.</source>
        <translation>Das Dokument kann nicht in %1 gespeichert werden: %2
Es behält die Kodierung %3.</translation>
    </message>
    <message>
        <source>&amp;Reopen with Encoding</source>
        <translation>Mit Kodierung &amp;neu öffnen</translation>
    </message>
    <message>
        <source>&amp;Save with Encoding</source>
        <translation>Mit Kodierung &amp;speichern</translation>
    </message>
    <message>
        <source>Unix and macOS (LF)</source>
        <translation>Unix und macOS (LF)</translation>
    </message>
    <message>
        <source>Windows (CRLF)</source>
        <translation>Windows (CRLF)</translation>
    </message>
    <message>
        <source>Classic Mac OS (CR)</source>
        <translation>Klassisches Mac OS (CR)</translation>
    </message>
    <message>
        <source>Plain Text</source>
        <translation>Reiner Text</translation>
    </message>
    <message>
        <source>In&amp;dentation</source>
        <translation>Ein&amp;rückung</translation>
    </message>
    <message>
        <source>Indent with &amp;Tabs</source>
        <translation>Mit &amp;Tabulatoren einrücken</translation>
    </message>
    <message>
        <source>Indent with &amp;Spaces</source>
        <translation>Mit &amp;Leerzeichen einrücken</translation>
    </message>
    <message>
        <source>Width: %1</source>
        <translation>Breite: %1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+D</source>
        <translation>Ctrl+Shift+D</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>V&amp;orheriges suchen</translation>
    </message>
    <message>
        <source>Shift+F3</source>
        <translation>Shift+F3</translation>
    </message>
    <message>
        <source>&amp;Go to Matching Brace</source>
        <translation>Zur passenden &amp;Klammer springen</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Select to Matching &amp;Brace</source>
        <translation>Bis zur passenden Klammer &amp;markieren</translation>
    </message>
    <message>
        <source>Ctrl+Shift+M</source>
        <translation>Ctrl+Shift+M</translation>
    </message>
    <message>
        <source>Add Ne&amp;xt Occurrence</source>
        <translation>Nächstes Vorkommen &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Select All Occu&amp;rrences</source>
        <translation>Alle Vorkommen aus&amp;wählen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+L</source>
        <translation>Ctrl+Shift+L</translation>
    </message>
    <message>
        <source>C&amp;omplete Word</source>
        <translation>Wort &amp;vervollständigen</translation>
    </message>
    <message>
        <source>Ctrl+Space</source>
        <translation>Ctrl+Space</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::EditorOptionsPage</name>
    <message>
        <source>Colour sche&amp;me:</source>
        <translation>Farbsche&amp;ma:</translation>
    </message>
    <message>
        <source>Indent with &amp;spaces</source>
        <translation>Mit &amp;Leerzeichen einrücken</translation>
    </message>
    <message>
        <source>&amp;Automatic indentation</source>
        <translation>&amp;Automatisch einrücken</translation>
    </message>
    <message>
        <source>Show line &amp;numbers</source>
        <translation>&amp;Zeilennummern anzeigen</translation>
    </message>
    <message>
        <source>&amp;Wrap long lines</source>
        <translation>Lange Zeilen &amp;umbrechen</translation>
    </message>
    <message>
        <source>Show &amp;whitespace</source>
        <translation>Leer&amp;raum anzeigen</translation>
    </message>
    <message>
        <source>&amp;Highlight the current line</source>
        <translation>Aktuelle Zeile &amp;hervorheben</translation>
    </message>
    <message>
        <source>Highlight matching &amp;braces</source>
        <translation>Passende &amp;Klammern hervorheben</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>&amp;Schrift:</translation>
    </message>
    <message>
        <source>Font si&amp;ze:</source>
        <translation>Schrift&amp;größe:</translation>
    </message>
    <message>
        <source>&amp;Tab width:</source>
        <translation>&amp;Tabulatorbreite:</translation>
    </message>
    <message>
        <source>Columns per indentation level. A file&apos;s .editorconfig and the indentation found in an opened file come first.</source>
        <translation>Spalten je Einrückungsebene. Die .editorconfig einer Datei und die in einer geöffneten Datei gefundene Einrückung haben Vorrang.</translation>
    </message>
    <message>
        <source>In&amp;dent width:</source>
        <translation>&amp;Einrückungsbreite:</translation>
    </message>
    <message>
        <source>&amp;Close brackets and quotes as they are typed</source>
        <translation>Klammern und Anführungszeichen beim Tippen s&amp;chließen</translation>
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
    <name>koru::sedgui::FilesOptionsPage</name>
    <message>
        <source>&amp;Reload files changed by other programs when they are not modified here, without asking</source>
        <translation>Von anderen Programmen geänderte Dateien ohne Rückfrage &amp;neu laden, wenn sie hier nicht geändert sind</translation>
    </message>
    <message>
        <source>&amp;Trim trailing whitespace when saving</source>
        <translation>Leerraum am Zeilenende beim Speichern &amp;entfernen</translation>
    </message>
    <message>
        <source>Restore the last &amp;session on start</source>
        <translation>Die letzte &amp;Sitzung beim Start wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Keep unsaved changes on quit without asking</source>
        <translation>Ungespeicherte Änderungen beim Beenden ohne Rückfrage &amp;behalten</translation>
    </message>
    <message>
        <source>Unix and macOS (LF)</source>
        <translation>Unix und macOS (LF)</translation>
    </message>
    <message>
        <source>Windows (CRLF)</source>
        <translation>Windows (CRLF)</translation>
    </message>
    <message>
        <source>Classic Mac OS (CR)</source>
        <translation>Klassisches Mac OS (CR)</translation>
    </message>
    <message>
        <source>&amp;Encoding of new documents:</source>
        <translation>&amp;Kodierung neuer Dokumente:</translation>
    </message>
    <message>
        <source>&amp;Line ending of new documents:</source>
        <translation>&amp;Zeilenende neuer Dokumente:</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::FindBar</name>
    <message>
        <source>Re&amp;place:</source>
        <translation>Ersetzen &amp;durch:</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>&amp;Alle ersetzen</translation>
    </message>
    <message>
        <source>Re&amp;gular expression</source>
        <translation>Re&amp;gulärer Ausdruck</translation>
    </message>
    <message>
        <source>&amp;Match case</source>
        <translation>Groß-/&amp;Kleinschreibung</translation>
    </message>
    <message>
        <source>&amp;Whole word</source>
        <translation>Ganzes &amp;Wort</translation>
    </message>
    <message>
        <source>Wra&amp;p around</source>
        <translation>Am Ende &amp;umbrechen</translation>
    </message>
    <message>
        <source>&amp;Backwards</source>
        <translation>&amp;Rückwärts</translation>
    </message>
    <message>
        <source>Text to find</source>
        <translation>Zu suchender Text</translation>
    </message>
    <message>
        <source>Replacement</source>
        <translation>Ersetzung</translation>
    </message>
    <message>
        <source>Perl-compatible: ( ) captures a group, \d a digit, \b a word bound, (?=...) and (?&lt;=...) look ahead and behind; \1 to \9 or $1 to $9 in the replacement insert the groups, \0 the whole match.</source>
        <translation>Perl-kompatibel: ( ) erfasst eine Gruppe, \d eine Ziffer, \b eine Wortgrenze, (?=...) und (?&lt;=...) schauen voraus und zurück; \1 bis \9 oder $1 bis $9 in der Ersetzung fügen die Gruppen ein, \0 den ganzen Treffer.</translation>
    </message>
    <message>
        <source>F&amp;ind:</source>
        <translation>Such&amp;text:</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Close (Escape)</source>
        <translation>Schließen (Escape)</translation>
    </message>
    <message>
        <source>Type the text to find.</source>
        <translation>Geben Sie den zu suchenden Text ein.</translation>
    </message>
    <message>
        <source>The document is read-only.</source>
        <translation>Das Dokument ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The regular expression is not valid.</source>
        <translation>Der reguläre Ausdruck ist ungültig.</translation>
    </message>
    <message>
        <source>Not found.</source>
        <translation>Nicht gefunden.</translation>
    </message>
    <message numerus="yes">
        <source>Replaced %n occurrence(s).</source>
        <translation>
            <numerusform>%n Vorkommen ersetzt.</numerusform>
            <numerusform>%n Vorkommen ersetzt.</numerusform>
        </translation>
    </message>
    <message>
        <source>Search wrapped around.</source>
        <translation>Die Suche hat am Anfang neu begonnen.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::MatchMarker</name>
    <message>
        <source>Counting…</source>
        <translation>Zähle…</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 matches</source>
        <translation>%1 Treffer</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::GoToDialog</name>
    <message>
        <source>Go To Line</source>
        <translation>Gehe zu Zeile</translation>
    </message>
    <message>
        <source>&amp;Line (1 - %1), optionally line:column:</source>
        <translation>&amp;Zeile (1 - %1), wahlweise Zeile:Spalte:</translation>
    </message>
    <message>
        <source>Type a line number, or line:column such as 12:5.</source>
        <translation>Geben Sie eine Zeilennummer ein, oder Zeile:Spalte wie 12:5.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::Indentation</name>
    <message>
        <source>Tabs: %1</source>
        <translation>Tabulatoren: %1</translation>
    </message>
    <message>
        <source>Spaces: %1</source>
        <translation>Leerzeichen: %1</translation>
    </message>
    <message>
        <source>Chosen for this document</source>
        <translation>Für dieses Dokument gewählt</translation>
    </message>
    <message>
        <source>Set by .editorconfig</source>
        <translation>Durch .editorconfig festgelegt</translation>
    </message>
    <message>
        <source>%1 files are indented with tabs</source>
        <translation>%1-Dateien werden mit Tabulatoren eingerückt</translation>
    </message>
    <message>
        <source>Found in the file&apos;s lines</source>
        <translation>In den Zeilen der Datei gefunden</translation>
    </message>
    <message>
        <source>From the editor options</source>
        <translation>Aus den Editor-Optionen</translation>
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
    <name>koru::sedgui::JournalStore</name>
    <message>
        <source>it is not a recovery journal or is cut short</source>
        <translation>sie ist keine Wiederherstellungsdatei oder ist abgeschnitten</translation>
    </message>
    <message>
        <source>it was written in another format (version %1)</source>
        <translation>sie wurde in einem anderen Format geschrieben (Version %1)</translation>
    </message>
    <message>
        <source>its header is cut short</source>
        <translation>ihr Kopf ist abgeschnitten</translation>
    </message>
    <message>
        <source>its header is damaged</source>
        <translation>ihr Kopf ist beschädigt</translation>
    </message>
    <message>
        <source>Cannot create the recovery folder %1: %2</source>
        <translation>Der Wiederherstellungsordner %1 kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>Cannot use the recovery folder %1: %2</source>
        <translation>Der Wiederherstellungsordner %1 kann nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>Cannot use the recovery folder %1: it belongs to another user</source>
        <translation>Der Wiederherstellungsordner %1 kann nicht verwendet werden: er gehört einem anderen Benutzer</translation>
    </message>
    <message>
        <source>Cannot lock the recovery folder %1: %2</source>
        <translation>Der Wiederherstellungsordner %1 kann nicht gesperrt werden: %2</translation>
    </message>
    <message>
        <source>it is cut short</source>
        <translation>sie ist abgeschnitten</translation>
    </message>
    <message>
        <source>it has bytes after its end</source>
        <translation>sie hat Bytes nach ihrem Ende</translation>
    </message>
    <message>
        <source>its checksum does not match (the file is damaged)</source>
        <translation>ihre Prüfsumme stimmt nicht (die Datei ist beschädigt)</translation>
    </message>
    <message>
        <source>Cannot write the recovery journal in %1: %2</source>
        <translation>Die Wiederherstellungsdatei in %1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>it cannot be read: %1</source>
        <translation>sie kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>its header does not match its name</source>
        <translation>ihr Kopf passt nicht zu ihrem Namen</translation>
    </message>
    <message>
        <source>a save was interrupted halfway; the file was put back as it was before that save</source>
        <translation>ein Speichern wurde mittendrin unterbrochen; die Datei wurde auf den Stand vor diesem Speichern zurückgesetzt</translation>
    </message>
    <message>
        <source>a save was interrupted halfway and the file could not be put back; its previous content is in %1</source>
        <translation>ein Speichern wurde mittendrin unterbrochen, und die Datei konnte nicht zurückgesetzt werden; ihr vorheriger Inhalt liegt in %1</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::OptionPages</name>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>The options could not be saved: the settings file cannot be read or written. The open documents keep their settings.</source>
        <translation>Die Optionen konnten nicht gespeichert werden: die Einstellungsdatei kann nicht gelesen oder geschrieben werden. Die offenen Dokumente behalten ihre Einstellungen.</translation>
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
    <message>
        <source>&quot;%1&quot; is not opened: its name was read with the replacement character in place of bytes that are not UTF-8, and several files match it (%2).</source>
        <translation>&quot;%1&quot; wird nicht geöffnet: der Name wurde mit dem Ersatzzeichen anstelle von Bytes gelesen, die kein gültiges UTF-8 sind, und mehrere Dateien passen dazu (%2).</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::RecoveryDialog</name>
    <message>
        <source>Untitled %1</source>
        <translation>Unbenannt %1</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>Ungespeicherte Arbeit wiederherstellen</translation>
    </message>
    <message>
        <source>The editor did not close normally. These documents have changes that were not saved. Restore opens them with the recovered text; the files on disk stay as they are until you save.</source>
        <translation>Der Editor wurde nicht normal beendet. Diese Dokumente haben Änderungen, die nicht gespeichert wurden. „Wiederherstellen“ öffnet sie mit dem geretteten Text; die Dateien auf der Festplatte bleiben unverändert, bis Sie speichern.</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Last Change</source>
        <translation>Letzte Änderung</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Show &amp;Differences</source>
        <translation>&amp;Unterschiede anzeigen</translation>
    </message>
    <message>
        <source>D&amp;iscard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Decide &amp;Later</source>
        <translation>&amp;Später entscheiden</translation>
    </message>
    <message>
        <source>deleted from disk since</source>
        <translation>seitdem auf der Festplatte gelöscht</translation>
    </message>
    <message>
        <source>changed on disk since</source>
        <translation>seitdem auf der Festplatte geändert</translation>
    </message>
    <message>
        <source>created on disk since</source>
        <translation>seitdem auf der Festplatte angelegt</translation>
    </message>
    <message>
        <source> (on disk)</source>
        <translation> (auf der Festplatte)</translation>
    </message>
    <message>
        <source> (recovered)</source>
        <translation> (wiederhergestellt)</translation>
    </message>
    <message>
        <source>%1: the recovered text is the same as the file on disk.
</source>
        <translation>%1: Der wiederhergestellte Text ist derselbe wie die Datei auf der Festplatte.
</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
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
    <name>koru::sedgui::SaveChangesDialog</name>
    <message>
        <source>Save Changes</source>
        <translation>Änderungen speichern</translation>
    </message>
    <message>
        <source>These documents have unsaved changes. Save the checked ones before closing?</source>
        <translation>Diese Dokumente haben ungespeicherte Änderungen. Die markierten vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>Alle &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>Alle &amp;verwerfen</translation>
    </message>
    <message>
        <source>&amp;Save Checked</source>
        <translation>Markierte &amp;speichern</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::SedApp</name>
    <message>
        <source>Source Editor</source>
        <translation>Source Editor</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::SedGUI</name>
    <message>
        <source>Untitled %1</source>
        <translation>Unbenannt %1</translation>
    </message>
    <message>
        <source>Close Document</source>
        <translation>Dokument schließen</translation>
    </message>
    <message>
        <source>Save the changes to %1 before closing?</source>
        <translation>Die Änderungen an %1 vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>%1 does not exist yet; it will be created when you save.</source>
        <translation>%1 existiert noch nicht; die Datei wird beim Speichern angelegt.</translation>
    </message>
    <message>
        <source>This file has a line too long to edit (%1 KB): it is shown read-only, broken into short display lines. Saving writes the file's own lines unchanged.</source>
        <translation>Diese Datei hat eine zum Bearbeiten zu lange Zeile (%1 KB): sie wird schreibgeschützt in kurzen Anzeigezeilen gezeigt. Speichern schreibt die eigenen Zeilen der Datei unverändert.</translation>
    </message>
    <message>
        <source>This file has very long lines: syntax colouring and line wrapping are off to keep editing responsive.</source>
        <translation>Diese Datei hat sehr lange Zeilen: Syntaxhervorhebung und Zeilenumbruch sind aus, damit das Bearbeiten flüssig bleibt.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>%1 has changed on disk since it was loaded or saved.

Overwrite it with your text?</source>
        <translation>%1 wurde auf der Festplatte geändert, seit die Datei geladen oder gespeichert wurde.

Mit Ihrem Text überschreiben?</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Cannot save as %1: it is open in another tab. Close that tab first.</source>
        <translation>Speichern als %1 nicht möglich: die Datei ist in einem anderen Reiter geöffnet. Schließen Sie diesen Reiter zuerst.</translation>
    </message>
    <message>
        <source>Cannot save %1 in %2: %3

Save it in UTF-8 instead?</source>
        <translation>%1 kann nicht in %2 gespeichert werden: %3

Stattdessen in UTF-8 speichern?</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>Neu öffnen</translation>
    </message>
    <message>
        <source>Reopening %1 with another encoding replaces your unsaved changes (Undo brings them back).

Reopen it?</source>
        <translation>Das erneute Öffnen von %1 mit einer anderen Kodierung ersetzt Ihre ungespeicherten Änderungen (Rückgängig holt sie zurück).

Neu öffnen?</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>File Changed on Disk</source>
        <translation>Datei auf der Festplatte geändert</translation>
    </message>
    <message>
        <source>%1 has changed on disk, and you have unsaved changes.

Keep your text (saving will overwrite the file), or reload the file from disk (Undo brings your text back)?</source>
        <translation>%1 wurde auf der Festplatte geändert, und Sie haben ungespeicherte Änderungen.

Ihren Text behalten (Speichern überschreibt die Datei) oder die Datei von der Festplatte neu laden (Rückgängig holt Ihren Text zurück)?</translation>
    </message>
    <message>
        <source>%1 has changed on disk.

Reload it?</source>
        <translation>%1 wurde auf der Festplatte geändert.

Neu laden?</translation>
    </message>
    <message>
        <source>%1 has changed on disk; you kept your text.</source>
        <translation>%1 wurde auf der Festplatte geändert; Sie haben Ihren Text behalten.</translation>
    </message>
    <message>
        <source>%1 has changed on disk.</source>
        <translation>%1 wurde auf der Festplatte geändert.</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Print Preview - %1</source>
        <translation>Druckvorschau - %1</translation>
    </message>
    <message>
        <source>Print %1</source>
        <translation>%1 drucken</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>%1 could not be printed: the printer or the output file is not available.</source>
        <translation>%1 konnte nicht gedruckt werden: der Drucker oder die Ausgabedatei ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>%1

Save the document somewhere else?</source>
        <translation>%1

Das Dokument an einem anderen Ort speichern?</translation>
    </message>
    <message>
        <source>File Deleted from Disk</source>
        <translation>Datei auf dem Datenträger gelöscht</translation>
    </message>
    <message>
        <source>%1 was deleted from disk (or moved away).

Keep it in the editor (saving writes it there again), or close it?</source>
        <translation>%1 wurde vom Datenträger gelöscht (oder verschoben).

Im Editor behalten (Speichern schreibt sie dort wieder hin) oder schließen?</translation>
    </message>
    <message>
        <source>%1 was deleted from disk. Your text is kept; saving writes it there again.</source>
        <translation>%1 wurde vom Datenträger gelöscht. Ihr Text bleibt erhalten; Speichern schreibt ihn dort wieder hin.</translation>
    </message>
    <message>
        <source>%1 was deleted from disk.</source>
        <translation>%1 wurde vom Datenträger gelöscht.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::StatusStrip</name>
    <message>
        <source>Line and column; click to go to a line</source>
        <translation>Zeile und Spalte; klicken, um zu einer Zeile zu springen</translation>
    </message>
    <message>
        <source>Encoding</source>
        <translation>Kodierung</translation>
    </message>
    <message>
        <source>Line ending</source>
        <translation>Zeilenende</translation>
    </message>
    <message>
        <source>Syntax colouring</source>
        <translation>Syntaxhervorhebung</translation>
    </message>
    <message>
        <source>Insert or overwrite typed text</source>
        <translation>Getippten Text einfügen oder überschreiben</translation>
    </message>
    <message>
        <source>Ln %1, Col %2</source>
        <translation>Z %1, Sp %2</translation>
    </message>
    <message numerus="yes">
        <source>(%n lines selected)</source>
        <translation>
            <numerusform>(%n Zeile ausgewählt)</numerusform>
            <numerusform>(%n Zeilen ausgewählt)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n chars</source>
        <translation>
            <numerusform>%n Zeichen</numerusform>
            <numerusform>%n Zeichen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 with BOM</source>
        <translation>%1 mit BOM</translation>
    </message>
    <message>
        <source>Plain Text</source>
        <translation>Reiner Text</translation>
    </message>
    <message>
        <source>OVR</source>
        <translation>ÜB</translation>
    </message>
    <message>
        <source>INS</source>
        <translation>EINF</translation>
    </message>
    <message numerus="yes">
        <source>%n lines</source>
        <translation>
            <numerusform>%n Zeile</numerusform>
            <numerusform>%n Zeilen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>koru::sedgui::SessionKeeper</name>
    <message>
        <source>Not reopened, no longer found: %1</source>
        <translation>Nicht wieder geöffnet, da nicht mehr vorhanden: %1</translation>
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
    <message>
        <source>No byte order mark: opened as %1.</source>
        <translation>Keine Bytereihenfolgemarke: als %1 geöffnet.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::WorkKeeper</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>Ungespeicherte Arbeit wiederherstellen</translation>
    </message>
    <message>
        <source>These recovery files could not be read and were moved to %1:

%2</source>
        <translation>Diese Wiederherstellungsdateien konnten nicht gelesen werden und wurden nach %1 verschoben:

%2</translation>
    </message>
    <message>
        <source>The editor ended while saving:

%1

The text that was being saved is offered back if it was not saved.</source>
        <translation>Der Editor wurde während des Speicherns beendet:

%1

Der Text, der gespeichert werden sollte, wird wieder angeboten, falls er nicht gespeichert wurde.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::ToolArgs</name>
    <message>
        <source>&quot;%1&quot; is not opened: it could mean the file with the characters written as \u{..} or \x{..}, or the file whose name spells them out, and both exist.</source>
        <translation>&quot;%1&quot; wird nicht geöffnet: gemeint sein kann die Datei mit den als \u{..} oder \x{..} geschriebenen Zeichen oder die Datei, deren Name sie ausschreibt, und beide gibt es.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::BinaryLock</name>
    <message>
        <source>This looks like a binary file, not text: it is shown read-only so that it is not changed by mistake.</source>
        <translation>Dies scheint eine Binärdatei zu sein, kein Text: sie wird schreibgeschützt angezeigt, damit sie nicht versehentlich geändert wird.</translation>
    </message>
    <message>
        <source>Edit Anyway</source>
        <translation>Trotzdem bearbeiten</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::TabKeeper</name>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>&amp;Andere schließen</translation>
    </message>
    <message>
        <source>Close to the &amp;Right</source>
        <translation>&amp;Rechts davon schließen</translation>
    </message>
    <message>
        <source>Copy &amp;Path</source>
        <translation>&amp;Pfad kopieren</translation>
    </message>
    <message>
        <source>Open Containing &amp;Folder</source>
        <translation>Übergeordneten &amp;Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::OtherEditorNotice</name>
    <message>
        <source>Another editor (process %1) has unsaved changes to %2 since %3: saving here may overwrite them, or they may overwrite yours.</source>
        <translation>Ein anderer Editor (Prozess %1) hat seit %3 ungespeicherte Änderungen an %2: Speichern hier kann sie überschreiben, oder sie überschreiben Ihre.</translation>
    </message>
</context>
<context>
    <name>koru::sedgui::ExternalChangesDialog</name>
    <message>
        <source>Files Changed on Disk</source>
        <translation>Dateien auf dem Datenträger geändert</translation>
    </message>
    <message>
        <source>These files have changed or were deleted on disk. Reload the checked ones, and close the checked ones that were deleted? A file with unsaved changes keeps your text unless you check it (Undo brings your text back).</source>
        <translation>Diese Dateien wurden auf dem Datenträger geändert oder gelöscht. Die markierten neu laden und die markierten gelöschten schließen? Eine Datei mit ungespeicherten Änderungen behält Ihren Text, wenn Sie sie nicht markieren (Rückgängig bringt Ihren Text zurück).</translation>
    </message>
    <message>
        <source>%1 (deleted from disk; checked: close it)</source>
        <translation>%1 (vom Datenträger gelöscht; markiert: schließen)</translation>
    </message>
    <message>
        <source>%1 (you have unsaved changes)</source>
        <translation>%1 (Sie haben ungespeicherte Änderungen)</translation>
    </message>
    <message>
        <source>&amp;Apply to Checked</source>
        <translation>Auf markierte &amp;anwenden</translation>
    </message>
    <message>
        <source>&amp;Keep All</source>
        <translation>&amp;Alle behalten</translation>
    </message>
</context>
<context>
    <name>EncodingChoices</name>
    <message>
        <source>Unicode</source>
        <translation>Unicode</translation>
    </message>
    <message>
        <source>Western European</source>
        <translation>Westeuropäisch</translation>
    </message>
    <message>
        <source>Central European</source>
        <translation>Mitteleuropäisch</translation>
    </message>
    <message>
        <source>South-Eastern European</source>
        <translation>Südosteuropäisch</translation>
    </message>
    <message>
        <source>South European</source>
        <translation>Südeuropäisch</translation>
    </message>
    <message>
        <source>Nordic</source>
        <translation>Nordisch</translation>
    </message>
    <message>
        <source>Celtic</source>
        <translation>Keltisch</translation>
    </message>
    <message>
        <source>Cyrillic</source>
        <translation>Kyrillisch</translation>
    </message>
    <message>
        <source>Greek</source>
        <translation>Griechisch</translation>
    </message>
    <message>
        <source>Turkish</source>
        <translation>Türkisch</translation>
    </message>
    <message>
        <source>Hebrew</source>
        <translation>Hebräisch</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>Arabisch</translation>
    </message>
    <message>
        <source>Baltic</source>
        <translation>Baltisch</translation>
    </message>
    <message>
        <source>Vietnamese</source>
        <translation>Vietnamesisch</translation>
    </message>
    <message>
        <source>Chinese Simplified</source>
        <translation>Chinesisch (vereinfacht)</translation>
    </message>
    <message>
        <source>Chinese Traditional</source>
        <translation>Chinesisch (traditionell)</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Koreanisch</translation>
    </message>
    <message>
        <source>Thai</source>
        <translation>Thailändisch</translation>
    </message>
    <message>
        <source>%1 with BOM</source>
        <translation>%1 mit BOM</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
</TS>
