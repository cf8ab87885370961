#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::forms {

/// The message a field shows for its text when that text breaks the constraints `bits` (never 0), without
/// any corrective action: the field's own `ErrorMessage` when its mode is `vldCustom`, otherwise the composed
/// message with no action line. Where that leaves nothing to say (a custom field without a message, or the
/// basic message of a text refused only by a forbidden value), "This entry is not valid." stands in, so that
/// no field is listed without a reason. `maxLength` is the field's edit box limit.
[[nodiscard]] std::u16string FieldMessage(std::u16string_view text, int32_t bits, const Settings& settings,
    const LocaleInfo& locale, int32_t maxLength);

/// A field that keeps the record from being stored: its label and its message.
struct InvalidField {
    std::u16string label;
    std::u16string message;
};

/// The text of the one box that answers a Submit with invalid fields: a line saying that the record was not
/// stored and how many fields need correcting, then one line per field in tab order, "label: message", a
/// message of several lines continuing on indented lines. Lines are joined with "\n".
[[nodiscard]] std::u16string SubmitSummary(const std::vector<InvalidField>& fields);

} // namespace quillmar::forms
