#pragma once

#include "validation/MessageCatalogue.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

// Marks a text of the report for translation in its context, where the translation tools find it; the text
// itself is the English.
#ifndef QT_TRANSLATE_NOOP
#define QT_TRANSLATE_NOOP(context, text) text
#endif

namespace quillmar::check {

/// The words quillmar-check writes: the lines of its report and the fields' messages, in the product's
/// English or in a language the product ships a translation for.
class CheckTexts {
public:
    virtual ~CheckTexts() = default;
    /// The catalogue the fields' messages are composed from.
    [[nodiscard]] virtual const MessageCatalogue& Messages() const = 0;
    /// `english` (a text of the report marked in the "quillmar-check" context), translated, with %1, %2 ...
    /// replaced by `args` (UTF-8).
    [[nodiscard]] virtual std::string Text(
        const char* english, std::span<const std::string_view> args) const = 0;
};

/// The product's English.
[[nodiscard]] const CheckTexts& EnglishCheckTexts();

/// The texts in the language of `locale` (a locale name, "de_DE"). English needs nothing more; any other
/// language loads the translations, which link Qt, from the module installed beside the program, so a check
/// in English never loads Qt. Null for English; a text with no translation in the language stays English.
/// A module that cannot be loaded is told in `problem` (and null returned: the check stays in English).
[[nodiscard]] std::unique_ptr<const CheckTexts> LoadCheckTexts(std::string_view locale, std::string& problem);

/// The function the translations module exports: the texts for a locale name. The caller owns what it
/// returns.
using CheckTextsFactory = const CheckTexts* (*)(const char* locale);
inline constexpr const char* kCheckTextsFactory = "quillmar_check_texts";

} // namespace quillmar::check
