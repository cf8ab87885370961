<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>quillmar-check</name>
    <message>
        <source>column %1: no field of the form has this name; not checked</source>
        <translation>Spalte %1: kein Feld des Formulars trägt diesen Namen; nicht geprüft</translation>
    </message>
    <message>
        <source>field %1: no column of the data has this name; not checked</source>
        <translation>Feld %1: keine Spalte der Daten trägt diesen Namen; nicht geprüft</translation>
    </message>
    <message>
        <source>%1 row</source>
        <translation>%1 Zeile</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 Zeilen</translation>
    </message>
    <message>
        <source>%1 value</source>
        <translation>%1 Wert</translation>
    </message>
    <message>
        <source>%1 values</source>
        <translation>%1 Werte</translation>
    </message>
    <message>
        <source>checked %1, %2: %3 broken</source>
        <translation>geprüft: %1, %2; %3 fehlerhaft</translation>
    </message>
</context>
</TS>
