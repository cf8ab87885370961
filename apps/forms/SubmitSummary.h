#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmar::forms {

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
