<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>FieldNames</name>
    <message>
        <source>A field needs a name.</source>
        <translation>Ein Feld braucht einen Namen.</translation>
    </message>
    <message>
        <source>Another field of this form is already named &quot;%1&quot;.</source>
        <translation>Ein anderes Feld dieses Formulars heißt bereits „%1“.</translation>
    </message>
</context>
<context>
    <name>RecordStore</name>
    <message>
        <source>another program is writing to the database (it is locked); try again in a moment</source>
        <translation>ein anderes Programm schreibt gerade in die Datenbank (sie ist gesperrt); versuchen Sie es gleich noch einmal</translation>
    </message>
    <message>
        <source>the database can only be read (the file or its folder is read-only)</source>
        <translation>die Datenbank kann nur gelesen werden (die Datei oder ihr Ordner ist schreibgeschützt)</translation>
    </message>
    <message>
        <source>the database file cannot be opened or created there</source>
        <translation>die Datenbankdatei kann dort weder geöffnet noch angelegt werden</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the file is not a readable SQLite database</source>
        <translation>die Datei ist keine lesbare SQLite-Datenbank</translation>
    </message>
    <message>
        <source>SQLite reports: </source>
        <translation>SQLite meldet: </translation>
    </message>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>der Ordner %1 existiert nicht</translation>
    </message>
    <message>
        <source>the database file cannot be created there (%1)</source>
        <translation>die Datenbankdatei kann dort nicht angelegt werden (%1)</translation>
    </message>
    <message>
        <source>Qt's SQLite driver is not installed (package libqt6sql6-sqlite)</source>
        <translation>der SQLite-Treiber von Qt ist nicht installiert (Paket libqt6sql6-sqlite)</translation>
    </message>
    <message>
        <source>%1 is %2 where the form needs %3</source>
        <translation>%1 ist %2, das Formular braucht aber %3</translation>
    </message>
    <message>
        <source>it has no column for %1</source>
        <translation>ihr fehlt eine Spalte für %1</translation>
    </message>
    <message>
        <source>its column %1</source>
        <translation>ihre Spalte %1</translation>
    </message>
    <message>
        <source>, its column </source>
        <translation>, ihre Spalte </translation>
    </message>
    <message>
        <source>the table %1 no longer matches this form: %2</source>
        <translation>die Tabelle %1 passt nicht mehr zu diesem Formular: %2</translation>
    </message>
</context>
<context>
    <name>SubmitSummary</name>
    <message>
        <source>The record was not stored. Please correct this field:</source>
        <translation>Der Datensatz wurde nicht gespeichert. Bitte korrigieren Sie dieses Feld:</translation>
    </message>
    <message>
        <source>The record was not stored. Please correct these %1 fields:</source>
        <translation>Der Datensatz wurde nicht gespeichert. Bitte korrigieren Sie diese %1 Felder:</translation>
    </message>
</context>
<context>
    <name>quillmar-forms</name>
    <message>
        <source>Runs a Quillmar form file, or designs one (--design).</source>
        <translation>Führt eine Quillmar-Formulardatei aus oder entwirft eine (--design).</translation>
    </message>
    <message>
        <source>The form file (the example orders form by default).</source>
        <translation>Die Formulardatei (ohne Angabe das Beispiel-Bestellformular).</translation>
    </message>
    <message>
        <source>Shows the form, saves a picture of its window to &lt;file&gt; and quits.</source>
        <translation>Zeigt das Formular, speichert ein Bild seines Fensters in &lt;file&gt; und beendet sich.</translation>
    </message>
    <message>
        <source>Stores the records in &lt;file&gt; (by default beside the form, named after it: orders.qform.json stores in orders.sqlite; the example form&apos;s in the user&apos;s data folder, $XDG_DATA_HOME/quillmar or ~/.local/share/quillmar).</source>
        <translation>Speichert die Datensätze in &lt;file&gt; (ohne Angabe neben dem Formular und nach ihm benannt: orders.qform.json speichert in orders.sqlite; die des Beispielformulars im Datenordner des Benutzers, $XDG_DATA_HOME/quillmar oder ~/.local/share/quillmar).</translation>
    </message>
    <message>
        <source>Starts the field &lt;name&gt; with &lt;text&gt; (repeatable).</source>
        <translation>Beginnt das Feld &lt;name&gt; mit &lt;text&gt; (wiederholbar).</translation>
    </message>
    <message>
        <source>With --screenshot: submits the form as filled and pictures the box that answers (the window when the record is stored).</source>
        <translation>Mit --screenshot: sendet das Formular wie ausgefüllt ab und bildet das Antwortfenster ab (das Formularfenster, wenn der Datensatz gespeichert wird).</translation>
    </message>
    <message>
        <source>Opens the form (a new empty form when none is named) in design mode.</source>
        <translation>Öffnet das Formular (ein neues, leeres, wenn keines angegeben ist) im Entwurfsmodus.</translation>
    </message>
    <message>
        <source>With --design: selects the field &lt;name&gt; (repeatable).</source>
        <translation>Mit --design: wählt das Feld &lt;name&gt; aus (wiederholbar).</translation>
    </message>
    <message>
        <source>With --design: opens the property pages on the selected fields.</source>
        <translation>Mit --design: öffnet die Eigenschaftsseiten der ausgewählten Felder.</translation>
    </message>
    <message>
        <source>Gives the field &lt;name&gt; the focus and types &lt;keys&gt; into it, as a person would; with --screenshot the picture is taken of the screen, so that a tip the field shows is in it.</source>
        <translation>Gibt dem Feld &lt;name&gt; den Fokus und tippt &lt;keys&gt; hinein, wie ein Mensch es täte; mit --screenshot wird der Bildschirm aufgenommen, sodass ein Hinweis des Feldes darauf zu sehen ist.</translation>
    </message>
