<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>QuillmarEdit</name>
    <message>
        <source>About Quillmar</source>
        <translation>Über Quillmar</translation>
    </message>
    <message>
        <source>&lt;b&gt;Quillmar&lt;/b&gt; %1&lt;br&gt;A data-entry field that knows what it must contain.</source>
        <translation>&lt;b&gt;Quillmar&lt;/b&gt; %1&lt;br&gt;Ein Eingabefeld, das weiß, was es enthalten muss.</translation>
    </message>
    <message>
        <source>Not valid: %1</source>
        <translation>Ungültig: %1</translation>
    </message>
    <message>
        <source>Not valid</source>
        <translation>Ungültig</translation>
    </message>
</context>
<context>
    <name>QuillmarMessages</name>
    <message>
        <source>This field is required.</source>
        <translation>Dieses Feld muss ausgefüllt werden.</translation>
    </message>
    <message>
        <source>Invalid numeric entry.</source>
        <translation>Ungültige Zahleneingabe.</translation>
    </message>
    <message>
        <source>Invalid date entry.</source>
        <translation>Ungültige Datumseingabe.</translation>
    </message>
    <message>
        <source>Invalid time entry.</source>
        <translation>Ungültige Uhrzeiteingabe.</translation>
    </message>
    <message>
        <source>Invalid text entry.</source>
        <translation>Ungültige Texteingabe.</translation>
    </message>
    <message>
        <source>Invalid number of decimals. Maximum is %1.</source>
        <extracomment>%1 is the largest number of decimals the field takes.</extracomment>
        <translation>Ungültige Anzahl Nachkommastellen. Höchstens %1 sind zulässig.</translation>
    </message>
    <message>
        <source>%1 is required.</source>
        <extracomment>%1 is what the field requires, from the rules in words: &quot;An integer between 1 and 100&quot;.</extracomment>
        <translation>%1 ist erforderlich.</translation>
    </message>
    <message>
        <source>Value %1 is not allowed.</source>
        <extracomment>%1 is a forbidden number as the author wrote it.</extracomment>
        <translation>Der Wert %1 ist nicht zulässig.</translation>
    </message>
    <message>
        <source>Date %1 is not allowed.</source>
        <translation>Das Datum %1 ist nicht zulässig.</translation>
    </message>
    <message>
        <source>Time %1 is not allowed.</source>
        <translation>Die Uhrzeit %1 ist nicht zulässig.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not allowed.</source>
        <extracomment>%1 is a forbidden text; keep it quoted.</extracomment>
        <translation>„%1“ ist nicht zulässig.</translation>
    </message>
    <message>
        <source>This field must be in a form like %1.</source>
        <extracomment>%1 is an example text that fits the field&apos;s mask: &quot;AB-1234&quot;.</extracomment>
        <translation>Dieses Feld muss eine Form wie %1 haben.</translation>
    </message>
    <message>
        <source>Some of the characters in this text are not allowed.</source>
        <translation>Einige Zeichen in diesem Text sind nicht zulässig.</translation>
    </message>
    <message>
        <source>Only letters are allowed.</source>
        <translation>Nur Buchstaben sind zulässig.</translation>
    </message>
    <message>
        <source>Only letters and space are allowed.</source>
        <translation>Nur Buchstaben und Leerzeichen sind zulässig.</translation>
    </message>
    <message>
        <source>Digits are not allowed.</source>
        <translation>Ziffern sind nicht zulässig.</translation>
    </message>
    <message>
        <source>Only uppercase letters are allowed.</source>
        <translation>Nur Großbuchstaben sind zulässig.</translation>
    </message>
    <message>
        <source>Only lowercase letters are allowed.</source>
        <translation>Nur Kleinbuchstaben sind zulässig.</translation>
    </message>
    <message>
        <source>Only Proper Case text is allowed.</source>
        <translation>Nur Wörter mit großem Anfangsbuchstaben sind zulässig.</translation>
    </message>
    <message>
        <source>Maximum allowed length of the text is %1 character.</source>
        <translation>Der Text darf höchstens %1 Zeichen lang sein.</translation>
    </message>
    <message>
        <source>Maximum allowed length of the text is %1 characters.</source>
        <translation>Der Text darf höchstens %1 Zeichen lang sein.</translation>
    </message>
    <message>
        <source>Previous value returned.</source>
        <translation>Der vorherige Wert wurde wiederhergestellt.</translation>
    </message>
    <message>
        <source>Default value inserted.</source>
        <translation>Der Standardwert wurde eingesetzt.</translation>
    </message>
    <message>
        <source>Closest value inserted.</source>
        <translation>Der nächstliegende Wert wurde eingesetzt.</translation>
    </message>
    <message>
        <source>Invalid Entry</source>
        <extracomment>The title of the error message box while the author has not given one.</extracomment>
        <translation>Ungültige Eingabe</translation>
    </message>
    <message>
        <source>This entry is not valid.</source>
        <extracomment>Shown for an invalid field whose own message is empty, so that it always has a reason to show.</extracomment>
        <translation>Diese Eingabe ist ungültig.</translation>
    </message>
