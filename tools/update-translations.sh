#!/bin/sh
# Brings the translation sources of a language (German by default) up to date with the texts in the code:
# tools/update-translations.sh [LANGUAGE], e.g. fr_FR; then translate the new entries in Qt Linguist
# (/usr/lib/qt6/bin/linguist i18n/*_fr.ts) and rebuild. The control's texts are read from the files that
# hold them: a new file of qt/ with texts goes in the first list.
set -e
cd "$(dirname "$0")/.."
language=${1:-de_DE}
suffix=${language%%_*}
lupdate="/usr/lib/qt6/bin/lupdate -I . -tr-function-alias QT_TRANSLATE_NOOP+=QUILLMAR_TEXT -locations none -no-obsolete -target-language $language"
$lupdate validation/MessageCatalogue.cpp qt/QtServices.cpp qt/FieldHints.cpp -ts "i18n/control_$suffix.ts"
$lupdate pages designer -ts "i18n/pages_$suffix.ts"
$lupdate apps/forms -ts "i18n/forms_$suffix.ts"
$lupdate apps/check -ts "i18n/check_$suffix.ts"