</context>
<context>
    <name>quillmar::forms::DesignPages</name>
    <message>
        <source>Properties of %1</source>
        <translation>Eigenschaften von %1</translation>
    </message>
    <message>
        <source>Properties of %1 fields</source>
        <translation>Eigenschaften von %1 Feldern</translation>
    </message>
</context>
<context>
    <name>quillmar::forms::DesignWindow</name>
    <message>
        <source>Fields</source>
        <translation>Felder</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Schl&amp;ießen</translation>
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
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>Propert&amp;ies...</source>
        <translation>&amp;Eigenschaften …</translation>
    </message>
    <message>
        <source>Earlier in Tab &amp;Order</source>
        <translation>In der &amp;Tab-Reihenfolge früher</translation>
    </message>
    <message>
        <source>&amp;Later in Tab Order</source>
        <translation>In der Tab-Reihenfolge &amp;später</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>&amp;Field</source>
        <translation>&amp;Feld</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>Click on the form where the new field goes</source>
        <translation>Klicken Sie auf die Stelle im Formular, an die das neue Feld kommt</translation>
    </message>
    <message>
        <source>For&amp;mat</source>
        <translation>For&amp;mat</translation>
    </message>
    <message>
        <source>Align &amp;Lefts</source>
        <translation>&amp;Links ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Rights</source>
        <translation>&amp;Rechts ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Tops</source>
        <translation>&amp;Oben ausrichten</translation>
    </message>
    <message>
        <source>Align &amp;Bottoms</source>
        <translation>&amp;Unten ausrichten</translation>
    </message>
    <message>
        <source>Make Same &amp;Width</source>
        <translation>Gleiche &amp;Breite</translation>
    </message>
    <message>
        <source>Make Same &amp;Height</source>
        <translation>Gleiche &amp;Höhe</translation>
    </message>
    <message>
        <source>Make Same &amp;Size</source>
        <translation>Gleiche &amp;Größe</translation>
    </message>
    <message>
        <source>F&amp;orm</source>
        <translation>F&amp;ormular</translation>
    </message>
    <message>
        <source>&amp;Design</source>
        <translation>&amp;Entwerfen</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>Toolbox</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>The fields on the clipboard cannot be pasted:
%1</source>
        <translation>Die Felder in der Zwischenablage können nicht eingefügt werden:
%1</translation>
    </message>
    <message>
        <source>A form holds at most %1 fields; this one has %2 and the clipboard %3.</source>
        <translation>Ein Formular fasst höchstens %1 Felder; dieses hat %2 und die Zwischenablage %3.</translation>
    </message>
    <message>
        <source>Field Name</source>
        <translation>Feldname</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot name this field. %2</source>
        <translation>„%1“ kann nicht der Name dieses Feldes sein. %2</translation>
    </message>
    <message>
        <source>the new form</source>
        <translation>das neue Formular</translation>
    </message>
    <message>
        <source>Run Form</source>
        <translation>Formular ausführen</translation>
    </message>
    <message>
        <source>Records of this form cannot be stored in %1:
%2.</source>
        <translation>Datensätze dieses Formulars können nicht in %1 gespeichert werden:
