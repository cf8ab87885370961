<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>ActionList</name>
    <message>
        <source>Insert closest value if possible</source>
        <translation>Nächstliegenden Wert einsetzen, wenn möglich</translation>
    </message>
    <message>
        <source>Insert default value if exist</source>
        <translation>Standardwert einsetzen, falls vorhanden</translation>
    </message>
    <message>
        <source>Return previous value if valid</source>
        <translation>Vorherigen Wert wiederherstellen, falls gültig</translation>
    </message>
    <message>
        <source>Return focus</source>
        <translation>Fokus zurückgeben</translation>
    </message>
</context>
<context>
    <name>quillmar::designer::QuillmarEditPlugin</name>
    <message>
        <source>Validated single-line entry field</source>
        <translation>Geprüftes einzeiliges Eingabefeld</translation>
    </message>
    <message>
        <source>A single-line entry field that sifts keystrokes and validates its text against declared rules: type, limits, mask, forbidden values. Edit the rules with &quot;Edit Validation Rules...&quot; on its context menu or by double-clicking it.</source>
        <translation>Ein einzeiliges Eingabefeld, das Tastendrücke filtert und seinen Text nach festgelegten Regeln prüft: Typ, Grenzen, Maske, verbotene Werte. Die Regeln bearbeiten Sie mit „Prüfregeln bearbeiten …“ im Kontextmenü oder per Doppelklick.</translation>
    </message>
</context>
<context>
    <name>quillmar::designer::QuillmarTaskMenu</name>
    <message>
        <source>Edit Validation Rules...</source>
        <translation>Prüfregeln bearbeiten …</translation>
    </message>
    <message>
        <source>Edit validation rules</source>
        <translation>Prüfregeln bearbeiten</translation>
    </message>
</context>
<context>
    <name>quillmar::pages::BehaviorPage</name>
    <message>
        <source>Behavior</source>
        <translation>Verhalten</translation>
    </message>
    <message>
        <source>InputSifting</source>
        <translation>InputSifting</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Weak</source>
        <translation>Schwach</translation>
    </message>
    <message>
        <source>Strong</source>
        <translation>Stark</translation>
    </message>
    <message>
        <source>ValidationMode</source>
        <translation>ValidationMode</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>SemiAutomatic</source>
        <translation>Halbautomatisch</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>This action cannot be moved!</source>
        <translation>Diese Aktion kann nicht verschoben werden.</translation>
    </message>
    <message>
        <source>This action cannot be unchecked!<byte value="xd"/>
(If validation active, this action is always present.)</source>
        <translation>Diese Aktion kann nicht abgewählt werden.<byte value="xd"/>
(Bei aktiver Prüfung ist sie immer dabei.)</translation>
    </message>
</context>
<context>
    <name>quillmar::pages::ErrorMsgPage</name>
    <message>
        <source>Error Message</source>
        <translation>Fehlermeldung</translation>
    </message>
    <message>
        <source>ErrorMessageMode</source>
        <translation>ErrorMessageMode</translation>
    </message>
    <message>
        <source>Basic (automatic)</source>
        <translation>Einfach (automatisch)</translation>
    </message>
    <message>
        <source>Advanced (automatic)</source>
        <translation>Ausführlich (automatisch)</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigener Text</translation>
    </message>
    <message>
        <source>A short message composed by the field.</source>
        <translation>Eine kurze Meldung, die das Feld selbst verfasst.</translation>
    </message>
    <message>
        <source>A message composed by the field that names every rule the entry breaks.</source>
        <translation>Eine vom Feld verfasste Meldung, die jede verletzte Regel nennt.</translation>
    </message>
    <message>
        <source>The text typed below as ErrorMessage.</source>
        <translation>Der unten als ErrorMessage eingegebene Text.</translation>
    </message>
    <message>
        <source>MessageBoxIcon</source>
        <translation>MessageBoxIcon</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Exclamation</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Critical</source>
        <translation>Kritisch</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
    <message>
        <source>MessageBoxTitle:</source>
        <translation>MessageBoxTitle:</translation>
    </message>
    <message>
        <source>ErrorMessage:</source>
        <translation>ErrorMessage:</translation>
    </message>
</context>
<context>
    <name>quillmar::pages::GeneralPage</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>MustBeType:</source>
        <translation>MustBeType:</translation>
    </message>
    <message>
        <source>Text (Value):</source>
        <translation>Text (Wert):</translation>
    </message>
    <message>
        <source>DefaultValue:</source>
        <translation>DefaultValue:</translation>
    </message>
    <message>
        <source>RequiredField</source>
        <translation>RequiredField</translation>
    </message>
    <message>
        <source>Add New</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove Selected</source>
        <translation>Auswahl entfernen</translation>
    </message>
    <message>
        <source>Unspecified</source>
        <translation>Nicht festgelegt</translation>
    </message>
    <message>
        <source>String</source>
        <translation>Zeichenkette</translation>
    </message>
    <message>
        <source>Byte</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>Integer</source>
        <translation>Integer</translation>
    </message>
    <message>
        <source>Long</source>
        <translation>Long</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Single</translation>
    </message>
    <message>
        <source>Double</source>
        <translation>Double</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>DefaultValue is in a collision with Min/Max range.</source>
        <translation>DefaultValue liegt außerhalb des Bereichs von MinValue bis MaxValue.</translation>
    </message>
    <message>
        <source>Property Page: DefaultValue</source>
        <translation>Eigenschaftsseite: DefaultValue</translation>
    </message>
    <message>
        <source>DefaultValue is in a collision with an item in the MustNotBeValues list!</source>
        <translation>DefaultValue steht in der Liste MustNotBeValues.</translation>
    </message>
    <message>
        <source>Some of the items in the MustNotBeValues list are incompatible with the current settings.<byte value="xd"/>
