#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/control/Quillmar.h>
#include <quillmar/formfile/FormDocument.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// Makes (or finds) the control of one field; the caller owns hosts and controls.
using FormControlFactory = std::function<Quillmar&(const FormControl&)>;
/// Gives the control of one field.
using FormControlSource = std::function<const Quillmar&(const FormControl&)>;

/// Loads a form's controls: for each field in order, asks `makeControl` for its control and runs
/// `ReadProperties` on it with the field's entries. When a writer refuses a stored value (a "MustBeType" of
/// 42 throws 380), stops and returns one error line naming `sourceName`, the field and the entry; the
/// caller then discards the whole form. Returns nullopt when every control loaded.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<std::string> BuildFormControls(
    const FormDocument& document, std::string_view sourceName, const FormControlFactory& makeControl);

/// Leaves out of a field's written `entries` what reads back the same without them: "FontName" and "FontSize"
/// equal to the form's `font`, an empty "MustNotBeValues", and the "Font" store (the six font entries, read
/// after it, always override it).
QUILLMAR_CORE_EXPORT void LeaveOutReadDefaults(quillmar::MemoryPropertyStore& entries, const FormFont& font);

/// Replaces each field's properties by what its control (from `controlOf`) writes now with
/// `WriteProperties`, less `LeaveOutReadDefaults` under the form's font, in document order. Names, labels and
/// geometry stay as they are.
QUILLMAR_CORE_EXPORT void CollectFormControls(FormDocument& document, const FormControlSource& controlOf);

} // namespace quillmar