%2.</translation>
    </message>
    <message>
        <source>New form</source>
        <translation>Neues Formular</translation>
    </message>
    <message>
        <source>%1[*] — Quillmar Forms Designer</source>
        <translation>%1[*] — Quillmar Forms Designer</translation>
    </message>
    <message>
        <source>Open Form</source>
        <translation>Formular öffnen</translation>
    </message>
    <message>
        <source>Save Form As</source>
        <translation>Formular speichern unter</translation>
    </message>
    <message>
        <source>Save Form</source>
        <translation>Formular speichern</translation>
    </message>
    <message>
        <source>%1

The file on disk is as it was, and the form is still open here.</source>
        <translation>%1

Die Datei auf der Festplatte ist unverändert, und das Formular ist hier weiterhin geöffnet.</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Ungespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>Änderungen an %1 speichern?</translation>
    </message>
</context>
<context>
    <name>quillmar::forms::FieldPanel</name>
    <message>
        <source>Say why a &amp;key was refused</source>
        <translation>&amp;Begründen, warum eine Taste abgewiesen wurde</translation>
    </message>
    <message>
        <source>A short tip at the caret names the rule that refused a key or a paste</source>
        <translation>Ein kurzer Hinweis an der Schreibmarke nennt die Regel, die eine Taste oder ein Einfügen abgewiesen hat</translation>
    </message>
    <message>
        <source>Mark &amp;broken rules in the field</source>
        <translation>&amp;Verletzte Regeln im Feld markieren</translation>
    </message>
    <message>
        <source>A field whose text breaks a rule shows a red frame and an icon</source>
        <translation>Ein Feld, dessen Text eine Regel verletzt, zeigt einen roten Rahmen und ein Symbol</translation>
    </message>
    <message>
        <source>Ea&amp;rlier</source>
        <translation>&amp;Früher</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Form &amp;title:</source>
        <translation>Formular&amp;titel:</translation>
    </message>
    <message>
        <source>Selected field</source>
        <translation>Ausgewähltes Feld</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>L&amp;abel:</source>
        <translation>&amp;Beschriftung:</translation>
    </message>
    <message>
        <source>Tool ti&amp;p:</source>
        <translation>&amp;Kurzinfo:</translation>
    </message>
    <message>
        <source>Tab order</source>
        <translation>Tab-Reihenfolge</translation>
    </message>
</context>
<context>
    <name>quillmar::forms::FormWindow</name>
    <message>
        <source>%1 — Quillmar Forms</source>
        <translation>%1 — Quillmar Forms</translation>
    </message>
    <message>
        <source>&amp;Submit</source>
        <translation>&amp;Absenden</translation>
    </message>
    <message>
        <source>Stores the record (Ctrl+Return)</source>
        <translation>Speichert den Datensatz (Strg+Eingabe)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Schl&amp;ießen</translation>
    </message>
    <message>
        <source>Records go to %1 · Form: %2</source>
        <translation>Datensätze in %1 · Formular: %2</translation>
    </message>
    <message>
        <source>Open Form</source>
        <translation>Formular öffnen</translation>
    </message>
    <message>
        <source>Records cannot be stored in %1: %2</source>
        <translation>Datensätze können nicht in %1 gespeichert werden: %2</translation>
    </message>
    <message>
        <source>The form cannot be opened:
%1</source>
        <translation>Das Formular kann nicht geöffnet werden:
%1</translation>
    </message>
    <message>
        <source>Records cannot be stored in %1: %2 · Form: %3</source>
        <translation>Datensätze können nicht in %1 gespeichert werden: %2 · Formular: %3</translation>
    </message>
    <message>
        <source>Record not stored</source>
        <translation>Datensatz nicht gespeichert</translation>
    </message>
    <message>
        <source>The record could not be stored in %1:
%2.

Everything you typed is still in the form.</source>
        <translation>Der Datensatz konnte nicht in %1 gespeichert werden:
%2.

Alles, was Sie eingegeben haben, steht noch im Formular.</translation>
    </message>
    <message>
        <source>1 record</source>
        <translation>1 Datensatz</translation>
    </message>
    <message>
        <source>%1 records</source>
        <translation>%1 Datensätze</translation>
    </message>
    <message>
        <source>Record stored: %1 holds %2 · Form: %3</source>
        <translation>Datensatz gespeichert: %1 enthält %2 · Formular: %3</translation>
    </message>
    <message>
        <source>Close the form</source>
        <translation>Formular schließen</translation>
    </message>
    <message>
        <source>What is typed in this form has not been stored. Close it anyway?</source>
        <translation>Die Eingaben in diesem Formular wurden nicht gespeichert. Trotzdem schließen?</translation>
    </message>
</context>
</TS>