</context>
<context>
    <name>QuillmarRules</name>
    <message>
        <source>An integer</source>
        <translation>Eine ganze Zahl</translation>
    </message>
    <message>
        <source>A positive integer</source>
        <translation>Eine positive ganze Zahl</translation>
    </message>
    <message>
        <source>A negative integer</source>
        <translation>Eine negative ganze Zahl</translation>
    </message>
    <message>
        <source>A number</source>
        <translation>Eine Zahl</translation>
    </message>
    <message>
        <source>A positive number</source>
        <translation>Eine positive Zahl</translation>
    </message>
    <message>
        <source>A negative number</source>
        <translation>Eine negative Zahl</translation>
    </message>
    <message>
        <source>%1 between %2 and %3</source>
        <extracomment>%1 is &quot;An integer&quot;, &quot;A positive number&quot; ...; %2 and %3 are the bounds.</extracomment>
        <translation>%1 zwischen %2 und %3</translation>
    </message>
    <message>
        <source>%1 &gt;= %2</source>
        <translation>%1 &gt;= %2</translation>
    </message>
    <message>
        <source>%1 &lt;= %2</source>
        <translation>%1 &lt;= %2</translation>
    </message>
    <message>
        <source>A date</source>
        <translation>Ein Datum</translation>
    </message>
    <message>
        <source>A date between %1 and %2</source>
        <translation>Ein Datum zwischen dem %1 und dem %2</translation>
    </message>
    <message>
        <source>A date after %1</source>
        <translation>Ein Datum nach dem %1</translation>
    </message>
    <message>
        <source>A date before %1</source>
        <translation>Ein Datum vor dem %1</translation>
    </message>
    <message>
        <source>A time</source>
        <translation>Eine Uhrzeit</translation>
    </message>
    <message>
        <source>A time between %1 and %2</source>
        <translation>Eine Uhrzeit zwischen %1 und %2</translation>
    </message>
    <message>
        <source>A time after %1</source>
        <translation>Eine Uhrzeit nach %1</translation>
    </message>
    <message>
        <source>A time before %1</source>
        <translation>Eine Uhrzeit vor %1</translation>
    </message>
    <message>
        <source>%1, at most %2 decimal</source>
        <extracomment>%1 is the number rule in words, %2 the largest number of decimals (1).</extracomment>
        <translation>%1, höchstens %2 Nachkommastelle</translation>
    </message>
    <message>
        <source>%1, at most %2 decimals</source>
        <translation>%1, höchstens %2 Nachkommastellen</translation>
    </message>
    <message>
        <source>letters only</source>
        <extracomment>The text rules are joined by the separator below and begin with a capital letter.</extracomment>
        <translation>nur Buchstaben</translation>
    </message>
    <message>
        <source>letters and %1 only</source>
        <extracomment>%1 lists the characters the author allowed besides letters: &quot;- &apos;&quot;.</extracomment>
        <translation>nur Buchstaben und %1</translation>
    </message>
    <message>
        <source>letters and spaces only</source>
        <translation>nur Buchstaben und Leerzeichen</translation>
    </message>
    <message>
        <source>letters, spaces and %1 only</source>
        <translation>nur Buchstaben, Leerzeichen und %1</translation>
    </message>
    <message>
        <source>only %1</source>
        <extracomment>%1 lists the characters the field takes: &quot;0–9 space + - ( )&quot;.</extracomment>
        <translation>nur %1</translation>
    </message>
    <message>
        <source>no digits</source>
        <translation>keine Ziffern</translation>
    </message>
    <message>
        <source>lower case</source>
        <translation>Kleinbuchstaben</translation>
    </message>
    <message>
        <source>upper case</source>
        <translation>Großbuchstaben</translation>
    </message>
    <message>
        <source>Proper Case</source>
        <translation>große Anfangsbuchstaben</translation>
    </message>
    <message>
        <source>at most %1 character</source>
        <translation>höchstens %1 Zeichen</translation>
    </message>
    <message>
        <source>at most %1 characters</source>
        <translation>höchstens %1 Zeichen</translation>
    </message>
    <message>
        <source>like %1</source>
        <extracomment>%1 is an example text that fits the field&apos;s mask: &quot;AB-1234&quot;.</extracomment>
        <translation>wie %1</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>space</source>
        <extracomment>The space character in a list of characters.</extracomment>
        <translation>Leerzeichen</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <extracomment>The grey text of an empty number field: its lowest and highest value.</extracomment>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>≥ %1</source>
        <translation>≥ %1</translation>
    </message>
    <message>
        <source>≤ %1</source>
        <translation>≤ %1</translation>
    </message>