Would you like them to be removed from the list?<byte value="xd"/>
</source>
        <translation>Einige Einträge der Liste MustNotBeValues passen nicht zu den aktuellen Einstellungen.<byte value="xd"/>
Sollen sie aus der Liste entfernt werden?<byte value="xd"/>
</translation>
    </message>
    <message>
        <source>Property Page: MustNotBeValues</source>
        <translation>Eigenschaftsseite: MustNotBeValues</translation>
    </message>
</context>
<context>
    <name>quillmar::pages::NumDTPage</name>
    <message>
        <source>Number/Date,Time</source>
        <translation>Zahl/Datum, Uhrzeit</translation>
    </message>
    <message>
        <source>ThousandSeparator:</source>
        <translation>ThousandSeparator:</translation>
    </message>
    <message>
        <source>MaxNumberOfDecimals:</source>
        <translation>MaxNumberOfDecimals:</translation>
    </message>
    <message>
        <source>MaxRelativeAccuracy:</source>
        <translation>MaxRelativeAccuracy:</translation>
    </message>
    <message>
        <source>MinValue:</source>
        <translation>MinValue:</translation>
    </message>
    <message>
        <source>MaxValue:</source>
        <translation>MaxValue:</translation>
    </message>
    <message>
        <source>Forbidden</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Erlaubt</translation>
    </message>
    <message>
        <source>MaxValue must be &gt;= than MinValue.</source>
        <translation>MaxValue muss größer oder gleich MinValue sein.</translation>
    </message>
    <message>
        <source>Property Page: Min/MaxValue</source>
        <translation>Eigenschaftsseite: MinValue/MaxValue</translation>
    </message>
    <message>
        <source>MaxValue is in a collision with the DefaultValue.</source>
        <translation>MaxValue widerspricht dem DefaultValue.</translation>
    </message>
    <message>
        <source>Property Page: MaxValue</source>
        <translation>Eigenschaftsseite: MaxValue</translation>
    </message>
    <message>
        <source>MinValue is in a collision with the DefaultValue.</source>
        <translation>MinValue widerspricht dem DefaultValue.</translation>
    </message>
    <message>
        <source>Property Page: MinValue</source>
        <translation>Eigenschaftsseite: MinValue</translation>
    </message>
</context>
<context>
    <name>quillmar::pages::PropertyPageFrame</name>
    <message>
        <source>Property Pages</source>
        <translation>Eigenschaftsseiten</translation>
    </message>
    <message>
        <source>Properties of %1</source>
        <translation>Eigenschaften von %1</translation>
    </message>
    <message numerus="yes">
        <source>Properties of %n fields</source>
        <translation>
            <numerusform>Eigenschaften von %n Feld</numerusform>
            <numerusform>Eigenschaften von %n Feldern</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>quillmar::pages::TextPage</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>A pattern the whole text must match: ? any character, * any run of characters, # a digit, [a-z] one character of a list, [!0-9] one character not in it.</source>
        <translation>Ein Muster, dem der ganze Text entsprechen muss: ? ein beliebiges Zeichen, * beliebig viele Zeichen, # eine Ziffer, [a-z] ein Zeichen der Liste, [!0-9] ein Zeichen außerhalb der Liste.</translation>
    </message>
    <message>
        <source>Characters allowed whatever the set, letter and digit rules say.</source>
        <translation>Zeichen, die unabhängig von Zeichensatz-, Buchstaben- und Ziffernregeln erlaubt sind.</translation>
    </message>
    <message>
        <source>Characters never allowed, even when included.</source>
        <translation>Zeichen, die nie erlaubt sind, auch wenn sie eingeschlossen wurden.</translation>
    </message>
    <message>
        <source>When not empty, the only characters allowed (besides the included ones).</source>
        <translation>Wenn nicht leer: die einzigen erlaubten Zeichen (neben den eingeschlossenen).</translation>
    </message>
    <message>
        <source>CustomMask:</source>
        <translation>CustomMask:</translation>
    </message>
    <message>
        <source>ExtraIncludedCharacters:</source>
        <translation>ExtraIncludedCharacters:</translation>
    </message>
    <message>
        <source>ExtraExcludedCharacters:</source>
        <translation>ExtraExcludedCharacters:</translation>
    </message>
    <message>
        <source>ValidCharactersSet:</source>
        <translation>ValidCharactersSet:</translation>
    </message>
    <message>
        <source>Character rules</source>
        <translation>Zeichenregeln</translation>
    </message>
    <message>
        <source>Case rules</source>
        <translation>Regeln für Groß- und Kleinschreibung</translation>
    </message>
</context>
</TS>
