#include "apps/check/FormFields.h"

namespace quillmar::check {

bool IsRecordColumn(std::string_view column) noexcept {
    return column == "SubmittedAt";
}

std::optional<std::string> NoFieldColumn(
    const std::vector<CheckedField>& fields, const std::vector<std::string>& columns) {
    for (const std::string& column : columns)
        if (FindField(fields, column) >= 0) return std::nullopt;
    std::string names;
    for (const CheckedField& field : fields)
        names += (names.empty() ? "" : ", ") + field.name;
    if (names.empty()) return "the form has no fields to check";
    return "no column is named after a field of the form (" + names + ")";
}

} // namespace quillmar::check
