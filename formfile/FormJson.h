#pragma once

#include "base/LocaleInfo.h"
#include "formfile/FormDocument.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// A form read from JSON, or the one line that says why there is none.
struct [[nodiscard]] FormResult {
    /// The form; nullopt when reading failed.
    std::optional<FormDocument> document;
    /// Empty on success; otherwise one line naming the source, where relevant the control and the entry,
    /// and what is wrong: `orders.qform.json: control "Quantity", entry "MaxValue": expected a value of
    /// type Double, got "abc"`.
    std::string error;
};

/// Reads a form from its JSON text. The document is an object with "title" (text), "width" and "height"
/// (integers), optionally "showRefusalTips" and "showInlineState" (true or false; absent reads as false) and
/// "controls", an array of objects with "name" (unique, not empty), "label", optionally
/// "toolTip" (absent reads as empty), "left", "top", "width", "height" and "properties": an object of
/// entries in store order, each {"type": kind, "value": value} where the kind is a `quillmar::KindName`;
/// a ByteArray's value is base64 or, for bytes that hold a property store, that store's entries as a JSON
/// object in the same notation; a Currency's a decimal text with up to four decimals, a Date's the count of
/// days, an Array's an array of such entries. A field of any other name, at any level, is refused, so that
/// a misspelt option is never quietly off. The form must then pass `CheckFormDocument` under `locale`. Any
/// fault gives one error line naming `sourceName` and never a partial form; nothing throws, and nesting
/// deeper than 64 levels is refused.
[[nodiscard]] FormResult ParseFormJson(std::string_view json, std::string_view sourceName,
    const LocaleInfo& locale = LocaleInfo::FromEnvironment());

/// Reads the form file at `path` (at most 16 MiB) with `ParseFormJson` under `locale`, naming the path as
/// given in errors.
[[nodiscard]] FormResult LoadFormFile(
    const std::filesystem::path& path, const LocaleInfo& locale = LocaleInfo::FromEnvironment());

/// The form as pretty-printed JSON in the layout `ParseFormJson` reads, one entry a line in store order.
/// The two lists ("MustNotBeValues", "Actions") are written as the readable entries of the store their
/// bytes hold ("NEl", "1N" ... with their kinds), which read back into the same bytes; any other byte array
/// is base64. `ParseFormJson(FormToJson(d), ...)` gives `d` back for a `d` that passes `CheckFormDocument`.
[[nodiscard]] std::string FormToJson(const FormDocument& document);

} // namespace quillmar
