#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/LocaleInfo.h>
#include <quillmar/formfile/FormDocument.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// The name of the form file's JSON Schema, installed as `share/quillmar/schema/qform.schema.json`; a
/// saved form names it in its "$schema" field, which reading accepts with any text.
inline constexpr std::string_view kFormSchemaName = "qform.schema.json";

/// A form read from JSON, or the one line that says why there is none.
struct [[nodiscard]] FormResult {
    /// The form; nullopt when reading failed.
    std::optional<FormDocument> document;
    /// Empty on success; otherwise one line naming the source, where relevant the control and the entry,
    /// and what is wrong: `orders.qform.json: control "Quantity", entry "MaxValue": expected a value of
    /// type Double, got "abc"`.
    std::string error;
};

/// Reads a form from its JSON text. The document is an object with optionally "$schema" (text), "title"
/// (text), "width" and "height" (integers), optionally "font" ({"name": text, "size": points}; absent reads
/// as MS Sans Serif 8.25, the font a field reads when it stores none), optionally "showRefusalTips" and
/// "showInlineState" (true or false; absent reads as false) and "controls", an array of objects with "name"
/// (unique, not empty), "label", optionally "toolTip" (absent reads as empty), "left", "top", "width",
/// "height" and "properties": an object of entries in store order, each in the readable notation
/// (`"MaxLength": 40`, `"MustBeType": "vldDate"`,
/// `"MinValue": {"Date": "2020-01-01"}`, the lists as arrays; see `formtext::ReadableEntryFromJson`) or in
/// the older type-tagged one ({"type": kind, "value": value}, a list's store as its entries in the same
/// notation). A field of any other name, at any level, is refused, so that
/// a misspelt option is never quietly off. The form must then pass `CheckFormDocument` under `locale`. Any
/// fault gives one error line naming `sourceName` and never a partial form; nothing throws, and nesting
/// deeper than 64 levels is refused.
[[nodiscard]] QUILLMAR_CORE_EXPORT FormResult ParseFormJson(std::string_view json,
    std::string_view sourceName, const LocaleInfo& locale = LocaleInfo::FromEnvironment());

/// Reads the form file at `path` (at most 16 MiB) with `ParseFormJson` under `locale`, naming the path as
/// given in errors.
[[nodiscard]] QUILLMAR_CORE_EXPORT FormResult LoadFormFile(
    const std::filesystem::path& path, const LocaleInfo& locale = LocaleInfo::FromEnvironment());

/// The form as pretty-printed JSON in the layout `ParseFormJson` reads, one entry a line in store order, each
/// in the readable notation. `ParseFormJson(FormToJson(d), ...)` gives `d` back for a `d` that passes
/// `CheckFormDocument`.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::string FormToJson(const FormDocument& document);

} // namespace quillmar
