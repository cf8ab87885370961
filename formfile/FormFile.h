#pragma once

#include "base/LocaleInfo.h"
#include "base/MemoryPropertyStore.h"
#include "control/Quillmar.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// One field of a form: the name its control is known by (the extender name), the label shown beside it,
/// its place and size in pixels, its properties as `WriteProperties` wrote them, and the tool tip it shows
/// (the extender's ToolTipText; empty for none).
struct FormControl {
    std::u16string name;
    std::u16string label;
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    quillmar::MemoryPropertyStore properties;
    std::u16string toolTip;
    friend bool operator==(const FormControl&, const FormControl&) = default;
};

/// The largest form size, field size and distance of a field from the form's corner, in pixels.
inline constexpr int32_t kMaxFormExtent = 10000;
/// The most fields a form holds.
inline constexpr size_t kMaxFormFields = 1000;

/// A form: its title, its client size in pixels, its fields in tab order, and the hints every field of it
/// gives while it is filled in.
struct FormDocument {
    std::u16string title;
    int32_t width = 0;
    int32_t height = 0;
    std::vector<FormControl> controls;
    /// A short tip at the caret naming the rule that refused a key or a paste.
    bool showRefusalTips = false;
    /// A frame colour and an icon in a field whose text breaks one of its rules.
    bool showInlineState = false;
    friend bool operator==(const FormDocument&, const FormDocument&) = default;
};

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

/// Checks a form as the control would take it: at most `kMaxFormFields` fields, each named (not empty, no
/// two names equal ignoring ASCII case, as database columns are), placed within `kMaxFormExtent`, and its
/// entries as `FieldEntriesFault` takes them: each a property the control writes, of the kind it writes it
/// in, with a value its writer accepts (a `MaxLength` of 0 or more, a `MustBeType` of 0 to 9, a
/// `MessageBoxIcon` of 0 to 4 ...; the two lists a property store with "NEl" and the items "1N" to its
/// count, `Actions` exactly three flag words), and limits and a default value that leave room for each other
/// when read under `locale` (the locale the form's fields will follow). Returns nullopt, or one line naming
/// `sourceName`, the control and the entry or entries, and what is wrong.
[[nodiscard]] std::optional<std::string> CheckFormDocument(const FormDocument& document,
    std::string_view sourceName, const LocaleInfo& locale = LocaleInfo::FromEnvironment());

/// Reads the form file at `path` (at most 16 MiB) with `ParseFormJson` under `locale`, naming the path as
/// given in errors.
[[nodiscard]] FormResult LoadFormFile(
    const std::filesystem::path& path, const LocaleInfo& locale = LocaleInfo::FromEnvironment());

/// The form as pretty-printed JSON in the layout `ParseFormJson` reads, one entry a line in store order.
/// The two lists ("MustNotBeValues", "Actions") are written as the readable entries of the store their
/// bytes hold ("NEl", "1N" ... with their kinds), which read back into the same bytes; any other byte array
/// is base64. `ParseFormJson(FormToJson(d), ...)` gives `d` back for a `d` that passes `CheckFormDocument`.
[[nodiscard]] std::string FormToJson(const FormDocument& document);

/// Writes `FormToJson(document)` to `path`, replacing the file only once the whole text is written. Does
/// not check the form; a program that saves what a person designed checks it with `CheckFormDocument` first.
/// Returns the error line, or nullopt on success.
[[nodiscard]] std::optional<std::string> SaveFormFile(
    const std::filesystem::path& path, const FormDocument& document);

/// The entries of one field read from JSON, or the one line that says why there are none.
struct [[nodiscard]] EntriesResult {
    /// The entries in the text's order; nullopt when reading failed.
    std::optional<quillmar::MemoryPropertyStore> entries;
    /// Empty on success; otherwise one line naming the source, where relevant the entry, and what is wrong.
    std::string error;
};

/// Reads one field's entries from a JSON object in the notation of a form file's "properties": each entry
/// {"type": kind, "value": value}. The value of a ByteArray entry may also be a JSON object of entries in
/// the same notation, which stands for the bytes of the property store holding them (the readable form of
/// a list: {"NEl": {"type": "Integer", "value": 2}, "1N": ..., "2N": ...}); form files accept it too. The
/// entries "Font", "MustNotBeValues" and "Actions" must hold a property store. Never throws.
[[nodiscard]] EntriesResult EntriesFromJson(std::string_view json, std::string_view sourceName);

/// One field's entries as a JSON object, one entry per line, in store order, readable by `EntriesFromJson`:
/// the nested stores of "Font", "MustNotBeValues" and "Actions" are written as their entries rather than
/// as base64, so that a list reads as its values. `EntriesFromJson(EntriesToJson(s), ...)` gives `s` back.
[[nodiscard]] std::string EntriesToJson(const quillmar::MemoryPropertyStore& entries);

/// Makes (or finds) the control of one field; the caller owns hosts and controls.
using FormControlFactory = std::function<Quillmar&(const FormControl&)>;
/// Gives the control of one field.
using FormControlSource = std::function<const Quillmar&(const FormControl&)>;

/// Loads a form's controls: for each field in order, asks `makeControl` for its control and runs
/// `ReadProperties` on it with the field's entries. When a writer refuses a stored value (a "MustBeType" of
/// 42 throws 380), stops and returns one error line naming `sourceName`, the field and the entry; the
/// caller then discards the whole form. Returns nullopt when every control loaded.
[[nodiscard]] std::optional<std::string> BuildFormControls(
    const FormDocument& document, std::string_view sourceName, const FormControlFactory& makeControl);

/// Replaces each field's properties by what its control (from `controlOf`) writes now with
/// `WriteProperties`, in document order. Names, labels and geometry stay as they are.
void CollectFormControls(FormDocument& document, const FormControlSource& controlOf);

} // namespace quillmar
