#!/usr/bin/env python3
"""Writes a pseudo-translation of a Qt Linguist source: every text bracketed ("[Quantity]"), so that a
text shown without brackets is one that escaped translation. Usage: pseudo-translate.py IN.ts OUT.ts"""
import sys
import xml.etree.ElementTree as ET

tree = ET.parse(sys.argv[1])
root = tree.getroot()
root.set("language", "en_ZZ")
for message in root.iter("message"):
    source = message.find("source")
    translation = message.find("translation")
    if translation is None:
        translation = ET.SubElement(message, "translation")
    translation.attrib.clear()
    if message.get("numerus") == "yes":
        for form in list(translation):
            translation.remove(form)
        ET.SubElement(translation, "numerusform").text = "[" + source.text + "]"
    else:
        translation.text = "[" + (source.text or "") + "]"
tree.write(sys.argv[2], encoding="utf-8", xml_declaration=True)
