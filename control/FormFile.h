#pragma once

#include "control/Quillmar.h"
#include "host/standalone/MemoryPropertyStore.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// One field of a form: the name its control is known by (the extender name), the label shown beside it,
/// its place and size in pixels, and its properties as `WriteProperties` wrote them.
struct FormControl {
    std::u16string name;
    std::u16string label;
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    standalone::MemoryPropertyStore properties;
    friend bool operator==(const FormControl&, const FormControl&) = default;
};

/// A form: its title, its client size in pixels and its fields in tab order.
struct FormDocument {
    std::u16string title;
    int32_t width = 0;
    int32_t height = 0;
    std::vector<FormControl> controls;
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
/// (integers) and "controls", an array of objects with "name" (unique, not empty), "label", "left", "top",
/// "width", "height" and "properties": an object of entries in store order, each {"type": kind, "value":
/// value} where the kind is a `standalone::KindName`; a ByteArray's value is base64, a Currency's a decimal
/// text with up to four decimals, a Date's the count of days, an Array's an array of such entries. The
/// entries "Font", "MustNotBeValues" and "Actions" must be byte arrays holding a property store. Any
/// fault gives one error line naming `sourceName` and never a partial form; nothing throws, and nesting
/// deeper than 64 levels is refused.
[[nodiscard]] FormResult ParseFormJson(std::string_view json, std::string_view sourceName);

/// Reads the form file at `path` (at most 16 MiB) with `ParseFormJson`, naming the path as given in errors.
[[nodiscard]] FormResult LoadFormFile(const std::filesystem::path& path);

/// The form as pretty-printed JSON in the layout `ParseFormJson` reads; entries keep their store order.
/// `ParseFormJson(FormToJson(d), ...)` gives `d` back.
[[nodiscard]] std::string FormToJson(const FormDocument& document);

/// Writes `FormToJson(document)` to `path`, replacing the file only once the whole text is written.
/// Returns the error line, or nullopt on success.
[[nodiscard]] std::optional<std::string> SaveFormFile(
    const std::filesystem::path& path, const FormDocument& document);

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
