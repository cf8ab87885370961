#pragma once

#include <quillmar/TextsExport.h>

#include <quillmar/validation/MessageCatalogue.h>

#include <memory>

class QLocale;

namespace quillmar {

/// The catalogue of the Qt hosts: each text through `QCoreApplication::translate` with the text's own
/// context, so that an installed translation replaces it; with none installed, the product's English,
/// character for character. Safe to use from any thread.
[[nodiscard]] QUILLMAR_TEXTS_EXPORT const MessageCatalogue& TranslatedMessages();

/// The control's messages in the language of `locale`, read from the translation embedded in the program,
/// whatever the application installed. Needs no application object, so that a library loaded into another
/// program (the SQLite extension) speaks the user's language. English when the product ships no translation
/// for the locale's languages.
[[nodiscard]] QUILLMAR_TEXTS_EXPORT std::shared_ptr<const MessageCatalogue> MessagesFor(
    const QLocale& locale);

/// Installs the product's translations for `locale` in the application: of every Quillmar library linked
/// into the program (the control, the pages, the applications), the one that best fits the locale's
/// languages ("de_DE" takes German), replacing those an earlier call installed. English, or a language the
/// product does not ship, installs nothing and leaves the product's English. Returns how many translations
/// were installed. Call it from the thread of the application object, after that object is made and before
/// the windows are: a widget takes its texts when it is made, and a field composes each message when it
/// shows it.
QUILLMAR_TEXTS_EXPORT int InstallTranslations(const QLocale& locale);

/// Installs Qt's own translation ("qtbase": the standard buttons, "Abbrechen", "Ja", "Nein") for `locale`
/// from Qt's translations folder (`QLibraryInfo::TranslationsPath`), replacing one an earlier call
/// installed. Returns whether one was found; nothing is installed for English.
QUILLMAR_TEXTS_EXPORT bool InstallQtTranslation(const QLocale& locale);

} // namespace quillmar