</context>
<context>
    <name>QuillmarTips</name>
    <message>
        <source>Only digits, &quot;:&quot; and AM or PM can be typed here</source>
        <translation>Hier sind nur Ziffern, „:“ und AM oder PM erlaubt</translation>
    </message>
    <message>
        <source>That would not make a time</source>
        <translation>Daraus wird keine gültige Uhrzeit</translation>
    </message>
    <message>
        <source>Only digits and / - . can be typed here</source>
        <translation>Hier sind nur Ziffern und / - . erlaubt</translation>
    </message>
    <message>
        <source>That would not make a date</source>
        <translation>Daraus wird kein gültiges Datum</translation>
    </message>
    <message>
        <source>Only digits can be typed here</source>
        <translation>Hier sind nur Ziffern erlaubt</translation>
    </message>
    <message>
        <source>The number already has a decimal separator</source>
        <translation>Die Zahl hat bereits ein Dezimaltrennzeichen</translation>
    </message>
    <message>
        <source>A digit group separator cannot go there</source>
        <translation>Ein Tausendertrennzeichen kann hier nicht stehen</translation>
    </message>
    <message>
        <source>Only whole numbers can be typed here</source>
        <translation>Hier sind nur ganze Zahlen erlaubt</translation>
    </message>
    <message>
        <source>The number must be positive</source>
        <translation>Die Zahl muss positiv sein</translation>
    </message>
    <message>
        <source>The number already has a minus sign</source>
        <translation>Die Zahl hat bereits ein Minuszeichen</translation>
    </message>
    <message>
        <source>A plus sign can only follow the E</source>
        <translation>Ein Pluszeichen kann nur direkt nach dem E stehen</translation>
    </message>
    <message>
        <source>That would not make a number</source>
        <translation>Daraus wird keine gültige Zahl</translation>
    </message>
    <message>
        <source>At most %1 decimal</source>
        <translation>Höchstens %1 Nachkommastelle</translation>
    </message>
    <message>
        <source>At most %1 decimals</source>
        <translation>Höchstens %1 Nachkommastellen</translation>
    </message>
    <message>
        <source>This character is not allowed here</source>
        <translation>Dieses Zeichen ist hier nicht zulässig</translation>
    </message>
    <message>
        <source>Only the field&apos;s own characters can be typed here</source>
        <translation>Hier sind nur die Zeichen dieses Feldes erlaubt</translation>
    </message>
    <message>
        <source>Only %1 can be typed here</source>
        <extracomment>%1 lists the characters the field takes: &quot;0–9 space + - ( )&quot;.</extracomment>
        <translation>Hier sind nur %1 erlaubt</translation>
    </message>
    <message>
        <source>Digits are not allowed here</source>
        <translation>Ziffern sind hier nicht zulässig</translation>
    </message>
    <message>
        <source>Only letters can be typed here</source>
        <translation>Hier sind nur Buchstaben erlaubt</translation>
    </message>
    <message>
        <source>Only letters and %1 can be typed here</source>
        <extracomment>%1 lists the characters the author allowed besides letters: &quot;- &apos;&quot;.</extracomment>
        <translation>Hier sind nur Buchstaben und %1 erlaubt</translation>
    </message>
    <message>
        <source>Only letters and spaces can be typed here</source>
        <translation>Hier sind nur Buchstaben und Leerzeichen erlaubt</translation>
    </message>
    <message>
        <source>Only letters, spaces and %1 can be typed here</source>
        <translation>Hier sind nur Buchstaben, Leerzeichen und %1 erlaubt</translation>
    </message>
    <message>
        <source>Numbers here are written like %1</source>
        <extracomment>%1 is an example number in the user&apos;s own notation: &quot;1,234.50&quot;.</extracomment>
        <translation>Zahlen werden hier wie %1 geschrieben</translation>
    </message>
</context>
</TS>
